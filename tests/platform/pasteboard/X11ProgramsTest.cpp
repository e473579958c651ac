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
        EXPECT_TRUE(pumpUntil({}, [&] { return stage.paste("UTF8_STRING") == "yanked"; }));
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

struct FileManagerRow
{
    const char *name;
    XcbClient::Formats formats;
    bool isCut;
};

class X11FileManagers : public testing::TestWithParam<FileManagerRow>
{
};

TEST_P(X11FileManagers, leaveTheirFilesAsTheyWereMarked)
{
    const QByteArray uri = "file:///tmp/report.txt";
    X11Stage stage;
    XcbClient manager;
    manager.own("CLIPBOARD", GetParam().formats);
    EXPECT_EQ(stage.change(1, {&manager}).text, QStringLiteral("/tmp/report.txt"));
    stage->acknowledge(1);
    manager.die();
    ASSERT_TRUE(pumpUntil({}, [&] { return stage.paste("text/uri-list") == uri + "\r\n"; }));
    EXPECT_EQ(stage.paste("x-special/gnome-copied-files"),
              (GetParam().isCut ? "cut\n" : "copy\n") + uri);
    EXPECT_EQ(stage.paste("application/x-kde-cutselection"),
              GetParam().isCut ? std::optional<QByteArray>("1") : std::nullopt);
    // The history's files are copied, whatever became of them at their own time.
    ASSERT_TRUE(stage->write({{}, {}, {QStringLiteral("/tmp/report.txt")}}));
    EXPECT_EQ(stage.paste("x-special/gnome-copied-files"), "copy\n" + uri);
    EXPECT_EQ(stage.paste("application/x-kde-cutselection"), std::nullopt);
}

const QByteArray kList = "file:///tmp/report.txt\r\n";

INSTANTIATE_TEST_SUITE_P(All, X11FileManagers,
                         testing::Values(FileManagerRow{"PcmanfmQtCuts",
                                                        {{"text/uri-list", kList},
                                                         {"x-special/gnome-copied-files",
                                                          "cut\nfile:///tmp/report.txt"}},
                                                        true},
                                         FileManagerRow{"PcmanfmQtCopies",
                                                        {{"text/uri-list", kList},
                                                         {"x-special/gnome-copied-files",
                                                          "copy\nfile:///tmp/report.txt"}},
                                                        false},
                                         FileManagerRow{"DolphinCuts",
                                                        {{"text/uri-list", kList},
                                                         {"text/plain", "file:///tmp/report.txt"},
                                                         {"application/x-kde-cutselection", "1"}},
                                                        true},
                                         FileManagerRow{"DolphinCopies",
                                                        {{"text/uri-list", kList},
                                                         {"text/plain", "file:///tmp/report.txt"},
                                                         {"application/x-kde-cutselection", "0"}},
                                                        false}),
                         [](const auto &row) { return std::string(row.param.name); });

} // namespace
