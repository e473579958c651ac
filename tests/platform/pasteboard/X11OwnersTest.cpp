#include "platform/pasteboard/X11Stage.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

struct OfferRow
{
    const char *name;
    XcbClient::Formats formats;
    std::optional<QString> text;
    QStringList fileNames;
};

using X11Offers = testing::TestWithParam<OfferRow>;

TEST_P(X11Offers, areReadInTheBestFormatThereIs)
{
    X11Stage stage;
    XcbClient owner;
    owner.own("CLIPBOARD", GetParam().formats);
    const PasteboardContents contents = stage.change(1, {&owner});
    EXPECT_EQ(contents.text, GetParam().text);
    EXPECT_EQ(contents.fileNames, GetParam().fileNames);
}

const QString kFile = u"/tmp/a b"_s;

const OfferRow kX11Offers[] = {
    {"utf8BeforeLatin1", {{"UTF8_STRING", "ü"}, {"STRING", "u"}}, u"ü"_s, {}},
    {"brokenUtf8",
     {{"UTF8_STRING", "a\xFF\xED\xA0\x80z\xE2\x82"}},
     u"a\uFFFD\uFFFD\uFFFD\uFFFDz\uFFFD\uFFFD"_s,
     {}},
    {"nothingOfUse", {{"image/png", "x"}}, std::nullopt, {}},
    {"filesWithoutText",
     {{"text/uri-list", "# two\r\nfile:///tmp/a%20b\r\nfile://localhost/etc/\r\n"}},
     u"/tmp/a b\n/etc"_s,
     {kFile, u"/etc"_s}},
    {"gnomeFiles", {{"x-special/gnome-copied-files", "cut\nfile:///tmp/a%20b"}}, kFile, {kFile}},
    {"gnomeFilesBehindAWebAddress",
     {{"text/uri-list", "https://example.org/a\r\n"},
      {"x-special/gnome-copied-files", "copy\nfile:///tmp/a%20b"}},
     kFile,
     {kFile}},
    {"filesWithTheirAddressesAsText",
     {{"text/uri-list", "file:///tmp/a%20b\r\nfile:///etc\r\n"},
      {"text/plain", "file:///tmp/a%20b\nfile:///etc"}},
     u"/tmp/a b\n/etc"_s,
     {kFile, u"/etc"_s}},
    {"aFileWithATextOfItsOwn",
     {{"text/uri-list", "file:///tmp/a%20b\r\n"}, {"UTF8_STRING", "see file:///tmp"}},
     u"see file:///tmp"_s,
     {kFile}},
    {"anAddressWithoutAFile", {{"UTF8_STRING", "file:///tmp/a%20b"}}, u"file:///tmp/a%20b"_s, {}},
    {"plainWithACharset", {{"text/plain;charset=ISO-8859-15", "\xA4"}}, u"€"_s, {}},
    {"compoundAlone", {{"COMPOUND_TEXT", "\x1B-L\xBF"}}, u"П"_s, {}},
    {"filesOfAnotherHost",
     {{"text/uri-list", "file://elsewhere.example/tmp/a\r\nfile:///a%00b\r\n"},
      {"UTF8_STRING", "text"}},
     u"text"_s,
     {}}};

INSTANTIATE_TEST_SUITE_P(All, X11Offers, testing::ValuesIn(kX11Offers),
                         [](const auto &row) { return std::string(row.param.name); });

TEST(X11Owners, aCopyMadeBeforeTheStartIsChangeOne)
{
    XcbClient owner;
    owner.copy("early");
    X11Stage stage;
    EXPECT_EQ(stage.change(1, {&owner}).text, u"early"_s);
}

TEST(X11Owners, anOwnerThatListsNoFormatsIsStillAskedForItsText)
{
    X11Stage stage;
    XcbClient owner;
    owner.manners.listsTargets = false;
    owner.own("CLIPBOARD", {{"STRING", "simple"}});
    EXPECT_EQ(stage.change(1, {&owner}).text, u"simple"_s);
}

TEST(X11Owners, htmlThatWouldFillTheHistoryIsLeftOut)
{
    X11Stage stage;
    XcbClient owner;
    const struct
    {
        qsizetype text, html;
        bool isRead;
    } kTable[] = {
        {1, 64 * 1024, true},  {1, 64 * 1024 + 1, false},    {4000, 80'000, true},
        {4000, 80'001, false}, {100'000, 1024 * 1024, true}, {100'000, 1024 * 1024 + 1, false},
    };
    qint64 count = 0;
    for (const auto &row : kTable) {
        owner.own("CLIPBOARD", {{"UTF8_STRING", QByteArray(row.text, 't')},
                                {"text/html", QByteArray(row.html, 'h')}});
        const PasteboardContents contents = stage.change(++count, {&owner});
        EXPECT_EQ(contents.text.value_or(QString()).size(), row.text) << row.html;
        EXPECT_EQ(contents.html.has_value(), row.isRead) << row.html;
    }
}

TEST(X11Owners, aHungOwnerIsGivenUpAfterTwoSeconds)
{
    X11Stage stage;
    stage.stopTime();
    XcbClient hung;
    hung.manners.hangsOn = "TARGETS";
    hung.copy("never told");
    ASSERT_TRUE(pumpUntil({&hung}, [&] { return !hung.requests().isEmpty(); }));
    stage.advance(1'999ms);
    EXPECT_EQ(stage->changeCount(), 0);
    stage.advance(1ms);
    ASSERT_TRUE(stage.reaches(1, {}));
    EXPECT_EQ(stage.pasteboard().contents()->text, std::nullopt);
}

TEST(X11Owners, whoeverAsksAHungOwnerIsAnsweredWithNothingInTheTimeOfOneQuestion)
{
    X11Stage stage;
    stage.stopTime();
    XcbClient hung;
    hung.manners.hangsOn = "TARGETS";
    hung.own("PRIMARY", {{"UTF8_STRING", "never told"}});
    hung.copy("never told");
    ASSERT_TRUE(pumpUntil({&hung}, [&] { return !hung.requests().isEmpty(); }));
    QObject context;
    QStringList answers;
    const auto note = [&](const std::optional<QString> &text) {
        answers.append(text.value_or(u"(none)"_s));
    };
    for (int press = 0; press < 20; ++press) {
        stage->askText(Pasteboard::Selection::Primary, &context, note);
        stage->askText(Pasteboard::Selection::Clipboard, &context, note);
    }
    auto gone = std::make_unique<QObject>();
    stage->askText(Pasteboard::Selection::Primary, gone.get(),
                   [](const auto &) { ADD_FAILURE() << "nobody is there to be told"; });
    gone.reset();
    stage.advance(1'999ms);
    EXPECT_TRUE(answers.isEmpty());
    stage.advance(1ms);
    ASSERT_TRUE(pumpUntil({}, [&] { return answers.size() == 20; }));
    // What was copied could not be read, so it is asked for once more.
    stage.advance(2s);
    ASSERT_TRUE(pumpUntil({}, [&] { return answers.size() == 40; }));
    EXPECT_EQ(answers.count(u"(none)"_s), 40);
    // It has come to itself.
    hung.manners.hangsOn.clear();
    stage->askText(Pasteboard::Selection::Primary, &context, note);
    ASSERT_TRUE(pumpUntil({&hung}, [&] { return answers.size() == 41; }));
    EXPECT_EQ(answers.last(), u"never told"_s);
}

TEST(X11Owners, whoeverAsksWhileACopyIsReadGetsTheNewText)
{
    X11Stage stage;
    stage.copyElsewhere({{u"old"_s}});
    XcbClient slow;
    slow.copy("new");
    ASSERT_EQ(slow.owner("CLIPBOARD"), slow.window());
    // Confirmed after everything that was before it, so the new copy is being read by now.
    stage->offerPrimary();
    QObject context;
    std::optional<QString> answer;
    stage->askText(Pasteboard::Selection::Clipboard, &context,
                   [&](const auto &text) { answer = text; });
    EXPECT_EQ(answer, std::nullopt);
    ASSERT_TRUE(pumpUntil({&slow}, [&] { return answer.has_value(); }));
    EXPECT_EQ(answer, u"new"_s);
}

TEST(X11Owners, aHungOwnerHoldsUpNeitherTheNextCopyNorOurWriteNorALateAnswer)
{
    X11Stage stage;
    XcbClient hung;
    XcbClient other;
    hung.copy("hung");
    EXPECT_TRUE(stage->write({u"ours"_s}));
    EXPECT_EQ(stage.paste("UTF8_STRING"), "ours");
    hung.copy("hung again");
    other.copy("alive");
    EXPECT_EQ(stage.change(4, {&other}).text, u"alive"_s);
    // Only now does it answer what it was asked, which nobody waits for any more.
    other.copy("after the late answers");
    EXPECT_EQ(stage.change(5, {&hung, &other}).text, u"after the late answers"_s);
    EXPECT_EQ(stage->changesAfter(0).size(), 5);
}

TEST(X11Owners, aFormatThatHangsLeavesTheTextThatCameBefore)
{
    X11Stage stage;
    stage.stopTime();
    XcbClient owner;
    owner.manners.hangsOn = "text/rtf";
    owner.own("CLIPBOARD", {{"UTF8_STRING", "text"}, {"text/rtf", "{\\rtf1}"}});
    ASSERT_TRUE(pumpUntil({&owner}, [&] { return owner.requests().contains("text/rtf"); }));
    stage.advance(2s);
    const PasteboardContents contents = stage.change(1, {&owner});
    EXPECT_EQ(contents.text, u"text"_s);
    EXPECT_EQ(contents.rtf, std::nullopt);
}

struct BrokenTransferRow
{
    const char *name;
    XcbClient::Manners manners;
    std::chrono::milliseconds wait;
};

using X11BrokenTransfers = testing::TestWithParam<BrokenTransferRow>;

TEST_P(X11BrokenTransfers, giveNoHalfText)
{
    X11Stage stage;
    stage.stopTime();
    XcbClient owner;
    owner.manners = GetParam().manners;
    owner.copy(QByteArray(500'000, 'x'));
    ASSERT_TRUE(pumpUntil({&owner}, [&] {
        if (owner.sentBytes() == 3 * owner.manners.pieceBytes)
            stage.advance(GetParam().wait);
        return stage->changeCount() == 1;
    }));
    const PasteboardContents contents = stage.change(1, {&owner});
    EXPECT_EQ(contents.changeCount, 1);
    EXPECT_EQ(contents.text, std::nullopt);
    EXPECT_FALSE(contents.isTextTooLarge);
}

XcbClient::Manners stalling()
{
    XcbClient::Manners manners;
    manners.stallsAfterPieces = 3;
    return manners;
}

XcbClient::Manners dying()
{
    XcbClient::Manners manners;
    manners.diesAfterPieces = 3;
    return manners;
}

INSTANTIATE_TEST_SUITE_P(All, X11BrokenTransfers,
                         testing::Values(BrokenTransferRow{"stalls", stalling(), 2s},
                                         BrokenTransferRow{"dies", dying(), 0s}),
                         [](const auto &row) { return std::string(row.param.name); });

TEST(X11Owners, aTransferThatDripsIsGivenUpAfterItsTimeInAll)
{
    X11Stage stage;
    stage.stopTime();
    XcbClient owner;
    owner.manners.pieceBytes = 1;
    owner.copy(QByteArray(1'000'000, 'x'));
    for (int seconds = 0; seconds < 10; ++seconds) {
        EXPECT_EQ(stage->changeCount(), 0);
        // The second of these is sent when the first was taken.
        const qsizetype sent = owner.sentBytes() + 2;
        ASSERT_TRUE(pumpUntil({&owner}, [&] { return owner.sentBytes() >= sent; }));
        stage.advance(1s);
    }
    EXPECT_EQ(stage.change(1, {&owner}).text, std::nullopt);
    EXPECT_LT(owner.sentBytes(), 1'000'000);
}

struct LargeRow
{
    const char *name;
    qint64 useful;
    qsizetype bytes;
    std::optional<quint32> claimedBytes;
    qsizetype mostSent;
    qint64 toldBytes = 0; ///< As the size of what is too large.
};

using X11LargeTexts = testing::TestWithParam<LargeRow>;

TEST_P(X11LargeTexts, areReadNoFurtherThanTheyCanBeOfUse)
{
    const LargeRow &row = GetParam();
    X11Stage stage;
    stage->setLargestUsefulText(row.useful);
    XcbClient owner;
    owner.manners.pieceBytes = 256'000;
    owner.manners.claimedBytes = row.claimedBytes;
    owner.copy(QByteArray(row.bytes, 'x'));
    const PasteboardContents contents = stage.change(1, {&owner});
    EXPECT_EQ(contents.isTextTooLarge, row.bytes > row.useful);
    EXPECT_EQ(contents.text ? contents.text->size() : 0, row.bytes > row.useful ? 0 : row.bytes);
    EXPECT_EQ(contents.tooLargeBytes.value_or(0), row.toldBytes);
    EXPECT_LE(owner.sentBytes(), row.mostSent);
    owner.copy("next");
    EXPECT_EQ(stage.change(2, {&owner}).text, u"next"_s);
}

constexpr qint64 kMiB = 1024 * 1024;

INSTANTIATE_TEST_SUITE_P(
    All, X11LargeTexts,
    testing::Values(LargeRow{"useful", 64 * kMiB, 10'000'000, {}, 10'000'000},
                    LargeRow{"fiftyUseful", 64 * kMiB, 50'000'000, {}, 50'000'000},
                    LargeRow{"announced", 10'000, 50'000'000, {}, 0},
                    LargeRow{"notAnnounced", 10'000, 50'000'000, 1, 4 * kMiB + 256'000},
                    LargeRow{"keptForItsOwnersDeath", 10'000, 3'000'000, {}, 3'000'000, 3'000'000}),
    [](const auto &row) { return std::string(row.param.name); });

TEST(X11Owners, aSecretIsNotAskedForAndNeitherItNorWhatWasBeforeOutlivesItsOwner)
{
    X11Stage stage;
    XcbClient owner;
    owner.copy("before");
    ASSERT_TRUE(stage.reaches(1, {&owner}));
    stage->acknowledge(1);
    owner.own("CLIPBOARD", {{"UTF8_STRING", "hunter2"}, {"x-kde-passwordManagerHint", "secret"}});
    EXPECT_TRUE(stage.change(2, {&owner}).isConcealed);
    EXPECT_TRUE(owner.hasSent(qstrlen("before")));
    stage->acknowledge(2);
    owner.die();
    EXPECT_EQ(stage.paste("UTF8_STRING"), std::nullopt);
}

TEST(X11Owners, copiesOnEachOthersHeelsAreAllThereInOrder)
{
    X11Stage stage;
    XcbClient owner;
    QStringList copied;
    for (int i = 0; i < 100; ++i) {
        copied.append(u"copy %1"_s.arg(i, 3));
        owner.copy(copied.last().toUtf8());
        // The next copy follows as soon as this one was answered, read or not.
        const qsizetype answered = copied.size() * copied.last().size();
        ASSERT_TRUE(pumpUntil({&owner}, [&] { return owner.sentBytes() == answered; }));
    }
    ASSERT_TRUE(stage.reaches(100, {&owner}));
    QStringList recorded;
    for (const PasteboardContents &contents : stage->changesAfter(0))
        recorded.append(contents.text.value_or(u"(none)"_s));
    EXPECT_EQ(recorded.join(u'\n').toStdString(), copied.join(u'\n').toStdString());
}

} // namespace
