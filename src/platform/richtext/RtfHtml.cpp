#include "platform/richtext/RtfHtml.h"

#include <algorithm>
#include <utility>

namespace {

constexpr qsizetype kMaxCells = 200;
constexpr int kMaxListDepth = 8;
constexpr int kUsualHalfPoints = 24;

/// "1." counts, and so does "(iv)"; a bullet or a dash does not.
bool counts(const QString &marker)
{
    return std::any_of(marker.begin(), marker.end(),
                       [](QChar character) { return character.isLetterOrNumber(); }) &&
           marker.trimmed().size() > 1;
}

QString escaped(const QString &text)
{
    return text.toHtmlEscaped();
}

} // namespace

qsizetype RtfHtml::size() const
{
    return m_html.size() + m_content.size() + m_cell.size() + m_waiting;
}

void RtfHtml::addText(const QString &text, const Characters &characters)
{
    if (text.isEmpty())
        return;
    if (!m_isRunOpen || !(characters == m_run)) {
        closeRun();
        openRun(characters);
    }
    for (const QChar character : text)
        m_hasText = m_hasText || !character.isSpace();
    m_content += escaped(text);
    // Of spaces in a row a reader would keep one.
    for (qsizetype place = std::max<qsizetype>(m_content.size() - text.size() - 1, 0);;) {
        place = m_content.indexOf(QLatin1String("  "), place);
        if (place < 0)
            break;
        m_content[place] = QChar(QChar::Nbsp);
    }
}

void RtfHtml::openRun(const Characters &characters)
{
    m_run = characters;
    m_isRunOpen = true;
    const auto open = [this](const QString &tag, const QString &attributes = {}) {
        m_content += u'<' + tag + attributes + u'>';
        m_closing.prepend(QStringLiteral("</") + tag + u'>');
    };
    if (!characters.address.isEmpty())
        open(QStringLiteral("a"), QStringLiteral(" href=\"") + escaped(characters.address) + u'"');
    QString style;
    if (characters.colour)
        style += QStringLiteral("color:") + QColor(*characters.colour).name() + u';';
    if (characters.ground)
        style += QStringLiteral("background-color:") + QColor(*characters.ground).name() + u';';
    // A heading is as large as its reader makes headings.
    if (characters.halfPoints != kUsualHalfPoints && paragraph.heading == 0)
        style += QStringLiteral("font-size:") + QString::number(characters.halfPoints / 2.0) +
                 QStringLiteral("pt;");
    if (!style.isEmpty())
        open(QStringLiteral("span"), QStringLiteral(" style=\"") + style + u'"');
    if (characters.isFixed)
        open(QStringLiteral("code"));
    if (characters.isBold && paragraph.heading == 0)
        open(QStringLiteral("b"));
    if (characters.isItalic)
        open(QStringLiteral("i"));
    if (characters.isUnderlined && characters.address.isEmpty())
        open(QStringLiteral("u"));
    if (characters.isStruckOut)
        open(QStringLiteral("s"));
    if (characters.raised != 0)
        open(characters.raised > 0 ? QStringLiteral("sup") : QStringLiteral("sub"));
}

void RtfHtml::closeRun()
{
    m_content += m_closing;
    m_closing.clear();
    m_isRunOpen = false;
}

void RtfHtml::addLineBreak()
{
    closeRun();
    m_content += QLatin1String("<br>");
}

QString RtfHtml::attributes() const
{
    QString attributes;
    if (paragraph.alignment)
        attributes =
            QStringLiteral(" style=\"text-align:") + QLatin1String(paragraph.alignment) + u'"';
    if (paragraph.isRightToLeft)
        attributes += QLatin1String(" dir=\"rtl\"");
    return attributes;
}

/// The paragraph's content in its element; `isOnlyOne` in what needs none.
QString RtfHtml::takenParagraph(bool isOnlyOne)
{
    closeRun();
    QString content = std::move(m_content);
    m_content.clear();
    const int heading = paragraph.heading;
    const QString tag = heading > 0 ? QStringLiteral("h%1").arg(heading) : QStringLiteral("p");
    if (isOnlyOne && heading == 0 && attributes().isEmpty())
        return content;
    if (content.isEmpty())
        content = QStringLiteral("<br>");
    return u'<' + tag + attributes() + u'>' + content + QStringLiteral("</") + tag + u'>';
}

void RtfHtml::closeLists(qsizetype depth)
{
    while (m_lists.size() > depth) {
        m_html +=
            m_lists.back().isCounted ? QLatin1String("</li></ol>") : QLatin1String("</li></ul>");
        m_lists.removeLast();
    }
}

void RtfHtml::closeTable()
{
    if (m_isTableOpen)
        m_html += QLatin1String("</table>");
    m_isTableOpen = false;
}

void RtfHtml::addItem(const QString &content)
{
    const qsizetype depth = std::clamp(paragraph.level, 0, kMaxListDepth) + 1;
    const bool isCounted = counts(m_marker);
    closeLists(depth);
    if (m_lists.size() == depth &&
        (m_lists.back().isCounted != isCounted || m_lists.back().number != paragraph.list))
        closeLists(depth - 1);
    if (m_lists.size() == depth)
        m_html += QLatin1String("</li>");
    while (m_lists.size() < depth) {
        m_html += isCounted ? QLatin1String("<ol>") : QLatin1String("<ul>");
        if (m_lists.size() + 1 < depth)
            m_html += QLatin1String("<li>");
        m_lists.append({paragraph.list, isCounted});
    }
    m_html += QStringLiteral("<li") + attributes() + u'>' + content;
}

void RtfHtml::endParagraph()
{
    if (paragraph.isInTable) {
        m_cell += takenParagraph(false);
        m_marker.clear();
        return;
    }
    closeTable();
    // What followed the last row was in no cell, though it was said to be in a table.
    if (m_cells.isEmpty() && !m_cell.isEmpty()) {
        closeLists(0);
        m_html += std::exchange(m_cell, {});
    }
    const bool isItem = paragraph.heading == 0 && (!m_marker.isEmpty() || paragraph.list > 0);
    if (isItem) {
        closeRun();
        addItem(m_content);
        m_content.clear();
    } else {
        closeLists(0);
        m_html += takenParagraph(false);
    }
    m_marker.clear();
}

void RtfHtml::endCell()
{
    m_cell += takenParagraph(m_cell.isEmpty());
    m_marker.clear();
    m_waiting += m_cell.size();
    if (m_cells.size() < kMaxCells)
        m_cells.append(std::move(m_cell));
    else
        m_cells.back() += u' ' + m_cell;
    m_cell.clear();
}

void RtfHtml::endRow()
{
    if (!m_cell.isEmpty() || !m_content.isEmpty())
        endCell();
    if (m_cells.isEmpty())
        return;
    closeLists(0);
    if (!m_isTableOpen)
        m_html += QLatin1String("<table border=\"1\" cellspacing=\"0\">");
    m_isTableOpen = true;
    m_html += QLatin1String("<tr>");
    for (const QString &cell : std::as_const(m_cells))
        m_html += QStringLiteral("<td>") + cell + QStringLiteral("</td>");
    m_html += QLatin1String("</tr>");
    m_cells.clear();
    m_waiting = 0;
}

std::optional<QString> RtfHtml::finished()
{
    if (!m_cells.isEmpty() || !m_cell.isEmpty())
        endRow();
    closeRun();
    if (!m_content.isEmpty()) {
        paragraph.isInTable = false;
        endParagraph();
    }
    closeLists(0);
    closeTable();
    if (!m_hasText)
        return std::nullopt;
    return m_html;
}
