#include "platform/wayland/Toplevels.h"
#include "platform/wayland/FrontNames.h"

#include "platform/ApplicationNames.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <thread>
#include <tuple>
#include <vector>

namespace {

using namespace Qt::StringLiterals;

const QString kOurs = u"org.example.Ours"_s;

/// Names applications by their ids.
class NamesById : public ApplicationNames
{
public:
    // ^ApplicationNames
    ApplicationIdentity identify(const WindowIdentity &window) const override
    {
        return {window.resourceName, false};
    }
};

/// A compositor of which the test decides what it tells.
class ToldToplevels : public Toplevels
{
public:
    ToldToplevels() : Toplevels(kOurs) {}

    /// "+a" activates the window of application a, opening it if need be; "-a" takes that away;
    /// "_a" minimizes it; "xa" closes it; "(" and ")" are our window getting the keyboard and,
    /// later, losing it; "." is that nothing is told any more.
    void perform(const QString &script)
    {
        for (const QString &step : script.split(u' ', Qt::SkipEmptyParts)) {
            const QString application = step.mid(1) == u"ours" ? kOurs : step.mid(1);
            if (step == u"(")
                holdTarget();
            else if (step == u")")
                letTargetGo();
            else if (step == u".")
                tellNoMore();
            else
                change(step.at(0), application);
        }
    }

    QString nameOf(Id id) const
    {
        const auto window = std::find_if(m_told.begin(), m_told.end(),
                                         [id](const Window &told) { return told.id == id; });
        return window == m_told.end() ? u"none"_s : window->applicationId;
    }

    // ^Toplevels
    void activate(Id window) override { m_requests.append(nameOf(window)); }

    const QStringList &requests() const { return m_requests; }

private:
    void change(QChar what, const QString &application)
    {
        auto window = std::find_if(m_told.begin(), m_told.end(), [&](const Window &told) {
            return told.applicationId == application;
        });
        if (window == m_told.end()) {
            Window opened;
            opened.id = newId();
            opened.applicationId = opened.title = application;
            window = m_told.insert(m_told.end(), opened);
        }
        if (what == u'x') {
            tellClosed(window->id);
            m_told.erase(window);
            return;
        }
        window->isActivated = what == u'+';
        window->isMinimized = what == u'_';
        tell(*window);
    }

    std::vector<Window> m_told;
    QStringList m_requests;
};

struct Row
{
    const char *name;
    QString script;
    QString target; ///< By its application.
    QString front;  ///< Likewise, as a copy is named.
};

class Told : public testing::TestWithParam<Row>
{
};

TEST_P(Told, tellsTheTargetAndWhoCopies)
{
    const NamesById names;
    const auto toplevels = std::make_shared<ToldToplevels>();
    const FrontNames front(toplevels, names);
    // What is asked in between changes nothing but the memory for the time when none is in front.
    for (const QString &part : GetParam().script.split(u'?')) {
        toplevels->perform(part);
        std::ignore = front.front();
    }
    EXPECT_EQ(toplevels->nameOf(toplevels->target()), GetParam().target);
    EXPECT_EQ(front.front().applicationName, GetParam().front);
    EXPECT_EQ(front.front().isOurs, GetParam().front == kOurs);
}

const Row kRows[] = {
    {"nothing", u""_s, u"none"_s, u""_s},
    {"theActiveOne", u"+a -a +b"_s, u"b"_s, u"b"_s},
    {"theLastOneWhileNoneIsActive", u"+a -a +b ? -b"_s, u"b"_s, u"b"_s},
    {"twoAtOnce", u"+a +b"_s, u"b"_s, u"b"_s},
    {"oneOfTwoAtOnce", u"+a +b -b"_s, u"b"_s, u"a"_s},
    {"oursInFront", u"+a -a +ours"_s, u"a"_s, kOurs},
    {"nobodyBehindOurs", u"+a ? -a +ours ? -ours"_s, u"a"_s, u""_s},
    {"closed", u"+a ? xa"_s, u"none"_s, u""_s},
    {"closedUnderOurs", u"+b -b +a -a ( xa"_s, u"none"_s, u""_s},
    {"anotherOneInItsPlace", u"+b -b +a -a ( xa +b"_s, u"none"_s, u"b"_s},
    {"byTheUserLater", u"+b -b +a -a ( xa +b )"_s, u"b"_s, u"b"_s},
    {"minimized", u"+a _a"_s, u"none"_s, u""_s},
    {"shownAgain", u"+a _a +a"_s, u"a"_s, u"a"_s},
    {"noneWhenOursCame", u"( +a"_s, u"none"_s, u"a"_s},
    {"toldNoMore", u"+a ? ."_s, u"none"_s, u""_s},
};

INSTANTIATE_TEST_SUITE_P(Windows, Told, testing::ValuesIn(kRows),
                         [](const auto &row) { return std::string(row.param.name); });

TEST(Toplevels, bringOurWindowToTheFrontAndBackFromWhoeverWasThereBefore)
{
    using namespace std::chrono_literals;
    struct Case
    {
        const char *name;
        QString script;
        int requests;
        bool isComingBack;
        std::chrono::seconds patience = 1h;
    };
    const Case cases[] = {
        {"byItself", u"-a +ours"_s, 0, false},
        {"openedBehind", u"-ours"_s, 1, true},
        {"openedBehindAndCame", u"-ours -a +ours"_s, 1, false},
        {"takenBack", u"-a +ours -ours +a"_s, 1, true},
        {"takenBackTwiceInAMoment", u"-a +ours -ours +a +a"_s, 1, true},
        {"itsTurnAgain", u"-a +ours -ours +a -a +ours"_s, 1, false},
        {"asOftenAsItInsists",
         u"-a +ours -ours +a -a +ours -ours +a -a +ours -ours +a -a +ours -ours +a"_s, 3, true},
        {"takenByAnother", u"-a +ours -ours +b"_s, 0, false},
        {"tooLate", u"-a +ours -ours +a"_s, 0, false, 0s},
    };
    for (const Case &row : cases) {
        SCOPED_TRACE(row.name);
        ToldToplevels toplevels;
        toplevels.perform(u"+b -b +a"_s);
        toplevels.activateOwn(kOurs, std::chrono::steady_clock::now() + row.patience);
        toplevels.perform(row.script);
        EXPECT_EQ(toplevels.requests(), QStringList(row.requests, kOurs));
        EXPECT_EQ(toplevels.isComingBack(kOurs), row.isComingBack);
        toplevels.leaveOwn();
        toplevels.perform(u"-a -ours +a"_s);
        EXPECT_EQ(toplevels.requests().size(), row.requests);
        EXPECT_FALSE(toplevels.isComingBack(kOurs));
    }
}

TEST(Toplevels, areAwaitedUntilTheyAreInFrontOrGone)
{
    using Place = Toplevels::Place;
    struct Case
    {
        QString meanwhile;
        Place place;
    };
    const Case cases[] = {{u"+a"_s, Place::InFront}, {u"xa"_s, Place::Gone}, {u"."_s, Place::Gone}};
    for (const Case &each : cases) {
        ToldToplevels toplevels;
        toplevels.perform(u"+a -a +ours"_s);
        const Toplevels::Id target = toplevels.target();
        EXPECT_EQ(toplevels.awaitFront(target, std::chrono::steady_clock::now()), Place::Behind);
        const std::jthread compositor([&] { toplevels.perform(each.meanwhile); });
        // Were it waited out, this would not end in its time.
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::hours(1);
        EXPECT_EQ(toplevels.awaitFront(target, deadline), each.place)
            << qUtf8Printable(each.meanwhile);
    }
}

TEST(Toplevels, ofOursAreFoundByTheirTitles)
{
    ToldToplevels toplevels;
    toplevels.perform(u"+a +ours"_s);
    EXPECT_EQ(toplevels.nameOf(toplevels.ownWindow(kOurs)), kOurs);
    EXPECT_EQ(toplevels.ownWindow(kOurs.chopped(1)), 0U) << "another one that begins likewise";
    EXPECT_EQ(toplevels.ownWindow(u"a"_s), 0U);
    EXPECT_EQ(toplevels.identities().size(), 1);
    EXPECT_EQ(toplevels.identities().value(0).resourceName, u"a"_s);
}

} // namespace
