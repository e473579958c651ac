#pragma once

#include "platform/wayland/pasteboard/OfferReader.h"

#include <QString>

#include <functional>
#include <list>
#include <memory>
#include <optional>

/// What was in front when something was copied.
struct CopyFront
{
    QString applicationName; ///< Empty when there is none to name.
    bool isOurs = false;
    quint64 window = 0; ///< Any number that tells it from others; 0 when it is not known.
};

/// The copies that are being read: several beside each other where one came on another's heels, and
/// given on in the order in which they came. Owned by the pasteboard's service; on the connection's
/// thread.
class CopyReadings
{
public:
    using TimePoint = WaylandConnection::TimePoint;
    using Read = std::function<void(const FetchedCopy &fetched, const CopyFront &front,
                                    const std::shared_ptr<DataOffer> &offer)>;

    /// The references must outlive this object. `read` is told of each that has ended.
    CopyReadings(WaylandConnection &connection, const PasteboardLimits &limits, Read read);

    void begin(const std::shared_ptr<DataOffer> &offer, const CopyFront &front,
               const CopyQuestions::Useful &useful);
    bool isEmpty() const { return m_readings.empty(); }
    /// Something else is on the clipboard.
    void outdate();
    /// Gives on what has arrived of all of them.
    void endAll();

    /// Gives up owners that are too slow, and says when the next will be.
    std::optional<TimePoint> keepDeadlines(TimePoint now);

private:
    struct Reading
    {
        std::unique_ptr<OfferReader> reader;
        CopyFront front;
        std::shared_ptr<DataOffer> offer;
    };

    void giveFinished();
    void giveFirst(const OfferReader::Result &fetched);

    WaylandConnection &m_connection;
    const PasteboardLimits &m_limits;
    Read m_read;
    std::list<Reading> m_readings;
};
