#include "platform/wayland/pasteboard/KeptOffer.h"

#include "platform/pasteboard/KeptFormats.h"

#include <algorithm>
#include <utility>

KeptOffer::KeptOffer(WaylandConnection &connection, const PasteboardLimits &limits)
    : m_limits(limits), m_reader(connection, limits, [this] { collect(); })
{
}

void KeptOffer::begin(qint64 changeCount, const FetchedCopy &fetched,
                      std::shared_ptr<DataOffer> offer)
{
    forget();
    // A secret must not outlive the program that marked it as one.
    if (fetched.isConcealed)
        return;
    m_state = fetched.isGivenUp || !offer ? State::Done : State::Resting;
    m_changeCount = changeCount;
    m_restEnds = m_limits.now() + m_limits.rest;
    m_owners = std::move(offer);
    m_offer = CopyOffer::of(fetched.copy);
    m_fetched = fetched;
}

void KeptOffer::forget()
{
    m_reader.abandon();
    m_state = State::None;
    m_isWanted = false;
    m_owners.reset();
    m_offer.reset();
    m_fetched = FetchedCopy();
}

void KeptOffer::acknowledge(qint64 changeCount)
{
    if (m_state != State::None && m_changeCount == changeCount)
        m_isWanted = true;
}

void KeptOffer::discard(qint64 changeCount)
{
    if (m_state != State::None && m_changeCount == changeCount)
        forget();
}

void KeptOffer::handleDeath()
{
    if (m_state == State::Reading)
        end(m_reader.abandon());
    else if (m_state == State::Resting)
        m_state = State::Done;
    m_owners.reset();
}

std::shared_ptr<const CopyOffer> KeptOffer::offer() const
{
    return m_offer && !m_offer->isEmpty() ? m_offer : nullptr;
}

std::optional<KeptOffer::TimePoint> KeptOffer::keepDeadlines(TimePoint now)
{
    if (m_state == State::Resting && m_isWanted) {
        if (now < m_restEnds)
            return m_restEnds;
        read();
    }
    m_reader.checkClock(now);
    collect();
    return m_reader.deadline();
}

void KeptOffer::read()
{
    m_state = State::Reading;
    // All that is listed and can be kept: owners make formats when they are asked for them, and
    // after the end of this one nobody can.
    const QStringList served = m_offer->names();
    QStringList had;
    for (const QString &name : std::as_const(m_fetched.names)) {
        if (served.contains(name))
            had.append(name);
    }
    m_reader.beginRest(m_owners, KeptFormats::plan(m_fetched.names, had),
                       std::max<qint64>(m_limits.maxKept - m_fetched.copy.byteCount(), 0));
    collect();
}

void KeptOffer::collect()
{
    if (const auto fetched = m_reader.takeFinished())
        end(*fetched);
}

void KeptOffer::end(const OfferReader::Result &fetched)
{
    m_state = State::Done;
    m_offer = m_offer->with(fetched.rest, m_fetched.names);
}
