#include "Clipboard/preferences/PreferencesApplicationViewController.h"

#include "Clipboard/preferences/ApplicationChooser.h"
#include "platform/KeyedArchive.h"
#include "platform/memory/MemoryPlatform.h"

#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

const QString kKey = QStringLiteral("applicationsToIgnore");

ArchivedObject archived(const char *className, const QVariantMap &fields)
{
    return {QString::fromLatin1(className), {QString::fromLatin1(className)}, fields};
}

class ApplicationsPane : public testing::Test
{
protected:
    void add(const char *name)
    {
        pane.openPanelEnded(true, QString::fromLatin1(name) + QStringLiteral(".app"),
                            QStringLiteral("/applications/%1.desktop").arg(QLatin1String(name)));
    }
    QStringList names() const
    {
        QStringList list;
        for (const ApplicationDef &application : pane.data())
            list.append(application.name);
        return list;
    }
    QString shownAt(int row) const
    {
        return pane.tableView->model()->index(row, 0).data().toString();
    }

    MemoryPlatform memory;
    PreferencesApplicationViewController pane{memory.settings, memory.installedApplications,
                                              memory.workspace};
};

TEST_F(ApplicationsPane, comesBackWithTheSameRowsInTheSameOrder)
{
    add("Mail");
    add("1Password 7");
    add("A.Dotted.Name");
    PreferencesApplicationViewController again(memory.settings, memory.installedApplications,
                                               memory.workspace);
    again.loadPreferences();
    EXPECT_EQ(again.data(), pane.data());
    EXPECT_EQ(names(), QStringList({QStringLiteral("Mail"), QStringLiteral("1Password 7"),
                                    QStringLiteral("A.Dotted.Name")}));
}

TEST_F(ApplicationsPane, archivesTheNameThatOtherReadersKnow)
{
    add("Mail");
    const auto objects = KeyedArchive::unarchiveArray(memory.settings.value(kKey).toByteArray());
    ASSERT_TRUE(objects && objects->size() == 1);
    EXPECT_EQ(objects->first().className, QStringLiteral("Quillmarsh.ApplicationDef"));
    EXPECT_EQ(objects->first().classes, QStringList({QStringLiteral("Quillmarsh.ApplicationDef"),
                                                     QStringLiteral("NSObject")}));
    EXPECT_EQ(objects->first().fields.value(QStringLiteral("path")),
              QVariant(QStringLiteral("/applications/Mail.desktop")));
}

struct Undecodable
{
    const char *name;
    QVariant stored;
};

class UndecodableList : public testing::TestWithParam<Undecodable>
{
};

TEST_P(UndecodableList, endsTheProgramWithALineThatNamesKeyAndFile)
{
    EXPECT_DEATH(
        {
            MemoryPlatform memory;
            memory.settings.setValue(kKey, GetParam().stored);
            PreferencesApplicationViewController pane(memory.settings, memory.installedApplications,
                                                      memory.workspace);
            pane.loadPreferences();
        },
        "\"applicationsToIgnore\" in memory cannot be read");
}

const QVariantMap kFields{{QStringLiteral("name"), QStringLiteral("Mail")},
                          {QStringLiteral("path"), QStringLiteral("/mail")}};

INSTANTIATE_TEST_SUITE_P(
    Stored, UndecodableList,
    testing::Values(
        Undecodable{"garbage", QByteArray("bplist00 and no more")},
        Undecodable{"empty", QByteArray("")}, Undecodable{"noData", QStringLiteral("Mail")},
        Undecodable{"noArray",
                    KeyedArchive::archive(archived("Quillmarsh.ApplicationDef", kFields))},
        Undecodable{"otherClass",
                    KeyedArchive::archive(QList{archived("Quillmarsh.Other", kFields)})},
        Undecodable{"noPath", KeyedArchive::archive(QList{
                                  archived("Quillmarsh.ApplicationDef",
                                           {{QStringLiteral("name"), QStringLiteral("Mail")}})})}),
    [](const auto &row) { return std::string(row.param.name); });

struct Ended
{
    const char *name;
    bool isOk;
    const char *file;
    const char *added; ///< Null: nothing.
};

class ChooserEnd : public ApplicationsPane, public testing::WithParamInterface<Ended>
{
};

TEST_P(ChooserEnd, addsTheTextBeforeTheLastDot)
{
    add("Mail");
    pane.openPanelEnded(GetParam().isOk, QString::fromLatin1(GetParam().file),
                        QStringLiteral("/elsewhere"));
    QStringList expected{QStringLiteral("Mail")};
    if (GetParam().added)
        expected.append(QString::fromLatin1(GetParam().added));
    EXPECT_EQ(names(), expected);
}

INSTANTIATE_TEST_SUITE_P(Ends, ChooserEnd,
                         testing::Values(Ended{"chosen", true, "Notes.app", "Notes"},
                                         Ended{"manyDots", true, "Foo.Bar.app", "Foo.Bar"},
                                         Ended{"noDot", true, "Notes", nullptr},
                                         Ended{"cancelled", false, "Notes.app", nullptr},
                                         Ended{"sameName", true, "Mail.app", nullptr},
                                         Ended{"otherCase", true, "mail.app", "mail"}),
                         [](const auto &row) { return std::string(row.param.name); });

TEST_F(ApplicationsPane, aLargerFontMakesHigherRowsAndASmallOneNoLowerOnes)
{
    add("Mail");
    pane.view()->show();
    QFont font = pane.view()->font();
    for (const int size : {40, 8}) {
        font.setPixelSize(size);
        pane.view()->setFont(font);
        const int textHeight = QFontMetrics(font).height();
        EXPECT_EQ(pane.tableView->rowHeight(0), std::max(20, textHeight));
    }
}

TEST_F(ApplicationsPane, removesTheSelectedRowWithItsButtonAndWithDelete)
{
    add("Mail");
    add("Notes");
    add("Music");
    pane.view()->show();
    EXPECT_EQ(pane.numberOfRowsInTableView(), 3);
    EXPECT_EQ(pane.tableView->rowHeight(1), 20);
    EXPECT_EQ(shownAt(1), QStringLiteral("Notes"));
    pane.removeApplication();
    EXPECT_EQ(pane.numberOfRowsInTableView(), 3);

    // As the keyboard comes to the table, which makes its first row the current one.
    pane.tableView->selectionModel()->setCurrentIndex(pane.tableView->model()->index(0, 0),
                                                      QItemSelectionModel::NoUpdate);
    QTest::keyClick(pane.tableView, Qt::Key_Delete);
    pane.removeApplication();
    EXPECT_EQ(pane.numberOfRowsInTableView(), 3);

    pane.tableView->selectRow(1);
    QTest::keyClick(pane.tableView, Qt::Key_Delete);
    EXPECT_EQ(names(), QStringList({QStringLiteral("Mail"), QStringLiteral("Music")}));
    pane.tableView->selectRow(0);
    pane.removeApplication();
    pane.removeApplication();
    EXPECT_EQ(names(), QStringList());
    const auto left = KeyedArchive::unarchiveArray(memory.settings.value(kKey).toByteArray());
    ASSERT_TRUE(left);
    EXPECT_TRUE(left->isEmpty());
}

TEST_F(ApplicationsPane, saysOfAProgramKnownByItsFileOnlyThatItIs)
{
    pane.openPanelEnded(true, QStringLiteral("tool.app"), QStringLiteral("/opt/tool"));
    pane.openPanelEnded(true, QStringLiteral("XTerm.app"), QStringLiteral("/usr/bin/xterm"));
    pane.openPanelEnded(true, QStringLiteral("Far.app"), QString());
    pane.view();
    EXPECT_EQ(shownAt(0), QStringLiteral("tool (recognised by this name only)"));
    EXPECT_EQ(shownAt(1), QStringLiteral("XTerm"));
    EXPECT_EQ(shownAt(2), QStringLiteral("Far"));
    EXPECT_EQ(names().first(), QStringLiteral("tool"));
}

TEST_F(ApplicationsPane, offersInstalledPasswordManagersOnlyWhileTheListIsEmpty)
{
    memory.installedApplications.setApplications(
        {{QStringLiteral("Editor"), QStringLiteral("/e"), {}, false},
         {QStringLiteral("Vault"), QStringLiteral("/v"), {}, true},
         {QStringLiteral("Safe"), QStringLiteral("/s"), {}, true}});
    pane.loadPreferences();
    pane.view()->show();
    auto *suggest = pane.view()->findChild<QPushButton *>();
    ASSERT_TRUE(suggest && suggest->isVisible());
    EXPECT_TRUE(suggest->text().contains(QStringLiteral("Vault and Safe")));
    EXPECT_EQ(names(), QStringList());
    QTest::mouseClick(suggest, Qt::LeftButton);
    EXPECT_EQ(names(), QStringList({QStringLiteral("Vault"), QStringLiteral("Safe")}));
    EXPECT_FALSE(suggest->isVisible());
}

TEST_F(ApplicationsPane, addsWhatIsChosenWhileEverythingElseGoesOn)
{
    memory.installedApplications.setApplications(
        {{QStringLiteral("Editor"), QStringLiteral("/e.desktop"), {}, false}});
    pane.view()->show();
    pane.addApplication();
    ApplicationChooser *chooser = pane.chooser();
    ASSERT_TRUE(chooser);
    EXPECT_FALSE(chooser->isModal());
    pane.addApplication();
    EXPECT_EQ(pane.chooser(), chooser);
    QTest::keyClick(chooser, Qt::Key_Return);
    EXPECT_EQ(pane.data(),
              QList<ApplicationDef>({{QStringLiteral("Editor"), QStringLiteral("/e.desktop")}}));
    EXPECT_TRUE(QTest::qWaitFor([this] { return !pane.chooser(); }));
}

} // namespace
