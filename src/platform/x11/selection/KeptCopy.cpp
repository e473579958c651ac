#include "platform/x11/selection/KeptCopy.h"

#include "platform/pasteboard/KeptFormats.h"
#include "platform/pasteboard/PictureFormats.h"
#include "platform/x11/selection/SelectionConnection.h"

#include <algorithm>
#include <utility>

KeptCopy::KeptCopy(SelectionConnection &connection, PropertyPool &pool,
                   const PasteboardLimits &limits)
    : m_connection(connection), m_limits(limits), m_reader(connection, pool, limits)
{
}

void KeptCopy::begin(qint64 changeCount, const FetchedSelection &fetched, xcb_timestamp_t time)
{
    forget();
    // A secret must not outlive the program that marked it as one.
    if (fetched.isConcealed)
        return;
    m_state = fetched.isGivenUp ? State::Partial : State::Resting;
    m_changeCount = changeCount;
    m_time = time;
    m_restEnds = m_connection.now() + m_limits.rest;
    m_offer = SelectionOffer::of(fetched.copy, m_connection.atoms());
    m_fetched = fetched;
}

void KeptCopy::forget()
{
    m_reader.abandon();
    m_state = State::None;
    m_isWanted = false;
    m_offer.reset();
    m_fetched = FetchedSelection();
}

void KeptCopy::acknowledge(qint64 changeCount)
{
    if (m_state != State::None && m_changeCount == changeCount)
        m_isWanted = true;
}

void KeptCopy::discard(qint64 changeCount)
{
    if (m_state != State::None && m_changeCount == changeCount)
        forget();
}

void KeptCopy::handleDeath()
{
    if (m_state == State::Reading)
        // The pieces of an INCR that have come are not the format.
        end(m_reader.abandon(), State::Partial);
    else if (m_state == State::Resting)
        m_state = State::Partial;
}

std::shared_ptr<const SelectionOffer> KeptCopy::offer() const
{
    return m_offer && !m_offer->isEmpty() ? m_offer : nullptr;
}

KeptCopy::Safety KeptCopy::secure()
{
    if (m_state == State::Resting && m_isWanted)
        read();
    switch (m_state) {
    case State::Resting:
    case State::Reading:
        return Safety::BeingRead;
    case State::Whole:
        return offer() ? Safety::Saved : Safety::Impossible;
    case State::None:
    case State::Partial:
        break;
    }
    return Safety::Impossible;
}

bool KeptCopy::handle(const xcb_generic_event_t &event)
{
    const bool isOurs = m_reader.handle(event);
    collect();
    return isOurs;
}

std::optional<KeptCopy::TimePoint> KeptCopy::keepDeadlines(TimePoint now)
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

void KeptCopy::read()
{
    m_state = State::Reading;
    // All that is listed and can be kept: owners make formats when they are asked for them, and
    // after the end of this one nobody can.
    const QList<xcb_atom_t> targets = m_offer->targets();
    QStringList had;
    for (const QString &name : std::as_const(m_fetched.names)) {
        if (targets.contains(m_fetched.atoms[name]))
            had.append(name);
    }
    QList<QList<xcb_atom_t>> alternatives;
    for (const QStringList &names : KeptFormats::plan(m_fetched.names, had)) {
        QList<xcb_atom_t> &atoms = alternatives.emplaceBack();
        for (const QString &name : names)
            atoms.append(m_fetched.atoms[name]);
    }
    // With the time of the copy: an owner that has copied anew since then refuses an earlier one
    // (ICCCM 2.2), instead of giving us the formats of another copy.
    m_reader.beginRest(m_connection.atoms().clipboard, m_time, alternatives,
                       std::max<qint64>(m_limits.maxKept - m_fetched.copy.byteCount(), 0));
    collect();
}

void KeptCopy::collect()
{
    if (const auto fetched = m_reader.takeFinished())
        end(*fetched,
            fetched->isGivenUp || fetched->isRestTooLarge ? State::Partial : State::Whole);
}

void KeptCopy::end(const FetchedSelection &fetched, State state)
{
    m_state = state;
    m_offer = m_offer->with(fetched.rest, m_fetched.atoms,
                            m_connection.atoms().formats[PictureFormats::kPng]);
}
