#include "Clipboard/LaunchAtLogin.h"

#include "platform/memory/MemoryDesktopLists.h"

#include <gtest/gtest.h>

namespace {

const QString kUs = QStringLiteral("/usr/bin/quillmarsh");
const QString kOther = QStringLiteral("/usr/bin/other");
const QString kGone;

struct Change
{
    const char *name;
    QStringList before;
    bool isOn;
    QStringList after;
    const char *printed;
};

class LaunchAtLoginTest : public testing::Test
{
protected:
    void fill(const QStringList &programs)
    {
        for (const QString &program : programs)
            m_items.append(program);
    }

    QStringList m_trace;
    MemoryLoginItems m_items;
    LaunchAtLogin m_launchAtLogin{m_items, [this](const QString &line) { m_trace.append(line); }};
};

class LaunchAtLoginChange : public LaunchAtLoginTest, public testing::WithParamInterface<Change>
{
};

TEST_P(LaunchAtLoginChange, leavesTheListAndTellsIt)
{
    fill(GetParam().before);
    testing::internal::CaptureStdout();
    m_launchAtLogin.launchAtStartup(GetParam().isOn);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), GetParam().printed);
    EXPECT_EQ(m_items.programs(), GetParam().after);
}

const Change kChanges[] = {
    {"onIntoAnEmptyList", {}, true, {kUs}, "Application was added to login items\n"},
    {"onMovesOurEntryToTheEnd",
     {kUs, kOther},
     true,
     {kOther, kUs},
     "There are 2 login items\nURL Ref: quillmarsh\nApplication was added to login items\n"},
    {"onTwiceLeavesOne",
     {kOther, kUs},
     true,
     {kOther, kUs},
     "There are 2 login items\nURL Ref: other\nURL Ref: quillmarsh\n"
     "Application was added to login items\n"},
    {"offWhenAbsent", {kOther}, false, {kOther}, "There are 1 login items\nURL Ref: other\n"},
    {"offFromAnEmptyList", {}, false, {}, ""},
    {"offRemovesTheFirstOfTwo",
     {kUs, kOther, kUs},
     false,
     {kOther, kUs},
     "There are 3 login items\nURL Ref: quillmarsh\nApplication was removed from login items\n"},
    {"anEntryThatLeadsNowhereIsPassedOver",
     {kGone, kUs},
     false,
     {kGone},
     "There are 2 login items\nUnknown login application\nURL Ref: quillmarsh\n"
     "Application was removed from login items\n"},
};

INSTANTIATE_TEST_SUITE_P(Table, LaunchAtLoginChange, testing::ValuesIn(kChanges),
                         [](const auto &row) { return row.param.name; });

TEST_F(LaunchAtLoginTest, theLookupTellsOurEntryAndTheListsEnd)
{
    using Point = LaunchAtLogin::InsertionPoint;
    EXPECT_EQ(m_launchAtLogin.applicationIsInStartUpItems(),
              LaunchAtLogin::Lookup(std::nullopt, Point{}))
        << "before the first";
    fill({kUs, kOther});
    const QList<LoginItem> items = m_items.snapshot().value();
    EXPECT_EQ(m_launchAtLogin.applicationIsInStartUpItems(),
              LaunchAtLogin::Lookup(items.first(), Point{items.last()}));
    EXPECT_EQ(m_trace.mid(2), (QStringList{QStringLiteral("itemReferencesInLoginItems 1"),
                                           QStringLiteral("itemReferencesInLoginItems 2")}));
}

TEST_F(LaunchAtLoginTest, withoutAPlaceOfOurOwnNothingChanges)
{
    m_items.setApplicationPath(std::nullopt);
    fill({kOther});
    testing::internal::CaptureStdout();
    m_launchAtLogin.launchAtStartup(true);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(m_items.programs(), QStringList{kOther});
    EXPECT_EQ(m_trace, QStringList{QStringLiteral("itemReferencesInLoginItems 3")});
}

TEST_F(LaunchAtLoginTest, aListThatCannotBeReadEndsTheProgram)
{
    m_items.setAvailable(false);
    EXPECT_DEATH(m_launchAtLogin.launchAtStartup(false), "login items cannot be read");
}

} // namespace
