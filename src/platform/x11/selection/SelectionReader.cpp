#include "platform/x11/selection/SelectionReader.h"

#include "platform/pasteboard/TextFormats.h"
#include "platform/x11/selection/SelectionConnection.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace {

constexpr qint64 kMaxTargetBytes = 64 * 1024;

QList<xcb_atom_t> atomsOf(const QByteArray &bytes)
{
    QList<xcb_atom_t> atoms(bytes.size() / qsizetype(sizeof(xcb_atom_t)));
    std::memcpy(atoms.data(), bytes.constData(), atoms.size() * sizeof(xcb_atom_t));
    return atoms;
}

} // namespace

bool SelectionReader::Request::isText() const
{
    return part == Part::Contents && question.part == CopyQuestions::Question::Part::Text;
}

bool SelectionReader::Request::isLike(const Request &other) const
{
    if (part != other.part)
        return false;
    return part == Part::Rest ? row == other.row : question.isLike(other.question);
}

SelectionReader::SelectionReader(SelectionConnection &connection, PropertyPool &pool,
                                 const PasteboardLimits &limits)
    : m_connection(connection), m_limits(limits), m_conversion(connection, pool)
{
}

void SelectionReader::begin(xcb_atom_t selection, xcb_timestamp_t time,
                            const CopyQuestions::Useful &useful, Wish wish)
{
    restart(selection, time, useful.text, m_limits.fetch);
    m_useful = useful;
    m_wish = wish;
    m_requests = {{Request::Part::Targets, m_connection.atoms().targets}};
    askNext();
}

void SelectionReader::beginRest(xcb_atom_t selection, xcb_timestamp_t time,
                                const QList<QList<xcb_atom_t>> &alternatives, qint64 maxBytes)
{
    restart(selection, time, maxBytes, m_limits.keep);
    for (qsizetype row = 0; row < alternatives.size(); ++row) {
        for (const xcb_atom_t target : alternatives[row])
            m_requests.append({Request::Part::Rest, target, {}, row});
    }
    askNext();
}

void SelectionReader::restart(xcb_atom_t selection, xcb_timestamp_t time, qint64 maxBytes,
                              std::chrono::milliseconds patience)
{
    m_selection = selection;
    m_time = time;
    m_maxBytes = maxBytes;
    m_isReading = true;
    m_isFinished = false;
    m_end = m_connection.now() + patience;
    m_texts = Texts();
    m_fetched = FetchedSelection();
}

bool SelectionReader::handle(const xcb_generic_event_t &event)
{
    if (!m_isReading || !m_conversion.handle(event))
        return false;
    goOn();
    return true;
}

void SelectionReader::checkClock(TimePoint now)
{
    if (!m_isReading || now < *deadline())
        return;
    if (m_askAgainAt) {
        m_askAgainAt.reset();
        m_requests = m_texts.requests;
        askNext();
        return;
    }
    // A hung owner would not answer the next question either.
    m_fetched.isGivenUp = true;
    finish();
}

std::optional<SelectionReader::TimePoint> SelectionReader::deadline() const
{
    if (!m_isReading)
        return std::nullopt;
    if (m_askAgainAt)
        return m_askAgainAt;
    return std::min(m_lastProgress + m_limits.ownerStall, m_end);
}

std::optional<FetchedSelection> SelectionReader::takeFinished()
{
    if (!std::exchange(m_isFinished, false))
        return std::nullopt;
    return std::exchange(m_fetched, FetchedSelection());
}

FetchedSelection SelectionReader::abandon()
{
    finish();
    m_isFinished = false;
    return std::exchange(m_fetched, FetchedSelection());
}

void SelectionReader::askNext()
{
    m_lastProgress = m_connection.now();
    m_requests.removeIf([this](const Request &request) {
        return request.part == Request::Part::Contents &&
               !CopyQuestions::isOfUse(request.question, m_fetched);
    });
    if (m_requests.isEmpty()) {
        if (!waitToAskAgain())
            finish();
        return;
    }
    const Request &request = m_requests.first();
    qint64 maxBytes = m_maxBytes;
    if (request.part == Request::Part::Targets)
        maxBytes = kMaxTargetBytes;
    else if (request.part == Request::Part::Contents && !request.isText())
        maxBytes = request.question.maxBytes(m_fetched);
    m_conversion.ask(m_selection, request.target, m_time, maxBytes);
}

void SelectionReader::goOn()
{
    m_lastProgress = m_connection.now();
    if (m_conversion.isUnderWay())
        return;
    useAnswer();
    if (m_isReading)
        askNext();
}

void SelectionReader::useAnswer()
{
    const Request request = m_requests.takeFirst();
    const bool isHad =
        m_conversion.state() == IncomingConversion::State::Whole && m_conversion.format() == 8;
    switch (request.part) {
    case Request::Part::Targets:
        useTargets();
        break;
    case Request::Part::Contents:
        useContents(request, isHad);
        break;
    case Request::Part::Rest:
        useRest(request);
        break;
    }
}

void SelectionReader::useTargets()
{
    const SelectionAtoms &atoms = m_connection.atoms();
    if (m_conversion.state() == IncomingConversion::State::Whole && m_conversion.format() == 32) {
        // ICCCM 2.6.2 wants the type ATOM. It is not looked at, because some owners write TARGETS.
        const QList<xcb_atom_t> offered = atomsOf(m_conversion.bytes());
        // That it is listed is enough: asking for its value would be one conversation more with the
        // owner of a secret.
        m_fetched.isConcealed = m_wish == Wish::Copy && offered.contains(atoms.passwordHint);
        if (!m_fetched.isConcealed)
            planFormats(offered.mid(0, CopyQuestions::kMaxNamed));
        return;
    }
    // An owner too simple to list its formats may still have a text.
    const QString utf8 = QStringLiteral("UTF8_STRING");
    const QString latin1 = QStringLiteral("STRING");
    m_requests = {{Request::Part::Contents, atoms.formats[utf8], {{}, utf8}},
                  {Request::Part::Contents, XCB_ATOM_STRING, {{}, latin1}}};
}

void SelectionReader::planFormats(const QList<xcb_atom_t> &offered)
{
    const QStringList names = m_connection.namesOf(offered);
    for (qsizetype i = 0; i < offered.size(); ++i) {
        if (names[i].isEmpty())
            continue;
        m_fetched.names.append(names[i]);
        m_fetched.atoms[names[i]] = offered[i];
    }
    for (const CopyQuestions::Question &question : CopyQuestions::of(m_fetched.names, m_useful)) {
        const Request request{Request::Part::Contents, m_fetched.atoms[question.name], question};
        m_requests.append(request);
        if (request.isText())
            m_texts.requests.append(request);
    }
    m_texts.mayBeNone = TextFormats::mayHoldNone(m_fetched.names);
}

bool SelectionReader::waitToAskAgain()
{
    if (!m_texts.isRefused || m_texts.requests.isEmpty() || m_texts.mayBeNone ||
        m_texts.timesAskedAgain == m_limits.askAgain.size())
        return false;
    m_askAgainAt = m_lastProgress + m_limits.askAgain.at(m_texts.timesAskedAgain++);
    return true;
}

/// What is had under one name need not be asked for under the others.
void SelectionReader::dropOthersLike(const Request &had)
{
    m_requests.removeIf([&](const Request &request) { return request.isLike(had); });
}

void SelectionReader::useContents(const Request &request, bool isHad)
{
    if (request.isText()) {
        useText(request, isHad);
        return;
    }
    if (m_conversion.state() == IncomingConversion::State::TooLarge)
        CopyQuestions::refuse(request.question, m_fetched);
    if (!isHad)
        return;
    CopyQuestions::use(request.question, m_conversion.bytes(), {}, m_fetched);
    dropOthersLike(request);
}

void SelectionReader::useText(const Request &request, bool isHad)
{
    if (m_conversion.state() == IncomingConversion::State::TooLarge) {
        // Without its text the copy is of no use, so the rest is not even asked for.
        m_fetched.isTextTooLarge = true;
        m_requests.clear();
        m_texts.isRefused = false;
        return;
    }
    m_texts.isRefused = !isHad;
    if (!isHad)
        return;
    dropOthersLike(request);
    CopyQuestions::use(request.question, m_conversion.bytes(),
                       m_connection.namesOf({m_conversion.type()}).first(), m_fetched);
    if (m_wish == Wish::Text)
        m_requests.clear();
}

void SelectionReader::useRest(const Request &request)
{
    // What is refused was listed for nothing, which loses nothing.
    m_fetched.isRestTooLarge |= m_conversion.state() == IncomingConversion::State::TooLarge;
    if (m_conversion.state() != IncomingConversion::State::Whole)
        return;
    // Type and format as the owner gave them. They need not follow from the target: that of TEXT is
    // the owner's choice (ICCCM 2.6.2).
    m_fetched.rest.append(
        {request.target, {m_conversion.type(), m_conversion.bytes(), m_conversion.format()}, {}});
    m_maxBytes -= m_conversion.bytes().size();
    dropOthersLike(request);
}

void SelectionReader::finish()
{
    m_conversion.abandon();
    m_requests.clear();
    m_askAgainAt.reset();
    m_isReading = false;
    m_isFinished = true;
    CopyQuestions::complete(m_fetched);
}
