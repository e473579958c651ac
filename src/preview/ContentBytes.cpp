#include "preview/ContentBytes.h"

#include "preview/FontContent.h"
#include "preview/ImageContent.h"
#include "preview/ListContent.h"
#include "preview/PdfContent.h"
#include "preview/TextContent.h"

#include <QDataStream>
#include <QIODevice>

#include <algorithm>
#include <cmath>

namespace {

enum class Kind : quint8 { None, Image, List, Pdf, Font, Text };

constexpr qreal kMaxMeasure = 1e9;
constexpr int kMaxExtent = 1 << 17; ///< Of a picture; its pixels must be there as well.
constexpr int kMaxDelay = 1 << 24;  ///< More than the longest that a picture stands.

bool isMeasure(qreal value)
{
    return std::isfinite(value) && std::abs(value) <= kMaxMeasure;
}

/// Whether the stream still holds as many bytes.
bool holds(const QDataStream &in, qint64 bytes)
{
    return in.status() == QDataStream::Ok && bytes <= in.device()->bytesAvailable();
}

/// Of 32 bits a pixel, in either of two forms, and no decoder is needed to read it.
void write(QDataStream &out, const QImage &any)
{
    const bool hasAlpha = any.hasAlphaChannel();
    const QImage image =
        any.convertToFormat(hasAlpha ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    out << hasAlpha << qint32(image.width()) << qint32(image.height());
    for (int y = 0; y < image.height(); ++y)
        out.writeRawData(reinterpret_cast<const char *>(image.constScanLine(y)), image.width() * 4);
}

bool read(QDataStream &in, QImage *image)
{
    bool hasAlpha = false;
    qint32 width = 0;
    qint32 height = 0;
    in >> hasAlpha >> width >> height;
    if (width < 1 || height < 1 || width > kMaxExtent || height > kMaxExtent ||
        !holds(in, qint64(width) * height * 4))
        return false;
    *image = QImage(width, height,
                    hasAlpha ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    if (image->isNull())
        return false;
    for (int y = 0; y < height; ++y)
        if (in.readRawData(reinterpret_cast<char *>(image->scanLine(y)), width * 4) != width * 4)
            return false;
    return true;
}

void write(QDataStream &out, const ImageContent &content)
{
    out << content.dependsOnSize() << quint32(content.frames().size());
    for (const ImageContent::Frame &frame : content.frames()) {
        out << qint32(frame.milliseconds);
        write(out, frame.image);
    }
}

std::shared_ptr<const PreviewContent> readImage(QDataStream &in)
{
    bool isReduced = false;
    quint32 count = 0;
    in >> isReduced >> count;
    if (count < 1 || count > ImageContent::kMaxFrames)
        return nullptr;
    std::vector<ImageContent::Frame> frames(count);
    for (ImageContent::Frame &frame : frames) {
        qint32 milliseconds = 0;
        in >> milliseconds;
        if (!read(in, &frame.image))
            return nullptr;
        // One that stands no time at all would be painted without end.
        frame.milliseconds = std::clamp(milliseconds, count > 1 ? 20 : 0, kMaxDelay);
    }
    return std::make_shared<ImageContent>(std::move(frames), isReduced);
}

void write(QDataStream &out, const ListContent &content)
{
    const ListCount &count = content.count();
    out << count.entries << count.bytes << count.isWhole << quint32(content.entries().size());
    for (const QString &entry : content.entries())
        out << entry.left(ListContent::kMaxOfName);
}

std::shared_ptr<const PreviewContent> readList(QDataStream &in)
{
    ListCount count;
    quint32 size = 0;
    in >> count.entries >> count.bytes >> count.isWhole >> size;
    if (size > ListContent::kMaxEntries || count.entries < size || count.bytes < 0)
        return nullptr;
    QStringList entries;
    for (quint32 i = 0; i < size; ++i) {
        QString entry;
        in >> entry;
        if (entry.size() > ListContent::kMaxOfName)
            return nullptr;
        entries.append(entry);
    }
    return std::make_shared<ListContent>(count, std::move(entries));
}

void write(QDataStream &out, const PdfContent &content)
{
    out << qint32(content.pageCount()) << quint32(content.pageSizes().size());
    for (const QSizeF &size : content.pageSizes())
        out << double(size.width()) << double(size.height());
    write(out, content.first());
}

std::shared_ptr<const PreviewContent> readPdf(QDataStream &in)
{
    qint32 pages = 0;
    quint32 shown = 0;
    in >> pages >> shown;
    if (shown < 1 || shown > PdfContent::kMaxPages || pages < qint32(shown))
        return nullptr;
    std::vector<QSizeF> sizes;
    for (quint32 i = 0; i < shown; ++i) {
        double width = 0;
        double height = 0;
        in >> width >> height;
        if (!isMeasure(width) || !isMeasure(height) || width <= 0 || height <= 0)
            return nullptr;
        sizes.emplace_back(width, height);
    }
    QImage first;
    if (!read(in, &first))
        return nullptr;
    return std::make_shared<PdfContent>(std::move(sizes), pages, first);
}

void write(QDataStream &out, const FontContent &content)
{
    out << content.family().left(ListContent::kMaxOfName) << quint32(content.lines().size());
    for (const FontContent::Line &line : content.lines()) {
        out << double(line.width) << double(line.height) << double(line.ascent)
            << quint32(line.outline.elementCount());
        for (int i = 0; i < line.outline.elementCount(); ++i) {
            const QPainterPath::Element element = line.outline.elementAt(i);
            out << quint8(element.type) << double(element.x) << double(element.y);
        }
    }
}

/// Takes its elements from `left`.
bool readOutline(QDataStream &in, QPainterPath *outline, qsizetype *left)
{
    quint32 count = 0;
    in >> count;
    if (count > *left)
        return false;
    *left -= count;
    std::vector<QPointF> curve;
    for (quint32 i = 0; i < count; ++i) {
        quint8 type = 0;
        double x = 0;
        double y = 0;
        in >> type >> x >> y;
        if (in.status() != QDataStream::Ok || !isMeasure(x) || !isMeasure(y))
            return false;
        // A curve is two elements of control and its end.
        if (type == QPainterPath::CurveToElement || !curve.empty()) {
            if (curve.empty() == (type == QPainterPath::CurveToDataElement))
                return false;
            curve.emplace_back(x, y);
            if (curve.size() == 3) {
                outline->cubicTo(curve[0], curve[1], curve[2]);
                curve.clear();
            }
        } else if (type == QPainterPath::MoveToElement) {
            outline->moveTo(x, y);
        } else if (type == QPainterPath::LineToElement) {
            outline->lineTo(x, y);
        } else {
            return false;
        }
    }
    return curve.empty();
}

std::shared_ptr<const PreviewContent> readFont(QDataStream &in)
{
    QString family;
    quint32 count = 0;
    in >> family >> count;
    if (family.size() > ListContent::kMaxOfName || count < 1 || count > FontContent::kMaxLines)
        return nullptr;
    std::vector<FontContent::Line> lines(count);
    qsizetype left = FontContent::kMaxElements;
    for (FontContent::Line &line : lines) {
        double width = 0;
        double height = 0;
        double ascent = 0;
        in >> width >> height >> ascent;
        if (!isMeasure(width) || !isMeasure(height) || !isMeasure(ascent) ||
            !readOutline(in, &line.outline, &left))
            return nullptr;
        line.width = width;
        line.height = height;
        line.ascent = ascent;
    }
    return std::make_shared<FontContent>(std::move(family), std::move(lines));
}

void write(QDataStream &out, const TextContent &content)
{
    out << quint8(content.form()) << content.isCut() << content.text();
}

/// Whether it is laid out in a moment.
bool isShort(const QString &text, TextContent::Form form)
{
    constexpr qsizetype kMarks = 2; ///< Of what was left out, and the last line's end.
    const qsizetype most = form == TextContent::Form::Markdown ? TextContent::kMaxOfMarkdown
                                                               : TextContent::kMaxCharacters;
    if (text.size() > most + kMarks || text.count(u'\n') > TextContent::kMaxLines)
        return false;
    qsizetype start = 0;
    for (qsizetype end = 0; end >= 0; start = end + 1) {
        end = text.indexOf(u'\n', start);
        if ((end < 0 ? text.size() : end) - start > TextContent::kMaxOfLine + kMarks)
            return false;
    }
    return true;
}

std::shared_ptr<const PreviewContent> readText(QDataStream &in)
{
    quint8 number = 0;
    bool isCut = false;
    QString text;
    in >> number >> isCut >> text;
    const auto form = TextContent::Form(number);
    if (form > TextContent::Form::Markdown || !isShort(text, form))
        return nullptr;
    return std::make_shared<TextContent>(std::move(text), form, isCut);
}

template <typename Content>
bool writeAs(QDataStream &out, Kind kind, const PreviewContent *content)
{
    const auto *own = dynamic_cast<const Content *>(content);
    if (!own)
        return false;
    out << quint8(kind);
    write(out, *own);
    return true;
}

} // namespace

void ContentBytes::write(QDataStream &out, const PreviewContent *content)
{
    const bool isWritten = writeAs<ImageContent>(out, Kind::Image, content) ||
                           writeAs<ListContent>(out, Kind::List, content) ||
                           writeAs<PdfContent>(out, Kind::Pdf, content) ||
                           writeAs<FontContent>(out, Kind::Font, content) ||
                           writeAs<TextContent>(out, Kind::Text, content);
    if (!isWritten)
        out << quint8(Kind::None);
}

bool ContentBytes::read(QDataStream &in, std::shared_ptr<const PreviewContent> *content)
{
    quint8 kind = 0;
    in >> kind;
    switch (Kind(kind)) {
    case Kind::None:
        return in.status() == QDataStream::Ok;
    case Kind::Image:
        *content = readImage(in);
        break;
    case Kind::List:
        *content = readList(in);
        break;
    case Kind::Pdf:
        *content = readPdf(in);
        break;
    case Kind::Font:
        *content = readFont(in);
        break;
    case Kind::Text:
        *content = readText(in);
        break;
    }
    return *content && in.status() == QDataStream::Ok;
}
