#include "platform/wayland/WaylandKeyboardLayout.h"

#include "platform/VirtualKeys.h"
#include "platform/wayland/WaylandConnection.h"

#include <virtual-keyboard-unstable-v1-client-protocol.h>

#include <QKeyEvent>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>

#include <linux/input-event-codes.h>
#include <sys/mman.h>
#include <unistd.h>

namespace {

/// Another keyboard of the session, on which somebody types by any layout.
class OtherKeyboard
{
public:
    OtherKeyboard()
        : m_manager(m_connection->bind<zwp_virtual_keyboard_manager_v1>(
              zwp_virtual_keyboard_manager_v1_interface, 1)),
          m_keyboard(zwp_virtual_keyboard_manager_v1_create_virtual_keyboard(m_manager,
                                                                             m_connection->seat()))
    {
    }
    OtherKeyboard(const OtherKeyboard &) = delete;
    OtherKeyboard &operator=(const OtherKeyboard &) = delete;
    ~OtherKeyboard()
    {
        zwp_virtual_keyboard_v1_destroy(m_keyboard);
        zwp_virtual_keyboard_manager_v1_destroy(m_manager);
        EXPECT_TRUE(m_connection->roundTrip());
    }

    void typeBy(const char *layouts, const char *variant = "")
    {
        const XkbPointer<xkb_context> context(xkb_context_new(XKB_CONTEXT_NO_FLAGS));
        const xkb_rule_names names{"evdev", "pc105", layouts, variant, ""};
        const XkbPointer<xkb_keymap> map(
            xkb_keymap_new_from_names(context.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS));
        const std::unique_ptr<char, decltype(&free)> text(
            xkb_keymap_get_as_string(map.get(), XKB_KEYMAP_FORMAT_TEXT_V1), &free);
        upload(text.get());
    }

    void upload(const QByteArray &keymap)
    {
        const int fd = memfd_create("keymap", MFD_CLOEXEC);
        EXPECT_EQ(write(fd, keymap.constData(), size_t(keymap.size()) + 1), keymap.size() + 1);
        zwp_virtual_keyboard_v1_keymap(m_keyboard, WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1, fd,
                                       uint32_t(keymap.size()) + 1);
        for (const uint32_t state : {WL_KEYBOARD_KEY_STATE_PRESSED, WL_KEYBOARD_KEY_STATE_RELEASED})
            zwp_virtual_keyboard_v1_key(m_keyboard, 0, KEY_LEFTSHIFT, state);
        EXPECT_TRUE(m_connection->roundTrip());
        close(fd);
    }

private:
    const std::shared_ptr<WaylandConnection> m_connection = WaylandConnection::open();
    zwp_virtual_keyboard_manager_v1 *m_manager;
    zwp_virtual_keyboard_v1 *m_keyboard;
};

class WaylandKeyboardLayoutTest : public testing::Test
{
protected:
    WaylandKeyboardLayoutTest() { connection->start(); }

    bool becomes(quint16 keyCode, const QString &name)
    {
        return QTest::qWaitFor([&] { return layout.asciiCapableName(keyCode) == name; });
    }

    const std::shared_ptr<WaylandConnection> connection = WaylandConnection::open();
    WaylandKeyboardLayout layout{connection};
    OtherKeyboard keyboard;
};

TEST_F(WaylandKeyboardLayoutTest, theNamesAreThoseOfTheKeyboardThatIsTypedOn)
{
    EXPECT_EQ(layout.asciiCapableName(VirtualKey::kQ), QStringLiteral("q")) << "from the start";
    struct Row
    {
        const char *layouts, *variant;
        quint16 keyCode;
        const char16_t *name;
    };
    const Row rows[] = {{"de", "", VirtualKey::kY, u"z"},
                        {"us", "", VirtualKey::kY, u"y"},
                        {"us", "dvorak", VirtualKey::kV, u"k"},
                        {"ru", "", VirtualKey::kV, u"v"},
                        {"ru,fr", ",", VirtualKey::kA, u"q"}};
    for (const Row &row : rows) {
        QSignalSpy changes(&layout, &KeyboardLayout::changed);
        keyboard.typeBy(row.layouts, row.variant);
        EXPECT_TRUE(becomes(row.keyCode, QString::fromUtf16(row.name))) << row.layouts;
        EXPECT_GT(changes.count(), 0);
    }
}

TEST_F(WaylandKeyboardLayoutTest, theGroupIsTheOneOfTheLastKeyInOurWindows)
{
    keyboard.typeBy("de,ru", ",");
    ASSERT_TRUE(becomes(VirtualKey::kY, QStringLiteral("z")));
    const auto press = [](quint16 evdev, xkb_keysym_t symbol) {
        QObject window;
        QKeyEvent event(QEvent::KeyPress, 0, {}, evdev + 8U, symbol, 0);
        QCoreApplication::sendEvent(&window, &event);
    };
    const auto a = [this] { return layout.characters(VirtualKey::kA, 0); };
    QSignalSpy changes(&layout, &KeyboardLayout::changed);
    press(KEY_A, XKB_KEY_Cyrillic_ef);
    EXPECT_EQ(a(), QStringLiteral("ф"));
    EXPECT_EQ(layout.asciiCapableName(VirtualKey::kY), QStringLiteral("z"));
    EXPECT_EQ(changes.count(), 1);
    press(KEY_1, XKB_KEY_1);
    press(KEY_A, XKB_KEY_NoSymbol);
    press(KEY_A, XKB_KEY_Greek_alpha);
    EXPECT_EQ(a(), QStringLiteral("ф")) << "what no other group has better decides nothing";
    press(KEY_Q, XKB_KEY_Q);
    EXPECT_EQ(a(), QStringLiteral("a"));
    EXPECT_EQ(changes.count(), 2);
}

} // namespace
