#include "platform/freedesktop/shortcuts/XfceShortcuts.h"

#include "platform/freedesktop/shortcuts/ShortcutText.h"

#include <QMap>
#include <QXmlStreamReader>

#include <tuple>

namespace {

/// Values by provider ("commands"), set ("default") and name.
using Path = std::tuple<QString, QString, QString>;
using Properties = QMap<Path, QString>;

/// A property without a value of its own lets the one of a lesser file show.
void merge(const QByteArray &channel, Properties *properties)
{
    QXmlStreamReader xml(channel);
    QStringList path;
    while (!xml.atEnd()) {
        const auto token = xml.readNext();
        if (xml.name() != u"property")
            continue;
        if (token == QXmlStreamReader::EndElement && !path.isEmpty())
            path.removeLast();
        if (token != QXmlStreamReader::StartElement)
            continue;
        // The shortcut itself is the name of the property, and its value what it does.
        path.append(xml.attributes().value(QLatin1String("name")).toString());
        const QString value = xml.attributes().value(QLatin1String("value")).toString();
        if (path.size() != 3 || value.isEmpty())
            continue;
        const Path key(path[0], path[1], path[2]);
        if (!properties->contains(key))
            properties->insert(key, value);
    }
}

} // namespace

QList<SymbolicHotKey> XfceShortcuts::parse(const QList<QByteArray> &channels)
{
    Properties properties;
    for (const QByteArray &channel : channels)
        merge(channel, &properties);
    QList<SymbolicHotKey> hotKeys;
    for (auto property = properties.cbegin(); property != properties.cend(); ++property) {
        const auto &[provider, set, name] = property.key();
        const QString isOverridden =
            properties.value(Path(provider, QStringLiteral("custom"), QStringLiteral("override")));
        // The user's set replaces the default one as a whole, but only once it says so.
        if (set != (isOverridden == u"true" ? u"custom" : u"default"))
            continue;
        if (const auto hotKey = ShortcutText::fromGtk(name))
            hotKeys.append(*hotKey);
    }
    return hotKeys;
}
