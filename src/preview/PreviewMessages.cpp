#include "preview/PreviewMessages.h"

#include "preview/ContentBytes.h"

#include <QDataStream>
#include <QIODevice>

namespace {

constexpr QDataStream::Version kVersion = QDataStream::Qt_6_0;
constexpr int kMaxExtent = 16'384;
constexpr std::chrono::milliseconds kMaxTime{60'000};

bool isSane(const PreviewOrder &order)
{
    return order.kind <= PreviewOrder::Kind::Thumbnail && !order.pixels.isEmpty() &&
           order.pixels.width() <= kMaxExtent && order.pixels.height() <= kMaxExtent &&
           order.page >= 0 && order.size > 0 && order.time.count() >= 0 && order.time <= kMaxTime;
}

} // namespace

QByteArray PreviewMessages::encoded(const PreviewOrder &order)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setVersion(kVersion);
    out << quint8(order.kind) << qint32(order.page) << order.pixels << order.written << order.size
        << qint64(order.time.count()) << quint32(order.type.names().size());
    for (const QString &name : order.type.names())
        out << name;
    return bytes;
}

std::optional<PreviewOrder> PreviewMessages::decodedOrder(const QByteArray &bytes)
{
    QDataStream in(bytes);
    in.setVersion(kVersion);
    PreviewOrder order;
    quint8 kind = 0;
    qint32 page = 0;
    qint64 milliseconds = 0;
    quint32 count = 0;
    in >> kind >> page >> order.pixels >> order.written >> order.size >> milliseconds >> count;
    QStringList names;
    for (quint32 i = 0; i < count && i < PreviewType::kMaxNames; ++i) {
        QString name;
        in >> name;
        names.append(name);
    }
    order.kind = PreviewOrder::Kind(kind);
    order.page = page;
    order.time = std::chrono::milliseconds(milliseconds);
    order.type = PreviewType(std::move(names));
    if (in.status() != QDataStream::Ok || !in.atEnd() || !isSane(order))
        return std::nullopt;
    return order;
}

QByteArray PreviewMessages::encoded(const PreviewAnswer &answer)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setVersion(kVersion);
    if (answer.content)
        bytes.reserve(answer.content->byteCount() + 4096);
    out << answer.isTimeUp << answer.isLast;
    ContentBytes::write(out, answer.content.get());
    return bytes;
}

std::optional<PreviewAnswer> PreviewMessages::decodedAnswer(const QByteArray &bytes)
{
    QDataStream in(bytes);
    in.setVersion(kVersion);
    PreviewAnswer answer;
    in >> answer.isTimeUp >> answer.isLast;
    if (!ContentBytes::read(in, &answer.content) || in.status() != QDataStream::Ok || !in.atEnd())
        return std::nullopt;
    return answer;
}
