#pragma once

#include "platform/memory/MemorySettingsStore.h"
#include "platform/pasteboard/WaylandStage.h"
#include "platform/portal/PortalBus.h"
#include "platform/portal/PortalClipboard.h"
#include "platform/portal/PortalStandIn.h"
#include "platform/portal/RemoteControlSession.h"

#include <memory>

/// A desktop that lets the clipboard be followed through its portals, and our part of them.
struct PortalDesktop
{
    PortalDesktop();

    /// Waits, with everybody at work, for the session's state; false when it does not come.
    bool comesTo(Consent::State state) const;

    PortalStandIn portals;
    MemorySettingsStore settings;
    std::shared_ptr<PortalBus> bus = std::make_shared<PortalBus>();
    RemoteControlSession session{bus, settings, RemoteControlSession::Wish::KeysAndClipboard};
    std::shared_ptr<PortalClipboard> clipboard;

protected:
    DataControl::Make controlOn(const std::shared_ptr<WaylandConnection> &connection);
};

/// The real pasteboard of such a desktop, to whose question its user has said yes.
class PortalStage : public PortalDesktop, public WaylandStage
{
public:
    PortalStage();
    ~PortalStage() override;

    // ^PasteboardStage
    bool hasPrimary() const override { return false; }
};
