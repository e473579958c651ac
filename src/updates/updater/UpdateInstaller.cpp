#include "updates/updater/UpdateInstaller.h"

#include "platform/RunningApplications.h"
#include "updates/UpdatesLog.h"
#include "updates/updater/ArchiveExtraction.h"
#include "updates/updater/UpdateSignature.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace {

/// What a run leaves unfinished has names that begin like this.
const auto kStaging = QStringLiteral(".staging-");

void enterStage(const char *name)
{
    qCInfo(lcUpdates, "update stage: %s", name);
}

QString writeProblem()
{
    if (errno == ENOSPC || errno == EDQUOT || errno == EFBIG)
        return UpdateInstaller::tr("There is not enough room on the disk.");
    return UpdateInstaller::tr("The update could not be put in its place: %1.")
        .arg(QString::fromLocal8Bit(std::strerror(errno)));
}

bool sync(const QString &path)
{
    const int file = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return false;
    const bool isDone = ::fsync(file) == 0;
    ::close(file);
    return isDone;
}

/// Replaces what has the name `to`, at once.
bool replace(const QString &from, const QString &to)
{
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) ==
               0 &&
           sync(QFileInfo(to).path());
}

/// A link is removed and not followed.
void removeFolder(const QString &path)
{
    if (QFileInfo(path).isSymLink())
        QFile::remove(path);
    else
        QDir(path).removeRecursively();
}

/// QFile::copy would go on without the last block on a full disk.
bool copy(QFile &from, const QString &to, const std::atomic<bool> &isCancelled)
{
    constexpr qint64 kBlockBytes = 1024 * 1024;
    QFile copied(to);
    if (!from.seek(0) ||
        !copied.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered,
                     QFile::permissions(from.fileName())))
        return false;
    while (!from.atEnd()) {
        errno = 0;
        const QByteArray block = from.read(kBlockBytes);
        if (block.isEmpty() || isCancelled || copied.write(block) != block.size())
            return false;
    }
    return ::fsync(copied.handle()) == 0;
}

} // namespace

UpdateInstaller::UpdateInstaller(Installation installation, UpdateItem item, QByteArray publicKey,
                                 const RunningApplications &running)
    : m_installation(std::move(installation)), m_item(std::move(item)),
      m_publicKey(std::move(publicKey)), m_running(running)
{
}

std::optional<QString> UpdateInstaller::install(const QString &download,
                                                const std::atomic<bool> &isCancelled)
{
    enterStage("verify");
    // The same open file is checked and installed.
    QFile file(download);
    if (!file.open(QIODevice::ReadOnly))
        return tr("The downloaded file is gone.");
    if (auto problem = check(file, isCancelled))
        return problem;
    return m_installation.kind == Installation::Kind::AppImage ? installImage(file, isCancelled)
                                                               : installPrefix(file, isCancelled);
}

std::optional<QString> UpdateInstaller::check(QFile &file,
                                              const std::atomic<bool> &isCancelled) const
{
    if (file.size() != m_item.size)
        return tr("The downloaded file has not the size that was announced.");
    const QByteArray digest =
        file.seek(0) ? UpdateSignature::digest(file, isCancelled) : QByteArray();
    if (isCancelled)
        return tr("The update was cancelled.");
    if (!UpdateSignature::isValid(m_item, digest, m_publicKey))
        return tr("The signature of the downloaded file is not the publisher's. It was not "
                  "installed.");
    return std::nullopt;
}

std::optional<QString> UpdateInstaller::installImage(QFile &download,
                                                     const std::atomic<bool> &isCancelled)
{
    const QString image = m_installation.path;
    const QString unfinished =
        QFileInfo(image).path() + QStringLiteral("/.") + QFileInfo(image).fileName() + kStaging;
    const QString fresh = unfinished + QStringLiteral("new");
    const QString kept = unfinished + QStringLiteral("previous");
    enterStage("clean");
    QFile::remove(fresh);
    QFile::remove(kept);
    // By another process, before we had the lock: it would be kept in the place of the former one.
    QFile installed(image);
    if (installed.open(QIODevice::ReadOnly) && !check(installed, isCancelled))
        return tr("This version is installed already. It starts the next time.");
    if (auto problem = m_installation.replacement())
        return problem;
    enterStage("write");
    if (!copy(download, fresh, isCancelled)) {
        const QString problem = isCancelled ? tr("The update was cancelled.") : writeProblem();
        QFile::remove(fresh);
        return problem;
    }
    // What was written is checked once more, because it is what will run.
    QFile written(fresh);
    if (!written.open(QIODevice::ReadOnly) || check(written, isCancelled) ||
        !written.setPermissions(QFile::permissions(image) | QFile::ExeOwner)) {
        QFile::remove(fresh);
        return tr("The update could not be written correctly.");
    }
    written.close();
    enterStage("keep");
    if (!installed.isOpen() || !copy(installed, kept, isCancelled) ||
        !replace(kept, image + QStringLiteral(".previous"))) {
        const QString problem = writeProblem();
        QFile::remove(fresh);
        QFile::remove(kept);
        return problem;
    }
    enterStage("switch");
    if (!replace(fresh, image))
        return writeProblem();
    enterStage("done");
    return std::nullopt;
}

std::optional<QString> UpdateInstaller::installPrefix(QFile &download,
                                                      const std::atomic<bool> &isCancelled)
{
    const QString root = m_installation.path;
    const QString versions = root + QStringLiteral("/versions/");
    const QString staging = versions + kStaging + m_item.version;
    const QString place = versions + m_item.version;
    const QString link = root + QStringLiteral("/.current-new");
    enterStage("clean");
    for (const QString &name :
         QDir(versions).entryList({kStaging + u'*'}, QDir::Dirs | QDir::Hidden))
        removeFolder(versions + name);
    QFile::remove(link);
    // By another process, before we had the lock.
    if (m_installation.startsAtLeast(m_item.version))
        return tr("This version is installed already. It starts the next time.");
    // Gone back from, while a program that was started before goes on.
    if (runningVersions().contains(m_item.version))
        return tr("Version %1 is running. Quit it first.").arg(m_item.version);
    // Unpacked by a run that was killed before the switch, or gone back from: made anew.
    removeFolder(place);

    enterStage("unpack");
    if (!QDir().mkdir(staging))
        return writeProblem();
    std::optional<QString> problem = ArchiveExtraction::extract(download, staging, isCancelled);
    if (!problem && !QFileInfo(staging + QStringLiteral("/bin/quillmarsh")).isExecutable())
        problem = tr("The update holds no program.");
    if (!problem && isCancelled)
        problem = tr("The update was cancelled.");
    if (problem) {
        removeFolder(staging);
        return problem;
    }
    enterStage("place");
    if (!replace(staging, place))
        return writeProblem();
    enterStage("switch");
    const QString previous = m_installation.nextVersion().value_or(QString());
    if (::symlink(QFile::encodeName(QStringLiteral("versions/") + m_item.version).constData(),
                  QFile::encodeName(link).constData()) != 0 ||
        !replace(link, root + QStringLiteral("/current")))
        return writeProblem();
    enterStage("prune");
    prune(previous);
    enterStage("done");
    return std::nullopt;
}

QStringList UpdateInstaller::runningVersions() const
{
    const QString versions = m_installation.path + QStringLiteral("/versions");
    QStringList names;
    for (const QString &program : m_running.programsBelow(versions))
        names.append(program.mid(versions.size() + 1).section(u'/', 0, 0));
    return names;
}

void UpdateInstaller::prune(const QString &previous) const
{
    const QString versions = m_installation.path + QStringLiteral("/versions/");
    const QStringList kept =
        QStringList{m_item.version, previous, QFileInfo(m_installation.bundlePath).fileName()} +
        runningVersions();
    for (const QString &name : QDir(versions).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        if (!kept.contains(name))
            removeFolder(versions + name);
    }
}
