#pragma once

#include <chrono>
#include <optional>

#include <xcb/xcb.h>

class SelectionConnection;

/// Tells an owner that empties the clipboard because it ends from one that does so on purpose: some
/// applications have their copy saved, give it up, and end only then. So one that was told that its
/// copy is safe counts as ended with it if its window goes soon after. Owned by the pasteboard's
/// service; service thread only.
class LeavingOwner
{
public:
    using TimePoint = std::chrono::steady_clock::time_point;

    /// `connection` is not owned and must outlive this object. An owner that stays for `patience`
    /// meant what it did.
    LeavingOwner(SelectionConnection &connection, std::chrono::milliseconds patience);

    /// There is another owner; None when there is none or it does not matter.
    void begin(xcb_window_t owner);
    /// `requestor` was told that the copy is safe.
    void save(xcb_window_t requestor);
    /// The clipboard was emptied at `time`. False when its owner had not asked to be saved, so that
    /// there is nothing to wait for.
    [[nodiscard]] bool letGo(xcb_timestamp_t time);

    /// Whether the clipboard was emptied and it is not known yet what for.
    bool isAwaited() const { return m_letGo.has_value(); }
    /// A window is gone. The time at which the clipboard was emptied if that was its owner's,
    /// which nobody waits for any longer.
    std::optional<xcb_timestamp_t> takeEnd(xcb_window_t window);
    /// When the owner will have stayed too long; absent while nobody waits for it.
    std::optional<TimePoint> deadline() const;

private:
    struct LetGo
    {
        xcb_timestamp_t time;
        TimePoint until;
    };

    SelectionConnection &m_connection;
    std::chrono::milliseconds m_patience;
    xcb_window_t m_owner = XCB_WINDOW_NONE;
    bool m_isSaved = false;
    std::optional<LetGo> m_letGo;
};
