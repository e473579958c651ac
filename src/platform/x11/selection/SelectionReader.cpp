#include "platform/x11/selection/SelectionReader.h"

#include "platform/pasteboard/TextFormats.h"
#include "platform/x11/selection/SelectionConnection.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace {

constexpr qint64 kMaxTargetBytes = 64 * 1024;
constexpr qsizetype kMaxNamed = 1024;

QList<xcb_atom_t> atomsOf(const QByteArray &bytes)
{
    QList<xcb_atom_t> atoms(bytes.size() / qsizetype(sizeof(xcb_atom_t)));
    std::memcpy(atoms.data(), bytes.constData(), atoms.size() * sizeof(xcb_atom_t));
    return atoms;
}

} // namespace

SelectionReader::SelectionReader(SelectionConnection &connection, PropertyPool &pool,
                                 const PasteboardLimits &limits)
    : m_connection(connection), m_limits(limits), m_conversion(connection, pool)
{
}

void SelectionReader::begin(xcb_atom_t selection, xcb_timestamp_t time, qint64 maxTextBytes,
                            Wish wish)
{
    restart(selection, time, maxTextBytes, m_limits.fetch);
    m_wish = wish;
    m_requests = {{Part::Targets, m_connection.atoms().targets}};
    askNext();
}

void SelectionReader::beginRest(xcb_atom_t selection, xcb_timestamp_t time,
                                const QList<QList<xcb_atom_t>> &alternatives, qint64 maxBytes)
{
    restart(selection, time, maxBytes, m_limits.keep);
    for (qsizetype row = 0; row < alternatives.size(); ++row) {
        for (const xcb_atom_t target : alternatives[row])
            m_requests.append({Part::Rest, target, row});
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
    if (m_requests.isEmpty()) {
        if (!waitToAskAgain())
            finish();
        return;
    }
    const Request &request = m_requests.first();
    qint64 maxBytes = PasteboardLimits::kMaxFormat;
    if (request.part == Part::Targets)
        maxBytes = kMaxTargetBytes;
    else if (request.part == Part::Text || request.part == Part::Rest)
        maxBytes = m_maxBytes;
    else if (request.part == Part::Format)
        maxBytes =
            std::min(maxBytes, copyFormats()
                                   .at(request.row)
                                   .maxBytes(m_fetched.copy.text.value_or(QByteArray()).size()));
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
    case Part::Targets:
        useTargets();
        break;
    case Part::Text:
        useText(request, isHad);
        break;
    case Part::Format:
        if (isHad) {
            m_fetched.copy.formats[&copyFormats()[request.row]] = m_conversion.bytes();
            dropOthersLike(request);
        }
        break;
    case Part::Files:
        if (isHad)
            useFiles();
        break;
    case Part::CutMark:
        if (isHad && m_conversion.bytes().startsWith('1'))
            m_fetched.copy.fileAction = FileUris::Action::Cut;
        break;
    case Part::Rest:
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
            planFormats(offered.mid(0, kMaxNamed));
        return;
    }
    // An owner too simple to list its formats may still have a text.
    m_requests = {{Part::Text, atoms.formats[QStringLiteral("UTF8_STRING")]},
                  {Part::Text, XCB_ATOM_STRING}};
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
    for (const QString &name : TextFormats::inOrder(names))
        m_texts.requests.append({Part::Text, m_fetched.atoms[name]});
    m_requests = m_texts.requests;
    m_texts.mayBeNone = TextFormats::mayHoldNone(names);
    const auto plan = [&](Part part, const QString &name, qsizetype row = 0) {
        if (m_fetched.atoms.contains(name))
            m_requests.append({part, m_fetched.atoms[name], row});
    };
    for (qsizetype row = 0; row < copyFormats().size(); ++row) {
        for (const QString &name : copyFormats()[row].names)
            plan(Part::Format, name, row);
    }
    plan(Part::Files, FileUris::kUriList);
    // Asked for beside the other list, because only this one may say that the files were cut.
    plan(Part::Files, FileUris::kGnomeList);
    plan(Part::CutMark, FileUris::kKdeCut);
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
    m_requests.removeIf(
        [&](const Request &request) { return request.part == had.part && request.row == had.row; });
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
    const QStringList names = m_connection.namesOf({m_conversion.target(), m_conversion.type()});
    const QByteArray text = TextFormats::toUtf8(m_conversion.bytes(), names[0], names[1]);
    // Drawing programs may as well answer with nothing as refuse.
    if (!text.isEmpty() || !m_texts.mayBeNone)
        m_fetched.copy.text = text;
    if (m_wish == Wish::Text)
        m_requests.clear();
}

void SelectionReader::useFiles()
{
    CopyBytes &copy = m_fetched.copy;
    const QByteArray &bytes = m_conversion.bytes();
    if (m_conversion.target() == m_fetched.atoms.value(FileUris::kUriList)) {
        copy.uriList = bytes;
        copy.fileNames = FileUris::filesOfUriList(bytes);
        return;
    }
    if (copy.fileNames.isEmpty())
        copy.fileNames = FileUris::filesOfGnomeList(bytes);
    copy.fileAction = FileUris::actionOfGnomeList(bytes);
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
    CopyBytes &copy = m_fetched.copy;
    const qsizetype files = copy.fileNames.size();
    if (files == 0 || m_fetched.isTextTooLarge)
        return;
    // Many file managers offer no text, or what they have as the list already.
    if (!copy.text || FileUris::areAddresses(*copy.text, files))
        copy.text = CopyBytes::of(Copy{{}, {}, copy.fileNames}.withText()).text;
}
