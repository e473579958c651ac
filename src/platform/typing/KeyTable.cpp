#include "platform/typing/KeyTable.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace {

using Remote = ApplicationKeys::Remote;

constexpr QLatin1String kApplications("applications");
constexpr QLatin1String kPaste("paste");
constexpr QLatin1String kCopy("copy");
constexpr QLatin1String kReplace("replace");
constexpr QLatin1String kPrimary("primary");
constexpr QLatin1String kRemote("remote");
constexpr QLatin1String kMembers[] = {kApplications, kPaste, kCopy, kReplace, kPrimary, kRemote};
constexpr QLatin1String kNone("none");
constexpr QLatin1String kAsks("asks");
constexpr QLatin1String kTells("tells");
constexpr QLatin1String kMarked("marked");

/// The keys that `entry` has under `name`; empty for "none". Says what is wrong with them.
std::optional<QString> readKeys(const QJsonObject &entry, QLatin1String name,
                                QLatin1String otherwise, KeySequence &keys)
{
    const QJsonValue value = entry.value(name);
    const QString text = value.isUndefined() ? QString(otherwise) : value.toString();
    if (text == kNone)
        return std::nullopt;
    const std::optional<KeySequence> sequence = KeySequences::fromText(text);
    if (!sequence)
        return QStringLiteral("\"%1\" tells no keys").arg(name);
    keys = *sequence;
    return std::nullopt;
}

std::optional<QString> readEntry(const QJsonObject &entry, ApplicationKeys &keys)
{
    const QStringList members = entry.keys();
    for (const QString &member : members) {
        const auto isMember = [&member](QLatin1String known) { return member == known; };
        if (std::none_of(std::begin(kMembers), std::end(kMembers), isMember))
            return QStringLiteral("\"%1\" is not known").arg(member);
    }
    const QJsonValue primary = entry.value(kPrimary);
    if (!primary.isUndefined() && !primary.isBool())
        return QStringLiteral("\"primary\" is neither true nor false");
    keys.pastesPrimary = primary.toBool();
    if (entry.contains(kRemote)) {
        const QString remote = entry.value(kRemote).toString();
        if (remote != kAsks && remote != kTells)
            return QStringLiteral("\"remote\" is neither \"asks\" nor \"tells\"");
        keys.remote = remote == kAsks ? Remote::Asks : Remote::Tells;
    }
    keys.copiesMarked = entry.value(kCopy).toString() == kMarked;
    if (const auto problem = readKeys(entry, kPaste, QLatin1String("Ctrl+v"), keys.paste))
        return problem;
    if (!keys.copiesMarked) {
        if (const auto problem = readKeys(entry, kCopy, QLatin1String("Ctrl+c"), keys.copy))
            return problem;
    }
    keys.replace = keys.paste;
    return entry.contains(kReplace) ? readKeys(entry, kReplace, kNone, keys.replace) : std::nullopt;
}

QString lineOf(const QByteArray &json, qsizetype offset)
{
    return QString::number(json.first(std::min(offset, json.size())).count('\n') + 1);
}

} // namespace

KeyTable::Reading KeyTable::read(const QByteArray &json)
{
    Reading reading;
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (!document.isArray()) {
        reading.problems.append(
            document.isNull()
                ? QStringLiteral("line %1: %2").arg(lineOf(json, error.offset), error.errorString())
                : QStringLiteral("it is no list of entries"));
        return reading;
    }
    const QJsonArray entries = document.array();
    for (qsizetype i = 0; i < entries.size(); ++i) {
        const QJsonObject entry = entries.at(i).toObject();
        if (const auto problem = add(reading.table, entry))
            reading.problems.append(QStringLiteral("entry %1 (%2): %3")
                                        .arg(QString::number(i + 1),
                                             entry.value(kApplications).toArray().at(0).toString(),
                                             *problem));
    }
    return reading;
}

std::optional<QString> KeyTable::add(KeyTable &table, const QJsonObject &entry)
{
    ApplicationKeys keys;
    const QJsonArray names = entry.value(kApplications).toArray();
    const bool areNames = std::all_of(names.begin(), names.end(), [](const QJsonValue &name) {
        return !name.toString().isEmpty();
    });
    if (names.isEmpty() || !areNames)
        return QStringLiteral("\"applications\" is no list of names");
    if (const auto problem = readEntry(entry, keys))
        return problem;
    for (const QJsonValue &value : names) {
        const QString name = value.toString().toLower();
        if (name.endsWith(u'*'))
            table.m_families.emplace_back(name.chopped(1), keys);
        else
            table.m_entries.insert(name, keys);
    }
    return std::nullopt;
}

const ApplicationKeys *KeyTable::find(const QString &name) const
{
    const QString key = name.toLower();
    if (const auto found = m_entries.constFind(key); found != m_entries.constEnd())
        return &*found;
    const auto family = std::find_if(m_families.begin(), m_families.end(), [&](const auto &entry) {
        return key.startsWith(entry.first);
    });
    return family == m_families.end() ? nullptr : &family->second;
}
