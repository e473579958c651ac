#include "platform/pasteboard/X11Stage.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

using namespace std::chrono_literals;

constexpr qsizetype kLarge = 10'000'000;

QString large(char16_t letter)
{
    return QString(kLarge, QChar(letter));
}

struct FormatRow
{
    const char *target;
    QByteArray data;
    QByteArray type;
};

TEST(X11Serving, everyListedFormatIsServedAndEveryOtherRefused)
{
    X11Stage stage;
    ASSERT_TRUE(stage->write(
        {QStringLiteral("tëxt"), QStringLiteral("{\\rtf1}"), {QStringLiteral("/tmp/a b")}}));
    const QByteArray uri = "file:///tmp/a%20b";
    const FormatRow rows[] = {
        {"UTF8_STRING", "t\xC3\xABxt", "UTF8_STRING"},
        {"text/plain;charset=utf-8", "t\xC3\xABxt", "text/plain;charset=utf-8"},
        {"text/plain", "t\xC3\xABxt", "text/plain"},
        {"TEXT", "t\xC3\xABxt", "UTF8_STRING"},
        {"STRING", "t\xEBxt", "STRING"},
        {"text/rtf", "{\\rtf1}", "text/rtf"},
        {"application/rtf", "{\\rtf1}", "application/rtf"},
        // Of the text, as there is none in the RTF.
        {"text/html",
         "<meta http-equiv=\"content-type\" content=\"text/html; charset=utf-8\">"
         "<div style=\"white-space: pre-wrap\">t\xC3\xABxt</div>",
         "text/html"},
        {"text/uri-list", uri + "\r\n", "text/uri-list"},
        {"x-special/gnome-copied-files", "copy\n" + uri, "x-special/gnome-copied-files"}};
    XcbClient requestor;
    const auto ask = [&](const QByteArray &target) {
        requestor.ask("CLIPBOARD", target);
        return pumpUntil({&requestor}, [&] { return requestor.isAnswered(); });
    };
    ASSERT_TRUE(ask("TARGETS"));
    QList<QByteArray> listed = requestor.atomNames(requestor.answer().value_or(QByteArray()));
    for (const FormatRow &row : rows) {
        EXPECT_EQ(listed.removeAll(row.target), 1) << row.target;
        ASSERT_TRUE(ask(row.target));
        EXPECT_EQ(requestor.answer(), row.data) << row.target;
        EXPECT_EQ(requestor.answerType(), row.type) << row.target;
    }
    EXPECT_EQ(listed, QList<QByteArray>({"TARGETS", "TIMESTAMP", "MULTIPLE"}));
    ASSERT_TRUE(ask("TIMESTAMP"));
    EXPECT_NE(requestor.answer(), QByteArray(4, '\0'));
    ASSERT_TRUE(ask("image/png"));
    EXPECT_TRUE(requestor.isRefused());
}

TEST(X11Serving, aTextBeyondLatin1IsNotOfferedAsString)
{
    X11Stage stage;
    ASSERT_TRUE(stage->write({QStringLiteral("日本 \xD800!")}));
    EXPECT_EQ(stage.paste("STRING"), std::nullopt);
    EXPECT_EQ(stage.paste("UTF8_STRING"), QStringLiteral("日本 \uFFFD!").toUtf8());
}

TEST(X11Serving, severalFormatsCanBeHadWithOneRequest)
{
    X11Stage stage;
    ASSERT_TRUE(stage->write({large(u'x'), QStringLiteral("{\\rtf1}")}));
    XcbClient requestor;
    requestor.askMultiple({"text/rtf", "ONE", "image/png", "TWO", "UTF8_STRING", "THREE"});
    ASSERT_TRUE(pumpUntil({&requestor}, [&] { return requestor.isAnswered(); }));
    EXPECT_EQ(requestor.property("ONE"), "{\\rtf1}");
    EXPECT_EQ(requestor.atomNames(requestor.property("PAIRS")),
              QList<QByteArray>({"text/rtf", "ONE", "image/png", "", "UTF8_STRING", "THREE"}));
    requestor.property("THREE");
    EXPECT_EQ(requestor.answerType(), "INCR");
}

TEST(X11Serving, aRunningTransferSurvivesANewWriteAndAStalledOneHarmsNobody)
{
    X11Stage stage;
    ASSERT_TRUE(stage->write({large(u'a')}));
    XcbClient stalled;
    stalled.manners.takesPieces = 2;
    XcbClient slow;
    slow.manners.takesPieces = 2;
    XcbClient dead;
    for (XcbClient *client : {&stalled, &slow, &dead})
        client->ask("CLIPBOARD", "UTF8_STRING");
    ASSERT_TRUE(pumpUntil({&stalled, &slow, &dead}, [&] { return dead.isAnswered(); }));
    dead.die();
    ASSERT_TRUE(stage->write({large(u'b')}));
    EXPECT_EQ(stage.paste("UTF8_STRING"), QByteArray(kLarge, 'b'));

    slow.manners.takesPieces = -1;
    slow.resume();
    ASSERT_TRUE(pumpUntil({&slow}, [&] { return slow.answer().has_value(); }));
    EXPECT_EQ(slow.answer(), QByteArray(kLarge, 'a'));
}

TEST(X11Serving, aRequestorThatTakesNothingForTooLongIsLetGo)
{
    X11Stage stage;
    stage.stopTime();
    ASSERT_TRUE(stage->write({large(u'a')}));
    XcbClient requestor;
    requestor.manners.takesPieces = 1;
    requestor.ask("CLIPBOARD", "UTF8_STRING");
    ASSERT_TRUE(pumpUntil({&requestor}, [&] { return requestor.isAnswered(); }));
    ASSERT_FALSE(requestor.isRefused());
    EXPECT_TRUE(pumpUntil({&requestor}, [&] {
        stage.advance(10s);
        return !requestor.isWatchedByOthers();
    }));
}

TEST(X11Serving, everybodyIsAnsweredWhileTheMainThreadIsBusy)
{
    X11Stage stage;
    ASSERT_TRUE(stage->write({large(u'a')}));
    std::optional<QByteArray> pasted;
    std::thread elsewhere([&] {
        XcbClient requestor;
        requestor.ask("CLIPBOARD", "UTF8_STRING");
        const auto limit = std::chrono::steady_clock::now() + 10s;
        while (!requestor.answer() && std::chrono::steady_clock::now() < limit)
            requestor.pump();
        pasted = requestor.answer();
    });
    // The main thread does nothing else meanwhile.
    elsewhere.join();
    EXPECT_EQ(pasted, QByteArray(kLarge, 'a'));
}

TEST(X11Serving, aPasteIsReadOnceItsTargetHasAskedForContentsAndByNobodyElse)
{
    X11Stage stage;
    XcbClient target;
    int told = 0;
    QObject::connect(&stage.pasteboard(), &Pasteboard::pasteRead, [&] { ++told; });
    const auto ask = [&](const QByteArray &format, const QByteArray &selection = "CLIPBOARD") {
        target.ask(selection, format);
        return pumpUntil({&target}, [&] { return target.isAnswered(); });
    };
    for (const QByteArray selection : {"CLIPBOARD", "PRIMARY"}) {
        ASSERT_TRUE(stage->write({QStringLiteral("clip")}));
        stage->offerPrimary();
        ASSERT_TRUE(ask("UTF8_STRING", selection));
        stage->expectPaste(target.window());
        EXPECT_FALSE(stage->isPasteRead());
        ASSERT_EQ(stage.paste("UTF8_STRING"), "clip");
        ASSERT_TRUE(ask("TARGETS", selection));
        ASSERT_TRUE(ask("TIMESTAMP", selection));
        ASSERT_TRUE(ask("image/png", selection));
        EXPECT_FALSE(stage->isPasteRead());
        ASSERT_TRUE(ask("UTF8_STRING", selection));
        EXPECT_TRUE(pumpUntil({}, [&] { return stage->isPasteRead(); }));
        ASSERT_TRUE(ask("UTF8_STRING", selection));
    }
    EXPECT_TRUE(pumpUntil({}, [&] { return told == 2; }));
}

TEST(X11Serving, primaryIsOfferedWithTheTextAloneOnceItReturns)
{
    X11Stage stage;
    ASSERT_TRUE(stage->write({QStringLiteral("text"), QStringLiteral("{\\rtf1}")}));
    stage->offerPrimary();
    EXPECT_EQ(stage.paste("UTF8_STRING", "PRIMARY"), "text");
    EXPECT_EQ(stage.paste("text/rtf", "PRIMARY"), std::nullopt);
    ASSERT_TRUE(stage->write({QStringLiteral("later")}));
    EXPECT_EQ(stage.paste("UTF8_STRING", "PRIMARY"), "text");
    XcbClient other;
    other.own("PRIMARY", {});
    EXPECT_NE(other.owner("PRIMARY"), other.owner("CLIPBOARD"));
}

TEST(X11Serving, primaryIsPublishedOnlyForTheClientThatOwnsIt)
{
    X11Stage stage;
    XcbClient terminal;
    XcbClient other;
    terminal.own("PRIMARY", {{"UTF8_STRING", "marked"}});
    stage->publishPrimary(other.window());
    // Had anything been asked for, it would have been answered before this.
    other.copy("copied");
    EXPECT_EQ(stage.change(1, {&terminal, &other}).text, QStringLiteral("copied"));
    stage->publishPrimary(terminal.window());
    EXPECT_EQ(stage.change(2, {&terminal, &other}).text, QStringLiteral("marked"));
    // What was published is no copy: nothing of it is taken over.
    stage->acknowledge(2);
    terminal.die();
    other.die();
    EXPECT_EQ(stage.paste("UTF8_STRING"), std::nullopt);
    EXPECT_EQ(stage->changeCount(), 2);
}

} // namespace
