#include "platform/x11/QtX11Connection.h"

#include <QGuiApplication>

xcb_connection_t *qtX11Connection()
{
    const auto *application =
        qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    return application ? application->connection() : nullptr;
}

bool isQtWindow(xcb_window_t window)
{
    xcb_connection_t *qt = qtX11Connection();
    if (!qt)
        return false;
    // A client's windows carry its number in their ids.
    const xcb_setup_t *setup = xcb_get_setup(qt);
    return (window & ~setup->resource_id_mask) == setup->resource_id_base;
}
