#include "Clipboard/window/ClipTextView.h"
#include "Clipboard/window/ClipRowDelegate.h"

#include <QLabel>
#include <QLocale>

#include <gtest/gtest.h>

namespace {

TEST(ClipTextView, aTextOfUsualSizeIsShownWhole)
{
    ClipTextView view;
    const QString text = QStringLiteral("one\ntwo  \n\n\tthree שלום 🎉");
    view.setString(text);
    EXPECT_EQ(view.toPlainText(), text);
    EXPECT_TRUE(view.moreLabel()->isHidden());
    EXPECT_TRUE(view.isReadOnly());
}

TEST(ClipTextView, onlyABoundedBeginningIsLaidOut)
{
    struct Row
    {
        const char *name;
        QString text;
        qsizetype shown;
    };
    const Row kRows[] = {
        {"fifty million characters on one line", QString(50'000'000, u'x'),
         ClipTextView::kShownOfLine},
        {"many long lines", QString(QString(99, u'x') + u'\n').repeated(1'000),
         ClipTextView::kShownCharacters},
        {"many short lines", QStringLiteral("x\n").repeated(10'000),
         2 * ClipTextView::kShownLines - 1},
        {"a character of two units across the bound",
         QString(ClipTextView::kShownOfLine - 1, u'x') + QStringLiteral("🎉🎉"),
         ClipTextView::kShownOfLine - 1},
    };
    for (const Row &row : kRows) {
        ClipTextView view;
        view.resize(400, 400);
        view.setString(row.text);
        EXPECT_EQ(view.toPlainText(), row.text.left(row.shown)) << row.name;
        EXPECT_FALSE(view.moreLabel()->isHidden()) << row.name;
        EXPECT_TRUE(
            view.moreLabel()->text().contains(QLocale().toString(row.text.size() - row.shown)))
            << row.name << ": " << view.moreLabel()->text().toStdString();
        view.setString(QStringLiteral("short"));
        EXPECT_TRUE(view.moreLabel()->isHidden()) << row.name;
    }
}

TEST(ClipTextView, whatCannotBeDrawnDoesNotHideWhatFollows)
{
    ClipTextView view;
    view.setString(QStringLiteral("before") + QChar(u'\0') + QStringLiteral("after"));
    EXPECT_EQ(view.toPlainText(), QStringLiteral("before\uFFFDafter"));
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
        {"plain text", QStringLiteral("plain text"), QStringLiteral("plain text")},
        {"leading blanks of all kinds", QStringLiteral(" \t\r\u2028\u00a0 word"),
         QStringLiteral("word")},
        {"inner breaks become blanks", QStringLiteral("a\r\tb\u2029c"), QStringLiteral("a  b c")},
        {"only blanks", QStringLiteral(" \t "), QStringLiteral("(blank)")},
        {"the rest of a long text is not looked at", QString(1'000'000, u'x'), QString(400, u'x')},
        {"no half of a character", QString(399, u'x') + QStringLiteral("🎉"), QString(399, u'x')},
    };
    for (const Row &row : kRows)
        EXPECT_EQ(ClipRowDelegate::recognisableText(row.text), row.shown) << row.name;
}

} // namespace
