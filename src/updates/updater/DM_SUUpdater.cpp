#include "updates/updater/DM_SUUpdater.h"

#include "platform/OwnProgram.h"
#include "platform/RunningApplications.h"
#include "platform/SettingsStore.h"
#include "updates/UpdatesLog.h"
#include "updates/updater/Relauncher.h"
#include "updates/updater/UpdateRun.h"
#include "updates/updater/UpdateWindow.h"

#include <QFileInfo>
#include <QPointer>
#include <QStandardPaths>

#include <utility>

namespace {

const auto kSkippedKey = QStringLiteral("skippedUpdateVersion");
constexpr int kUpdaterErrorCode = 1;

QString programOf(const QString &bundlePath)
{
    return bundlePath + QStringLiteral("/bin/quillmarsh");
}

QString downloadFolder(const Info &info)
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) + u'/' +
           info.bundleIdentifier + QStringLiteral("/updates");
}

} // namespace

std::unique_ptr<DM_SUUpdater> DM_SUUpdater::updaterForBundle(const QString &bundlePath,
                                                             const UpdaterPorts &ports,
                                                             const Info &info)
{
    if (!isBundle(bundlePath))
        return nullptr;
    return std::unique_ptr<DM_SUUpdater>(new DM_SUUpdater(bundlePath, ports, info, Owner::Helper));
}

std::unique_ptr<DM_SUUpdater> DM_SUUpdater::updaterForMainBundle(const UpdaterPorts &ports,
                                                                 const Info &info)
{
    return std::unique_ptr<DM_SUUpdater>(
        new DM_SUUpdater(OwnProgram::prefix(), ports, info, Owner::MainBundle));
}

bool DM_SUUpdater::isBundle(const QString &bundlePath)
{
    const QFileInfo program(programOf(bundlePath));
    return program.isFile() && program.isExecutable();
}

DM_SUUpdater::DM_SUUpdater(const QString &bundlePath, const UpdaterPorts &ports, Info info,
                           Owner owner)
    : m_ports(ports), m_info(std::move(info)),
      m_installation(Installation::of(Installation::Evidence::of(bundlePath))),
      m_schedule(ports.settings, ports.clock, owner == Owner::MainBundle && !obstacle(), this)
{
    connect(&m_schedule, &UpdateSchedule::due, this, [this] {
        if (!m_run)
            start(Manner::Scheduled);
    });
}

DM_SUUpdater::~DM_SUUpdater() = default;

std::optional<QString> DM_SUUpdater::obstacle() const
{
    if (m_installation.kind == Installation::Kind::PackageManager)
        return m_installation.obstacle();
    if (m_info.feedUrl.isEmpty()) {
        return tr("This Quillmarsh has no address to look for updates at. Updates come from where "
                  "you got it.");
    }
    return m_installation.obstacle();
}

void DM_SUUpdater::checkForUpdatesInBackground()
{
    if (!m_run)
        start(Manner::Background);
}

void DM_SUUpdater::checkForUpdates()
{
    if (m_run) {
        m_manner = Manner::Interactive;
        // One that nobody saw goes on before the user's eyes.
        const bool isUnseen = !hasWindow();
        UpdateWindow &window = openWindow();
        if (isUnseen)
            window.showChecking();
        return;
    }
    start(Manner::Interactive);
}

void DM_SUUpdater::start(Manner manner)
{
    m_manner = manner;
    if (const auto reason = obstacle()) {
        qCInfo(lcUpdates).noquote() << "no update:" << *reason;
        if (manner == Manner::Interactive)
            openWindow().showElsewhere(*reason, m_installation.command);
        else
            abort(reason);
        return;
    }
    // A helper leaves no trace in settings that are another program's.
    if (manner != Manner::Background)
        m_schedule.checked();
    UpdateRun::Setup setup;
    setup.info = m_info;
    setup.installation = m_installation;
    setup.running = &m_ports.runningApplications;
    setup.downloadFolder = downloadFolder(m_info);
    setup.withBeta = m_delegate->updaterShouldCheckForBetaUpdates(*this);
    setup.withTest = m_delegate->isUpdaterInTestMode(*this);
    m_run = std::make_unique<UpdateRun>(std::move(setup));
    connect(m_run.get(), &UpdateRun::found, this, &DM_SUUpdater::runFound);
    connect(m_run.get(), &UpdateRun::foundNothing, this, [this] {
        qCInfo(lcUpdates, "no newer version");
        if (hasWindow())
            m_window->showUpToDate(m_info.bundleVersion.value_or(QString()));
        abort(std::nullopt);
    });
    connect(m_run.get(), &UpdateRun::foundForNewerSystem, this, [this](const QString &version) {
        qCInfo(lcUpdates).noquote() << "for a newer system:" << version;
        if (hasWindow())
            m_window->showNeedsNewerSystem(version, m_info.bundleVersion.value_or(QString()));
        abort(std::nullopt);
    });
    connect(m_run.get(), &UpdateRun::progressed, this, [this](qint64 done, qint64 size) {
        if (hasWindow())
            m_window->showDownloading(done, size);
    });
    connect(m_run.get(), &UpdateRun::downloaded, this, &DM_SUUpdater::runDownloaded);
    connect(m_run.get(), &UpdateRun::installed, this, &DM_SUUpdater::runInstalled);
    connect(m_run.get(), &UpdateRun::failed, this,
            [this](const QString &reason) { abort(reason); });
    if (manner == Manner::Interactive)
        openWindow().showChecking();
    m_run->check();
}

void DM_SUUpdater::runFound()
{
    const QString version = m_run->item().version;
    if (m_installation.startsAtLeast(version)) {
        // Installed by another process, or while nobody restarted this one; when to do so is the
        // user's choice.
        qCInfo(lcUpdates).noquote() << "installed already:" << version;
        if (hasWindow())
            m_window->showInstalled();
        abort(std::nullopt);
        return;
    }
    if (const auto replacement = m_installation.replacement()) {
        abort(replacement);
        return;
    }
    qCInfo(lcUpdates).noquote() << "update found:" << version;
    if (m_manner == Manner::Background) {
        m_run->download();
        return;
    }
    const bool isSkipped = m_ports.settings.value(kSkippedKey).toString() == version;
    const bool mayShow = m_delegate->updaterMayShowModalAlert(*this);
    if (m_manner == Manner::Scheduled && (isSkipped || !mayShow)) {
        abort(std::nullopt);
        return;
    }
    openWindow().showFound(m_run->item().shortVersion,
                           m_info.bundleShortVersionString.value_or(QString()),
                           m_run->item().notes);
}

void DM_SUUpdater::runDownloaded()
{
    if (m_manner != Manner::Background) {
        install();
        return;
    }
    const QPointer<UpdateRun> run(m_run.get());
    m_delegate->updaterWillInstallUpdateOnQuit(*this, m_run->item().version, [this, run] {
        if (run)
            install();
    });
}

void DM_SUUpdater::install()
{
    if (hasWindow())
        m_window->showInstalling();
    m_run->install();
}

void DM_SUUpdater::runInstalled()
{
    qCInfo(lcUpdates).noquote() << "update installed:" << m_run->item().version;
    endRun();
    if (hasWindow())
        m_window->showInstalled();
    if (m_delegate->updaterShouldRelaunchApplication(*this))
        relaunch();
    else
        m_delegate->updaterDidAbortWithError(*this, std::nullopt);
}

void DM_SUUpdater::relaunch()
{
    const QString program = m_installation.lastingPath(m_delegate->pathToRelaunchForUpdater(*this));
    if (Relauncher::startAfterExit(program)) {
        m_delegate->updaterWillRelaunchApplication(*this);
        return;
    }
    qCWarning(lcUpdates).noquote() << "cannot relaunch" << program;
    m_delegate->updaterDidAbortWithError(*this, std::nullopt);
}

void DM_SUUpdater::abort(const std::optional<QString> &reason)
{
    if (reason) {
        qCInfo(lcUpdates).noquote() << "update ended:" << *reason;
        if (hasWindow())
            m_window->showProblem(*reason);
    }
    endRun();
    std::optional<UpdateError> error;
    if (reason)
        error = UpdateError{UpdateError::updaterDomain(), kUpdaterErrorCode, *reason};
    m_delegate->updaterDidAbortWithError(*this, error);
}

void DM_SUUpdater::endRun()
{
    if (!m_run)
        return;
    // An answer of it may be on its way still, and the next run may begin before it is gone.
    m_run->disconnect(this);
    // Later, because it may be the run that tells us.
    m_run->setParent(this);
    m_run.release()->retire();
}

UpdateWindow &DM_SUUpdater::openWindow()
{
    if (!m_window) {
        m_window = std::make_unique<UpdateWindow>(QStringLiteral("Quillmarsh"));
        if (!obstacle())
            m_window->setAutomatic(automaticallyChecksForUpdates());
        connect(m_window.get(), &UpdateWindow::automaticChosen, this,
                &DM_SUUpdater::setAutomaticallyChecksForUpdates);
        connect(m_window.get(), &UpdateWindow::dismissed, this, &DM_SUUpdater::dismissed);
        connect(m_window.get(), &UpdateWindow::installChosen, this, [this] {
            if (m_run) {
                m_window->showDownloading(0, m_run->item().size);
                m_run->download();
            }
        });
        connect(m_window.get(), &UpdateWindow::skipChosen, this, [this] {
            if (m_run)
                m_ports.settings.setValue(kSkippedKey, m_run->item().version);
            m_window->close();
        });
    }
    // One that comes by itself leaves the keyboard where the user types: the next Return would
    // install.
    const bool isAskedFor = m_manner == Manner::Interactive;
    m_window->setAttribute(Qt::WA_ShowWithoutActivating, !isAskedFor);
    m_window->show();
    m_window->raise();
    if (isAskedFor)
        Q_EMIT frontWanted(m_window->windowHandle());
    return *m_window;
}

/// Whatever was under way ends with its window; where it has ended already, the user is told.
void DM_SUUpdater::dismissed()
{
    m_window.release()->deleteLater();
    const UpdateRun *const ended = m_run.get();
    if (!ended)
        return;
    abort(std::nullopt);
    connect(ended, &UpdateRun::installed, this, [this] {
        qCInfo(lcUpdates, "update installed: it was too late to cancel");
        if (!m_run)
            openWindow().showInstalled();
    });
}
