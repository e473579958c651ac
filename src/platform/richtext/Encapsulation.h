#pragma once

#include "platform/richtext/HtmlSource.h"
#include "platform/richtext/RtfMarkup.h"

#include <QByteArray>
#include <QStringView>

/// The body of an RTF document that encapsulates HTML, being written: what only readers of RTF
/// shall see, between \htmlrtf words; what only readers of the HTML shall, in htmltag groups; and
/// once for both what the two have in common. The HTML comes out whole and in order whatever the
/// rendering is, which is looked for in the HTML only to save room.
class Encapsulation
{
public:
    explicit Encapsulation(const QByteArray &html);

    int codePage() const { return m_source.codePage; }

    /// A control word of the rendering, with the backslash.
    void addWord(const QByteArray &word);
    /// Markup of the rendering that ends in no control word.
    void addRaw(const QByteArray &markup);
    /// Text of the rendering.
    void addText(QStringView text);

    /// The document, with the tables that the rendering names. Nothing may be added afterwards.
    QByteArray finished(const QByteArray &tables);

private:
    /// A part of a text that stands in the HTML as well.
    struct Match
    {
        qsizetype place; ///< In the HTML.
        qsizetype length;
    };

    Match found(QStringView text);
    qsizetype lengthOf(QStringView text, qsizetype place) const;
    void share(QStringView text, qsizetype place);
    void addOwn(QStringView text);
    void setOnlyShown(bool isOnlyShown);
    void carryUpTo(qsizetype place);

    const HtmlSource m_source;
    RtfMarkup m_markup;
    qsizetype m_carried = 0; ///< Characters of the HTML that are written.
    qsizetype m_patience;    ///< Characters that may be looked at yet.
    bool m_isOnlyShown = false;
};
