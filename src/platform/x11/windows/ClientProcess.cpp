#include "platform/x11/windows/ClientProcess.h"

#include <QFile>
#include <QFileInfo>
#include <QList>

#include <array>
#include <cerrno>

#include <unistd.h>

namespace {

constexpr qint64 kMaxEnvironment = 256 * 1024;

QByteArray folderOf(quint32 processId)
{
    return "/proc/" + QByteArray::number(processId);
}

/// Empty, with errno set, when it cannot be told.
QString executableOf(quint32 processId)
{
    std::array<char, 4096> target;
    const ssize_t length =
        readlink((folderOf(processId) + "/exe").constData(), target.data(), std::size(target));
    if (length <= 0)
        return {};
    QString program = QFile::decodeName(QByteArray(target.data(), length));
    // Said of a program that was upgraded while it runs.
    constexpr QLatin1String kDeleted(" (deleted)");
    if (program.endsWith(kDeleted))
        program.chop(kDeleted.size());
    return program;
}

QString variable(const QList<QByteArray> &environment, const QByteArray &name)
{
    for (const QByteArray &entry : environment) {
        if (entry.startsWith(name + '='))
            return QFile::decodeName(entry.mid(name.size() + 1));
    }
    return {};
}

} // namespace

QString ClientProcess::nameOf(quint32 processId)
{
    if (processId == 0)
        return {};
    const QString program = executableOf(processId);
    const bool isForbidden = program.isEmpty() && errno == EACCES;
    if (!program.isEmpty())
        return QFileInfo(program).fileName();
    // The program of another user, or one that runs with a group of its own as some terminals do,
    // may be asked for its short name only.
    QFile shortName(QString::fromLatin1(folderOf(processId) + "/comm"));
    if (!isForbidden || !shortName.open(QIODevice::ReadOnly))
        return {};
    return QFile::decodeName(shortName.readLine().trimmed());
}

QString ClientProcess::programOf(quint32 processId)
{
    const QString executable = processId == 0 ? QString() : executableOf(processId);
    QFile file(QString::fromLatin1(folderOf(processId) + "/environ"));
    if (executable.isEmpty() || !file.open(QIODevice::ReadOnly))
        return executable;
    // A program that was started from within somebody else's image inherits these variables; the
    // image is its own only if it runs out of it.
    const QList<QByteArray> environment = file.read(kMaxEnvironment).split('\0');
    const QString mount = variable(environment, "APPDIR");
    const QString image = variable(environment, "APPIMAGE");
    if (mount.isEmpty() || image.isEmpty() || !executable.startsWith(mount + u'/'))
        return executable;
    const QString resolved = QFileInfo(image).canonicalFilePath();
    return resolved.isEmpty() ? image : resolved;
}
