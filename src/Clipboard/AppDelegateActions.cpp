// What is asked of the application: most of it is one line into a room.

#include "Clipboard/AppDelegate.h"

#include "Clipboard/ApplicationUpdates.h"
#include "Clipboard/HelpPage.h"
#include "Clipboard/MovingIn.h"
#include "Clipboard/preferences/PictureChoice.h"
#include "Clipboard/preferences/PreferencesGeneralViewController.h"
#include "Clipboard/welcome/TourGuide.h"
#include "Clipboard/welcome/WelcomeWindowController.h"
#include "Clipboard/window/ClipTableView.h"
#include "Clipboard/window/ClipboardWindow.h"
#include "Clipboard/window/PreviewPane.h"
#include "Clipboard/window/SearchField.h"
#include "Clipboard/window/ViewController.h"
#include "Clipboard/window/WindowDelegate.h"
#include "history/ClipHistory.h"
#include "history/ClipPaster.h"
#include "history/ClipStore.h"
#include "history/ClipboardCapture.h"
#include "history/PasteQueue.h"
#include "history/StoreModel.h"
#include "preferenceswindow/CCNPreferencesWindow.h"
#include "preferenceswindow/CCNPreferencesWindowController.h"
#include "updates/DevMateKit.h"
#include "updates/updater/DMHelperAppDelegate.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLoggingCategory>

#include <utility>

namespace {

Q_LOGGING_CATEGORY(lcApplication, "quillmarsh.application")

} // namespace

void AppDelegate::logTrace(const QString &message) const
{
    if (m_trace)
        qCInfo(lcApplication).noquote() << message;
}

void AppDelegate::launch()
{
    if (handleWelcomeWindow())
        return;
    m_windowController->noticeLostKeyboard();
    if (viewController()->isWindowKey()) {
        viewController()->next();
        return;
    }
    // A clip that was pasted a moment ago is the newest, and would move the rows at the next step.
    noticeCopies();
    setWindowVisible();
    viewController()->selectRow(0, true);
}

void AppDelegate::swop()
{
    // Later there would be no selection to swop.
    if (waitsForWelcome(nullptr))
        return;
    // A swop takes its selection from another program, never from a field of ours.
    m_windowController->forgetCoveredWindow();
    m_queue->end();
    m_paster->swop();
    m_windowController->unhide();
}

void AppDelegate::openPreferences()
{
    if (waitsForWelcome(&AppDelegate::openPreferences))
        return;
    m_preferences->showPreferencesWindow();
    askAboutDamagedSettings(m_preferences->window());
}

void AppDelegate::openTextLimit()
{
    if (waitsForWelcome(&AppDelegate::openTextLimit))
        return;
    openPreferences();
    m_preferencesGeneral->selectMaxStringSize();
}

void AppDelegate::noticeCopies()
{
    m_capture->readFromPasteboard();
    m_history->loadForeignChanges();
}

bool AppDelegate::copyText(const QString &text)
{
    if (!m_paster->setPasteboardString(text, std::nullopt))
        return false;
    m_capture->readFromPasteboard();
    return true;
}

void AppDelegate::openPictureLimit()
{
    if (waitsForWelcome(&AppDelegate::openPictureLimit))
        return;
    openPreferences();
    m_preferencesGeneral->pictures().selectSize();
}

void AppDelegate::clearAll()
{
    // A search of what is gone would say that nothing matches, as if there were something.
    viewController()->clearSearch();
    m_queue->end();
    m_history->clearAll();
}

void AppDelegate::help()
{
    openHelpPage(*m_platform.workspace);
}

void AppDelegate::quit()
{
    qCInfo(lcApplication, "Exit");
    QCoreApplication::quit();
}

void AppDelegate::checkForUpdates()
{
    if (waitsForWelcome(&AppDelegate::checkForUpdates))
        return;
    if (!m_checkForUpdatesMI)
        qFatal("The menu item that checks for updates is missing");
    m_checkForUpdatesMI->trigger();
}

DMHelperAppDelegate &AppDelegate::dmManager() const
{
    return m_updates->dmManager();
}

void AppDelegate::showFeedbackDialog()
{
    if (waitsForWelcome(&AppDelegate::showFeedbackDialog))
        return;
    m_devMateKit->showFeedbackDialog(DevMateKit::FeedbackMode::Dialog);
}

void AppDelegate::showWelcomeWindow(bool force)
{
    if (!force && m_preferencesGeneral->welcomeWindowShown())
        return;
    m_movingIn->look();
    m_welcomeWindowController->showWelcomeWindow();
}

bool AppDelegate::handleWelcomeWindow()
{
    // Damaged settings do not tell whether it was shown, and would not keep what is chosen in it.
    if (!m_preferencesGeneral->welcomeWindowShown() && !m_platform.settings->areSettingsDamaged()) {
        showWelcomeWindow(false);
        return true;
    }
    // One that was asked for again runs modally although it was completed before.
    if (m_welcomeWindowController->isWindowOpen() || m_welcomeWindowController->isModal())
        m_welcomeWindowController->closeWindow();
    return false;
}

/// While the welcome runs modally no other window takes input, so none is opened beside it.
bool AppDelegate::waitsForWelcome(void (AppDelegate::*wish)())
{
    if (!m_welcomeWindowController->isModal())
        return false;
    m_welcomeWindowController->showWelcomeWindow();
    if (wish && !m_wishesAfterWelcome.contains(wish))
        m_wishesAfterWelcome.append(wish);
    return true;
}

void AppDelegate::welcomeWindowClosed()
{
    // Later, because the welcome's own call is still under way.
    const auto wishes = std::exchange(m_wishesAfterWelcome, {});
    for (const auto wish : wishes)
        QMetaObject::invokeMethod(this, wish, Qt::QueuedConnection);
}

void AppDelegate::setOpenAtLogin(bool isOn)
{
    m_preferencesGeneral->setOpenAtLogin(isOn);
}

void AppDelegate::setCheckForUpdates(bool isOn)
{
    dmManager().checkForUpdates(isOn);
}

void AppDelegate::setWelcomeWindowShown()
{
    m_preferencesGeneral->setWelcomeWindowShown();
}

void AppDelegate::moveIn()
{
    m_movingIn->take();
}

void AppDelegate::startTour()
{
    setWindowVisible();
    viewController()->selectRow(0, true);
    m_tourGuide->startTour(*viewController()->searchTextField(), *viewController()->clipTableView(),
                           *viewController()->textFieldView());
}

ViewController *AppDelegate::viewController() const
{
    return m_windowController->getViewController();
}

ClipboardWindow *AppDelegate::window() const
{
    return m_windowController->window();
}

void AppDelegate::setWindowVisible()
{
    m_windowController->showWindow();
}

void AppDelegate::prepareWindow()
{
    m_windowController->prepare();
}

void AppDelegate::hideApp()
{
    m_windowController->hideApp();
}

QUrl AppDelegate::applicationDocumentsDirectory() const
{
    return QUrl::fromLocalFile(QFileInfo(m_storeFolder).absolutePath());
}

const StoreModel &AppDelegate::managedObjectModel() const
{
    return managedObjectContext().store().model();
}

ClipStore &AppDelegate::persistentStoreCoordinator() const
{
    ClipStore &store = managedObjectContext().store();
    store.open();
    return store;
}

ClipContext &AppDelegate::managedObjectContext() const
{
    return m_history->managedObjectContext();
}

void AppDelegate::maxItemsModified(qint64 maxItems)
{
    m_history->maxItemsModified(maxItems);
}

void AppDelegate::setPasteboardString(const QString &text, const std::optional<QString> &rtf)
{
    m_paster->setPasteboardString(text, rtf);
}

LaunchAtLogin::Lookup AppDelegate::applicationIsInStartUpItems() const
{
    return m_launchAtLogin.applicationIsInStartUpItems();
}

void AppDelegate::launchAtStartup(bool isOn)
{
    m_launchAtLogin.launchAtStartup(isOn);
}
