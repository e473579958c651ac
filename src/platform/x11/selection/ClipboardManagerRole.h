#pragma once

#include <QList>

#include <chrono>
#include <functional>
#include <optional>

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
    /// to save, with its requestor, and again while that waits, which is `patience` at most.
    ClipboardManagerRole(SelectionConnection &connection, std::chrono::milliseconds patience,
                         std::function<Safety(xcb_window_t requestor)> safety);

    /// Takes the part if it is free.
    void start();

    void handle(const xcb_xfixes_selection_notify_event_t &event);
    /// A request that was addressed to the manager.
    void handle(const xcb_selection_request_event_t &request);
    /// The contents have been read, so those who wait for it can be answered.
    void answerWaiting();

    /// Refuses those who have waited too long, and says when the next will have.
    std::optional<std::chrono::steady_clock::time_point>
    keepDeadlines(std::chrono::steady_clock::time_point now);

    /// Asks the other manager to save `targets` of what we own since `time`. False when there is
    /// no other one.
    [[nodiscard]] bool requestSave(const QList<xcb_atom_t> &targets, xcb_timestamp_t time);
    /// Whether the event is the other manager's answer to that.
    bool isSaveAnswer(const xcb_selection_notify_event_t &event) const;

private:
    void claim();
    void announce(xcb_timestamp_t time);
    struct Waiting
    {
        xcb_selection_request_event_t request;
        std::chrono::steady_clock::time_point until;
    };

    bool save(const xcb_selection_request_event_t &request);
    void finish(const xcb_selection_request_event_t &request, bool isDone);

    SelectionConnection &m_connection;
    std::chrono::milliseconds m_patience;
    std::function<Safety(xcb_window_t requestor)> m_safety;
    xcb_timestamp_t m_time = XCB_CURRENT_TIME; ///< Since when the part is ours.
    QList<Waiting> m_waiting;                  ///< In the order of their coming.
};
