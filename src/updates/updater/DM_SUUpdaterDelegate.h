#pragma once

#include "updates/updater/UpdateError.h"

#include <QString>

#include <functional>
#include <optional>

class DM_SUUpdater;

/// Whoever answers for the application that an updater updates; what is not overridden is what an
/// updater does by itself. Every call comes on the main thread.
class DM_SUUpdaterDelegate
{
public:
    DM_SUUpdaterDelegate() = default;
    DM_SUUpdaterDelegate(const DM_SUUpdaterDelegate &) = delete;
    DM_SUUpdaterDelegate &operator=(const DM_SUUpdaterDelegate &) = delete;
    virtual ~DM_SUUpdaterDelegate() = default;

    virtual bool updaterShouldCheckForBetaUpdates(const DM_SUUpdater &) { return false; }
    virtual bool isUpdaterInTestMode(const DM_SUUpdater &) { return false; }
    /// Whether pathToRelaunchForUpdater() is started after an installation.
    virtual bool updaterShouldRelaunchApplication(const DM_SUUpdater &) { return false; }
    /// An update without windows is downloaded and would be installed when the program quits;
    /// `immediateInstallation` installs it now, and does nothing once the updater is gone.
    virtual void updaterWillInstallUpdateOnQuit(const DM_SUUpdater &, const QString &,
                                                std::function<void()> immediateInstallation)
    {
        immediateInstallation();
    }
    virtual QString pathToRelaunchForUpdater(const DM_SUUpdater &) { return {}; }
    /// Whether the updater may show an alert of its own in a run that the user did not ask for.
    virtual bool updaterMayShowModalAlert(const DM_SUUpdater &) { return true; }
    /// The run is over without an installation; no error when there was simply nothing newer.
    virtual void updaterDidAbortWithError(const DM_SUUpdater &, const std::optional<UpdateError> &)
    {
    }
    /// The update is installed and whatever is to be relaunched waits for this process to end.
    virtual void updaterWillRelaunchApplication(const DM_SUUpdater &) {}
};
