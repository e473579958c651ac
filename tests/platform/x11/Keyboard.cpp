#include "Keyboard.h"

#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"
#include "platform/x11/X11Connection.h"

#include <QCoreApplication>
#include <QProcess>

#include <gtest/gtest.h>

#include <cstring>
#include <tuple>

#include <X11/XKBlib.h>
#include <X11/extensions/XInput.h>
#include <X11/extensions/XTest.h>

namespace {

constexpr int kEvdevOffset = 8;

XID realKeyboardOf(Display *display)
{
    int count = 0;
    XDeviceInfo *devices = XListInputDevices(display, &count);
    XID found = 0;
    for (int i = 0; i < count; ++i) {
        if (devices[i].use == IsXExtensionKeyboard && !std::strstr(devices[i].name, "XTEST"))
            found = devices[i].id;
    }
    XFreeDeviceList(devices);
    return found;
}

quint16 modifierState()
{
    const X11Connection connection;
    const XcbPointer<xcb_query_pointer_reply_t> pointer(xcb_query_pointer_reply(
        connection.get(), xcb_query_pointer(connection.get(), connection.root()), nullptr));
    return pointer ? pointer->mask : 0;
}

/// Runs one of the server's tools to its end.
void run(const char *program, const QStringList &arguments)
{
    QProcess tool;
    tool.start(QString::fromLatin1(program), arguments);
    ASSERT_TRUE(tool.waitForFinished()) << program;
    ASSERT_EQ(tool.exitCode(), 0) << tool.readAllStandardError().constData();
}

} // namespace

RealKeyboard::RealKeyboard() : m_display(XOpenDisplay(nullptr))
{
    m_device = XOpenDevice(m_display, realKeyboardOf(m_display));
}

RealKeyboard::~RealKeyboard()
{
    releaseAll();
    XCloseDevice(m_display, static_cast<XDevice *>(m_device));
    XCloseDisplay(m_display);
}

void RealKeyboard::releaseAll()
{
    const std::set<int> down = m_down;
    for (const int key : down)
        release(key);
}

void RealKeyboard::set(int key, bool isDown)
{
    if (isDown)
        m_down.insert(key);
    else
        m_down.erase(key);
    XTestFakeDeviceKeyEvent(m_display, static_cast<XDevice *>(m_device),
                            unsigned(key + kEvdevOffset), isDown, nullptr, 0, CurrentTime);
    XSync(m_display, False);
}

void KeyboardSetup::setLayout(const char *arguments)
{
    // Options add up unless they are emptied first.
    run("setxkbmap", QStringList{QStringLiteral("-option"), QString()} +
                         QString::fromLatin1(arguments).split(u' '));
}

void KeyboardSetup::setGroup(unsigned group)
{
    Display *display = XOpenDisplay(nullptr);
    XkbLockGroup(display, XkbUseCoreKbd, group);
    XSync(display, 0);
    XCloseDisplay(display);
}

void KeyboardSetup::setLock(int evdevCode, quint16 mask, bool isOn)
{
    const auto isSet = [mask] { return (modifierState() & mask) != 0; };
    if (isSet() != isOn)
        RealKeyboard().tap(evdevCode);
    ASSERT_EQ(isSet(), isOn);
}

void KeyboardSetup::moveSuper()
{
    for (const char *expression : {"clear mod4", "clear mod3", "add mod3 = Super_L"})
        run("xmodmap", {QStringLiteral("-e"), QString::fromLatin1(expression)});
}

void KeyboardSetup::reset()
{
    setLayout("us");
    setGroup(0);
}

void settle(HotKeys &hotKeys)
{
    // The answer to a trial grab comes after all earlier events of its connection, and the second
    // question is taken up after those were handled.
    for (int i = 0; i < 2; ++i)
        std::ignore = hotKeys.isAvailable(VirtualKey::kF20, CarbonModifiers::kOption);
    QCoreApplication::processEvents();
}
