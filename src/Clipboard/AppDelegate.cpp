#include "Clipboard/AppDelegate.h"

#include "Clipboard/ApplicationHiding.h"
#include "Clipboard/ApplicationUpdates.h"
#include "Clipboard/HelpPage.h"
#include "Clipboard/HistoryNotices.h"
#include "Clipboard/LiveSettings.h"
#include "Clipboard/StatusMenu.h"
#include "Clipboard/TraylessHint.h"
#include "Clipboard/preferences/DamagedSettingsQuestion.h"
#include "Clipboard/preferences/PreferencesApplicationViewController.h"
#include "Clipboard/preferences/PreferencesGeneralViewController.h"
#include "Clipboard/settings/GlobalShortcuts.h"
#include "Clipboard/welcome/TourGuide.h"
#include "Clipboard/welcome/WelcomeWindowController.h"
#include "Clipboard/window/ClipTableView.h"
#include "Clipboard/window/ClipTextView.h"
#include "Clipboard/window/ClipboardWindow.h"
#include "Clipboard/window/PreviewPane.h"
#include "Clipboard/window/SearchField.h"
#include "Clipboard/window/ViewController.h"
#include "Clipboard/window/WindowDelegate.h"
#include "history/ClipHistory.h"
#include "history/ClipItem.h"
#include "history/ClipPaster.h"
#include "history/ClipStore.h"
#include "history/ClipboardCapture.h"
#include "history/HistoryWindow.h"
#include "history/HotKeyManager.h"
#include "history/StoreModel.h"
#include "history/SwopState.h"
#include "hotkey/HotKeyTextField.h"
#include "looks/WindowKeys.h"
#include "preferenceswindow/CCNPreferencesWindow.h"
#include "preferenceswindow/CCNPreferencesWindowController.h"
#include "shortcut/MASShortcutBinder.h"
#include "shortcut/MASShortcutValidator.h"
#include "updates/DevMateKit.h"
#include "updates/updater/DMHelperAppDelegate.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QLoggingCategory>
#include <QTimer>

#include <chrono>

namespace {

Q_LOGGING_CATEGORY(lcApplication, "quillmarsh.application")

constexpr std::chrono::milliseconds kPollInterval{1000};

} // namespace

/// The window operations that a paste needs.
class AppDelegate::PasteWindow : public HistoryWindow
{
public:
    explicit PasteWindow(AppDelegate &delegate) : m_delegate(delegate) {}

    // ^HistoryWindow
    bool isOursInFront() const override { return m_delegate.isOursInFront(); }
    void hideApp() override { m_delegate.hideApp(); }
    void cancelOperation() override { m_delegate.hideApp(); }
    void showAtMouse() override { m_delegate.setWindowVisible(); }

private:
    AppDelegate &m_delegate;
};

AppDelegate::AppDelegate(Platform &platform, Info info, const QString &storeFolder)
    : m_platform(platform), m_info(std::move(info)), m_storeFolder(storeFolder),
      m_launchAtLogin(*platform.loginItems, [this](const QString &line) { logTrace(line); })
{
    GlobalShortcuts::connect(platform, [self = QPointer(this)] {
        const AppDelegate *delegate = self.data();
        const StatusMenu *menu = delegate ? delegate->m_statusMenu.get() : nullptr;
        return menu ? menu->model() : MenuModel();
    });
    m_preferencesApplication = std::make_unique<PreferencesApplicationViewController>(platform);
    m_preferencesGeneral = std::make_unique<PreferencesGeneralViewController>(platform);
    m_welcomeWindowController = std::make_unique<WelcomeWindowController>(platform, storeFolder);
    connect(m_welcomeWindowController.get(), &WelcomeWindowController::closed, this,
            &AppDelegate::welcomeWindowClosed);
    m_tourGuide = std::make_unique<TourGuide>();
    m_updates = std::make_unique<ApplicationUpdates>(
        platform, m_info,
        ApplicationUpdates::Answers{[this] { return updaterShouldCheckForBetaUpdates(); },
                                    [this] { quit(); }});
    m_checkForUpdatesMI = m_updates->checkForUpdatesMI();
    m_devMateKit = std::make_unique<DevMateKit>(platform, m_info, storeFolder);
    m_liveSettings = std::make_unique<LiveSettings>(*m_preferencesGeneral,
                                                    *m_preferencesApplication, *platform.settings);
    m_hiding = std::make_unique<ApplicationHiding>();
    m_pasteWindow = std::make_unique<PasteWindow>(*this);
    m_hotKeyManager = std::make_unique<HotKeyManager>(*platform.keySender);
    m_hotKeyField = std::make_unique<HotKeyTextField>(*platform.hotKeys, *platform.keyboardLayout);
    m_history = std::make_unique<ClipHistory>(storeFolder, *platform.clock, *m_liveSettings);
    m_swopState = std::make_unique<SwopState>();
    m_capture = std::make_unique<ClipboardCapture>(*platform.pasteboard, *platform.frontApplication,
                                                   *m_history, *platform.notifications,
                                                   *m_liveSettings, *m_swopState);
    // The limits are read from the panes' controls, which start-up loads.
    m_capture->setPaused(true);
    m_paster = std::make_unique<ClipPaster>(platform, *m_liveSettings, *m_history, *m_capture,
                                            *m_swopState, *m_hotKeyManager, *m_pasteWindow,
                                            ClipPaster::Waits());
    m_notices = std::make_unique<HistoryNotices>(*m_capture, *m_paster);
    connect(m_capture.get(), &ClipboardCapture::limitAsked, this, &AppDelegate::openTextLimit);
    connect(m_history.get(), &ClipHistory::clipItemArrChanged, this,
            &AppDelegate::clipItemArrChanged);
    new WindowKeys(
        *platform.keyboardLayout, [this] { quit(); }, this);
}

AppDelegate::~AppDelegate()
{
    applicationWillTerminate();
    delete m_damagedSettingsQuestion;
}

void AppDelegate::applicationDidFinishLaunching()
{
    logTrace(QStringLiteral("applicationDidFinishLaunching start"));
    initStatusBar();
    logTrace(QStringLiteral("initStatusBar complete"));
    m_timer = std::make_unique<QTimer>();
    connect(m_timer.get(), &QTimer::timeout, this, &AppDelegate::timeout);
    m_timer->start(kPollInterval);
    logTrace(QStringLiteral("schedule timer complete"));
    m_history->loadClipItems();
    logTrace(QStringLiteral("load clipItems complete"));
    m_windowController = std::make_unique<WindowDelegate>(*this);
    logTrace(QStringLiteral("load story board complete"));
    m_window = m_windowController->window();
    m_viewController = m_windowController->getViewController();
    loadPreferences();
    logTrace(QStringLiteral("load preferences complete"));
    m_welcomeWindowController->setAppDelegate(this);
    m_capture->setPaused(false);
    m_capture->readFromPasteboard();
    m_devMateKit->sendTrackingReport();
    m_devMateKit->setupIssuesController(DevMateKit::UnhandledIssues::Reported);
    logTrace(QStringLiteral("devmate setup complete"));
    m_traylessHint = std::make_unique<TraylessHint>(
        m_platform, [this] { return m_liveSettings->isNotificationsEnabled(); });
    askAboutDamagedSettings();
    tellUnwritableHistory();
    // So that the first recording knows what the desktop keeps for itself.
    MASShortcutValidator::sharedValidator().prepare();
}

void AppDelegate::loadPreferences()
{
    m_preferences = std::make_unique<CCNPreferencesWindowController>(m_platform);
    m_preferences->setCenterToolbarItems(true);
    m_preferences->setShowToolbarItemsAsSegmentedControl(true);
    m_preferencesApplication->loadPreferences();
    m_preferencesGeneral->setAppDelegate(this);
    m_preferencesGeneral->loadView();
    // At once, because the next copy may come before the next step.
    connect(m_preferencesGeneral->maxStringSizeTextField, &QLineEdit::textChanged, m_capture.get(),
            &ClipboardCapture::tellLargestUsefulText);
    m_preferencesGeneral->loadPreferences();
    m_preferences->setPreferencesViewControllers(
        {m_preferencesGeneral.get(), m_preferencesApplication.get()});
    showOpenShortcut();
    connect(MASShortcutBinder::sharedBinder(), &MASShortcutBinder::hotKeyStateChanged, this,
            [this](const QString &key) {
                if (key == SettingsKeys::kOpenShortCut)
                    showOpenShortcut();
            });
}

void AppDelegate::showOpenShortcut()
{
    if (m_viewController)
        m_viewController->setOpenShortcutText(
            GlobalShortcuts::workingSentenceName(*m_platform.settings, SettingsKeys::kOpenShortCut)
                .value_or(QString()));
}

void AppDelegate::applicationWillTerminate()
{
    if (std::exchange(m_hasTerminated, true))
        return;
    m_preferencesGeneral->applicationWillTerminate();
    m_paster->finish();
    saveContext();
    m_platform.pasteboard->shutDown();
}

void AppDelegate::saveContext()
{
    // What was copied or pasted since the last step would be as if it had never been.
    m_capture->readFromPasteboard();
    m_history->saveContext();
}

void AppDelegate::logTrace(const QString &message) const
{
    if (m_trace)
        qCInfo(lcApplication).noquote() << message;
}

void AppDelegate::initStatusBar()
{
    if (!m_info.bundleVersion)
        qFatal("CFBundleVersion is missing");
    StatusMenu::Actions actions;
    actions.checkForUpdates = [this] { checkForUpdates(); };
    actions.openPreferences = [this] { openPreferences(); };
    // Later, because the welcome may keep it for long, and the menu's own call must not last.
    actions.launch = [this] {
        QMetaObject::invokeMethod(this, &AppDelegate::launch, Qt::QueuedConnection);
    };
    actions.clearAll = [this] { clearAll(); };
    actions.help = [this] { help(); };
    actions.showFeedbackDialog = [this] { showFeedbackDialog(); };
    actions.quit = [this] { quit(); };
    m_statusMenu = std::make_unique<StatusMenu>(
        appName() + QStringLiteral(" v") + *m_info.bundleVersion, actions);
    // By its name where it is installed, so that panels draw it themselves, in their own colour.
    QIcon icon = QIcon::fromTheme(m_info.bundleIdentifier + QStringLiteral("-symbolic"),
                                  QIcon(QStringLiteral(":/stackImage")));
    icon.setIsMask(true);
    m_platform.statusBar->showItem(icon, appName(), m_statusMenu->menu());
}

void AppDelegate::askAboutDamagedSettings(const QWidget *over)
{
    const bool isOpen = m_platform.settings->areSettingsDamaged();
    updateFooter();
    if (!isOpen)
        return;
    if (!m_damagedSettingsQuestion) {
        m_damagedSettingsQuestion = new DamagedSettingsQuestion(*m_platform.settings);
        connect(m_damagedSettingsQuestion, &DamagedSettingsQuestion::quitChosen, this,
                &AppDelegate::quit);
        connect(m_damagedSettingsQuestion, &DamagedSettingsQuestion::freshSettingsChosen, this,
                [this] { askAboutDamagedSettings(); });
    }
    m_damagedSettingsQuestion->ask(over ? over->windowHandle() : nullptr);
}

void AppDelegate::updateFooter()
{
    if (!m_viewController)
        return;
    QStringList lines;
    if (m_platform.settings->areSettingsDamaged())
        lines.append(DamagedSettingsQuestion::notice());
    lines.append(m_notices->text());
    lines.removeAll(QString());
    m_viewController->setFooter(lines.join(u'\n'));
}

void AppDelegate::tellUnwritableHistory()
{
    if (m_history->isReadOnly() && m_liveSettings->isNotificationsEnabled())
        m_platform.notifications->deliver(tr("Nothing is recorded"),
                                          tr("The history in %1 cannot be written.")
                                              .arg(QDir::toNativeSeparators(m_storeFolder)));
}

void AppDelegate::timeout()
{
    m_capture->timeout();
}

void AppDelegate::launch()
{
    if (handleWelcomeWindow())
        return;
    if (m_windowController)
        m_windowController->noticeLostKeyboard();
    if (m_viewController && m_viewController->isWindowKey()) {
        m_viewController->next();
        return;
    }
    // A clip that was pasted a moment ago is the newest, and would move the rows at the next step.
    m_capture->readFromPasteboard();
    m_history->loadForeignChanges();
    setWindowVisible();
    if (m_viewController)
        m_viewController->selectRow(0, true);
}

void AppDelegate::swop()
{
    // Later there would be no selection to swop.
    if (waitsForWelcome(nullptr))
        return;
    // A swop takes its selection from another program, never from a field of ours.
    if (m_windowController)
        m_windowController->forgetCoveredWindow();
    m_paster->swop();
    m_hiding->unhide();
}

void AppDelegate::openPreferences()
{
    if (waitsForWelcome(&AppDelegate::openPreferences))
        return;
    if (m_preferences)
        m_preferences->showPreferencesWindow();
    askAboutDamagedSettings(m_preferences ? m_preferences->window() : nullptr);
}

void AppDelegate::openTextLimit()
{
    if (waitsForWelcome(&AppDelegate::openTextLimit))
        return;
    openPreferences();
    m_preferencesGeneral->selectMaxStringSize();
}

void AppDelegate::clearAll()
{
    // A search of what is gone would say that nothing matches, as if there were something.
    if (m_viewController)
        m_viewController->clearSearch();
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
    if (force || !m_preferencesGeneral->welcomeWindowShown())
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

void AppDelegate::startTour()
{
    if (!m_viewController)
        qFatal("There is no history window to tour");
    setWindowVisible();
    m_viewController->selectRow(0, true);
    m_tourGuide->setAppDelegate(this);
    m_tourGuide->startTour(m_viewController->searchTextField(), m_viewController->clipTableView(),
                           m_viewController->textFieldView());
}

void AppDelegate::setCheckForUpdates(bool isOn)
{
    dmManager().checkForUpdates(isOn);
}

void AppDelegate::setWindowVisible()
{
    if (m_window && !m_window->isVisible())
        m_notices->historyOpens();
    if (m_windowController)
        m_windowController->showWindow();
    askAboutDamagedSettings(m_window);
}

void AppDelegate::hide()
{
    if (m_window)
        m_window->close();
}

void AppDelegate::hideApp()
{
    if (!m_windowController)
        return;
    m_windowController->cancelOperation();
    m_hiding->hide(m_windowController->coveredWindow());
}

bool AppDelegate::isOursInFront() const
{
    return (m_viewController && m_viewController->isWindowKey()) || QApplication::activeWindow();
}

void AppDelegate::windowClosed()
{
    m_notices->historyCloses();
    updateFooter();
    m_paster->cancelSwop();
}

std::shared_ptr<ClipItem> AppDelegate::getSelectedItem() const
{
    if (!m_viewController)
        return nullptr;
    const int row = m_viewController->clipTableView()->selectedIdx().value_or(-1);
    const auto &items = m_history->clipItemArr();
    if (row < 0 || static_cast<size_t>(row) >= items.size())
        return nullptr;
    return items[static_cast<size_t>(row)];
}

void AppDelegate::openFile()
{
    const std::shared_ptr<ClipItem> item = getSelectedItem();
    const std::optional<QString> path = item ? item->filepath() : std::nullopt;
    if (!path || !m_platform.workspace->fileExists(*path))
        return;
    hide();
    if (!m_platform.workspace->openFile(*path))
        qCWarning(lcApplication, "no application could be started for the file");
}

void AppDelegate::revealInFinder()
{
    const std::shared_ptr<ClipItem> item = getSelectedItem();
    if (item && item->filepath())
        m_platform.workspace->selectFile(*item->filepath(), QFileInfo(*item->filepath()).path());
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

const std::vector<std::shared_ptr<ClipItem>> &AppDelegate::getClipItemArr() const
{
    return m_history->getClipItemArr();
}

void AppDelegate::filterClipItemArr(const std::optional<QString> &searchText)
{
    m_history->filterClipItemArr(searchText);
}

void AppDelegate::deleteItem(const std::shared_ptr<ClipItem> &item)
{
    m_history->deleteItem(item);
}

void AppDelegate::performPaste(int row, const std::optional<QString> &format)
{
    // Return where nothing matches ends a swop like closing the window does: the selection that it
    // holds may be replaced by the next paste and stand nowhere else.
    if (row < 0)
        m_paster->cancelSwop();
    m_paster->performPaste(row, format);
    m_hiding->unhide();
    if (m_windowController)
        m_windowController->forgetCoveredWindow();
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
