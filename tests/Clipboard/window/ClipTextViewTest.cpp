#include "Clipboard/window/ClipTextView.h"
#include "Clipboard/window/ClipRowDelegate.h"
#include "Clipboard/window/EmojiFont.h"
#include "Clipboard/window/SearchField.h"
#include "Clipboard/window/VisibleCharacters.h"
#include "looks/TextField.h"

#include "WindowRig.h"

#include <QLabel>
#include <QLocale>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

TEST(ClipTextView, aTextOfUsualSizeIsShownWhole)
{
    ClipTextView view;
    const QString text = u"one\ntwo  \n\n\tthree שלום 🎉"_s;
    view.setString(text);
    EXPECT_EQ(view.toPlainText(), text);
    EXPECT_TRUE(view.moreLabel()->isHidden());
    EXPECT_TRUE(view.isReadOnly());
}

TEST(ClipTextView, whatASearchHasFoundIsMarkedAndInSight)
{
    ClipTextView view;
    view.resize(400, 400);
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    const auto isInSight = [&view](qsizetype place) {
        QTextCursor cursor(view.document());
        cursor.setPosition(static_cast<int>(place));
        return view.viewport()->rect().contains(view.cursorRect(cursor));
    };
    const QString lines = u"reed and sedge\n"_s.repeated(3'000);
    const QString text = lines + u"a bittern\n"_s + lines + u"a bittern"_s;
    view.setString(u"bittern"_s);
    view.setFound(FoundPlaces(u"BITTERN"_s));
    EXPECT_EQ(view.verticalScrollBar()->value(), 0);
    view.setString(text);
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.extraSelections().size() == 2; }));
    EXPECT_TRUE(isInSight(lines.size() + 2));
    EXPECT_FALSE(view.isMoved());
    view.setFound(FoundPlaces(u"sedge"_s));
    EXPECT_TRUE(isInSight(9));
    view.setFound(FoundPlaces(u"bittern"_s));
    EXPECT_TRUE(isInSight(lines.size() + 2));
    view.verticalScrollBar()->setValue(7);
    view.setFound(FoundPlaces(u"bitter"_s));
    EXPECT_EQ(view.verticalScrollBar()->value(), 7) << "somebody reads there";
    EXPECT_EQ(view.extraSelections().size(), 2);
    view.setFound(FoundPlaces());
    EXPECT_TRUE(view.extraSelections().isEmpty());
}

TEST(ClipTextView, aClipOfUpToAMebibyteIsShownWholeAndOfALargerOneTheBeginning)
{
    constexpr qsizetype kMax = ClipTextView::kShownBytes;
    struct Row
    {
        const char *name;
        QString text;
        qsizetype shown;
    };
    const QString lines = QString(99, u'x') + u'\n';
    const Row kRows[] = {
        {"a line beyond the default limit", QString(4'001, u'x') + u"\nend"_s, 4'005},
        {"many lines", lines.repeated(5'000), 500'000},
        {"lines and a long one among them",
         lines + QString(300'000, u'y') + u'\n' + lines.repeated(200), 320'101},
        {"a whole mebibyte in lines", lines.repeated(kMax / 100 + 1).left(kMax), kMax},
        {"one byte more", lines.repeated(kMax / 100 + 1).left(kMax + 1), kMax},
        {"characters of two bytes", QString(kMax / 2 + 7, u'é'), kMax / 2},
        {"lines that end in their own ways",
         (QString(25'000, u'x') + u"\r\na\u2029\rb "_s).repeated(9), 9 * 25'007},
        {"a character of four bytes across the bound", QString(kMax - 2, u'x') + u"🎉🎉"_s, kMax - 2},
        {"and across what is shown at once",
         QString(ClipTextView::kShownAtOnce - 1, u'x') + u"🎉🎉"_s, ClipTextView::kShownAtOnce + 3},
        {"five million characters on one line", QString(5'000'000, u'x'), kMax},
    };
    for (const Row &row : kRows) {
        ClipTextView view;
        view.resize(400, 400);
        view.setString(row.text);
        EXPECT_LE(view.toPlainText().size(), ClipTextView::kShownAtOnce) << row.name;
        QString shown = row.text.left(row.shown);
        shown.replace(u"\r\n"_s, u"\n"_s).replace(QRegularExpression(u"[\r\u2029]"_s), u"\n"_s);
        const auto copied = [&view] {
            view.selectAll();
            return TextField::of(&view)->selectedText();
        };
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return view.document()->characterCount() > shown.size(); }, 60'000))
            << row.name;
        EXPECT_TRUE(copied() == shown) << row.name;
        const qint64 rest = VisibleCharacters::count(QStringView(row.text).mid(row.shown));
        EXPECT_EQ(view.moreLabel()->isHidden(), rest == 0) << row.name;
        const auto isRestTold = [&] {
            return rest == 0 || view.moreLabel()->text().contains(QLocale().toString(rest));
        };
        EXPECT_TRUE(QTest::qWaitFor(isRestTold, 60'000))
            << row.name << ": " << view.moreLabel()->text().toStdString();
        for (QTextBlock block = view.document()->begin(); block.isValid(); block = block.next())
            EXPECT_LE(block.length() - 1, ClipTextView::kShownAtOnce) << row.name;
        view.setString(u"short"_s);
        QCoreApplication::processEvents();
        EXPECT_EQ(view.toPlainText().toStdString(), "short") << row.name;
        EXPECT_TRUE(view.moreLabel()->isHidden()) << row.name;
    }
}

TEST(ClipTextView, aLongLineReadsTheWayItBegan)
{
    ClipTextView view;
    view.setString(u"שלום "_s + QString(12'000, u'x') + u"\nend"_s);
    ASSERT_TRUE(QTest::qWaitFor([&] { return view.document()->blockCount() == 3; }));
    const QTextBlock second = view.document()->begin().next();
    EXPECT_EQ(second.textDirection(), Qt::RightToLeft);
    EXPECT_EQ(second.next().textDirection(), Qt::LeftToRight);
}

TEST(ClipTextView, whatCannotBeDrawnDoesNotHideWhatFollows)
{
    ClipTextView view;
    view.setString(u"before"_s + QChar(u'\0') + u"after"_s);
    EXPECT_EQ(view.toPlainText(), u"before\uFFFDafter"_s);
}

TEST(ClipRowDelegate, aRowShowsSomethingToRecognise)
{
    struct Row
    {
        const char *name;
        QString text;
        QString shown;
    };
    const Row kRows[] = {
        {"plain text", u"plain text"_s, u"plain text"_s},
        {"leading blanks of all kinds", u" \t\r\u2028\u00a0 word"_s, u"word"_s},
        {"inner breaks become blanks", u"a\r\tb\u2029c"_s, u"a  b c"_s},
        {"only blanks", u" \t "_s, u"(blank)"_s},
        {"the rest of a long text is not looked at", QString(1'000'000, u'x'), QString(400, u'x')},
        {"no half of a character", QString(399, u'x') + u"🎉"_s, QString(399, u'x')},
    };
    for (const Row &row : kRows)
        EXPECT_EQ(ClipRowDelegate::recognisableText(row.text), row.shown) << row.name;
    EXPECT_EQ(ClipRowDelegate::textOnOneLine(u"\n one\r\n two\n\nthree \n"_s),
              u"one⏎ two⏎⏎three"_s);
    EXPECT_EQ(ClipRowDelegate::textOnOneLine(u"\n"_s), u"(blank)"_s);
    EXPECT_EQ(ClipRowDelegate::textOnOneLine(u"1\uFE0F\u20E3 \u2764\uFE0F"_s),
              u"1\u20E3 \u2764\uFE0F"_s);
}

TEST(SearchField, emojiComeFromTheColourFontAndAreTypedAround)
{
    if (EmojiFont::format().fontFamilies().isNull())
        GTEST_SKIP() << "no colour font is installed";
    SearchField field;
    field.resize(400, field.height());
    ClipColors colors;
    colors.text = Qt::black;
    field.setColors(colors);
    const auto isColored = [&field] {
        const QImage image = field.grab().toImage();
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y).hsvSaturation() > 128)
                    return true;
            }
        }
        return false;
    };
    field.setText(u"love"_s);
    EXPECT_FALSE(isColored());
    // Fonts of letters have this one, too, in outline.
    field.insert(u"\u2764\uFE0F"_s);
    EXPECT_TRUE(isColored());
    QTest::keyClick(&field, Qt::Key_Home);
    QTest::keyClicks(&field, u"my "_s);
    EXPECT_EQ(field.text(), u"my love\u2764\uFE0F"_s);
    EXPECT_EQ(field.cursorPosition(), 3);
    EXPECT_TRUE(isColored());
    QTest::keyClick(&field, Qt::Key_End);
    QTest::keyClick(&field, Qt::Key_Backspace);
    QTest::keyClick(&field, Qt::Key_Backspace);
    EXPECT_FALSE(isColored());
}

TEST_F(WindowRig, aRowDrawsTheLineBreaksThatItsTextHasNot)
{
    add(u"  one\ntwo"_s);
    delegate.launch();
    EXPECT_EQ(controller->drawnText(0), u"one\ntwo"_s);
    EXPECT_EQ(controller->tableView(ViewController::TableColumn::Value, 0), u"onetwo"_s);
    EXPECT_EQ(controller->drawnText(1), QString());
}

} // namespace
