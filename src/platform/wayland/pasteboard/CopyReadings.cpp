#include "platform/wayland/pasteboard/CopyReadings.h"

#include <algorithm>
#include <utility>

namespace {

// As many as may wait for their owners; more would take too many descriptors.
constexpr std::size_t kMaxReadings = 16;

} // namespace

CopyReadings::CopyReadings(WaylandConnection &connection, const PasteboardLimits &limits, Read read)
    : m_connection(connection), m_limits(limits), m_read(std::move(read))
{
}

void CopyReadings::begin(const std::shared_ptr<DataOffer> &offer, const CopyFront &front,
                         const CopyQuestions::Useful &useful)
{
    if (m_readings.size() == kMaxReadings)
        giveFirst(m_readings.front().reader->abandon());
    auto reader = std::make_unique<OfferReader>(m_connection, m_limits, [this] { giveFinished(); });
    m_readings.push_back({std::move(reader), front, offer});
    m_readings.back().reader->begin(offer, useful);
    giveFinished();
}

void CopyReadings::outdate()
{
    for (const Reading &reading : m_readings)
        reading.reader->outdate();
    giveFinished();
}

void CopyReadings::endAll()
{
    while (!m_readings.empty())
        giveFirst(m_readings.front().reader->abandon());
}

std::optional<CopyReadings::TimePoint> CopyReadings::keepDeadlines(TimePoint now)
{
    for (const Reading &reading : m_readings)
        reading.reader->checkClock(now);
    giveFinished();
    std::optional<TimePoint> next;
    for (const Reading &reading : m_readings) {
        if (const auto deadline = reading.reader->deadline())
            next = next ? std::min(*next, *deadline) : deadline;
    }
    return next;
}

/// One that is read before an earlier one waits for it.
void CopyReadings::giveFinished()
{
    while (!m_readings.empty()) {
        const auto fetched = m_readings.front().reader->takeFinished();
        if (!fetched)
            return;
        giveFirst(*fetched);
    }
}

void CopyReadings::giveFirst(const OfferReader::Result &fetched)
{
    // Kept to the end of this: its reader may be the one who calls.
    const Reading reading = std::move(m_readings.front());
    m_readings.pop_front();
    m_read(fetched, reading.front, reading.offer);
}
