#pragma once

#include "platform/FrontApplication.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/windows/LastApplication.h"
#include "platform/x11/windows/X11ActiveWindow.h"
#include "platform/x11/windows/X11PasteTarget.h"

#include <QPointer>
#include <QWindow>

#include <optional>

class HotKeys;

/// The active window by the window manager's word, or the input focus where none runs. It has a
/// connection of its own and reads events from it only while it waits for the target, so nothing
/// wakes it otherwise.
class X11FrontApplication : public FrontApplication
{
    Q_OBJECT

public:
    /// Both must outlive this object. The presses of the hot keys are the user's word when one of
    /// our windows asks to become active.
    X11FrontApplication(const ApplicationNames &names, const HotKeys &hotKeys,
                        QObject *parent = nullptr);

    /// The window in front, ours or another's; XCB_NONE when there is none.
    xcb_window_t windowInFront() const { return m_active.current(); }

    /// What the window tells about its program; absent when it is gone.
    std::optional<WindowIdentity> identityOf(xcb_window_t window) const
    {
        return m_active.identityOf(window);
    }

    /// Whether both windows belong to one process, if only by different connections.
    bool isOfSameProgram(xcb_window_t one, xcb_window_t other) const
    {
        return m_active.isOfSameProgram(one, other);
    }

    // ^FrontApplication
    QString applicationName() const override;
    void setOwnTarget(QWindow *window) override { m_ownTarget = window; }
    [[nodiscard]] bool returnToTarget(std::chrono::milliseconds limit = kReturnLimit) override;
    void activate(QWindow *window) override;
    bool isInFront(const QWindow &window) const override;
    void endStartup(const QString &activationToken) override;

private:
    enum class Events { None, Other, TargetDestroyed };

    void aim();
    bool waitForTarget(std::chrono::milliseconds limit, xcb_timestamp_t time);
    /// Reads the events that `nextEvent` gives and tells the gravest.
    Events readEvents(xcb_generic_event_t *(*nextEvent)(xcb_connection_t *));
    void askForTarget(xcb_timestamp_t time);
    void selectTargetEvents(bool isSelected);
    xcb_timestamp_t serverTime();
    xcb_timestamp_t userTime();

    const ApplicationNames &m_names;
    X11Connection m_connection;
    X11ActiveWindow m_active;
    xcb_atom_t m_activeWindowAtom;
    xcb_window_t m_timeWindow; ///< Never shown; its property changes tell the server's time.
    X11PasteTarget m_pasteTarget;
    QPointer<QWindow> m_ownTarget;
    xcb_window_t m_target = XCB_NONE;      ///< Of the return under way.
    xcb_window_t m_targetFocus = XCB_NONE; ///< The target or the part of it that had the keyboard.
    std::optional<quint32> m_lastPress;    ///< Server time of the latest hot key.
    mutable LastApplication m_last;
};
