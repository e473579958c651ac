#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <vector>

/// Tells whether a window of ours wants the keyboard that has come up, or was raised, since another
/// one was shown. Menus and tool tips, which the display system gives no keyboard, do not count.
/// Owned by WindowDelegate.
class WindowsBeside : public QObject
{
    Q_OBJECT

public:
    /// Follows all windows of ours but `window` from each time on that this is shown until it is
    /// hidden.
    explicit WindowsBeside(QWidget &window);
    ~WindowsBeside() override;

    // ^QObject
    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void wantKeyboardChanged(bool want);

private:
    void follow(bool follows);
    void note(const QObject &window, bool wantsKeyboard);

    QWidget &m_window;
    std::vector<const QObject *> m_others; ///< Those that want it; only compared.
};
