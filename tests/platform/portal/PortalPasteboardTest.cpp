#include "platform/pasteboard/CopyQuestions.h"
#include "platform/pasteboard/FakeCompositor.h"
#include "platform/portal/PortalStage.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

using Selection = DataControl::Selection;
using State = Consent::State;

const QString kText = u"text/plain;charset=utf-8"_s;

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

TEST(PortalCopies, onEachOthersHeelsAreAllThereInOrderOnceEachWasAnswered)
{
    PortalStage stage;
    DataClient owner;
    QStringList copied;
    for (int i = 0; i < 100; ++i) {
        copied.append(u"copy %1"_s.arg(i));
        owner.copy(copied.last().toUtf8());
        ASSERT_TRUE(stage.reaches(i + 1, {&owner}));
    }
    QStringList texts;
    for (const PasteboardContents &contents : stage->changesAfter(0))
        texts.append(contents.text.value_or(u"(none)"_s));
    EXPECT_EQ(texts, copied);
}

TEST(PortalCopies, areReadOneFormatAfterTheOtherAndASecretNeverInAnothersPlace)
{
    PortalStage stage;
    DataClient owner;
    owner.own(Selection::Clipboard,
              {{kText, "text"}, {u"text/rtf"_s, "{\\rtf1 text}"}, {u"text/html"_s, "<b>text</b>"}});
    const PasteboardContents whole = stage.change(1, {&owner});
    EXPECT_EQ(whole.text, u"text"_s);
    EXPECT_EQ(whole.rtf, u"{\\rtf1 text}"_s);
    EXPECT_EQ(whole.html, u"<b>text</b>"_s);

    // What is asked of the one that is there no more is answered by the other.
    owner.copy("overtaken");
    DataClient vault;
    vault.own(Selection::Clipboard, {{kText, "hunter2"}, {CopyQuestions::kSecretMark, "secret"}});
    ASSERT_TRUE(stage.reaches(3, {&owner, &vault}));
    EXPECT_TRUE(stage->contents()->isConcealed);
    for (const PasteboardContents &contents : stage->changesAfter(1))
        EXPECT_NE(contents.text, u"hunter2"_s);
}

TEST(PortalCopies, areWhatIsThereWhenTheSessionBeginsAndAnew)
{
    PortalStage stage;
    DataClient owner;
    owner.copy("before");
    EXPECT_EQ(stage.change(1, {&owner}).text, u"before"_s);
    stage.portals.endSession();
    ASSERT_TRUE(stage.comesTo(State::Ended));
    stage.advance(0ms);
    EXPECT_FALSE(stage->write({u"nowhere to"_s}));
    owner.copy("meanwhile");
    // Nobody is asked: what was agreed to is remembered.
    stage.session.ask();
    ASSERT_TRUE(stage.comesTo(State::Given));
    EXPECT_EQ(stage.change(2, {&owner}).text, u"meanwhile"_s);
    EXPECT_EQ(stage.portals.notes().dialogs, 1);
    ASSERT_TRUE(stage->write({u"ours"_s}));
    EXPECT_EQ(stage.paste(kText), "ours");
}

TEST(PortalCopies, thatAreGivenAreSaidToBeGiven)
{
    PortalStage stage;
    ASSERT_TRUE(stage->write({QString(3'000'000, u'x')}));
    EXPECT_EQ(stage.paste(kText), QByteArray(3'000'000, 'x'));
    ASSERT_TRUE(pumpUntil({}, [&] { return !stage.portals.notes().given.isEmpty(); }));
    EXPECT_EQ(stage.portals.notes().given, QList<bool>{true});
}

TEST(PortalCopies, areRefusedByAPortalThatHangsAndGoOnWhenItDoesNot)
{
    PortalStage stage;
    stage.portals.hang();
    EXPECT_FALSE(stage->write({u"nowhere to"_s}));
    stage.portals.resume();
    DataClient owner;
    ASSERT_TRUE(pumpUntil({&owner}, [&] { return stage->write({u"ours"_s}); }));
    EXPECT_TRUE(stage.isServed("ours", kText));
}

} // namespace
