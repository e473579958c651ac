#include "platform/freedesktop/FreedesktopNotifications.h"

#include "BusService.h"
#include "support/ExpectedWarnings.h"

#include <QTest>

#include <gtest/gtest.h>

class FakeServer : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

public:
    struct Shown
    {
        QString summary;
        QString body;
        QStringList actions;
        QVariantMap hints;
    };

    void reset() { shown.clear(); }

    QStringList capabilities{QStringLiteral("body")};
    QList<Shown> shown;

public Q_SLOTS:
    QStringList GetCapabilities() { return capabilities; }
    uint Notify(const QString &, uint, const QString &, const QString &summary, const QString &body,
                const QStringList &actions, const QVariantMap &hints, int)
    {
        shown.append({summary, body, actions, hints});
        return static_cast<uint>(shown.size());
    }

Q_SIGNALS:
    void ActionInvoked(uint id, const QString &action);
    void NotificationClosed(uint id, uint reason);
};

namespace {

using Server = BusService<FakeServer>;

std::unique_ptr<Server> startServer()
{
    return std::make_unique<Server>(QStringLiteral("org.freedesktop.Notifications"),
                                    QStringLiteral("/org/freedesktop/Notifications"));
}

QList<FakeServer::Shown> shownBy(Server &server, qsizetype count)
{
    QList<FakeServer::Shown> shown;
    EXPECT_TRUE(QTest::qWaitFor([&] {
        shown = server.ask([](FakeServer &fake) { return fake.shown; });
        return shown.size() >= count;
    }));
    return shown;
}

bool hasLogged(const QString &text)
{
    return QTest::qWaitFor([&] { return !ExpectedWarnings::messages().filter(text).isEmpty(); });
}

TEST(FreedesktopNotifications, aPlainServerGetsTheTextsAsTheyAreAndInOrder)
{
    const auto server = startServer();
    FreedesktopNotifications notifications;
    notifications.deliver(QStringLiteral("First & foremost"), QStringLiteral("1 < 2"));
    notifications.deliver(QStringLiteral("Second"), QString());

    const auto shown = shownBy(*server, 2);
    ASSERT_EQ(shown.size(), 2);
    EXPECT_EQ(shown[0].summary, QStringLiteral("First & foremost"));
    EXPECT_EQ(shown[0].body, QStringLiteral("1 < 2"));
    EXPECT_EQ(shown[0].hints.value(QStringLiteral("desktop-entry")).toString(),
              QStringLiteral("org.quillmarsh.Quillmarsh"));
    EXPECT_TRUE(shown[0].hints.value(QStringLiteral("transient")).toBool());
    EXPECT_EQ(shown[1].summary, QStringLiteral("Second"));
}

TEST(FreedesktopNotifications, aServerThatReadsMarkupGetsItsBodyEscapedEvenWhenItCameLater)
{
    const auto plain = startServer();
    FreedesktopNotifications notifications;
    notifications.deliver(QStringLiteral("a"), QStringLiteral("<b>"));
    EXPECT_EQ(shownBy(*plain, 1).value(0).body, QStringLiteral("<b>"));

    plain->vanish();
    plain->tell([](FakeServer &fake) { fake.capabilities << QStringLiteral("body-markup"); });
    plain->appear();
    // The change of owner reaches us before an answer of the new one can.
    ASSERT_TRUE(QTest::qWaitFor([&] {
        notifications.deliver(QStringLiteral("T & T"), QStringLiteral("<b> & co"));
        return shownBy(*plain, 1).last().body == QStringLiteral("&lt;b&gt; &amp; co");
    }));
    EXPECT_EQ(shownBy(*plain, 1).last().summary, QStringLiteral("T & T"));
}

TEST(FreedesktopNotifications, aClickDoesWhatItsNotificationIsForUntilThatIsClosed)
{
    const auto server = startServer();
    FreedesktopNotifications notifications;
    QStringList done;
    const auto deliver = [&](const QString &name) {
        notifications.deliver(name, QString(), [&done, name] { done.append(name); });
    };
    deliver(QStringLiteral("cannot be clicked here"));
    EXPECT_EQ(shownBy(*server, 1).value(0).actions, QStringList());

    server->vanish();
    server->tell([](FakeServer &fake) { fake.capabilities << QStringLiteral("actions"); });
    server->appear();
    ASSERT_TRUE(QTest::qWaitFor([&] {
        deliver(QStringLiteral("first"));
        return !shownBy(*server, 1).last().actions.isEmpty();
    }));
    deliver(QStringLiteral("second"));
    notifications.deliver(QStringLiteral("plain"), QString());
    deliver(QStringLiteral("last"));
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return shownBy(*server, 1).last().summary == QStringLiteral("last"); }));
    const auto shown = shownBy(*server, 1);
    const auto last = static_cast<uint>(shown.size());
    const uint plain = last - 1;
    const uint second = last - 2;
    EXPECT_EQ(shown[shown.size() - 2].actions, QStringList());

    // The server's signals can overtake its replies, which tell us the numbers.
    ASSERT_TRUE(QTest::qWaitFor([&] {
        server->tell([last](FakeServer &fake) {
            Q_EMIT fake.ActionInvoked(last, QStringLiteral("default"));
        });
        return !done.isEmpty();
    }));
    server->tell([plain, second](FakeServer &fake) {
        for (uint id = 1; id < second; ++id) {
            Q_EMIT fake.NotificationClosed(id, 2);
            Q_EMIT fake.ActionInvoked(id, QStringLiteral("default"));
        }
        Q_EMIT fake.ActionInvoked(second, QStringLiteral("other"));
        Q_EMIT fake.ActionInvoked(plain, QStringLiteral("default"));
        Q_EMIT fake.ActionInvoked(second, QStringLiteral("default"));
    });
    EXPECT_TRUE(QTest::qWaitFor([&] { return done.contains(QStringLiteral("second")); }));
    done.removeAll(QStringLiteral("last"));
    EXPECT_EQ(done, QStringList{QStringLiteral("second")});
}

TEST(FreedesktopNotifications, aHungServerCostsALineAndNoWait)
{
    const auto server = startServer();
    server->hang();
    FreedesktopNotifications notifications(QDBusConnection::sessionBus(),
                                           std::chrono::milliseconds(100));
    ExpectedWarnings::expect(QStringLiteral("notification dropped"));
    notifications.deliver(QStringLiteral("Title"), QStringLiteral("body"));
    EXPECT_EQ(ExpectedWarnings::messages(), QStringList()) << "it was waited for";
    EXPECT_TRUE(hasLogged(QStringLiteral("notification dropped")));
}

} // namespace

#include "NotificationsTest.moc"
