#pragma once

#include "Clipboard/ApplicationHiding.h"
#include "history/HistoryWindow.h"

#include <QObject>

#include <memory>

class ClipboardWindow;
class ViewController;
class WindowDelegate;

/// The history window as the rest of the application uses it: shows and hides it, and has our other
/// windows make way for a paste. Owned by AppDelegate, which loads it at start, before anybody can
/// ask for the window.
class HistoryPanel : public QObject, public HistoryWindow
{
    Q_OBJECT

public:
    HistoryPanel();
    ~HistoryPanel() override;

    void load(std::unique_ptr<WindowDelegate> windowController);

    /// The window controller's; null before they are loaded.
    ClipboardWindow *window() const { return m_window; }
    ViewController *viewController() const { return m_viewController; }

    /// Whether the next call of the window is a step in its list.
    bool isWorkedIn() const;
    void setWindowVisible();
    /// Closes the window.
    void hide();
    /// The next paste goes into another program, whatever our window covers.
    void forgetCoveredWindow();
    /// Brings back the windows that have made way.
    void unhide();

    // ^HistoryWindow
    bool isOursInFront() const override;
    void hideApp() override;
    void makeWhole() override;
    void showAtMouse() override { setWindowVisible(); }

Q_SIGNALS:
    /// The window is about to be shown after it was hidden.
    void opens();
    /// It is on the screen, perhaps not for the first time.
    void shown();

private:
    ApplicationHiding m_hiding;
    std::unique_ptr<WindowDelegate> m_windowController;
    ClipboardWindow *m_window = nullptr;
    ViewController *m_viewController = nullptr;
};
