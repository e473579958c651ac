#include "platform/freedesktop/instance/ClipMessages.h"

#include <QDBusMetaType>

namespace {

using Fault = SharedClips::Fault;

const auto kId = QStringLiteral("id");
const auto kText = QStringLiteral("text");
const auto kFiles = QStringLiteral("files");
const auto kApplication = QStringLiteral("application");
const auto kCopied = QStringLiteral("copied");
const auto kPastes = QStringLiteral("pastes");

struct Error
{
    Fault fault;
    const char *name;
};

constexpr Error kErrors[] = {
    {Fault::NoSuchClip, "org.quillmarsh.Quillmarsh.Error.NoSuchClip"},
    {Fault::NotText, "org.quillmarsh.Quillmarsh.Error.NotText"},
    {Fault::TooLarge, "org.quillmarsh.Quillmarsh.Error.TooLarge"},
    {Fault::Unwritable, "org.quillmarsh.Quillmarsh.Error.Unwritable"},
    {Fault::Unable, "org.quillmarsh.Quillmarsh.Error.Unable"},
};

} // namespace

ClipMessages::Map ClipMessages::toMap(const SharedClip &clip)
{
    Map map{{kId, clip.id}};
    if (clip.text)
        map.insert(kText, clip.text->toUtf8());
    if (!clip.fileNames.isEmpty())
        map.insert(kFiles, clip.fileNames);
    if (clip.applicationName)
        map.insert(kApplication, *clip.applicationName);
    if (clip.createSeconds)
        map.insert(kCopied, *clip.createSeconds);
    if (clip.pasteCount)
        map.insert(kPastes, *clip.pasteCount);
    for (const CopyFormat &format : storedFormats()) {
        if (const std::optional<QString> &source = clip.*format.source)
            map.insert(QLatin1String(format.attribute), format.toBytes(*source));
    }
    return map;
}

SharedClip ClipMessages::fromMap(const Map &map)
{
    SharedClip clip;
    clip.id = map.value(kId).toLongLong();
    if (map.contains(kText))
        clip.text = QString::fromUtf8(map.value(kText).toByteArray());
    clip.fileNames = map.value(kFiles).toStringList();
    if (map.contains(kApplication))
        clip.applicationName = map.value(kApplication).toString();
    if (map.contains(kCopied))
        clip.createSeconds = map.value(kCopied).toDouble();
    if (map.contains(kPastes))
        clip.pasteCount = map.value(kPastes).toInt();
    for (const CopyFormat &format : storedFormats()) {
        const auto source = map.constFind(QLatin1String(format.attribute));
        if (source != map.constEnd())
            clip.*format.source = format.fromBytes(source->toByteArray());
    }
    return clip;
}

QString ClipMessages::errorName(Fault fault)
{
    for (const auto &[meaning, name] : kErrors) {
        if (meaning == fault)
            return QLatin1String(name);
    }
    return {};
}

Fault ClipMessages::faultOf(const QString &errorName)
{
    for (const auto &[fault, name] : kErrors) {
        if (errorName == QLatin1String(name))
            return fault;
    }
    return Fault::Nobody;
}

void ClipMessages::registerTypes()
{
    qDBusRegisterMetaType<SharedClips::Line>();
    qDBusRegisterMetaType<Lines>();
    qDBusRegisterMetaType<Maps>();
    qDBusRegisterMetaType<Ids>();
}

QDBusArgument &operator<<(QDBusArgument &argument, const SharedClips::Line &line)
{
    argument.beginStructure();
    argument << qlonglong(line.id) << line.text;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, SharedClips::Line &line)
{
    argument.beginStructure();
    argument >> line.id >> line.text;
    argument.endStructure();
    return argument;
}
