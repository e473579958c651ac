#include "platform/x11/ClientProcess.h"

#include <QFile>
#include <QFileInfo>

#include <array>
#include <cerrno>

#include <unistd.h>

QString ClientProcess::nameOf(quint32 processId)
{
    if (processId == 0)
        return {};
    const QByteArray folder = "/proc/" + QByteArray::number(processId);
    std::array<char, 4096> target;
    const ssize_t length =
        readlink((folder + "/exe").constData(), target.data(), std::size(target));
    const bool isForbidden = length < 0 && errno == EACCES;
    if (length > 0) {
        QString program = QFile::decodeName(QByteArray(target.data(), length));
        // Said of a program that was upgraded while it runs.
        constexpr QLatin1String kDeleted(" (deleted)");
        if (program.endsWith(kDeleted))
            program.chop(kDeleted.size());
        return QFileInfo(program).fileName();
    }
    // The program of another user, or one that runs with a group of its own as some terminals do,
    // may be asked for its short name only.
    QFile shortName(QString::fromLatin1(folder + "/comm"));
    if (!isForbidden || !shortName.open(QIODevice::ReadOnly))
        return {};
    return QFile::decodeName(shortName.readLine().trimmed());
}
