#include "history/HistoryRig.h"

#include "support/ExpectedWarnings.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

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
        {{u"a.txt"_s, u"{\\rtf1}"_s, {u"/tmp/a.txt"_s, u"/tmp/b.txt"_s}}, u"Files"_s});
    ASSERT_EQ(m_rig.texts(), QStringList{u"a.txt"_s});
    EXPECT_EQ(m_rig.at(0)->rtfValue(), u"{\\rtf1}"_s);
    EXPECT_EQ(m_rig.at(0)->filepath(), u"/tmp/a.txt"_s);
    EXPECT_EQ(m_rig.at(0)->applicationName(), u"Files"_s);
    EXPECT_FALSE(isDiscarded());
}

TEST_F(ClipboardCaptureTest, aCopyWithoutTextIsNotRecorded)
{
    m_rig.platform.pasteboard.copyFromOutside({{std::nullopt, u"{\\rtf1}"_s, {u"/tmp/a.txt"_s}}});
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
    EXPECT_EQ(text(0), u"99"_s);
    EXPECT_EQ(text(99), u"0"_s);
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
    m_rig.copy(u"secret"_s, GetParam().applicationName);
    EXPECT_EQ(m_rig.texts().isEmpty(), GetParam().isIgnored);
    EXPECT_EQ(isDiscarded(), GetParam().isIgnored);
    const QString line = u"ignoring copy from "_s + GetParam().applicationName;
    EXPECT_EQ(ExpectedWarnings::messages().contains(line), GetParam().isIgnored);
    EXPECT_EQ(m_rig.capture.previousChangeCount(), 1);
}

QStringList names(const char *text)
{
    return QString::fromLatin1(text).split(u',', Qt::SkipEmptyParts);
}

const IgnoreRow kIgnoredApplications[] = {
    {"none", names(""), u"Mail"_s, false},
    {"same", names("Notes,Mail"), u"Mail"_s, true},
    {"otherCase", names("mail"), u"Mail"_s, false},
    {"longerName", names("Mail"), u"Mailbox"_s, false},
    {"passwordManagerOfAnotherEdition", names("1Password 6"), u"1Password 7"_s, true},
    {"passwordManagerOnlyInside", names("1Password"), u"My 1Password"_s, false}};

INSTANTIATE_TEST_SUITE_P(Names, IgnoredApplications, testing::ValuesIn(kIgnoredApplications),
                         [](const auto &row) { return std::string(row.param.name); });

TEST_F(ClipboardCaptureTest, concealedCopiesAndThoseBeforeTheSettingsAreKnownAreIgnored)
{
    PasteboardContents contents{{}, u"Vault"_s};
    contents.isConcealed = true;
    m_rig.platform.pasteboard.copyFromOutside(contents);
    EXPECT_TRUE(isDiscarded());
    EXPECT_TRUE(ExpectedWarnings::messages().contains(u"ignoring copy from Vault"_s));
    m_rig.settings.mayRecord = false;
    m_rig.copy(u"secret"_s);
    EXPECT_TRUE(isDiscarded());
    m_rig.settings.mayRecord = true;
    m_rig.capture.timeout();
    EXPECT_EQ(m_rig.texts(), QStringList());
}

TEST_F(ClipboardCaptureTest, whatWePutOnThePasteboardForAnIgnoredApplicationStaysThere)
{
    m_rig.settings.ignored = {QString()};
    m_rig.paster.setPasteboardString(u"pasted"_s, {});
    m_rig.capture.timeout();
    EXPECT_EQ(m_rig.texts(), QStringList());
    EXPECT_EQ(m_rig.platform.pasteboard.contents()->text, u"pasted"_s);
}

TEST_F(ClipboardCaptureTest, aTextIsMeasuredInBytesAndTheLimitItselfIsRecorded)
{
    m_rig.settings.maxStringSize = 6;
    m_rig.capture.timeout();
    EXPECT_EQ(m_rig.platform.pasteboard.maxUsefulText(), 6);
    m_rig.copy(u"äöü"_s);
    EXPECT_EQ(m_rig.texts(), QStringList{u"äöü"_s});
    EXPECT_TRUE(m_rig.platform.notifications.delivered().isEmpty());
    m_rig.copy(u"äöüx"_s);
    m_rig.settings.maxStringSize = 5;
    m_rig.copy(u"xäöü"_s);
    EXPECT_EQ(m_rig.texts().size(), 1);
    const std::pair warning(u"The copied text was not recorded"_s, u"The text is too large."_s);
    EXPECT_EQ(m_rig.platform.notifications.delivered(), (QList{warning, warning}));
    m_rig.settings.areNotificationsEnabled = false;
    m_rig.copy(u"xäöüx"_s);
    EXPECT_EQ(m_rig.platform.notifications.delivered().size(), 2);
    EXPECT_EQ(m_rig.capture.previousChangeCount(), 4);
}

TEST_F(ClipboardCaptureTest, duringASwopTheLatestCopyIsHeldInsteadOfRecorded)
{
    m_rig.swopState.begin(u"Terminal"_s);
    m_rig.copy(u"first"_s);
    m_rig.copy(u"second"_s, u"Terminal"_s);
    EXPECT_EQ(m_rig.texts(), QStringList());
    EXPECT_EQ(m_rig.swopState.swopClipItem()->text, u"second"_s);
    EXPECT_EQ(m_rig.swopState.swopClipItem()->applicationName, u"Terminal"_s);
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
    const QString ours = u"Quillmarsh"_s;
    const QString vault = u"Vault"_s;
    const Row rows[] = {
        {ours, true, {}, vault}, {ours, true, {vault}, {}}, {u"Mail"_s, false, {vault}, u"Mail"_s}};
    for (const Row &row : rows) {
        m_rig.settings.ignored = row.ignored;
        m_rig.swopState.begin(vault);
        PasteboardContents contents{{u"late"_s}, row.inFront};
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
    m_rig.platform.frontApplication.setApplicationName(u"XTerm"_s);
    m_rig.capture.setPaused(true);
    m_rig.capture.setPaused(false);
    m_rig.platform.pasteboard.setFront(u"Quillmarsh"_s, true);
    m_rig.paster.setPasteboardString(u"setup complete"_s, {});
    m_rig.capture.setPaused(true);
    m_rig.capture.setPaused(false);
    m_rig.capture.timeout();
    EXPECT_EQ(m_rig.at(0)->applicationName(), u"Quillmarsh"_s);
}

TEST_F(ClipboardCaptureTest, anOwnWriteIsNeverTooLarge)
{
    m_rig.copy(u"long clip"_s);
    m_rig.copy(u"b"_s);
    m_rig.settings.maxStringSize = 3;
    m_rig.paster.performPaste(1, {});
    m_rig.capture.timeout();
    EXPECT_EQ(text(0), u"long clip"_s);
    EXPECT_TRUE(m_rig.platform.notifications.delivered().isEmpty());
}

} // namespace
