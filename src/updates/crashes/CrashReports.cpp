#include "updates/crashes/CrashReports.h"

#include <QDir>
#include <QFile>

namespace {

constexpr qint64 kMaxBytesEach = qint64{64} * 1024;

} // namespace

QStringList CrashReports::paths() const
{
    QStringList paths;
    const QDir folder(m_folder);
    // The names begin with the time, all of one length until the year 2286.
    const auto entries =
        folder.entryInfoList({QStringLiteral("crash-*.txt")}, QDir::Files | QDir::NoSymLinks,
                             QDir::Name | QDir::Reversed);
    for (const QFileInfo &entry : entries)
        paths.append(entry.filePath());
    return paths;
}

void CrashReports::tidy() const
{
    int kept = 0;
    for (const QString &path : paths()) {
        if (QFileInfo(path).size() == 0 || ++kept > kMaxKept)
            QFile::remove(path);
    }
}

QString CrashReports::text() const
{
    QStringList texts;
    for (const QString &path : paths()) {
        QFile file(path);
        if (file.open(QIODevice::ReadOnly))
            texts.append(QString::fromUtf8(file.read(kMaxBytesEach)).trimmed());
    }
    return texts.join(QStringLiteral("\n\n"));
}

void CrashReports::discard() const
{
    for (const QString &path : paths())
        QFile::remove(path);
}
