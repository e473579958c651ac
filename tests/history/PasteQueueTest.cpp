#include "history/PasteQueue.h"

#include "history/HistoryRig.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

class PasteQueueTest : public testing::Test
{
protected:
    PasteQueueTest()
    {
        for (const QString &text : {u"one"_s, u"two"_s, u"three"_s})
            m_rig.copy(text);
    }

    std::vector<std::shared_ptr<ClipItem>> items() const
    {
        return {m_rig.at(2), m_rig.at(1), m_rig.at(0)};
    }
    QString onPasteboard() const
    {
        return m_rig.platform.pasteboard.contents()->text.value_or(QString());
    }
    bool comesTo(int left)
    {
        return QTest::qWaitFor([&] { return m_queue.left() == left; });
    }
    /// One paste asks for several formats.
    QString paste()
    {
        m_rig.platform.pasteboard.pasteInFront();
        return m_rig.platform.pasteboard.pasteInFront().text.value_or(QString());
    }

    StoreFolder m_folder;
    PasteRig m_rig{m_folder.path()};
    PasteQueue m_queue{m_rig.platform.pasteboard, m_rig.history, m_rig.paster,
                       std::chrono::milliseconds(1)};
};

TEST_F(PasteQueueTest, eachPasteGetsTheNextClipAndTheLastOneStays)
{
    const QStringList before = m_rig.texts();
    QSignalSpy left(&m_queue, &PasteQueue::leftChanged);
    ASSERT_TRUE(m_queue.begin(items()));
    EXPECT_EQ(m_rig.window.isShown, true);
    EXPECT_TRUE(m_rig.platform.keySender.sent().isEmpty());
    EXPECT_EQ(paste(), u"one"_s);
    ASSERT_TRUE(comesTo(2));
    EXPECT_EQ(paste(), u"two"_s);
    ASSERT_TRUE(comesTo(1));
    EXPECT_EQ(paste(), u"three"_s);
    ASSERT_TRUE(comesTo(0));
    EXPECT_EQ(paste(), u"three"_s);
    EXPECT_EQ(left, QList<QVariantList>({{3}, {2}, {1}, {0}}));
    EXPECT_FALSE(m_rig.platform.pasteboard.areFetchesTold());
    m_rig.capture.timeout();
    EXPECT_EQ(m_rig.texts(), before);
    EXPECT_EQ(m_rig.at(0)->pasteCount(), 0);
}

TEST_F(PasteQueueTest, nothingButAPasteMovesItOn)
{
    ASSERT_TRUE(m_queue.begin(items()));
    m_rig.capture.timeout();
    // Of what stood there before, and of what another program asks, there is word too.
    Q_EMIT m_rig.platform.pasteboard.fetched(m_rig.platform.pasteboard.changeCount() - 1);
    QTest::qWait(20);
    EXPECT_EQ(m_queue.left(), 3);
    EXPECT_EQ(onPasteboard(), u"one"_s);
}

TEST_F(PasteQueueTest, endsWhenSomethingElseComesAndPassesOverWhatIsGone)
{
    struct Row
    {
        const char *name;
        std::function<void()> happens;
        QString left; ///< On the pasteboard.
    };
    const Row rows[] = {
        {"a copy", [this] { m_rig.copy(u"new"_s); }, u"new"_s},
        {"a copy while a paste is read",
         [this] {
             paste();
             m_rig.copy(u"newer"_s);
         },
         u"newer"_s},
        {"Escape", [this] { m_queue.end(); }, u"one"_s},
        {"a write of ours",
         [this] {
             EXPECT_TRUE(m_rig.paster.setPasteboardString(u"field"_s, {}));
             paste();
         },
         u"field"_s},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        m_rig.history.clearAll();
        for (const QString &text : {u"one"_s, u"two"_s, u"three"_s})
            m_rig.copy(text);
        ASSERT_TRUE(m_queue.begin(items()));
        row.happens();
        EXPECT_EQ(m_queue.left(), 0);
        EXPECT_EQ(onPasteboard(), row.left);
        QTest::qWait(5);
        EXPECT_EQ(onPasteboard(), row.left);
    }
    std::vector<std::shared_ptr<ClipItem>> all{m_rig.at(2), m_rig.at(1), m_rig.at(0)};
    m_rig.history.deleteItem(all[1]);
    ASSERT_TRUE(m_queue.begin(all));
    paste();
    ASSERT_TRUE(comesTo(1));
    m_rig.platform.pasteboard.setWriteFails(true);
    EXPECT_FALSE(m_queue.begin(all));
    EXPECT_EQ(m_queue.left(), 0);
}

} // namespace
