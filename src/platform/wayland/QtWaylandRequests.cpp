#include "platform/wayland/QtWaylandRequests.h"

#include <QAbstractEventDispatcher>
#include <QGuiApplication>

#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)

#include <wayland-client.h>

void finishQtWaylandRequests()
{
    const auto *qt = qGuiApp->nativeInterface<QNativeInterface::QWaylandApplication>();
    wl_display *display = qt ? qt->display() : nullptr;
    if (!display)
        return;
    // On a queue of its own, so that none of the toolkit's events is handled in here.
    wl_event_queue *queue = wl_display_create_queue(display);
    wl_display_roundtrip_queue(display, queue);
    wl_event_queue_destroy(queue);
}

#else

void finishQtWaylandRequests()
{
    // It sends what it has collected before it sleeps, by this signal of the event loop.
    if (QAbstractEventDispatcher *dispatcher = QAbstractEventDispatcher::instance())
        Q_EMIT dispatcher->aboutToBlock();
}

#endif
