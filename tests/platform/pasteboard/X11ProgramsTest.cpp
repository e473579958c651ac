#include "platform/pasteboard/X11Stage.h"

#include <gtest/gtest.h>

namespace {

// What programs that people use were seen to do.

TEST(X11Programs, aGVimThatDoesNotYetKnowThatItIsTheOwnerIsAskedAgain)
{
    for (const int refusals : {1, 2}) {
        X11Stage stage;
        XcbClient gvim;
        gvim.manners.refusals = refusals;
        gvim.copy("yanked");
        const PasteboardContents contents = stage.change(1, {&gvim});
        EXPECT_EQ(contents.text, QStringLiteral("yanked")) << refusals;
        stage->acknowledge(1);
        gvim.die();
        EXPECT_TRUE(stage.isServed("yanked"));
    }
}

TEST(X11Programs, anOwnerThatRefusesItsTextForGoodIsPublishedWithoutAndNoOtherCopyWaitsForIt)
{
    X11Stage stage;
    XcbClient stubborn;
    XcbClient other;
    stubborn.manners.refusals = 99;
    stubborn.copy("never given");
    ASSERT_TRUE(pumpUntil({&stubborn}, [&] { return stubborn.requests().size() == 2; }));
    other.copy("meanwhile");
    EXPECT_EQ(stage.change(2, {&other}).text, QStringLiteral("meanwhile"));
    EXPECT_EQ(stage->changesAfter(0).first().text, std::nullopt);
    stubborn.copy("never given");
    EXPECT_EQ(stage.change(3, {&stubborn}).text, std::nullopt);
    EXPECT_EQ(stubborn.requests().count("UTF8_STRING"), 4);
}

TEST(X11Programs, aDrawingProgramWithoutATextIsLeftAlone)
{
    for (const int refusals : {0, 99}) {
        X11Stage stage;
        XcbClient drawing;
        drawing.manners.refusals = refusals;
        drawing.own("CLIPBOARD", {{"image/svg+xml", "<svg/>"}, {"text/plain", ""}});
        const PasteboardContents contents = stage.change(1, {&drawing});
        EXPECT_EQ(contents.text, std::nullopt);
        EXPECT_EQ(drawing.requests().count("text/plain"), 1);
    }
}

TEST(X11Programs, fileManagersLeaveTheirFilesAsTheyWereMarked)
{
    struct Row
    {
        const char *name;
        const char *mark;
        QByteArray value;
        bool isCut;
    };
    const QByteArray uri = "file:///tmp/report.txt";
    const Row rows[] = {
        {"PcmanfmQt cuts", "x-special/gnome-copied-files", "cut\n" + uri, true},
        {"PcmanfmQt copies", "x-special/gnome-copied-files", "copy\n" + uri, false},
        {"Dolphin cuts", "application/x-kde-cutselection", "1", true},
        {"Dolphin copies", "application/x-kde-cutselection", "0", false},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        X11Stage stage;
        XcbClient manager;
        manager.own("CLIPBOARD",
                    {{"text/uri-list", uri + "\r\n"}, {"text/plain", uri}, {row.mark, row.value}});
        EXPECT_EQ(stage.change(1, {&manager}).text, QStringLiteral("/tmp/report.txt"));
        stage->acknowledge(1);
        manager.die();
        EXPECT_TRUE(stage.isServed(uri + "\r\n", "text/uri-list"));
        EXPECT_EQ(stage.paste("x-special/gnome-copied-files"),
                  (row.isCut ? "cut\n" : "copy\n") + uri);
        EXPECT_EQ(stage.paste("application/x-kde-cutselection"),
                  row.isCut ? std::optional<QByteArray>("1") : std::nullopt);
        // The history's files are copied, whatever became of them at their own time.
        ASSERT_TRUE(stage->write({{}, {}, {QStringLiteral("/tmp/report.txt")}}));
        EXPECT_EQ(stage.paste("x-special/gnome-copied-files"), "copy\n" + uri);
        EXPECT_EQ(stage.paste("application/x-kde-cutselection"), std::nullopt);
    }
}

} // namespace
