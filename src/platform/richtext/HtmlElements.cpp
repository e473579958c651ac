#include "platform/richtext/HtmlElements.h"

#include "platform/richtext/HtmlStyles.h"
#include "platform/richtext/HtmlTokens.h"

#include <QHash>
#include <QSet>

#include <algorithm>

namespace {

constexpr qsizetype kMaxAddressLength = 2048;

QString escaped(QStringView text)
{
    return text.toString()
        .replace(u'<', QLatin1String("&lt;"))
        .replace(u'>', QLatin1String("&gt;"));
}

/// What a reader may open, as an attribute's value; empty for any other address.
QString safeAddress(QStringView value)
{
    if (value.size() > kMaxAddressLength)
        return {};
    QString address = value.trimmed().toString();
    const auto startsWith = [&address](const char *scheme) {
        return address.startsWith(QLatin1String(scheme), Qt::CaseInsensitive);
    };
    if (!startsWith("http://") && !startsWith("https://") && !startsWith("mailto:"))
        return {};
    return escaped(address).replace(u'"', QLatin1String("%22"));
}

} // namespace

std::optional<HtmlElements::Role> HtmlElements::roleOf(const QString &name)
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

QString HtmlElements::tagOf(const QString &name, Role role)
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
    return kNames.value(name,
                        role == Role::Inline ? QStringLiteral("span") : QStringLiteral("div"));
}

QString HtmlElements::looksOf(const HtmlToken &token)
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

QString HtmlElements::attribute(const char *name, const QString &value)
{
    return value.isEmpty() ? QString()
                           : u' ' + QLatin1String(name) + QStringLiteral("=\"") + value + u'"';
}

QString HtmlElements::attributesOf(const HtmlToken &token, Role role, const QString &alignment)
{
    static const QSet<QString> kAlignments{QStringLiteral("left"), QStringLiteral("right"),
                                           QStringLiteral("center"), QStringLiteral("justify")};
    const auto value = [&token](const char *name) { return token.attribute(QLatin1String(name)); };
    if (token.name == QStringLiteral("a"))
        return attribute("title", safeAddress(value("href")));
    if (role == Role::Inline)
        return {};
    QString attributes;
    const QString align = alignment.isEmpty() ? value("align").toString().toLower() : alignment;
    if (role != Role::Table && kAlignments.contains(align))
        attributes += attribute("align", align);
    if (value("dir").compare(QLatin1String("rtl"), Qt::CaseInsensitive) == 0)
        attributes += QLatin1String(" dir=\"rtl\"");
    if (role == Role::Table && value("border").toInt() > 0)
        attributes += QLatin1String(" border=\"1\"");
    const QStringView type = value("type");
    if (role == Role::List && type.size() == 1 && QStringLiteral("1aAiI").contains(type.front()))
        attributes += attribute("type", type.toString());
    return attributes;
}

HtmlElements::Text HtmlElements::textOf(const QString &name)
{
    static const QSet<QString> kLeftOut{
        QStringLiteral("template"), QStringLiteral("object"), QStringLiteral("applet"),
        QStringLiteral("svg"),      QStringLiteral("canvas"), QStringLiteral("video"),
        QStringLiteral("audio"),    QStringLiteral("select"), QStringLiteral("xml"),
    };
    static const QSet<QString> kLeftOutToEnd{
        QStringLiteral("script"),   QStringLiteral("title"),   QStringLiteral("iframe"),
        QStringLiteral("noscript"), QStringLiteral("noembed"), QStringLiteral("noframes"),
        QStringLiteral("textarea"), QStringLiteral("style"),
    };
    if (kLeftOutToEnd.contains(name))
        return Text::LeftOutToEnd;
    return kLeftOut.contains(name) ? Text::LeftOut : Text::Kept;
}
