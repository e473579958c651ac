#include "platform/kde/FakeInput.h"
#include "platform/kde/PlasmaWindows.h"
#include "platform/wayland/ToplevelTracker.h"
#include "platform/wayland/VirtualKeyboard.h"
#include "platform/wayland/WaylandConnection.h"
#include "platform/wayland/WaylandFrontApplication.h"
#include "platform/wayland/WaylandKeySender.h"

#include "FakeDesktop.h"
#include "platform/ApplicationNames.h"
#include "platform/VirtualKeys.h"
#include "support/ExpectedWarnings.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

#include <xkbcommon/xkbcommon-keysyms.h>

namespace {

using namespace Qt::StringLiterals;
using std::chrono::milliseconds;
using Kind = FakeDesktop::Kind;
using Outcome = KeySender::Outcome;

const QString kOurs = u"org.example.Ours"_s;

class NamesById : public ApplicationNames
{
public:
    // ^ApplicationNames
    ApplicationIdentity identify(const WindowIdentity &window) const override
    {
        return {window.resourceName, window.resourceName == u"Terminal"};
    }
};

/// What the compositors have in common is tested with the protocols of both.
class WaylandTargets : public testing::TestWithParam<Kind>
{
protected:
    WaylandTargets()
    {
        m_desktop->offerSeat();
        m_connection = WaylandConnection::open();
        if (GetParam() == Kind::Plasma)
            m_toplevels = std::make_shared<PlasmaWindows>(m_connection, kOurs);
        else
            m_toplevels = std::make_shared<ToplevelTracker>(m_connection, kOurs);
        m_names = std::make_shared<FrontNames>(m_toplevels, m_applicationNames);
        m_sender.emplace(
            makeTypist(), m_toplevels, m_applicationNames,
            WaylandKeySender::Selections{[this] { ++m_expectedPastes; },
                                         [this] { m_primary.append(u"offered"_s); },
                                         [this](Toplevels::Id) { m_primary.append(u"taken"_s); }},
            [this] { return m_usersTable; });
        m_front.emplace(m_connection, m_toplevels, m_names);
        m_connection->start();
        m_ours.resize(100, 100);
        m_ours.setWindowTitle(kOurs);
    }

    std::unique_ptr<Typist> makeTypist() const
    {
        if (GetParam() == Kind::Plasma)
            return std::make_unique<FakeInput>(m_connection, m_toplevels);
        return std::make_unique<VirtualKeyboard>(m_connection);
    }

    /// Returns when what the compositor has told until now is known.
    void settle() const
    {
        // The second for what a window that is told of is asked then.
        ASSERT_TRUE(m_connection->run(
            [this] { EXPECT_TRUE(m_connection->roundTrip() && m_connection->roundTrip()); }));
    }

    void withdraw()
    {
        if (GetParam() == Kind::Wlroots)
            ExpectedWarnings::expect(u"no keyboard to type on"_s);
        m_desktop->withdraw();
        settle();
    }

    QString nameInFront() const
    {
        settle();
        const auto front = m_toplevels->front();
        return front ? front->applicationId : u"none"_s;
    }

    /// The keys, without what a keyboard of our own has to say about its modifiers.
    QString typed()
    {
        QStringList requests = m_desktop->takeRequests();
        requests.removeIf([](const QString &request) { return request.startsWith(u'm'); });
        return requests.join(u' ');
    }

    void bringOursToFront()
    {
        m_ours.show();
        m_ours.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_ours));
        settle();
    }

    NamesById m_applicationNames;
    std::optional<FakeDesktop> m_desktop{std::in_place, GetParam()};
    std::shared_ptr<WaylandConnection> m_connection;
    std::shared_ptr<Toplevels> m_toplevels;
    std::shared_ptr<FrontNames> m_names;
    int m_expectedPastes = 0;
    QStringList m_primary;
    std::optional<QByteArray> m_usersTable;
    std::optional<WaylandKeySender> m_sender;
    std::optional<WaylandFrontApplication> m_front;
    QWidget m_ours;
};

INSTANTIATE_TEST_SUITE_P(By, WaylandTargets, testing::Values(Kind::Wlroots, Kind::Plasma),
                         [](const auto &kind) {
                             return kind.param == Kind::Plasma ? "Plasma" : "Wlroots";
                         });

TEST_P(WaylandTargets, windowsAreKnownAsLongAsTheCompositorTellsOfThem)
{
    EXPECT_EQ(nameInFront(), u"none"_s);
    m_desktop->show("a", true);
    EXPECT_EQ(nameInFront(), u"a"_s);
    m_desktop->show("b", false);
    m_desktop->show("a", false);
    EXPECT_EQ(nameInFront(), u"none"_s);
    EXPECT_EQ(m_toplevels->identities().size(), 2);
    m_desktop->show("b", true);
    m_desktop->close("a");
    EXPECT_EQ(nameInFront(), u"b"_s);
    for (int times = 0; times < 2; ++times) {
        withdraw();
        EXPECT_EQ(nameInFront(), u"none"_s);
        EXPECT_EQ(m_toplevels->identities().size(), 0);
        m_desktop->offer();
        settle();
        EXPECT_EQ(nameInFront(), u"b"_s);
    }
    if (GetParam() == Kind::Wlroots) {
        ExpectedWarnings::expect(u"tells of windows no more"_s);
        m_desktop->finish();
        EXPECT_EQ(nameInFront(), u"none"_s);
    }
}

TEST_P(WaylandTargets, keysAreTypedAsLongAsTheCompositorTakesThem)
{
    m_desktop->show("a", true);
    settle();
    for (int times = 0; times < 2; ++times) {
        EXPECT_TRUE(m_sender->isAvailable());
        EXPECT_EQ(m_sender->sendCommand(VirtualKey::kV), Outcome::Sent);
        EXPECT_EQ(typed(), u"+29 +47 -47 -29"_s);
        withdraw();
        EXPECT_FALSE(m_sender->isAvailable());
        EXPECT_EQ(m_sender->sendCommand(VirtualKey::kV), Outcome::Failed);
        m_desktop->offer();
        settle();
    }
    // A keyboard is one of a seat.
    m_desktop->offerSeat();
    settle();
    EXPECT_EQ(m_sender->sendCommand(VirtualKey::kC), Outcome::Sent);
    EXPECT_EQ(typed(), u"+29 +46 -46 -29"_s);
    ExpectedWarnings::expect(u"compositor is gone"_s);
    m_desktop.reset();
    EXPECT_EQ(m_sender->sendCommand(VirtualKey::kV), Outcome::Failed);
    EXPECT_FALSE(m_front->returnToTarget());
}

TEST_P(WaylandTargets, applicationsGetTheKeysTheyTake)
{
    enum class Command { Copy, Paste, PasteOverCopied };
    struct Row
    {
        const char *application;
        Command command;
        Outcome outcome;
        QString typed;
        QString primary = QString();
    };
    const QString shiftInsert = u"+42 +110 -110 -42"_s;
    constexpr Outcome kSent = Outcome::Sent;
    constexpr Outcome kUnknown = Outcome::NoKnownKeys;
    const Row rows[] = {
        {"a", Command::Paste, kSent, u"+29 +47 -47 -29"_s},
        {"a", Command::Copy, kSent, u"+29 +46 -46 -29"_s},
        {"a", Command::PasteOverCopied, kSent, u"+29 +47 -47 -29"_s},
        {"foot", Command::Paste, kSent, shiftInsert, u"offered"_s},
        {"foot", Command::Copy, kSent, QString(), u"taken"_s},
        {"Terminal", Command::Paste, kSent, shiftInsert, u"offered"_s},
        {"emacs", Command::PasteOverCopied, kSent, u"+14 -14 +29 +21 -21 -29"_s},
        {"xedit", Command::Paste, kUnknown, QString()},
        {"mine", Command::Paste, kSent, u"+42 +22 -22 -42"_s},
        {"other", Command::Paste, kUnknown, QString()},
    };
    m_usersTable = R"([{"applications": ["Mine"], "paste": "U"},
                       {"applications": ["Other"], "paste": "hebrew_aleph"}])";
    for (const Row &row : rows) {
        SCOPED_TRACE(row.application);
        m_desktop->show(row.application, true);
        settle();
        m_primary.clear();
        const Outcome outcome =
            row.command == Command::PasteOverCopied
                ? m_sender->sendPasteOverCopied()
                : m_sender->sendCommand(row.command == Command::Copy ? VirtualKey::kC
                                                                     : VirtualKey::kV);
        EXPECT_EQ(outcome, row.outcome);
        EXPECT_EQ(typed(), row.typed);
        EXPECT_EQ(m_primary.join(u' '), row.primary);
        m_desktop->close(row.application);
    }
    EXPECT_EQ(m_expectedPastes, 7);
}

TEST_P(WaylandTargets, anotherComputerIsGivenItsTimeUnlessSomebodyElseIsInFrontByThen)
{
    int givenUp = 0;
    m_sender->setGivenUp([&givenUp] { ++givenUp; });
    m_desktop->show("wlfreerdp", true);
    settle();
    for (const bool isInFront : {true, false}) {
        ASSERT_EQ(m_sender->sendCommand(VirtualKey::kV), Outcome::Sent);
        EXPECT_EQ(typed(), QString());
        if (!isInFront)
            m_desktop->show("a", true);
        settle();
        QString keys;
        EXPECT_TRUE(QTest::qWaitFor([&] {
            keys += typed();
            return givenUp > 0 || !keys.isEmpty();
        }));
        EXPECT_EQ(keys, isInFront ? u"+29 +47 -47 -29"_s : QString());
        EXPECT_EQ(givenUp, isInFront ? 0 : 1);
    }
}

TEST_P(WaylandTargets, whatIsTypedBehindAPasteNeverStaysWithOurHiddenWindow)
{
    // Where the user's own keyboard is used, what the user holds just then would count.
    const bool isTypedOn = GetParam() == Kind::Wlroots;
    m_desktop->show("a", true);
    settle();
    QLineEdit field(&m_ours);
    field.setFocus();
    bringOursToFront();
    QWindow *window = m_ours.windowHandle();
    const auto type = [window](Qt::Key key, quint32 symbol, Qt::KeyboardModifiers modifiers,
                               const QString &text) {
        QKeyEvent press(QEvent::KeyPress, key, modifiers, 0, symbol, 0, text);
        QCoreApplication::sendEvent(window, &press);
    };
    m_ours.hide();
    type(Qt::Key_Z, XKB_KEY_z, Qt::NoModifier, u"z"_s);
    ASSERT_EQ(m_sender->sendCommand(VirtualKey::kV), Outcome::Sent);
    EXPECT_EQ(typed(), u"+29 +47 -47 -29"_s);
    type(Qt::Key_B, XKB_KEY_B, Qt::ShiftModifier, u"B"_s);
    type(Qt::Key_Shift, XKB_KEY_Shift_L, Qt::ShiftModifier, QString());
    EXPECT_EQ(typed(), QString());
    m_sender->letTypedAheadGo();
    EXPECT_EQ(typed(), isTypedOn ? u"+44 -44 +42 +48 -48 -42"_s : QString());
    type(Qt::Key_A, XKB_KEY_a, Qt::ControlModifier, u"\x01"_s);
    EXPECT_EQ(typed(), isTypedOn ? u"+29 +30 -30 -29"_s : QString());
    EXPECT_EQ(field.text(), QString());
}

TEST_P(WaylandTargets, theWayBackLeadsToTheTargetOrNowhere)
{
    struct Row
    {
        const char *name;
        bool staysActive; ///< While ours is in front.
        bool isObliging;
        bool isBack;
        std::function<void(FakeDesktop &)> meanwhile; ///< While or after ours was.
        QString asked = QString();
    };
    const auto showA = [](FakeDesktop &desktop) { desktop.show("a", true); };
    const auto showB = [](FakeDesktop &desktop) { desktop.show("b", true); };
    const auto closeA = [](FakeDesktop &desktop) { desktop.close("a"); };
    const auto replaceA = [](FakeDesktop &desktop) {
        desktop.close("a");
        desktop.show("b", true);
    };
    const auto minimizeA = [](FakeDesktop &desktop) { desktop.show("a", false, true); };
    const Row rows[] = {
        {"by itself", false, false, true, showA},
        {"never left", true, false, true, {}},
        {"when it is asked", false, true, true, {}, u"activate a"_s},
        {"instead of another", false, true, true, showB, u"activate a"_s},
        {"not even then", false, false, false, {}, u"activate a"_s},
        {"closed", false, true, false, closeA},
        {"closed, and another one took its place", false, true, false, replaceA},
        {"put away", false, true, false, minimizeA},
    };
    EXPECT_FALSE(m_front->returnToTarget()) << "there is none";
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        m_desktop->setObliging(row.isObliging);
        m_desktop->show("b", true);
        m_desktop->show("b", false);
        m_desktop->show("a", true);
        settle();
        bringOursToFront();
        EXPECT_EQ(m_front->applicationName(), kOurs);
        if (!row.staysActive)
            m_desktop->show("a", false);
        m_ours.close();
        if (row.meanwhile)
            row.meanwhile(*m_desktop);
        settle();
        EXPECT_EQ(m_front->returnToTarget(milliseconds(200)), row.isBack);
        EXPECT_EQ(m_desktop->takeRequests().join(u' '), row.asked);
        for (const char *application : {"a", "b"})
            m_desktop->close(application);
        QCoreApplication::processEvents();
        settle();
    }
    // Whoever comes to the front later is the next one's target.
    m_desktop->show("b", true);
    settle();
    EXPECT_TRUE(m_front->returnToTarget());
}

TEST_P(WaylandTargets, aWindowOfOursIsTheTargetForAsLongAsItIsVisible)
{
    m_desktop->show("a", true);
    m_desktop->show(qPrintable(kOurs), false);
    settle();
    QWindow field;
    field.setTitle(kOurs);
    field.show();
    m_front->setOwnTarget(&field);
    bringOursToFront();
    m_ours.hide();
    EXPECT_TRUE(m_front->returnToTarget(milliseconds(5000)));
    EXPECT_EQ(m_desktop->takeRequests().join(u' '), u"activate "_s + kOurs);
    field.hide();
    EXPECT_TRUE(m_front->returnToTarget(milliseconds(5000)));
    std::ignore = m_desktop->takeRequests();
    // On the way back it is passed over, even where the target would come back by itself.
    EXPECT_TRUE(m_front->returnToTarget(milliseconds(5000)));
    EXPECT_EQ(m_desktop->takeRequests().join(u' '), u"activate a"_s);
}

TEST_P(WaylandTargets, aWindowOfOursThatOpensBehindAnotherIsBroughtToTheFrontOnce)
{
    m_desktop->show("a", true);
    settle();
    QWindow ours;
    ours.setTitle(kOurs);
    m_front->activate(&ours);
    m_desktop->show("b", false);
    m_desktop->show(qPrintable(kOurs), false);
    settle();
    settle();
    EXPECT_EQ(m_desktop->takeRequests().join(u' '), u"activate "_s + kOurs);
    m_desktop->show(qPrintable(kOurs), false);
    settle();
    settle();
    EXPECT_EQ(m_desktop->takeRequests(), QStringList());
}

TEST_P(WaylandTargets, aWindowOfOursIsInFrontWhileTheKeyboardIsAwayForAMenu)
{
    QWindow ours;
    ours.setTitle(kOurs);
    QWindow other;
    other.setTitle(u"other"_s);
    m_desktop->show(qPrintable(kOurs), false);
    m_desktop->show("a", true);
    settle();
    ASSERT_EQ(QGuiApplication::focusWindow(), nullptr);
    EXPECT_FALSE(m_front->isInFront(ours)) << "another program is";
    m_desktop->show("a", false);
    m_desktop->show(qPrintable(kOurs), true);
    settle();
    EXPECT_TRUE(m_front->isInFront(ours));
    EXPECT_FALSE(m_front->isInFront(other));
    bringOursToFront();
    EXPECT_FALSE(m_front->isInFront(ours)) << "the toolkit knows better who has the keyboard";
}

} // namespace
