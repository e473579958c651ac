#include "updates/updater/ArchiveExtraction.h"

#include <QFile>
#include <QStringList>

#include <archive.h>
#include <archive_entry.h>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr size_t kBlockBytes = 64 * 1024;
constexpr mode_t kFolderMode = 0755;
constexpr mode_t kExecutableBits = 0111;

using Archive = std::unique_ptr<archive, decltype(&archive_read_free)>;

/// A file descriptor that is closed with its owner.
class Descriptor
{
public:
    explicit Descriptor(int number) : m_number(number) {}
    ~Descriptor()
    {
        if (m_number >= 0)
            ::close(m_number);
    }
    Descriptor(Descriptor &&other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
    Descriptor &operator=(Descriptor &&other) noexcept
    {
        std::swap(m_number, other.m_number);
        return *this;
    }
    int number() const { return m_number; }
    bool isOpen() const { return m_number >= 0; }

private:
    int m_number;
};

/// The parts of an entry's name below the folder; nothing when the name would lead out of it.
std::optional<QList<QByteArray>> partsOf(const char *name)
{
    const QByteArray path(name ? name : "");
    if (path.startsWith('/'))
        return std::nullopt;
    QList<QByteArray> parts;
    for (const QByteArray &part : path.split('/')) {
        if (part.isEmpty() || part == ".")
            continue;
        if (part == "..")
            return std::nullopt;
        parts.append(part);
    }
    return parts;
}

/// Opens a folder below `parent`, making it where it is missing; a link is not followed.
Descriptor openFolder(int parent, const QByteArray &name)
{
    ::mkdirat(parent, name.constData(), kFolderMode);
    return Descriptor(
        ::openat(parent, name.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

QString systemError()
{
    if (errno == ENOSPC || errno == EDQUOT || errno == EFBIG)
        return ArchiveExtraction::tr("There is not enough room on the disk.");
    return ArchiveExtraction::tr("A file could not be written: %1.")
        .arg(QString::fromLocal8Bit(std::strerror(errno)));
}

QString damaged()
{
    return ArchiveExtraction::tr("The update is damaged.");
}

QString refused()
{
    return ArchiveExtraction::tr("The update holds files that do not belong into it.");
}

std::optional<QString> writeAll(int file, const char *bytes, size_t count)
{
    while (count > 0) {
        const ssize_t written = ::write(file, bytes, count);
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            return systemError();
        bytes += written;
        count -= static_cast<size_t>(written);
    }
    return std::nullopt;
}

/// One archive on its way into one folder.
class Extraction
{
public:
    Extraction(archive *source, int folder, const std::atomic<bool> &isCancelled)
        : m_source(source), m_folder(folder), m_isCancelled(isCancelled)
    {
    }

    std::optional<QString> run()
    {
        archive_entry *entry = nullptr;
        for (int count = 0;; ++count) {
            const int result = archive_read_next_header(m_source, &entry);
            if (result == ARCHIVE_EOF)
                return count > 0 ? std::nullopt : std::optional(damaged());
            if (result != ARCHIVE_OK)
                return damaged();
            if (count >= ArchiveExtraction::kMaxEntries)
                return refused();
            if (auto problem = writeEntry(entry))
                return problem;
        }
    }

private:
    std::optional<QString> writeEntry(archive_entry *entry)
    {
        auto parts = partsOf(archive_entry_pathname(entry));
        const mode_t type = archive_entry_filetype(entry);
        if (!parts || archive_entry_hardlink(entry))
            return refused();
        if (parts->isEmpty())
            return type == AE_IFDIR ? std::nullopt : std::optional(refused());
        const QByteArray name = parts->takeLast();
        Descriptor folder(::dup(m_folder));
        for (const QByteArray &part : std::as_const(*parts)) {
            folder = openFolder(folder.number(), part);
            if (!folder.isOpen())
                return errno == ENOTDIR || errno == ELOOP ? refused() : systemError();
        }
        if (type == AE_IFDIR)
            return openFolder(folder.number(), name).isOpen() ? std::nullopt
                                                              : std::optional(refused());
        if (type == AE_IFLNK)
            return writeLink(folder.number(), name, archive_entry_symlink(entry));
        if (type == AE_IFREG)
            return writeFile(folder.number(), name, archive_entry_perm(entry));
        return refused();
    }

    /// Libraries come with such links; no other place may be named.
    static std::optional<QString> writeLink(int folder, const QByteArray &name, const char *target)
    {
        const QByteArray to(target ? target : "");
        if (to.isEmpty() || to.contains('/') || to == "." || to == "..")
            return refused();
        if (::symlinkat(to.constData(), folder, name.constData()) != 0)
            return errno == EEXIST ? refused() : systemError();
        return std::nullopt;
    }

    std::optional<QString> writeFile(int folder, const QByteArray &name, mode_t permissions)
    {
        const mode_t mode = (permissions & kExecutableBits) != 0 ? 0755 : 0644;
        const Descriptor file(::openat(folder, name.constData(),
                                       O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode));
        if (!file.isOpen())
            return errno == EEXIST ? refused() : systemError();
        QByteArray block(kBlockBytes, Qt::Uninitialized);
        for (;;) {
            const la_ssize_t count = archive_read_data(m_source, block.data(), kBlockBytes);
            if (count < 0)
                return damaged();
            if (count == 0)
                return std::nullopt;
            m_bytes += count;
            if (m_bytes > ArchiveExtraction::kMaxBytes)
                return refused();
            if (m_isCancelled)
                return ArchiveExtraction::tr("The update was cancelled.");
            if (auto problem =
                    writeAll(file.number(), block.constData(), static_cast<size_t>(count)))
                return problem;
        }
    }

    archive *m_source;
    int m_folder;
    const std::atomic<bool> &m_isCancelled;
    qint64 m_bytes = 0;
};

} // namespace

std::optional<QString> ArchiveExtraction::extract(QFile &archive, const QString &folder,
                                                  const std::atomic<bool> &isCancelled)
{
    const Archive source(archive_read_new(), &archive_read_free);
    archive_read_support_format_tar(source.get());
    archive_read_support_filter_gzip(source.get());
    archive_read_support_filter_xz(source.get());
    const Descriptor target(::open(QFile::encodeName(folder).constData(),
                                   O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (!target.isOpen())
        return systemError();
    if (::lseek(archive.handle(), 0, SEEK_SET) != 0 ||
        archive_read_open_fd(source.get(), archive.handle(), kBlockBytes) != ARCHIVE_OK)
        return damaged();
    if (auto problem = Extraction(source.get(), target.number(), isCancelled).run())
        return problem;
    // Everything at once, before a name leads to it.
    return ::syncfs(target.number()) == 0 ? std::nullopt : std::optional(systemError());
}
