#pragma once

#include <QIODevice>

class Patience;

/// A regular file opened for a preview. Reading it never waits for a writer, changes nothing, and
/// fails once the preview is no longer wanted, its time is up or its bytes are used up; a library
/// that decodes from it then gives up by itself. Used on the thread that made it.
class PreviewFile : public QIODevice
{
    Q_OBJECT

public:
    /// A file to be opened here. `patience` must outlive it.
    PreviewFile(QString path, const Patience &patience);
    /// One that was opened elsewhere and has `size` bytes. Closes `descriptor` at its end.
    PreviewFile(int descriptor, qint64 size, const Patience &patience);
    ~PreviewFile() override;

    /// Opens the file. False for anything but a regular file with content that may be read.
    [[nodiscard]] bool openRegular();

    /// Empty for one that was opened elsewhere.
    QString path() const { return m_path; }

    /// The open file, negative while there is none; remains this object's.
    int descriptor() const { return m_descriptor; }

    /// Bytes that may be read in all from now on.
    void setByteLimit(qint64 bytes) { m_bytesLeft = bytes; }

    // ^QIODevice
    bool isSequential() const override { return false; }
    qint64 size() const override { return m_size; }

protected:
    qint64 readData(char *data, qint64 maxSize) override;
    qint64 writeData(const char *data, qint64 size) override;

private:
    static constexpr qint64 kMaxBytes = 256 << 20;

    const QString m_path;
    const Patience &m_patience;
    int m_descriptor = -1;
    qint64 m_size = 0;
    qint64 m_bytesLeft = kMaxBytes;
};
