#include "platform/freedesktop/StatusNotifierStatusBar.h"

#include "BusService.h"

#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QMenu>
#include <QPixmap>
#include <QTest>

#include <gtest/gtest.h>

class FakeWatcher : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ isHostRegistered)

public:
    void reset() { items.clear(); }
    bool isHostRegistered() const
    {
        ++questions;
        return hasHost;
    }

    void setHasHost(bool has)
    {
        hasHost = has;
        if (has)
            Q_EMIT StatusNotifierHostRegistered();
        else
            Q_EMIT StatusNotifierHostUnregistered();
    }

    bool hasHost = false;
    mutable int questions = 0;
    QStringList items;

public Q_SLOTS:
    void RegisterStatusNotifierItem(const QString &item) { items.append(item); }

Q_SIGNALS:
    void StatusNotifierHostRegistered();
    void StatusNotifierHostUnregistered();
};

namespace {

using Watcher = BusService<FakeWatcher>;

class FakeTrayArea : public TrayArea
{
public:
    bool isPresent() const override { return true; }
    std::optional<QColor> foreground() override { return std::nullopt; }
};

class StatusNotifierStatusBarTest : public testing::Test
{
protected:
    void startWatcher(bool hasHost)
    {
        watcher = std::make_unique<Watcher>(QStringLiteral("org.kde.StatusNotifierWatcher"),
                                            QStringLiteral("/StatusNotifierWatcher"));
        watcher->tell([hasHost](FakeWatcher &fake) { fake.setHasHost(hasHost); });
    }

    void showItem(StatusBar &in)
    {
        QPixmap picture(22, 22);
        picture.fill(Qt::darkGreen);
        in.showItem(QIcon(picture), QStringLiteral("tip"), &menu);
    }

    bool becomesVisible(bool isVisible)
    {
        return QTest::qWaitFor([&] { return bar.isItemVisible() == isVisible; });
    }

    bool isRegisteredOnce()
    {
        return QTest::qWaitFor(
            [&] { return watcher->ask([](FakeWatcher &fake) { return fake.items.size(); }) == 1; });
    }

    QMenu menu;
    std::unique_ptr<Watcher> watcher;
    StatusNotifierStatusBar bar{nullptr};
};

TEST_F(StatusNotifierStatusBarTest, theItemWaitsForAHostAndNotOnlyForTheWatcher)
{
    showItem(bar);
    startWatcher(false);
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return watcher->ask([](FakeWatcher &fake) { return fake.questions; }) > 0; }));
    EXPECT_FALSE(bar.isItemVisible());

    watcher->tell([](FakeWatcher &fake) { fake.setHasHost(true); });
    EXPECT_TRUE(becomesVisible(true));
    EXPECT_TRUE(isRegisteredOnce());

    watcher->tell([](FakeWatcher &fake) { fake.setHasHost(false); });
    EXPECT_TRUE(becomesVisible(false));
    watcher->tell([](FakeWatcher &fake) { fake.setHasHost(true); });
    EXPECT_TRUE(becomesVisible(true));
}

TEST_F(StatusNotifierStatusBarTest, aClickOnTheItemOpensItsMenuThere)
{
    startWatcher(true);
    menu.addAction(QStringLiteral("an entry"));
    showItem(bar);
    ASSERT_TRUE(becomesVisible(true));
    ASSERT_TRUE(isRegisteredOnce());
    const QString item = watcher->ask([](FakeWatcher &fake) { return fake.items.front(); });
    const QPoint click(300, 200);
    QCursor::setPos(click);
    QDBusConnection::sessionBus().asyncCall(
        QDBusMessage::createMethodCall(item, QStringLiteral("/StatusNotifierItem"),
                                       QStringLiteral("org.kde.StatusNotifierItem"),
                                       QStringLiteral("Activate"))
        << click.x() << click.y());
    ASSERT_TRUE(QTest::qWaitFor([this] { return menu.isVisible(); }));
    EXPECT_TRUE(menu.geometry().adjusted(-1, -1, 1, 1).contains(click));
    EXPECT_EQ(menu.minimumSize(), menu.sizeHint()) << "a tiling compositor would enlarge it";
    EXPECT_EQ(menu.maximumSize(), menu.sizeHint());
    menu.close();
}

TEST_F(StatusNotifierStatusBarTest, aHungPanelHoldsNothingUp)
{
    startWatcher(true);
    watcher->hang();
    showItem(bar);
    // A panel that had been waited for would have been given up.
    EXPECT_FALSE(bar.isItemVisible());
    watcher->resume();
    EXPECT_TRUE(becomesVisible(true));
}

TEST_F(StatusNotifierStatusBarTest, aPanelIsPreferredToATrayThatIsThereFirst)
{
    startWatcher(true);
    StatusNotifierStatusBar both(std::make_unique<FakeTrayArea>());
    showItem(both);
    EXPECT_FALSE(both.isItemVisible());
    EXPECT_TRUE(QTest::qWaitFor([&] { return both.isItemVisible(); }));
    EXPECT_TRUE(isRegisteredOnce());
}

} // namespace

#include "StatusBarTest.moc"
