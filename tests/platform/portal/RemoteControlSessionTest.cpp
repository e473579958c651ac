#include "platform/portal/PortalStage.h"
#include "platform/portal/PortalTypist.h"
#include "platform/wayland/Toplevels.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

using Answer = PortalStandIn::Manners::Answer;
using State = Consent::State;

TEST(RemoteControlSession, asksForKeysAndTheClipboardAndRemembersWhatWasAgreedTo)
{
    PortalDesktop desktop;
    EXPECT_EQ(desktop.session.state(), State::NotAsked);
    desktop.session.resume();
    EXPECT_EQ(desktop.session.state(), State::NotAsked);
    desktop.session.ask();
    EXPECT_EQ(desktop.session.state(), State::Asking);
    ASSERT_TRUE(desktop.comesTo(State::Given));
    const PortalStandIn::Notes notes = desktop.portals.notes();
    EXPECT_EQ(notes.calls, QStringList({u"Register"_s, u"CreateSession"_s, u"SelectDevices"_s,
                                        u"RequestClipboard"_s, u"Start"_s}));
    EXPECT_EQ(notes.applicationIds.size(), 1);
    EXPECT_EQ(notes.devices.value(u"types"_s), 1U);
    EXPECT_EQ(notes.devices.value(u"persist_mode"_s), 2U);
    EXPECT_EQ(desktop.settings.value(RemoteControlSession::kTokenKey), notes.tokens.last());
    EXPECT_TRUE(desktop.session.canType());
    desktop.session.ask();
    EXPECT_EQ(desktop.session.state(), State::Given);

    // The next start shows nothing, and brings the token of the one after it.
    RemoteControlSession next(desktop.bus, desktop.settings,
                              RemoteControlSession::Wish::KeysAndClipboard);
    next.resume();
    ASSERT_TRUE(pumpUntil({}, [&] { return next.state() == State::Given; }));
    EXPECT_EQ(desktop.portals.notes().dialogs, 1);
    EXPECT_NE(desktop.settings.value(RemoteControlSession::kTokenKey), notes.tokens.last());
}

struct AnswerRow
{
    const char *name;
    PortalStandIn::Manners manners;
    State state;
    bool canType;
    bool isRemembered;
};

TEST(RemoteControlSession, isWhatTheUserMakesOfTheQuestion)
{
    for (const AnswerRow &row : {
             AnswerRow{"yes", {}, State::Given, true, true},
             AnswerRow{"not remembered", {.remembers = false}, State::Given, true, false},
             AnswerRow{"no keys", {.devices = 0}, State::Given, false, true},
             AnswerRow{"no clipboard", {.allowsClipboard = false}, State::Refused, false, true},
             AnswerRow{"no", {.answer = Answer::No}, State::Refused, false, false},
             AnswerRow{"any other end", {.answer = Answer::Other}, State::Ended, false, false},
             AnswerRow{"no portal", {.hasRemoteDesktop = false}, State::Unavailable, false, false},
         }) {
        SCOPED_TRACE(row.name);
        PortalDesktop desktop;
        desktop.portals.setManners(row.manners);
        desktop.session.ask();
        ASSERT_TRUE(desktop.comesTo(row.state));
        EXPECT_EQ(desktop.session.canType(), row.canType);
        EXPECT_EQ(desktop.settings.contains(RemoteControlSession::kTokenKey), row.isRemembered);
        EXPECT_EQ(desktop.session.path().isEmpty(), row.state != State::Given);
        EXPECT_LE(desktop.portals.notes().dialogs, 1);
    }
}

TEST(RemoteControlSession, thatHasEndedAsksNobodyByItself)
{
    PortalDesktop desktop;
    desktop.session.ask();
    ASSERT_TRUE(desktop.comesTo(State::Given));
    desktop.portals.endSession();
    ASSERT_TRUE(desktop.comesTo(State::Ended));
    EXPECT_EQ(desktop.session.path(), u""_s);

    // The portals know of nothing any more: they would ask.
    desktop.portals.forgetTokens();
    desktop.session.resume();
    EXPECT_EQ(desktop.session.state(), State::Asking);
    ASSERT_TRUE(desktop.comesTo(State::Ended));
    EXPECT_EQ(desktop.portals.notes().dialogs, 1);
    desktop.session.ask();
    ASSERT_TRUE(desktop.comesTo(State::Given));
    EXPECT_EQ(desktop.portals.notes().dialogs, 2);
}

TEST(RemoteControlSession, goesOnWithoutAQuestionWhenThePortalsWereStartedAgain)
{
    PortalDesktop desktop;
    desktop.session.ask();
    ASSERT_TRUE(desktop.comesTo(State::Given));
    desktop.portals.vanish();
    ASSERT_TRUE(desktop.comesTo(State::Ended));
    desktop.portals.appear();
    ASSERT_TRUE(desktop.comesTo(State::Given));
    const PortalStandIn::Notes notes = desktop.portals.notes();
    EXPECT_EQ(notes.applicationIds.size(), 1);
    EXPECT_EQ(notes.dialogs, 1);

    // What the user has ended stays ended.
    desktop.portals.endSession();
    ASSERT_TRUE(desktop.comesTo(State::Ended));
    desktop.portals.vanish();
    desktop.portals.appear();
    bool isKnown = false;
    ASSERT_TRUE(pumpUntil({}, [&] { return !desktop.portals.notes().applicationIds.isEmpty(); }));
    desktop.bus->whenReady(desktop.bus.get(), [&] { isKnown = true; });
    ASSERT_TRUE(pumpUntil({}, [&] { return isKnown; }));
    EXPECT_EQ(desktop.session.state(), State::Ended);
}

TEST(RemoteControlSession, takesAQuestionBackThatNobodyAnswersBeforeTheEnd)
{
    PortalStandIn portals;
    portals.setManners({.answer = Answer::None});
    {
        MemorySettingsStore settings;
        RemoteControlSession session(std::make_shared<PortalBus>(), settings,
                                     RemoteControlSession::Wish::Keys);
        session.ask();
        ASSERT_TRUE(pumpUntil({}, [&] { return portals.notes().dialogs == 1; }));
        EXPECT_EQ(session.state(), State::Asking);
    }
    EXPECT_TRUE(pumpUntil({}, [&] { return portals.notes().requestsClosed == 1; }));
}

TEST(PortalTypist, pressesTheKeysOfAChordWhileTheSessionLasts)
{
    PortalDesktop desktop;
    const std::shared_ptr<WaylandConnection> connection = WaylandConnection::open();
    const auto toplevels = std::make_shared<UntoldToplevels>(u"org.quillmarsh.Quillmarsh"_s);
    PortalTypist typist(desktop.bus, desktop.session, connection, toplevels);
    // A window of ours had the keyboard until now, so what is held is known: nothing.
    toplevels->holdTarget();
    const KeySequence paste = KeySequences::fromText(u"Ctrl+v").value();
    EXPECT_FALSE(typist.isAvailable());
    EXPECT_EQ(typist.type(paste), KeySender::Outcome::Failed);
    desktop.session.ask();
    ASSERT_TRUE(desktop.comesTo(State::Given));
    EXPECT_TRUE(typist.isAvailable());
    EXPECT_EQ(typist.type(paste), KeySender::Outcome::Sent);
    using Keys = QList<std::pair<int, uint>>;
    EXPECT_EQ(desktop.portals.notes().keys, Keys({{29, 1}, {47, 1}, {47, 0}, {29, 0}}));
    desktop.portals.endSession();
    EXPECT_EQ(typist.type(paste), KeySender::Outcome::Failed);
    EXPECT_EQ(desktop.portals.notes().keys.size(), 4);
}

} // namespace
