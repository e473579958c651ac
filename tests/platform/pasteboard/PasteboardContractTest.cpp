#include "platform/pasteboard/PasteboardStage.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace {

PasteboardContents textCopy(const QString &text)
{
    return {{text}};
}

QStringList textsOf(const QList<PasteboardContents> &changes)
{
    QStringList texts;
    for (const PasteboardContents &contents : changes)
        texts.append(contents.text.value_or(QStringLiteral("(none)")));
    return texts;
}

class PasteboardContract : public testing::Test
{
protected:
    /// What a text field would paste.
    std::optional<QString> asked(Pasteboard::Selection selection)
    {
        std::optional<std::optional<QString>> answer;
        m_pasteboard.askText(selection, &m_pasteboard, [&](const auto &text) { answer = text; });
        EXPECT_TRUE(m_stage->workUntil([&] { return answer.has_value(); }));
        return answer.value_or(std::nullopt);
    }

    std::unique_ptr<PasteboardStage> m_stage = PasteboardStage::make();
    Pasteboard &m_pasteboard = m_stage->pasteboard();
    QSignalSpy m_announced{&m_pasteboard, &Pasteboard::changed};
};

TEST_F(PasteboardContract, everyCopyElsewhereIsAnnouncedOnceAndKeptInOrderUntilExamined)
{
    const qint64 start = m_pasteboard.changeCount();
    m_stage->copyElsewhere(textCopy(QStringLiteral("one")));
    m_stage->copyElsewhere(textCopy(QStringLiteral("two")));
    m_stage->copyElsewhere(textCopy(QStringLiteral("two")));
    EXPECT_EQ(m_pasteboard.changeCount(), start + 3);
    EXPECT_EQ(m_announced, QList<QVariantList>({{start + 1}, {start + 2}, {start + 3}}));
    EXPECT_EQ(textsOf(m_pasteboard.changesAfter(start)),
              QStringList({QStringLiteral("one"), QStringLiteral("two"), QStringLiteral("two")}));

    m_pasteboard.acknowledge(start + 2);
    m_pasteboard.discard(start + 99);
    EXPECT_EQ(textsOf(m_pasteboard.changesAfter(start)),
              QStringList({QStringLiteral("one"), QStringLiteral("two")}));
    EXPECT_EQ(m_pasteboard.changesAfter(start + 2).size(), 1);
}

struct TextRow
{
    const char *name;
    QString text;
};

class PasteboardTexts : public PasteboardContract, public testing::WithParamInterface<TextRow>
{
};

TEST_P(PasteboardTexts, passUnchangedInBothDirections)
{
    const QString &text = GetParam().text;
    m_stage->copyElsewhere(textCopy(text));
    ASSERT_TRUE(m_pasteboard.contents());
    EXPECT_EQ(m_pasteboard.contents()->text, text);
    ASSERT_TRUE(m_pasteboard.write({text}));
    EXPECT_EQ(m_stage->pasteElsewhere().text, text);
}

INSTANTIATE_TEST_SUITE_P(All, PasteboardTexts,
                         testing::Values(TextRow{"plain", QStringLiteral("plain")},
                                         TextRow{"beyondLatin1",
                                                 QStringLiteral("straße 日本語 🗝 שלום")},
                                         TextRow{"lineEnds", QStringLiteral("a\r\nb\n\rc\n")},
                                         TextRow{"blanks", QStringLiteral(" \t\n ")},
                                         TextRow{"nul", QString::fromLatin1("a\0b\0", 4)},
                                         TextRow{"byteOrderMark", QStringLiteral("\uFEFFa")},
                                         TextRow{"empty", QStringLiteral("")},
                                         TextRow{"large", QString(3'000'000, u'ä')}),
                         [](const auto &row) { return std::string(row.param.name); });

TEST_F(PasteboardContract, aWriteCountsAtOnceIsNotAnnouncedAndIsWhatOthersPaste)
{
    m_stage->copyElsewhere(textCopy(QStringLiteral("theirs")));
    m_announced.clear();
    const qint64 start = m_pasteboard.changeCount();
    const Copy item{QStringLiteral("ours"),
                    QStringLiteral("{\\rtf1 \u00e4 ours}"),
                    {QStringLiteral("/tmp/a b%#ü"), QStringLiteral("/tmp/c")}};
    ASSERT_TRUE(m_pasteboard.write(item));
    EXPECT_EQ(m_pasteboard.changeCount(), start + 1);
    ASSERT_TRUE(m_pasteboard.contents());
    EXPECT_TRUE(m_pasteboard.contents()->isOwnWrite);
    EXPECT_EQ(m_pasteboard.contents()->text, item.text);

    const Copy pasted = m_stage->pasteElsewhere();
    EXPECT_EQ(pasted.text, item.text);
    EXPECT_EQ(pasted.rtf, item.rtf);
    EXPECT_EQ(pasted.fileNames, item.fileNames);
    EXPECT_EQ(m_announced.size(), 0);
}

TEST_F(PasteboardContract, ofOwnWritesOnlyTheLatestAwaitsExamination)
{
    ASSERT_TRUE(m_pasteboard.write({QStringLiteral("first")}));
    m_stage->copyElsewhere(textCopy(QStringLiteral("theirs")));
    ASSERT_TRUE(m_pasteboard.write({QStringLiteral("second")}));
    ASSERT_TRUE(m_pasteboard.write({QStringLiteral("third")}));
    EXPECT_EQ(textsOf(m_pasteboard.changesAfter(0)),
              QStringList({QStringLiteral("theirs"), QStringLiteral("third")}));
}

TEST_F(PasteboardContract, filesWithoutATextOfferTheirPathsOneALine)
{
    const QStringList files{QStringLiteral("/tmp/a b"), QStringLiteral("/home/ü.txt")};
    ASSERT_TRUE(m_pasteboard.write({{}, {}, files}));
    const QString paths = files.join(u'\n');
    EXPECT_EQ(m_pasteboard.contents()->text, paths);
    const Copy pasted = m_stage->pasteElsewhere();
    EXPECT_EQ(pasted.fileNames, files);
    EXPECT_EQ(pasted.text, paths);
}

TEST_F(PasteboardContract, aCopyArrivesWithItsRtfAndFiles)
{
    const Copy copied{QStringLiteral("text"),
                      QStringLiteral("{\\rtf1 text}"),
                      {QStringLiteral("/tmp/one"), QStringLiteral("/tmp/two")}};
    m_stage->copyElsewhere({copied});
    ASSERT_TRUE(m_pasteboard.contents());
    EXPECT_EQ(m_pasteboard.contents()->rtf, copied.rtf);
    EXPECT_EQ(m_pasteboard.contents()->fileNames, copied.fileNames);
    EXPECT_FALSE(m_pasteboard.contents()->isOwnWrite);
}

TEST_F(PasteboardContract, aTextOfTheLargestUsefulSizeArrivesAndOneByteMoreDoesNot)
{
    m_pasteboard.setLargestUsefulText(4);
    m_stage->copyElsewhere(textCopy(QStringLiteral("éé")));
    EXPECT_EQ(m_pasteboard.contents()->text, QStringLiteral("éé"));
    EXPECT_FALSE(m_pasteboard.contents()->isTextTooLarge);
    m_stage->copyElsewhere(textCopy(QStringLiteral("éé!")));
    EXPECT_EQ(m_pasteboard.contents()->text, std::nullopt);
    EXPECT_TRUE(m_pasteboard.contents()->isTextTooLarge);
}

TEST_F(PasteboardContract, aSecretIsAnnouncedButNeverRead)
{
    PasteboardContents secret = textCopy(QStringLiteral("hunter2"));
    secret.rtf = QStringLiteral("{\\rtf1 hunter2}");
    secret.isConcealed = true;
    m_stage->copyElsewhere(secret);
    ASSERT_TRUE(m_pasteboard.contents());
    EXPECT_TRUE(m_pasteboard.contents()->isConcealed);
    EXPECT_EQ(m_pasteboard.contents()->text, std::nullopt);
    EXPECT_EQ(m_pasteboard.contents()->rtf, std::nullopt);
}

TEST_F(PasteboardContract, aDiscardedCopyIsForgotten)
{
    m_stage->copyElsewhere(textCopy(QStringLiteral("ignored")));
    m_pasteboard.discard(m_pasteboard.changeCount());
    EXPECT_FALSE(m_pasteboard.contents());
    EXPECT_TRUE(m_pasteboard.changesAfter(0).isEmpty());
}

TEST_F(PasteboardContract, aTextFieldMayPasteWhatTheHistoryHasNoUseFor)
{
    using Selection = Pasteboard::Selection;
    EXPECT_EQ(asked(Selection::Clipboard), std::nullopt);
    m_stage->copyElsewhere(textCopy(QStringLiteral("plain")));
    EXPECT_EQ(asked(Selection::Clipboard), QStringLiteral("plain"));
    m_pasteboard.discard(m_pasteboard.changeCount());
    EXPECT_EQ(asked(Selection::Clipboard), QStringLiteral("plain"));

    PasteboardContents secret = textCopy(QStringLiteral("hunter2"));
    secret.isConcealed = true;
    m_stage->copyElsewhere(secret);
    EXPECT_EQ(asked(Selection::Clipboard), QStringLiteral("hunter2"));
    EXPECT_EQ(m_pasteboard.contents()->text, std::nullopt);

    m_pasteboard.setLargestUsefulText(4);
    m_stage->copyElsewhere(textCopy(QStringLiteral("too large")));
    EXPECT_EQ(asked(Selection::Clipboard), QStringLiteral("too large"));

    ASSERT_TRUE(m_pasteboard.write({QStringLiteral("ours")}));
    EXPECT_EQ(asked(Selection::Clipboard), QStringLiteral("ours"));
    m_pasteboard.clear();
    EXPECT_EQ(asked(Selection::Clipboard), std::nullopt);
}

TEST_F(PasteboardContract, whatIsMarkedGoesFromFieldToFieldAndChangesNoCopy)
{
    EXPECT_EQ(asked(Pasteboard::Selection::Primary), std::nullopt);
    m_stage->markElsewhere(QStringLiteral("theirs"));
    EXPECT_EQ(asked(Pasteboard::Selection::Primary), QStringLiteral("theirs"));
    m_pasteboard.markText(QStringLiteral("ours ü"));
    EXPECT_EQ(asked(Pasteboard::Selection::Primary), QStringLiteral("ours ü"));
    EXPECT_EQ(m_stage->markedElsewhere(), QStringLiteral("ours ü"));
    m_stage->markElsewhere(QStringLiteral("theirs again"));
    // The word that ours is no longer the marked text may still be on its way.
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return asked(Pasteboard::Selection::Primary) == QStringLiteral("theirs again"); }));
    EXPECT_EQ(m_pasteboard.changeCount(), 0);
}

TEST_F(PasteboardContract, clearingCountsAsAChangeAndLeavesNothing)
{
    ASSERT_TRUE(m_pasteboard.write({QStringLiteral("ours")}));
    const qint64 start = m_pasteboard.changeCount();
    m_pasteboard.clear();
    EXPECT_EQ(m_pasteboard.changeCount(), start + 1);
    EXPECT_FALSE(m_pasteboard.contents());
    EXPECT_EQ(m_stage->pasteElsewhere().text, std::nullopt);
    EXPECT_EQ(m_announced.size(), 0);
}

} // namespace
