#include "platform/x11/selection/IncomingConversion.h"

#include "platform/x11/selection/PropertyPool.h"
#include "platform/x11/selection/SelectionConnection.h"

#include <algorithm>
#include <cstring>

namespace {

// What is asked of the server at a time. Multiples of four: the protocol counts in words.
constexpr qint64 kFirstBytes = 64 * 1024;
constexpr qint64 kNextBytes = 1024 * 1024;

// An owner's claim is not trusted with more memory than this before anything has arrived.
constexpr qint64 kMaxReserved = 4 * 1024 * 1024;

} // namespace

IncomingConversion::IncomingConversion(SelectionConnection &connection, PropertyPool &pool)
    : m_connection(connection), m_pool(pool)
{
}

void IncomingConversion::ask(xcb_atom_t selection, xcb_atom_t target, xcb_timestamp_t time,
                             qint64 maxBytes)
{
    m_selection = selection;
    m_target = target;
    m_time = time;
    m_maxBytes = maxBytes;
    // One that is for this conversion alone and does not exist now (ICCCM 2.4): what a slow owner
    // writes for an earlier question must not be read as the answer to this one.
    m_property = m_pool.take();
    m_type = XCB_ATOM_NONE;
    m_format = 0;
    m_bytes = QByteArray();
    m_state = State::Asked;
    xcb_convert_selection(m_connection.xcb(), m_connection.window(), selection, target, m_property,
                          time);
}

bool IncomingConversion::handle(const xcb_generic_event_t &event)
{
    // Whoever sent it: owners answer by SendEvent (ICCCM 2.2).
    switch (typeOf(event)) {
    case XCB_SELECTION_NOTIFY:
        return handleAnswer(reinterpret_cast<const xcb_selection_notify_event_t &>(event));
    case XCB_PROPERTY_NOTIFY:
        return handleProperty(reinterpret_cast<const xcb_property_notify_event_t &>(event));
    default:
        return false;
    }
}

bool IncomingConversion::handleAnswer(const xcb_selection_notify_event_t &event)
{
    if (m_state != State::Asked || event.selection != m_selection || event.target != m_target)
        return false;
    if (event.property == XCB_ATOM_NONE) {
        // A refusal names no property: by its time it is told from a late one to an earlier fetch.
        if (event.time != m_time && event.time != XCB_CURRENT_TIME)
            return false;
        settle(State::Refused);
        return true;
    }
    if (event.property != m_property)
        return false;
    readAnswer();
    return true;
}

bool IncomingConversion::handleProperty(const xcb_property_notify_event_t &event)
{
    // The deletions that are told in between are our own.
    if (m_state != State::Growing || event.window != m_connection.window() ||
        event.atom != m_property || event.state != XCB_PROPERTY_NEW_VALUE)
        return false;
    return readPiece();
}

void IncomingConversion::abandon()
{
    if (isUnderWay())
        m_pool.abandon(m_property);
    m_state = State::Idle;
    m_bytes = QByteArray();
}

void IncomingConversion::readAnswer()
{
    const auto value = m_connection.read(m_connection.window(), m_property, 0, kFirstBytes);
    if (!value || value->type == XCB_ATOM_NONE) {
        settle(State::Refused);
        return;
    }
    if (value->type == m_connection.atoms().incr) {
        // ICCCM 2.7.2: a lower bound of the size. One that is too large already is not begun; a
        // small one promises nothing, so each piece is counted as well.
        quint32 minBytes = 0;
        if (value->format == 32 && value->bytes.size() >= qsizetype(sizeof minBytes))
            std::memcpy(&minBytes, value->bytes.constData(), sizeof minBytes);
        if (minBytes > m_maxBytes) {
            settle(State::TooLarge);
            return;
        }
        m_bytes.reserve(std::min<qint64>(minBytes, kMaxReserved));
        m_state = State::Growing;
        // Removing the announcement is what asks for the first piece.
        m_connection.remove(m_connection.window(), m_property);
        return;
    }
    m_type = value->type;
    m_format = value->format;
    m_bytes = value->bytes;
    const bool fits = m_bytes.size() + value->bytesLeft <= m_maxBytes &&
                      (value->bytesLeft == 0 || appendRest(m_bytes.size()));
    // ICCCM 2.4: its removal tells the owner that all has been read.
    m_connection.remove(m_connection.window(), m_property);
    m_pool.giveBack(m_property);
    m_state = fits ? State::Whole : State::TooLarge;
}

bool IncomingConversion::readPiece()
{
    const auto value = m_connection.read(m_connection.window(), m_property, 0, kNextBytes);
    // The announcement of a piece that was read together with an earlier one.
    if (!value || value->type == XCB_ATOM_NONE)
        return false;
    // The announcement was of the type INCR; only the pieces have that of the contents.
    if (m_type == XCB_ATOM_NONE) {
        m_type = value->type;
        m_format = value->format;
    }
    // ICCCM 2.7.2: a piece of no bytes is the end, and is removed like the others.
    if (value->bytes.isEmpty()) {
        m_connection.remove(m_connection.window(), m_property);
        m_pool.giveBack(m_property);
        m_state = State::Whole;
        return true;
    }
    m_bytes.append(value->bytes);
    const bool fits = m_bytes.size() + value->bytesLeft <= m_maxBytes &&
                      (value->bytesLeft == 0 || appendRest(value->bytes.size()));
    if (fits)
        m_connection.remove(m_connection.window(), m_property);
    else
        settle(State::TooLarge);
    return true;
}

bool IncomingConversion::appendRest(qint64 offset)
{
    for (;;) {
        // Never in one go: a reply as large as a hostile owner likes would be in our memory before
        // it could be refused.
        const auto value = m_connection.read(m_connection.window(), m_property, offset, kNextBytes);
        if (!value || value->bytes.isEmpty())
            return true;
        m_bytes.append(value->bytes);
        offset += value->bytes.size();
        if (m_bytes.size() > m_maxBytes)
            return false;
        if (value->bytesLeft == 0)
            return true;
    }
}

void IncomingConversion::settle(State state)
{
    // An owner that has refused writes nothing more there; any other still may.
    if (state == State::Refused)
        m_pool.giveBack(m_property);
    else
        m_pool.abandon(m_property);
    m_bytes = QByteArray();
    m_state = state;
}
