#include "platform/x11/selection/KeptCopy.h"

#include "platform/pasteboard/KeptFormats.h"
#include "platform/pasteboard/PictureFormats.h"
#include "platform/x11/selection/SelectionConnection.h"

#include <algorithm>
#include <utility>

KeptCopy::KeptCopy(SelectionConnection &connection, PropertyPool &pool,
                   const PasteboardLimits &limits)
    : m_connection(connection), m_limits(limits), m_conversion(connection, pool)
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
    m_conversion.abandon();
    m_state = State::None;
    m_isWanted = false;
    m_offer.reset();
    m_fetched = FetchedSelection();
    m_requests.clear();
    m_formats.clear();
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
        end(false);
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
    if (m_state != State::Reading || !m_conversion.handle(event))
        return false;
    goOn();
    return true;
}

std::optional<KeptCopy::TimePoint> KeptCopy::keepDeadlines(TimePoint now)
{
    if (m_state == State::Resting && m_isWanted) {
        if (now < m_restEnds)
            return m_restEnds;
        read();
    }
    if (m_state != State::Reading)
        return std::nullopt;
    const TimePoint deadline =
        std::min(m_lastProgress + m_limits.ownerStall, m_begun + m_limits.keep);
    if (now < deadline)
        return deadline;
    end(false);
    return std::nullopt;
}

void KeptCopy::read()
{
    m_state = State::Reading;
    m_begun = m_lastProgress = m_connection.now();
    m_bytesLeft = m_limits.maxKept - m_fetched.copy.byteCount();
    m_isTooLarge = false;
    // All that is listed and can be kept: owners make formats when they are asked for them, and
    // after the end of this one nobody can.
    const QList<xcb_atom_t> targets = m_offer->targets();
    QStringList had;
    for (const QString &name : std::as_const(m_fetched.names)) {
        if (targets.contains(m_fetched.atoms[name]))
            had.append(name);
    }
    for (const QStringList &names : KeptFormats::plan(m_fetched.names, had)) {
        QList<xcb_atom_t> request;
        for (const QString &name : names)
            request.append(m_fetched.atoms[name]);
        m_requests.append(request);
    }
    askNext();
}

void KeptCopy::askNext()
{
    if (m_requests.isEmpty())
        end(!m_isTooLarge);
    else
        // With the time of the copy: an owner that has copied anew since then refuses an earlier
        // one (ICCCM 2.2), instead of giving us the formats of another copy.
        m_conversion.ask(m_connection.atoms().clipboard, m_requests.first().first(), m_time,
                         std::max<qint64>(m_bytesLeft, 0));
}

void KeptCopy::goOn()
{
    m_lastProgress = m_connection.now();
    if (m_conversion.isUnderWay())
        return;
    useAnswer();
    askNext();
}

void KeptCopy::useAnswer()
{
    using ConversionState = IncomingConversion::State;
    QList<xcb_atom_t> &request = m_requests.first();
    const xcb_atom_t target = request.takeFirst();
    if (m_conversion.state() == ConversionState::Whole) {
        // Type and format as the owner gave them. They need not follow from the target: that of
        // TEXT is the owner's choice (ICCCM 2.6.2).
        m_formats.append(
            {target, {m_conversion.type(), m_conversion.bytes(), m_conversion.format()}, {}});
        m_bytesLeft -= m_conversion.bytes().size();
        request.clear();
    }
    // What is refused was listed for nothing, which loses nothing.
    m_isTooLarge |= m_conversion.state() == ConversionState::TooLarge;
    if (request.isEmpty())
        m_requests.removeFirst();
}

void KeptCopy::end(bool isWhole)
{
    m_conversion.abandon();
    m_requests.clear();
    m_state = isWhole ? State::Whole : State::Partial;
    m_offer = m_offer->with(std::exchange(m_formats, {}), m_fetched.atoms,
                            m_connection.atoms().formats[PictureFormats::kPng]);
}
