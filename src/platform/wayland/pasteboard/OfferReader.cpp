#include "platform/wayland/pasteboard/OfferReader.h"

#include "platform/pasteboard/TextFormats.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <utility>

namespace {

// Read at a time, so that one that pours does not keep the others waiting.
constexpr qsizetype kAtOnce = 1024 * 1024;
constexpr qsizetype kPieceBytes = 64 * 1024;
// What was asked before another copy came is there by then, or its owner hangs.
constexpr std::chrono::milliseconds kOutdatedPatience{250};

using Part = CopyQuestions::Question::Part;

} // namespace

bool OfferReader::Request::isText() const
{
    return !restRow && question.part == Part::Text;
}

bool OfferReader::Request::isLike(const Request &other) const
{
    if (restRow || other.restRow)
        return restRow == other.restRow;
    return question.isLike(other.question);
}

OfferReader::OfferReader(WaylandConnection &connection, const PasteboardLimits &limits,
                         std::function<void()> finished)
    : m_connection(connection), m_limits(limits), m_finished(std::move(finished))
{
}

void OfferReader::begin(std::shared_ptr<DataOffer> offer, const CopyQuestions::Useful &useful,
                        Wish wish)
{
    const QStringList names = offer->names();
    restart(std::move(offer), useful.text, m_limits.fetch);
    m_wish = wish;
    // That it is listed is enough: asking for its value would be one conversation more with the
    // owner of a secret.
    m_fetched.isConcealed = wish == Wish::Copy && names.contains(CopyQuestions::kSecretMark);
    if (!m_fetched.isConcealed) {
        m_fetched.names = names;
        for (const CopyQuestions::Question &question : CopyQuestions::of(names, useful)) {
            if (question.part == Part::Text)
                m_texts.append({question});
            if (question.part == Part::Text || wish == Wish::Copy)
                m_waiting.append({question});
        }
    }
    askNext();
}

void OfferReader::beginRest(std::shared_ptr<DataOffer> offer,
                            const QList<QStringList> &alternatives, qint64 maxBytes)
{
    restart(std::move(offer), maxBytes, m_limits.keep);
    for (qsizetype row = 0; row < alternatives.size(); ++row) {
        for (const QString &name : alternatives[row])
            m_waiting.append({{Part::Format, name}, row});
    }
    askNext();
}

void OfferReader::restart(std::shared_ptr<DataOffer> offer, qint64 maxBytes,
                          std::chrono::milliseconds patience)
{
    m_offer = std::move(offer);
    m_maxBytes = maxBytes;
    m_isReading = true;
    m_isFinished = false;
    m_isOutdated = false;
    m_lastProgress = m_limits.now();
    m_end = m_lastProgress + patience;
    m_texts.clear();
    m_waiting.clear();
    m_formats.clear();
    m_timesAskedAgain = 0;
    m_fetched = Result();
}

void OfferReader::outdate()
{
    if (!m_isReading || m_isOutdated)
        return;
    m_isOutdated = true;
    m_waiting.clear();
    m_askAgainAt.reset();
    m_end = std::min(m_end, m_limits.now() + kOutdatedPatience);
    if (m_pipes.empty())
        finish();
}

void OfferReader::checkClock(TimePoint now)
{
    if (!m_isReading || now < *deadline())
        return;
    if (m_askAgainAt) {
        m_askAgainAt.reset();
        m_lastProgress = now;
        m_waiting = m_texts;
        askNext();
        return;
    }
    // A hung owner would not answer the next question either.
    m_fetched.isGivenUp = true;
    finish();
}

std::optional<OfferReader::TimePoint> OfferReader::deadline() const
{
    if (!m_isReading)
        return std::nullopt;
    if (m_askAgainAt)
        return m_askAgainAt;
    return std::min(m_lastProgress + m_limits.ownerStall, m_end);
}

std::optional<OfferReader::Result> OfferReader::takeFinished()
{
    if (!std::exchange(m_isFinished, false))
        return std::nullopt;
    return std::exchange(m_fetched, Result());
}

OfferReader::Result OfferReader::abandon()
{
    if (m_isReading) {
        // What its owner had written by now was there before whatever ends the reading.
        m_waiting.clear();
        std::vector<quint64> open;
        for (const Pipe &pipe : m_pipes)
            open.push_back(pipe.number);
        for (const quint64 number : open) {
            const auto pipe = find(number);
            if (pipe != m_pipes.end() && pipe->end.fd() >= 0 && readSome(*pipe))
                useAnswer(pipe);
        }
        finish();
    }
    m_isFinished = false;
    return std::exchange(m_fetched, Result());
}

void OfferReader::askNext()
{
    m_waiting.removeIf([this](const Request &request) {
        return !request.restRow && !CopyQuestions::isOfUse(request.question, m_fetched);
    });
    // Of what is answered by nothing at once nobody is told in between.
    m_isAsking = true;
    for (qsizetype i = 0; i < m_waiting.size();) {
        if (isReady(m_waiting[i]))
            ask(m_waiting.takeAt(i));
        else
            ++i;
    }
    m_isAsking = false;
    if (m_pipes.empty() && !waitToAskAgain())
        finish();
}

bool OfferReader::isReady(const Request &request) const
{
    const bool isPicture = !request.restRow && request.question.part == Part::Picture;
    return std::none_of(m_pipes.begin(), m_pipes.end(), [&](const Pipe &pipe) {
        // Whether a picture is of use is known when there turns out to be nothing else.
        const bool isOther =
            pipe.request.question.part == Part::Text || pipe.request.question.part == Part::Files;
        return request.restRow || pipe.request.isLike(request) || (isPicture && isOther);
    });
}

void OfferReader::ask(const Request &request)
{
    const quint64 number = ++m_pipesMade;
    m_pipes.push_back({number, request});
    const std::weak_ptr<bool> life = m_life;
    m_offer->open(request.question.name, [this, number, life](ReadingEnd end) {
        if (!life.expired())
            handleOpened(number, std::move(end));
    });
}

void OfferReader::handleOpened(quint64 number, ReadingEnd end)
{
    const auto pipe = find(number);
    // Given up meanwhile.
    if (pipe == m_pipes.end())
        return;
    if (end.fd() < 0) {
        go(pipe);
        return;
    }
    m_lastProgress = m_limits.now();
    pipe->end = std::move(end);
    m_connection.watch(pipe->end.fd(), POLLIN, [this, number](short) { handleReady(number); });
}

void OfferReader::handleReady(quint64 number)
{
    const auto pipe = find(number);
    if (pipe == m_pipes.end())
        return;
    m_lastProgress = m_limits.now();
    if (readSome(*pipe))
        go(pipe);
}

/// Goes on after what came of one of them. Last in whatever calls it: who is told that this was all
/// may end this object.
void OfferReader::go(const Pipes::iterator &pipe)
{
    useAnswer(pipe);
    if (m_isReading && !m_isAsking)
        askNext();
    if (m_isFinished && !m_isAsking) {
        const auto finished = m_finished;
        finished();
    }
}

OfferReader::Pipes::iterator OfferReader::find(quint64 number)
{
    return std::ranges::find(m_pipes, number, &Pipe::number);
}

/// True when nothing more is to come, or is wanted.
bool OfferReader::readSome(Pipe &pipe) const
{
    for (qsizetype left = kAtOnce; left > 0;) {
        const qsizetype size = pipe.bytes.size();
        pipe.bytes.resize(size + kPieceBytes);
        const ssize_t got = read(pipe.end.fd(), pipe.bytes.data() + size, kPieceBytes);
        const int error = errno;
        pipe.bytes.resize(size + std::max<ssize_t>(got, 0));
        if (got < 0 && error == EINTR)
            continue;
        if (got < 0)
            return error != EAGAIN;
        if (got == 0)
            return true;
        if (pipe.bytes.size() > maxBytes(pipe.request)) {
            pipe.isTooLarge = true;
            return true;
        }
        left -= got;
    }
    return false;
}

void OfferReader::useAnswer(const Pipes::iterator &pipe)
{
    // Taken out first, so that nothing counts it as under way.
    Pipe answered = take(pipe);
    answered.bytes.squeeze();
    if (answered.request.restRow)
        useRest(answered);
    else if (answered.request.isText())
        useText(answered);
    else if (answered.isTooLarge)
        CopyQuestions::refuse(answered.request.question, m_fetched);
    else if (!answered.bytes.isEmpty() && answered.request.question.part != Part::Format) {
        CopyQuestions::use(answered.request.question, answered.bytes, {}, m_fetched);
        dropOthersLike(answered.request);
    } else if (!answered.bytes.isEmpty()) {
        m_formats.append({answered.request, answered.bytes});
        dropOthersLike(answered.request);
    }
}

void OfferReader::useText(const Pipe &pipe)
{
    if (pipe.isTooLarge) {
        // Without its text the copy is of no use, so the rest is not even waited for.
        m_fetched.isTextTooLarge = true;
        finish();
        return;
    }
    // An owner that could not be asked any more has not said that there is nothing.
    if (pipe.bytes.isEmpty())
        return;
    CopyQuestions::use(pipe.request.question, pipe.bytes, {}, m_fetched);
    dropOthersLike(pipe.request);
}

void OfferReader::useRest(const Pipe &pipe)
{
    m_fetched.isRestTooLarge |= pipe.isTooLarge;
    // Nothing is what one answers that does not have it after all, which loses nothing.
    if (pipe.isTooLarge || pipe.bytes.isEmpty())
        return;
    m_fetched.rest.append({pipe.request.question.name, pipe.bytes, {}});
    m_maxBytes -= pipe.bytes.size();
    dropOthersLike(pipe.request);
}

bool OfferReader::isTextAwaited() const
{
    const auto isText = [](const auto &asked) { return asked.isText(); };
    return std::any_of(m_waiting.begin(), m_waiting.end(), isText) ||
           std::any_of(m_pipes.begin(), m_pipes.end(),
                       [&](const Pipe &pipe) { return isText(pipe.request); });
}

qint64 OfferReader::maxBytes(const Request &request) const
{
    if (request.restRow || request.isText())
        return m_maxBytes;
    return isTextAwaited() ? PasteboardLimits::kMaxFormat : request.question.maxBytes(m_fetched);
}

/// What is had under one name need not be asked for under the others.
void OfferReader::dropOthersLike(const Request &had)
{
    m_waiting.removeIf([&](const Request &request) { return request.isLike(had); });
}

bool OfferReader::waitToAskAgain()
{
    if (m_texts.isEmpty() || m_fetched.copy.text || m_fetched.isTextTooLarge || m_isOutdated ||
        TextFormats::mayHoldNone(m_fetched.names))
        return false;
    if (m_timesAskedAgain == m_limits.askAgain.size()) {
        m_fetched.copy.text = QByteArrayLiteral("");
        return false;
    }
    m_askAgainAt = m_limits.now() + m_limits.askAgain.at(m_timesAskedAgain++);
    return true;
}

/// What is taken is closed with its end.
OfferReader::Pipe OfferReader::take(const Pipes::iterator &pipe)
{
    if (pipe->end.fd() >= 0)
        m_connection.unwatch(pipe->end.fd());
    Pipe taken = std::move(*pipe);
    m_pipes.erase(pipe);
    return taken;
}

void OfferReader::stop()
{
    while (!m_pipes.empty())
        take(std::prev(m_pipes.end()));
    m_waiting.clear();
    m_askAgainAt.reset();
    m_isReading = false;
    m_offer.reset();
}

void OfferReader::finish()
{
    stop();
    m_isFinished = true;
    if (m_fetched.isTextTooLarge)
        return;
    for (const Answer &answer : std::exchange(m_formats, {})) {
        if (answer.bytes.size() <= answer.request.question.maxBytes(m_fetched))
            CopyQuestions::use(answer.request.question, answer.bytes, {}, m_fetched);
    }
    CopyQuestions::complete(m_fetched);
}
