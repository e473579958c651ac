#pragma once

#include "Clipboard/LaunchAtLogin.h"
#include "Clipboard/preferences/PreferencesActions.h"
#include "Clipboard/welcome/WelcomeActions.h"
#include "Clipboard/window/HistoryActions.h"
#include "platform/Info.h"
#include "platform/Platform.h"

#include <QAction>
#include <QList>
#include <QPointer>
#include <QString>
#include <QUrl>

#include <memory>
#include <optional>
#include <vector>

class CCNPreferencesWindowController;
class ClipContext;
class ClipHistory;
class ClipItem;
class ClipPaster;
class ClipStore;
class ClipboardCapture;
class ClipboardWindow;
class DamagedSettingsQuestion;
class ApplicationUpdates;
class DMHelperAppDelegate;
class DevMateKit;
class ConsentNotice;
class HistoryNotices;
class HotKeyManager;
class HotKeyTextField;
class LiveSettings;
class MovingIn;
class PasteQueue;
class PreferencesApplicationViewController;
class PreferencesGeneralViewController;
class QTimer;
class StatusMenu;
class StoreModel;
class SwopState;
class TourGuide;
class TraylessHint;
class ViewController;
class WelcomeWindowController;
class WindowDelegate;

/// The one long-lived owner: builds the rooms' objects in their order, keeps them until the
/// application quits, and forwards what menus, shortcuts and windows ask for. The windows know only
/// the actions that they need of it. Owned by main; main thread only.
class AppDelegate : public HistoryActions, public PreferencesActions, public WelcomeActions
{
    Q_OBJECT

public:
    /// Creates the members; nothing is shown, read or recorded yet. `storeFolder` holds the
    /// history; `platform` must outlive this object. The process-wide shortcut singletons use its
    /// hot keys and settings from now on.
    AppDelegate(Platform &platform, Info info, const QString &storeFolder);
    ~AppDelegate() override;

    /// The start-up sequence: once, before the event loop runs.
    void applicationDidFinishLaunching();
    /// Ends what is under way, records what was not seen yet, and saves. Runs once, whatever ended
    /// the application.
    void applicationWillTerminate();
    /// Records what was not seen yet and saves it, for a session that may end without asking again.
    void saveContext();

    const Info &info() const { return m_info; }
    QString appName() const { return QStringLiteral("Quillmarsh"); }

    /// Writes to the log while trace is on.
    void logTrace(const QString &message) const;
    bool trace() const { return m_trace; }
    void setTrace(bool isOn) { m_trace = isOn; }

    // Status menu and global shortcuts
    /// Opens the history window; while it is open, steps to the next clip. The first-run welcome
    /// goes first.
    void launch() override;
    /// Exchanges the front application's selection with a clip that the user picks.
    void swop() override;
    void openPreferences();
    /// Puts a text on the pasteboard and records it as any copy. False when the display did not
    /// confirm it.
    [[nodiscard]] bool copyText(const QString &text);
    /// Records what was copied a moment ago, and sees what other programs have changed.
    void noticeCopies();
    /// Shows the preferences with the largest text that is recorded, ready to be changed.
    void openTextLimit();
    /// The same with the largest picture that is kept.
    void openPictureLimit();
    void clearAll();
    void help();
    void quit();
    /// Does what the menu item checkForUpdatesMI() does; without that item the program ends.
    void checkForUpdates();
    void showFeedbackDialog();

    // First run
    /// Shows the welcome, or brings it to the front; returns when it has reached its last page or
    /// was closed. Nothing when it was completed before, unless `force` says so all the same.
    void showWelcomeWindow(bool force);
    /// True when the welcome took the open shortcut, so that the history must not open.
    bool handleWelcomeWindow();
    // ^WelcomeActions
    void setOpenAtLogin(bool isOn) override;
    /// There is no update in progress in the application itself, so this deliberately changes
    /// nothing.
    void setCheckForUpdates(bool isOn) override;
    void setWelcomeWindowShown() override;
    void moveIn() override;
    void startTour() override;
    /// Always: whoever runs the application is told of its betas.
    bool updaterShouldCheckForBetaUpdates() const { return true; }

    // History window
    void setWindowVisible();
    /// Has the first opening find what it needs; once, when the start is over.
    void prepareWindow();
    /// Has all our windows make way, as for a paste, so that the previous application comes to the
    /// front.
    void hideApp();
    /// The clip at the table's selected index; none when the index is outside the list.
    std::shared_ptr<ClipItem> getSelectedItem() const;

    // Store
    /// Where the user's applications keep what is theirs, each in a folder of its own.
    QUrl applicationDocumentsDirectory() const;
    /// The shape that the stored records have.
    const StoreModel &managedObjectModel() const;
    /// The open store; the first use opens it, and one that cannot be opened ends the program.
    ClipStore &persistentStoreCoordinator() const;
    /// The one context through which clips are read and written.
    ClipContext &managedObjectContext() const;
    ClipContext &getManagedObjectContext() const { return managedObjectContext(); }

    // Clips
    // ^HistoryActions
    const std::vector<std::shared_ptr<ClipItem>> &getClipItemArr() const override;
    void filterClipItemArr(const std::optional<QString> &searchText) override;
    bool beginSearch(const QString &searchText) override;
    void finishSearch() override;
    void deleteItem(const std::shared_ptr<ClipItem> &item) override;
    void deleteItems(const std::vector<std::shared_ptr<ClipItem>> &items) override;
    int heldDeletions() const override;
    DeletedClips::Latest latestDeletion() const override;
    BroughtBack bringBack() override;
    void setPinned(const std::vector<std::shared_ptr<ClipItem>> &items, bool isPinned) override;
    void setPinnedOnly(bool isOn) override;
    bool isReadOnly() const override;
    void performPaste(int row, const std::optional<QString> &format) override;
    void pasteItems(const std::vector<std::shared_ptr<ClipItem>> &items,
                    const std::optional<QString> &format) override;
    void copyItems(const std::vector<std::shared_ptr<ClipItem>> &items) override;
    void queueItems(const std::vector<std::shared_ptr<ClipItem>> &items) override;
    void endQueue() override;
    void openFile() override;
    void revealInFinder() override;
    void hide() override;

    // ^PreferencesActions
    void maxItemsModified(qint64 maxItems) override;
    void setPasteboardString(const QString &text, const std::optional<QString> &rtf) override;
    void launchAtStartup(bool isOn) override;

    /// Our entry among the session's login items and the end of their list.
    LaunchAtLogin::Lookup applicationIsInStartUpItems() const;

    const SwopState &swopState() const { return *m_swopState; }
    ClipHistory &history() const { return *m_history; }
    ViewController *viewController() const;
    ClipboardWindow *window() const;
    CCNPreferencesWindowController *preferences() const { return m_preferences.get(); }
    PreferencesGeneralViewController &generalPane() const { return *m_preferencesGeneral; }
    PreferencesApplicationViewController &applicationPane() const
    {
        return *m_preferencesApplication;
    }
    DMHelperAppDelegate &dmManager() const;
    /// Starts the updater's interactive check; the status menu's entry triggers it.
    QAction *checkForUpdatesMI() const { return m_checkForUpdatesMI; }
    StatusMenu &statusMenu() const { return *m_statusMenu; }
    /// Never shown: it stands ready for whoever records a hot key of the hot-key center.
    HotKeyTextField &hotKeyField() const { return *m_hotKeyField; }
    WelcomeWindowController &welcomeWindowController() const { return *m_welcomeWindowController; }
    TourGuide &tourGuide() const { return *m_tourGuide; }

private:
    void initStatusBar();
    /// With how many clips are left of a queue.
    void showStatusItem();
    void loadPreferences();
    void showOpenShortcut();
    /// Asks over that window while the question is open, and says so in the history; nothing
    /// otherwise.
    void askAboutDamagedSettings(const QWidget *over = nullptr);
    void tellUnwritableHistory();
    void updateFooter();
    /// Whether the welcome takes all input. Then it comes to the front, and `wish`, if it is not
    /// null, comes true once the welcome is closed.
    bool waitsForWelcome(void (AppDelegate::*wish)());
    void welcomeWindowClosed();

    Platform &m_platform;
    const Info m_info;
    const QString m_storeFolder;
    bool m_trace = false;
    bool m_hasTerminated = false;

    LaunchAtLogin m_launchAtLogin;
    std::unique_ptr<PreferencesApplicationViewController> m_preferencesApplication;
    std::unique_ptr<PreferencesGeneralViewController> m_preferencesGeneral;
    std::unique_ptr<LiveSettings> m_liveSettings;
    std::unique_ptr<HotKeyManager> m_hotKeyManager;
    std::unique_ptr<HotKeyTextField> m_hotKeyField;
    std::unique_ptr<ClipHistory> m_history;
    std::unique_ptr<MovingIn> m_movingIn;
    std::unique_ptr<SwopState> m_swopState;
    std::unique_ptr<ClipboardCapture> m_capture;
    std::unique_ptr<ClipPaster> m_paster;
    std::unique_ptr<PasteQueue> m_queue;
    std::unique_ptr<ConsentNotice> m_consentNotice;
    std::unique_ptr<HistoryNotices> m_notices;
    std::unique_ptr<StatusMenu> m_statusMenu;
    std::unique_ptr<QTimer> m_timer;
    std::unique_ptr<WindowDelegate> m_windowController;
    std::unique_ptr<CCNPreferencesWindowController> m_preferences;
    std::unique_ptr<WelcomeWindowController> m_welcomeWindowController;
    std::unique_ptr<TourGuide> m_tourGuide;
    std::unique_ptr<ApplicationUpdates> m_updates;
    QList<void (AppDelegate::*)()> m_wishesAfterWelcome;
    QPointer<DamagedSettingsQuestion> m_damagedSettingsQuestion; ///< Deletes itself.
    QPointer<QAction> m_checkForUpdatesMI;                       ///< m_updates has it.
    std::unique_ptr<DevMateKit> m_devMateKit;
    std::unique_ptr<TraylessHint> m_traylessHint;
};
