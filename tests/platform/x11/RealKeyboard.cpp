#include "RealKeyboard.h"

#include <X11/extensions/XInput.h>
#include <X11/extensions/XTest.h>

#include <cstring>

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
