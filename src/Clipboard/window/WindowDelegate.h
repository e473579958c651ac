#pragma once

#include <QObject>
#include <QRect>
#include <QTimer>

#include <memory>
#include <optional>

class AppDelegate;
class ClipboardWindow;
class QScreen;
class ViewController;
class WindowSpace;

/// Controls the history window: shows it on the pointer's screen, and closes it again when it
/// loses the keyboard to another window. Owned by AppDelegate; owns the window, which lives as
/// long and is only shown and hidden.
class WindowDelegate : public QObject
{
    Q_OBJECT

public:
    /// Makes the window with its content, hidden. `appDelegate` must outlive this object.
    explicit WindowDelegate(AppDelegate &appDelegate);
    ~WindowDelegate() override;

    ClipboardWindow *window() const { return m_window.get(); }
    ViewController *getViewController() const { return m_viewController.get(); }

    /// Remembers the window in front, shows ours at its place and makes it the active one.
    void showWindow();
    /// Orders the window out.
    void cancelOperation();
    /// The window is not the active one any more: it is closed and made ready for the next time.
    void windowDidResignKey();

    /// Index of the first of the screens' frames that contains `point`, edges included; absent when
    /// none does or the point is unknown.
    static std::optional<qsizetype> screenAt(const QList<QRect> &frames,
                                             const std::optional<QPoint> &point);

    /// The free part of the screen under the pointer, else of the main screen.
    static QRect visibleFrameAtPointer(const WindowSpace &space);

    // ^QObject
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void windowDeactivated();
    bool hasFocusInOwnDialog() const;

    AppDelegate &m_appDelegate;
    std::unique_ptr<ClipboardWindow> m_window;
    std::unique_ptr<ViewController> m_viewController;
    QTimer m_recheckTimer; ///< Runs while somebody holds the keyboard without being in front.
    bool m_isPrepared = false;
};
