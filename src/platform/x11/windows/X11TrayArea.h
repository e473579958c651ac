#pragma once

#include "platform/TrayArea.h"

#include <QAbstractNativeEventFilter>

#include <xcb/xcb.h>

/// Watches the owner of _NET_SYSTEM_TRAY_S<n> of the default screen. Owned by the status bar. It
/// listens on Qt's own connection, so that it never speaks of a tray before Qt knows of it, nor of
/// its end while Qt still believes in it.
class X11TrayArea : public TrayArea, public QAbstractNativeEventFilter
{
    Q_OBJECT

public:
    explicit X11TrayArea(QObject *parent = nullptr);
    ~X11TrayArea() override;

    // ^TrayArea
    bool isPresent() const override { return m_isPresent; }
    std::optional<QColor> foreground() override;

    // ^QAbstractNativeEventFilter
    bool nativeEventFilter(const QByteArray &eventType, void *message, qintptr *result) override;

private:
    void setPresent(bool isPresent);
    xcb_window_t tray() const;

    xcb_atom_t m_selection = XCB_ATOM_NONE;
    xcb_atom_t m_colors = XCB_ATOM_NONE;
    /// The event that tells a selection's new owner; 0 when the server has none.
    int m_ownerChange = 0;
    bool m_isPresent = false;
};
