#include "history/HistoryRig.h"

#include "platform/VirtualKeys.h"
#include "support/ExpectedWarnings.h"

#include <QTest>

#include <gtest/gtest.h>

namespace {

class ClipPasterTest : public testing::Test
{
protected:
    ClipPasterTest()
    {
        m_rig.copy(QStringLiteral("Straße"));
        m_rig.history.addToClipList(
            {QStringLiteral("a.txt"), {}, QStringLiteral("Files"), QStringLiteral("/tmp/a.txt")});
        m_rig.history.addToClipList({QStringLiteral("Rich"),
                                     QStringLiteral("{\\rtf1 Rich}"),
                                     QStringLiteral("Writer"),
                                     {}});
    }

    static constexpr int kRich = 0;
    static constexpr int kFile = 1;
    static constexpr int kPlain = 2;

    const QList<quint32> &keys() const { return m_rig.platform.keySender.sent(); }
    std::optional<PasteboardContents> onPasteboard() const
    {
        return m_rig.platform.pasteboard.contents();
    }
    /// The front application answers the copy keystroke with this selection.
    void answerCopyWith(const QString &selection)
    {
        m_rig.platform.keySender.setReaction([this, selection](quint32 key) {
            if (key == VirtualKey::kC)
                m_rig.copy(selection, QStringLiteral("Front"));
        });
    }
    void expectNotification(const char *title, const char *subtitle) const
    {
        EXPECT_EQ(m_rig.platform.notifications.delivered(),
                  (QList{std::pair(QString::fromLatin1(title), QString::fromLatin1(subtitle))}));
    }

    StoreFolder m_folder;
    PasteRig m_rig{m_folder.path()};
};

TEST_F(ClipPasterTest, aClipIsOnThePasteboardAndTheWindowHiddenWhenTheKeystrokeIsSent)
{
    QString textAtKeystroke;
    bool wasShown = true;
    m_rig.platform.keySender.setReaction([&](quint32) {
        textAtKeystroke = *onPasteboard()->text;
        wasShown = m_rig.window.isShown;
    });
    m_rig.paster.performPaste(kPlain, {});
    EXPECT_EQ(keys(), QList<quint32>{VirtualKey::kV});
    EXPECT_EQ(textAtKeystroke, QStringLiteral("Straße"));
    EXPECT_FALSE(wasShown);
    EXPECT_TRUE(m_rig.platform.clock.waits().isEmpty());
}

struct FormatRow
{
    const char *name;
    std::optional<QString> format;
    QString pasted;
};

class PasteFormat : public ClipPasterTest, public testing::WithParamInterface<FormatRow>
{
};

TEST_P(PasteFormat, changesTheTextAndNeverTheRtf)
{
    m_rig.paster.performPaste(kPlain, GetParam().format);
    EXPECT_EQ(onPasteboard()->text, GetParam().pasted);
    EXPECT_EQ(onPasteboard()->rtf, std::nullopt);
    m_rig.paster.performPaste(kRich, GetParam().format);
    EXPECT_EQ(onPasteboard()->rtf, QStringLiteral("{\\rtf1 Rich}"));
}

INSTANTIATE_TEST_SUITE_P(
    Formats, PasteFormat,
    testing::Values(FormatRow{"none", {}, QStringLiteral("Straße")},
                    FormatRow{"empty", QString(), QStringLiteral("Straße")},
                    FormatRow{"upper", QStringLiteral("upper"), QStringLiteral("STRASSE")},
                    FormatRow{"lower", QStringLiteral("lower"), QStringLiteral("straße")},
                    FormatRow{"otherCase", QStringLiteral("Upper"), QStringLiteral("Straße")}),
    [](const auto &row) { return std::string(row.param.name); });

TEST_F(ClipPasterTest, theFirstPasteCountsAsZero)
{
    const auto item = m_rig.at(kPlain);
    m_rig.paster.performPaste(kPlain, {});
    EXPECT_EQ(item->pasteCount(), 0);
    m_rig.paster.performPaste(kPlain, {});
    EXPECT_EQ(item->pasteCount(), 1);
    EXPECT_EQ(HistoryRig(m_folder.path()).at(kPlain)->pasteCount(), 1);
}

TEST_F(ClipPasterTest, theClipChosenIsPastedAndOnlyThenIsTheListMadeWhole)
{
    m_rig.history.filterClipItemArr(QStringLiteral("str"));
    m_rig.window.whenMadeWhole = [this] {
        EXPECT_EQ(keys().size(), 1);
        m_rig.history.filterClipItemArr(QString());
    };
    m_rig.paster.performPaste(0, {});
    EXPECT_GT(m_rig.texts().size(), 1);
    EXPECT_EQ(onPasteboard()->text, QStringLiteral("Straße"));
}

TEST_F(ClipPasterTest, aPastedClipComesFromTheApplicationItWasPastedInto)
{
    m_rig.window.whenHidden = [this] {
        m_rig.platform.frontApplication.setApplicationName(QStringLiteral("Target"));
    };
    m_rig.platform.frontApplication.setApplicationName(QStringLiteral("Quillmarsh"));
    m_rig.paster.performPaste(kPlain, QStringLiteral("upper"));
    // The history is open again by the time of the next step.
    m_rig.platform.frontApplication.setApplicationName(QStringLiteral("Quillmarsh"));
    m_rig.capture.timeout();
    EXPECT_EQ(m_rig.at(0)->strValue(), QStringLiteral("STRASSE"));
    EXPECT_EQ(m_rig.at(0)->applicationName(), QStringLiteral("Target"));
}

TEST_F(ClipPasterTest, aRowBeyondTheListPastesNothing)
{
    m_rig.paster.performPaste(3, {});
    EXPECT_TRUE(keys().isEmpty());
    EXPECT_TRUE(m_rig.window.isShown);
}

TEST_F(ClipPasterTest, aFileIsPastedAsFileAndText)
{
    m_rig.platform.workspace.addFile(QStringLiteral("/tmp/a.txt"));
    m_rig.paster.performPaste(kFile, QStringLiteral("upper"));
    EXPECT_EQ(onPasteboard()->fileNames, QStringList{QStringLiteral("/tmp/a.txt")});
    EXPECT_EQ(onPasteboard()->text, QStringLiteral("a.txt"));
    EXPECT_EQ(keys(), QList<quint32>{VirtualKey::kV});
}

TEST_F(ClipPasterTest, aMissingFileIsToldAndNothingIsPasted)
{
    const qint64 changeCount = m_rig.platform.pasteboard.changeCount();
    m_rig.paster.performPaste(kFile, {});
    EXPECT_EQ(m_rig.platform.pasteboard.changeCount(), changeCount);
    EXPECT_TRUE(keys().isEmpty());
    expectNotification("File no longer exists",
                       "The file no longer exists at the copied location.");
    m_rig.settings.areNotificationsEnabled = false;
    m_rig.paster.performPaste(kFile, {});
    EXPECT_EQ(m_rig.platform.notifications.delivered().size(), 1);
}

TEST_F(ClipPasterTest, whenTheTargetDoesNotComeBackNothingIsTypedAndTheClipStays)
{
    m_rig.platform.frontApplication.setReturns(false);
    m_rig.paster.performPaste(kPlain, {});
    EXPECT_TRUE(keys().isEmpty());
    EXPECT_EQ(onPasteboard()->text, QStringLiteral("Straße"));
    expectNotification("The clip is on the clipboard",
                       "The previous window could not be activated.");
    m_rig.settings.areNotificationsEnabled = false;
    m_rig.paster.performPaste(kPlain, {});
    EXPECT_EQ(m_rig.platform.notifications.delivered().size(), 1);
}

TEST_F(ClipPasterTest, whereNoKeysAreKnownTheClipIsMarkedTooAndTheUserIsTold)
{
    m_rig.platform.frontApplication.setApplicationName(QStringLiteral("Front"));
    m_rig.platform.keySender.setUnknown(VirtualKey::kC);
    m_rig.paster.swop();
    m_rig.paster.performPaste(kPlain, QStringLiteral("upper"));
    EXPECT_TRUE(keys().isEmpty()) << "it would overwrite the selection";
    EXPECT_EQ(onPasteboard()->text, QStringLiteral("STRASSE"));
    EXPECT_EQ(m_rig.platform.pasteboard.markedText(), QStringLiteral("STRASSE"));
    m_rig.paster.performPaste(kPlain, {});
    EXPECT_EQ(keys(), QList<quint32>{VirtualKey::kV}) << "no swop any more";

    m_rig.platform.keySender.setUnknown(VirtualKey::kV);
    m_rig.platform.pasteboard.markOutside({});
    m_rig.paster.performPaste(kPlain, {});
    EXPECT_EQ(m_rig.platform.pasteboard.markedText(), QStringLiteral("Straße"));
    const QString title = QStringLiteral("The clip is on the clipboard");
    EXPECT_EQ(
        m_rig.platform.notifications.delivered(),
        (QList<std::pair<QString, QString>>{
            {title, QStringLiteral("What is selected in Front cannot be copied safely. Paste the "
                                   "clip there yourself; the middle mouse button does it, too.")},
            {title, QStringLiteral("No keys are known that paste into Front. Paste it there "
                                   "yourself; the middle mouse button does it, too.")}}));
}

TEST_F(ClipPasterTest, aClipThatWasNotTakenOverToAnotherComputerIsMarkedTooAndTheUserIsTold)
{
    m_rig.platform.frontApplication.setApplicationName(QStringLiteral("Viewer"));
    m_rig.paster.performPaste(kPlain, {});
    m_rig.platform.keySender.giveUp();
    EXPECT_EQ(m_rig.platform.pasteboard.markedText(), QStringLiteral("Straße"));
    expectNotification(
        "The clip is on the clipboard",
        "Viewer did not take the clip over to the computer that it shows, so nothing "
        "was pasted there. The middle mouse button pastes the clip, too.");
}

TEST_F(ClipPasterTest, aSwopPastesOverWhatItHasCopiedAndOnlyThen)
{
    m_rig.paster.swop();
    m_rig.paster.performPaste(kPlain, {});
    EXPECT_EQ(m_rig.platform.keySender.sentOverCopied(), 0) << "nothing was selected";
    answerCopyWith(QStringLiteral("selection"));
    m_rig.paster.swop();
    m_rig.paster.performPaste(0, {});
    EXPECT_EQ(m_rig.platform.keySender.sentOverCopied(), 1);
}

TEST_F(ClipPasterTest, whenThePasteboardCannotBeWrittenTheUserIsToldAndTheWindowStays)
{
    m_rig.platform.workspace.addFile(QStringLiteral("/tmp/a.txt"));
    m_rig.platform.pasteboard.setWriteFails(true);
    const auto item = m_rig.at(kPlain);
    for (const int row : {kPlain, kFile}) {
        ExpectedWarnings::expect(QStringLiteral("pasteboard could not be written"));
        m_rig.paster.performPaste(row, {});
    }
    EXPECT_TRUE(keys().isEmpty());
    EXPECT_TRUE(m_rig.window.isShown);
    EXPECT_EQ(item->pasteCount(), std::nullopt);
    const std::pair failure(QStringLiteral("The clip was not pasted"),
                            QStringLiteral("The clipboard could not be written."));
    EXPECT_EQ(m_rig.platform.notifications.delivered(), (QList{failure, failure}));
}

TEST_F(ClipPasterTest, aSwopGoesOnWhenThePasteboardCannotBeWritten)
{
    answerCopyWith(QStringLiteral("selection"));
    m_rig.paster.swop();
    m_rig.platform.pasteboard.setWriteFails(true);
    ExpectedWarnings::expect(QStringLiteral("pasteboard could not be written"));
    m_rig.paster.performPaste(kPlain, {});
    m_rig.platform.pasteboard.setWriteFails(false);
    m_rig.paster.performPaste(kPlain, {});
    EXPECT_EQ(onPasteboard()->text, QStringLiteral("selection"));
}

TEST_F(ClipPasterTest, withoutKeystrokesTheClipIsOnThePasteboardAndTheLogSaysWhy)
{
    m_rig.platform.keySender.setAvailable(false);
    ExpectedWarnings::expect(QStringLiteral("No event source"));
    m_rig.paster.performPaste(kPlain, {});
    EXPECT_EQ(onPasteboard()->text, QStringLiteral("Straße"));
}

TEST_F(ClipPasterTest, aSwopExchangesTheSelectionForTheClip)
{
    answerCopyWith(QStringLiteral("selection"));
    QString textBeforeExchange;
    m_rig.window.isShown = false;
    m_rig.paster.swop();
    EXPECT_TRUE(m_rig.window.isShown);
    EXPECT_EQ(m_rig.texts().size(), 3);
    m_rig.platform.clock.setDuringWait([&] {
        // What happens during the wait must wait for its end.
        textBeforeExchange = *onPasteboard()->text;
        m_rig.capture.timeout();
    });
    m_rig.paster.performPaste(kPlain, {});
    EXPECT_EQ(textBeforeExchange, QStringLiteral("Straße"));
    EXPECT_EQ(m_rig.texts().mid(0, 2),
              (QStringList{QStringLiteral("selection"), QStringLiteral("Straße")}));
    EXPECT_EQ(m_rig.at(0)->applicationName(), QStringLiteral("Front"));
    EXPECT_EQ(onPasteboard()->text, QStringLiteral("selection"));
    EXPECT_EQ(keys(), (QList<quint32>{VirtualKey::kC, VirtualKey::kV}));
    EXPECT_EQ(m_rig.platform.clock.waits(),
              (QList{std::chrono::milliseconds(100), std::chrono::milliseconds(400)}));
    EXPECT_FALSE(m_rig.swopState.performSwop());
    const QStringList before = m_rig.texts();
    m_rig.capture.timeout();
    EXPECT_EQ(m_rig.texts(), before);
}

TEST_F(ClipPasterTest, aCopyThatCameBeforeTheSwopIsRecorded)
{
    m_rig.capture.setPaused(true);
    m_rig.copy(QStringLiteral("earlier"));
    m_rig.capture.setPaused(false);
    m_rig.paster.swop();
    EXPECT_EQ(m_rig.texts().first(), QStringLiteral("earlier"));
    EXPECT_FALSE(m_rig.swopState.swopClipItem());
}

TEST_F(ClipPasterTest, aSwopWhoseTargetIsGoneKeepsTheSelectionInTheHistory)
{
    answerCopyWith(QStringLiteral("selection"));
    m_rig.paster.swop();
    m_rig.platform.frontApplication.setReturns(false);
    m_rig.paster.performPaste(kPlain, {});
    EXPECT_EQ(m_rig.texts(), (QStringList{QStringLiteral("selection"), QStringLiteral("Rich"),
                                          QStringLiteral("a.txt"), QStringLiteral("Straße")}));
    EXPECT_EQ(onPasteboard()->text, QStringLiteral("Straße"));
    EXPECT_FALSE(m_rig.swopState.performSwop());
}

TEST_F(ClipPasterTest, aCancelledSwopKeepsTheSelectionAndRecordingGoesOn)
{
    answerCopyWith(QStringLiteral("selection"));
    m_rig.paster.swop();
    m_rig.paster.cancelSwop();
    EXPECT_EQ(m_rig.texts().first(), QStringLiteral("selection"));
    m_rig.copy(QStringLiteral("next"));
    EXPECT_EQ(m_rig.texts().first(), QStringLiteral("next"));
}

TEST_F(ClipPasterTest, theHidingInsideAPasteDoesNotCancelTheSwop)
{
    answerCopyWith(QStringLiteral("selection"));
    m_rig.window.whenHidden = [this] { m_rig.paster.cancelSwop(); };
    m_rig.paster.swop();
    m_rig.paster.performPaste(kPlain, {});
    EXPECT_EQ(onPasteboard()->text, QStringLiteral("selection"));
}

TEST_F(ClipPasterTest, aNegativeRowForgetsWhatASwopHolds)
{
    answerCopyWith(QStringLiteral("selection"));
    m_rig.paster.swop();
    m_rig.paster.performPaste(-1, {});
    EXPECT_FALSE(m_rig.swopState.performSwop());
    EXPECT_FALSE(m_rig.swopState.swopClipItem());
    EXPECT_EQ(m_rig.texts().size(), 3);
}

TEST_F(ClipPasterTest, whatStandsNowhereElseIsNotReplacedUnseen)
{
    struct Row
    {
        const char *name;
        PasteboardContents before;
        QString said;
    };
    PasteboardContents picture;
    picture.media = PasteboardContents::Media::Picture;
    PasteboardContents captioned = picture;
    captioned.text = QStringLiteral("caption");
    PasteboardContents secret = picture;
    secret.isConcealed = true;
    PasteboardContents drawing;
    drawing.media = PasteboardContents::Media::Other;
    const PasteboardContents book{{QString(20'000, u'x')}};
    const QString other = QStringLiteral("other");
    const Row rows[] = {{"picture", picture, QStringLiteral("picture")},
                        {"text with a picture", captioned, {}},
                        {"secret", secret, {}},
                        {"drawing", drawing, other},
                        {"nothing", {}, {}},
                        {"too large", book, other}};
    QStringList said;
    QObject::connect(
        &m_rig.paster, &ClipPaster::unrecordedReplaced, &m_rig.paster,
        [&](bool wasPicture) { said.append(wasPicture ? QStringLiteral("picture") : other); });
    m_rig.copy(QStringLiteral("older"));
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        said.clear();
        m_rig.platform.pasteboard.copyFromOutside(row.before);
        m_rig.platform.pasteboard.setWriteFails(true);
        ExpectedWarnings::expect(QStringLiteral("could not be written"));
        m_rig.paster.performPaste(0, std::nullopt);
        EXPECT_EQ(said, QStringList());
        m_rig.platform.pasteboard.setWriteFails(false);
        m_rig.paster.performPaste(0, std::nullopt);
        m_rig.paster.performPaste(0, std::nullopt);
        EXPECT_EQ(said, row.said.isEmpty() ? QStringList() : QStringList{row.said});
    }
}

TEST_F(ClipPasterTest, aSelectionThatIsTooLargeToBeRecordedIsLeftOnThePasteboard)
{
    m_rig.settings.maxStringSize = 12;
    m_rig.capture.timeout();
    const QString selection = QStringLiteral("far too large a selection");
    answerCopyWith(selection);
    m_rig.paster.swop();
    ASSERT_TRUE(m_rig.swopState.swopClipItem());
    m_rig.paster.performPaste(kPlain, {});
    m_rig.capture.timeout();
    EXPECT_EQ(onPasteboard()->text, selection);
    EXPECT_EQ(m_rig.texts(), (QStringList{QStringLiteral("Straße"), QStringLiteral("Rich"),
                                          QStringLiteral("a.txt")}));
    EXPECT_EQ(m_rig.platform.pasteboard.maxUsefulText(), 12);
    m_rig.paster.swop();
    m_rig.paster.cancelSwop();
    EXPECT_FALSE(m_rig.texts().contains(selection));
}

TEST_F(ClipPasterTest, aCopyThatReplacesTheHeldSelectionLosesNothing)
{
    struct Row
    {
        const char *name;
        std::function<void()> end;
        const char *newestFirst;
    };
    const Row rows[] = {
        {"exchanged", [this] { m_rig.paster.performPaste(kRich, {}); },
         "second | Rich | selection"},
        {"cancelled", [this] { m_rig.paster.cancelSwop(); }, "second | selection | Rich"},
        {"forgotten", [this] { m_rig.paster.performPaste(-1, {}); }, "selection | Rich | a.txt"},
        {"ended", [this] { m_rig.paster.finish(); }, "second | selection | Rich"},
    };
    answerCopyWith(QStringLiteral("selection"));
    const QStringList before = m_rig.texts();
    for (const Row &row : rows) {
        m_rig.history.clearAll();
        for (auto text = before.rbegin(); text != before.rend(); ++text)
            m_rig.add(*text);
        m_rig.paster.swop();
        m_rig.copy(QStringLiteral("second"));
        EXPECT_EQ(m_rig.swopState.swopClipItem()->text, QStringLiteral("second"));
        row.end();
        EXPECT_EQ(m_rig.texts().mid(0, 3).join(QStringLiteral(" | ")).toStdString(),
                  row.newestFirst)
            << row.name;
    }
}

TEST_F(ClipPasterTest, aSwopWithOurOwnWindowInFrontCopiesInTheTargetOrNowhere)
{
    answerCopyWith(QStringLiteral("selection"));
    for (const bool returns : {true, false}) {
        bool wasInFront = true;
        m_rig.window.isInFront = true;
        m_rig.window.whenHidden = [&] { wasInFront = m_rig.window.isInFront; };
        m_rig.platform.frontApplication.setReturns(returns);
        m_rig.paster.swop();
        EXPECT_FALSE(wasInFront);
        EXPECT_EQ(m_rig.swopState.swopClipItem().has_value(), returns);
        EXPECT_EQ(keys().size(), 1);
        EXPECT_TRUE(m_rig.window.isShown);
        m_rig.paster.cancelSwop();
    }
}

/// A swop whose target has not asked for the clip when the exchange's wait is over.
class SlowTarget : public ClipPasterTest
{
protected:
    SlowTarget()
    {
        answerCopyWith(QStringLiteral("selection"));
        m_rig.platform.pasteboard.setPasteRead(false);
        m_rig.paster.swop();
        m_rig.paster.performPaste(kPlain, {});
    }

    bool isPutBack() const { return onPasteboard()->text == QStringLiteral("selection"); }
    bool comesBack()
    {
        return QTest::qWaitFor([this] { return isPutBack(); });
    }
};

TEST_F(SlowTarget, findsTheClipUntilItHasAskedForIt)
{
    EXPECT_EQ(onPasteboard()->text, QStringLiteral("Straße"));
    EXPECT_EQ(m_rig.texts().first(), QStringLiteral("selection"));
    m_rig.platform.pasteboard.setPasteRead(true);
    EXPECT_TRUE(comesBack());
    m_rig.capture.timeout();
    EXPECT_EQ(m_rig.texts().mid(0, 2),
              (QStringList{QStringLiteral("selection"), QStringLiteral("Straße")}));
}

TEST_F(SlowTarget, isGivenUpAfterAWhileOrWhenTheApplicationEnds)
{
    EXPECT_TRUE(comesBack());
    m_rig.paster.swop();
    m_rig.paster.performPaste(kPlain, {});
    EXPECT_FALSE(isPutBack());
    m_rig.paster.finish();
    EXPECT_TRUE(isPutBack());
}

TEST_F(SlowTarget, doesNotCostTheCopyThatIsMadeMeanwhile)
{
    m_rig.copy(QStringLiteral("copied meanwhile"));
    m_rig.paster.finish();
    EXPECT_EQ(onPasteboard()->text, QStringLiteral("copied meanwhile"));
    EXPECT_EQ(m_rig.texts().mid(0, 2),
              (QStringList{QStringLiteral("copied meanwhile"), QStringLiteral("selection")}));
}

TEST_F(SlowTarget, getsTheSelectionBackThoughAnotherManagerHasTakenTheClipOver)
{
    m_rig.copy(QStringLiteral("Straße"));
    m_rig.paster.finish();
    EXPECT_TRUE(isPutBack());
}

TEST_F(SlowTarget, keepsTheClipThatIsPastedNext)
{
    m_rig.paster.performPaste(kPlain, {});
    const std::optional<QString> next = onPasteboard()->text;
    m_rig.paster.finish();
    EXPECT_EQ(onPasteboard()->text, next);
}

} // namespace
