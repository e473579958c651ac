#include "Clipboard/ApplicationUpdates.h"

#include "platform/FrontApplication.h"
#include "platform/OwnProgram.h"
#include "updates/updater/DMHelperAppDelegate.h"
#include "updates/updater/DM_SUUpdater.h"

#include <QCoreApplication>
#include <QWindow>

#include <utility>

ApplicationUpdates::ApplicationUpdates(const UpdaterPorts &ports,
                                       FrontApplication &frontApplication, const Info &info,
                                       Answers answers)
    : m_answers(std::move(answers)), m_dmManager(std::make_unique<DMHelperAppDelegate>(
                                         ports, info, QCoreApplication::applicationFilePath())),
      m_updater(DM_SUUpdater::updaterForMainBundle(ports, info))
{
    m_updater->setDelegate(this);
    QObject::connect(m_updater.get(), &DM_SUUpdater::frontWanted, &frontApplication,
                     &FrontApplication::activate);
    m_checkForUpdatesMI.setText(QCoreApplication::translate("StatusMenu", "Check For Updates..."));
    QObject::connect(&m_checkForUpdatesMI, &QAction::triggered, m_updater.get(),
                     &DM_SUUpdater::checkForUpdates);
}

ApplicationUpdates::~ApplicationUpdates() = default;

bool ApplicationUpdates::updaterShouldCheckForBetaUpdates(const DM_SUUpdater &)
{
    return m_answers.shouldCheckForBetaUpdates();
}

bool ApplicationUpdates::isUpdaterInTestMode(const DM_SUUpdater &updater)
{
    return m_dmManager->isUpdaterInTestMode(updater);
}

bool ApplicationUpdates::updaterShouldRelaunchApplication(const DM_SUUpdater &)
{
    return true;
}

QString ApplicationUpdates::pathToRelaunchForUpdater(const DM_SUUpdater &)
{
    return OwnProgram::startPath();
}

void ApplicationUpdates::updaterWillRelaunchApplication(const DM_SUUpdater &)
{
    m_answers.quit();
}
