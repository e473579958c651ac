#include "platform/freedesktop/ProcRunningApplications.h"

#include <QDir>
#include <QFile>

namespace {

/// Of every process that can be read.
QStringList executables()
{
    QStringList paths;
    for (const QString &process : QDir(QStringLiteral("/proc")).entryList(QDir::Dirs)) {
        const QString link = QStringLiteral("/proc/%1/exe").arg(process);
        QString executable = process.front().isDigit() ? QFile::symLinkTarget(link) : QString();
        // A running program may have been replaced on the disk.
        const auto kGone = QStringLiteral(" (deleted)");
        if (executable.endsWith(kGone))
            executable.chop(kGone.size());
        if (!executable.isEmpty())
            paths.append(executable);
    }
    return paths;
}

} // namespace

QStringList ProcRunningApplications::bundlePaths(const QString &bundleIdentifier) const
{
    const QString name = bundleIdentifier.section(u'.', -1).toLower();
    // In bin/ it lay until it had a program before it that starts it.
    const QStringList programs{QStringLiteral("/libexec/%1/%1").arg(name),
                               QStringLiteral("/bin/%1").arg(name)};
    QStringList paths;
    for (const QString &executable : executables()) {
        for (const QString &program : programs) {
            if (executable.endsWith(program))
                paths.append(executable.chopped(program.size()));
        }
    }
    return paths;
}

QStringList ProcRunningApplications::programsBelow(const QString &folder) const
{
    QStringList paths = executables();
    paths.removeIf(
        [start = folder + u'/'](const QString &path) { return !path.startsWith(start); });
    return paths;
}
