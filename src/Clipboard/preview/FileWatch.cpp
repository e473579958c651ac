#include "Clipboard/preview/FileWatch.h"

#include <QFile>
#include <QLoggingCategory>
#include <QSocketNotifier>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstring>

#include <sys/inotify.h>
#include <unistd.h>

namespace {

Q_LOGGING_CATEGORY(lcWatch, "quillmarsh.preview.watch")

} // namespace

class FileWatch::Descriptor
{
public:
    explicit Descriptor(const QString &path)
        : number(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)), file(QFile::encodeName(path))
    {
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    ~Descriptor()
    {
        if (number >= 0)
            ::close(number);
    }

    bool concerns(const inotify_event &event) const
    {
        const QByteArray name = file.mid(file.lastIndexOf('/') + 1);
        return event.wd != folder || (event.len > 0 && name == event.name);
    }

    const int number; ///< Negative when the system gave none.
    const QByteArray file;
    std::atomic<int> folder = -1; ///< The number of the watch on the file's folder.
};

FileWatch::FileWatch(const QString &path) : m_descriptor(std::make_shared<Descriptor>(path))
{
    if (m_descriptor->number < 0) {
        qCWarning(lcWatch, "files are not watched: %s", std::strerror(errno));
        return;
    }
    auto *notifier = new QSocketNotifier(m_descriptor->number, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &FileWatch::readEvents);
}

FileWatch::~FileWatch() = default;

void FileWatch::follow(Descriptor &descriptor)
{
    constexpr uint32_t kEntries = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO;
    const QByteArray folder = descriptor.file.left(descriptor.file.lastIndexOf('/') + 1);
    descriptor.folder =
        ::inotify_add_watch(descriptor.number, folder.constData(), kEntries | IN_ONLYDIR);
    ::inotify_add_watch(descriptor.number, descriptor.file.constData(),
                        kEntries | IN_MODIFY | IN_ATTRIB | IN_MOVE_SELF);
}

void FileWatch::readEvents()
{
    alignas(inotify_event) std::array<char, 16 << 10> buffer;
    bool isConcerned = false;
    ssize_t got = 0;
    while ((got = ::read(m_descriptor->number, buffer.data(), buffer.size())) > 0) {
        const char *at = buffer.data();
        while (at < buffer.data() + got) {
            const auto *event = reinterpret_cast<const inotify_event *>(at);
            isConcerned = isConcerned || m_descriptor->concerns(*event);
            at += sizeof(inotify_event) + event->len;
        }
    }
    if (isConcerned)
        Q_EMIT changed();
}
