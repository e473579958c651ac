#include "platform/wayland/SeatKeyboard.h"

#include "platform/wayland/WaylandConnection.h"

#include <sys/mman.h>
#include <unistd.h>

#include <utility>

namespace {

/// A keymap of all layouts at once has less than a tenth of it.
constexpr quint32 kMaxKeymap = 16 << 20;
// The last of which something is used: that a seat can be released.
constexpr quint32 kSeatVersion = 5;

} // namespace

SeatKeyboard::SeatKeyboard(std::shared_ptr<WaylandConnection> connection, Told told)
    : m_connection(std::move(connection)), m_told(std::move(told))
{
    m_connection->addGlobalListener(this, [this](const QByteArray &interface, quint32, bool) {
        // The keyboard may be at another seat now, or at the only one again.
        if (interface == wl_seat_interface.name) {
            releaseSeat();
            bindSeat();
        }
    });
    bindSeat();
    // The capabilities and then the keymap, so that it is there from the beginning.
    for (int turn = 0; m_seat && turn < 2; ++turn) {
        if (!m_connection->roundTrip())
            return;
    }
}

SeatKeyboard::~SeatKeyboard()
{
    m_connection->removeListeners(this);
    // A compositor that is gone needs no goodbye.
    if (!m_connection->run([this] { releaseSeat(); }))
        releaseSeat();
}

void SeatKeyboard::bindSeat()
{
    static constexpr wl_seat_listener kListener{
        [](void *self, wl_seat *, uint32_t capabilities) {
            static_cast<SeatKeyboard *>(self)->setHasKeyboard(capabilities &
                                                              WL_SEAT_CAPABILITY_KEYBOARD);
        },
        [](void *, wl_seat *, const char *) {}};
    m_seat = m_connection->bind<wl_seat>(wl_seat_interface, kSeatVersion);
    if (m_seat)
        wl_seat_add_listener(m_seat, &kListener, this);
}

void SeatKeyboard::releaseSeat()
{
    setHasKeyboard(false);
    wl_seat *const gone = std::exchange(m_seat, nullptr);
    if (gone && wl_seat_get_version(gone) >= WL_SEAT_RELEASE_SINCE_VERSION)
        wl_seat_release(gone);
    else if (gone)
        wl_seat_destroy(gone);
}

void SeatKeyboard::setHasKeyboard(bool has)
{
    static constexpr wl_keyboard_listener kListener{
        [](void *self, wl_keyboard *, uint32_t format, int32_t fd, uint32_t size) {
            static_cast<const SeatKeyboard *>(self)->read(format, fd, size);
        },
        // Nothing is told of keys where there is no window.
        [](void *, wl_keyboard *, uint32_t, wl_surface *, wl_array *) {},
        [](void *, wl_keyboard *, uint32_t, wl_surface *) {},
        [](void *, wl_keyboard *, uint32_t, uint32_t, uint32_t, uint32_t) {},
        [](void *, wl_keyboard *, uint32_t, uint32_t, uint32_t, uint32_t, uint32_t) {},
        [](void *, wl_keyboard *, int32_t, int32_t) {}};
    if (has == (m_keyboard != nullptr))
        return;
    if (has) {
        m_keyboard = wl_seat_get_keyboard(m_seat);
        wl_keyboard_add_listener(m_keyboard, &kListener, this);
    } else {
        wl_keyboard *const gone = std::exchange(m_keyboard, nullptr);
        if (wl_keyboard_get_version(gone) >= WL_KEYBOARD_RELEASE_SINCE_VERSION)
            wl_keyboard_release(gone);
        else
            wl_keyboard_destroy(gone);
    }
}

void SeatKeyboard::read(quint32 format, int fd, quint32 size) const
{
    if (format == WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1 && size > 0 && size <= kMaxKeymap) {
        void *const memory = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, fd, 0);
        if (memory != MAP_FAILED) {
            const auto *text = static_cast<const char *>(memory);
            m_told(QByteArray(text, qsizetype(qstrnlen(text, size))));
            munmap(memory, size);
        }
    }
    close(fd);
}
