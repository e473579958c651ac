#include "platform/x11/windows/XSettings.h"

#include <QDataStream>

namespace {

enum Type : quint8 { Integer = 0, String = 1, Colour = 2 };

constexpr int kSerialSize = 4;
constexpr int kColourSize = 8;

int padded(int size)
{
    return (size + 3) & ~3;
}

void skip(QDataStream &stream, int size)
{
    if (stream.skipRawData(size) != size)
        stream.setStatus(QDataStream::ReadPastEnd);
}

} // namespace

std::optional<qint32> XSettings::integer(const QByteArray &bytes, const QByteArray &name)
{
    QDataStream stream(bytes);
    quint8 order = 0;
    // By the machine that the settings daemon runs on; 0 is little-endian, as in the X protocol.
    stream >> order;
    stream.setByteOrder(order == 0 ? QDataStream::LittleEndian : QDataStream::BigEndian);
    skip(stream, 3 + kSerialSize);
    quint32 count = 0;
    stream >> count;
    for (quint32 i = 0; i < count && stream.status() == QDataStream::Ok; ++i) {
        quint8 type = 0;
        quint8 unused = 0;
        quint16 nameSize = 0;
        stream >> type >> unused >> nameSize;
        QByteArray settingName(nameSize, Qt::Uninitialized);
        // Another program's bytes: no length in them is taken for granted.
        if (stream.readRawData(settingName.data(), nameSize) != nameSize)
            return std::nullopt;
        // Names and texts are filled up to words; each setting tells when it last changed.
        skip(stream, padded(nameSize) - nameSize + kSerialSize);
        qint32 value = 0; // of a text: its size
        if (type == Integer || type == String)
            stream >> value;
        if (stream.status() != QDataStream::Ok || (type == String && value < 0))
            return std::nullopt;
        // Settings of other types are passed over by their length; of a type that is none nobody
        // knows it.
        if (type == Integer && settingName == name)
            return value;
        if (type == String)
            skip(stream, padded(value));
        else if (type == Colour)
            skip(stream, kColourSize);
        else if (type != Integer)
            return std::nullopt;
    }
    return std::nullopt;
}
