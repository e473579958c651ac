#pragma once

#include <QDeadlineTimer>
#include <QObject>
#include <QPointer>
#include <QWidget>

#include <vector>

/// Tells whether a window of ours wants the keyboard that has come up, or was raised, since another
/// one was shown. Menus and tool tips, which the display system gives none of its own, do not
/// count. Owned by WindowDelegate.
class WindowsBeside : public QObject
{
    Q_OBJECT

public:
    /// Follows all windows of ours but `window` from each time on that this is shown until it is
    /// hidden.
    explicit WindowsBeside(QWidget &window);
    ~WindowsBeside() override;

    /// Whether a menu was closed a moment ago. Some compositors take the keyboard from everyone
    /// with it, and give it back a moment later.
    bool hasMenuJustClosed() const;

    // ^QObject
    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void wantKeyboardChanged(bool want);

private:
    void follow(bool follows);
    void note(const QObject &window, bool wantsKeyboard);

    QWidget &m_window;
    QDeadlineTimer m_menuJustClosed;
    std::vector<const QObject *> m_others; ///< Those that want it; only compared.
};
