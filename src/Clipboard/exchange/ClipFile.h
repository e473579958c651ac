#pragma once

#include "platform/SharedClips.h"

#include <QString>

#include <functional>
#include <optional>

class QIODevice;

/// The clips as a file of JSON, by which they move from one computer to the next: an object whose
/// "clips" are the clips, newest first, one a line. Nothing of a clip is left out but its id.
namespace ClipFile {

/// Writes a file, clip by clip.
class Writer
{
public:
    /// `file` is open, and outlives this object.
    explicit Writer(QIODevice &file) : m_file(file) {}
    void write(const SharedClip &clip);
    /// False when the file did not take everything.
    [[nodiscard]] bool finish();

private:
    void put(const QByteArray &bytes);

    QIODevice &m_file;
    bool m_isFirst = true;
    bool m_isGood = true;
};

/// What a file has, in its order. Such as Writer wrote are read line by line, others at once, if
/// they are not too large for that; absent when it is no file of clips.
std::optional<QList<SharedClip>> read(QIODevice &file);

} // namespace ClipFile
