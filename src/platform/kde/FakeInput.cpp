#include "platform/kde/FakeInput.h"

#include "platform/typing/KeyStrokes.h"
#include "platform/wayland/HeldModifiers.h"
#include "platform/wayland/WaylandConnection.h"

#include <fake-input-client-protocol.h>

#include <utility>

FakeInput::FakeInput(std::shared_ptr<WaylandConnection> connection,
                     std::shared_ptr<Toplevels> toplevels)
    : m_connection(std::move(connection)), m_toplevels(std::move(toplevels)),
      m_states(m_connection), m_keyboard(m_connection, [this](const QByteArray &text) {
          const MutexLock lock(m_mutex);
          m_keymap = text;
      })
{
    follow();
    m_connection->addGlobalListener(this, [this](const QByteArray &interface, quint32, bool) {
        if (interface == kInterface)
            follow();
    });
    m_connection->addLossListener(this, [this] { m_isAvailable = false; });
}

FakeInput::~FakeInput()
{
    m_connection->removeListeners(this);
    if (!m_connection->run([this] { end(); }))
        end();
}

KeySender::Outcome FakeInput::type(const KeySequence &sequence)
{
    using Outcome = KeySender::Outcome;
    const auto strokes = KeyStrokes::of(sequence, keymap().get());
    if (!strokes)
        return Outcome::NoKnownKeys;
    const auto deadline = std::chrono::steady_clock::now() + kPatience;
    const bool areReleased = m_states.areKnown()
                                 ? m_states.awaitReleased(deadline)
                                 : HeldModifiers::awaitReleased(*m_toplevels, deadline);
    if (!areReleased)
        return Outcome::KeysHeld;
    bool isSent = false;
    const bool hasRun = m_connection->run([&] {
        if (!m_input)
            return;
        for (const auto &[code, isPress] : *strokes)
            org_kde_kwin_fake_input_keyboard_key(m_input, code, isPress ? 1 : 0);
        isSent = m_connection->roundTrip();
    });
    return hasRun && isSent ? Outcome::Sent : Outcome::Failed;
}

XkbPointer<xkb_keymap> FakeInput::keymap() const
{
    const MutexLock lock(m_mutex);
    return Xkb::keymapOf(m_keymap);
}

/// Binds what is offered now, unless it is bound.
void FakeInput::follow()
{
    const bool isOffered = m_connection->versionOf(kInterface) >= kLeastVersion;
    if (!isOffered)
        end();
    if (!isOffered || m_input)
        return;
    m_input = m_connection->bind<org_kde_kwin_fake_input>(org_kde_kwin_fake_input_interface,
                                                          kLeastVersion);
    // Shown to nobody by now: the desktop entry has decided.
    org_kde_kwin_fake_input_authenticate(m_input, "Quillmarsh", "pastes clips");
    m_isAvailable = true;
}

void FakeInput::end()
{
    m_isAvailable = false;
    // On our side alone: newer descriptions of the protocol have a request for it that our version
    // of the interface lacks.
    if (m_input)
        wl_proxy_destroy(reinterpret_cast<wl_proxy *>(std::exchange(m_input, nullptr)));
}
