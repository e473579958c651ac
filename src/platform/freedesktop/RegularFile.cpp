#include "platform/freedesktop/RegularFile.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>

namespace {

constexpr off_t kMaxBytes = 1024 * 1024;

} // namespace

std::optional<QByteArray> readRegularFile(const QString &path)
{
    const int descriptor =
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (descriptor < 0)
        return std::nullopt;
    std::optional<QByteArray> bytes;
    struct stat status = {};
    if (::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) &&
        status.st_size <= kMaxBytes) {
        bytes = QByteArray(status.st_size, Qt::Uninitialized);
        const ssize_t count = ::read(descriptor, bytes->data(), static_cast<size_t>(bytes->size()));
        bytes->truncate(std::max<ssize_t>(count, 0));
    }
    ::close(descriptor);
    return bytes;
}
