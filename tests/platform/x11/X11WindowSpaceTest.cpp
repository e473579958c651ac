#include "platform/x11/X11WindowSpace.h"

#include "platform/x11/X11Connection.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace {

TEST(X11WindowSpace, theCompositorIsFollowedAsItComesAndGoes)
{
    X11WindowSpace space;
    QSignalSpy changes(&space, &WindowSpace::isCompositingChanged);
    EXPECT_FALSE(space.isCompositing());
    {
        const X11Connection compositor;
        const xcb_window_t owner = xcb_generate_id(compositor.get());
        xcb_create_window(compositor.get(), 0, owner, compositor.root(), 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb_set_selection_owner(compositor.get(), owner, compositor.atoms({"_NET_WM_CM_S0"})[0],
                                XCB_CURRENT_TIME);
        compositor.roundTrip();
        ASSERT_TRUE(changes.wait());
        EXPECT_TRUE(space.isCompositing());
        EXPECT_TRUE(X11WindowSpace().isCompositing()) << "one that was there before";
    }
    ASSERT_TRUE(changes.wait());
    EXPECT_FALSE(space.isCompositing());
    EXPECT_EQ(changes.count(), 2);
}

TEST(X11WindowSpace, thePointerIsWhereItWasPut)
{
    const X11WindowSpace space;
    const X11Connection server;
    xcb_warp_pointer(server.get(), XCB_NONE, server.root(), 0, 0, 0, 0, 321, 123);
    server.roundTrip();
    EXPECT_EQ(space.pointerPosition(), QPoint(321, 123));
}

} // namespace
