#include "history/HistoryRig.h"

#include "support/ExpectedWarnings.h"

#include <gtest/gtest.h>

namespace {

class ClipboardCaptureTest : public testing::Test
{
protected:
    QString text(std::size_t row) const { return *m_rig.at(row)->strValue(); }
    /// The change examined last.
    bool isDiscarded() const
    {
        const MemoryPasteboard &pasteboard = m_rig.platform.pasteboard;
        return pasteboard.discarded().contains(pasteboard.changeCount());
    }

    StoreFolder m_folder;
    PasteRig m_rig{m_folder.path()};
};

TEST_F(ClipboardCaptureTest, aCopyIsRecordedAtOnceWithItsApplicationFileAndRtf)
{
    m_rig.platform.pasteboard.copyFromOutside(
        {{QStringLiteral("a.txt"),
          QStringLiteral("{\\rtf1}"),
          {QStringLiteral("/tmp/a.txt"), QStringLiteral("/tmp/b.txt")}},
         QStringLiteral("Files")});
    ASSERT_EQ(m_rig.texts(), QStringList{QStringLiteral("a.txt")});
    EXPECT_EQ(m_rig.at(0)->rtfValue(), QStringLiteral("{\\rtf1}"));
    EXPECT_EQ(m_rig.at(0)->filepath(), QStringLiteral("/tmp/a.txt"));
    EXPECT_EQ(m_rig.at(0)->applicationName(), QStringLiteral("Files"));
    EXPECT_FALSE(isDiscarded());
}

TEST_F(ClipboardCaptureTest, aCopyWithoutTextIsNotRecorded)
{
    m_rig.platform.pasteboard.copyFromOutside(
        {{std::nullopt, QStringLiteral("{\\rtf1}"), {QStringLiteral("/tmp/a.txt")}}});
    EXPECT_EQ(m_rig.texts(), QStringList());
    EXPECT_EQ(m_rig.capture.previousChangeCount(), 1);
}

TEST_F(ClipboardCaptureTest, changesThatWaitedAreExaminedOnceEachAndInOrder)
{
    m_rig.capture.setPaused(true);
    for (int i = 0; i < 100; ++i)
        m_rig.copy(QString::number(i));
    m_rig.capture.timeout();
    EXPECT_EQ(m_rig.texts(), QStringList());
    m_rig.capture.setPaused(false);
    m_rig.capture.timeout();
    ASSERT_EQ(m_rig.texts().size(), 100);
    EXPECT_EQ(text(0), QStringLiteral("99"));
    EXPECT_EQ(text(99), QStringLiteral("0"));
    EXPECT_EQ(m_rig.platform.pasteboard.acknowledged().size(), 100);
    m_rig.history.deleteItem(m_rig.at(5));
    m_rig.capture.timeout();
    EXPECT_EQ(m_rig.texts().size(), 99);
}

struct IgnoreRow
{
    const char *name;
    QStringList ignored;
    QString applicationName;
    bool isIgnored;
};

class IgnoredApplications : public ClipboardCaptureTest,
                            public testing::WithParamInterface<IgnoreRow>
{
};

TEST_P(IgnoredApplications, leaveNoTrace)
{
    m_rig.settings.ignored = GetParam().ignored;
    m_rig.copy(QStringLiteral("secret"), GetParam().applicationName);
    EXPECT_EQ(m_rig.texts().isEmpty(), GetParam().isIgnored);
    EXPECT_EQ(isDiscarded(), GetParam().isIgnored);
    const QString line = QStringLiteral("ignoring copy from ") + GetParam().applicationName;
    EXPECT_EQ(ExpectedWarnings::messages().contains(line), GetParam().isIgnored);
    EXPECT_EQ(m_rig.capture.previousChangeCount(), 1);
}

QStringList names(const char *text)
{
    return QString::fromLatin1(text).split(u',', Qt::SkipEmptyParts);
}

INSTANTIATE_TEST_SUITE_P(
    Names, IgnoredApplications,
    testing::Values(IgnoreRow{"none", names(""), QStringLiteral("Mail"), false},
                    IgnoreRow{"same", names("Notes,Mail"), QStringLiteral("Mail"), true},
                    IgnoreRow{"otherCase", names("mail"), QStringLiteral("Mail"), false},
                    IgnoreRow{"longerName", names("Mail"), QStringLiteral("Mailbox"), false},
                    IgnoreRow{"passwordManagerOfAnotherEdition", names("1Password 6"),
                              QStringLiteral("1Password 7"), true},
                    IgnoreRow{"passwordManagerOnlyInside", names("1Password"),
                              QStringLiteral("My 1Password"), false}),
    [](const auto &row) { return std::string(row.param.name); });

TEST_F(ClipboardCaptureTest, concealedCopiesAndThoseBeforeTheSettingsAreKnownAreIgnored)
{
    PasteboardContents contents{{}, QStringLiteral("Vault")};
    contents.isConcealed = true;
    m_rig.platform.pasteboard.copyFromOutside(contents);
    EXPECT_TRUE(isDiscarded());
    EXPECT_TRUE(ExpectedWarnings::messages().contains(QStringLiteral("ignoring copy from Vault")));
    m_rig.settings.mayRecord = false;
    m_rig.copy(QStringLiteral("secret"));
    EXPECT_TRUE(isDiscarded());
    m_rig.settings.mayRecord = true;
    m_rig.capture.timeout();
    EXPECT_EQ(m_rig.texts(), QStringList());
}

TEST_F(ClipboardCaptureTest, whatWePutOnThePasteboardForAnIgnoredApplicationStaysThere)
{
    m_rig.settings.ignored = {QString()};
    m_rig.paster.setPasteboardString(QStringLiteral("pasted"), {});
    m_rig.capture.timeout();
    EXPECT_EQ(m_rig.texts(), QStringList());
    EXPECT_EQ(m_rig.platform.pasteboard.contents()->text, QStringLiteral("pasted"));
}

TEST_F(ClipboardCaptureTest, aTextIsMeasuredInBytesAndTheLimitItselfIsRecorded)
{
    m_rig.settings.maxStringSize = 6;
    m_rig.capture.timeout();
    EXPECT_EQ(m_rig.platform.pasteboard.maxUsefulText(), 6);
    m_rig.copy(QStringLiteral("äöü"));
    EXPECT_EQ(m_rig.texts(), QStringList{QStringLiteral("äöü")});
    EXPECT_TRUE(m_rig.platform.notifications.delivered().isEmpty());
    m_rig.copy(QStringLiteral("äöüx"));
    m_rig.settings.maxStringSize = 5;
    m_rig.copy(QStringLiteral("xäöü"));
    EXPECT_EQ(m_rig.texts().size(), 1);
    const std::pair warning(QStringLiteral("The copied text was not recorded"),
                            QStringLiteral("The text is too large."));
    EXPECT_EQ(m_rig.platform.notifications.delivered(), (QList{warning, warning}));
    m_rig.settings.areNotificationsEnabled = false;
    m_rig.copy(QStringLiteral("xäöüx"));
    EXPECT_EQ(m_rig.platform.notifications.delivered().size(), 2);
    EXPECT_EQ(m_rig.capture.previousChangeCount(), 4);
}

TEST_F(ClipboardCaptureTest, duringASwopTheLatestCopyIsHeldInsteadOfRecorded)
{
    m_rig.swopState.begin(QStringLiteral("Terminal"));
    m_rig.copy(QStringLiteral("first"));
    m_rig.copy(QStringLiteral("second"), QStringLiteral("Terminal"));
    EXPECT_EQ(m_rig.texts(), QStringList());
    EXPECT_EQ(m_rig.swopState.swopClipItem()->text, QStringLiteral("second"));
    EXPECT_EQ(m_rig.swopState.swopClipItem()->applicationName, QStringLiteral("Terminal"));
}

TEST_F(ClipboardCaptureTest, aCopyThatASwopGetsOnceWeAreInFrontIsItsTargets)
{
    struct Row
    {
        QString inFront;
        bool isOurs;
        QStringList ignored;
        QString heldFrom; ///< Empty when nothing is held.
    };
    const QString ours = QStringLiteral("Quillmarsh");
    const QString vault = QStringLiteral("Vault");
    const Row rows[] = {{ours, true, {}, vault},
                        {ours, true, {vault}, {}},
                        {QStringLiteral("Mail"), false, {vault}, QStringLiteral("Mail")}};
    for (const Row &row : rows) {
        m_rig.settings.ignored = row.ignored;
        m_rig.swopState.begin(vault);
        PasteboardContents contents{{QStringLiteral("late")}, row.inFront};
        contents.isOursInFront = row.isOurs;
        m_rig.platform.pasteboard.copyFromOutside(contents);
        const auto &held = m_rig.swopState.swopClipItem();
        EXPECT_EQ(held ? *held->applicationName : QString(), row.heldFrom);
        EXPECT_EQ(isDiscarded(), !held);
        m_rig.swopState.clear();
    }
}

TEST_F(ClipboardCaptureTest, anOwnWriteOutsideAPasteComesFromTheApplicationInFrontAtTheWrite)
{
    m_rig.platform.frontApplication.setApplicationName(QStringLiteral("XTerm"));
    m_rig.capture.setPaused(true);
    m_rig.capture.setPaused(false);
    m_rig.platform.pasteboard.setFront(QStringLiteral("Quillmarsh"), true);
    m_rig.paster.setPasteboardString(QStringLiteral("setup complete"), {});
    m_rig.capture.setPaused(true);
    m_rig.capture.setPaused(false);
    m_rig.capture.timeout();
    EXPECT_EQ(m_rig.at(0)->applicationName(), QStringLiteral("Quillmarsh"));
}

TEST_F(ClipboardCaptureTest, anOwnWriteIsNeverTooLarge)
{
    m_rig.copy(QStringLiteral("long clip"));
    m_rig.copy(QStringLiteral("b"));
    m_rig.settings.maxStringSize = 3;
    m_rig.paster.performPaste(1, {});
    m_rig.capture.timeout();
    EXPECT_EQ(text(0), QStringLiteral("long clip"));
    EXPECT_TRUE(m_rig.platform.notifications.delivered().isEmpty());
}

} // namespace
