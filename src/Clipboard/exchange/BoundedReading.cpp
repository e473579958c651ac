#include "Clipboard/exchange/BoundedReading.h"

#include <QIODevice>

namespace {

constexpr qint64 kPiece = 64 * 1024;

} // namespace

QByteArray BoundedReading::all(QIODevice &device, qint64 most)
{
    QByteArray bytes;
    for (;;) {
        const QByteArray piece = device.read(kPiece);
        bytes += piece;
        if (piece.isEmpty() || bytes.size() > most)
            return bytes;
    }
}

QByteArray BoundedReading::line(QIODevice &device, qint64 most)
{
    QByteArray bytes;
    for (;;) {
        const QByteArray piece = device.readLine(kPiece);
        bytes += piece;
        if (piece.isEmpty() || piece.endsWith('\n') || bytes.size() >= most)
            return bytes;
    }
}
