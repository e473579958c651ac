#pragma once

#include "platform/richtext/CodePage.h"
#include "platform/richtext/RtfTokens.h"

#include <QColor>
#include <QHash>
#include <QList>
#include <QString>

#include <optional>

/// What RTF says of its fonts, colours and styles before its text, as far as HTML has it.
class RtfTables
{
public:
    struct Font
    {
        int codePage = CodePage::kWestern;
        bool isFixed = false;
    };

    /// The encoding of fonts that say none, and of text before there are any.
    void setCodePage(int codePage) { m_codePage = codePage; }
    void setDefaultFont(int number) { m_defaultFont = number; }

    void readFontWord(const QByteArray &word, const RtfToken &token);
    void readColourWord(const QByteArray &word, const RtfToken &token);
    /// The semicolon behind each.
    void endColour();
    void readStyleWord(const QByteArray &word, const RtfToken &token);
    void nameStyle(const QString &name);

    /// A negative number is the default one.
    Font font(int number) const;
    /// Absent for the reader's own, the first of them, and for what is none.
    std::optional<QRgb> colour(int number) const;
    /// 1 to 6; 0 for a style of other paragraphs.
    int headingOf(int style) const { return m_headings.value(style); }

private:
    int m_codePage = CodePage::kWestern;
    int m_defaultFont = 0;
    QHash<int, Font> m_fonts;
    QList<QRgb> m_colours;
    QHash<int, int> m_headings;
    int m_font = 0; ///< Being defined, like the others here.
    QRgb m_colour = qRgb(0, 0, 0);
    int m_style = 0;
};
