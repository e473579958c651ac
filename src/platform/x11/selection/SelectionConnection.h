#pragma once

#include "platform/x11/X11Connection.h"
#include "platform/x11/selection/SelectionAtoms.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QStringList>

#include <chrono>
#include <functional>
#include <optional>

#include <xcb/xcb.h>

/// The pasteboard's own connection to the X server, with the one unmapped window that owns and
/// asks for selections. Owned by X11Pasteboard. Opened on the main thread, then used from the
/// service thread alone.
class SelectionConnection
{
public:
    /// A value read from a property of a window.
    struct Value
    {
        xcb_atom_t type = XCB_ATOM_NONE; ///< None when there is no such property.
        int format = 0;                  ///< Bits of an element: 8, 16 or 32.
        QByteArray bytes;
        qint64 bytesLeft = 0; ///< Of the property, after `bytes`.
    };

    using TimePoint = std::chrono::steady_clock::time_point;
    using Clock = std::function<TimePoint()>;

    /// Opens the display of the environment. Without one it is broken from the start.
    explicit SelectionConnection(Clock clock);

    SelectionConnection(const SelectionConnection &) = delete;
    SelectionConnection &operator=(const SelectionConnection &) = delete;

    const X11Connection &server() const { return m_server; }
    xcb_connection_t *xcb() const { return m_server.get(); }
    xcb_window_t window() const { return m_window; }
    const SelectionAtoms &atoms() const { return m_atoms; }
    /// By what those are measured who are asked or answered here.
    TimePoint now() const { return m_clock(); }

    /// Whether both ids were made by the same client.
    bool isSameClient(xcb_window_t one, xcb_window_t other) const;

    /// Number of XFixes' selection event; 0 when the server has no XFixes or nothing was watched.
    quint8 ownerChangeEvent() const { return m_ownerChangeEvent; }
    /// Has every change of a selection's owner told from now on, or no longer.
    void watchOwner(xcb_atom_t selection, bool isWatched);

    /// Waits for the X server only. None when nobody owns the selection.
    xcb_window_t owner(xcb_atom_t selection) const { return selectionOwner(xcb(), selection); }

    /// Empty for an atom that the server does not know.
    QStringList namesOf(const QList<xcb_atom_t> &atoms);

    /// Reads up to `most` bytes (a multiple of four) from the byte `offset` (likewise) of a
    /// property and leaves the property as it is. Absent when the window is gone.
    std::optional<Value> read(xcb_window_t window, xcb_atom_t property, qint64 offset,
                              qint64 most) const;

    /// Replaces a property with bytes, which make elements of `format` bits.
    void replace(xcb_window_t window, xcb_atom_t property, xcb_atom_t type, const QByteArray &bytes,
                 int format = 8);
    /// Replaces a property with 32-bit numbers.
    void replace(xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
                 const QList<quint32> &numbers);
    void remove(xcb_window_t window, xcb_atom_t property);

    /// Answers a request: `property` is None for a refusal.
    void answer(const xcb_selection_request_event_t &request, xcb_atom_t property);

private:
    const Clock m_clock;
    X11Connection m_server;
    xcb_window_t m_window = XCB_WINDOW_NONE;
    quint32 m_resourceMask = 0;
    quint8 m_ownerChangeEvent = 0;
    SelectionAtoms m_atoms;
    QHash<xcb_atom_t, QString> m_names; ///< Asked of the server once each.
};
