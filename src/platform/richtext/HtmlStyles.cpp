#include "platform/richtext/HtmlStyles.h"

#include <QColor>
#include <QStringList>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

/// Office suites write some 30 KiB.
constexpr qsizetype kMaxOfSheets = qsizetype(256) << 10;
constexpr qsizetype kMaxRules = 2000;
constexpr qsizetype kMaxOfRule = 400;
constexpr qsizetype kMaxDeclarations = 200;
constexpr qsizetype kMaxClasses = 8;
constexpr qsizetype kMaxValueLength = 200;

constexpr double kPointsAPixel = 0.75;
constexpr double kUsualPoints = 12;
constexpr double kMinPoints = 1;
constexpr double kMaxPoints = 200;

using Words = std::initializer_list<const char *>;

/// Those of the words that a value has, in its order.
QString among(const QStringList &values, const Words &words)
{
    QStringList known;
    for (const QString &value : values)
        for (const char *word : words)
            if (value == QLatin1String(word))
                known += value;
    return known.join(u' ');
}

QString weight(const QString &value)
{
    if (value == QStringLiteral("bolder"))
        return QStringLiteral("bold");
    bool isNumber = false;
    const int number = value.toInt(&isNumber);
    if (isNumber)
        return number >= 600 ? QStringLiteral("bold") : QStringLiteral("normal");
    return among({value}, {"bold", "normal"});
}

/// In points, but for the words.
QString fontSize(const QString &value)
{
    struct Unit
    {
        const char *name;
        double points;
    };
    static constexpr std::array kUnits{
        Unit{"px", kPointsAPixel},     Unit{"pt", 1},
        Unit{"rem", kUsualPoints},     Unit{"em", kUsualPoints},
        Unit{"%", kUsualPoints / 100},
    };
    for (const Unit unit : kUnits) {
        const QLatin1String name(unit.name);
        if (!value.endsWith(name))
            continue;
        bool isNumber = false;
        const double number = value.chopped(name.size()).toDouble(&isNumber);
        if (!isNumber || !std::isfinite(number))
            return {};
        const double points = std::clamp(number * unit.points, kMinPoints, kMaxPoints);
        return QString::number(std::round(points * 2) / 2) + QStringLiteral("pt");
    }
    if (value == QStringLiteral("larger"))
        return QStringLiteral("large");
    if (value == QStringLiteral("smaller"))
        return QStringLiteral("small");
    return among({value},
                 {"xx-small", "x-small", "small", "medium", "large", "x-large", "xx-large"});
}

/// 0 to 255; a share of `whole` where it is one of a hundred.
std::optional<int> channel(QString value)
{
    const bool isShare = value.endsWith(u'%');
    if (isShare)
        value.chop(1);
    bool isNumber = false;
    const double number = value.toDouble(&isNumber) * (isShare ? 2.55 : 1);
    if (!isNumber || !std::isfinite(number))
        return std::nullopt;
    return static_cast<int>(std::clamp(std::round(number), 0.0, 255.0));
}

QColor fromFunction(QString value)
{
    const qsizetype start = value.indexOf(u'(') + 1;
    value = value.mid(start).remove(u')').replace(u',', u' ').replace(u'/', u' ');
    const QStringList parts = value.split(u' ', Qt::SkipEmptyParts);
    if (parts.size() < 3)
        return {};
    const auto red = channel(parts.at(0));
    const auto green = channel(parts.at(1));
    const auto blue = channel(parts.at(2));
    const bool isSeen =
        parts.size() < 4 || !(channel(parts.at(3)) == 0 && parts.at(3).toDouble() <= 0);
    return red && green && blue && isSeen ? QColor(*red, *green, *blue) : QColor();
}

/// A property's value as it is kept; empty when it is not.
QString kept(const QString &property, const QString &value)
{
    const QStringList values = value.split(u' ', Qt::SkipEmptyParts);
    if (property == QStringLiteral("color") || property == QStringLiteral("background-color"))
        return HtmlStyles::colour(value);
    if (property == QStringLiteral("background"))
        return HtmlStyles::colour(values.value(0));
    if (property == QStringLiteral("font-weight"))
        return weight(value);
    if (property == QStringLiteral("font-style"))
        return among({value}, {"italic", "oblique", "normal"});
    if (property == QStringLiteral("font-size"))
        return fontSize(value);
    // Editors name the fonts of code by this one at last; other families are the page's.
    if (property == QStringLiteral("font-family"))
        return value.contains(QLatin1String("monospace")) ? QStringLiteral("monospace") : QString();
    if (property.startsWith(QStringLiteral("text-decoration")))
        return among(values, {"underline", "line-through", "none"});
    if (property == QStringLiteral("vertical-align"))
        return among({value}, {"super", "sub", "baseline"});
    if (property == QStringLiteral("text-align"))
        return among({value}, {"left", "right", "center", "justify"});
    if (property == QStringLiteral("white-space"))
        return among({value}, {"pre", "pre-wrap", "normal"});
    if (property == QStringLiteral("list-style-type"))
        return among({value}, {"disc", "circle", "square", "decimal", "lower-alpha", "upper-alpha",
                               "lower-roman", "upper-roman", "none"});
    if (property == QStringLiteral("display"))
        return among({value}, {"none"});
    return {};
}

/// What a property is written as; empty for one that is written as itself.
QString writtenAs(const QString &property)
{
    if (property == QStringLiteral("background"))
        return QStringLiteral("background-color");
    if (property == QStringLiteral("text-decoration-line"))
        return QStringLiteral("text-decoration");
    return property;
}

bool isName(QStringView text)
{
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), [](QChar character) {
        return character.isLetterOrNumber() || character == u'-' || character == u'_';
    });
}

/// "name", ".class" or "name.class".
bool isSimple(QStringView selector)
{
    const qsizetype dot = selector.indexOf(u'.');
    if (dot < 0)
        return isName(selector);
    return (dot == 0 || isName(selector.first(dot))) && isName(selector.sliced(dot + 1));
}

} // namespace

QString HtmlStyles::colour(QStringView value)
{
    const QString name = value.trimmed().toString().toLower();
    if (name.isEmpty() || name.size() > 64)
        return {};
    if (name.startsWith(QStringLiteral("rgb"))) {
        const QColor made = fromFunction(name);
        return made.isValid() ? made.name() : QString();
    }
    if (name == QStringLiteral("transparent") || !QColor::isValidColorName(name))
        return {};
    // A name of the desktop's that is longer than #rrggbb has other places for the same channels.
    if (name.startsWith(u'#') && name.size() != 4 && name.size() != 7)
        return name.size() == 9 ? name.first(7) : QString();
    return QColor(name).name();
}

QString HtmlStyles::safe(QStringView declarations)
{
    QString text = declarations.toString();
    if (text.contains(u'&'))
        text.replace(QLatin1String("&quot;"), QLatin1String("'"))
            .replace(QLatin1String("&amp;"), QLatin1String("&"));
    QString written;
    qsizetype left = kMaxDeclarations;
    for (const QStringView declaration : QStringView(text).split(u';')) {
        if (--left < 0)
            break;
        const qsizetype colon = declaration.indexOf(u':');
        if (colon < 0 || declaration.size() - colon > kMaxValueLength)
            continue;
        const QString property = declaration.first(colon).trimmed().toString().toLower();
        QString value = declaration.sliced(colon + 1).trimmed().toString().toLower();
        if (value.contains(u'!'))
            value = value.section(u'!', 0, 0).trimmed();
        value = kept(property, value);
        if (value.isEmpty())
            continue;
        const QString one = writtenAs(property) + u':' + value + u';';
        if (property == QStringLiteral("display"))
            written.prepend(one);
        else
            written += one;
    }
    return written;
}

void HtmlStyles::read(QStringView sheet)
{
    m_read += sheet.size();
    if (m_read > kMaxOfSheets)
        return;
    QString rules = sheet.toString();
    rules.remove(QLatin1String("<!--")).remove(QLatin1String("-->"));
    qsizetype place = 0;
    while (place < rules.size()) {
        const qsizetype open = rules.indexOf(u'{', place);
        const qsizetype close = open < 0 ? -1 : rules.indexOf(u'}', open);
        if (close < 0)
            return;
        // Behind a comment or a statement without a block there is still a selector.
        QStringView selectors = QStringView(rules).sliced(place, open - place);
        for (const QLatin1String end : {QLatin1String("*/"), QLatin1String(";")})
            if (const qsizetype found = selectors.lastIndexOf(end); found >= 0)
                selectors = selectors.sliced(found + end.size());
        place = close + 1;
        const QString declarations = safe(QStringView(rules).sliced(open + 1, close - open - 1));
        if (declarations.isEmpty())
            continue;
        for (const QStringView selector : selectors.split(u',')) {
            const QString key = selector.trimmed().toString();
            if (!isSimple(key) || (m_rules.size() >= kMaxRules && !m_rules.contains(key)))
                continue;
            QString &known = m_rules[key];
            if (known.size() + declarations.size() <= kMaxOfRule)
                known += declarations;
        }
    }
}

QString HtmlStyles::of(const QString &name, QStringView classes) const
{
    if (m_rules.isEmpty())
        return {};
    QString all = m_rules.value(name);
    qsizetype left = kMaxClasses;
    for (const QStringView one : classes.split(u' ', Qt::SkipEmptyParts)) {
        if (--left < 0)
            break;
        const QString key = u'.' + one.toString();
        all += m_rules.value(key) + m_rules.value(name + key);
    }
    return all;
}
