#pragma once

#include <QList>

#include <functional>

#include <xcb/xcb.h>
#include <xcb/xfixes.h>

class SelectionConnection;

/// Our part among clipboard managers (the CLIPBOARD_MANAGER selection). Applications ask the
/// manager to save their contents before they quit. We take the part whenever nobody has it and
/// never take it from another. Owned by the pasteboard's service; service thread only.
class ClipboardManagerRole
{
public:
    /// What becomes of the present contents when their owner quits.
    enum class Safety { Saved, BeingRead, Impossible };

    /// `connection` is not owned and must outlive this object. `safety` is asked at each request
    /// to save.
    ClipboardManagerRole(SelectionConnection &connection, std::function<Safety()> safety);

    /// Takes the part if it is free.
    void start();

    void handle(const xcb_xfixes_selection_notify_event_t &event);
    /// A request that was addressed to the manager.
    void handle(const xcb_selection_request_event_t &request);
    /// The contents have been read, so those who wait for it can be answered.
    void answerWaiting();

    /// Asks the other manager to save `targets` of what we own since `time`. False when there is
    /// no other one.
    [[nodiscard]] bool requestSave(const QList<xcb_atom_t> &targets, xcb_timestamp_t time);
    /// Whether the event is the other manager's answer to that.
    bool isSaveAnswer(const xcb_selection_notify_event_t &event) const;

private:
    void claim();
    void announce(xcb_timestamp_t time);
    void save(const xcb_selection_request_event_t &request);
    void finish(const xcb_selection_request_event_t &request, bool isDone);

    SelectionConnection &m_connection;
    std::function<Safety()> m_safety;
    xcb_timestamp_t m_time = XCB_CURRENT_TIME; ///< Since when the part is ours.
    QList<xcb_selection_request_event_t> m_waiting;
};
