#include "Clipboard/MovingIn.h"

#include "Clipboard/exchange/ForeignHistories.h"

#include <QLocale>
#include <QTimer>

#include <chrono>
#include <utility>

namespace {

/// So few that nobody notices them being added.
constexpr qsizetype kAtATime = 20;
constexpr std::chrono::seconds kRetryDelay{5};

} // namespace

void MovingIn::look()
{
    if (std::exchange(m_hasLooked, true))
        return;
    m_thread.start([this] {
        const QList<ForeignHistories::Found> found = ForeignHistories::read();
        QStringList programs;
        for (const ForeignHistories::Found &history : found) {
            if (!history.clips.isEmpty() && !programs.contains(history.program))
                programs.append(history.program);
        }
        m_thread.deliver(
            [this, programs, clips = ForeignHistories::merged(found)] { offer(programs, clips); });
    });
}

void MovingIn::offer(const QStringList &programs, const QList<SharedClip> &clips)
{
    const SharedClips::Added would = m_clips.add(clips, true).value;
    if (would.added == 0)
        return;
    m_offered = clips;
    const int count = static_cast<int>(would.added);
    const QString names = QLocale().createSeparatedList(programs);
    Q_EMIT offered(would.noRoom > 0
                       ? tr("&Bring along the newest %Ln clips of %1", nullptr, count).arg(names)
                       : tr("&Bring along %Ln clips of %1", nullptr, count).arg(names));
}

void MovingIn::take()
{
    if (!std::exchange(m_isTaking, true))
        takeNext();
}

void MovingIn::takeNext()
{
    const QList<SharedClip> next = m_offered.mid(0, kAtATime);
    if (m_clips.add(next, false).fault != SharedClips::Fault::None) {
        // Another program writes into the store, or the disk is full.
        QTimer::singleShot(kRetryDelay, this, &MovingIn::takeNext);
        return;
    }
    m_offered.remove(0, next.size());
    m_isTaking = !m_offered.isEmpty();
    if (m_isTaking)
        QMetaObject::invokeMethod(this, &MovingIn::takeNext, Qt::QueuedConnection);
}
