#include "platform/x11/windows/X11OpenWindows.h"

#include "ForeignProgram.h"
#include "ForeignWindow.h"

#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

TEST(X11OpenWindows, theProgramsOfAllWindowsAreToldButOurs)
{
    const X11OpenWindows windows;
    const auto classes = [&windows] {
        QStringList told;
        for (const WindowIdentity &identity : windows.identities()) {
            EXPECT_FALSE(identity.processName.isEmpty());
            told.append(identity.resourceClass);
        }
        std::sort(told.begin(), told.end());
        return told;
    };
    const auto become = [&classes](const QStringList &expected) {
        return QTest::qWaitFor([&] { return classes() == expected; });
    };
    QWidget ours;
    ours.show();
    ForeignWindow oursToo("Ours");
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&ours));
    ASSERT_TRUE(oursToo.show());
    EXPECT_TRUE(become({})) << classes().join(u' ').toStdString();

    ForeignProgram reed;
    ForeignProgram sedge;
    ASSERT_TRUE(reed.tell("window Reed"));
    ASSERT_TRUE(sedge.tell("window Sedge"));
    // What it is called goes by the window that it belongs to.
    ASSERT_TRUE(sedge.tell("dialog Question"));
    const QStringList both{QStringLiteral("Reed"), QStringLiteral("Sedge"),
                           QStringLiteral("Sedge")};
    EXPECT_TRUE(become(both)) << classes().join(u' ').toStdString();
    EXPECT_EQ(windows.identities().first().processName, ForeignProgram::processName());

    ASSERT_TRUE(sedge.tell("close"));
    EXPECT_TRUE(become({QStringLiteral("Reed")})) << classes().join(u' ').toStdString();
}

} // namespace
