#pragma once

#include "platform/Platform.h"
#include "platform/wayland/pasteboard/DataControl.h"

#include <memory>
#include <optional>

class PortalBus;
class PortalClipboard;
class RemoteControlSession;
class Toplevels;
class Typist;
class WaylandConnection;
class WaylandPasteboard;

/// What the desktop's portals do in place of what its compositor withholds. The session is the
/// platform's consent and goes with it; all else goes with those that were made of it.
class PortalParts
{
public:
    /// Whether the compositor lets programs follow the clipboard by itself.
    static bool hasDataControl(const WaylandConnection &wayland);
    /// Whether the desktop's portals say that they do.
    static bool canStandInForDataControl();

    /// Makes the platform's consent; absent where the compositor has everything, and where the
    /// portals have nothing of it. `canType` says whether the compositor lets us by itself.
    static std::optional<PortalParts> whereNeeded(Platform &platform,
                                                  const std::shared_ptr<WaylandConnection> &wayland,
                                                  bool canType);

    /// Null where the compositor has its own.
    DataControl::Make makeControl(const std::shared_ptr<WaylandConnection> &wayland) const;
    std::unique_ptr<Typist> makeTypist(const std::shared_ptr<WaylandConnection> &wayland,
                                       const std::shared_ptr<Toplevels> &toplevels) const;
    /// The one that follows the clipboard begins and ends with the session, and the platform's
    /// capabilities tell what that lets us do.
    void connectTo(const Platform &platform, WaylandPasteboard &pasteboard) const;
    /// Shortcuts by the portals where they stand in for the whole desktop; else `otherwise`. They
    /// are asked for once the user has been asked for the rest, so that one question follows
    /// another.
    std::unique_ptr<HotKeys> makeHotKeys(const Platform &platform,
                                         std::unique_ptr<HotKeys> otherwise) const;
    /// Goes on with what the user has agreed to before.
    void begin() const;

    const std::shared_ptr<PortalBus> &bus() const { return m_bus; }

private:
    PortalParts() = default;
    void tell(Capabilities &capabilities) const;

    std::shared_ptr<PortalBus> m_bus;
    std::shared_ptr<PortalClipboard> m_clipboard; ///< Null where it is not needed.
    RemoteControlSession *m_session = nullptr;
};
