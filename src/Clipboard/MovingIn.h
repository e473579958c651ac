#pragma once

#include "Clipboard/HistoryClips.h"
#include "platform/HelperThread.h"

#include <QList>
#include <QObject>
#include <QStringList>

/// Offers a newcomer the clips of the program that was used before. Reading them is done on a
/// thread of its own. Owned by AppDelegate; main thread.
class MovingIn : public QObject
{
    Q_OBJECT

public:
    /// The history must outlive this object.
    explicit MovingIn(ClipHistory &history) : m_clips(history, {}) {}

    /// Looks for such histories and reads them; `offered` follows when there is something to take.
    void look();
    /// Takes what was offered, a few at a time between the loop's other events.
    void take();

Q_SIGNALS:
    /// What would be taken, in one line.
    void offered(const QString &line);

private:
    void offer(const QStringList &programs, const QList<SharedClip> &clips);
    void takeNext();

    HistoryClips m_clips;
    QList<SharedClip> m_offered; ///< Newest first; what is left of them.
    bool m_hasLooked = false;
    bool m_isTaking = false;
    HelperThread m_thread;
};
