#include "Clipboard/exchange/ClipFile.h"

#include "Clipboard/exchange/BoundedReading.h"

#include <QIODevice>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

const auto kClips = QStringLiteral("clips");
const auto kText = QStringLiteral("text");
const auto kFile = QStringLiteral("file");
const auto kApplication = QStringLiteral("application");
const auto kCopied = QStringLiteral("copied");
const auto kPastes = QStringLiteral("pasteCount");

constexpr QByteArrayView kHead = "{\"quillmarsh\":1,\"clips\":[";
constexpr QByteArrayView kEnd = "]}";
/// One that is not written line by line is read at once, up to this size.
constexpr qint64 kMaxWhole = 64 * 1024 * 1024;
constexpr qint64 kMaxLine = 256 * 1024 * 1024;

QJsonObject toJson(const SharedClip &clip)
{
    QJsonObject object;
    if (clip.text)
        object.insert(kText, *clip.text);
    if (!clip.fileNames.isEmpty())
        object.insert(kFile, clip.fileNames.first());
    if (clip.applicationName)
        object.insert(kApplication, *clip.applicationName);
    if (clip.createSeconds)
        object.insert(kCopied, *clip.createSeconds);
    if (clip.pasteCount)
        object.insert(kPastes, *clip.pasteCount);
    for (const CopyFormat &format : storedFormats()) {
        if (const std::optional<QString> &source = clip.*format.source)
            object.insert(QLatin1String(format.attribute), *source);
    }
    return object;
}

SharedClip fromJson(const QJsonObject &object)
{
    SharedClip clip;
    const auto textAt = [&object](const QString &key) {
        const QJsonValue value = object.value(key);
        return value.isString() ? std::optional(value.toString()) : std::nullopt;
    };
    clip.text = textAt(kText);
    if (const std::optional<QString> file = textAt(kFile))
        clip.fileNames = {*file};
    clip.applicationName = textAt(kApplication);
    if (object.value(kCopied).isDouble())
        clip.createSeconds = object.value(kCopied).toDouble();
    if (object.value(kPastes).isDouble())
        clip.pasteCount = object.value(kPastes).toInt();
    for (const CopyFormat &format : storedFormats())
        clip.*format.source = textAt(QLatin1String(format.attribute));
    return clip;
}

std::optional<QList<SharedClip>> readLines(QIODevice &file)
{
    QList<SharedClip> clips;
    for (;;) {
        QByteArray line = BoundedReading::line(file, kMaxLine).trimmed();
        if (line == kEnd)
            return clips;
        if (line.endsWith(','))
            line.chop(1);
        const QJsonDocument document = QJsonDocument::fromJson(line);
        if (!document.isObject())
            return std::nullopt;
        clips.append(fromJson(document.object()));
    }
}

} // namespace

void ClipFile::Writer::put(const QByteArray &bytes)
{
    m_isGood = m_isGood && m_file.write(bytes) == bytes.size();
}

void ClipFile::Writer::write(const SharedClip &clip)
{
    put(m_isFirst ? kHead.toByteArray() + '\n' : QByteArray(",\n"));
    m_isFirst = false;
    put(QJsonDocument(toJson(clip)).toJson(QJsonDocument::Compact));
}

bool ClipFile::Writer::finish()
{
    put((m_isFirst ? kHead.toByteArray() : QByteArray()) + '\n' + kEnd.toByteArray() + '\n');
    return m_isGood;
}

std::optional<QList<SharedClip>> ClipFile::read(QIODevice &file)
{
    if (file.peek(kHead.size() + 1) == kHead.toByteArray() + '\n') {
        file.readLine(kHead.size() + 2);
        return readLines(file);
    }
    const QByteArray bytes = BoundedReading::all(file, kMaxWhole);
    const QJsonDocument document =
        bytes.size() > kMaxWhole ? QJsonDocument() : QJsonDocument::fromJson(bytes);
    if (!document.object().value(kClips).isArray())
        return std::nullopt;
    QList<SharedClip> clips;
    const QJsonArray entries = document.object().value(kClips).toArray();
    for (const QJsonValue &entry : entries) {
        if (!entry.isObject())
            return std::nullopt;
        clips.append(fromJson(entry.toObject()));
    }
    return clips;
}
