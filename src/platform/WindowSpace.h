#pragma once

#include <QMargins>
#include <QObject>
#include <QPoint>
#include <QRect>

#include <optional>

class QScreen;
class QWindow;

/// Where windows may stand and how they are composed. Owned by Platform; used from the main
/// thread. Points are device-independent.
class WindowSpace : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// The pointer in Qt's virtual desktop coordinates; absent where a desktop does not tell.
    virtual std::optional<QPoint> pointerPosition() const = 0;

    /// The part of `screen` that panels leave free.
    virtual QRect visibleFrame(const QScreen &screen) const = 0;

    /// Whether translucent windows are composed with what lies behind them. Without it a
    /// translucent pixel is black.
    virtual bool isCompositing() const = 0;

    /// False when the desktop's user wants nothing to move that need not move.
    virtual bool areAnimationsEnabled() const = 0;

    /// Called once for each window of the history kind before it is first shown: keeps it out of
    /// task bar, pager and window switcher.
    virtual void prepareUtilityWindow(QWindow *window) = 0;

    /// Gives such a window its place, each time before it is shown: on the screen where its user
    /// is at work, one third of the free height above it. `size` is what is seen as the window, and
    /// `shadow` lies around that. Returns the frame for the visible part; where a desktop keeps the
    /// placing to itself, only its size means anything.
    virtual QRect placeUtilityWindow(QWindow *window, const QSize &size,
                                     const QMargins &shadow) = 0;

    /// While `shares`, other windows of ours can have the keyboard although the utility window
    /// `window` is shown, which otherwise has it for itself on some desktops.
    virtual void setSharesKeyboard(QWindow *window, bool shares) = 0;

    /// Whether a window of ours can come up without taking the keyboard from another program.
    virtual bool canShowWithoutKeyboard() const = 0;

    /// Called for a window that its user cannot resize, once it has its native window and before it
    /// is shown: the window manager offers no resizing, even while the window's limits are open so
    /// that it can resize itself. Returns whether they have to be open for that; elsewhere an open
    /// window may be given another size than its own at any time.
    virtual bool prepareFixedWindow(QWindow *window) = 0;

Q_SIGNALS:
    void isCompositingChanged(bool isCompositing);
    /// The user clicked beside the utility window that is shown. Not emitted where such a click
    /// takes the keyboard from the window, which tells as much.
    void outsideClicked();
};
