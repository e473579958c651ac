#pragma once

#include "platform/x11/X11Connection.h"

#include <QObject>
#include <QSocketNotifier>

#include <functional>

/// Reads one connection on the main thread, for adapters whose events are rare and need no thread.
/// Owned by the adapter, declared after the connection.
class X11EventNotifier : public QObject
{
    Q_OBJECT

public:
    using Handler = std::function<void(const xcb_generic_event_t &event)>;

    /// `connection` must outlive this object.
    X11EventNotifier(const X11Connection &connection, Handler handler);

    /// Handles what has arrived. To be called after every request that waited for a reply, which
    /// may have brought events along, for which nothing will wake us.
    void handleArrived();

private:
    const X11Connection &m_connection;
    const Handler m_handler;
    QSocketNotifier m_notifier;
};
