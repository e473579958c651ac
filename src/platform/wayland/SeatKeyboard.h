#pragma once

#include <QByteArray>

#include <functional>
#include <memory>

class WaylandConnection;
struct wl_keyboard;
struct wl_seat;

/// Follows the keymap of the seat's keyboard on our own connection, where no window and so no key
/// is. Made before the connection's thread starts, and on that thread from then on.
class SeatKeyboard
{
public:
    /// `told` is given each keymap, as text without its final zero, on the connection's thread.
    using Told = std::function<void(const QByteArray &text)>;

    SeatKeyboard(std::shared_ptr<WaylandConnection> connection, Told told);
    SeatKeyboard(const SeatKeyboard &) = delete;
    SeatKeyboard &operator=(const SeatKeyboard &) = delete;
    /// `told` is not called any more afterwards. Any thread.
    ~SeatKeyboard();

private:
    void bindSeat();
    void releaseSeat();
    void setHasKeyboard(bool has);
    void read(quint32 format, int fd, quint32 size) const;

    const std::shared_ptr<WaylandConnection> m_connection;
    const Told m_told;
    wl_seat *m_seat = nullptr; ///< A binding of its own, for its own events.
    wl_keyboard *m_keyboard = nullptr;
};
