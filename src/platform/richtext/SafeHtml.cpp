#include "platform/richtext/SafeHtml.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <optional>

namespace {

/// The toolkit walks up from each element; pages are some 30 deep.
constexpr qsizetype kDeepest = 100;
/// Laying out a table in a table takes a multiple of the time each.
constexpr qsizetype kDeepestTable = 3;
/// A list is indented by each.
constexpr qsizetype kDeepestList = 9;
/// The toolkit makes a cell of each place in the grid, empty ones too.
constexpr int kMostCells = 20'000;
constexpr int kMostColumns = 100;
constexpr int kMostSpanned = 50;
/// Each cell that spans others has the toolkit go through the grid.
constexpr int kMostSpanning = 300;
/// Each item has it go through those before it.
constexpr int kMostItems = 500;
constexpr qsizetype kLongestAddress = 2048;
constexpr qsizetype kMostElements = 60'000;

QString escaped(QStringView text)
{
    return text.toString()
        .replace(u'<', QLatin1String("&lt;"))
        .replace(u'>', QLatin1String("&gt;"));
}

QString attribute(const char *name, const QString &value)
{
    return value.isEmpty() ? QString()
                           : u' ' + QLatin1String(name) + QStringLiteral("=\"") + value + u'"';
}

/// A number from 1 to `most`; 1 for none.
int numberOf(QStringView value, int most)
{
    return std::clamp(value.trimmed().toInt(), 1, most);
}

/// What a reader may open, as an attribute's value; empty for any other address.
QString safeAddress(QStringView value)
{
    if (value.size() > kLongestAddress)
        return {};
    QString address = value.trimmed().toString();
    const auto startsWith = [&address](const char *scheme) {
        return address.startsWith(QLatin1String(scheme), Qt::CaseInsensitive);
    };
    if (!startsWith("http://") && !startsWith("https://") && !startsWith("mailto:"))
        return {};
    return escaped(address).replace(u'"', QLatin1String("%22"));
}

/// A style but for one property.
QString without(const QString &style, QLatin1String property)
{
    QString left;
    for (const QString &declaration : style.split(u';', Qt::SkipEmptyParts))
        if (!declaration.startsWith(property))
            left += declaration + u';';
    return left;
}

/// What an element looks like besides its style.
QString looksOf(const HtmlToken &token)
{
    static const QHash<QString, QString> kLooks{
        {QStringLiteral("code"), QStringLiteral("font-family:monospace;")},
        {QStringLiteral("tt"), QStringLiteral("font-family:monospace;")},
        {QStringLiteral("kbd"), QStringLiteral("font-family:monospace;")},
        {QStringLiteral("samp"), QStringLiteral("font-family:monospace;")},
        {QStringLiteral("pre"), QStringLiteral("white-space:pre;font-family:monospace;")},
        {QStringLiteral("big"), QStringLiteral("font-size:large;")},
        {QStringLiteral("small"), QStringLiteral("font-size:small;")},
        {QStringLiteral("mark"), QStringLiteral("background-color:#ffff00;")},
        {QStringLiteral("center"), QStringLiteral("text-align:center;")},
    };
    if (token.name != QStringLiteral("font"))
        return kLooks.value(token.name);
    static const char *const kSizes[] = {"x-small", "small",    "medium",  "large",
                                         "x-large", "xx-large", "xx-large"};
    QString looks;
    if (const QString colour = HtmlStyles::colour(token.attribute(QLatin1String("color")));
        !colour.isEmpty())
        looks += QStringLiteral("color:") + colour + u';';
    const QStringView size = token.attribute(QLatin1String("size")).trimmed();
    if (!size.isEmpty()) {
        const bool isRelative = size.front() == u'+' || size.front() == u'-';
        const int number = std::clamp(size.toInt() + (isRelative ? 3 : 0), 1, 7);
        looks += QStringLiteral("font-size:") + QLatin1String(kSizes[number - 1]) + u';';
    }
    return looks;
}

/// What the toolkit knows the element as.
QString writtenAs(const QString &name)
{
    static const QHash<QString, QString> kNames{
        {QStringLiteral("strong"), QStringLiteral("b")},
        {QStringLiteral("em"), QStringLiteral("i")},
        {QStringLiteral("cite"), QStringLiteral("i")},
        {QStringLiteral("dfn"), QStringLiteral("i")},
        {QStringLiteral("var"), QStringLiteral("i")},
        {QStringLiteral("ins"), QStringLiteral("u")},
        {QStringLiteral("del"), QStringLiteral("s")},
        {QStringLiteral("strike"), QStringLiteral("s")},
        {QStringLiteral("menu"), QStringLiteral("ul")},
        {QStringLiteral("dir"), QStringLiteral("ul")},
    };
    static const QSet<QString> kKept{
        QStringLiteral("b"),   QStringLiteral("i"),          QStringLiteral("u"),
        QStringLiteral("s"),   QStringLiteral("p"),          QStringLiteral("h1"),
        QStringLiteral("h2"),  QStringLiteral("h3"),         QStringLiteral("h4"),
        QStringLiteral("h5"),  QStringLiteral("h6"),         QStringLiteral("ul"),
        QStringLiteral("ol"),  QStringLiteral("li"),         QStringLiteral("dl"),
        QStringLiteral("dt"),  QStringLiteral("dd"),         QStringLiteral("br"),
        QStringLiteral("hr"),  QStringLiteral("table"),      QStringLiteral("tr"),
        QStringLiteral("td"),  QStringLiteral("th"),         QStringLiteral("sub"),
        QStringLiteral("sup"), QStringLiteral("blockquote"),
    };
    if (kKept.contains(name))
        return name;
    return kNames.value(name);
}

} // namespace

std::optional<SafeHtml::Role> SafeHtml::roleOf(const QString &name)
{
    static const auto kRoles = [] {
        QHash<QString, Role> roles;
        const auto add = [&roles](Role role, std::initializer_list<const char *> names) {
            for (const char *one : names)
                roles.insert(QLatin1String(one), role);
        };
        add(Role::Inline, {"b",  "strong", "i",      "em",  "cite",  "dfn",  "var",   "u",   "ins",
                           "s",  "del",    "strike", "sub", "sup",   "span", "font",  "a",   "code",
                           "tt", "kbd",    "samp",   "big", "small", "mark", "label", "abbr"});
        add(Role::Block,
            {"p",        "div",     "blockquote", "pre",     "dl",      "dt",      "dd",
             "center",   "section", "article",    "header",  "footer",  "main",    "nav",
             "aside",    "figure",  "figcaption", "address", "details", "summary", "form",
             "fieldset", "legend",  "caption",    "body",    "html"});
        add(Role::Heading, {"h1", "h2", "h3", "h4", "h5", "h6"});
        add(Role::List, {"ul", "ol", "menu", "dir"});
        add(Role::Item, {"li"});
        add(Role::Table, {"table"});
        add(Role::Row, {"tr"});
        add(Role::Cell, {"td", "th"});
        add(Role::Single, {"br", "hr"});
        return roles;
    }();
    const auto found = kRoles.constFind(name);
    return found == kRoles.cend() ? std::nullopt : std::optional(*found);
}

SafeHtml::Result SafeHtml::of(QStringView source, qsizetype mostCharacters)
{
    SafeHtml made(source);
    made.read(mostCharacters);
    return made.m_result;
}

void SafeHtml::read(qsizetype mostCharacters)
{
    qsizetype left = kMostElements;
    for (HtmlToken token; !m_isComplete && m_tokens.next(&token);) {
        const qsizetype room = mostCharacters - m_result.html.size();
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

void SafeHtml::addComment(QStringView comment)
{
    // What was marked in a page stands between these; before it there is what it stands in.
    if (comment.trimmed() == QStringLiteral("StartFragment")) {
        m_result = {};
        for (const Element &element : m_open)
            m_result.html += element.opening;
    } else if (comment.trimmed() == QStringLiteral("EndFragment")) {
        m_isComplete = true;
    }
}

bool SafeHtml::passOver(const HtmlToken &token)
{
    static const QSet<QString> kWithoutText{
        QStringLiteral("script"),   QStringLiteral("title"),   QStringLiteral("iframe"),
        QStringLiteral("noscript"), QStringLiteral("noembed"), QStringLiteral("noframes"),
        QStringLiteral("template"), QStringLiteral("object"),  QStringLiteral("applet"),
        QStringLiteral("svg"),      QStringLiteral("canvas"),  QStringLiteral("video"),
        QStringLiteral("audio"),    QStringLiteral("select"),  QStringLiteral("textarea"),
        QStringLiteral("xml"),
    };
    if (token.name == QStringLiteral("style")) {
        m_styles.read(m_tokens.rawText(token.name));
        return true;
    }
    if (!kWithoutText.contains(token.name))
        return false;
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
    const bool mayReach = m_spanning < kMostSpanning;
    const auto spanOf = [&](const char *name) {
        return mayReach ? numberOf(token.attribute(QLatin1String(name)), kMostSpanned) : 1;
    };
    const int columns = spanOf("colspan");
    if (const int rows = spanOf("rowspan"); rows > 1)
        table.reaches.append({columns, rows - 1});
    const int wanted = table.columnsOfRow + columns;
    const int most = std::max(table.columns, wanted);
    if (most > kMostColumns || most * table.rows > kMostCells)
        return false;
    table.columns = most;
    table.columnsOfRow = wanted;
    return true;
}

/// Whether the toolkit bears one more of these; what is in it is kept if not.
bool SafeHtml::fits(const HtmlToken &token, Role role)
{
    if (m_open.size() >= kDeepest)
        return false;
    const auto count = [this](Role counted) {
        return std::count_if(m_open.begin(), m_open.end(),
                             [counted](const Element &element) { return element.role == counted; });
    };
    switch (role) {
    case Role::List:
        return count(Role::List) < kDeepestList;
    case Role::Table:
        return m_tables.size() < kDeepestTable;
    case Role::Row:
        if (m_tables.isEmpty() || (m_tables.back().rows + 1) * m_tables.back().columns > kMostCells)
            return false;
        ++m_tables.back().rows;
        m_tables.back().columnsOfRow = reachedInto(m_tables.back());
        return m_tables.back().rows <= kMostCells;
    case Role::Cell:
        return lastOf(Role::Row, Role::Table) >= 0 && fitsCell(token);
    default:
        return true;
    }
}

/// Begins another list of the same kind once one is too long for the toolkit.
void SafeHtml::countItem()
{
    const qsizetype index = lastOf(Role::List, Role::Table);
    if (index < 0 || index != m_open.size() - 1 || ++m_open[index].items <= kMostItems)
        return;
    m_open[index].items = 1;
    m_result.html += m_open.at(index).closing + m_open.at(index).opening;
}

SafeHtml::Element SafeHtml::made(const HtmlToken &token, Role role)
{
    Element element;
    element.name = token.name;
    element.role = role;
    QString tag = writtenAs(token.name);
    if (tag.isEmpty())
        tag = role == Role::Inline ? QStringLiteral("span") : QStringLiteral("div");
    QString style = looksOf(token) +
                    m_styles.of(token.name, token.attribute(QLatin1String("class"))) +
                    HtmlStyles::safe(token.attribute(QLatin1String("style")));
    // A page's own colours are for all that was not copied of it.
    if (token.name == QStringLiteral("body") || token.name == QStringLiteral("html"))
        style.clear();
    if (role != Role::Inline)
        style = without(style, QLatin1String("background-color"));
    element.isHidden = style.contains(QLatin1String("display:none")) ||
                       (!m_open.isEmpty() && m_open.back().isHidden);
    element.keepsSpace = style.contains(QLatin1String("white-space:pre")) ||
                         (!m_open.isEmpty() && m_open.back().keepsSpace);
    element.opening = u'<' + tag + attribute("style", style);
    if (role != Role::Inline) {
        const QString align = token.attribute(QLatin1String("align")).toString().toLower();
        static const QSet<QString> kAlignments{QStringLiteral("left"), QStringLiteral("right"),
                                               QStringLiteral("center"), QStringLiteral("justify")};
        if (kAlignments.contains(align) && role != Role::Table)
            element.opening += attribute("align", align);
        if (token.attribute(QLatin1String("dir"))
                .compare(QLatin1String("rtl"), Qt::CaseInsensitive) == 0)
            element.opening += QLatin1String(" dir=\"rtl\"");
    }
    if (token.name == QStringLiteral("a"))
        element.opening += attribute("title", safeAddress(token.attribute(QLatin1String("href"))));
    if (role == Role::Table && token.attribute(QLatin1String("border")).toInt() > 0)
        element.opening += QLatin1String(" border=\"1\"");
    if (role == Role::Cell && m_spanning < kMostSpanning)
        for (const char *span : {"colspan", "rowspan"})
            if (const int count = numberOf(token.attribute(QLatin1String(span)), kMostSpanned);
                count > 1) {
                element.opening += attribute(span, QString::number(count));
                ++m_spanning;
            }
    if (tag == QStringLiteral("ol")) {
        const QStringView type = token.attribute(QLatin1String("type"));
        if (type.size() == 1 && QStringLiteral("1aAiI").contains(type.front()))
            element.opening += attribute("type", type.toString());
    }
    element.opening += u'>';
    element.closing = QStringLiteral("</") + tag + u'>';
    return element;
}

void SafeHtml::open(const HtmlToken &token)
{
    if (passOver(token))
        return;
    const std::optional<Role> role = roleOf(token.name);
    if (!role)
        return;
    makeRoom(token.name, *role);
    if (*role == Role::Cell && lastOf(Role::Row, Role::Table) < 0 && !m_tables.isEmpty()) {
        HtmlToken row;
        row.kind = HtmlToken::Kind::Open;
        row.name = QStringLiteral("tr");
        open(row);
    }
    if (!fits(token, *role)) {
        // Its text stays apart from what is before it.
        m_result.html += u' ';
        return;
    }
    if (*role == Role::Item)
        countItem();
    const Element element = made(token, *role);
    if (!element.isHidden)
        m_result.html += element.opening;
    if (*role == Role::Single)
        return;
    if (*role == Role::Table)
        m_tables.append(Table());
    // Nothing of what is hidden is written, tags neither.
    m_open.append(element);
    if (element.isHidden) {
        m_open.back().opening.clear();
        m_open.back().closing.clear();
    }
}

void SafeHtml::close(const QString &name)
{
    const std::optional<Role> role = roleOf(name);
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
        m_result.html += m_open.back().closing;
        if (m_open.back().role == Role::Table)
            m_tables.removeLast();
        m_open.removeLast();
    }
}
