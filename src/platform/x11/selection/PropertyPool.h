#pragma once

#include <QList>

#include <xcb/xcb.h>

class SelectionConnection;

/// The properties of our window that owners put their answers into. A property that an answer may
/// still arrive under is never given out, so a late answer is not taken for another's; one whose
/// answer came is used again. Owned by the pasteboard's service; service thread only.
class PropertyPool
{
public:
    /// `connection` is not owned and must outlive this object.
    explicit PropertyPool(SelectionConnection &connection);

    xcb_atom_t take();

    /// The answer came and was read.
    void giveBack(xcb_atom_t property) { m_free.append(property); }

    /// Nobody waits for the answer any more. An owner in the middle of a transfer is left waiting
    /// for us, as there is no way to call it off.
    void abandon(xcb_atom_t property);

    /// An answer that nobody waits for: its property is of use again.
    void handleLate(const xcb_selection_notify_event_t &event);

private:
    xcb_atom_t makeProperty();

    SelectionConnection &m_connection;
    int m_propertiesMade = 0;
    QList<xcb_atom_t> m_free;
    QList<xcb_atom_t> m_abandoned;
};
