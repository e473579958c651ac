#pragma once

#include "looks/ClipColors.h"

#include <QFont>
#include <QTextCharFormat>

class QTextDocument;

/// What copied rich text looks like in the preview: fit for the scheme and the desktop's font, and
/// calm. A value; for any thread.
struct RichTextLooks
{
    ClipColors colors;
    QFont font;            ///< Of the text that is neither large nor small; sized in points.
    QTextCharFormat emoji; ///< What EmojiFont::format() gives.

    /// Gives a document these looks. Copied colours become readable, and those of the page around
    /// them go; sizes become classes of the font's, links look like links, tables get hairlines.
    /// The text stays as it is, character by character.
    void fit(QTextDocument &document) const;

    /// Gives back the formatting that fit() has changed, also of a part of such a document.
    static void unfit(QTextDocument &document);
};
