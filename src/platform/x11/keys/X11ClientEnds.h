#pragma once

#include "platform/x11/X11Connection.h"
#include "platform/x11/X11EventNotifier.h"

#include <QObject>
#include <QTimer>

/// Tells when another program may have left the display server, and with it whatever it held
/// there: by its windows, which go with it. A program that has none ends unnoticed. (The server's
/// recording extension would tell of it too, but some servers have crashed over that.) Owned by
/// the hot keys; used from the main thread.
class X11ClientEnds : public QObject
{
    Q_OBJECT

public:
    X11ClientEnds();

Q_SIGNALS:
    /// One program or more ended a moment ago, or at least a window of theirs was destroyed.
    void ended();

private:
    X11Connection m_connection;
    QTimer m_telling;
    X11EventNotifier m_events;
};
