#include "updates/updater/DMHelperAppDelegate.h"

#include "platform/RunningApplications.h"
#include "platform/SettingsStore.h"
#include "platform/StatusBar.h"
#include "updates/UpdatesLog.h"
#include "updates/updater/DM_SUUpdater.h"
#include "updates/updater/Installation.h"
#include "updates/updater/UpdateVersion.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QGuiApplication>
#include <QIcon>
#include <QMessageBox>

#include <algorithm>
#include <utility>

namespace {

constexpr int kBusyCode = 1;
constexpr int kNotLocatedCode = 2;
constexpr int kRunningCode = 1;

void showAlert(const UpdateError &error)
{
    auto *alert = new QMessageBox(QMessageBox::Warning, QStringLiteral("Quillmarsh"),
                                  error.localizedDescription, QMessageBox::Ok);
    alert->setAttribute(Qt::WA_DeleteOnClose);
    alert->setTextFormat(Qt::PlainText);
    // Modal without a loop of its own, so that a second one may be on its way.
    alert->open();
}

} // namespace

DMHelperAppDelegate::DMHelperAppDelegate(const UpdaterPorts &ports, Info info, QString programPath)
    : m_ports(ports), m_info(std::move(info)), m_programPath(std::move(programPath)),
      m_present(&showAlert)
{
}

DMHelperAppDelegate::~DMHelperAppDelegate() = default;

void DMHelperAppDelegate::setErrorPresenter(std::function<void(const UpdateError &)> present)
{
    m_present = std::move(present);
}

void DMHelperAppDelegate::applicationDidFinishLaunching(StatusBar &statusBar)
{
    const QAction *updating = m_menu.addAction(tr("Update in background"));
    connect(updating, &QAction::triggered, this, &DMHelperAppDelegate::updateMainApp);
    m_menu.addSeparator();
    const QAction *quitting = m_menu.addAction(tr("Quit"));
    connect(quitting, &QAction::triggered, qApp, &QCoreApplication::quit);
    statusBar.showItem(QIcon(QStringLiteral(":/AppIcon")),
                       QGuiApplication::applicationDisplayName(), &m_menu);
    // The helper lies three levels inside the main bundle.
    m_mainAppBundlePath = m_programPath.section(u'/', 0, -4);
    m_mainAppUpdater.reset();
}

void DMHelperAppDelegate::updateMainApp()
{
    if (m_mainAppUpdater) {
        fail(kBusyCode, tr("Updating process is in progress."));
        return;
    }
    auto updater = DM_SUUpdater::updaterForBundle(m_mainAppBundlePath, m_ports, m_info);
    if (!updater) {
        fail(kNotLocatedCode, tr("Main application bundle could not be located"));
        return;
    }
    if (isMainAppRunning()) {
        fail(kRunningCode, tr("Main application is running. It should update itself."));
        return;
    }
    m_mainAppUpdater = std::move(updater);
    m_mainAppUpdater->setDelegate(this);
    m_mainAppUpdater->checkForUpdatesInBackground();
}

void DMHelperAppDelegate::checkForUpdates(bool isOn)
{
    if (m_mainAppUpdater)
        m_mainAppUpdater->setAutomaticallyChecksForUpdates(isOn);
}

bool DMHelperAppDelegate::isMainAppRunning() const
{
    if (!DM_SUUpdater::isBundle(m_mainAppBundlePath))
        return false;
    const QStringList running = m_ports.runningApplications.bundlePaths(m_info.bundleIdentifier);
    const Installation installation =
        Installation::of(Installation::Evidence::of(m_mainAppBundlePath));
    return running.contains(m_mainAppBundlePath) ||
           std::any_of(running.begin(), running.end(),
                       [&](const QString &bundlePath) { return installation.holds(bundlePath); });
}

void DMHelperAppDelegate::fail(int code, const QString &description)
{
    abort(UpdateError{UpdateError::cocoaDomain(), code, description});
}

/// Ends the run under way, also when a second one was refused because of it: the next try starts
/// anew. This is deliberate.
void DMHelperAppDelegate::abort(const std::optional<UpdateError> &error)
{
    if (error) {
        qCWarning(lcUpdates).noquote()
            << QStringLiteral("ERROR: %1 - %2").arg(error->code).arg(error->localizedDescription);
        m_present(*error);
    }
    if (!m_mainAppUpdater)
        return;
    m_mainAppUpdater->setDelegate(nullptr);
    // Later, because it may be the updater that tells us.
    m_mainAppUpdater.release()->deleteLater();
}

bool DMHelperAppDelegate::updaterShouldCheckForBetaUpdates(const DM_SUUpdater &)
{
    const bool isBeta = UpdateVersion::isBeta(m_info.bundleShortVersionString.value_or(QString()));
    if (isBeta)
        qCInfo(lcUpdates, "%s\n", "update check for beta version enabled");
    return isBeta;
}

bool DMHelperAppDelegate::isUpdaterInTestMode(const DM_SUUpdater &)
{
    const bool isTest = m_ports.settings.boolForKey(QStringLiteral("checkForTestUpdates"));
    if (isTest)
        qCInfo(lcUpdates, "%s\n", "check for test updates enabled");
    return isTest;
}

bool DMHelperAppDelegate::updaterShouldRelaunchApplication(const DM_SUUpdater &)
{
    return !isMainAppRunning();
}

QString DMHelperAppDelegate::pathToRelaunchForUpdater(const DM_SUUpdater &)
{
    return m_programPath;
}

bool DMHelperAppDelegate::updaterMayShowModalAlert(const DM_SUUpdater &)
{
    return false;
}

void DMHelperAppDelegate::updaterDidAbortWithError(const DM_SUUpdater &,
                                                   const std::optional<UpdateError> &error)
{
    abort(error);
}

void DMHelperAppDelegate::updaterWillRelaunchApplication(const DM_SUUpdater &)
{
    QCoreApplication::quit();
}
