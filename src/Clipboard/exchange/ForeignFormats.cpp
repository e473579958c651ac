#include "Clipboard/exchange/ForeignFormats.h"

#include "Clipboard/exchange/BoltFile.h"
#include "Clipboard/exchange/BoundedReading.h"

#include <QDataStream>
#include <QIODevice>
#include <QJsonArray>
#include <QJsonDocument>
#include <QStringDecoder>
#include <QUrl>
#include <QXmlStreamReader>
#include <QtEndian>

#include <algorithm>

namespace {

using ForeignFormats::Clip;
using ForeignFormats::Contents;

/// Absent when the bytes are no text; a picture's never are.
std::optional<QString> textOf(const QByteArray &utf8)
{
    auto decoder = QStringDecoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = decoder(utf8);
    return decoder.hasError() || text.contains(QChar(u'\0')) ? std::nullopt : std::optional(text);
}

void take(Contents &contents, const ForeignFormats::Clip &clip)
{
    const qint64 size = clip.text.size();
    if (size == 0 || contents.clips.size() >= ForeignFormats::kMaxClips ||
        contents.characters + size > ForeignFormats::kMaxCharacters) {
        ++contents.passedOver;
        return;
    }
    contents.characters += size;
    contents.clips.append(clip);
}

void take(Contents &contents, const std::optional<QString> &text)
{
    take(contents, ForeignFormats::Clip{text.value_or(QString())});
}

QStringList localFiles(const QList<QByteArray> &urls)
{
    QStringList paths;
    for (const QByteArray &encoded : urls) {
        const QUrl url = QUrl::fromEncoded(encoded.trimmed());
        // Another machine's file would be a wrong one here, and so would one without a whole path.
        if (const QString path = url.toLocalFile();
            url.host().isEmpty() && path.startsWith(u'/') && !path.contains(QChar(0)))
            paths.append(path);
    }
    return paths;
}

void takeFiles(Contents &contents, const QStringList &paths)
{
    take(contents, {paths.join(u'\n'), paths});
}

/// The next bytes of a stream that tells their number first; absent when they end too early, empty
/// when there are more than a text has.
std::optional<QByteArray> readBytes(QDataStream &stream)
{
    quint32 size = 0;
    stream >> size;
    constexpr quint32 kNull = 0xFFFFFFFF;
    if (stream.status() != QDataStream::Ok)
        return std::nullopt;
    if (size == kNull)
        return QByteArray();
    if (size > ForeignFormats::kMaxText) {
        // The device tells whether there is so much.
        const bool isThere = stream.device()->bytesAvailable() >= size;
        if (!isThere || stream.skipRawData(static_cast<int>(size)) != static_cast<int>(size))
            return std::nullopt;
        return QByteArray();
    }
    QByteArray bytes = stream.device()->read(size);
    return static_cast<quint32>(bytes.size()) == size ? std::optional(bytes) : std::nullopt;
}

/// The same as UTF-16.
std::optional<QString> readText(QDataStream &stream)
{
    const std::optional<QByteArray> bytes = readBytes(stream);
    if (!bytes)
        return std::nullopt;
    QString text(bytes->size() / 2, Qt::Uninitialized);
    qFromBigEndian<char16_t>(bytes->constData(), text.size(), text.data());
    return text;
}

/// One entry of CopyQ, a format after the other; false when the file ends in it.
bool readCopyQItem(QDataStream &stream, Contents &contents)
{
    // The beginning of a format's name stands in one character.
    const auto kPlain = QStringLiteral("8plain");
    const auto kUrls = QStringLiteral("8uri-list");
    qint32 version = 0;
    qint32 formats = 0;
    stream >> version >> formats;
    constexpr qint32 kVersion = -2;
    if (stream.status() != QDataStream::Ok || version != kVersion || formats < 0)
        return false;
    std::optional<QString> text;
    QStringList files;
    for (qint32 i = 0; i < formats; ++i) {
        const std::optional<QString> name = readText(stream);
        quint8 isCompressed = 0;
        stream >> isCompressed;
        const std::optional<QByteArray> bytes = readBytes(stream);
        if (!name || !bytes)
            return false;
        if (isCompressed == 0 && *name == kPlain)
            text = textOf(*bytes);
        else if (isCompressed == 0 && *name == kUrls)
            files = localFiles(bytes->split('\n'));
    }
    if (!files.isEmpty())
        takeFiles(contents, files);
    else
        take(contents, text);
    return true;
}

/// An entry of Klipper's; false when it is of no kind that is known.
bool readKlipperItem(QDataStream &stream, Contents &contents)
{
    const std::optional<QString> kind = readText(stream);
    if (kind == u"string") {
        const std::optional<QString> text = readText(stream);
        if (text)
            take(contents, text);
        return text.has_value();
    }
    if (kind != u"url")
        return false;
    quint32 count = 0;
    stream >> count;
    QList<QByteArray> urls;
    for (quint32 i = 0; i < count; ++i) {
        const std::optional<QByteArray> url = readBytes(stream);
        if (!url)
            return false;
        urls.append(*url);
    }
    quint32 notes = 0;
    stream >> notes;
    for (quint32 i = 0; i < notes * 2; ++i) {
        if (!readText(stream))
            return false;
    }
    qint32 isCut = 0;
    stream >> isCut;
    takeFiles(contents, localFiles(urls));
    return stream.status() == QDataStream::Ok;
}

/// As GPaste writes it into what no XML reader unescapes.
QString unescaped(QString text)
{
    return text.replace(QStringLiteral("&gt;"), QStringLiteral(">"))
        .replace(QStringLiteral("&amp;"), QStringLiteral("&"));
}

/// The entries of a list in a key file, with their escapes undone.
QStringList keyFileList(const QByteArray &value)
{
    QStringList entries;
    QByteArray entry;
    for (qsizetype i = 0; i < value.size(); ++i) {
        const char character = value.at(i);
        if (character == ';') {
            entries.append(QString::fromUtf8(entry));
            entry.clear();
        } else if (character == '\\' && i + 1 < value.size()) {
            const char escaped = value.at(++i);
            entry += escaped == 'n'   ? '\n'
                     : escaped == 't' ? '\t'
                     : escaped == 'r' ? '\r'
                     : escaped == 's' ? ' '
                                      : escaped;
        } else {
            entry += character;
        }
    }
    if (!entry.isEmpty())
        entries.append(QString::fromUtf8(entry));
    return entries;
}

} // namespace

Contents ForeignFormats::readCopyQ(QIODevice &file)
{
    QDataStream stream(&file);
    Contents contents;
    qint32 count = 0;
    stream >> count;
    contents.isUnderstood = stream.status() == QDataStream::Ok && count >= 0;
    for (qint32 i = 0; contents.isUnderstood && i < count; ++i)
        contents.isUnderstood = readCopyQItem(stream, contents);
    return contents;
}

void ForeignFormats::takeText(Contents &contents, const QByteArray &utf8)
{
    take(contents, textOf(utf8));
}

void ForeignFormats::takeUrls(Contents &contents, const QList<QByteArray> &urls)
{
    takeFiles(contents, localFiles(urls));
}

Contents ForeignFormats::readKlipper(QIODevice &file)
{
    QDataStream stream(&file);
    Contents contents;
    quint32 checksum = 0;
    quint32 size = 0;
    stream >> checksum >> size;
    const std::optional<QByteArray> version = readBytes(stream);
    contents.isUnderstood = version.has_value() && size == file.size() - 8;
    while (contents.isUnderstood && !file.atEnd() && contents.clips.size() < kMaxClips)
        contents.isUnderstood = readKlipperItem(stream, contents);
    return contents;
}

Contents ForeignFormats::readGPaste(QIODevice &file)
{
    Contents contents;
    QXmlStreamReader xml(&file);
    bool isText = false;
    while (!xml.atEnd() && contents.clips.size() < kMaxClips) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == u"item") {
            // The others are pictures, colours, and passwords, which stay where they are.
            isText = xml.attributes().value(QStringLiteral("kind")) == u"Text";
            contents.passedOver += isText ? 0 : 1;
        } else if (xml.name() == u"value" && isText) {
            take(contents, unescaped(xml.readElementText(QXmlStreamReader::SkipChildElements)));
            isText = false;
        }
    }
    contents.isUnderstood = !xml.hasError();
    return contents;
}

Contents ForeignFormats::readClipman(QIODevice &file)
{
    Contents contents;
    const QJsonDocument document = QJsonDocument::fromJson(BoundedReading::all(file, kMaxFile));
    contents.isUnderstood = document.isArray();
    const QJsonArray texts = document.array();
    for (qsizetype i = texts.size(); i > 0; --i)
        take(contents, texts.at(i - 1).toString());
    return contents;
}

Contents ForeignFormats::readXfceClipman(QIODevice &file)
{
    Contents contents;
    constexpr QByteArrayView kKey = "texts=";
    for (const QByteArray &line : BoundedReading::all(file, kMaxFile).split('\n')) {
        if (!line.startsWith(kKey))
            continue;
        contents.isUnderstood = true;
        QStringList texts = keyFileList(line.mid(kKey.size()));
        std::reverse(texts.begin(), texts.end());
        for (const QString &text : std::as_const(texts))
            take(contents, text);
    }
    return contents;
}

Contents ForeignFormats::readCliphist(QIODevice &file)
{
    Contents contents;
    contents.isUnderstood =
        BoltFile(file).walk("b", kMaxText, [&contents](const std::optional<QByteArray> &value) {
            take(contents, value ? textOf(*value) : std::nullopt);
        });
    std::reverse(contents.clips.begin(), contents.clips.end());
    return contents;
}
