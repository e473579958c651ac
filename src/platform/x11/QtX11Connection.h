#pragma once

struct xcb_connection_t;

/// Qt's own connection to the display server: for requests that must stay in one order with those
/// that Qt makes for our windows. Null when Qt works on another kind of display. Main thread only;
/// nobody may read events from it.
xcb_connection_t *qtX11Connection();
