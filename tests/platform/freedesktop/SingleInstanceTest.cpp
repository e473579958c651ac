#include "platform/freedesktop/instance/DBusSingleInstance.h"

#include "BusService.h"
#include "platform/SharedClips.h"
#include "support/ExpectedWarnings.h"

#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <future>

#include <fcntl.h>
#include <unistd.h>

/// An instance that is reached over the bus only.
class FakeInstance : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    void reset() {}
    QStringList calls;

public Q_SLOTS:
    void Activate(const QVariantMap &data) { note(QStringLiteral("activate"), data); }
    void ActivateAction(const QString &action, const QVariantList &, const QVariantMap &data)
    {
        note(action, data);
    }

private:
    void note(const QString &call, const QVariantMap &data)
    {
        calls << call + u' ' + data.value(QStringLiteral("activation-token")).toString() + u' ' +
                     data.value(QStringLiteral("desktop-startup-id")).toString();
    }
};

namespace {

using Entry = SingleInstance::Entry;

const auto kName = QStringLiteral("org.quillmarsh.Quillmarsh");
const auto kPath = QStringLiteral("/org/quillmarsh/Quillmarsh");

/// What came through a instance, in order: "action token".
struct Visitors
{
    explicit Visitors(const SingleInstance &instance)
    {
        QObject::connect(
            &instance, &SingleInstance::activated, &context,
            [this](const QString &token) { came << QStringLiteral("activate ") + token; });
        QObject::connect(
            &instance, &SingleInstance::actionRequested, &context,
            [this](const QString &action, const QString &token) { came << action + u' ' + token; });
    }

    bool become(const QStringList &expected)
    {
        return QTest::qWaitFor([&] { return came == expected; });
    }

    QStringList came;
    QObject context;
};

constexpr std::chrono::milliseconds kSoon{50};

class SingleInstanceTest : public testing::Test
{
protected:
    std::future<Entry>
    startAgain(const QString &action,
               std::chrono::milliseconds answerLimit = DBusSingleInstance::kAnswerLimit) const
    {
        return std::async(std::launch::async, [this, action, answerLimit] {
            return DBusSingleInstance(folder.path(), answerLimit).enter(action);
        });
    }

    const QTemporaryDir folder;
    DBusSingleInstance instance{folder.path()};
};

Entry entryOf(std::future<Entry> &start)
{
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return start.wait_for(std::chrono::seconds(0)) == std::future_status::ready; }));
    return start.get();
}

TEST_F(SingleInstanceTest, whatComesBeforeItIsOpenWaitsInsideOrOutside)
{
    Visitors visitors(instance);
    ASSERT_EQ(instance.enter(QString()), Entry::First);
    qputenv("XDG_ACTIVATION_TOKEN", "clicked");
    auto second = startAgain(QStringLiteral("swop"));
    QCoreApplication::processEvents();
    EXPECT_EQ(visitors.came, QStringList());
    instance.open();
    EXPECT_EQ(entryOf(second), Entry::Forwarded);
    qunsetenv("XDG_ACTIVATION_TOKEN");
    EXPECT_TRUE(visitors.become({QStringLiteral("swop clicked")}));
}

TEST_F(SingleInstanceTest, noBusIsLaunchedWhereThereIsNone)
{
    const bool hasBus = !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS");
    ASSERT_EQ(instance.enter(QString()), Entry::First);
    EXPECT_EQ(QDBusConnection::sessionBus().isConnected(), hasBus);
    EXPECT_EQ(!qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS"), hasBus);
}

TEST_F(SingleInstanceTest, anInstanceOnItsWayOutTakesNothingMoreAndIsSucceeded)
{
    auto leaving = std::make_unique<DBusSingleInstance>(folder.path());
    Visitors visitors(*leaving);
    ASSERT_EQ(leaving->enter(QString()), Entry::First);
    leaving->open();
    auto quit = startAgain(QStringLiteral("quit"));
    EXPECT_EQ(entryOf(quit), Entry::Forwarded);
    EXPECT_TRUE(visitors.become({QStringLiteral("quit ")}));
    // While it saves.
    auto next = startAgain(QStringLiteral("launch"));
    EXPECT_FALSE(QTest::qWaitFor(
        [&] { return next.wait_for(std::chrono::seconds(0)) == std::future_status::ready; }, 100));
    leaving.reset();
    EXPECT_EQ(entryOf(next), Entry::First);
    EXPECT_EQ(visitors.came.size(), 1);
}

TEST_F(SingleInstanceTest, aTokenWithoutMeasureCountsAsNone)
{
    Visitors visitors(instance);
    ASSERT_EQ(instance.enter(QString()), Entry::First);
    instance.open();
    ExpectedWarnings::expect(QStringLiteral("an activation token of 1025 characters is ignored"));
    QStringList expected;
    for (const QByteArray &token : {QByteArray(1024, 't'), QByteArray(1025, 't')}) {
        qputenv("XDG_ACTIVATION_TOKEN", token);
        auto second = startAgain(QStringLiteral("launch"));
        EXPECT_EQ(entryOf(second), Entry::Forwarded);
        expected << QStringLiteral("launch ") +
                        (token.size() > 1024 ? QString() : QString::fromLatin1(token));
        EXPECT_TRUE(visitors.become(expected));
    }
    qunsetenv("XDG_ACTIVATION_TOKEN");
}

TEST_F(SingleInstanceTest, anActionThatDoesNotExistIsRefusedAndNamedInOneShortLine)
{
    ASSERT_EQ(instance.enter(QString()), Entry::First);
    instance.open();
    ExpectedWarnings::expect(QStringLiteral("there is no action \"format\\u001B[2J\""));
    ExpectedWarnings::expect(QStringLiteral("there is no action \"xx"));
    auto known = startAgain(QStringLiteral("format\x1B[2J"));
    EXPECT_EQ(entryOf(known), Entry::Refused);
    auto endless = startAgain(QString(2000, u'x'));
    EXPECT_EQ(entryOf(endless), Entry::Refused);
    EXPECT_LT(ExpectedWarnings::messages().back().size(), 100);
}

/// As many clips as there are ids, of which some are gone.
class ManyClips : public SharedClips
{
public:
    // ^SharedClips
    Answer<QList<qlonglong>> find(const QString &term) override
    {
        asked = term;
        QList<qlonglong> ids;
        for (qlonglong id = count; id > 0; --id)
            ids.append(id);
        return {ids};
    }
    Answer<QList<Line>> lines(const QList<qlonglong> &ids) override
    {
        Answer<QList<Line>> answer{{}, fault};
        for (const qlonglong id : ids) {
            if (id != 7)
                answer.value.append({id, QStringLiteral("größe %1").arg(id)});
        }
        if (during)
            during();
        return answer;
    }
    Answer<QList<SharedClip>> clips(const QList<qlonglong> &) override { return {}; }
    Fault copy(const QByteArray &) override { return Fault::Unable; }
    Fault paste(qint64) override { return Fault::Unable; }
    Answer<qint64> remove(const QList<qlonglong> &) override { return {}; }
    Answer<Room> room() override { return {}; }
    Answer<Added> add(const QList<SharedClip> &, bool) override { return {}; }

    qlonglong count = 2500;
    QString asked;
    Fault fault = Fault::None;
    std::function<void()> during;
};

/// What the door gets for the message: an answer and what is in the file with it.
struct Listed
{
    InstanceCall::Answer answer;
    std::optional<QByteArray> list = {};
};

Listed askForList(const QString &store)
{
    const int folder = ::open(qPrintable(store), O_DIRECTORY | O_RDONLY | O_CLOEXEC);
    const int lock = ::openat(folder, InstanceCall::kLockName, O_RDWR | O_CLOEXEC);
    const QByteArray message = "quillmarsh 1\nlist\nsome\tterm";
    int file = -1;
    Listed listed{InstanceCall::forward(folder, lock, message.constData(),
                                        static_cast<size_t>(message.size()), 20'000, &file)};
    QFile opened;
    if (file >= 0 && opened.open(file, QIODevice::ReadOnly, QFile::AutoCloseHandle)) {
        opened.seek(0);
        listed.list = opened.readAll();
    }
    ::close(lock);
    ::close(folder);
    return listed;
}

TEST_F(SingleInstanceTest, aListOfManyClipsIsHandedOverWholeOrNotAtAll)
{
    ManyClips clips;
    QByteArray whole;
    for (const SharedClips::Line &line : clips.lines(clips.find({}).value).value)
        line.appendTo(whole);
    ASSERT_TRUE(whole.startsWith("c2500\tgr\xC3\xB6\xC3\x9F"
                                 "e 2500\nc2499\t"));
    ASSERT_EQ(instance.enter(QString()), Entry::First);
    instance.open();

    using Answer = InstanceCall::Answer;
    struct Row
    {
        const char *name;
        std::function<void()> prepare;
        Listed expected;
    };
    const Row rows[] = {
        {"many", [] {}, {Answer::Taken, whole}},
        {"none", [&] { clips.count = 0; }, {Answer::Taken, QByteArray()}},
        {"fault",
         [&] { clips.count = 1, clips.fault = SharedClips::Fault::Unable; },
         {Answer::Nobody}},
        {"taken back meanwhile",
         [&] {
             clips.count = 2500;
             clips.fault = SharedClips::Fault::None;
             clips.during = [&] {
                 QMetaObject::invokeMethod(
                     &instance, [&] { instance.share(nullptr); }, Qt::QueuedConnection);
             };
         },
         {Answer::Nobody}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        row.prepare();
        instance.share(&clips);
        auto asked = std::async(std::launch::async, [&] { return askForList(folder.path()); });
        ASSERT_TRUE(QTest::qWaitFor(
            [&] { return asked.wait_for(std::chrono::seconds(0)) == std::future_status::ready; },
            20'000));
        const Listed listed = asked.get();
        EXPECT_EQ(listed.answer, row.expected.answer);
        EXPECT_EQ(listed.list, row.expected.list);
        EXPECT_EQ(clips.asked, QStringLiteral("some\tterm"));
    }
}

class SingleInstanceOnBus : public SingleInstanceTest
{
protected:
    void SetUp() override
    {
        if (qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS"))
            GTEST_SKIP() << "this run has no bus";
        ASSERT_TRUE(other.isConnected());
    }

    SingleInstanceOnBus()
        : other(QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"),
                                              QStringLiteral("another program")))
    {
    }

    QDBusConnection other;

    QDBusPendingCall call(const char *member, const QVariantList &arguments)
    {
        auto message = QDBusMessage::createMethodCall(
            kName, kPath, QStringLiteral("org.freedesktop.Application"), QLatin1String(member));
        message.setArguments(arguments);
        return other.asyncCall(message);
    }

    static bool isAnswered(const QDBusPendingCall &call, bool isError = false)
    {
        return QTest::qWaitFor([&] { return call.isFinished(); }) && call.isError() == isError;
    }
};

TEST_F(SingleInstanceOnBus, otherProgramsReachEveryAction)
{
    Visitors visitors(instance);
    ASSERT_EQ(instance.enter(QString()), Entry::First);
    const QVariantMap token{{QStringLiteral("activation-token"), QStringLiteral("t")},
                            {QStringLiteral("desktop-startup-id"), QStringLiteral("s")}};
    const QVariantMap startupId{{QStringLiteral("desktop-startup-id"), QStringLiteral("s")}};
    EXPECT_TRUE(isAnswered(call("Activate", {token})));
    EXPECT_EQ(visitors.came, QStringList()); // Taken, and kept until the instance is open.
    instance.open();
    EXPECT_TRUE(isAnswered(call("Open", {QStringList{QStringLiteral("file:///x")}, startupId})));
    QStringList expected{QStringLiteral("activate t"), QStringLiteral("activate s")};
    ExpectedWarnings::expect(QStringLiteral("there is no action"));
    EXPECT_TRUE(isAnswered(
        call("ActivateAction", {QStringLiteral("format"), QVariantList(), QVariantMap()}), true));
    EXPECT_TRUE(visitors.become(expected));
    // The last, because with it the instance is closed.
    for (const char *name : {"launch", "swop", "preferences", "check-for-updates", "feedback",
                             "help", "welcome", "clear-all", "quit"}) {
        const QString action = QLatin1String(name);
        EXPECT_TRUE(isAnswered(call("ActivateAction", {action, QVariantList(), token})));
        expected << action + QStringLiteral(" t");
    }
    EXPECT_TRUE(visitors.become(expected));
}

TEST_F(SingleInstanceOnBus, anInstanceThatSharesOnlyTheBusIsReachedOverIt)
{
    BusService<FakeInstance> running(kName, kPath);
    qputenv("DESKTOP_STARTUP_ID", "id");
    EXPECT_EQ(instance.enter(QString()), Entry::Forwarded);
    EXPECT_EQ(instance.enter(QStringLiteral("preferences")), Entry::Forwarded);
    qunsetenv("DESKTOP_STARTUP_ID");
    EXPECT_EQ(running.ask([](FakeInstance &fake) { return fake.calls; }),
              (QStringList{QStringLiteral("activate id id"), QStringLiteral("preferences id id")}));

    running.hang();
    ExpectedWarnings::expect(QStringLiteral("did not take the action"));
    EXPECT_EQ(DBusSingleInstance(folder.path(), kSoon).enter(QString()), Entry::Unreachable);
}

} // namespace

#include "SingleInstanceTest.moc"
