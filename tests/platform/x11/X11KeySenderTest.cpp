#include "platform/x11/keys/X11KeySender.h"

#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"
#include "platform/x11/windows/X11FrontApplication.h"

#include "ForeignWindow.h"
#include "Keyboard.h"
#include "NamesByClass.h"

#include <QProcess>
#include <QTest>

#include <gtest/gtest.h>

#include <linux/input-event-codes.h>

namespace {

using namespace Qt::StringLiterals;

constexpr quint32 kSuperShift = CarbonModifiers::kCommand | CarbonModifiers::kShift;
constexpr HotKeyId kOpen{0x54455354, 1};

const QStringList kCtrlV{u"+Control"_s, u"+Control-v"_s, u"-v"_s, u"-Control"_s};

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
         [this] { m_primary.append(u"offered"_s); },
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
    EXPECT_EQ(target.takeKeys(), (QStringList{u"+x"_s, u"-x"_s}));
    EXPECT_EQ(pressed.size(), held.isHotKey ? 1U : 0U) << "the keystroke came back to us";
}

const Held kWhileHeld[] = {
    {"nothing", {}},
    {"theOpenShortcut", {KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_V}, true, VirtualKey::kV, kSuperShift},
    {"theSwopShortcutOnTheRight",
     {KEY_RIGHTMETA, KEY_RIGHTSHIFT, KEY_X},
     true,
     VirtualKey::kX,
     kSuperShift},
    {"shiftReturn", {KEY_LEFTSHIFT, KEY_ENTER}},
    {"controlAlt", {KEY_LEFTCTRL, KEY_LEFTALT}},
    {"functionKey", {KEY_F1}, true, VirtualKey::kF1, 0},
    {"theVeryKeystroke", {KEY_LEFTCTRL, KEY_V}, true, VirtualKey::kV, CarbonModifiers::kControl}};

INSTANTIATE_TEST_SUITE_P(Keys, WhileHeld, testing::ValuesIn(kWhileHeld),
                         [](const auto &row) { return std::string(row.param.name); });

struct Layout
{
    const char *name;
    const char *setup;
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
    EXPECT_EQ(typed(target).value(1), u"+Control-"_s + QString::fromLatin1(GetParam().key));
}

INSTANTIATE_TEST_SUITE_P(
    Layouts, InLayout,
    testing::Values(Layout{"dvorak", "us dvorak", false, "."},
                    Layout{"russianAlone", "ru", false, "v"},
                    Layout{"russianBesideDvorak", "-layout us,ru -variant dvorak,", true, "."},
                    Layout{"dvorakBesideAmerican", "-layout us,us -variant ,dvorak", true, "."}),
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
    EXPECT_EQ(m_primary.value(0).replace(QString::number(target.id()), u"taken"_s),
              QLatin1String(known.primary));
    if (known.outcome == Outcome::Sent) {
        EXPECT_EQ(m_pastedInto == target.id(), known.command != Command::Copy);
    }
}

const Known kInApplication[] = {
    {"pasteAnywhere", "Foreign", Command::Paste, "Ctrl+v"},
    {"copyAnywhere", "Foreign", Command::Copy, "Ctrl+c"},
    {"pasteOverAnywhere", "Foreign", Command::PasteOverCopied, "Ctrl+v"},
    {"pasteInTerminal", "Terminal", Command::Paste, "Shift+Insert", Outcome::Sent, "offered"},
    {"copyInTerminal", "Terminal", Command::Copy, "", Outcome::Sent, "taken"},
    {"pasteInXTerm", "XTerm", Command::Paste, "Shift+Insert", Outcome::Sent, "offered"},
    {"pasteInEmacs", "Emacs", Command::Paste, "Ctrl+y"},
    {"copyInEmacs", "Emacs", Command::Copy, "", Outcome::Sent, "taken"},
    {"pasteOverInEmacs", "Emacs", Command::PasteOverCopied, "BackSpace Ctrl+y"},
    {"pasteInGVim", "Gvim", Command::Paste, "Ctrl+backslash Ctrl+o quotedbl plus g P"},
    {"copyInAMachine", "qemu-system-x86_64", Command::Copy, "", Outcome::NoKnownKeys},
    {"nothingIsKnown", "Xedit", Command::Paste, "", Outcome::NoKnownKeys},
    {"theUsersOwn", "mine", Command::Paste, "Ctrl+x P"},
    {"theUsersOwnCopy", "Mine", Command::Copy, "Alt+K"},
    {"aCharacterThatNoKeyHas", "Other", Command::Paste, "", Outcome::NoKnownKeys}};

INSTANTIATE_TEST_SUITE_P(Known, InApplication, testing::ValuesIn(kInApplication),
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
        EXPECT_EQ(symbols, isTakenOver ? u"Ctrl+v"_s : QString());
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
    EXPECT_TRUE(QTest::qWaitFor([&] { return silent.takeSymbols() == u"Ctrl+v"_s; }));
}

struct Character
{
    const char *name;
    const char *setup;
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
    EXPECT_EQ(target.takeSymbols(), u"Ctrl+backslash g P at"_s);
    m_setup.setLock(KEY_CAPSLOCK, XCB_MOD_MASK_LOCK, false);
    m_keyboard.tap(KEY_G);
    EXPECT_EQ(target.takeSymbols(), GetParam().isSecondGroup ? u"Cyrillic_pe"_s : u"g"_s);
}

INSTANTIATE_TEST_SUITE_P(Layouts, PlainCharacters,
                         testing::Values(Character{"german", "de", false, false},
                                         Character{"capsLock", "us", false, true},
                                         Character{"russianBesideAmerican", "us,ru", true, true}),
                         [](const auto &row) { return std::string(row.param.name); });

TEST_F(X11KeySenderTest, withoutTheTestExtensionNothingIsSent)
{
    EXPECT_TRUE(m_sender.isAvailable());
    QProcess server;
    server.startCommand(u"Xvfb -displayfd 1 -extension XTEST"_s);
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
