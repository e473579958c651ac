#pragma once

#include <QByteArray>

class QIODevice;

/// Reads of a device piece by piece, with room made only for what is there: QIODevice makes room
/// for as much as might be read.
namespace BoundedReading {

/// All there is, if that is no more than `most` bytes; else some more than that.
QByteArray all(QIODevice &device, qint64 most);

/// A line with its end, or as much of it, which is at least `most` bytes then. Empty at the end.
QByteArray line(QIODevice &device, qint64 most);

} // namespace BoundedReading
