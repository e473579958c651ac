#pragma once

#include <xcb/xcb.h>

/// Qt's own connection to the display server: for requests that must stay in one order with those
/// that Qt makes for our windows. Null when Qt works on another kind of display. Main thread only;
/// nobody may read events from it.
xcb_connection_t *qtX11Connection();

/// Whether the window is one of Qt's, and so one of ours. From any thread.
bool isQtWindow(xcb_window_t window);
