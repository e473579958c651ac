#include "platform/pasteboard/FakeCompositor.h"
#include "platform/pasteboard/WaylandStage.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// The other tests of this program find it as others find their session's.
class OneCompositor : public testing::Environment
{
    void SetUp() override
    {
        m_compositor = std::make_unique<FakeCompositor>();
        m_compositor->offerSeat();
    }
    void TearDown() override { m_compositor.reset(); }

    std::unique_ptr<FakeCompositor> m_compositor;
};

testing::Environment *const g_compositor = testing::AddGlobalTestEnvironment(new OneCompositor);

TEST(DataControlLife, seatsComeAndGoAndTheClipboardFollowsThem)
{
    FakeCompositor compositor;
    const std::shared_ptr<WaylandConnection> connection = WaylandConnection::open();
    ASSERT_TRUE(connection);
    WaylandPasteboard pasteboard(connection, [] { return WaylandPasteboard::Front(); });
    connection->start();
    EXPECT_FALSE(pasteboard.write({u"nowhere to"_s}));
    pasteboard.clear();
    for (qint64 count = 1; count < 6; count += 2) {
        compositor.offerSeat();
        ASSERT_TRUE(pumpUntil({}, [&] { return pasteboard.write({u"ours"_s}); }));
        EXPECT_EQ(pasteboard.changeCount(), count + 1);
        DataClient client;
        client.copy("theirs");
        ASSERT_TRUE(pumpUntil({&client}, [&] { return pasteboard.changeCount() == count + 2; }));
        EXPECT_EQ(pasteboard.contents()->text, u"theirs"_s);
        compositor.withdrawSeat();
        ASSERT_TRUE(pumpUntil({}, [&] { return connection->versionOf("wl_seat") == 0; }));
        EXPECT_FALSE(pasteboard.write({u"nowhere to"_s}));
    }
}

TEST(DataControlLife, aSecondSeatChangesNothing)
{
    FakeCompositor compositor;
    compositor.offerSeat();
    WaylandStage stage;
    compositor.offerSeat();
    ASSERT_TRUE(stage->write({u"ours"_s}));
    EXPECT_EQ(stage.paste(u"UTF8_STRING"_s), "ours");
    compositor.withdrawSeat();
    stage.advance(0ms);
    EXPECT_TRUE(stage.isServed("ours"));
}

TEST(DataControlLife, aViewThatTheCompositorEndsIsAskedForAnew)
{
    FakeCompositor compositor;
    compositor.offerSeat();
    WaylandStage stage;
    stage.stopTime();
    stage.copyElsewhere({{u"before"_s}});
    compositor.finishDevices();
    stage.advance(0ms);
    EXPECT_FALSE(stage->write({u"nowhere to"_s}));
    EXPECT_EQ(stage->contents()->text, u"before"_s);
    stage.advance(1s);
    EXPECT_TRUE(stage->write({u"ours"_s}));
    DataClient client;
    const qint64 before = stage->changeCount();
    client.copy("theirs");
    EXPECT_EQ(stage.change(before + 1, {&client}).text, u"theirs"_s);
}

} // namespace
