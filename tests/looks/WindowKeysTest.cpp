#include "looks/WindowKeys.h"
#include "platform/VirtualKeys.h"
#include "platform/memory/MemoryPlatform.h"

#include <QDialog>
#include <QMenu>
#include <QTest>

#include <gtest/gtest.h>

namespace {

constexpr auto kCyrillic = static_cast<Qt::Key>(0x0424);

class WindowKeysTest : public testing::Test
{
protected:
    /// As the display system hands it out.
    static void press(const QWidget &window, quint16 virtualKey, Qt::Key key,
                      Qt::KeyboardModifiers modifiers = Qt::MetaModifier, bool isAutoRepeat = false)
    {
        constexpr quint32 kEvdevOffset = 8;
        const quint32 scanCode = VirtualKey::toEvdev(virtualKey).value() + kEvdevOffset;
        QKeyEvent event(QEvent::KeyPress, key, modifiers, scanCode, 0, 0, {}, isAutoRepeat);
        QCoreApplication::sendEvent(window.windowHandle(), &event);
    }

    MemoryPlatform m_memory;
    int m_quits = 0;
    WindowKeys m_keys{m_memory.keyboardLayout, [this] { ++m_quits; }};
};

TEST_F(WindowKeysTest, theKeyIsTheOneThatBearsTheLetter)
{
    // Where Q and A have changed places, and W and Z.
    m_memory.keyboardLayout.setName(VirtualKey::kA, QStringLiteral("q"));
    m_memory.keyboardLayout.setName(VirtualKey::kQ, QStringLiteral("a"));
    m_memory.keyboardLayout.setName(VirtualKey::kZ, QStringLiteral("w"));
    m_memory.keyboardLayout.setName(VirtualKey::kW, QStringLiteral("z"));
    struct Row
    {
        const char *name;
        quint16 virtualKey;
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        bool isAutoRepeat;
        int quits;
        bool closes;
    };
    constexpr Qt::KeyboardModifiers kSuper = Qt::MetaModifier;
    const Row rows[] = {
        {"Q", VirtualKey::kA, Qt::Key_Q, kSuper, false, 1, false},
        {"Q held down", VirtualKey::kA, Qt::Key_Q, kSuper, true, 0, false},
        {"where Q is elsewhere", VirtualKey::kQ, Qt::Key_A, kSuper, false, 0, false},
        {"Q below a Cyrillic letter", VirtualKey::kA, kCyrillic, kSuper, false, 1, false},
        {"Q alone", VirtualKey::kA, Qt::Key_Q, Qt::NoModifier, false, 0, false},
        {"W", VirtualKey::kZ, Qt::Key_W, kSuper, false, 0, true},
        {"W held down", VirtualKey::kZ, Qt::Key_W, kSuper, true, 0, false},
        {"where W is elsewhere", VirtualKey::kW, Qt::Key_Z, kSuper, false, 0, false},
        {"W below a Cyrillic letter", VirtualKey::kZ, kCyrillic, kSuper, false, 0, true},
        {"W with Shift", VirtualKey::kZ, Qt::Key_W, kSuper | Qt::ShiftModifier, false, 0, false},
    };
    for (const Row &row : rows) {
        QDialog dialog;
        dialog.setModal(true);
        dialog.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
        m_quits = 0;
        press(dialog, row.virtualKey, row.key, row.modifiers, row.isAutoRepeat);
        EXPECT_EQ(m_quits, row.quits) << row.name;
        EXPECT_EQ(!dialog.isVisible(), row.closes) << row.name;
    }
}

TEST_F(WindowKeysTest, aMenuIsNoWindowToClose)
{
    QMenu menu;
    menu.addAction(QStringLiteral("One"));
    menu.popup({});
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&menu));
    press(menu, VirtualKey::kW, Qt::Key_W);
    EXPECT_TRUE(menu.isVisible());
    press(menu, VirtualKey::kQ, Qt::Key_Q);
    EXPECT_EQ(m_quits, 1);
}

} // namespace
