#include "platform/portal/PortalStage.h"

#include "platform/portal/PortalControl.h"

#include <gtest/gtest.h>

PortalDesktop::PortalDesktop()
{
    QObject::connect(&session, &Consent::stateChanged, &session, [this] {
        if (clipboard)
            clipboard->setSession(session.path());
    });
}

bool PortalDesktop::comesTo(Consent::State state) const
{
    return pumpUntil({}, [&] { return session.state() == state; });
}

DataControl::Make PortalDesktop::controlOn(const std::shared_ptr<WaylandConnection> &connection)
{
    clipboard = PortalClipboard::make(bus->bus(), connection);
    return [this, connection](DataControl::Listeners listeners) {
        return PortalControl::make(connection, clipboard, std::move(listeners));
    };
}

PortalStage::PortalStage()
    : WaylandStage({}, [this](const auto &connection) { return controlOn(connection); })
{
    QObject::connect(&session, &Consent::stateChanged, &pasteboard(),
                     [this] { (*this)->lookAgain(); });
    session.ask();
    EXPECT_TRUE(comesTo(Consent::State::Given));
    advance(std::chrono::milliseconds(0));
}

PortalStage::~PortalStage()
{
    (*this)->shutDown();
    session.disconnect();
}

std::unique_ptr<PasteboardStage> PasteboardStage::make()
{
    return std::make_unique<PortalStage>();
}
