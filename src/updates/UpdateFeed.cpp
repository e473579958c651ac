#include "updates/UpdateFeed.h"

#include "updates/UpdateVersion.h"

#include <QXmlStreamReader>

namespace {

constexpr qint64 kMostFileBytes = 1024LL * 1024 * 1024;
constexpr qsizetype kMostItems = 1000;
constexpr qsizetype kMostNoteCharacters = 20000;
constexpr qsizetype kMostNameCharacters = 40;
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
            release.common.notes = xml.readElementText().trimmed().left(kMostNoteCharacters);
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

/// The reader's time grows with the square of a tag's length, and the main thread waits for it.
bool hasHugeTag(const QByteArray &xml)
{
    constexpr qsizetype kMostBytesOfTag = 8 * 1024;
    for (qsizetype begin = xml.indexOf('<'); begin >= 0;) {
        const qsizetype found = xml.indexOf('>', begin);
        const qsizetype end = found < 0 ? xml.size() : found;
        // Text that is quoted as a whole may be as long as the feed.
        const bool isQuoted = xml.mid(begin, 2) == "<!";
        if (!isQuoted && end - begin > kMostBytesOfTag)
            return true;
        begin = xml.indexOf('<', end);
    }
    return false;
}

QString refused(const QString &why)
{
    return UpdateFeed::tr("The list of updates cannot be used.") + u' ' + why;
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
            return refused(tr("Version %1 has no file.")
                               .arg(release.common.version.left(kMostNameCharacters)));
        for (const UpdateItem &file : release.files) {
            UpdateItem item = release.common;
            if (item.shortVersion.isEmpty())
                item.shortVersion = item.version;
            item.kind = file.kind;
            item.machine = file.machine;
            item.url = file.url;
            item.size = file.size;
            item.signature = file.signature;
            if (const auto fault = faultOf(item))
                return refused(*fault);
            items.append(item);
        }
        if (items.size() > kMostItems)
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
            .arg(item.version.left(kMostNameCharacters));
    }
    if (item.shortVersion.size() > kMostNameCharacters)
        return tr("Version %1 has an impossible name.").arg(item.version);
    if (item.channel != u"release" && item.channel != u"beta" && item.channel != u"test")
        return tr("Version %1 has no known channel.").arg(item.version);
    if (!item.minimumSystem.isEmpty() && !UpdateVersion::parse(item.minimumSystem))
        return tr("Version %1 asks for an unknown system.").arg(item.version);
    if (item.url.scheme() != u"https" || item.url.host().isEmpty())
        return tr("Version %1 is not at a secure address (https).").arg(item.version);
    if (item.size <= 0 || item.size > kMostFileBytes)
        return tr("Version %1 has no possible size.").arg(item.version);
    if (item.signature.size() != kSignatureBytes)
        return tr("Version %1 is not signed.").arg(item.version);
    return std::nullopt;
}

const UpdateItem *UpdateFeed::newest(const QList<UpdateItem> &items, const Wanted &wanted)
{
    const UpdateItem *found = nullptr;
    std::optional<UpdateVersion> best = UpdateVersion::parse(wanted.installedVersion);
    const auto system = UpdateVersion::parse(wanted.system);
    for (const UpdateItem &item : items) {
        const bool isWanted = item.kind == wanted.kind && item.machine == wanted.machine &&
                              (item.channel != u"beta" || wanted.withBeta) &&
                              (item.channel != u"test" || wanted.withTest);
        const auto least = UpdateVersion::parse(item.minimumSystem);
        if (!isWanted || (least && (!system || *system < *least)))
            continue;
        const auto version = UpdateVersion::parse(item.version);
        if (best && version && *version > *best) {
            best = version;
            found = &item;
        }
    }
    return found;
}
