#include "history/HistoryRig.h"

#include "platform/VirtualKeys.h"
#include "support/ExpectedWarnings.h"

#include <QTest>

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

class ClipPasterTest : public testing::Test
{
protected:
    ClipPasterTest()
    {
        m_rig.copy(u"Straße"_s);
        m_rig.history.addToClipList({u"a.txt"_s, {}, u"Files"_s, u"/tmp/a.txt"_s});
        m_rig.history.addToClipList({u"Rich"_s, u"{\\rtf1 Rich}"_s, u"Writer"_s, {}});
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
                m_rig.copy(selection, u"Front"_s);
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
    EXPECT_EQ(textAtKeystroke, u"Straße"_s);
    EXPECT_FALSE(wasShown);
    EXPECT_TRUE(m_rig.platform.clock.waits().isEmpty());
}

struct FormatRow
{
    const char *name;
    std::optional<QString> format;
    QString pasted;
    Copy::Offer offer = Copy::Offer::Everything; ///< Of a clip with rich text.
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
    EXPECT_EQ(onPasteboard()->rtf, u"{\\rtf1 Rich}"_s);
    EXPECT_EQ(onPasteboard()->offer, GetParam().offer);
    // Pasted without its formatting, the clip does not lose it.
    m_rig.capture.timeout();
    EXPECT_EQ(m_rig.at(0)->rtfValue(), u"{\\rtf1 Rich}"_s);
}

INSTANTIATE_TEST_SUITE_P(
    Formats, PasteFormat,
    testing::Values(FormatRow{"none", {}, u"Straße"_s}, FormatRow{"empty", QString(), u"Straße"_s},
                    FormatRow{"upper", u"upper"_s, u"STRASSE"_s, Copy::Offer::NoHtml},
                    FormatRow{"lower", u"lower"_s, u"straße"_s, Copy::Offer::NoHtml},
                    FormatRow{"plain", u"plain"_s, u"Straße"_s, Copy::Offer::PlainText},
                    FormatRow{"otherCase", u"Upper"_s, u"Straße"_s}),
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
    m_rig.history.filterClipItemArr(u"str"_s);
    m_rig.window.whenMadeWhole = [this] {
        EXPECT_EQ(keys().size(), 1);
        m_rig.history.filterClipItemArr(QString());
    };
    m_rig.paster.performPaste(0, {});
    EXPECT_GT(m_rig.texts().size(), 1);
    EXPECT_EQ(onPasteboard()->text, u"Straße"_s);
}

TEST_F(ClipPasterTest, aPastedClipComesFromTheApplicationItWasPastedInto)
{
    m_rig.window.whenHidden = [this] {
        m_rig.platform.frontApplication.setApplicationName(u"Target"_s);
    };
    m_rig.platform.frontApplication.setApplicationName(u"Quillmarsh"_s);
    m_rig.paster.performPaste(kPlain, u"upper"_s);
    // The history is open again by the time of the next step.
    m_rig.platform.frontApplication.setApplicationName(u"Quillmarsh"_s);
    m_rig.capture.timeout();
    EXPECT_EQ(m_rig.at(0)->strValue(), u"STRASSE"_s);
    EXPECT_EQ(m_rig.at(0)->applicationName(), u"Target"_s);
}

TEST_F(ClipPasterTest, severalClipsArePastedAsOne)
{
    m_rig.add(u"b.txt"_s, u"/tmp/b.txt"_s);
    m_rig.platform.workspace.addFile(u"/tmp/a.txt"_s);
    const auto newFile = m_rig.at(0);
    const auto rich = m_rig.at(1);
    const auto file = m_rig.at(2);
    const auto plain = m_rig.at(3);
    m_rig.paster.pasteItems({plain, rich, file}, {});
    EXPECT_EQ(onPasteboard()->text, u"Straße\nRich\na.txt"_s);
    EXPECT_TRUE(onPasteboard()->fileNames.isEmpty());
    EXPECT_EQ(onPasteboard()->rtf, std::nullopt);
    m_rig.platform.workspace.addFile(u"/tmp/b.txt"_s);
    m_rig.paster.pasteItems({newFile, file}, {});
    EXPECT_EQ(onPasteboard()->fileNames, (QStringList{u"/tmp/b.txt"_s, u"/tmp/a.txt"_s}));
    EXPECT_EQ(onPasteboard()->text, u"b.txt\na.txt"_s);
    EXPECT_EQ(file->pasteCount(), 1);
    EXPECT_EQ(keys().size(), 2);
    EXPECT_TRUE(m_rig.platform.notifications.delivered().isEmpty());
}

TEST_F(ClipPasterTest, ofSeveralFilesThoseThatAreLeftArePasted)
{
    m_rig.add(u"gone.txt"_s, u"/tmp/gone.txt"_s);
    m_rig.platform.workspace.addFile(u"/tmp/a.txt"_s);
    const auto gone = m_rig.at(0);
    const auto file = m_rig.at(2);
    m_rig.paster.pasteItems({gone, file}, {});
    EXPECT_EQ(onPasteboard()->fileNames, QStringList{u"/tmp/a.txt"_s});
    expectNotification("File no longer exists",
                       "The file no longer exists at the copied location.");
    m_rig.history.deleteItems({gone, file});
    m_rig.paster.pasteItems({gone, file}, {});
    EXPECT_EQ(keys().size(), 1) << "deleted meanwhile";
}

TEST_F(ClipPasterTest, aSwopForSeveralClipsKeepsEach)
{
    answerCopyWith(u"selection"_s);
    const auto rich = m_rig.at(kRich);
    const auto plain = m_rig.at(kPlain);
    m_rig.paster.swop();
    m_rig.paster.pasteItems({plain, rich}, {});
    EXPECT_EQ(m_rig.texts(), (QStringList{u"selection"_s, u"Rich"_s, u"Straße"_s, u"a.txt"_s}));
}

TEST_F(ClipPasterTest, aCopyTypesNothingAndSaysWhenItCannotBeMade)
{
    const auto rich = m_rig.at(kRich);
    EXPECT_TRUE(m_rig.paster.copyItems({rich}));
    EXPECT_EQ(onPasteboard()->text, u"Rich"_s);
    EXPECT_EQ(onPasteboard()->rtf, u"{\\rtf1 Rich}"_s);
    EXPECT_EQ(rich->pasteCount(), std::nullopt);
    EXPECT_TRUE(keys().isEmpty());
    EXPECT_FALSE(m_rig.paster.copyItems({m_rig.at(kFile)}));
    EXPECT_EQ(onPasteboard()->text, u"Rich"_s);
    expectNotification("File no longer exists",
                       "The file no longer exists at the copied location.");
}

TEST_F(ClipPasterTest, aRowBeyondTheListPastesNothing)
{
    m_rig.paster.performPaste(3, {});
    EXPECT_TRUE(keys().isEmpty());
    EXPECT_TRUE(m_rig.window.isShown);
}

TEST_F(ClipPasterTest, aFileIsPastedAsFileAndText)
{
    m_rig.platform.workspace.addFile(u"/tmp/a.txt"_s);
    m_rig.paster.performPaste(kFile, u"upper"_s);
    EXPECT_EQ(onPasteboard()->fileNames, QStringList{u"/tmp/a.txt"_s});
    EXPECT_EQ(onPasteboard()->text, u"a.txt"_s);
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
    EXPECT_EQ(onPasteboard()->text, u"Straße"_s);
    expectNotification("The clip is on the clipboard",
                       "The previous window could not be activated.");
    m_rig.settings.areNotificationsEnabled = false;
    m_rig.paster.performPaste(kPlain, {});
    EXPECT_EQ(m_rig.platform.notifications.delivered().size(), 1);
}

TEST_F(ClipPasterTest, whereNothingCanBeTypedTheClipIsMarkedTooAndTheUserIsTold)
{
    using Outcome = KeySender::Outcome;
    struct Row
    {
        quint32 keyCode;
        Outcome outcome;
        QString told;
    };
    const QString notCopied = u"What is selected in Front cannot be copied safely. Paste the clip "
                              "there yourself; the middle mouse button does it, too."_s;
    const QString yourself = u" Paste it there yourself; the middle mouse button does it, too."_s;
    const Row rows[] = {{VirtualKey::kC, Outcome::NoKnownKeys, notCopied},
                        {VirtualKey::kC, Outcome::KeysHeld, notCopied},
                        {VirtualKey::kV, Outcome::NoKnownKeys,
                         u"No keys are known that paste into Front."_s + yourself},
                        {VirtualKey::kV, Outcome::KeysHeld,
                         u"A key was held down, so nothing was typed into Front."_s + yourself},
                        {VirtualKey::kV, Outcome::Failed,
                         u"Quillmarsh is not able to type into Front."_s + yourself}};
    m_rig.platform.frontApplication.setApplicationName(u"Front"_s);
    QList<std::pair<QString, QString>> told;
    for (const Row &row : rows) {
        m_rig.platform.keySender.refuse(row.keyCode, row.outcome);
        m_rig.platform.pasteboard.markOutside({});
        if (row.keyCode == VirtualKey::kC)
            m_rig.paster.swop();
        if (row.outcome == Outcome::Failed)
            ExpectedWarnings::expect(u"No event source"_s);
        m_rig.paster.performPaste(int(m_rig.texts().indexOf(u"Straße"_s)), u"upper"_s);
        EXPECT_TRUE(keys().isEmpty()) << "it would overwrite the selection";
        EXPECT_EQ(onPasteboard()->text, u"STRASSE"_s);
        EXPECT_EQ(m_rig.platform.pasteboard.markedText(), u"STRASSE"_s);
        told.append({u"The clip is on the clipboard"_s, row.told});
        EXPECT_EQ(m_rig.platform.notifications.delivered(), told);
    }
}

TEST_F(ClipPasterTest, whereNoProgramMayTypeNobodyIsToldOfTheTarget)
{
    m_rig.platform.keySender.setAvailable(false);
    m_rig.platform.frontApplication.setReturns(false);
    m_rig.paster.performPaste(kPlain, {});
    EXPECT_EQ(onPasteboard()->text, u"Straße"_s);
    expectNotification("The clip is on the clipboard",
                       "Quillmarsh is not able to type into this application. Paste it there "
                       "yourself; the middle mouse button does it, too.");
}

TEST_F(ClipPasterTest, aClipThatWasNotTakenOverToAnotherComputerIsMarkedTooAndTheUserIsTold)
{
    m_rig.platform.frontApplication.setApplicationName(u"Viewer"_s);
    m_rig.paster.performPaste(kPlain, {});
    m_rig.platform.keySender.giveUp();
    EXPECT_EQ(m_rig.platform.pasteboard.markedText(), u"Straße"_s);
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
    answerCopyWith(u"selection"_s);
    m_rig.paster.swop();
    m_rig.paster.performPaste(0, {});
    EXPECT_EQ(m_rig.platform.keySender.sentOverCopied(), 1);
}

TEST_F(ClipPasterTest, whenThePasteboardCannotBeWrittenTheUserIsToldAndTheWindowStays)
{
    m_rig.platform.workspace.addFile(u"/tmp/a.txt"_s);
    m_rig.platform.pasteboard.setWriteFails(true);
    const auto item = m_rig.at(kPlain);
    for (const int row : {kPlain, kFile}) {
        ExpectedWarnings::expect(u"pasteboard could not be written"_s);
        m_rig.paster.performPaste(row, {});
    }
    EXPECT_TRUE(keys().isEmpty());
    EXPECT_TRUE(m_rig.window.isShown);
    EXPECT_EQ(item->pasteCount(), std::nullopt);
    const std::pair failure(u"The clip was not pasted"_s, u"The clipboard could not be written."_s);
    EXPECT_EQ(m_rig.platform.notifications.delivered(), (QList{failure, failure}));
}

TEST_F(ClipPasterTest, aSwopGoesOnWhenThePasteboardCannotBeWritten)
{
    answerCopyWith(u"selection"_s);
    m_rig.paster.swop();
    m_rig.platform.pasteboard.setWriteFails(true);
    ExpectedWarnings::expect(u"pasteboard could not be written"_s);
    m_rig.paster.performPaste(kPlain, {});
    m_rig.platform.pasteboard.setWriteFails(false);
    m_rig.paster.performPaste(kPlain, {});
    EXPECT_EQ(onPasteboard()->text, u"selection"_s);
}

TEST_F(ClipPasterTest, aSwopExchangesTheSelectionForTheClip)
{
    answerCopyWith(u"selection"_s);
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
    EXPECT_EQ(textBeforeExchange, u"Straße"_s);
    EXPECT_EQ(m_rig.texts().mid(0, 2), (QStringList{u"selection"_s, u"Straße"_s}));
    EXPECT_EQ(m_rig.at(0)->applicationName(), u"Front"_s);
    EXPECT_EQ(onPasteboard()->text, u"selection"_s);
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
    m_rig.copy(u"earlier"_s);
    m_rig.capture.setPaused(false);
    m_rig.paster.swop();
    EXPECT_EQ(m_rig.texts().first(), u"earlier"_s);
    EXPECT_FALSE(m_rig.swopState.swopClipItem());
}

TEST_F(ClipPasterTest, aSwopWhoseTargetIsGoneKeepsTheSelectionInTheHistory)
{
    answerCopyWith(u"selection"_s);
    m_rig.paster.swop();
    m_rig.platform.frontApplication.setReturns(false);
    m_rig.paster.performPaste(kPlain, {});
    EXPECT_EQ(m_rig.texts(), (QStringList{u"selection"_s, u"Rich"_s, u"a.txt"_s, u"Straße"_s}));
    EXPECT_EQ(onPasteboard()->text, u"Straße"_s);
    EXPECT_FALSE(m_rig.swopState.performSwop());
}

TEST_F(ClipPasterTest, theHidingInsideAPasteDoesNotCancelTheSwop)
{
    answerCopyWith(u"selection"_s);
    m_rig.window.whenHidden = [this] { m_rig.paster.cancelSwop(); };
    m_rig.paster.swop();
    m_rig.paster.performPaste(kPlain, {});
    EXPECT_EQ(onPasteboard()->text, u"selection"_s);
}

TEST_F(ClipPasterTest, aNegativeRowForgetsWhatASwopHolds)
{
    answerCopyWith(u"selection"_s);
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
    captioned.text = u"caption"_s;
    PasteboardContents secret = picture;
    secret.isConcealed = true;
    PasteboardContents drawing;
    drawing.media = PasteboardContents::Media::Other;
    const PasteboardContents book{{QString(20'000, u'x')}};
    const QString other = u"other"_s;
    const Row rows[] = {{"picture", picture, u"picture"_s},
                        {"text with a picture", captioned, {}},
                        {"secret", secret, {}},
                        {"drawing", drawing, other},
                        {"nothing", {}, {}},
                        {"too large", book, other}};
    QStringList said;
    QObject::connect(&m_rig.paster, &ClipPaster::unrecordedReplaced, &m_rig.paster,
                     [&](bool wasPicture) { said.append(wasPicture ? u"picture"_s : other); });
    m_rig.copy(u"older"_s);
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        said.clear();
        m_rig.platform.pasteboard.copyFromOutside(row.before);
        m_rig.platform.pasteboard.setWriteFails(true);
        ExpectedWarnings::expect(u"could not be written"_s);
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
    const QString selection = u"far too large a selection"_s;
    answerCopyWith(selection);
    m_rig.paster.swop();
    ASSERT_TRUE(m_rig.swopState.swopClipItem());
    m_rig.paster.performPaste(kPlain, {});
    m_rig.capture.timeout();
    EXPECT_EQ(onPasteboard()->text, selection);
    EXPECT_EQ(m_rig.texts(), (QStringList{u"Straße"_s, u"Rich"_s, u"a.txt"_s}));
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
    answerCopyWith(u"selection"_s);
    const QStringList before = m_rig.texts();
    for (const Row &row : rows) {
        m_rig.history.clearAll();
        for (auto text = before.rbegin(); text != before.rend(); ++text)
            m_rig.add(*text);
        m_rig.paster.swop();
        m_rig.copy(u"second"_s);
        EXPECT_EQ(m_rig.swopState.swopClipItem()->text, u"second"_s);
        row.end();
        EXPECT_EQ(m_rig.texts().mid(0, 3).join(u" | "_s).toStdString(), row.newestFirst)
            << row.name;
    }
}

TEST_F(ClipPasterTest, aSwopWithOurOwnWindowInFrontCopiesInTheTargetOrNowhere)
{
    answerCopyWith(u"selection"_s);
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
        answerCopyWith(u"selection"_s);
        m_rig.platform.pasteboard.setPasteRead(false);
        m_rig.paster.swop();
        m_rig.paster.performPaste(kPlain, {});
    }

    bool isPutBack() const { return onPasteboard()->text == u"selection"_s; }
    bool comesBack()
    {
        return QTest::qWaitFor([this] { return isPutBack(); });
    }
};

TEST_F(SlowTarget, findsTheClipUntilItHasAskedForIt)
{
    EXPECT_EQ(onPasteboard()->text, u"Straße"_s);
    EXPECT_EQ(m_rig.texts().first(), u"selection"_s);
    m_rig.platform.pasteboard.setPasteRead(true);
    EXPECT_TRUE(comesBack());
    m_rig.capture.timeout();
    EXPECT_EQ(m_rig.texts().mid(0, 2), (QStringList{u"selection"_s, u"Straße"_s}));
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
    m_rig.copy(u"copied meanwhile"_s);
    m_rig.paster.finish();
    EXPECT_EQ(onPasteboard()->text, u"copied meanwhile"_s);
    EXPECT_EQ(m_rig.texts().mid(0, 2), (QStringList{u"copied meanwhile"_s, u"selection"_s}));
}

TEST_F(SlowTarget, getsTheSelectionBackThoughAnotherManagerHasTakenTheClipOver)
{
    m_rig.copy(u"Straße"_s);
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
