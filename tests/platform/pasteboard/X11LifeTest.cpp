#include "platform/pasteboard/X11Stage.h"
#include "platform/x11/ForeignProgram.h"
#include "platform/x11/ForeignWindow.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/windows/X11ActiveWindow.h"
#include "support/ExpectedWarnings.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include <xcb/xproto.h>

namespace {

using namespace std::chrono_literals;

TEST(X11Life, anOwnerThatQuitsOnceItHasAnsweredIsRecordedWholeAndCanBePasted)
{
    X11Stage stage;
    for (int i = 1; i <= 20; ++i) {
        const QByteArray text = QByteArray(300'000, 'x') + QByteArray::number(i);
        XcbClient owner;
        owner.copy(text);
        ASSERT_TRUE(pumpUntil({&owner}, [&] { return owner.hasSent(text.size()); }));
        owner.die();
        ASSERT_EQ(stage.change(i, {}).text, QString::fromUtf8(text));
        stage->acknowledge(i);
        ASSERT_TRUE(stage.isServed(text));
    }
    EXPECT_EQ(stage->changeCount(), 20);
}

TEST(X11Life, aDeadOwnersCopyIsServedInItsOwnBytesOnlyOnceItIsAcknowledged)
{
    X11Stage stage;
    XcbClient owner;
    owner.own("CLIPBOARD", {{"UTF8_STRING", "a\xFF"}, {"text/rtf", "{\\rtf1}"}});
    ASSERT_TRUE(stage.reaches(1, {&owner}));
    owner.die();
    EXPECT_EQ(stage.paste("UTF8_STRING"), std::nullopt);
    stage->acknowledge(1);
    EXPECT_TRUE(stage.isServed("a\xFF"));
    EXPECT_EQ(stage.paste("application/rtf"), "{\\rtf1}");
    EXPECT_EQ(stage->changeCount(), 1);
}

TEST(X11Life, aTextThatIsTooLargeToBeOfUseStillOutlivesItsOwner)
{
    X11Stage stage;
    stage->setLargestUsefulText(10'000);
    XcbClient owner;
    owner.copy(QByteArray(1'000'000, 'x'));
    ASSERT_TRUE(stage.change(1, {&owner}).isTextTooLarge);
    stage->acknowledge(1);
    owner.die();
    EXPECT_TRUE(stage.isServed(QByteArray(1'000'000, 'x')));
}

TEST(X11Life, aDeliberateClearLeavesNothingToAdopt)
{
    X11Stage stage;
    XcbClient owner;
    owner.copy("cleared");
    ASSERT_TRUE(stage.reaches(1, {&owner}));
    stage->acknowledge(1);
    owner.disown("CLIPBOARD");
    ASSERT_TRUE(stage.reaches(2, {&owner}));
    EXPECT_FALSE(stage->contents());
    EXPECT_EQ(stage->changesAfter(1).size(), 0);

    owner.copy("cleared by us");
    ASSERT_TRUE(stage.reaches(3, {&owner}));
    stage->acknowledge(3);
    stage->clear();
    owner.die();
    EXPECT_EQ(stage.paste("UTF8_STRING"), std::nullopt);
    EXPECT_EQ(stage->changeCount(), 4);
}

TEST(X11Life, ownershipIsNotTakenWhileTheOwnerLives)
{
    X11Stage stage;
    XcbClient owner;
    owner.copy("theirs");
    ASSERT_TRUE(stage.reaches(1, {&owner}));
    stage->acknowledge(1);
    stage->offerPrimary();
    EXPECT_EQ(owner.owner("CLIPBOARD"), owner.window());
}

TEST(X11Life, thePartOfTheManagerIsTakenOnlyWhenItIsFree)
{
    auto other = std::make_unique<XcbClient>();
    other->own("CLIPBOARD_MANAGER", {});
    X11Stage stage;
    ASSERT_TRUE(stage->write({QStringLiteral("ours")}));
    EXPECT_EQ(other->owner("CLIPBOARD_MANAGER"), other->window());
    other.reset();
    XcbClient looker;
    EXPECT_TRUE(pumpUntil(
        {}, [&] { return looker.owner("CLIPBOARD_MANAGER") == looker.owner("CLIPBOARD"); }));
}

TEST(X11Life, atTheEndAnotherManagerGetsTheContents)
{
    XcbClient manager;
    manager.own("CLIPBOARD_MANAGER", {{"SAVE_TARGETS", ""}});
    bool isAsked = false;
    manager.save = [&] {
        if (!isAsked)
            manager.ask("CLIPBOARD", "UTF8_STRING");
        isAsked = true;
        return true;
    };
    X11Stage stage;
    ASSERT_TRUE(stage->write({QStringLiteral("handed over")}));
    std::atomic_bool isOver = false;
    std::thread elsewhere([&] {
        while (!isOver)
            manager.pump();
    });
    stage->shutDown();
    isOver = true;
    elsewhere.join();
    EXPECT_TRUE(isAsked);
    EXPECT_FALSE(stage->write({QStringLiteral("too late")}));
    EXPECT_EQ(manager.owner("CLIPBOARD"), xcb_window_t(XCB_WINDOW_NONE));
}

TEST(X11Life, aHungManagerDelaysTheEndByItsLimitOnly)
{
    XcbClient manager;
    manager.own("CLIPBOARD_MANAGER", {});
    PasteboardLimits limits;
    limits.handover = 1ms;
    X11Stage stage(limits);
    ASSERT_TRUE(stage->write({QStringLiteral("ours")}));
    // Without the limit it would never return.
    stage->shutDown();
}

TEST(X11Life, aLostConnectionIsLoggedOnceAndEverythingElseIsRefusedQuietly)
{
    X11Stage stage;
    ASSERT_TRUE(stage->write({QStringLiteral("ours")}));
    XcbClient killer;
    ExpectedWarnings::expect(QStringLiteral("the pasteboard is not served"));
    xcb_kill_client(killer.xcb(), killer.owner("CLIPBOARD"));
    ASSERT_TRUE(pumpUntil({}, [&] { return killer.owner("CLIPBOARD") == 0; }));
    ASSERT_TRUE(pumpUntil({}, [] { return !ExpectedWarnings::messages().isEmpty(); }));
    EXPECT_FALSE(stage->write({QStringLiteral("lost")}));
    EXPECT_EQ(stage->contents()->text, QStringLiteral("ours"));
    stage->offerPrimary();
    stage->publishPrimary(killer.window());
    stage->clear();
    EXPECT_EQ(stage->changeCount(), 2);
    stage->shutDown();
}

TEST(X11Life, aCopyIsNamedAfterTheApplicationInFrontAtItsMoment)
{
    X11Stage stage;
    const X11Connection server;
    const xcb_atom_t activeWindow = server.atoms({"_NET_ACTIVE_WINDOW"})[0];
    const auto isActive = [&](xcb_window_t window) {
        return server.firstOf(server.root(), activeWindow, XCB_ATOM_WINDOW) == window;
    };
    XcbClient owner;
    ForeignWindow editor("Editor");
    ForeignWindow browser("Browser");
    ASSERT_TRUE(editor.show());
    owner.copy("from the editor");
    // Read only when another application is in front already.
    ASSERT_TRUE(browser.show());
    EXPECT_EQ(stage.change(1, {&owner}).applicationName, QStringLiteral("Editor"));
    owner.copy("from the browser");
    EXPECT_EQ(stage.change(2, {&owner}).applicationName, QStringLiteral("Browser"));

    // A window manager may go on naming a window that is dead, or name none.
    editor.destroy();
    qint64 count = 2;
    for (const xcb_window_t named : {editor.id(), xcb_window_t(XCB_WINDOW_NONE)}) {
        xcb_change_property(server.get(), XCB_PROP_MODE_REPLACE, server.root(), activeWindow,
                            XCB_ATOM_WINDOW, 32, 1, &named);
        server.roundTrip();
        ASSERT_TRUE(pumpUntil({}, [&] { return isActive(named); }));
        owner.copy("with nothing in front");
        EXPECT_EQ(stage.change(++count, {&owner}).applicationName, QString())
            << "both the owner and the last in front are this process";
    }
}

TEST(X11Life, aCopyIsNamedAsItsWindowCallsItselfThenAndWithNoneInFrontAsItsOwnerDoes)
{
    X11Stage stage;
    XcbClient owner;
    auto program = std::make_unique<ForeignProgram>();
    qint64 count = 0;
    const auto nameOfCopy = [&] {
        owner.copy("copied");
        return stage.change(++count, {&owner}).applicationName;
    };
    const X11Connection server;
    const X11ActiveWindow active(server);
    ASSERT_TRUE(program->tell("window Suite"));
    ASSERT_TRUE(pumpUntil({}, [&] { return active.current() != XCB_NONE; }));
    EXPECT_EQ(nameOfCopy(), QStringLiteral("Suite"));
    ASSERT_TRUE(program->tell("class Writer"));
    EXPECT_EQ(nameOfCopy(), QStringLiteral("Writer"));
    ASSERT_TRUE(program->tell("dialog Suite"));
    EXPECT_EQ(nameOfCopy(), QStringLiteral("Writer"));
    ASSERT_TRUE(program->tell("close"));
    EXPECT_EQ(nameOfCopy(), QStringLiteral("Writer"));
    ASSERT_TRUE(program->tell("copy its own"));
    EXPECT_EQ(stage.change(++count, {&owner}).applicationName, ForeignProgram::processName());
    program.reset();
    EXPECT_EQ(nameOfCopy(), QString());
}

} // namespace
