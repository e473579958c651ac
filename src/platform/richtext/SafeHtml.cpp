#include "platform/richtext/SafeHtml.h"

#include <QSet>

#include <algorithm>
#include <optional>

namespace {

/// The toolkit walks up from each element; pages are some 30 deep.
constexpr qsizetype kMaxDepth = 100;
/// Laying out a table in a table takes a multiple of the time each.
constexpr qsizetype kMaxTableDepth = 2;
/// A list is indented by each.
constexpr qsizetype kMaxListDepth = 9;
/// The toolkit makes a cell of each place in the grid, empty ones too.
constexpr int kMaxCells = 20'000;
/// Where less is written for less time, cells are what takes most of it.
constexpr qsizetype kCharactersACell = 30;
constexpr int kMaxColumns = 100;
constexpr int kMaxSpanned = 50;
/// Each cell that spans others has the toolkit go through the grid.
constexpr int kMaxSpanning = 300;
/// Each item has it go through those before it.
constexpr int kMaxItems = 500;
constexpr qsizetype kMaxElements = 60'000;

/// A number from 1 to `most`; 1 for none.
int numberOf(QStringView value, int most)
{
    return std::clamp(value.trimmed().toInt(), 1, most);
}

/// Takes a property out of a style; gives its value, empty where there is none.
QString taken(QLatin1String property, QString *style)
{
    if (!style->contains(property))
        return {};
    QString value;
    QString left;
    for (const QString &declaration : style->split(u';', Qt::SkipEmptyParts)) {
        if (declaration.startsWith(property))
            value = declaration.mid(property.size() + 1);
        else
            left += declaration + u';';
    }
    *style = left;
    return value;
}

} // namespace

SafeHtml::Result SafeHtml::of(QStringView source, qsizetype maxCharacters)
{
    SafeHtml made(source);
    made.read(maxCharacters);
    return made.m_result;
}

void SafeHtml::read(qsizetype maxCharacters)
{
    m_mostCells =
        static_cast<int>(std::min<qsizetype>(maxCharacters / kCharactersACell, kMaxCells));
    qsizetype left = kMaxElements;
    for (HtmlToken token; !m_isComplete && m_tokens.next(&token);) {
        const qsizetype room = maxCharacters - m_result.html.size();
        if (room <= 0 || left <= 0) {
            m_result.isCut = true;
            break;
        }
        switch (token.kind) {
        case HtmlToken::Kind::Text:
            m_result.isCut = token.text.size() > room;
            m_isComplete = m_result.isCut;
            addText(token.text.first(qMin(token.text.size(), room)));
            break;
        case HtmlToken::Kind::Open:
            --left;
            open(token);
            break;
        case HtmlToken::Kind::Close:
            close(token.name);
            break;
        case HtmlToken::Kind::Comment:
            addComment(token.text);
            break;
        }
    }
    closeDownTo(0);
}

void SafeHtml::addText(QStringView text)
{
    if (!m_open.isEmpty() && m_open.back().isHidden)
        return;
    QString kept;
    kept.reserve(text.size());
    const bool keepsSpace = !m_open.isEmpty() && m_open.back().keepsSpace;
    bool hasText = false;
    for (const QChar character : text) {
        if (m_isAtEdge && !keepsSpace && character.isSpace() && character != QChar::Nbsp)
            continue;
        m_isAtEdge = false;
        const char16_t unit = character.unicode();
        // Those that the toolkit's documents have for marks of their own, and NUL and its like.
        const bool isMark = (unit >= 0xFDD0 && unit <= 0xFDEF) || unit == 0xFFFC || unit >= 0xFFFE;
        if (isMark || (unit < 0x20 && !character.isSpace()))
            continue;
        if (!hasText && !character.isSpace())
            hasText = true;
        if (unit == u'<')
            kept += QLatin1String("&lt;");
        else if (unit == u'>')
            kept += QLatin1String("&gt;");
        else if (unit == u'\r' && keepsSpace)
            continue;
        else
            kept += character;
    }
    m_result.html += kept;
    m_result.hasText = m_result.hasText || hasText;
}

/// Of a block, where the toolkit would keep a space, which browsers do not.
void SafeHtml::reachEdge()
{
    m_isAtEdge = true;
    if (m_open.isEmpty() || m_open.back().keepsSpace)
        return;
    while (m_result.html.endsWith(u' ') || m_result.html.endsWith(u'\n'))
        m_result.html.chop(1);
}

void SafeHtml::addComment(QStringView comment)
{
    // What was marked in a page stands between these; before it there is what it stands in.
    if (comment.trimmed() == QStringLiteral("StartFragment")) {
        m_result = {};
        m_isAtEdge = true;
        for (const Element &element : m_open)
            m_result.html += element.opening;
    } else if (comment.trimmed() == QStringLiteral("EndFragment")) {
        m_isComplete = true;
    }
}

bool SafeHtml::passOver(const HtmlToken &token)
{
    const HtmlElements::Text text = HtmlElements::textOf(token.name);
    if (text == HtmlElements::Text::Kept)
        return false;
    if (token.name == QStringLiteral("style"))
        m_styles.read(m_tokens.rawText(token.name));
    else if (text == HtmlElements::Text::LeftOutToEnd || m_tokens.hasEnd(token))
        m_tokens.rawText(token.name);
    return true;
}

qsizetype SafeHtml::lastOf(Role role, Role wall) const
{
    for (qsizetype index = m_open.size() - 1; index >= 0; --index) {
        if (m_open.at(index).role == role)
            return index;
        if (m_open.at(index).role == wall)
            break;
    }
    return -1;
}

/// Closes what an opening tag closes without saying so.
void SafeHtml::makeRoom(const QString &name, Role role)
{
    qsizetype found = -1;
    if (role == Role::Item)
        found = lastOf(Role::Item, Role::List);
    else if (role == Role::Row || role == Role::Cell)
        found = lastOf(role, Role::Table);
    if (role == Role::Row && found < 0)
        found = lastOf(Role::Cell, Role::Table);
    if (found >= 0) {
        closeDownTo(found);
        return;
    }
    const bool isBlock = role != Role::Inline && name != QStringLiteral("br");
    static const QSet<QString> kClosed{QStringLiteral("p"), QStringLiteral("dt"),
                                       QStringLiteral("dd")};
    if (isBlock && !m_open.isEmpty() && kClosed.contains(m_open.back().name) &&
        (m_open.back().name == QStringLiteral("p") || name.startsWith(u'd')))
        closeDownTo(m_open.size() - 1);
}

/// Columns that cells of rows before reach into.
int SafeHtml::reachedInto(Table &table)
{
    int columns = 0;
    for (Reach &reach : table.reaches)
        columns += reach.rows-- > 0 ? reach.columns : 0;
    table.reaches.removeIf([](const Reach &reach) { return reach.rows <= 0; });
    return columns;
}

bool SafeHtml::fitsCell(const HtmlToken &token)
{
    Table &table = m_tables.back();
    const bool mayReach = m_spanning < kMaxSpanning;
    const auto spanOf = [&](const char *name) {
        return mayReach ? numberOf(token.attribute(QLatin1String(name)), kMaxSpanned) : 1;
    };
    const int columns = spanOf("colspan");
    if (const int rows = spanOf("rowspan"); rows > 1)
        table.reaches.append({columns, rows - 1});
    const int wanted = table.columnsOfRow + columns;
    const int most = std::max(table.columns, wanted);
    if (most > kMaxColumns || most * table.rows > m_mostCells)
        return false;
    table.columns = most;
    table.columnsOfRow = wanted;
    return true;
}

/// Whether the toolkit bears one more of these.
bool SafeHtml::fits(const HtmlToken &token, Role role)
{
    Table *table = m_tables.isEmpty() ? nullptr : &m_tables.back();
    switch (role) {
    case Role::List:
        return std::count_if(m_open.begin(), m_open.end(), [](const Element &element) {
                   return element.role == Role::List;
               }) < kMaxListDepth;
    case Role::Table:
        return std::count_if(m_tables.begin(), m_tables.end(),
                             [](const Table &other) { return other.isKept; }) < kMaxTableDepth;
    case Role::Row:
        if (!table || !table->isKept || table->rows >= m_mostCells ||
            (table->rows + 1) * table->columns > m_mostCells)
            return false;
        ++table->rows;
        table->columnsOfRow = reachedInto(*table);
        return true;
    case Role::Cell:
        return table && lastOf(Role::Row, Role::Table) >= 0 &&
               m_open.at(lastOf(Role::Row, Role::Table)).isKept && fitsCell(token);
    default:
        return true;
    }
}

/// Begins another list of the same kind once one is too long for the toolkit.
void SafeHtml::countItem()
{
    const qsizetype index = lastOf(Role::List, Role::Table);
    if (index < 0 || index != m_open.size() - 1 || ++m_open[index].items <= kMaxItems)
        return;
    m_open[index].items = 1;
    m_result.html += m_open.at(index).closing + m_open.at(index).opening;
}

/// Those of a cell, as far as the toolkit bears it.
QString SafeHtml::spans(const HtmlToken &token)
{
    QString spans;
    for (const char *name : {"colspan", "rowspan"}) {
        const int count = numberOf(token.attribute(QLatin1String(name)), kMaxSpanned);
        if (count > 1 && m_spanning < kMaxSpanning)
            spans += HtmlElements::attribute(name, QString::number(count));
    }
    m_spanning += spans.isEmpty() ? 0 : 1;
    return spans;
}

SafeHtml::Element SafeHtml::made(const HtmlToken &token, Role role, bool isKept)
{
    Element element;
    element.name = token.name;
    element.role = role;
    element.isKept = isKept;
    QString style = HtmlElements::looksOf(token) +
                    m_styles.of(token.name, token.attribute(QLatin1String("class"))) +
                    HtmlStyles::safe(token.attribute(QLatin1String("style")));
    // A page's own colours are for all that was not copied of it.
    if (token.name == QStringLiteral("body") || token.name == QStringLiteral("html"))
        style.clear();
    QString alignment;
    if (role != Role::Inline) {
        taken(QLatin1String("background-color"), &style);
        alignment = taken(QLatin1String("text-align"), &style);
    }
    const Element *outer = m_open.isEmpty() ? nullptr : &m_open.back();
    element.isHidden = style.contains(QLatin1String("display:none")) || (outer && outer->isHidden);
    element.keepsSpace =
        style.contains(QLatin1String("white-space:pre")) || (outer && outer->keepsSpace);
    if (element.isHidden)
        return element;
    // What is left of a table that is left out is its lines and its words.
    const QString tag = isKept ? HtmlElements::tagOf(token.name, role)
                               : QLatin1String(role == Role::Cell ? "span" : "div");
    element.opening = u'<' + tag + HtmlElements::attribute("style", style);
    if (isKept)
        element.opening += HtmlElements::attributesOf(token, role, alignment);
    if (isKept && role == Role::Cell)
        element.opening += spans(token);
    element.opening += u'>';
    element.closing = QStringLiteral("</") + tag + u'>';
    if (!isKept && role == Role::Cell)
        element.closing += u' ';
    return element;
}

void SafeHtml::open(const HtmlToken &token)
{
    if (passOver(token))
        return;
    const std::optional<Role> role = HtmlElements::roleOf(token.name);
    if (!role)
        return;
    makeRoom(token.name, *role);
    if (*role == Role::Cell && lastOf(Role::Row, Role::Table) < 0 && !m_tables.isEmpty()) {
        HtmlToken row;
        row.kind = HtmlToken::Kind::Open;
        row.name = QStringLiteral("tr");
        open(row);
    }
    if (m_open.size() >= kMaxDepth) {
        // Its text stays apart from what is before it.
        m_result.html += u' ';
        return;
    }
    const bool isKept = fits(token, *role);
    if (!isKept && *role == Role::List)
        return;
    if (*role == Role::Item)
        countItem();
    const Element element = made(token, *role, isKept);
    if (!element.isInline())
        reachEdge();
    m_result.html += element.opening;
    if (*role == Role::Single)
        return;
    if (*role == Role::Table)
        m_tables.append(Table{.isKept = isKept});
    m_open.append(element);
}

void SafeHtml::close(const QString &name)
{
    const std::optional<Role> role = HtmlElements::roleOf(name);
    if (!role || *role == Role::Single)
        return;
    const bool isOfTable = *role == Role::Table || *role == Role::Row || *role == Role::Cell;
    for (qsizetype index = m_open.size() - 1; index >= 0; --index) {
        if (m_open.at(index).name == name) {
            closeDownTo(index);
            return;
        }
        // What ends in a cell began there; and a table is ended by its own tags alone.
        const Role other = m_open.at(index).role;
        if (other == Role::Table || (!isOfTable && (other == Role::Cell || other == Role::Row)))
            return;
    }
}

void SafeHtml::closeDownTo(qsizetype count)
{
    while (m_open.size() > count) {
        if (!m_open.back().isInline())
            reachEdge();
        m_result.html += m_open.back().closing;
        if (m_open.back().role == Role::Table)
            m_tables.removeLast();
        m_open.removeLast();
    }
}
