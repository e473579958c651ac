#include "updates/updater/UpdateLock.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

UpdateLock::Outcome UpdateLock::take(const QString &path)
{
    release();
    // The file stays: removed, it could be locked by two at once under one name.
    m_file = ::open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW,
                    0600);
    if (m_file >= 0 && ::flock(m_file, LOCK_EX | LOCK_NB) == 0)
        return Outcome::Taken;
    const bool isBusy = m_file >= 0 && errno == EWOULDBLOCK;
    release();
    return isBusy ? Outcome::Busy : Outcome::Impossible;
}

void UpdateLock::release()
{
    if (m_file >= 0)
        ::close(m_file);
    m_file = -1;
}
