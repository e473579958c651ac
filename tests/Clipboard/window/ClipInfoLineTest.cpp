#include "Clipboard/window/ClipInfoLine.h"
#include "Clipboard/window/PreviewPane.h"
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
