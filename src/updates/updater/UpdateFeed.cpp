#include "updates/updater/UpdateFeed.h"

#include "updates/UpdatesLog.h"
#include "updates/updater/UpdateVersion.h"

#include <QXmlStreamReader>

#include <cstring>
#include <utility>

namespace {

constexpr qint64 kMaxFileBytes = 1024LL * 1024 * 1024;
constexpr qsizetype kMaxItems = 1000;
constexpr qsizetype kMaxNoteCharacters = 20000;
constexpr qsizetype kMaxNameCharacters = 40;
constexpr qsizetype kSignatureBytes = 64;

/// One <item>, with a file for each kind of installation.
struct Release
{
    UpdateItem common;
    QList<UpdateItem> files;
};

void readFile(QXmlStreamReader &xml, Release &release)
{
    const QXmlStreamAttributes told = xml.attributes();
    UpdateItem file;
    file.kind = told.value(QLatin1String("kind")).toString();
    file.machine = told.value(QLatin1String("machine")).toString();
    file.url = QUrl(told.value(QLatin1String("url")).toString(), QUrl::StrictMode);
    file.size = told.value(QLatin1String("size")).toLongLong();
    const auto signature = QByteArray::fromBase64Encoding(
        told.value(QLatin1String("signature")).toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
    if (signature)
        file.signature = *signature;
    release.files.append(file);
    xml.skipCurrentElement();
}

Release readRelease(QXmlStreamReader &xml)
{
    Release release;
    while (xml.readNextStartElement()) {
        const QStringView name = xml.name();
        if (name == u"version")
            release.common.version = xml.readElementText().trimmed();
        else if (name == u"shortVersion")
            release.common.shortVersion = xml.readElementText().simplified();
        else if (name == u"channel")
            release.common.channel = xml.readElementText().trimmed();
        else if (name == u"minimumSystem")
            release.common.minimumSystem = xml.readElementText().trimmed();
        else if (name == u"notes")
            release.common.notes = xml.readElementText().trimmed().left(kMaxNoteCharacters);
        else if (name == u"file")
            readFile(xml, release);
        else
            xml.skipCurrentElement(); // said by a later Quillmarsh
    }
    return release;
}

/// Reads up to the first element, by which a document type would have come. It is refused because
/// it brings entities: the reader bounds the length of each, but not how often they are used.
bool beginsWithUpdates(QXmlStreamReader &xml)
{
    while (!xml.atEnd() && !xml.isStartElement()) {
        xml.readNext();
        if (xml.isDTD())
            return false;
    }
    return xml.name() == u"updates";
}

/// Where the tag at `begin` ends, past its bracket or at the end of the feed; -1 when it is longer
/// or has more attributes than any that we know.
qsizetype endOfTag(const QByteArray &xml, qsizetype begin)
{
    constexpr qsizetype kMaxBytes = 8 * 1024;
    constexpr int kMaxAttributes = 64;
    char quote = '\0';
    int attributes = 0;
    for (qsizetype at = begin; at < xml.size(); ++at) {
        const char byte = xml.at(at);
        if (at - begin > kMaxBytes || attributes > kMaxAttributes)
            return -1;
        if (quote != '\0')
            quote = byte == quote ? '\0' : quote;
        else if (byte == '>')
            return at + 1;
        else if (byte == '"' || byte == '\'')
            quote = byte;
        else if (byte == '=')
            ++attributes;
    }
    return xml.size();
}

/// Past what begins at `begin` and is not read as tags; nothing when it is a tag.
std::optional<qsizetype> endOfQuoted(const QByteArray &xml, qsizetype begin)
{
    for (const auto &[opening, closing] :
         {std::pair("<!--", "-->"), {"<![CDATA[", "]]>"}, {"<?", "?>"}}) {
        if (xml.mid(begin, static_cast<qsizetype>(std::strlen(opening))) != opening)
            continue;
        const qsizetype end = xml.indexOf(closing, begin);
        return end < 0 ? xml.size() : end;
    }
    return std::nullopt;
}

/// The reader's time grows with the square of a tag's length and of its attributes.
bool hasHugeTag(const QByteArray &xml)
{
    for (qsizetype begin = xml.indexOf('<'); begin >= 0;) {
        const qsizetype end = endOfQuoted(xml, begin).value_or(endOfTag(xml, begin));
        if (end < 0)
            return true;
        begin = xml.indexOf('<', end);
    }
    return false;
}

QString refused(const QString &why)
{
    return UpdateFeed::tr("The list of updates cannot be used.") + u' ' + why;
}

/// Why an item is none for this Quillmarsh, though it may be one for a later one.
std::optional<QString> strangenessOf(const UpdateItem &item)
{
    if (item.channel != u"release" && item.channel != u"beta" && item.channel != u"test")
        return UpdateFeed::tr("Version %1 has no known channel.").arg(item.version);
    if (item.url.scheme() != u"https" || item.url.host().isEmpty())
        return UpdateFeed::tr("Version %1 is not at a secure address (https).").arg(item.version);
    return std::nullopt;
}

/// A release's item for one of its files.
UpdateItem itemFor(const Release &release, const UpdateItem &file)
{
    UpdateItem item = release.common;
    if (item.shortVersion.isEmpty())
        item.shortVersion = item.version;
    item.kind = file.kind;
    item.machine = file.machine;
    item.url = file.url;
    item.size = file.size;
    item.signature = file.signature;
    return item;
}

} // namespace

std::variant<QList<UpdateItem>, QString> UpdateFeed::parse(const QByteArray &xml)
{
    QXmlStreamReader reader(xml);
    if (hasHugeTag(xml) || !beginsWithUpdates(reader))
        return refused(tr("It is not a list of updates."));
    QList<UpdateItem> items;
    while (reader.readNextStartElement()) {
        if (reader.name() != u"item") {
            reader.skipCurrentElement();
            continue;
        }
        const Release release = readRelease(reader);
        if (reader.hasError())
            break;
        if (release.files.isEmpty())
            return refused(
                tr("Version %1 has no file.").arg(release.common.version.left(kMaxNameCharacters)));
        for (const UpdateItem &file : release.files) {
            const UpdateItem item = itemFor(release, file);
            if (strangenessOf(item)) {
                qCInfo(lcUpdates) << "passed over in the list of updates:"
                                  << item.version.left(kMaxNameCharacters)
                                  << item.channel.left(kMaxNameCharacters);
                continue;
            }
            if (const auto fault = faultOf(item))
                return refused(*fault);
            items.append(item);
        }
        if (items.size() > kMaxItems)
            return refused(tr("It is too long."));
    }
    if (reader.hasError())
        return refused(tr("It is damaged in line %1.").arg(reader.lineNumber()));
    return items;
}

std::optional<QString> UpdateFeed::faultOf(const UpdateItem &item)
{
    if (!UpdateVersion::parse(item.version)) {
        return tr("It offers a version that is not a number: “%1”.")
            .arg(item.version.left(kMaxNameCharacters));
    }
    if (item.shortVersion.size() > kMaxNameCharacters)
        return tr("Version %1 has an impossible name.").arg(item.version);
    if (!item.minimumSystem.isEmpty() && !UpdateVersion::parse(item.minimumSystem))
        return tr("Version %1 asks for an unknown system.").arg(item.version);
    if (auto strangeness = strangenessOf(item))
        return strangeness;
    if (item.size <= 0 || item.size > kMaxFileBytes)
        return tr("Version %1 has no possible size.").arg(item.version);
    if (item.signature.size() != kSignatureBytes)
        return tr("Version %1 is not signed.").arg(item.version);
    return std::nullopt;
}

const UpdateItem *UpdateFeed::newest(const QList<UpdateItem> &items, const Wanted &wanted)
{
    const UpdateItem *found = nullptr;
    std::optional<UpdateVersion> best = UpdateVersion::parse(wanted.installedVersion);
    const auto system = UpdateVersion::parse(wanted.system.value_or(QString()));
    for (const UpdateItem &item : items) {
        const bool isWanted = item.kind == wanted.kind && item.machine == wanted.machine &&
                              (item.channel != u"beta" || wanted.withBeta) &&
                              (item.channel != u"test" || wanted.withTest);
        const auto least = UpdateVersion::parse(item.minimumSystem);
        const bool suits = !wanted.system || !least || (system && *system >= *least);
        if (!isWanted || !suits)
            continue;
        const auto version = UpdateVersion::parse(item.version);
        if (best && version && *version > *best) {
            best = version;
            found = &item;
        }
    }
    return found;
}
