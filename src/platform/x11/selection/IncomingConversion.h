#pragma once

#include <QByteArray>

#include <xcb/xcb.h>

class PropertyPool;
class SelectionConnection;

/// One format asked of a selection's owner: the question, and the answer in one piece or in many
/// (INCR). It bounds the size but keeps no time; whoever owns it abandons it when the owner
/// stalls. Owned by SelectionReader; service thread only.
class IncomingConversion
{
public:
    enum class State {
        Idle,
        Asked,    ///< The owner has not answered.
        Growing,  ///< The owner sends piece after piece.
        Whole,    ///< bytes() is everything.
        Refused,  ///< The owner does not have it in this format, or answered nonsense.
        TooLarge, ///< More than was wanted; reading stopped there.
    };

    /// Neither is owned; both must outlive this object.
    IncomingConversion(SelectionConnection &connection, PropertyPool &pool);

    /// Asks for at most `maxBytes`. Only when nothing is under way.
    void ask(xcb_atom_t selection, xcb_atom_t target, xcb_timestamp_t time, qint64 maxBytes);

    /// True when the event moved the conversion on.
    bool handle(const xcb_generic_event_t &event);

    /// Stops waiting, whatever the state.
    void abandon();

    State state() const { return m_state; }
    bool isUnderWay() const { return m_state == State::Asked || m_state == State::Growing; }
    xcb_atom_t target() const { return m_target; }
    /// The type the owner gave its answer, which may differ from the target.
    xcb_atom_t type() const { return m_type; }
    int format() const { return m_format; }
    const QByteArray &bytes() const { return m_bytes; }

private:
    bool handleAnswer(const xcb_selection_notify_event_t &event);
    bool handleProperty(const xcb_property_notify_event_t &event);
    void readAnswer();
    bool readPiece();
    bool appendRest(qint64 offset);
    void settle(State state);

    SelectionConnection &m_connection;
    PropertyPool &m_pool;
    State m_state = State::Idle;
    xcb_atom_t m_selection = XCB_ATOM_NONE;
    xcb_atom_t m_target = XCB_ATOM_NONE;
    xcb_timestamp_t m_time = XCB_CURRENT_TIME;
    xcb_atom_t m_property = XCB_ATOM_NONE;
    qint64 m_maxBytes = 0;
    xcb_atom_t m_type = XCB_ATOM_NONE;
    int m_format = 0;
    QByteArray m_bytes;
};
