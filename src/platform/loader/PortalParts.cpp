#include "platform/loader/PortalParts.h"

#include "platform/freedesktop/shortcuts/FreedesktopSymbolicHotKeys.h"
#include "platform/portal/InstalledPortals.h"
#include "platform/portal/PortalBus.h"
#include "platform/portal/PortalClipboard.h"
#include "platform/portal/PortalControl.h"
#include "platform/portal/PortalHotKeys.h"
#include "platform/portal/PortalTypist.h"
#include "platform/portal/RemoteControlSession.h"
#include "platform/wayland/WaylandConnection.h"
#include "platform/wayland/pasteboard/WaylandPasteboard.h"

#include <utility>

namespace {

bool doPortalsOffer(const QStringList &interfaces)
{
    return InstalledPortals::offer(interfaces, FreedesktopSymbolicHotKeys::currentDesktops(),
                                   InstalledPortals::folders());
}

/// What becomes of the one or the other under a consent in this state.
Capability capabilityIn(Consent::State state, Capability::Kind kind)
{
    using State = Capability::State;
    Capability capability{kind, State::WorksAfter};
    capability.remedy = QT_TRANSLATE_NOOP(
        "Capabilities",
        "Have Quillmarsh ask for it, and tick every box of the desktop’s question.");
    switch (state) {
    case Consent::State::NotNeeded:
    case Consent::State::Given:
        return {kind};
    case Consent::State::NotAsked:
        capability.reason = QT_TRANSLATE_NOOP(
            "Capabilities",
            "This desktop lets a program see copies and paste only as remote control.");
        break;
    case Consent::State::Asking:
        capability.reason =
            QT_TRANSLATE_NOOP("Capabilities", "The desktop is asking whether Quillmarsh may.");
        capability.remedy = nullptr;
        break;
    case Consent::State::Refused:
        capability.reason =
            QT_TRANSLATE_NOOP("Capabilities", "The desktop’s question was answered with no.");
        break;
    case Consent::State::Ended:
        capability.reason =
            QT_TRANSLATE_NOOP("Capabilities", "The remote control by Quillmarsh has been ended.");
        break;
    case Consent::State::Unavailable:
        capability.state = State::Withheld;
        capability.reason = QT_TRANSLATE_NOOP(
            "Capabilities", "The desktop’s portals do not answer, or do not offer remote control.");
        break;
    }
    return capability;
}

} // namespace

bool PortalParts::hasDataControl(const WaylandConnection &wayland)
{
    return wayland.versionOf("ext_data_control_manager_v1") > 0 ||
           wayland.versionOf("zwlr_data_control_manager_v1") > 0;
}

bool PortalParts::canStandInForDataControl()
{
    return doPortalsOffer({QStringLiteral("RemoteDesktop"), QStringLiteral("Clipboard")});
}

std::optional<PortalParts>
PortalParts::whereNeeded(Platform &platform, const std::shared_ptr<WaylandConnection> &wayland,
                         bool canType)
{
    using Wish = RemoteControlSession::Wish;
    const bool needsClipboard = !hasDataControl(*wayland);
    const bool isOffered = needsClipboard
                               ? canStandInForDataControl()
                               : !canType && doPortalsOffer({QStringLiteral("RemoteDesktop")});
    if (!isOffered)
        return std::nullopt;
    PortalParts parts;
    parts.m_bus = std::make_shared<PortalBus>();
    auto session = std::make_unique<RemoteControlSession>(
        parts.m_bus, *platform.settings, needsClipboard ? Wish::KeysAndClipboard : Wish::Keys);
    parts.m_session = session.get();
    platform.consent = std::move(session);
    if (needsClipboard)
        parts.m_clipboard = PortalClipboard::make(parts.m_bus->bus(), wayland);
    return parts;
}

DataControl::Make PortalParts::makeControl(const std::shared_ptr<WaylandConnection> &wayland) const
{
    if (!m_clipboard)
        return nullptr;
    return [wayland, clipboard = m_clipboard](DataControl::Listeners listeners) {
        return PortalControl::make(wayland, clipboard, std::move(listeners));
    };
}

std::unique_ptr<Typist> PortalParts::makeTypist(const std::shared_ptr<WaylandConnection> &wayland,
                                                const std::shared_ptr<Toplevels> &toplevels) const
{
    return std::make_unique<PortalTypist>(m_bus, *m_session, wayland, toplevels);
}

void PortalParts::connectTo(const Platform &platform, WaylandPasteboard &pasteboard) const
{
    if (m_clipboard)
        QObject::connect(m_session, &Consent::stateChanged, &pasteboard,
                         [parts = *this, &pasteboard] {
                             parts.m_clipboard->setSession(parts.m_session->path());
                             pasteboard.lookAgain();
                         });
    const auto tell = [parts = *this, capabilities = platform.capabilities.get()] {
        parts.tell(*capabilities);
    };
    tell();
    QObject::connect(m_session, &Consent::stateChanged, platform.capabilities.get(), tell);
}

void PortalParts::tell(Capabilities &capabilities) const
{
    if (m_clipboard)
        capabilities.tell(capabilityIn(m_session->state(), Capability::Kind::Recording));
    Capability pasting = capabilityIn(m_session->state(), Capability::Kind::Pasting);
    if (m_session->state() == Consent::State::Given && !m_session->canType()) {
        pasting.state = Capability::State::Withheld;
        pasting.reason = QT_TRANSLATE_NOOP(
            "Capabilities", "Remote interaction was not allowed, so clips are put on the clipboard "
                            "only.");
    }
    capabilities.tell(pasting);
}

std::unique_ptr<HotKeys> PortalParts::makeHotKeys(const Platform &platform,
                                                  std::unique_ptr<HotKeys> otherwise) const
{
    if (!m_clipboard || !doPortalsOffer({QStringLiteral("GlobalShortcuts")}))
        return otherwise;
    auto hotKeys =
        std::make_unique<PortalHotKeys>(m_bus, *platform.keyboardLayout, std::move(otherwise));
    QObject::connect(hotKeys.get(), &PortalHotKeys::activationTokenGiven,
                     platform.frontApplication.get(), &FrontApplication::endStartup);
    const auto beginOnceAnswered = [hotKeys = hotKeys.get(), session = m_session] {
        using State = Consent::State;
        const State state = session->state();
        if (state != State::NotAsked && state != State::Asking)
            hotKeys->begin();
    };
    QObject::connect(m_session, &Consent::stateChanged, hotKeys.get(), beginOnceAnswered);
    beginOnceAnswered();
    return hotKeys;
}

void PortalParts::begin() const
{
    m_session->resume();
}
