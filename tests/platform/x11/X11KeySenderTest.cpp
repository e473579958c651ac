#include "platform/x11/X11KeySender.h"

#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"
#include "platform/x11/X11FrontApplication.h"

#include "ForeignWindow.h"
#include "KeyboardSetup.h"
#include "NamesByClass.h"
#include "RealKeyboard.h"
#include "Settle.h"

#include <QProcess>

#include <gtest/gtest.h>

#include <linux/input-event-codes.h>

namespace {

constexpr quint32 kSuperShift = CarbonModifiers::kCommand | CarbonModifiers::kShift;
constexpr HotKeyId kOpen{0x54455354, 1};

const QStringList kCtrlV{QStringLiteral("+Control"), QStringLiteral("+Control-v"),
                         QStringLiteral("-v"), QStringLiteral("-Control")};

class X11KeySenderTest : public testing::Test
{
protected:
    /// The keys that the target got, without the releases of what the user held.
    QStringList typed(ForeignWindow &target)
    {
        QStringList keys = target.takeKeys();
        while (keys.size() > 1 && keys.first().startsWith(QLatin1Char('-')))
            keys.removeFirst();
        return keys;
    }

    NamesByClass m_names;
    KeyboardSetup m_setup;
    RealKeyboard m_keyboard;
    X11HotKeys m_hotKeys;
    X11FrontApplication m_front{m_names, m_hotKeys};
    QStringList m_primary;
    xcb_window_t m_pastedInto = XCB_NONE;
    X11KeySender m_sender{
        m_hotKeys,
        m_front,
        {[this](xcb_window_t target) { m_pastedInto = target; },
         [this] { m_primary.append(QStringLiteral("offered")); },
         [this](xcb_window_t target) { m_primary.append(QString::number(target)); }}};
};

struct Held
{
    const char *name;
    std::vector<int> keys;
    bool isHotKey = false;
    quint32 hotKey = 0;
    quint32 modifiers = 0;
};

class WhileHeld : public X11KeySenderTest, public testing::WithParamInterface<Held>
{
};

TEST_P(WhileHeld, theKeystrokeArrivesCleanAndNothingSticks)
{
    const Held &held = GetParam();
    ForeignWindow target;
    ASSERT_TRUE(target.show());
    std::vector<HotKeyId> pressed;
    QObject::connect(&m_hotKeys, &HotKeys::pressed, &m_hotKeys,
                     [&](const HotKeyEvent &event) { pressed.push_back(event.id); });
    ASSERT_TRUE(!held.isHotKey || m_hotKeys.registerHotKey(kOpen, held.hotKey, held.modifiers));
    for (const int key : held.keys)
        m_keyboard.press(key);
    settle(m_hotKeys);
    ASSERT_EQ(pressed.size(), held.isHotKey ? 1U : 0U);
    std::ignore = target.takeKeys();

    ASSERT_TRUE(m_sender.sendCommand(VirtualKey::kV));
    EXPECT_EQ(typed(target), kCtrlV);
    m_keyboard.releaseAll();
    settle(m_hotKeys);
    std::ignore = target.takeKeys();
    m_keyboard.tap(KEY_X);
    EXPECT_EQ(target.takeKeys(), (QStringList{QStringLiteral("+x"), QStringLiteral("-x")}));
    EXPECT_EQ(pressed.size(), held.isHotKey ? 1U : 0U) << "the keystroke came back to us";
}

INSTANTIATE_TEST_SUITE_P(Keys, WhileHeld,
                         testing::Values(Held{"nothing", {}},
                                         Held{"theOpenShortcut",
                                              {KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_V},
                                              true,
                                              VirtualKey::kV,
                                              kSuperShift},
                                         Held{"theSwopShortcutOnTheRight",
                                              {KEY_RIGHTMETA, KEY_RIGHTSHIFT, KEY_X},
                                              true,
                                              VirtualKey::kX,
                                              kSuperShift},
                                         Held{"shiftReturn", {KEY_LEFTSHIFT, KEY_ENTER}},
                                         Held{"controlAlt", {KEY_LEFTCTRL, KEY_LEFTALT}},
                                         Held{"functionKey", {KEY_F1}, true, VirtualKey::kF1, 0},
                                         Held{"theVeryKeystroke",
                                              {KEY_LEFTCTRL, KEY_V},
                                              true,
                                              VirtualKey::kV,
                                              CarbonModifiers::kControl}),
                         [](const auto &row) { return std::string(row.param.name); });

struct Layout
{
    const char *name;
    QStringList setup;
    bool isSecondGroup;
    const char *key;
};

class InLayout : public X11KeySenderTest, public testing::WithParamInterface<Layout>
{
};

TEST_P(InLayout, theKeyThatGivesTheLetterIsTyped)
{
    m_setup.setLayout(GetParam().setup);
    if (GetParam().isSecondGroup)
        m_setup.setGroup(1);
    ForeignWindow target;
    ASSERT_TRUE(target.show());
    settle(m_hotKeys);
    ASSERT_TRUE(m_sender.sendCommand(VirtualKey::kV));
    EXPECT_EQ(typed(target).value(1),
              QStringLiteral("+Control-") + QString::fromLatin1(GetParam().key));
}

INSTANTIATE_TEST_SUITE_P(
    Layouts, InLayout,
    testing::Values(Layout{"dvorak", {QStringLiteral("us"), QStringLiteral("dvorak")}, false, "."},
                    Layout{"russianAlone", {QStringLiteral("ru")}, false, "v"},
                    Layout{"russianBesideDvorak",
                           {QStringLiteral("-layout"), QStringLiteral("us,ru"),
                            QStringLiteral("-variant"), QStringLiteral("dvorak,")},
                           true,
                           "."},
                    Layout{"dvorakBesideAmerican",
                           {QStringLiteral("-layout"), QStringLiteral("us,us"),
                            QStringLiteral("-variant"), QStringLiteral(",dvorak")},
                           true,
                           "."}),
    [](const auto &row) { return std::string(row.param.name); });

TEST_F(X11KeySenderTest, aTerminalGetsThePrimarySelectionAndShiftInsert)
{
    ForeignWindow terminal("Terminal");
    ASSERT_TRUE(terminal.show());
    ASSERT_TRUE(m_sender.sendCommand(VirtualKey::kV));
    EXPECT_EQ(m_primary, QStringList{QStringLiteral("offered")});
    EXPECT_EQ(m_pastedInto, terminal.id());
    EXPECT_EQ(terminal.takeKeys(),
              (QStringList{QStringLiteral("+Shift"), QStringLiteral("+Shift-Insert"),
                           QStringLiteral("-Insert"), QStringLiteral("-Shift")}));
}

TEST_F(X11KeySenderTest, aCopyInATerminalTypesNothing)
{
    ForeignWindow terminal("Terminal");
    ASSERT_TRUE(terminal.show());
    ASSERT_TRUE(m_sender.sendCommand(VirtualKey::kC));
    EXPECT_EQ(m_primary, QStringList{QString::number(terminal.id())});
    EXPECT_EQ(terminal.takeKeys(), QStringList());
}

TEST_F(X11KeySenderTest, aCopyElsewhereIsCtrlC)
{
    ForeignWindow target;
    ASSERT_TRUE(target.show());
    ASSERT_TRUE(m_sender.sendCommand(VirtualKey::kC));
    EXPECT_EQ(target.takeKeys().value(1), QStringLiteral("+Control-c"));
    EXPECT_EQ(m_primary, QStringList());
    EXPECT_EQ(m_pastedInto, xcb_window_t(XCB_NONE));
}

TEST_F(X11KeySenderTest, withoutTheTestExtensionNothingIsSent)
{
    EXPECT_TRUE(m_sender.isAvailable());
    QProcess server;
    server.start(QStringLiteral("Xvfb"), {QStringLiteral("-displayfd"), QStringLiteral("1"),
                                          QStringLiteral("-extension"), QStringLiteral("XTEST")});
    ASSERT_TRUE(server.waitForReadyRead());
    const QByteArray display = qgetenv("DISPLAY");
    qputenv("DISPLAY", ":" + server.readAllStandardOutput().trimmed());
    {
        X11HotKeys hotKeys;
        X11KeySender sender(hotKeys, m_front, {});
        EXPECT_FALSE(sender.isAvailable());
        EXPECT_FALSE(sender.sendCommand(VirtualKey::kV));
    }
    qputenv("DISPLAY", display);
    server.terminate();
    EXPECT_TRUE(server.waitForFinished());
}

} // namespace
