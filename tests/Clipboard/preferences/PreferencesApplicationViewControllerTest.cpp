#include "Clipboard/preferences/PreferencesApplicationViewController.h"

#include "Clipboard/preferences/ApplicationChooser.h"
#include "platform/KeyedArchive.h"
#include "platform/memory/MemoryPlatform.h"

#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using namespace Qt::StringLiterals;

const QString kKey = u"applicationsToIgnore"_s;

ArchivedObject archived(const char *className, const QVariantMap &fields)
{
    return {QString::fromLatin1(className), {QString::fromLatin1(className)}, fields};
}

class ApplicationsPane : public testing::Test
{
protected:
    void add(const char *name)
    {
        pane.openPanelEnded(true, QString::fromLatin1(name) + u".app"_s,
                            u"/applications/%1.desktop"_s.arg(QLatin1String(name)));
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
    EXPECT_EQ(names(), QStringList({u"Mail"_s, u"1Password 7"_s, u"A.Dotted.Name"_s}));
}

TEST_F(ApplicationsPane, archivesTheNameThatOtherReadersKnow)
{
    add("Mail");
    const auto objects = KeyedArchive::unarchiveArray(memory.settings.value(kKey).toByteArray());
    ASSERT_TRUE(objects && objects->size() == 1);
    EXPECT_EQ(objects->first().className, u"Quillmarsh.ApplicationDef"_s);
    EXPECT_EQ(objects->first().classes,
              QStringList({u"Quillmarsh.ApplicationDef"_s, u"NSObject"_s}));
    EXPECT_EQ(objects->first().fields.value(u"path"_s), QVariant(u"/applications/Mail.desktop"_s));
}

struct Undecodable
{
    const char *name;
    QVariant stored;
};

using UndecodableList = testing::TestWithParam<Undecodable>;

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

const QVariantMap kFields{{u"name"_s, u"Mail"_s}, {u"path"_s, u"/mail"_s}};

const Undecodable kUndecodableList[] = {
    {"garbage", QByteArray("bplist00 and no more")},
    {"empty", QByteArray("")},
    {"noData", u"Mail"_s},
    {"noArray", KeyedArchive::archive(archived("Quillmarsh.ApplicationDef", kFields))},
    {"otherClass", KeyedArchive::archive(QList{archived("Quillmarsh.Other", kFields)})},
    {"noPath", KeyedArchive::archive(
                   QList{archived("Quillmarsh.ApplicationDef", {{u"name"_s, u"Mail"_s}})})}};

INSTANTIATE_TEST_SUITE_P(Stored, UndecodableList, testing::ValuesIn(kUndecodableList),
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
    pane.openPanelEnded(GetParam().isOk, QString::fromLatin1(GetParam().file), u"/elsewhere"_s);
    QStringList expected{u"Mail"_s};
    if (GetParam().added)
        expected.append(QString::fromLatin1(GetParam().added));
    EXPECT_EQ(names(), expected);
}

const Ended kChooserEnd[] = {
    {"chosen", true, "Notes.app", "Notes"},  {"manyDots", true, "Foo.Bar.app", "Foo.Bar"},
    {"noDot", true, "Notes", nullptr},       {"cancelled", false, "Notes.app", nullptr},
    {"sameName", true, "Mail.app", nullptr}, {"otherCase", true, "mail.app", "mail"}};

INSTANTIATE_TEST_SUITE_P(Ends, ChooserEnd, testing::ValuesIn(kChooserEnd),
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
    EXPECT_EQ(shownAt(1), u"Notes"_s);
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
    EXPECT_EQ(names(), QStringList({u"Mail"_s, u"Music"_s}));
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
    pane.openPanelEnded(true, u"tool.app"_s, u"/opt/tool"_s);
    pane.openPanelEnded(true, u"XTerm.app"_s, u"/usr/bin/xterm"_s);
    pane.openPanelEnded(true, u"Far.app"_s, QString());
    pane.view();
    EXPECT_EQ(shownAt(0), u"tool (recognised by this name only)"_s);
    EXPECT_EQ(shownAt(1), u"XTerm"_s);
    EXPECT_EQ(shownAt(2), u"Far"_s);
    EXPECT_EQ(names().first(), u"tool"_s);
}

TEST_F(ApplicationsPane, offersInstalledPasswordManagersOnlyWhileTheListIsEmpty)
{
    memory.installedApplications.setApplications({{u"Editor"_s, u"/e"_s, {}, false},
                                                  {u"Vault"_s, u"/v"_s, {}, true},
                                                  {u"Safe"_s, u"/s"_s, {}, true}});
    pane.loadPreferences();
    pane.view()->show();
    auto *suggest = pane.view()->findChild<QPushButton *>();
    ASSERT_TRUE(suggest && suggest->isVisible());
    EXPECT_TRUE(suggest->text().contains(u"Vault and Safe"_s));
    EXPECT_EQ(names(), QStringList());
    QTest::mouseClick(suggest, Qt::LeftButton);
    EXPECT_EQ(names(), QStringList({u"Vault"_s, u"Safe"_s}));
    EXPECT_FALSE(suggest->isVisible());
}

TEST_F(ApplicationsPane, addsWhatIsChosenWhileEverythingElseGoesOn)
{
    memory.installedApplications.setApplications({{u"Editor"_s, u"/e.desktop"_s, {}, false}});
    pane.view()->show();
    pane.addApplication();
    ApplicationChooser *chooser = pane.chooser();
    ASSERT_TRUE(chooser);
    EXPECT_FALSE(chooser->isModal());
    pane.addApplication();
    EXPECT_EQ(pane.chooser(), chooser);
    QTest::keyClick(chooser, Qt::Key_Return);
    EXPECT_EQ(pane.data(), QList<ApplicationDef>({{u"Editor"_s, u"/e.desktop"_s}}));
    EXPECT_TRUE(QTest::qWaitFor([this] { return !pane.chooser(); }));
}

} // namespace
