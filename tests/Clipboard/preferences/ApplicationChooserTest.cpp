#include "Clipboard/preferences/ApplicationChooser.h"

#include "platform/memory/MemoryPlatform.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace {

/// Counts the icons that are asked for.
class CountedApplications : public MemoryInstalledApplications
{
public:
    QIcon icon(const InstalledApplication &application) override
    {
        ++icons;
        return MemoryInstalledApplications::icon(application);
    }

    int icons = 0;
};

class Chooser : public testing::Test
{
protected:
    void open(int count)
    {
        QList<InstalledApplication> list;
        for (int i = 0; i < count; ++i)
            list.append({QStringLiteral("Application %1").arg(i, 4, 10, QLatin1Char('0')),
                         QStringLiteral("/%1.desktop").arg(i),
                         {},
                         false});
        applications.setApplications(list);
        chooser = std::make_unique<ApplicationChooser>(applications);
        ended = std::make_unique<QSignalSpy>(chooser.get(), &ApplicationChooser::ended);
        chooser->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(chooser.get()));
    }
    QLineEdit &filter() { return *chooser->findChild<QLineEdit *>(); }
    QListView &list() { return *chooser->findChild<QListView *>(); }
    QVariantList end() { return ended->isEmpty() ? QVariantList() : ended->first(); }

    CountedApplications applications;
    std::unique_ptr<ApplicationChooser> chooser;
    std::unique_ptr<QSignalSpy> ended;
};

TEST_F(Chooser, narrowsTheListByTheFilterAndChoosesTheFirstThatIsLeft)
{
    open(50);
    EXPECT_EQ(chooser->windowTitle(), QStringLiteral("Choose Application"));
    QTest::keyClicks(&filter(), QStringLiteral("TION 004"));
    EXPECT_EQ(list().model()->rowCount(), 10);
    QTest::keyClick(&filter(), Qt::Key_Down);
    QTest::keyClick(&filter(), Qt::Key_Return);
    EXPECT_EQ(end(), QVariantList({true, QStringLiteral("Application 0041.app"),
                                   QStringLiteral("/41.desktop")}));
}

TEST_F(Chooser, choosesNothingWhenNothingMatches)
{
    open(3);
    QTest::keyClicks(&filter(), QStringLiteral("no such"));
    QTest::keyClick(&filter(), Qt::Key_Return);
    EXPECT_TRUE(chooser->isVisible());
    EXPECT_TRUE(ended->isEmpty());
}

TEST_F(Chooser, endsWithoutAChoiceWhenItIsCancelled)
{
    open(3);
    QTest::keyClick(chooser.get(), Qt::Key_Escape);
    EXPECT_FALSE(chooser->isVisible());
    EXPECT_EQ(end().value(0), QVariant(false));
}

TEST_F(Chooser, takesAProgramByHandAndRefusesOtherFiles)
{
    applications.addFile({QStringLiteral("tool.bin"), QStringLiteral("/opt/tool.bin"), {}, false});
    open(1);
    chooser->chooseFile(QStringLiteral("/home/letter.txt"));
    EXPECT_TRUE(chooser->isVisible());
    chooser->chooseFile(QStringLiteral("/opt/tool.bin"));
    EXPECT_EQ(end(), QVariantList(
                         {true, QStringLiteral("tool.bin.app"), QStringLiteral("/opt/tool.bin")}));
}

TEST_F(Chooser, offersFilesWithoutBlockingAndWithoutMakingFolders)
{
    open(1);
    for (auto *button : chooser->findChildren<QPushButton *>()) {
        if (button->text().contains(QStringLiteral("ther")))
            QTest::mouseClick(button, Qt::LeftButton);
    }
    auto *files = chooser->findChild<QFileDialog *>();
    ASSERT_TRUE(files && files->isVisible());
    EXPECT_FALSE(files->isModal());
    EXPECT_EQ(files->fileMode(), QFileDialog::ExistingFile);
    EXPECT_TRUE(files->testOption(QFileDialog::ReadOnly));
    EXPECT_FALSE(files->filter() & QDir::Hidden);
}

TEST_F(Chooser, drawsTheIconsInViewOnly)
{
    open(2000);
    ASSERT_TRUE(QTest::qWaitFor([this] { return applications.icons > 0; }));
    EXPECT_LT(applications.icons, 200);
}

} // namespace
