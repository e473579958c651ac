#include "platform/x11/windows/X11WindowSpace.h"

#include "platform/x11/X11Connection.h"
#include "platform/x11/windows/X11ActiveWindow.h"

#include <QGuiApplication>
#include <QProcess>
#include <QScreen>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

namespace {

/// A panel along the lower edge of the desktop, below the columns from `left` on.
class Panel
{
public:
    explicit Panel(quint32 height, quint32 left = 0) : m_window(xcb_generate_id(m_connection.get()))
    {
        xcb_create_window(m_connection.get(), XCB_COPY_FROM_PARENT, m_window, m_connection.root(),
                          0, 0, 10, uint16_t(height), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                          XCB_COPY_FROM_PARENT, 0, nullptr);
        const auto atoms = m_connection.atoms(
            {"_NET_WM_STRUT_PARTIAL", "_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_DOCK"});
        const quint32 strut[12] = {0, 0, 0, height, 0, 0, 0, 0, 0, 0, left, left + 9};
        xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, m_window, atoms[0],
                            XCB_ATOM_CARDINAL, 32, 12, strut);
        xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, m_window, atoms[1],
                            XCB_ATOM_ATOM, 32, 1, &atoms[2]);
        xcb_map_window(m_connection.get(), m_window);
        m_connection.roundTrip();
    }

private:
    X11Connection m_connection;
    xcb_window_t m_window;
};

QList<QByteArray> statesOf(WId window)
{
    const X11Connection connection;
    const xcb_atom_t property = connection.atoms({"_NET_WM_STATE"})[0];
    QList<QByteArray> names;
    for (const xcb_atom_t state :
         connection.elements(xcb_window_t(window), property, XCB_ATOM_ATOM)) {
        const XcbPointer<xcb_get_atom_name_reply_t> reply(xcb_get_atom_name_reply(
            connection.get(), xcb_get_atom_name(connection.get(), state), nullptr));
        names.append(
            {xcb_get_atom_name_name(reply.get()), xcb_get_atom_name_name_length(reply.get())});
    }
    return names;
}

bool isShownByManager(WId window)
{
    constexpr quint32 kNormalState = 1;
    const X11Connection connection;
    const xcb_atom_t state = connection.atoms({"WM_STATE"})[0];
    return connection.firstOf(xcb_window_t(window), state, state) == kNormalState;
}

TEST(ManagedWindow, aPanelOnOneScreenLeavesTheOtherWhole)
{
    if (!X11ActiveWindow(X11Connection()).isManaged())
        GTEST_SKIP() << "no window manager";
    const auto xrandr = [](const char *arguments) {
        EXPECT_EQ(QProcess::execute(QStringLiteral("xrandr"),
                                    QString::fromLatin1(arguments).split(QLatin1Char(' '))),
                  0);
    };
    const auto hasScreens = [](qsizetype count) {
        return QTest::qWaitFor([=] { return QGuiApplication::screens().size() == count; });
    };
    xrandr("--setmonitor left 640/170x800/210+0+0 screen");
    xrandr("--setmonitor right 640/170x800/210+640+0 none");
    ASSERT_TRUE(hasScreens(2));
    const X11WindowSpace space;
    const Panel panel(48, 640);
    EXPECT_TRUE(QTest::qWaitFor([&] {
        const QScreen &right = *QGuiApplication::screenAt(QPoint(700, 10));
        return space.visibleFrame(right) == QRect(640, 0, 640, 800 - 48);
    }));
    const QScreen &left = *QGuiApplication::screenAt(QPoint(10, 10));
    EXPECT_EQ(space.visibleFrame(left), QRect(0, 0, 640, 800));
    xrandr("--delmonitor right");
    xrandr("--delmonitor left");
    EXPECT_TRUE(hasScreens(1));
}

TEST(ManagedWindow, aUtilityWindowStaysOutOfTheTaskbarEachTimeItIsShown)
{
    if (!X11ActiveWindow(X11Connection()).isManaged())
        GTEST_SKIP() << "no window manager";
    X11WindowSpace space;
    QWidget window;
    window.setWindowFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    window.winId();
    const X11Connection server;
    space.prepareUtilityWindow(window.windowHandle());
    for (int i = 0; i < 2; ++i) {
        window.show();
        ASSERT_TRUE(QTest::qWaitFor([&] { return isShownByManager(window.winId()); }));
        const auto hasAll = [&] {
            const QList<QByteArray> states = statesOf(window.winId());
            return states.contains("_NET_WM_STATE_SKIP_TASKBAR") &&
                   states.contains("_NET_WM_STATE_SKIP_PAGER") &&
                   states.contains("_NET_WM_STATE_ABOVE");
        };
        EXPECT_TRUE(QTest::qWaitFor(hasAll))
            << "shown the " << i + 1
            << ". time: " << statesOf(window.winId()).join(' ').constData();
        window.hide();
        ASSERT_TRUE(QTest::qWaitFor([&] { return !isShownByManager(window.winId()); }));
        // As window managers do by the convention, some a little later.
        xcb_delete_property(server.get(), xcb_window_t(window.winId()),
                            server.atoms({"_NET_WM_STATE"})[0]);
        server.roundTrip();
    }
}

} // namespace
