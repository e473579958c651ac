#include "platform/pasteboard/PasteboardStage.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

PasteboardContents textCopy(const QString &text)
{
    return {{text}};
}

QStringList textsOf(const QList<PasteboardContents> &changes)
{
    QStringList texts;
    for (const PasteboardContents &contents : changes)
        texts.append(contents.text.value_or(u"(none)"_s));
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
    m_stage->copyElsewhere(textCopy(u"one"_s));
    m_stage->copyElsewhere(textCopy(u"two"_s));
    m_stage->copyElsewhere(textCopy(u"two"_s));
    EXPECT_EQ(m_pasteboard.changeCount(), start + 3);
    EXPECT_EQ(m_announced, QList<QVariantList>({{start + 1}, {start + 2}, {start + 3}}));
    EXPECT_EQ(textsOf(m_pasteboard.changesAfter(start)),
              QStringList({u"one"_s, u"two"_s, u"two"_s}));

    m_pasteboard.acknowledge(start + 2);
    m_pasteboard.discard(start + 99);
    EXPECT_EQ(textsOf(m_pasteboard.changesAfter(start)), QStringList({u"one"_s, u"two"_s}));
    EXPECT_EQ(m_pasteboard.changesAfter(start + 2).size(), 1);
}

TEST_F(PasteboardContract, aTextPassesUnchangedInBothDirections)
{
    for (const QString &text : {u"plain"_s, u"beyond Latin-1: straße 日本語 🗝 שלום"_s,
                                u"a\r\nb\n\rc\n"_s, u" \t\n "_s, QString::fromLatin1("nul\0b\0", 6),
                                u"\uFEFFbyte order mark"_s, u""_s, QString(3'000'000, u'ä')}) {
        SCOPED_TRACE(text.left(40).toStdString());
        m_stage->copyElsewhere(textCopy(text));
        ASSERT_TRUE(m_pasteboard.contents());
        EXPECT_TRUE(m_pasteboard.contents()->text == text);
        ASSERT_TRUE(m_pasteboard.write({text}));
        EXPECT_TRUE(m_stage->pasteElsewhere().text == text);
    }
}

TEST_F(PasteboardContract, aWriteCountsAtOnceIsNotAnnouncedAndIsWhatOthersPaste)
{
    m_stage->copyElsewhere(textCopy(u"theirs"_s));
    m_announced.clear();
    const qint64 start = m_pasteboard.changeCount();
    const Copy item{u"ours"_s, u"{\\rtf1 \u00e4 ours}"_s, {u"/tmp/a b%#ü"_s, u"/tmp/c"_s}};
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
    ASSERT_TRUE(m_pasteboard.write({u"first"_s}));
    m_stage->copyElsewhere(textCopy(u"theirs"_s));
    ASSERT_TRUE(m_pasteboard.write({u"second"_s}));
    ASSERT_TRUE(m_pasteboard.write({u"third"_s}));
    EXPECT_EQ(textsOf(m_pasteboard.changesAfter(0)), QStringList({u"theirs"_s, u"third"_s}));
}

TEST_F(PasteboardContract, filesWithoutATextOfferTheirPathsOneALine)
{
    const QStringList files{u"/tmp/a b"_s, u"/home/ü.txt"_s};
    ASSERT_TRUE(m_pasteboard.write({{}, {}, files}));
    const QString paths = files.join(u'\n');
    EXPECT_EQ(m_pasteboard.contents()->text, paths);
    const Copy pasted = m_stage->pasteElsewhere();
    EXPECT_EQ(pasted.fileNames, files);
    EXPECT_EQ(pasted.text, paths);
}

TEST_F(PasteboardContract, aCopyArrivesWithItsRichTextAndFiles)
{
    const Copy copied{u"text"_s,
                      u"{\\rtf1 text}"_s,
                      {u"/tmp/one"_s, u"/tmp/two"_s},
                      u"<b>text</b> \u00ff\u00fe"_s};
    m_stage->copyElsewhere({copied});
    ASSERT_TRUE(m_pasteboard.contents());
    EXPECT_EQ(m_pasteboard.contents()->rtf, copied.rtf);
    EXPECT_EQ(m_pasteboard.contents()->html, copied.html);
    EXPECT_EQ(m_pasteboard.contents()->fileNames, copied.fileNames);
    EXPECT_FALSE(m_pasteboard.contents()->isOwnWrite);
}

TEST_F(PasteboardContract, aTextOfTheLargestUsefulSizeArrivesAndOneByteMoreDoesNot)
{
    m_pasteboard.setLargestUsefulText(4);
    m_stage->copyElsewhere(textCopy(u"éé"_s));
    EXPECT_EQ(m_pasteboard.contents()->text, u"éé"_s);
    EXPECT_FALSE(m_pasteboard.contents()->isTextTooLarge);
    m_stage->copyElsewhere(textCopy(u"éé!"_s));
    EXPECT_EQ(m_pasteboard.contents()->text, std::nullopt);
    EXPECT_TRUE(m_pasteboard.contents()->isTextTooLarge);
}

TEST_F(PasteboardContract, aPictureIsReadWhereOneIsWantedAndNothingElseWasCopied)
{
    struct Row
    {
        const char *name;
        qint64 useful;
        Copy copy;
        bool isRead;
        bool isTooLarge;
    };
    const QByteArray picture = "nine byte";
    const Copy alone{.picture = picture};
    const Row rows[] = {
        {"unwanted", 0, alone, false, false},
        {"of the largest size", 9, alone, true, false},
        {"a byte more", 8, alone, false, true},
        {"of a text", 9, {.text = u"text"_s, .picture = picture}, false, false},
        {"of a file", 9, {.fileNames = {u"/tmp/one"_s}, .picture = picture}, false, false},
        {"of a page", 9, {.html = u"<img>"_s, .picture = picture}, true, false},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        m_pasteboard.setLargestUsefulPicture(row.useful);
        m_stage->copyElsewhere({row.copy});
        ASSERT_TRUE(m_pasteboard.contents());
        EXPECT_EQ(m_pasteboard.contents()->picture, row.isRead ? picture : QByteArray());
        EXPECT_EQ(m_pasteboard.contents()->isPictureTooLarge, row.isTooLarge);
    }
    const Copy ours{.text = u"name"_s,
                    .fileNames = {u"/tmp/one"_s},
                    .offer = Copy::Offer::Picture,
                    .picture = picture};
    ASSERT_TRUE(m_pasteboard.write(ours));
    EXPECT_EQ(m_pasteboard.contents()->text, ours.text);
    const Copy pasted = m_stage->pasteElsewhere();
    EXPECT_EQ(pasted.text, std::nullopt);
    EXPECT_EQ(pasted.fileNames, ours.fileNames);
    EXPECT_EQ(pasted.picture, picture);
}

TEST_F(PasteboardContract, aSecretIsAnnouncedButNeverRead)
{
    PasteboardContents secret = textCopy(u"hunter2"_s);
    secret.rtf = u"{\\rtf1 hunter2}"_s;
    secret.isConcealed = true;
    m_stage->copyElsewhere(secret);
    ASSERT_TRUE(m_pasteboard.contents());
    EXPECT_TRUE(m_pasteboard.contents()->isConcealed);
    EXPECT_EQ(m_pasteboard.contents()->text, std::nullopt);
    EXPECT_EQ(m_pasteboard.contents()->rtf, std::nullopt);
}

TEST_F(PasteboardContract, aDiscardedCopyIsForgotten)
{
    m_stage->copyElsewhere(textCopy(u"ignored"_s));
    m_pasteboard.discard(m_pasteboard.changeCount());
    EXPECT_FALSE(m_pasteboard.contents());
    EXPECT_TRUE(m_pasteboard.changesAfter(0).isEmpty());
}

TEST_F(PasteboardContract, aTextFieldMayPasteWhatTheHistoryHasNoUseFor)
{
    using Selection = Pasteboard::Selection;
    EXPECT_EQ(asked(Selection::Clipboard), std::nullopt);
    m_stage->copyElsewhere(textCopy(u"plain"_s));
    EXPECT_EQ(asked(Selection::Clipboard), u"plain"_s);
    m_pasteboard.discard(m_pasteboard.changeCount());
    EXPECT_EQ(asked(Selection::Clipboard), u"plain"_s);

    PasteboardContents secret = textCopy(u"hunter2"_s);
    secret.isConcealed = true;
    m_stage->copyElsewhere(secret);
    EXPECT_EQ(asked(Selection::Clipboard), u"hunter2"_s);
    EXPECT_EQ(m_pasteboard.contents()->text, std::nullopt);

    m_pasteboard.setLargestUsefulText(4);
    m_stage->copyElsewhere(textCopy(u"too large"_s));
    EXPECT_EQ(asked(Selection::Clipboard), u"too large"_s);

    ASSERT_TRUE(m_pasteboard.write({u"ours"_s}));
    EXPECT_EQ(asked(Selection::Clipboard), u"ours"_s);
    m_pasteboard.clear();
    EXPECT_EQ(asked(Selection::Clipboard), std::nullopt);
}

TEST_F(PasteboardContract, whatIsMarkedGoesFromFieldToFieldAndChangesNoCopy)
{
    EXPECT_EQ(asked(Pasteboard::Selection::Primary), std::nullopt);
    if (!m_stage->hasPrimary()) {
        m_pasteboard.markText(u"ours"_s);
        EXPECT_EQ(asked(Pasteboard::Selection::Primary), std::nullopt);
        return;
    }
    m_stage->markElsewhere(u"theirs"_s);
    EXPECT_EQ(asked(Pasteboard::Selection::Primary), u"theirs"_s);
    m_pasteboard.markText(u"ours ü"_s);
    EXPECT_EQ(asked(Pasteboard::Selection::Primary), u"ours ü"_s);
    EXPECT_EQ(m_stage->markedElsewhere(), u"ours ü"_s);
    m_stage->markElsewhere(u"theirs again"_s);
    // The word that ours is no longer the marked text may still be on its way.
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return asked(Pasteboard::Selection::Primary) == u"theirs again"_s; }));
    EXPECT_EQ(m_pasteboard.changeCount(), 0);
}

TEST_F(PasteboardContract, clearingCountsAsAChangeAndLeavesNothing)
{
    ASSERT_TRUE(m_pasteboard.write({u"ours"_s}));
    const qint64 start = m_pasteboard.changeCount();
    m_pasteboard.clear();
    EXPECT_EQ(m_pasteboard.changeCount(), start + 1);
    EXPECT_FALSE(m_pasteboard.contents());
    EXPECT_EQ(m_stage->pasteElsewhere().text, std::nullopt);
    EXPECT_EQ(m_announced.size(), 0);
}

} // namespace
