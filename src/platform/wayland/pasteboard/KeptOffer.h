#pragma once

#include "platform/pasteboard/CopyOffer.h"
#include "platform/wayland/pasteboard/OfferReader.h"

#include <memory>
#include <optional>

/// What is had of the present owner's copy, to be served on when its owner dies: at first what was
/// read to publish it; then, when the application has acknowledged it and the owner has had some
/// rest, everything else that the owner lists and that can be kept. None of that is published.
/// Owned by the pasteboard's service; on the connection's thread.
class KeptOffer
{
public:
    using TimePoint = WaylandConnection::TimePoint;

    /// Nothing is owned; everything must outlive this object.
    KeptOffer(WaylandConnection &connection, const PasteboardLimits &limits);

    /// The change of that number was read. `offer` is whom the rest is asked of; null when it
    /// cannot be asked any more.
    void begin(qint64 changeCount, const FetchedCopy &fetched, std::shared_ptr<DataOffer> offer);
    /// There is another owner, or none on purpose.
    void forget();
    void acknowledge(qint64 changeCount);
    void discard(qint64 changeCount);
    /// Nothing more is to be had; what came whole stays.
    void handleDeath();

    /// Null when there is nothing to serve.
    std::shared_ptr<const CopyOffer> offer() const;
    /// Whether it may be served on after its owner's death.
    bool isWanted() const { return m_isWanted; }

    /// Does what is due and says when it must be asked again.
    std::optional<TimePoint> keepDeadlines(TimePoint now);

private:
    enum class State { None, Resting, Reading, Done };

    void read();
    void collect();
    void end(const OfferReader::Result &fetched);

    const PasteboardLimits &m_limits;
    OfferReader m_reader;
    State m_state = State::None;
    qint64 m_changeCount = 0;
    bool m_isWanted = false;
    TimePoint m_restEnds;
    std::shared_ptr<DataOffer> m_owners; ///< Of whom the rest is asked.
    std::shared_ptr<const CopyOffer> m_offer;
    FetchedCopy m_fetched;
};
