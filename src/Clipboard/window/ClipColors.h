#pragma once

#include <QColor>

class QPalette;

/// The colours of the history window in one of its two schemes. A value; whoever paints is given
/// a new one when the desktop changes between light and dark.
struct ClipColors
{
    bool isDark = false;
    QColor panel;        ///< Behind the search field and the list.
    QColor paper;        ///< Behind the preview.
    QColor border;       ///< The hairline around the window; translucent.
    QColor separator;    ///< Lines inside the window.
    QColor text;         ///< What is read.
    QColor quietText;    ///< Running numbers, hints, the line under the preview.
    QColor selected;     ///< The selected row.
    QColor selectedText; ///< On top of `selected`.
    QColor control;      ///< A button at rest.
    QColor controlHover; ///< A button under the pointer.
    QColor warning;      ///< The warning sign.

    /// The scheme that fits `palette`: dark when its windows are darker than their text.
    static ClipColors ofPalette(const QPalette &palette);
};
