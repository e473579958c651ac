#include "platform/portal/PortalTypist.h"

#include "platform/portal/PortalBus.h"
#include "platform/portal/RemoteControlSession.h"
#include "platform/typing/KeyStrokes.h"
#include "platform/wayland/HeldModifiers.h"

#include <QDBusObjectPath>

#include <utility>

namespace {

const auto kRemoteDesktop = QStringLiteral("org.freedesktop.portal.RemoteDesktop");
/// For the last key to be taken; usual are three milliseconds.
constexpr int kTakenLimitMs = 500;

} // namespace

PortalTypist::PortalTypist(std::shared_ptr<PortalBus> bus, const RemoteControlSession &session,
                           std::shared_ptr<WaylandConnection> connection,
                           std::shared_ptr<Toplevels> toplevels)
    : m_bus(std::move(bus)), m_session(session), m_toplevels(std::move(toplevels)),
      m_keyboard(std::move(connection), [this](const QByteArray &text) {
          const MutexLock lock(m_mutex);
          m_keymap = text;
      })
{
}

bool PortalTypist::isAvailable() const
{
    return !m_session.path().isEmpty() && m_session.canType();
}

KeySender::Outcome PortalTypist::type(const KeySequence &sequence)
{
    using Outcome = KeySender::Outcome;
    const auto strokes = KeyStrokes::of(sequence, keymap().get());
    if (!strokes)
        return Outcome::NoKnownKeys;
    if (!HeldModifiers::awaitReleased(*m_toplevels, std::chrono::steady_clock::now() + kPatience))
        return Outcome::KeysHeld;
    if (!isAvailable())
        return Outcome::Failed;
    const QVariant session = QVariant::fromValue(QDBusObjectPath(m_session.path()));
    QDBusMessage last;
    for (const auto &[code, isPress] : *strokes) {
        if (last.type() != QDBusMessage::InvalidMessage)
            m_bus->bus().send(last);
        last = PortalBus::message(kRemoteDesktop, QStringLiteral("NotifyKeyboardKeycode"),
                                  {session, QVariantMap(), int(code), uint(isPress ? 1 : 0)});
    }
    if (last.type() == QDBusMessage::InvalidMessage)
        return Outcome::Sent;
    const QDBusMessage taken = m_bus->bus().call(last, QDBus::Block, kTakenLimitMs);
    return taken.type() == QDBusMessage::ReplyMessage ? Outcome::Sent : Outcome::Failed;
}

XkbPointer<xkb_keymap> PortalTypist::keymap() const
{
    const MutexLock lock(m_mutex);
    return Xkb::keymapOf(m_keymap);
}
