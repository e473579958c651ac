#pragma once

#include "updates/updater/Installation.h"
#include "updates/updater/UpdateItem.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <atomic>
#include <optional>

class QFile;
class RunningApplications;

/// Puts a downloaded file in the place of what is installed. Runs on a thread of its own and under
/// the installation's lock. The rule that keeps it right: what starts next is changed by one
/// rename, and everything before that only adds names that nothing leads to; so whenever it is
/// killed, the old version or the new one starts. What a killed run left behind, the next one
/// removes. The previous version is kept. Each stage is a line of the log.
class UpdateInstaller
{
    Q_DECLARE_TR_FUNCTIONS(UpdateInstaller)

public:
    /// `publicKey` is the feed's, 32 bytes. `running` outlives this object; what runs is never
    /// removed.
    UpdateInstaller(Installation installation, UpdateItem item, QByteArray publicKey,
                    const RunningApplications &running);

    /// Checks size and signature of the file at `download`, then installs it. Nothing on success,
    /// else a sentence for the user; what is installed is then as it was.
    std::optional<QString> install(const QString &download, const std::atomic<bool> &isCancelled);

private:
    std::optional<QString> check(QFile &file, const std::atomic<bool> &isCancelled) const;
    std::optional<QString> installImage(QFile &download, const std::atomic<bool> &isCancelled);
    std::optional<QString> installPrefix(QFile &download, const std::atomic<bool> &isCancelled);
    /// Those that programs run from now.
    QStringList runningVersions() const;
    /// Removes what nobody can want any more; `previous` is the version that current led to.
    void prune(const QString &previous) const;

    const Installation m_installation;
    const UpdateItem m_item;
    const QByteArray m_publicKey;
    const RunningApplications &m_running;
};
