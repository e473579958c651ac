#include "platform/richtext/RtfTables.h"

#include <algorithm>

namespace {

/// More than any document has.
constexpr qsizetype kMaxEntries = 10'000;

} // namespace

void RtfTables::readFontWord(const QByteArray &word, const RtfToken &token)
{
    if (word == "f") {
        m_font = token.number;
        if (m_fonts.size() < kMaxEntries)
            m_fonts.insert(m_font, Font{m_codePage});
        return;
    }
    const auto font = m_fonts.find(m_font);
    if (font == m_fonts.end())
        return;
    if (word == "fcharset")
        font->codePage = CodePage::ofFontCharset(token.number, m_codePage);
    else if (word == "cpg")
        font->codePage = token.number;
    else if (word == "fmodern")
        font->isFixed = true;
}

void RtfTables::readColourWord(const QByteArray &word, const RtfToken &token)
{
    const int value = std::clamp(token.number, 0, 255);
    if (word == "red")
        m_colour = qRgb(value, qGreen(m_colour), qBlue(m_colour));
    else if (word == "green")
        m_colour = qRgb(qRed(m_colour), value, qBlue(m_colour));
    else if (word == "blue")
        m_colour = qRgb(qRed(m_colour), qGreen(m_colour), value);
}

void RtfTables::endColour()
{
    if (m_colours.size() < kMaxEntries)
        m_colours.append(m_colour);
    m_colour = qRgb(0, 0, 0);
}

void RtfTables::readStyleWord(const QByteArray &word, const RtfToken &token)
{
    if (word == "s")
        m_style = token.number;
    else if (word == "outlinelevel" && token.number >= 0 && token.number < 6 &&
             m_headings.size() < kMaxEntries)
        m_headings.insert(m_style, token.number + 1);
}

void RtfTables::nameStyle(const QString &name)
{
    static const QString kHeading = QStringLiteral("heading ");
    const int level = name.mid(kHeading.size(), 1).toInt();
    const bool isHeading =
        name.startsWith(kHeading, Qt::CaseInsensitive) && level > 0 && level <= 6;
    if (isHeading && m_headings.size() < kMaxEntries)
        m_headings.insert(m_style, level);
}

RtfTables::Font RtfTables::font(int number) const
{
    return m_fonts.value(number < 0 ? m_defaultFont : number, Font{m_codePage});
}

std::optional<QRgb> RtfTables::colour(int number) const
{
    if (number <= 0 || number >= m_colours.size())
        return std::nullopt;
    return m_colours.at(number);
}
