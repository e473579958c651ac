#include "platform/x11/windows/X11WindowSpace.h"

#include "platform/x11/X11Connection.h"
#include "platform/x11/windows/XSettings.h"

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

QByteArray setting(char type, const QByteArray &name, const QByteArray &value)
{
    const QByteArray padding((4 - name.size() % 4) % 4, '\0');
    return QByteArray(1, type) + QByteArray(1, '\0') + QByteArray(1, char(name.size())) +
           QByteArray(1, '\0') + name + padding + QByteArray(4, '\0') + value;
}

TEST(XSettings, anIntegerIsFoundAmongOthersAndNothingInWhatIsBroken)
{
    const QByteArray name = QByteArrayLiteral("Gtk/EnableAnimations");
    const QByteArray zero(4, '\0');
    const QByteArray all = QByteArray(8, '\0') + QByteArrayLiteral("\3\0\0\0") +
                           setting(1, "Net/ThemeName", QByteArrayLiteral("\5\0\0\0Adapt\0\0\0")) +
                           setting(2, "Colour", QByteArray(8, '\1')) + setting(0, name, zero);
    EXPECT_EQ(XSettings::integer(all, name), 0);
    EXPECT_EQ(XSettings::integer(all, "Net/ThemeName"), std::nullopt);
    for (int size = 0; size < all.size(); ++size)
        EXPECT_EQ(XSettings::integer(all.left(size), name), std::nullopt) << size;
    QByteArray negative = all;
    negative.replace(QByteArrayLiteral("\5\0\0\0Adapt"), QByteArrayLiteral("\xff\xff\xff\xff"
                                                                           "Adapt"));
    EXPECT_EQ(XSettings::integer(negative, name), std::nullopt);
    const QByteArray big =
        QByteArrayLiteral("\1\0\0\0\0\0\0\0\0\0\0\1\0\0\0\1A\0\0\0\0\0\0\0\0\0\0\7");
    EXPECT_EQ(XSettings::integer(big, "A"), 7) << "the other byte order";
}

TEST(X11WindowSpace, animationsAreAsTheSettingsDaemonSays)
{
    const X11WindowSpace space;
    EXPECT_TRUE(space.areAnimationsEnabled()) << "nobody says anything";
    const X11Connection daemon;
    const xcb_window_t owner = xcb_generate_id(daemon.get());
    xcb_create_window(daemon.get(), 0, owner, daemon.root(), 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    const auto atoms = daemon.atoms({"_XSETTINGS_S0", "_XSETTINGS_SETTINGS"});
    xcb_set_selection_owner(daemon.get(), owner, atoms[0], XCB_CURRENT_TIME);
    for (const char value : {'\0', '\1'}) {
        const QByteArray bytes =
            QByteArray(8, '\0') + QByteArrayLiteral("\1\0\0\0") +
            setting(0, "Gtk/EnableAnimations", QByteArray(1, value) + QByteArray(3, '\0'));
        xcb_change_property(daemon.get(), XCB_PROP_MODE_REPLACE, owner, atoms[1], atoms[1], 8,
                            uint32_t(bytes.size()), bytes.constData());
        daemon.roundTrip();
        EXPECT_EQ(space.areAnimationsEnabled(), value != '\0');
    }
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
