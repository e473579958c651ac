#pragma once

#include "platform/Info.h"
#include "updates/updater/DM_SUUpdaterDelegate.h"
#include "updates/updater/UpdaterPorts.h"

#include <QMenu>
#include <QObject>
#include <QString>

#include <functional>
#include <memory>
#include <optional>

class DM_SUUpdater;
class StatusBar;

/// Updates the main application from outside it, and answers for it while its updater works. Owned
/// by the helper program, where it has the status item and starts the runs; the main application
/// owns one too and forwards to it. Main thread.
class DMHelperAppDelegate : public QObject, public DM_SUUpdaterDelegate
{
    Q_OBJECT

public:
    /// `programPath` is the absolute path of the program that this runs in. `info` is that of the
    /// main bundle.
    DMHelperAppDelegate(const UpdaterPorts &ports, Info info, QString programPath);
    ~DMHelperAppDelegate() override;

    /// The start of the helper program, whose status item goes onto `statusBar`.
    void applicationDidFinishLaunching(StatusBar &statusBar);
    /// Updates the main application in the background, or says in an alert why not.
    void updateMainApp();
    /// Does nothing.
    void activateBeta() {}
    /// Switches the periodic checks of the updater at work; without one, nothing.
    void checkForUpdates(bool isOn);
    /// Whether the main application runs from mainAppBundlePath(), or from the folder of another
    /// version of the same installation: only one of them is current, and any may run.
    bool isMainAppRunning() const;

    QString mainAppBundlePath() const { return m_mainAppBundlePath; }
    /// The updater while a run is in progress; else null.
    DM_SUUpdater *mainAppUpdater() const { return m_mainAppUpdater.get(); }

    /// Shows an error to the user; an alert unless it is replaced.
    void setErrorPresenter(std::function<void(const UpdateError &)> present);

    // ^DM_SUUpdaterDelegate
    bool updaterShouldCheckForBetaUpdates(const DM_SUUpdater &updater) override;
    bool isUpdaterInTestMode(const DM_SUUpdater &updater) override;
    bool updaterShouldRelaunchApplication(const DM_SUUpdater &updater) override;
    QString pathToRelaunchForUpdater(const DM_SUUpdater &updater) override;
    bool updaterMayShowModalAlert(const DM_SUUpdater &updater) override;
    void updaterDidAbortWithError(const DM_SUUpdater &updater,
                                  const std::optional<UpdateError> &error) override;
    void updaterWillRelaunchApplication(const DM_SUUpdater &updater) override;

private:
    void abort(const std::optional<UpdateError> &error);
    void fail(int code, const QString &description);

    const UpdaterPorts m_ports;
    const Info m_info;
    const QString m_programPath;
    QMenu m_menu; ///< The status item's.
    QString m_mainAppBundlePath;
    std::unique_ptr<DM_SUUpdater> m_mainAppUpdater;
    std::function<void(const UpdateError &)> m_present;
};
