#pragma once

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

/// Controls the history window: shows it on the pointer's screen, and closes it again when it
/// loses the keyboard to another window. Owned by AppDelegate; owns the window, which lives as
/// long and is only shown and hidden.
class WindowDelegate : public QObject
{
    Q_OBJECT

public:
    /// Makes the window around its content, hidden. The ports must outlive this object.
    WindowDelegate(std::unique_ptr<ViewController> viewController, WindowSpace &windowSpace,
                   FrontApplication &frontApplication, KeySender &keySender);
    ~WindowDelegate() override;

    ClipboardWindow *window() const { return m_window.get(); }
    ViewController *getViewController() const { return m_viewController.get(); }

    /// Shows the window at its place and makes it the active one. Where it covers a text field of
    /// ours that has the keyboard, the next paste goes into that field.
    void showWindow();
    /// The window of that field; null when another program is pasted into.
    QWidget *coveredWindow() const { return m_coveredWindow; }
    void forgetCoveredWindow();
    /// Orders the window out, as its user does by Escape.
    void cancelOperation();
    /// Orders the window out for a paste: nobody has closed it, and what it lists and shows stays
    /// until makeWhole(), which only then changes anything.
    void makeWay();
    void makeWhole();
    /// The window is not the active one any more: it is closed and made ready for the next time.
    void windowDidResignKey();
    /// The toolkit tells late that the keyboard has gone to another window. Whoever needs to know
    /// it now asks for it to be noticed.
    void noticeLostKeyboard();

    // ^QObject
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool isForSearchField(const QObject &watched, const QKeyEvent &event) const;
    void takeAim();
    void windowDeactivated();
    bool hasFocusInOwnDialog() const;
    /// Whether the window is the one that is worked in, although it may have no keyboard now.
    bool keepsKey() const;

    WindowSpace &m_windowSpace;
    FrontApplication &m_frontApplication;
    KeySender &m_keySender;
    std::unique_ptr<ClipboardWindow> m_window;
    std::unique_ptr<ViewController> m_viewController;
    QTimer m_recheckTimer; ///< Runs while somebody holds the keyboard without being in front.
    QPointer<QWidget> m_coveredWindow;
    bool m_isPrepared = false;
    bool m_makesWay = false;  ///< The window is being hidden by makeWay().
    bool m_isMadeWay = false; ///< It was, and is to be made whole.
};
