#include "platform/pasteboard/WaylandStage.h"

#include "platform/pasteboard/CopyQuestions.h"
#include "support/ExpectedWarnings.h"

#include <QBuffer>
#include <QImage>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

using Selection = DataControl::Selection;

const QString kText = u"text/plain;charset=utf-8"_s;

QString textOf(const std::optional<PasteboardContents> &contents)
{
    return contents && contents->text ? *contents->text : u"(none)"_s;
}

QStringList textsOf(const QList<PasteboardContents> &changes)
{
    QStringList texts;
    for (const PasteboardContents &contents : changes)
        texts.append(textOf(contents));
    return texts;
}

QByteArray picture(const char *encoding)
{
    QImage image(3, 2, QImage::Format_RGB32);
    image.fill(Qt::red);
    QBuffer buffer;
    image.save(&buffer, encoding);
    return buffer.data();
}

TEST(WaylandCopies, onEachOthersHeelsAreAllThereInOrder)
{
    WaylandStage stage;
    DataClient owner;
    QStringList copied;
    qsizetype answered = 0;
    for (int i = 0; i < 100; ++i) {
        copied.append(u"copy %1"_s.arg(i, 3));
        owner.copy(copied.last().toUtf8());
        // The next copy follows as soon as this one was answered, read or not.
        answered += copied.last().size();
        ASSERT_TRUE(pumpUntil({&owner}, [&] { return owner.sentBytes() == answered; }));
    }
    ASSERT_TRUE(stage.reaches(100, {&owner}));
    EXPECT_EQ(textsOf(stage->changesAfter(0)), copied);
}

TEST(WaylandCopies, countAlsoWhenTheyAreReplacedBeforeAnybodyCouldAskForThem)
{
    WaylandStage stage;
    DataClient owner;
    for (const char *text : {"one", "two", "three"})
        owner.copy(text);
    EXPECT_EQ(textOf(stage.change(3, {&owner})), u"three"_s);
    EXPECT_EQ(stage->changesAfter(0).size(), 3);
}

struct NameRow
{
    const char *name;
    QString format;
    QByteArray bytes;
    QString text;
};

TEST(WaylandCopies, areReadUnderEveryNameOfATextHoweverBrokenItIs)
{
    WaylandStage stage;
    DataClient owner;
    qint64 count = 0;
    for (const NameRow &row : {
             NameRow{"X's name", u"UTF8_STRING"_s, "\xC3\xA4", u"ä"_s},
             NameRow{"no charset", u"text/plain"_s, "\xC3\xA4", u"ä"_s},
             NameRow{"Latin-1", u"STRING"_s, "\xE4", u"ä"_s},
             NameRow{"broken", kText, "a\xFF\xC3z", u"a\uFFFD\uFFFDz"_s},
             NameRow{"cut off", kText, "a\xE2\x82", u"a\uFFFD\uFFFD"_s},
         }) {
        owner.own(Selection::Clipboard, {{row.format, row.bytes}});
        EXPECT_EQ(textOf(stage.change(++count, {&owner})), row.text) << row.name;
    }
    DataClient::Formats thousands;
    for (int i = 0; i < 3000; ++i)
        thousands[u"application/x-format-%1"_s.arg(i)] = "x";
    thousands[u"a text/plain \xD800"_s] = "x";
    thousands[u"TEXT"_s] = "first";
    owner.own(Selection::Clipboard, thousands);
    EXPECT_EQ(textOf(stage.change(++count, {&owner})), u"first"_s);
}

TEST(WaylandCopies, areNamedAfterTheApplicationInFrontAtTheirMoment)
{
    WaylandStage stage;
    DataClient owner;
    stage.setFront({u"Editor"_s, false, 1});
    owner.copy("theirs");
    // Answered, and so read, only when another application is in front already.
    stage.advance(0ms);
    stage.setFront({u"Quillmarsh"_s, true, 2});
    PasteboardContents contents = stage.change(1, {&owner});
    EXPECT_EQ(contents.applicationName, u"Editor"_s);
    EXPECT_FALSE(contents.isOursInFront);
    owner.copy("ours in front");
    EXPECT_TRUE(stage.change(2, {&owner}).isOursInFront);
}

struct MannersRow
{
    const char *name;
    DataClient::Manners manners;
    std::chrono::milliseconds wait; ///< Until it is read or given up.
    QString text;
};

TEST(WaylandOwners, thatMisbehaveAreReadAsFarAsCanBeAndHoldNobodyUp)
{
    for (const MannersRow &row : {
             MannersRow{"never writes", {.hangsOn = kText}, 2s, u"(none)"_s},
             MannersRow{"stalls", {.stallsAfter = 50'000}, 2s, u"(none)"_s},
             MannersRow{"hangs with another format",
                        {.hangsOn = u"text/rtf"_s},
                        2s,
                        QString(200'000, u'x')},
             MannersRow{
                 "says that it has nothing yet", {.refusals = 1}, 50ms, QString(200'000, u'x')},
         }) {
        SCOPED_TRACE(row.name);
        WaylandStage stage;
        stage.stopTime();
        DataClient owner;
        owner.manners = row.manners;
        const QByteArray large(200'000, 'x');
        owner.own(Selection::Clipboard, {{kText, large}, {u"text/rtf"_s, "{\\rtf1}"}});
        const bool sendsText = row.manners.hangsOn == u"text/rtf"_s;
        const auto isAsked = [&] {
            return owner.requests().contains(kText) && owner.requests().contains(u"text/rtf"_s) &&
                   (owner.isIdle() || row.manners.stallsAfter >= 0 ||
                    row.manners.hangsOn != u""_s) &&
                   (!sendsText || owner.sentBytes() >= large.size());
        };
        ASSERT_TRUE(pumpUntil({&owner}, isAsked));
        for (int i = 0; i < 20; ++i)
            owner.pump();
        // What is in the pipe is read before the time is up.
        stage.advance(0ms);
        EXPECT_EQ(stage->changeCount(), 0);
        stage.advance(row.wait);
        EXPECT_EQ(textOf(stage.change(1, {&owner})), row.text);
        // Nor does it hold up those that come after it.
        owner.copy("hung");
        DataClient other;
        other.copy("alive");
        ASSERT_TRUE(pumpUntil({&other}, [&] { return !other.requests().isEmpty(); }));
        stage.advance(250ms);
        EXPECT_EQ(textOf(stage.change(3, {&other})), u"alive"_s);
        EXPECT_TRUE(stage->write({u"ours"_s}));
        EXPECT_EQ(stage.paste(kText), "ours");
    }
}

TEST(WaylandOwners, anAnswerToATextFieldComesFromWhoOwnsTheClipboardByThen)
{
    WaylandStage stage;
    DataClient hung;
    DataClient other;
    hung.own(Selection::Primary, {{kText, "never told"}});
    stage.advance(0ms);
    QObject context;
    QStringList answers;
    const auto note = [&](const std::optional<QString> &text) {
        answers.append(text.value_or(u"(none)"_s));
    };
    stage->askText(Pasteboard::Selection::Primary, &context, note);
    stage->askText(Pasteboard::Selection::Primary, &context, note);
    stage.advance(0ms);
    other.own(Selection::Primary, {{kText, "told"}});
    ASSERT_TRUE(pumpUntil({&other}, [&] { return answers.size() == 2; }));
    EXPECT_EQ(answers, QStringList({u"told"_s, u"told"_s}));
}

struct LargeRow
{
    const char *name;
    qint64 useful;
    qsizetype bytes;
    qsizetype mostSent;
    qint64 toldBytes; ///< As the size of what is too large.
};

TEST(WaylandOwners, ofLargeTextsAreReadNoFurtherThanTheyCanBeOfUse)
{
    constexpr qint64 kMiB = 1024 * 1024;
    for (const LargeRow &row :
         {LargeRow{"fifty useful", 64 * kMiB, 50'000'000, 50'000'000, 0},
          LargeRow{"too large", 10'000, 50'000'000, 6 * kMiB, 0},
          LargeRow{"kept for its owner's death", 10'000, 3'000'000, 3'000'000, 3'000'000}}) {
        SCOPED_TRACE(row.name);
        WaylandStage stage;
        stage->setLargestUsefulText(row.useful);
        DataClient owner;
        owner.copy(QByteArray(row.bytes, 'x'));
        const PasteboardContents contents = stage.change(1, {&owner});
        EXPECT_EQ(contents.isTextTooLarge, row.bytes > row.useful);
        EXPECT_EQ(contents.text ? contents.text->size() : 0,
                  row.bytes > row.useful ? 0 : row.bytes);
        EXPECT_EQ(contents.tooLargeBytes.value_or(0), row.toldBytes);
        EXPECT_LE(owner.sentBytes(), row.mostSent);
    }
}

TEST(WaylandReaders, thatTakeNothingAreDroppedAloneAndTheOthersGetFiftyMegabytes)
{
    WaylandStage stage;
    stage.stopTime();
    const QString large(50'000'000, u'x');
    ASSERT_TRUE(stage->write({large}));
    DataClient hung;
    hung.manners.takesNothing = true;
    hung.ask(Selection::Clipboard, kText);
    EXPECT_EQ(stage.paste(kText).value_or(QByteArray()).size(), large.size());
    // A new write disturbs nobody who is still reading.
    DataClient late;
    late.manners.takesNothing = true;
    late.ask(Selection::Clipboard, kText);
    late.pump();
    ASSERT_TRUE(stage->write({u"new"_s}));
    EXPECT_EQ(stage.paste(kText), "new");
    late.manners.takesNothing = false;
    ASSERT_TRUE(pumpUntil({&late}, [&] { return late.answer().has_value(); }));
    EXPECT_EQ(late.answer()->size(), large.size());
    stage.advance(10s);
    hung.manners.takesNothing = false;
    ASSERT_TRUE(pumpUntil({&hung}, [&] { return hung.answer().has_value(); }));
    EXPECT_LT(hung.answer()->size(), large.size());
}

TEST(WaylandReaders, thePasteIsReadOnceMoreThanTheManagersRead)
{
    WaylandStage stage;
    stage.stopTime();
    ASSERT_TRUE(stage->write({u"pasted"_s}));
    stage->expectPaste();
    EXPECT_FALSE(stage->isPasteRead());
    EXPECT_EQ(stage.paste(kText), "pasted");
    EXPECT_TRUE(stage->isPasteRead());

    // Whatever reads what nobody pastes is a clipboard manager, and will read the next one, too.
    ASSERT_TRUE(stage->write({u"put back"_s}));
    EXPECT_EQ(stage.paste(kText), "put back");
    stage.advance(1s);
    ASSERT_TRUE(stage->write({u"pasted again"_s}));
    stage->expectPaste();
    EXPECT_EQ(stage.paste(kText), "pasted again");
    EXPECT_FALSE(stage->isPasteRead());
    EXPECT_EQ(stage.paste(kText), "pasted again");
    EXPECT_TRUE(stage->isPasteRead());
}

TEST(WaylandReaders, whatIsReadAtOnceOrBehindAWindowOfOursIsNotFetched)
{
    WaylandStage stage;
    stage.stopTime();
    QSignalSpy fetched(&stage.pasteboard(), &Pasteboard::fetched);
    stage->setFetchesTold(true);
    ASSERT_TRUE(stage->write({u"queued"_s}));
    EXPECT_EQ(stage.paste(kText), "queued");
    stage.advance(100ms);
    stage.setFront({u"Quillmarsh"_s, true});
    EXPECT_EQ(stage.paste(kText), "queued");
    stage.setFront({u"Editor"_s});
    EXPECT_EQ(stage.paste(kText), "queued");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !fetched.isEmpty(); }));
    EXPECT_EQ(fetched, QList<QVariantList>{{stage->changeCount()}});
    stage->setFetchesTold(false);
    EXPECT_EQ(stage.paste(kText), "queued");
    stage.advance(1ms);
    QCoreApplication::processEvents();
    EXPECT_EQ(fetched.size(), 1);
}

class WaylandKept : public testing::Test
{
protected:
    /// The owner copies, and the application wants that or not.
    void copy(const DataClient::Formats &formats, bool isWanted = true)
    {
        const qint64 count = m_stage->changeCount() + 1;
        m_owner.own(Selection::Clipboard, formats);
        ASSERT_TRUE(m_stage.reaches(count, {&m_owner}));
        if (isWanted)
            m_stage->acknowledge(count);
        else
            m_stage->discard(count);
    }

    WaylandStage m_stage;
    DataClient m_owner;
};

TEST_F(WaylandKept, everythingThatADeadOwnerListedOutlivesItOnceItHadRest)
{
    m_stage.stopTime();
    const DataClient::Formats formats{{kText, "text"},
                                      {u"text/html"_s, "<b>text</b>"},
                                      {u"image/png"_s, picture("png")},
                                      {u"image/bmp"_s, picture("bmp")},
                                      {u"application/x-document"_s, QByteArray(500'000, 'x')},
                                      {u"DELETE"_s, ""}};
    copy(formats);
    EXPECT_FALSE(m_owner.requests().contains(u"image/png"_s)) << "it has had no rest";
    m_stage.advance(200ms);
    ASSERT_TRUE(pumpUntil({&m_owner}, [&] {
        return m_owner.requests().contains(u"application/x-document"_s) && m_owner.isIdle();
    }));
    EXPECT_FALSE(m_owner.requests().contains(u"DELETE"_s));
    m_stage.advance(0ms);
    m_owner.die();
    for (const QString &name : {u"text/html"_s, u"image/png"_s, u"application/x-document"_s})
        EXPECT_TRUE(m_stage.isServed(formats[name], name)) << name.toStdString();
    EXPECT_EQ(QImage::fromData(m_stage.paste(u"image/bmp"_s).value_or(QByteArray())).size(),
              QSize(3, 2));
    EXPECT_EQ(m_stage->changeCount(), 1);
    EXPECT_EQ(textOf(m_stage->contents()), u"text"_s);
}

TEST_F(WaylandKept, whatADeadOwnerLeftIsServedOnceItIsAcknowledged)
{
    m_owner.copy("in time");
    ASSERT_TRUE(m_stage.reaches(1, {&m_owner}));
    m_owner.die();
    m_stage.advance(0ms);
    EXPECT_FALSE(m_stage.isOurs());
    m_stage->acknowledge(1);
    EXPECT_TRUE(m_stage.isServed("in time"));
    // Whoever empties it now means it: it is ours, and we live.
    DataClient other;
    other.empty(Selection::Clipboard);
    ASSERT_TRUE(m_stage.reaches(2, {&other}));
    EXPECT_FALSE(m_stage->contents());
    m_stage.advance(0ms);
    EXPECT_EQ(m_stage.paste(kText), std::nullopt);
}

TEST_F(WaylandKept, neitherSecretsNorWhatIsDiscardedNorWhatIsClearedOutlivesItsOwner)
{
    copy({{kText, "before"}});
    copy({{kText, "hunter2"}, {CopyQuestions::kSecretMark, "secret"}});
    EXPECT_FALSE(m_owner.requests().contains(CopyQuestions::kSecretMark));
    EXPECT_EQ(m_owner.requests().count(kText), 1);
    m_owner.die();
    m_stage.advance(1s);
    EXPECT_EQ(m_stage.paste(kText), std::nullopt);

    DataClient second;
    second.copy("ignored");
    ASSERT_TRUE(m_stage.reaches(3, {&second}));
    m_stage->discard(3);
    second.die();
    m_stage.advance(1s);
    EXPECT_EQ(m_stage.paste(kText), std::nullopt);

    DataClient third;
    third.copy("cleared by us");
    ASSERT_TRUE(m_stage.reaches(4, {&third}));
    m_stage->acknowledge(4);
    m_stage->clear();
    third.die();
    m_stage.advance(1s);
    EXPECT_EQ(m_stage.paste(kText), std::nullopt);
    EXPECT_EQ(m_stage->changeCount(), 5);
}

TEST(WaylandPrimary, isOfferedForTerminalsAndTakenFromTheWindowThatItWasMarkedIn)
{
    WaylandStage stage;
    DataClient terminal;
    ASSERT_TRUE(stage->write({u"for a terminal"_s, u"{\\rtf1}"_s}));
    stage->expectPaste();
    stage->offerPrimary();
    EXPECT_EQ(stage.paste(kText, Selection::Primary), "for a terminal");
    // It is noted behind the last byte.
    stage.advance(0ms);
    EXPECT_TRUE(stage->isPasteRead());
    EXPECT_EQ(stage.paste(u"text/rtf"_s, Selection::Primary), std::nullopt);

    stage.setFront({u"Terminal"_s, false, 7});
    terminal.own(Selection::Primary, {{kText, "marked"}});
    stage.advance(0ms);
    stage->publishPrimary(8);
    stage.advance(0ms);
    EXPECT_EQ(stage->changeCount(), 1) << "it was marked elsewhere";
    stage->publishPrimary(7);
    const PasteboardContents contents = stage.change(2, {&terminal});
    EXPECT_EQ(contents.text, u"marked"_s);
    EXPECT_EQ(contents.applicationName, u"Terminal"_s);
    EXPECT_EQ(stage.paste(kText), "for a terminal");
}

TEST(WaylandLife, aLostCompositorIsLoggedOnceAndEverythingElseIsRefusedQuietly)
{
    WaylandStage stage;
    ASSERT_TRUE(stage->write({u"ours"_s}));
    ExpectedWarnings::expect(u"The compositor is gone"_s);
    stage.loseCompositor();
    ASSERT_TRUE(pumpUntil({}, [] { return !ExpectedWarnings::messages().isEmpty(); }));
    EXPECT_FALSE(stage->write({u"lost"_s}));
    EXPECT_EQ(textOf(stage->contents()), u"ours"_s);
    stage->offerPrimary();
    stage->publishPrimary(0);
    stage->expectPaste();
    stage->clear();
    EXPECT_EQ(stage->changeCount(), 2);
    stage->shutDown();
    EXPECT_FALSE(stage->write({u"too late"_s}));
}

} // namespace

std::unique_ptr<PasteboardStage> PasteboardStage::make()
{
    return std::make_unique<WaylandStage>();
}
