#include "platform/x11/keys/X11KeySender.h"

#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"
#include "platform/x11/windows/X11FrontApplication.h"

#include "ForeignWindow.h"
#include "KeyboardSetup.h"
#include "NamesByClass.h"
#include "RealKeyboard.h"
#include "Settle.h"

#include <QProcess>
#include <QTest>

#include <gtest/gtest.h>

#include <linux/input-event-codes.h>

namespace {

constexpr quint32 kSuperShift = CarbonModifiers::kCommand | CarbonModifiers::kShift;
constexpr HotKeyId kOpen{0x54455354, 1};

const QStringList kCtrlV{QStringLiteral("+Control"), QStringLiteral("+Control-v"),
                         QStringLiteral("-v"), QStringLiteral("-Control")};

using Outcome = KeySender::Outcome;

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
    std::optional<QByteArray> m_usersTable;
    std::vector<xcb_window_t> m_askers;
    X11KeySender m_sender{
        m_hotKeys,
        m_front,
        m_names,
        {[this](xcb_window_t target) { m_pastedInto = target; },
         [this] { m_primary.append(QStringLiteral("offered")); },
         [this](xcb_window_t target) { m_primary.append(QString::number(target)); },
         [this] { return m_askers; }},
        [this] { return m_usersTable; }};
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

    ASSERT_EQ(m_sender.sendCommand(VirtualKey::kV), Outcome::Sent);
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
    ASSERT_EQ(m_sender.sendCommand(VirtualKey::kV), Outcome::Sent);
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

enum class Command { Copy, Paste, PasteOverCopied };

struct Known
{
    const char *name;
    const char *windowClass;
    Command command;
    const char *typed;
    Outcome outcome = Outcome::Sent;
    const char *primary = ""; ///< What was done with it.
};

class InApplication : public X11KeySenderTest, public testing::WithParamInterface<Known>
{
protected:
    Outcome send(Command command)
    {
        if (command == Command::PasteOverCopied)
            return m_sender.sendPasteOverCopied();
        return m_sender.sendCommand(command == Command::Copy ? VirtualKey::kC : VirtualKey::kV);
    }
};

TEST_P(InApplication, theKeysItTakesAreTyped)
{
    const Known &known = GetParam();
    m_usersTable = R"([{"applications": ["Mine"], "paste": "Ctrl+x P", "copy": "Alt+Shift+k"},
                       {"applications": ["Other"], "paste": "hebrew_aleph"}])";
    ForeignWindow target(known.windowClass);
    ASSERT_TRUE(target.show());
    settle(m_hotKeys);
    EXPECT_EQ(send(known.command), known.outcome);
    EXPECT_EQ(target.takeSymbols(), QLatin1String(known.typed));
    EXPECT_EQ(m_primary.value(0).replace(QString::number(target.id()), QStringLiteral("taken")),
              QLatin1String(known.primary));
    if (known.outcome == Outcome::Sent) {
        EXPECT_EQ(m_pastedInto == target.id(), known.command != Command::Copy);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Known, InApplication,
    testing::Values(
        Known{"pasteAnywhere", "Foreign", Command::Paste, "Ctrl+v"},
        Known{"copyAnywhere", "Foreign", Command::Copy, "Ctrl+c"},
        Known{"pasteOverAnywhere", "Foreign", Command::PasteOverCopied, "Ctrl+v"},
        Known{"pasteInTerminal", "Terminal", Command::Paste, "Shift+Insert", Outcome::Sent,
              "offered"},
        Known{"copyInTerminal", "Terminal", Command::Copy, "", Outcome::Sent, "taken"},
        Known{"pasteInXTerm", "XTerm", Command::Paste, "Shift+Insert", Outcome::Sent, "offered"},
        Known{"pasteInEmacs", "Emacs", Command::Paste, "Ctrl+y"},
        Known{"copyInEmacs", "Emacs", Command::Copy, "", Outcome::Sent, "taken"},
        Known{"pasteOverInEmacs", "Emacs", Command::PasteOverCopied, "BackSpace Ctrl+y"},
        Known{"pasteInGVim", "Gvim", Command::Paste, "Ctrl+backslash Ctrl+o quotedbl plus g P"},
        Known{"copyInAMachine", "qemu-system-x86_64", Command::Copy, "", Outcome::NoKnownKeys},
        Known{"nothingIsKnown", "Xedit", Command::Paste, "", Outcome::NoKnownKeys},
        Known{"theUsersOwn", "mine", Command::Paste, "Ctrl+x P"},
        Known{"theUsersOwnCopy", "Mine", Command::Copy, "Alt+K"},
        Known{"aCharacterThatNoKeyHas", "Other", Command::Paste, "", Outcome::NoKnownKeys}),
    [](const auto &row) { return std::string(row.param.name); });

TEST_F(X11KeySenderTest, aRemoteComputerIsPastedIntoOnceItsWindowHasTakenTheClipOver)
{
    int givenUp = 0;
    m_sender.setGivenUp([&givenUp] { ++givenUp; });
    ForeignWindow remote("xfreerdp");
    ForeignWindow other;
    ASSERT_TRUE(remote.show());
    for (const bool isTakenOver : {true, false}) {
        ASSERT_EQ(m_sender.sendCommand(VirtualKey::kV), Outcome::Sent);
        EXPECT_EQ(remote.takeSymbols(), QString());
        m_askers = isTakenOver ? std::vector{other.id(), remote.id()} : std::vector<xcb_window_t>();
        QString symbols;
        ASSERT_TRUE(QTest::qWaitFor([&] {
            symbols += remote.takeSymbols();
            return givenUp > 0 || !symbols.isEmpty();
        }));
        EXPECT_EQ(symbols, isTakenOver ? QStringLiteral("Ctrl+v") : QString());
        EXPECT_EQ(givenUp, isTakenOver ? 0 : 1);
    }
    // Somebody else is in front by then.
    ASSERT_EQ(m_sender.sendCommand(VirtualKey::kV), Outcome::Sent);
    m_askers = {remote.id()};
    ASSERT_TRUE(other.show());
    ASSERT_TRUE(QTest::qWaitFor([&] { return givenUp == 2; }));
    EXPECT_EQ(other.takeSymbols(), QString());
    // One that does not ask is given its time.
    m_askers.clear();
    ForeignWindow silent("TigerVNC Viewer");
    ASSERT_TRUE(silent.show());
    ASSERT_EQ(m_sender.sendCommand(VirtualKey::kV), Outcome::Sent);
    EXPECT_EQ(silent.takeSymbols(), QString());
    EXPECT_TRUE(QTest::qWaitFor([&] { return silent.takeSymbols() == QStringLiteral("Ctrl+v"); }));
}

struct Character
{
    const char *name;
    QStringList setup;
    bool isSecondGroup;
    bool isCapsLock;
};

class PlainCharacters : public X11KeySenderTest, public testing::WithParamInterface<Character>
{
};

TEST_P(PlainCharacters, areTheSameInEveryLayoutAndCapsLockIsAsItWas)
{
    m_usersTable = R"([{"applications": ["Mine"], "paste": "Ctrl+backslash g P at"}])";
    m_setup.setLayout(GetParam().setup);
    m_setup.setGroup(GetParam().isSecondGroup ? 1 : 0);
    m_setup.setLock(KEY_CAPSLOCK, XCB_MOD_MASK_LOCK, GetParam().isCapsLock);
    ForeignWindow target("Mine");
    ASSERT_TRUE(target.show());
    settle(m_hotKeys);
    std::ignore = target.takeKeys();
    ASSERT_EQ(m_sender.sendCommand(VirtualKey::kV), Outcome::Sent);
    EXPECT_EQ(target.takeSymbols(), QStringLiteral("Ctrl+backslash g P at"));
    m_setup.setLock(KEY_CAPSLOCK, XCB_MOD_MASK_LOCK, false);
    m_keyboard.tap(KEY_G);
    EXPECT_EQ(target.takeSymbols(),
              GetParam().isSecondGroup ? QStringLiteral("Cyrillic_pe") : QStringLiteral("g"));
}

INSTANTIATE_TEST_SUITE_P(
    Layouts, PlainCharacters,
    testing::Values(Character{"german", {QStringLiteral("de")}, false, false},
                    Character{"capsLock", {QStringLiteral("us")}, false, true},
                    Character{"russianBesideAmerican", {QStringLiteral("us,ru")}, true, true}),
    [](const auto &row) { return std::string(row.param.name); });

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
        X11KeySender sender(hotKeys, m_front, m_names, {});
        EXPECT_FALSE(sender.isAvailable());
        EXPECT_EQ(sender.sendCommand(VirtualKey::kV), Outcome::Failed);
    }
    qputenv("DISPLAY", display);
    server.terminate();
    EXPECT_TRUE(server.waitForFinished());
}

} // namespace
