#pragma once

#include "Clipboard/window/ApplicationHiding.h"
#include "history/HistoryWindow.h"

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <memory>

class ClipboardWindow;
class FrontApplication;
class KeySender;
class QKeyEvent;
class ViewController;
class WindowSpace;
class WindowsBeside;

/// Controls the history window: shows it where its user is at work, closes it again when it loses
/// the keyboard to another window, and has all our windows make way for a paste. Owned by
/// AppDelegate; owns the window, which lives as long and is only shown and hidden.
class WindowDelegate : public QObject, public HistoryWindow
{
    Q_OBJECT

public:
    /// Makes the window around its content, hidden. The ports must outlive this object.
    WindowDelegate(std::unique_ptr<ViewController> viewController, WindowSpace &windowSpace,
                   FrontApplication &frontApplication, KeySender &keySender);
    ~WindowDelegate() override;

    ClipboardWindow *window() const { return m_window.get(); }
    ViewController *getViewController() const { return m_viewController.get(); }

    /// Lays the hidden window out and draws it, for nobody to see: what that needs, fonts and
    /// pictures above all, is there then, and the first opening takes no longer than the next.
    void prepare();
    /// Shows the window at its place and makes it the active one. Where it covers a text field of
    /// ours that has the keyboard, the next paste goes into that field.
    void showWindow();
    /// The next paste goes into another program, whatever the window covers.
    void forgetCoveredWindow();
    /// Brings back the windows that have made way, without the keyboard.
    void unhide() { m_hiding.unhide(); }
    /// Orders the window out, as its user does by Escape.
    void cancelOperation();
    /// The window is not the active one any more: it is closed and made ready for the next time.
    void windowDidResignKey();
    /// The toolkit tells late that the keyboard has gone to another window. Whoever needs to know
    /// it now asks for it to be noticed.
    void noticeLostKeyboard();

    // ^HistoryWindow
    bool isOursInFront() const override;
    void hideApp() override;
    void makeWhole() override;
    void showAtMouse() override { showWindow(); }

    // ^QObject
    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// The window is about to be shown after it was hidden.
    void opens();
    /// It is on the screen, perhaps not for the first time.
    void shown();

private:
    bool isForSearchField(const QObject &watched, const QKeyEvent &event) const;
    void takeAim();
    void shareKeyboard(bool shares);
    void windowDeactivated();
    bool hasFocusInOwnDialog() const;
    /// Whether the window is the one that is worked in, although it may have no keyboard now.
    bool keepsKey() const;

    WindowSpace &m_windowSpace;
    FrontApplication &m_frontApplication;
    KeySender &m_keySender;
    std::unique_ptr<ClipboardWindow> m_window;
    std::unique_ptr<WindowsBeside> m_windowsBeside;
    std::unique_ptr<ViewController> m_viewController;
    QTimer m_recheckTimer; ///< Runs while somebody holds the keyboard without being in front.
    QPointer<QWidget> m_coveredWindow; ///< Has the field that is pasted into; null for none.
    ApplicationHiding m_hiding;
    bool m_isPrepared = false;
    bool m_makesWay = false;  ///< The window is being hidden by hideApp().
    bool m_isMadeWay = false; ///< It was, and is to be made whole.
};
