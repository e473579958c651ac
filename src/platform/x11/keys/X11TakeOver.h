#pragma once

#include "platform/typing/ApplicationKeys.h"

#include <QTimer>

#include <xcb/xcb.h>

#include <chrono>
#include <functional>
#include <vector>

class X11FrontApplication;

/// Waits, without standing still, until a program that shows another computer has told it what is
/// on the pasteboard: it asks for the formats when they change or when it gets the keyboard, and
/// keys that reached the other computer before would paste what that had copied itself. Owned by
/// the key sender; main thread only.
class X11TakeOver
{
public:
    using Askers = std::function<std::vector<xcb_window_t>()>;

    /// `frontApplication` must outlive this object. `askers` tells who has asked.
    X11TakeOver(const X11FrontApplication &frontApplication, Askers askers);

    /// Calls `done`, later and once: with true when the program of `target` has had the time to
    /// take the contents over, with false when one that asks did not for them.
    void await(xcb_window_t target, ApplicationKeys::Remote remote,
               std::function<void(bool isTakenOver)> done);

    /// Forgets what is awaited.
    void cancel() { m_timer.stop(); }

private:
    void look();
    bool hasAsked() const;

    const X11FrontApplication &m_front;
    const Askers m_askers;
    xcb_window_t m_target = XCB_NONE;
    std::function<void(bool)> m_done;
    std::chrono::steady_clock::time_point m_deadline;
    bool m_isAsked = false;
    QTimer m_timer;
};
