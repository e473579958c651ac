#include "platform/x11/X11EventNotifier.h"

#include <utility>

X11EventNotifier::X11EventNotifier(const X11Connection &connection, Handler handler)
    : m_connection(connection), m_handler(std::move(handler)),
      m_notifier(xcb_get_file_descriptor(connection.get()), QSocketNotifier::Read)
{
    m_notifier.setEnabled(!connection.isBroken());
    connect(&m_notifier, &QSocketNotifier::activated, this, &X11EventNotifier::handleArrived);
    xcb_flush(connection.get());
}

void X11EventNotifier::handleArrived()
{
    // Until there is none: what has been read into the queue leaves the socket silent.
    while (const XcbPointer<xcb_generic_event_t> event{xcb_poll_for_event(m_connection.get())})
        m_handler(*event);
    // A lost connection stays readable for ever.
    if (m_connection.isBroken())
        m_notifier.setEnabled(false);
}
