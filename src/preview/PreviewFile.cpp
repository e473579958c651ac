#include "preview/PreviewFile.h"

#include "platform/FileQuestions.h"

#include <QFile>

#include <algorithm>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

PreviewFile::PreviewFile(QString path, const Patience &patience)
    : m_path(std::move(path)), m_patience(patience)
{
}

PreviewFile::PreviewFile(int descriptor, qint64 size, const Patience &patience)
    : m_patience(patience), m_descriptor(descriptor), m_size(size)
{
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

PreviewFile::~PreviewFile()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

bool PreviewFile::openRegular()
{
    const QByteArray name = QFile::encodeName(m_path);
    struct stat status = {};
    // Opening a device can already have an effect, so it is looked at before.
    if (::stat(name.constData(), &status) != 0 || !S_ISREG(status.st_mode))
        return false;
    // Between the two it may have become a pipe, whose opening would wait for a writer.
    m_descriptor = ::open(name.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    // The files of /proc say that they are empty; reading one may wait.
    if (m_descriptor < 0 || ::fstat(m_descriptor, &status) != 0 || !S_ISREG(status.st_mode) ||
        status.st_size == 0)
        return false;
    m_size = status.st_size;
    return open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

qint64 PreviewFile::readData(char *data, qint64 maxSize)
{
    // In parts, so that a stop is noticed within a long read; but until all is there, because less
    // is taken for the end of the file.
    constexpr qint64 kPart = 1 << 20;
    qint64 done = 0;
    while (done < maxSize) {
        if (m_bytesLeft <= 0 || m_patience.isOver())
            return -1;
        const qint64 wanted = std::min({maxSize - done, m_bytesLeft, kPart});
        const ssize_t got =
            ::pread(m_descriptor, data + done, static_cast<size_t>(wanted), pos() + done);
        if (got < 0)
            return -1;
        if (got == 0)
            break;
        done += got;
        m_bytesLeft -= got;
    }
    return done;
}

qint64 PreviewFile::writeData(const char *, qint64)
{
    return -1;
}
