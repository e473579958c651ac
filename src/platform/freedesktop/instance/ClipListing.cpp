#include "platform/freedesktop/instance/ClipListing.h"

#include "platform/SharedClips.h"

#include <cerrno>
#include <cstring>
#include <utility>

#include <sys/mman.h>
#include <unistd.h>

namespace {

using Answer = InstanceSocket::Answer;

/// How many clips are written at a time: a few milliseconds' work.
constexpr qsizetype kSlice = 1000;

} // namespace

ClipListing::ClipListing(SharedClips &clips, const QString &term, InstanceSocket::Reply reply,
                         QObject *parent)
    : QObject(parent), m_clips(clips), m_reply(std::move(reply)), m_ids(clips.find(term).value),
      m_file(::memfd_create("clips", MFD_CLOEXEC))
{
    m_timer.setInterval(0);
    connect(&m_timer, &QTimer::timeout, this, &ClipListing::writeSlice);
    m_timer.start();
}

ClipListing::~ClipListing()
{
    if (m_reply)
        m_reply(Answer::Nobody, -1);
    if (m_file >= 0)
        ::close(m_file);
}

void ClipListing::writeSlice()
{
    QByteArray slice;
    const SharedClips::Answer<QList<SharedClips::Line>> lines =
        m_clips.lines(m_ids.mid(m_next, kSlice));
    for (const SharedClips::Line &line : lines.value)
        line.appendTo(slice);
    m_next += kSlice;
    if (lines.fault != SharedClips::Fault::None || !write(slice))
        end(Answer::Nobody);
    else if (m_next >= m_ids.size())
        end(Answer::Taken);
}

/// Memory alone is written to, so this waits for nobody.
bool ClipListing::write(const QByteArray &bytes) const
{
    qsizetype written = 0;
    while (written < bytes.size()) {
        const ssize_t size = ::write(m_file, bytes.constData() + written,
                                     static_cast<size_t>(bytes.size() - written));
        if (size < 0 && errno == EINTR)
            continue;
        if (size <= 0) {
            qCWarning(lcInstance, "a list of clips could not be handed over: %s",
                      std::strerror(errno));
            return false;
        }
        written += size;
    }
    return true;
}

void ClipListing::end(Answer meaning)
{
    m_timer.stop();
    std::exchange(m_reply, nullptr)(meaning, meaning == Answer::Taken ? m_file : -1);
    deleteLater();
}
