#include "updates/updater/UpdateRun.h"

#include "platform/RunningApplications.h"
#include "platform/SignalStack.h"
#include "updates/UpdatesLog.h"
#include "updates/updater/UpdateFeed.h"
#include "updates/updater/UpdateInstaller.h"
#include "updates/updater/UpdateSignature.h"

#include <QFile>
#include <QFileInfo>
#include <QSysInfo>

#include <gnu/libc-version.h>

#include <utility>

namespace {

HttpsExchange::Limits feedLimits()
{
    HttpsExchange::Limits limits;
    limits.maxBytes = UpdateFeed::kMaxBytes;
    return limits;
}

} // namespace

UpdateRun::UpdateRun(Setup setup)
    : m_setup(std::move(setup)), m_publicKey(QByteArray::fromBase64(m_setup.info.feedKey)),
      m_feed(m_setup.info.certificateAuthorities, feedLimits())
{
    connect(&m_feed, &HttpsExchange::received, this,
            [this](const QByteArray &bytes) { m_feedBytes += bytes; });
    connect(&m_feed, &HttpsExchange::succeeded, this,
            [this] { readFeed(std::exchange(m_feedBytes, {})); });
    connect(&m_feed, &HttpsExchange::failed, this, &UpdateRun::failed);
}

UpdateRun::~UpdateRun()
{
    // It looks at this between two blocks, so this is no long wait.
    m_isCancelled = true;
    if (m_thread)
        m_thread->wait();
}

void UpdateRun::retire()
{
    m_isCancelled = true;
    // A disk that is slow to take a file must not keep the main thread.
    if (!m_isInstalling)
        deleteLater();
}

void UpdateRun::check()
{
    qCInfo(lcUpdates, "update stage: check");
    m_feed.get(QUrl(m_setup.info.feedUrl, QUrl::StrictMode));
}

// On the run's thread, because what a server sends may take its time to read.
void UpdateRun::readFeed(const QByteArray &xml)
{
    m_thread.reset(QThread::create([this, xml] {
        const SignalStack signalStack;
        m_offered = UpdateFeed::parse(xml);
    }));
    connect(m_thread.get(), &QThread::finished, this, [this] {
        if (const auto *problem = std::get_if<QString>(&m_offered))
            Q_EMIT failed(*problem);
        else
            choose(std::get<QList<UpdateItem>>(m_offered));
    });
    m_thread->start();
}

void UpdateRun::choose(const QList<UpdateItem> &items)
{
    UpdateFeed::Wanted wanted;
    wanted.installedVersion = m_setup.info.bundleVersion.value_or(QString());
    wanted.system = QString::fromLatin1(gnu_get_libc_version());
    wanted.kind = m_setup.installation.kindName();
    wanted.machine = QSysInfo::buildCpuArchitecture();
    wanted.withBeta = m_setup.withBeta;
    wanted.withTest = m_setup.withTest;
    if (const UpdateItem *newest = UpdateFeed::newest(items, wanted)) {
        m_item = *newest;
        Q_EMIT found();
        return;
    }
    wanted.system.reset();
    if (const UpdateItem *unsuited = UpdateFeed::newest(items, wanted))
        Q_EMIT foundForNewerSystem(unsuited->shortVersion);
    else
        Q_EMIT foundNothing();
}

void UpdateRun::download()
{
    qCInfo(lcUpdates, "update stage: download");
    const QString lock = m_setup.installation.lockPath();
    if (const auto outcome = m_lock.take(lock); outcome != UpdateLock::Outcome::Taken) {
        Q_EMIT failed(outcome == UpdateLock::Outcome::Busy
                          ? tr("Another update of Quillmarsh is under way.")
                          : Installation::tr("The folder %1 cannot be written to.")
                                .arg(QFileInfo(lock).path()));
        return;
    }
    m_download = std::make_unique<UpdateDownload>(m_item, m_setup.downloadFolder,
                                                  m_setup.info.certificateAuthorities);
    connect(m_download.get(), &UpdateDownload::progressed, this, &UpdateRun::progressed);
    connect(m_download.get(), &UpdateDownload::succeeded, this, &UpdateRun::downloaded);
    connect(m_download.get(), &UpdateDownload::failed, this, &UpdateRun::failed);
    m_download->start();
}

void UpdateRun::install()
{
    if (!UpdateSignature::initialise() || m_publicKey.size() != UpdateSignature::kKeyBytes) {
        Q_EMIT failed(tr("Signatures cannot be checked, so nothing is installed."));
        return;
    }
    m_isInstalling = true;
    m_thread.reset(QThread::create([this, path = m_download->path()] {
        const SignalStack signalStack;
        UpdateInstaller installer(m_setup.installation, m_item, m_publicKey, *m_setup.running);
        m_problem = installer.install(path, m_isCancelled);
    }));
    connect(m_thread.get(), &QThread::finished, this, &UpdateRun::installationEnded);
    m_thread->start();
}

void UpdateRun::installationEnded()
{
    // Good or bad, it is of no further use.
    QFile::remove(m_download->path());
    m_lock.release();
    m_isInstalling = false;
    const bool isCancelled = m_isCancelled;
    if (isCancelled)
        deleteLater();
    if (!m_problem)
        Q_EMIT installed();
    else if (!isCancelled)
        Q_EMIT failed(*m_problem);
}
