#include "platform/x11/selection/SelectionReader.h"

#include "platform/pasteboard/TextFormats.h"
#include "platform/x11/selection/SelectionConnection.h"

#include <algorithm>
#include <cstring>
#include <utility>
#include <vector>

namespace {

constexpr qint64 kMaxTargetBytes = 64 * 1024;
constexpr qsizetype kMaxNamed = 1024;
constexpr qsizetype kMaxNames = 4096;

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
    m_wish = wish;
    m_selection = selection;
    m_time = time;
    m_maxTextBytes = maxTextBytes;
    m_isReading = true;
    m_isFinished = false;
    m_begun = m_connection.now();
    m_texts.clear();
    m_mayHaveNoText = false;
    m_isTextRefused = false;
    m_askAgainAt.reset();
    m_timesAskedAgain = 0;
    m_fetched = FetchedSelection();
    m_requests = {{Part::Targets, m_connection.atoms().targets}};
    askNext();
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
        m_requests = m_texts;
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
    else if (request.part == Part::Text)
        maxBytes = m_maxTextBytes;
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
        m_isTextRefused = false;
        return;
    }
    const bool isHad = m_conversion.state() == State::Whole && m_conversion.format() == 8;
    if (request.part == Part::Text)
        m_isTextRefused = !isHad;
    if (!isHad)
        return;
    switch (request.part) {
    case Part::Targets:
        break;
    case Part::Text:
        dropOthersLike(request);
        useText();
        break;
    case Part::Format:
        m_fetched.copy.formats[request.format] = m_conversion.bytes();
        dropOthersLike(request);
        break;
    case Part::Files:
        useFiles();
        break;
    case Part::CutMark:
        if (m_conversion.bytes().startsWith('1'))
            m_fetched.copy.fileAction = FileUris::Action::Cut;
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
    const QStringList names = namesOf(offered);
    for (qsizetype i = 0; i < offered.size(); ++i) {
        if (names[i].isEmpty())
            continue;
        m_fetched.names.append(names[i]);
        m_fetched.atoms[names[i]] = offered[i];
    }
    for (const QString &name : TextFormats::inOrder(names))
        m_texts.append({Part::Text, m_fetched.atoms[name]});
    m_requests = m_texts;
    m_mayHaveNoText = TextFormats::mayHoldNone(names);
    const auto plan = [&](Part part, const QString &name, const CopyFormat *format = nullptr) {
        if (m_fetched.atoms.contains(name))
            m_requests.append({part, m_fetched.atoms[name], format});
    };
    for (const CopyFormat &format : copyFormats()) {
        for (const QString &name : format.names)
            plan(Part::Format, name, &format);
    }
    plan(Part::Files, FileUris::kUriList);
    // Asked for beside the other list, because only this one may say that the files were cut.
    plan(Part::Files, FileUris::kGnomeList);
    plan(Part::CutMark, FileUris::kKdeCut);
}

bool SelectionReader::waitToAskAgain()
{
    if (!m_isTextRefused || m_texts.isEmpty() || m_mayHaveNoText ||
        m_timesAskedAgain == m_limits.askAgain.size())
        return false;
    m_askAgainAt = m_lastProgress + m_limits.askAgain.at(m_timesAskedAgain++);
    return true;
}

/// What is had under one name need not be asked for under the others.
void SelectionReader::dropOthersLike(const Request &had)
{
    m_requests.removeIf([&](const Request &request) {
        return request.part == had.part && request.format == had.format;
    });
}

void SelectionReader::useText()
{
    const QStringList names = namesOf({m_conversion.target(), m_conversion.type()});
    const QByteArray text = TextFormats::toUtf8(m_conversion.bytes(), names[0], names[1]);
    // Drawing programs may as well answer with nothing as refuse.
    if (!text.isEmpty() || !m_mayHaveNoText)
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

QStringList SelectionReader::namesOf(const QList<xcb_atom_t> &atoms)
{
    if (m_names.size() > kMaxNames)
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
    QStringList names;
    for (const xcb_atom_t atom : atoms)
        names.append(m_names.value(atom));
    return names;
}
