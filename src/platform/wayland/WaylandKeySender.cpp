#include "platform/wayland/WaylandKeySender.h"

#include "platform/ApplicationNames.h"
#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"

#include <utility>

namespace {

/// For another computer to hear of the clip: what the keys start must find it there. Nobody can
/// know whether it has, because the compositor tells of what is copied by itself.
constexpr std::chrono::milliseconds kJourney{150};

const KeySequence kPasteInTerminal{{CarbonModifiers::kControl | CarbonModifiers::kShift, 'v'}};

} // namespace

WaylandKeySender::WaylandKeySender(std::unique_ptr<Typist> typist,
                                   std::shared_ptr<const Toplevels> toplevels,
                                   const ApplicationNames &names, Selections selections,
                                   KnownKeys::UsersTable usersTable)
    : m_typist(std::move(typist)), m_toplevels(std::move(toplevels)), m_names(names),
      m_selections(std::move(selections)), m_knownKeys(std::move(usersTable)),
      m_typeAhead(*m_typist)
{
    m_journey.setSingleShot(true);
}

KeySender::Outcome WaylandKeySender::sendCommand(quint32 keyCode)
{
    if (!isAvailable() || (keyCode != VirtualKey::kC && keyCode != VirtualKey::kV))
        return Outcome::Failed;
    const ApplicationKeys keys = keysOfFront();
    return keyCode == VirtualKey::kC ? copy(keys) : paste(keys, keys.paste);
}

KeySender::Outcome WaylandKeySender::sendPasteOverCopied()
{
    if (!isAvailable())
        return Outcome::Failed;
    const ApplicationKeys keys = keysOfFront();
    return paste(keys, keys.replace);
}

Toplevels::Id WaylandKeySender::inFront() const
{
    const std::optional<Toplevels::Window> front = m_toplevels->front();
    return front ? front->id : 0;
}

ApplicationKeys WaylandKeySender::keysOfFront()
{
    m_journey.stop();
    const WindowIdentity identity = identityOf(m_toplevels->front().value_or(Toplevels::Window()));
    return m_knownKeys.keysOf(identity, m_names.identify(identity).isTerminal);
}

KeySender::Outcome WaylandKeySender::copy(const ApplicationKeys &keys)
{
    // In a terminal: Ctrl-C would end the program inside, and what is marked is PRIMARY already.
    if (keys.copiesMarked && !m_selections.publishPrimary)
        return Outcome::NoKnownKeys;
    if (keys.copiesMarked) {
        m_selections.publishPrimary(inFront());
        return Outcome::Sent;
    }
    return keys.copy.empty() ? Outcome::NoKnownKeys : m_typist->type(keys.copy);
}

KeySender::Outcome WaylandKeySender::paste(const ApplicationKeys &keys, KeySequence sequence)
{
    if (sequence.empty())
        return Outcome::NoKnownKeys;
    m_selections.expectPaste();
    // As Shift-Insert does in terminals, where Ctrl-V types a control character. Most of them take
    // the clipboard, too.
    if (keys.pastesPrimary && m_selections.offerPrimary)
        m_selections.offerPrimary();
    else if (keys.pastesPrimary)
        sequence = kPasteInTerminal;
    if (keys.remote == ApplicationKeys::Remote::No)
        return typePaste(sequence);
    m_journey.disconnect();
    m_journey.callOnTimeout(
        [this, target = inFront(), sequence] { pasteTakenOver(target, sequence); });
    m_journey.start(kJourney);
    return Outcome::Sent;
}

void WaylandKeySender::pasteTakenOver(Toplevels::Id target, const KeySequence &sequence)
{
    const bool isSent = inFront() == target && typePaste(sequence) == Outcome::Sent;
    if (!isSent && m_givenUp)
        m_givenUp();
}

KeySender::Outcome WaylandKeySender::typePaste(const KeySequence &sequence)
{
    const Outcome outcome = m_typist->type(sequence);
    if (outcome == Outcome::Sent)
        m_typeAhead.begin();
    return outcome;
}
