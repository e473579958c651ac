#include "platform/x11/SelectionReader.h"

#include "platform/pasteboard/FileUris.h"
#include "platform/pasteboard/SelectionText.h"
#include "platform/pasteboard/TextFormats.h"
#include "platform/x11/SelectionConnection.h"

#include <algorithm>
#include <cstring>
#include <utility>
#include <vector>

namespace {

constexpr qint64 kMostTargetBytes = 64 * 1024;
constexpr qsizetype kMostTypes = 1024;
constexpr qsizetype kMostNames = 4096;

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

void SelectionReader::begin(xcb_atom_t selection, xcb_timestamp_t time, qint64 mostTextBytes,
                            Wish wish)
{
    m_wish = wish;
    m_selection = selection;
    m_time = time;
    m_mostTextBytes = mostTextBytes;
    m_isReading = true;
    m_isFinished = false;
    m_begun = std::chrono::steady_clock::now();
    m_isInterrupted = false;
    m_missing.clear();
    m_offered.clear();
    m_texts.clear();
    m_mayHaveNoText = false;
    m_askAgainAt.reset();
    m_timesAskedAgain = 0;
    m_fetched = FetchedSelection();
    m_requests = {{Part::Targets, m_connection.atoms().targets}};
    askNext();
}

bool SelectionReader::handle(const xcb_selection_notify_event_t &event)
{
    if (!m_isReading || !m_conversion.handle(event))
        return false;
    goOn();
    return true;
}

bool SelectionReader::handle(const xcb_property_notify_event_t &event)
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
        m_requests = m_texts;
        askNext();
        return;
    }
    // A hung owner would not answer the next question either.
    m_isInterrupted = true;
    m_fetched.isGivenUp = true;
    finish();
}

std::optional<SelectionReader::TimePoint> SelectionReader::deadline() const
{
    if (!m_isReading)
        return std::nullopt;
    if (m_askAgainAt)
        return m_askAgainAt;
    return std::min(m_lastProgress + m_limits.ownerStall, m_begun + m_limits.fetch);
}

std::optional<FetchedSelection> SelectionReader::takeFinished()
{
    if (!std::exchange(m_isFinished, false))
        return std::nullopt;
    return std::exchange(m_fetched, FetchedSelection());
}

FetchedSelection SelectionReader::abandon()
{
    m_isInterrupted = true;
    finish();
    m_isFinished = false;
    return std::exchange(m_fetched, FetchedSelection());
}

void SelectionReader::askNext()
{
    m_lastProgress = std::chrono::steady_clock::now();
    if (m_requests.isEmpty()) {
        if (!waitToAskAgain())
            finish();
        return;
    }
    const Request &request = m_requests.first();
    qint64 mostBytes = PasteboardLimits::kLargestFormat;
    if (request.part == Part::Targets)
        mostBytes = kMostTargetBytes;
    else if (request.part == Part::Text)
        mostBytes = m_mostTextBytes;
    m_conversion.ask(m_selection, request.target, m_time, mostBytes);
}

void SelectionReader::goOn()
{
    m_lastProgress = std::chrono::steady_clock::now();
    if (m_conversion.isUnderWay())
        return;
    useAnswer();
    if (m_isReading)
        askNext();
}

void SelectionReader::useAnswer()
{
    using State = IncomingConversion::State;
    const Request request = m_requests.takeFirst();
    if (request.part == Part::Targets) {
        useTargets();
        return;
    }
    if (m_conversion.state() == State::TooLarge && request.part == Part::Text) {
        // Without its text the copy is of no use, so the rest is not even asked for.
        m_fetched.isTextTooLarge = true;
        m_requests.clear();
        m_missing.clear();
        return;
    }
    if (m_conversion.state() != State::Whole || m_conversion.format() != 8) {
        const auto isSamePart = [&](const Request &other) { return other.part == request.part; };
        if (std::none_of(m_requests.begin(), m_requests.end(), isSamePart))
            m_missing.insert(request.part);
        return;
    }
    m_missing.remove(request.part);
    switch (request.part) {
    case Part::Targets:
        break;
    case Part::Text:
        useText();
        break;
    case Part::Rtf:
        m_fetched.rtf = m_conversion.bytes();
        dropRequests(Part::Rtf);
        break;
    case Part::Files:
        useFiles();
        break;
    case Part::CutMark:
        if (m_conversion.bytes().startsWith('1'))
            m_fetched.fileAction = FileUris::Action::Cut;
        break;
    }
}

void SelectionReader::useTargets()
{
    const SelectionAtoms &atoms = m_connection.atoms();
    if (m_conversion.state() == IncomingConversion::State::Whole && m_conversion.format() == 32) {
        m_offered = atomsOf(m_conversion.bytes());
        if (m_wish == Wish::Copy && m_offered.contains(atoms.passwordHint)) {
            m_fetched.isConcealed = true;
            return;
        }
        planFormats();
        return;
    }
    // An owner too simple to list its formats may still have a text.
    m_requests = {{Part::Text, atoms.utf8String}, {Part::Text, XCB_ATOM_STRING}};
}

void SelectionReader::planFormats()
{
    const SelectionAtoms &atoms = m_connection.atoms();
    const QList<xcb_atom_t> named = m_offered.mid(0, kMostTypes);
    const QStringList names = namesOf(named);
    for (const QString &name : TextFormats::inOrder(names)) {
        const auto atom = std::find_if(named.begin(), named.end(),
                                       [&](xcb_atom_t one) { return nameOf(one) == name; });
        m_texts.append({Part::Text, *atom});
    }
    m_requests = m_texts;
    m_mayHaveNoText = TextFormats::mayHoldNone(names);
    const Request wanted[] = {
        {Part::Rtf, atoms.textRtf},
        {Part::Rtf, atoms.applicationRtf},
        {Part::Files, atoms.uriList},
        // Asked for beside the other list, because only this one may say that the files were cut.
        {Part::Files, atoms.gnomeCopiedFiles},
        {Part::CutMark, atoms.kdeCutSelection},
    };
    for (const Request &request : wanted) {
        if (m_offered.contains(request.target))
            m_requests.append(request);
    }
}

bool SelectionReader::waitToAskAgain()
{
    if (!m_missing.contains(Part::Text) || m_texts.isEmpty() || m_mayHaveNoText ||
        m_timesAskedAgain == m_limits.askAgain.size())
        return false;
    m_askAgainAt = m_lastProgress + m_limits.askAgain.at(m_timesAskedAgain++);
    return true;
}

void SelectionReader::useText()
{
    const xcb_atom_t target = m_conversion.target();
    const xcb_atom_t type = m_conversion.type();
    const QByteArray text = TextFormats::toUtf8(m_conversion.bytes(), nameOf(target), nameOf(type));
    // Drawing programs may as well answer with nothing as refuse.
    if (!text.isEmpty() || !m_mayHaveNoText)
        m_fetched.text = text;
    dropRequests(Part::Text);
    if (m_wish == Wish::Text)
        m_requests.clear();
}

void SelectionReader::useFiles()
{
    if (m_conversion.target() == m_connection.atoms().gnomeCopiedFiles) {
        if (m_fetched.fileNames.isEmpty())
            m_fetched.fileNames = FileUris::filesOfGnomeList(m_conversion.bytes());
        m_fetched.fileAction = FileUris::actionOfGnomeList(m_conversion.bytes());
        return;
    }
    m_fetched.uriList = m_conversion.bytes();
    m_fetched.fileNames = FileUris::filesOfUriList(m_fetched.uriList);
}

void SelectionReader::dropRequests(Part part)
{
    m_requests.removeIf([part](const Request &request) { return request.part == part; });
}

void SelectionReader::finish()
{
    m_conversion.abandon();
    m_requests.clear();
    m_askAgainAt.reset();
    m_isReading = false;
    m_isFinished = true;
    const QList<xcb_atom_t> named = m_offered.mid(0, kMostTypes);
    m_fetched.types = namesOf(named);
    for (const xcb_atom_t atom : named)
        m_fetched.atoms[nameOf(atom)] = atom;
    m_missing.remove(Part::CutMark);
    if (m_mayHaveNoText)
        m_missing.remove(Part::Text);
    if (!m_fetched.fileNames.isEmpty())
        m_missing.remove(Part::Files);
    m_fetched.isComplete = !m_isInterrupted && m_missing.isEmpty();
    const qsizetype files = m_fetched.fileNames.size();
    if (files == 0 || m_fetched.isTextTooLarge)
        return;
    // Many file managers offer no text, or what they have as the list already.
    if (!m_fetched.text || FileUris::areAddresses(*m_fetched.text, files)) {
        m_fetched.text = SelectionText::toUtf8(FileUris::paths(m_fetched.fileNames));
    }
}

void SelectionReader::learnNames(const QList<xcb_atom_t> &atoms)
{
    if (m_names.size() > kMostNames)
        m_names.clear();
    std::vector<std::pair<xcb_atom_t, xcb_get_atom_name_cookie_t>> asked;
    for (const xcb_atom_t atom : atoms) {
        if (!m_names.contains(atom))
            asked.emplace_back(atom, xcb_get_atom_name(m_connection.xcb(), atom));
    }
    for (const auto &[atom, cookie] : asked) {
        const XcbPointer<xcb_get_atom_name_reply_t> reply(
            xcb_get_atom_name_reply(m_connection.xcb(), cookie, nullptr));
        if (reply)
            m_names[atom] = QString::fromUtf8(xcb_get_atom_name_name(reply.get()),
                                              xcb_get_atom_name_name_length(reply.get()));
    }
}

QString SelectionReader::nameOf(xcb_atom_t atom)
{
    learnNames({atom});
    return m_names.value(atom);
}

QStringList SelectionReader::namesOf(const QList<xcb_atom_t> &atoms)
{
    learnNames(atoms);
    QStringList names;
    for (const xcb_atom_t atom : atoms) {
        if (const QString name = nameOf(atom); !name.isEmpty())
            names.append(name);
    }
    return names;
}
