#include "platform/x11/keys/X11ClientEnds.h"

#include <chrono>

namespace {

/// Windows that go together are told of once.
constexpr std::chrono::milliseconds kTellingDelay{200};

} // namespace

X11ClientEnds::X11ClientEnds()
    : m_events(m_connection, [this](const xcb_generic_event_t &event) {
          if (typeOf(event) == XCB_DESTROY_NOTIFY && !m_telling.isActive())
              m_telling.start();
      })
{
    m_telling.setSingleShot(true);
    m_telling.setInterval(kTellingDelay);
    m_telling.callOnTimeout(this, &X11ClientEnds::ended);
    // The server does not tell that a client has ended. What it tells is that windows on the root
    // are gone, as those of a client are with it.
    const uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(m_connection.get(), m_connection.root(), XCB_CW_EVENT_MASK, &mask);
    // Whoever ends from now on is noticed.
    m_connection.roundTrip();
    m_events.handleArrived();
}
