#pragma once

#include "platform/Pasteboard.h"
#include "platform/pasteboard/PasteboardLimits.h"
#include "platform/x11/selection/ClipboardManagerRole.h"
#include "platform/x11/selection/FetchedSelection.h"
#include "platform/x11/selection/SelectionOffer.h"
#include "platform/x11/selection/SelectionReader.h"

#include <chrono>
#include <memory>
#include <optional>

/// What is had of the present owner's copy, to be served on when its owner dies: at first what was
/// read to publish it; then, when the application has acknowledged it and the owner
/// has had some rest or asks to be saved, everything else that the owner lists and that can be
/// kept. None of that is published. Owned by the pasteboard's service; service thread only.
class KeptCopy
{
public:
    using TimePoint = std::chrono::steady_clock::time_point;
    using Safety = ClipboardManagerRole::Safety;

    /// Nothing is owned; everything must outlive this object.
    KeptCopy(SelectionConnection &connection, PropertyPool &pool, const PasteboardLimits &limits);

    /// The change of that number was read, as it was at `time`.
    void begin(qint64 changeCount, const FetchedSelection &fetched, xcb_timestamp_t time);
    /// There is another owner, or none on purpose.
    void forget();
    void acknowledge(qint64 changeCount);
    void discard(qint64 changeCount);
    /// Nothing more is to be had; what came whole stays.
    void handleDeath();

    /// Null when there is nothing to serve.
    std::shared_ptr<const SelectionOffer> offer() const;
    /// Whether it may be served on after its owner's death.
    bool isWanted() const { return m_isWanted; }

    /// Makes it safe as soon as can be, and says how far that is.
    Safety secure();

    /// True when the event belonged to the reading.
    bool handle(const xcb_generic_event_t &event);

    /// Does what is due and says when it must be asked again.
    std::optional<TimePoint> keepDeadlines(TimePoint now);

private:
    enum class State { None, Resting, Reading, Whole, Partial };

    void read();
    void collect();
    void end(const FetchedSelection &fetched, State state);

    SelectionConnection &m_connection;
    const PasteboardLimits &m_limits;
    SelectionReader m_reader;
    State m_state = State::None;
    qint64 m_changeCount = 0;
    bool m_isWanted = false;
    xcb_timestamp_t m_time = XCB_CURRENT_TIME;
    TimePoint m_restEnds;
    std::shared_ptr<const SelectionOffer> m_offer;
    FetchedSelection m_fetched;
};
