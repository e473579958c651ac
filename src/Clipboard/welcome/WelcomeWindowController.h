#pragma once

#include "Clipboard/welcome/ModalSession.h"
#include "Clipboard/welcome/PageSlider.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <array>
#include <functional>
#include <memory>

class Consent;
class FrontApplication;
class SettingsStore;
class WelcomeActions;
class WelcomePage;
class WelcomePage1Controller;
class WelcomeWindow;
class WelcomeWindowView;
class WindowSpace;

/// Shows the first-run window and leads through its four pages. Owned by AppDelegate. Until the
/// last page is reached the window runs modally: showWelcomeWindow() returns only then, or when the
/// window was closed. The window is made when it is first shown; most starts never need it.
class WelcomeWindowController : public QObject
{
    Q_OBJECT

public:
    /// `storeFolder` is where the history is kept; all else must outlive the controller.
    WelcomeWindowController(WelcomeActions &appDelegate, const SettingsStore &settings,
                            WindowSpace &windowSpace, FrontApplication &frontApplication,
                            Consent &consent, const QString &storeFolder);
    ~WelcomeWindowController() override;

    /// Shows the first page and runs the window modally. While it runs already, only brings it to
    /// the front.
    void showWelcomeWindow();
    /// Has the first page offer to take along the clips of another program; `line` says what they
    /// are.
    void offerToMoveIn(const QString &line);
    void nextClicked();
    void previousClicked();
    void windowWillClose();
    /// Ends a modal session and closes the window.
    void closeWindow();

    /// Whether the window stands on its last page; true also after it was closed on an earlier one.
    bool isWindowOpen() const { return m_isWindowOpen; }
    /// Whether everything else waits for the welcome.
    bool isModal() const { return m_session.isRunning(); }
    int currentPageIdx() const { return m_currentPageIdx; }

    /// Null until the window is first shown, as are its parts.
    WelcomeWindow *window() const { return m_window.get(); }
    WelcomeWindowView *view() const { return m_view; }
    WelcomePage1Controller *welcomePage1ViewController() const { return m_page1; }

Q_SIGNALS:
    /// The window is gone, whoever closed it, and no session runs any more.
    void closed();

private:
    void loadWindow();
    void addShortcut(const QKeySequence &keys, const std::function<void()> &action);
    void setPageView(QWidget *page, PageSlider::Movement movement);
    void showPage(int index, PageSlider::Movement movement);
    void applyPage1();
    void showOffer();
    void offerToAsk();
    void tourClicked();
    void returnPressed();
    void showShortcuts();
    void askForRoom();
    QString absentShortcutsLine() const;
    QString openShortcutLine() const;
    void applyTheme();
    void bringToFront();

    WelcomeActions &m_appDelegate;
    const SettingsStore &m_settings;
    WindowSpace &m_windowSpace;
    FrontApplication &m_frontApplication;
    Consent &m_consent;
    const QString m_storeFolder;
    ModalSession m_session;
    std::unique_ptr<WelcomeWindow> m_window;
    WelcomeWindowView *m_view = nullptr;              ///< The window's.
    WelcomePage1Controller *m_page1 = nullptr;        ///< The view's, as all pages.
    std::array<WelcomePage *, 4> m_viewControllers{}; ///< In page order.
    std::function<void(const QStringList &)> m_setOpenKeys;
    std::function<void(const QStringList &)> m_setSwopKeys;
    QString m_offer; ///< Empty without one.
    int m_currentPageIdx = 0;
    bool m_isWindowOpen = false;
};
