#include "Clipboard/window/ClipInfoLine.h"
#include "Clipboard/window/PreviewPane.h"
#include "Clipboard/window/VisibleCharacters.h"
#include "WindowRig.h"

#include <QTimeZone>

namespace {

using ClipInfoLineTest = WindowRig;

TEST_F(ClipInfoLineTest, itTellsWhereWhenHowMuchAndHowOften)
{
    add(QStringLiteral("hello"));
    delegate.launch();
    const ClipInfoLine &line = *controller->textFieldView()->infoLine();
    EXPECT_EQ(line.text(),
              QStringLiteral("Editor  ·  just now  ·  5 characters  ·  not pasted yet"));
    EXPECT_FALSE(line.toolTip().isEmpty());

    // The stored count lags one behind, so the line must not repeat it.
    controller->paste();
    memory.clock.advance(std::chrono::minutes(5));
    delegate.launch();
    EXPECT_TRUE(line.text().contains(QStringLiteral("5 minutes ago"))) << line.text().toStdString();
    EXPECT_TRUE(line.text().endsWith(QStringLiteral("pasted once"))) << line.text().toStdString();
    controller->paste();
    delegate.launch();
    EXPECT_TRUE(line.text().endsWith(QStringLiteral("pasted 2 times")))
        << line.text().toStdString();
    controller->deleteItem();
    EXPECT_EQ(line.text(), QString());
    EXPECT_EQ(line.toolTip(), QString());
}

TEST_F(ClipInfoLineTest, charactersAreWhatPeopleSee)
{
    struct Row
    {
        QString text;
        qint64 count;
        qsizetype emojiLength; ///< UTF-16 units that belong to emoji.
    };
    const Row rows[] = {
        {QStringLiteral("a\r\nb\n"), 4, 0},
        {QString::fromUcs4(U"e\u0301"), 1, 0},
        {QString::fromUcs4(U"\U0001F1E9\U0001F1EA\U0001F1EF\U0001F1F5"), 2, 8},
        {QString::fromUcs4(U"x\U0001F468\u200D\U0001F469\u200D\U0001F467"), 2, 8},
        {QString::fromUcs4(U"\u2764\uFE0F 1\uFE0F\u20E3 \u2764\uFE0E 12"), 8, 5},
        {QString::fromUcs4(U"\U0001F3F4\U000E0067\U000E0062\U000E007F."), 2, 8},
        {QString::fromUcs4(U"\u65E5\u672C"), 2, 0},
    };
    for (const Row &row : rows) {
        EXPECT_EQ(VisibleCharacters::count(row.text), row.count) << row.text.toStdString();
        qsizetype length = 0;
        for (const VisibleCharacters::Run &run : VisibleCharacters::emoji(row.text))
            length += run.length;
        EXPECT_EQ(length, row.emojiLength) << row.text.toStdString();
    }
    constexpr qsizetype kSlice = VisibleCharacters::kCountedAtOnce;
    // What a character consists of may lie on both sides of where a long count pauses.
    for (const Row &row : rows) {
        const QString text = row.text + u'.';
        for (qsizetype before = kSlice - text.size(); before <= kSlice; ++before)
            EXPECT_EQ(VisibleCharacters::count(QString(before, u'a') + text),
                      before + row.count + 1)
                << row.text.toStdString() << " behind " << before;
    }
    add(rows[3].text);
    delegate.launch();
    EXPECT_TRUE(
        controller->textFieldView()->infoLine()->text().contains(QStringLiteral("2 characters")));
}

TEST_F(ClipInfoLineTest, timesAreToldAsAPersonWould)
{
    const QDateTime now(QDate(2026, 3, 10), QTime(15, 0), QTimeZone::systemTimeZone());
    struct Row
    {
        qint64 secondsAgo;
        const char *told;
    };
    const Row kRows[] = {
        {-30, "just now"},          {0, "just now"},           {44, "just now"},
        {45, "1 minute ago"},       {600, "10 minutes ago"},   {3600, "1 hour ago"},
        {9 * 3600, "9 hours ago"},  {2 * 86400, "2 days ago"}, {6 * 86400, "6 days ago"},
        {30 * 86400, "8 Feb 2026"},
    };
    for (const Row &row : kRows)
        EXPECT_EQ(ClipInfoLine::relativeTime(now.addSecs(-row.secondsAgo), now),
                  QLatin1String(row.told));
    EXPECT_TRUE(ClipInfoLine::relativeTime(now.addSecs(-16 * 3600), now)
                    .startsWith(QStringLiteral("yesterday")));
}

} // namespace
