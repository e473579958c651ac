#include "KeyboardSetup.h"

#include "RealKeyboard.h"
#include "platform/x11/X11Connection.h"

#include <QProcess>

#include <gtest/gtest.h>

#include <X11/XKBlib.h>

namespace {

quint16 modifierState()
{
    const X11Connection connection;
    const XcbPointer<xcb_query_pointer_reply_t> pointer(xcb_query_pointer_reply(
        connection.get(), xcb_query_pointer(connection.get(), connection.root()), nullptr));
    return pointer ? pointer->mask : 0;
}

} // namespace

void KeyboardSetup::setLayout(const QStringList &arguments)
{
    // Options add up unless they are emptied first.
    run(QStringLiteral("setxkbmap"), QStringList{QStringLiteral("-option"), QString()} + arguments);
}

void KeyboardSetup::setGroup(unsigned group)
{
    Display *display = XOpenDisplay(nullptr);
    XkbLockGroup(display, XkbUseCoreKbd, group);
    XSync(display, 0);
    XCloseDisplay(display);
}

void KeyboardSetup::reset()
{
    setLayout({QStringLiteral("us")});
    setGroup(0);
}

void KeyboardSetup::run(const QString &program, const QStringList &arguments)
{
    QProcess tool;
    tool.start(program, arguments);
    ASSERT_TRUE(tool.waitForFinished()) << qUtf8Printable(program);
    ASSERT_EQ(tool.exitCode(), 0) << tool.readAllStandardError().constData();
}

void KeyboardSetup::setLock(int evdevCode, quint16 mask, bool isOn)
{
    const auto isSet = [mask] { return (modifierState() & mask) != 0; };
    if (isSet() != isOn)
        RealKeyboard().tap(evdevCode);
    ASSERT_EQ(isSet(), isOn);
}
