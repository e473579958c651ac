#pragma once

#include "platform/Info.h"
#include "updates/updater/DM_SUUpdaterDelegate.h"
#include "updates/updater/UpdaterPorts.h"

#include <QAction>
#include <QString>

#include <functional>
#include <memory>
#include <optional>

class DMHelperAppDelegate;
class DM_SUUpdater;
class FrontApplication;

/// The application's updater with the menu item that starts its interactive check, the update
/// helper, and the answers that the updater wants. Owned by AppDelegate.
class ApplicationUpdates : public DM_SUUpdaterDelegate
{
public:
    struct Answers
    {
        std::function<bool()> shouldCheckForBetaUpdates;
        std::function<void()> quit; ///< Called when a relaunch waits for our end.
    };

    ApplicationUpdates(const UpdaterPorts &ports, FrontApplication &frontApplication,
                       const Info &info, Answers answers);
    ~ApplicationUpdates() override;

    QAction *checkForUpdatesMI() { return &m_checkForUpdatesMI; }
    DMHelperAppDelegate &dmManager() const { return *m_dmManager; }
    DM_SUUpdater &updater() const { return *m_updater; }

    // ^DM_SUUpdaterDelegate
    bool updaterShouldCheckForBetaUpdates(const DM_SUUpdater &updater) override;
    bool isUpdaterInTestMode(const DM_SUUpdater &updater) override;
    bool updaterShouldRelaunchApplication(const DM_SUUpdater &updater) override;
    QString pathToRelaunchForUpdater(const DM_SUUpdater &updater) override;
    void updaterWillRelaunchApplication(const DM_SUUpdater &updater) override;

private:
    const Answers m_answers;
    std::unique_ptr<DMHelperAppDelegate> m_dmManager;
    std::unique_ptr<DM_SUUpdater> m_updater;
    QAction m_checkForUpdatesMI;
};
