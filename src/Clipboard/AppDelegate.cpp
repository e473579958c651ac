#include "Clipboard/AppDelegate.h"

#include "Clipboard/ApplicationUpdates.h"
#include "Clipboard/ConsentNotice.h"
#include "Clipboard/HistoryNotices.h"
#include "Clipboard/LiveSettings.h"
#include "Clipboard/MovingIn.h"
#include "Clipboard/QueueBadge.h"
#include "Clipboard/StatusMenu.h"
#include "Clipboard/TraylessHint.h"
#include "Clipboard/preferences/DamagedSettingsQuestion.h"
#include "Clipboard/preferences/PictureChoice.h"
#include "Clipboard/preferences/PreferencesApplicationViewController.h"
#include "Clipboard/preferences/PreferencesGeneralViewController.h"
#include "Clipboard/settings/GlobalShortcuts.h"
#include "Clipboard/welcome/TourGuide.h"
#include "Clipboard/welcome/WelcomeWindowController.h"
#include "Clipboard/window/ClipboardWindow.h"
#include "Clipboard/window/ViewController.h"
#include "Clipboard/window/WindowDelegate.h"
#include "history/ClipHistory.h"
#include "history/ClipItem.h"
#include "history/ClipPaster.h"
#include "history/ClipboardCapture.h"
#include "history/HotKeyManager.h"
#include "history/PasteQueue.h"
#include "history/SwopState.h"
#include "hotkey/HotKeyTextField.h"
#include "looks/WindowKeys.h"
#include "preferenceswindow/CCNPreferencesWindowController.h"
#include "shortcut/MASShortcutBinder.h"
#include "shortcut/MASShortcutValidator.h"
#include "updates/DevMateKit.h"
#include "updates/updater/DMHelperAppDelegate.h"

#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QTimer>

#include <chrono>
#include <utility>

namespace {

constexpr std::chrono::milliseconds kPollInterval{1000};

} // namespace

AppDelegate::AppDelegate(Platform &platform, Info info, const QString &storeFolder)
    : m_platform(platform), m_info(std::move(info)), m_storeFolder(storeFolder),
      m_launchAtLogin(*platform.loginItems, [this](const QString &line) { logTrace(line); })
{
    GlobalShortcuts::connect(*platform.keyboardLayout, *platform.hotKeys, *platform.symbolicHotKeys,
                             *platform.settings, [self = QPointer(this)] {
                                 const AppDelegate *delegate = self;
                                 return delegate && delegate->m_statusMenu
                                            ? delegate->m_statusMenu->model()
                                            : MenuModel();
                             });
    m_preferencesApplication = std::make_unique<PreferencesApplicationViewController>(
        *platform.settings, *platform.installedApplications, *platform.workspace);
    m_preferencesGeneral = std::make_unique<PreferencesGeneralViewController>(
        *this, *platform.settings, *platform.loginItems, *platform.hotKeys, *platform.capabilities,
        *platform.consent);
    m_welcomeWindowController = std::make_unique<WelcomeWindowController>(
        *this, *platform.settings, *platform.windowSpace, *platform.frontApplication,
        *platform.consent, storeFolder);
    connect(m_welcomeWindowController.get(), &WelcomeWindowController::closed, this,
            &AppDelegate::welcomeWindowClosed);
    m_tourGuide = std::make_unique<TourGuide>();
    m_updates = std::make_unique<ApplicationUpdates>(
        UpdaterPorts{*platform.clock, *platform.settings, *platform.runningApplications},
        *platform.frontApplication, m_info,
        ApplicationUpdates::Answers{[this] { return updaterShouldCheckForBetaUpdates(); },
                                    [this] { quit(); }});
    m_checkForUpdatesMI = m_updates->checkForUpdatesMI();
    m_devMateKit = std::make_unique<DevMateKit>(*platform.workspace, *platform.frontApplication,
                                                m_info, storeFolder);
    m_liveSettings = std::make_unique<LiveSettings>(*m_preferencesGeneral,
                                                    *m_preferencesApplication, *platform.settings);
    m_hotKeyManager = std::make_unique<HotKeyManager>(*platform.keySender);
    m_hotKeyField = std::make_unique<HotKeyTextField>(*platform.hotKeys, *platform.keyboardLayout);
    m_history = std::make_unique<ClipHistory>(storeFolder, *platform.clock, *m_liveSettings);
    m_movingIn = std::make_unique<MovingIn>(*m_history);
    connect(m_movingIn.get(), &MovingIn::offered, m_welcomeWindowController.get(),
            &WelcomeWindowController::offerToMoveIn);
    m_swopState = std::make_unique<SwopState>();
    m_capture = std::make_unique<ClipboardCapture>(*platform.pasteboard, *platform.frontApplication,
                                                   *m_history, *platform.notifications,
                                                   *m_liveSettings, *m_swopState);
    auto viewController = std::make_unique<ViewController>(
        *this, *m_swopState, *platform.workspace, *platform.fileQuestions, *platform.clock);
    m_windowController =
        std::make_unique<WindowDelegate>(std::move(viewController), *platform.windowSpace,
                                         *platform.frontApplication, *platform.keySender);
    m_paster = std::make_unique<ClipPaster>(
        ClipPaster::Ports{*platform.pasteboard, *platform.frontApplication, *platform.workspace,
                          *platform.notifications, *platform.clock},
        *m_liveSettings, *m_history, *m_capture, *m_swopState, *m_hotKeyManager,
        *m_windowController, ClipPaster::Waits());
    m_queue = std::make_unique<PasteQueue>(*platform.pasteboard, *m_history, *m_paster);
    connect(m_queue.get(), &PasteQueue::leftChanged, this, &AppDelegate::showStatusItem);
    m_notices = std::make_unique<HistoryNotices>(*m_capture, *m_paster, *platform.settings);
    m_consentNotice = std::make_unique<ConsentNotice>(*platform.consent, *platform.capabilities);
    connect(m_consentNotice.get(), &ConsentNotice::changed, this, [this] {
        updateFooter();
        showStatusItem();
    });
    connect(this->viewController(), &ViewController::footerButtonPressed, m_consentNotice.get(),
            &ConsentNotice::ask);
    connect(m_windowController.get(), &WindowDelegate::opens, m_notices.get(),
            &HistoryNotices::historyOpens);
    connect(m_windowController.get(), &WindowDelegate::opens, m_history.get(),
            &ClipHistory::windowOpens);
    connect(m_windowController.get(), &WindowDelegate::shown, this,
            [this] { askAboutDamagedSettings(window()); });
    connect(this->viewController(), &ViewController::didHide, this, [this] {
        m_notices->historyCloses();
        m_history->windowCloses();
        updateFooter();
    });
    connect(this->viewController(), &ViewController::closed, m_paster.get(),
            &ClipPaster::cancelSwop);
    connect(m_capture.get(), &ClipboardCapture::limitAsked, this, &AppDelegate::openTextLimit);
    connect(m_capture.get(), &ClipboardCapture::pictureLimitAsked, this,
            &AppDelegate::openPictureLimit);
    connect(m_history.get(), &ClipHistory::clipItemArrChanged, this,
            &AppDelegate::clipItemArrChanged);
    connect(m_history.get(), &ClipHistory::searched, this, &AppDelegate::searched);
    connect(m_history.get(), &ClipHistory::clipItemArrChanged, m_preferencesGeneral.get(),
            &PreferencesGeneralViewController::clipItemArrChanged);
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
    connect(m_timer.get(), &QTimer::timeout, m_capture.get(), &ClipboardCapture::timeout);
    m_timer->start(kPollInterval);
    logTrace(QStringLiteral("schedule timer complete"));
    m_history->loadClipItems();
    logTrace(QStringLiteral("load clipItems complete"));
    logTrace(QStringLiteral("load story board complete"));
    loadPreferences();
    logTrace(QStringLiteral("load preferences complete"));
    // Not earlier: the limits are read from the panes' controls.
    m_capture->begin();
    m_devMateKit->sendTrackingReport();
    m_devMateKit->setupIssuesController(DevMateKit::UnhandledIssues::Reported);
    logTrace(QStringLiteral("devmate setup complete"));
    m_traylessHint = std::make_unique<TraylessHint>(
        *m_platform.settings, *m_platform.statusBar, *m_platform.notifications,
        [this] { return m_liveSettings->isNotificationsEnabled(); });
    askAboutDamagedSettings();
    tellUnwritableHistory();
    // So that the first recording knows what the desktop keeps for itself.
    MASShortcutValidator::sharedValidator().prepare();
}

void AppDelegate::loadPreferences()
{
    m_preferences = std::make_unique<CCNPreferencesWindowController>(
        *m_platform.settings, *m_platform.windowSpace, *m_platform.frontApplication);
    m_preferences->setCenterToolbarItems(true);
    m_preferences->setShowToolbarItemsAsSegmentedControl(true);
    m_preferencesApplication->loadPreferences();
    m_preferencesGeneral->loadView();
    // At once, because the next copy may come before the next step.
    connect(m_preferencesGeneral->maxStringSizeTextField, &QLineEdit::textChanged, m_capture.get(),
            &ClipboardCapture::tellLargestUseful);
    connect(&m_preferencesGeneral->pictures(), &PictureChoice::changed, m_capture.get(),
            &ClipboardCapture::tellLargestUseful);
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
    viewController()->setOpenShortcutText(
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
    if (m_consentNotice->canConcern())
        actions.allowRecording = [this] { m_consentNotice->ask(); };
    m_statusMenu = std::make_unique<StatusMenu>(
        appName() + QStringLiteral(" v") + *m_info.bundleVersion, actions);
    showStatusItem();
}

void AppDelegate::showStatusItem()
{
    if (!m_statusMenu)
        return;
    const QString notRecorded = m_consentNotice->text();
    m_statusMenu->showNotRecorded(notRecorded, m_consentNotice->canAsk());
    if (const int left = m_queue->left(); left > 0) {
        m_platform.statusBar->showItem(
            queueBadge(left), tr("%Ln clips to be pasted", nullptr, left), m_statusMenu->menu());
        return;
    }
    // By its name where it is installed, so that panels draw it themselves, in their own colour.
    QIcon icon = QIcon::fromTheme(m_info.bundleIdentifier + QStringLiteral("-symbolic"),
                                  QIcon(QStringLiteral(":/stackImage")));
    icon.setIsMask(true);
    m_platform.statusBar->showItem(icon, notRecorded.isEmpty() ? appName() : notRecorded,
                                   m_statusMenu->menu());
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
    QStringList lines{m_consentNotice->text(), m_notices->text()};
    if (const int left = m_queue->left(); left > 0)
        lines.prepend(tr("%Ln clips are still to be pasted; Esc ends that", nullptr, left));
    lines.removeAll(QString());
    viewController()->setFooter(lines.join(u'\n'));
    viewController()->setFooterButton(m_consentNotice->canAsk() ? tr("Ask the Desktop...")
                                                                : QString());
}

void AppDelegate::tellUnwritableHistory()
{
    if (m_history->isReadOnly() && m_liveSettings->isNotificationsEnabled())
        m_platform.notifications->deliver(tr("Nothing is recorded"),
                                          tr("The history in %1 cannot be written.")
                                              .arg(QDir::toNativeSeparators(m_storeFolder)));
}
