#include "platform/memory/MemoryPlatform.h"
#include "support/ExpectedWarnings.h"
#include "updates/TlsServer.h"
#include "updates/UpdateSamples.h"
#include "updates/updater/DMHelperAppDelegate.h"
#include "updates/updater/DM_SUUpdater.h"
#include "updates/updater/Installation.h"
#include "updates/updater/UpdateSchedule.h"
#include "updates/updater/UpdateSignature.h"
#include "updates/updater/UpdateWindow.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace {

using namespace UpdateSamples;

TEST(Installation, isReplacedOnlyWhereItIsOurs)
{
    const QTemporaryDir folder;
    const QString root = QFileInfo(folder.path()).canonicalFilePath();
    const QString prefix = makePrefix(root + text("/versions/1.0"));
    const QString plain = makePrefix(root + text("/plain"));
    const QString image = root + text("/plain/bin/quillmarsh");
    ASSERT_TRUE(QFile::link(text("versions/1.0"), root + text("/current")));
    struct Row
    {
        const char *name;
        Installation::Evidence evidence;
        Installation::Kind kind;
        QString lasting;
    };
    const QString program = text("/bin/quillmarsh");
    for (const Row &row : {
             Row{"a prefix",
                 {prefix, {}, {}},
                 Installation::Kind::Prefix,
                 root + text("/current") + program},
             Row{"an image", {plain, image, plain}, Installation::Kind::AppImage, image},
             Row{"started from another image",
                 {prefix, image, plain},
                 Installation::Kind::Prefix,
                 root + text("/current") + program},
             Row{"somewhere", {plain, {}, {}}, Installation::Kind::Unknown, plain + program},
             Row{"the system's",
                 {text("/usr"), {}, {}},
                 Installation::Kind::PackageManager,
                 text("/usr") + program},
             Row{"the machine's own",
                 {text("/usr/local"), {}, {}},
                 Installation::Kind::Unknown,
                 text("/usr/local") + program},
         }) {
        const Installation installation = Installation::of(row.evidence);
        EXPECT_EQ(installation.kind, row.kind) << row.name;
        EXPECT_EQ(installation.lastingPath(row.evidence.bundlePath + program), row.lasting)
            << row.name;
        EXPECT_EQ(installation.obstacle().has_value(), installation.kindName().isEmpty())
            << row.name;
        EXPECT_TRUE(row.kind == Installation::Kind::PackageManager ||
                    installation.command.isEmpty())
            << row.name;
        const bool isPrefix = row.kind == Installation::Kind::Prefix;
        EXPECT_EQ(installation.startsAtLeast(text("0.9")), isPrefix) << row.name;
        EXPECT_EQ(installation.startsAtLeast(text("1.0")), isPrefix) << row.name;
        EXPECT_FALSE(installation.startsAtLeast(text("1.0.1"))) << row.name;
    }
}

TEST(Installation, seesThatItsImageWasReplaced)
{
    const QTemporaryDir folder;
    const QString image = folder.filePath(text("Quillmarsh.AppImage"));
    const QString prefix = makePrefix(folder.filePath(text("mounted")));
    const auto write = [](const QString &path, const char *content) {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    };
    write(image, "1.0");
    const Installation::Evidence evidence{QFileInfo(prefix).canonicalFilePath(), image, prefix};
    EXPECT_EQ(Installation::of(evidence).replacement(), std::nullopt);
    struct Row
    {
        const char *name;
        std::function<void()> replace;
    };
    for (const Row &row :
         {Row{"another file in its place",
              [&] {
                  write(image + text(".new"), "1.2");
                  EXPECT_TRUE(QFile::remove(image) && QFile::rename(image + text(".new"), image));
              }},
          Row{"written anew", [&] { write(image, "1.2.1"); }},
          Row{"gone", [&] { EXPECT_TRUE(QFile::remove(image)); }}}) {
        const Installation installation = Installation::of(evidence);
        row.replace();
        EXPECT_TRUE(installation.replacement()) << row.name;
    }
}

/// A file without an end that counts how often it was read.
class EndlessFile : public QIODevice
{
public:
    explicit EndlessFile(std::atomic<bool> &isCancelled) : m_isCancelled(isCancelled)
    {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }

    int reads = 0;

protected:
    qint64 readData(char *data, qint64 size) override
    {
        m_isCancelled = ++reads >= 3;
        std::fill_n(data, size, 'x');
        return size;
    }
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    std::atomic<bool> &m_isCancelled;
};

TEST(UpdateSignature, aDigestThatNobodyWantsAnyMoreIsGivenUp)
{
    std::atomic<bool> isCancelled = false;
    EndlessFile file(isCancelled);
    EXPECT_EQ(UpdateSignature::digest(file, isCancelled), QByteArray());
    EXPECT_EQ(file.reads, 3);
}

TEST(UpdateSchedule, isDueOnceADayAndOnlyWhenItWasSwitchedOn)
{
    MemoryPlatform platform;
    const auto nextIn = [&](bool isPossible) {
        const UpdateSchedule schedule(platform.settings, platform.clock, isPossible);
        const QTimer *timer = schedule.findChild<QTimer *>();
        return timer->isActive()
                   ? std::chrono::duration_cast<std::chrono::minutes>(timer->intervalAsDuration())
                         .count()
                   : -1;
    };
    EXPECT_EQ(nextIn(true), -1);
    UpdateSchedule schedule(platform.settings, platform.clock, true);
    schedule.setEnabled(true);
    EXPECT_EQ(nextIn(false), -1);
    EXPECT_LE(nextIn(true), 65) << "never looked: soon";
    schedule.checked();
    EXPECT_GE(nextIn(true), 24 * 60);
    EXPECT_LE(nextIn(true), 25 * 60);
    platform.clock.advance(std::chrono::hours(20));
    EXPECT_GE(nextIn(true), 4 * 60);
    EXPECT_LE(nextIn(true), 5 * 60);
    platform.clock.advance(-std::chrono::hours(500));
    EXPECT_LE(nextIn(true), 25 * 60) << "a clock that was set back";
}

/// Keeps how runs ended.
class EndsOfRuns : public DM_SUUpdaterDelegate
{
public:
    // ^DM_SUUpdaterDelegate
    void updaterDidAbortWithError(const DM_SUUpdater &,
                                  const std::optional<UpdateError> &error) override
    {
        ends.append(error ? error->localizedDescription : text("cancelled"));
    }

    QStringList ends;
};

/// Version 1.0 in a prefix of its own, where a feed may offer 1.1.
class UpdaterTest : public testing::Test
{
protected:
    UpdaterTest()
    {
        makePrefix(root() + text("/versions/1.0"));
        EXPECT_TRUE(QFile::link(text("versions/1.0"), root() + text("/current")));
        useFeed(m_server.url().toString());
    }

    void useFeed(const QString &url)
    {
        Info info;
        info.bundleVersion = text("1.0");
        info.feedUrl = url;
        info.certificateAuthorities = TlsServer::authority();
        updater = DM_SUUpdater::updaterForBundle(root() + text("/versions/1.0"), m_ports, info);
        updater->setDelegate(&delegate);
        QObject::connect(updater.get(), &DM_SUUpdater::frontWanted, &m_platform.frontApplication,
                         &FrontApplication::activate);
    }

    QString root() const { return QFileInfo(m_folder.path()).canonicalFilePath(); }

    const QTemporaryDir m_folder;
    QString m_feed = feedOf11();
    TlsServer m_server{[this](QTcpSocket &connection, const QByteArray &) {
        TlsServer::reply(connection, m_feed.toUtf8());
    }};
    MemoryPlatform m_platform;
    const UpdaterPorts m_ports{m_platform.clock, m_platform.settings,
                               m_platform.runningApplications};
    EndsOfRuns delegate;
    std::unique_ptr<DM_SUUpdater> updater;
};

TEST_F(UpdaterTest, aLookThatNobodyAskedForLeavesTheKeyboardAndWhatWasSkippedAlone)
{
    auto &daily = *updater->findChild<UpdateSchedule *>();
    Q_EMIT daily.due();
    ASSERT_TRUE(QTest::qWaitFor([this] { return updater->window() != nullptr; }));
    EXPECT_EQ(m_platform.frontApplication.activatedWindow(), nullptr);
    EXPECT_TRUE(updater->window()->testAttribute(Qt::WA_ShowWithoutActivating));
    Q_EMIT updater->window()->skipChosen();
    Q_EMIT daily.due();
    ASSERT_TRUE(QTest::qWaitFor([this] { return delegate.ends.size() == 2; }));
    EXPECT_EQ(updater->window(), nullptr);
    updater->checkForUpdates();
    EXPECT_EQ(m_platform.frontApplication.activatedWindow(), updater->window()->windowHandle());
}

TEST_F(UpdaterTest, whereNothingIsBuiltInTheCheckNamesNoPackageManagerThatDoesNotKnowUs)
{
    useFeed(QString());
    updater->checkForUpdates();
    EXPECT_FALSE(updater->window()->findChild<QLineEdit *>()->isVisible());
    EXPECT_TRUE(updater->window()->accessibleDescription().contains(
        text("Updates come from where you got it.")))
        << qPrintable(updater->window()->accessibleDescription());
}

TEST_F(UpdaterTest, aVersionForANewerSystemIsNamedInsteadOfTheInstalledBeingTheNewest)
{
    m_feed.replace(
        text("<file"),
        text("<shortVersion>Eleven</shortVersion><minimumSystem>99</minimumSystem><file"));
    updater->checkForUpdates();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !delegate.ends.isEmpty(); }));
    EXPECT_TRUE(updater->window()->accessibleDescription().startsWith(
        text("Version Eleven needs a newer system")))
        << qPrintable(updater->window()->accessibleDescription());
}

TEST(UpdateWindow, showsItsWordsWhateverItShowsFirst)
{
    const QString words =
        text("One sentence after the other about how it was installed. ").repeated(4);
    struct Row
    {
        const char *name;
        std::function<void(UpdateWindow &)> show;
    };
    for (const Row &row :
         {Row{"no command", [&](UpdateWindow &window) { window.showElsewhere(words, {}); }},
          Row{"a command",
              [&](UpdateWindow &window) { window.showElsewhere(words, text("sudo apt")); }},
          Row{"a problem", [&](UpdateWindow &window) { window.showProblem(words); }},
          Row{"no notes", [](UpdateWindow &window) { window.showFound(text("2"), text("1"), {}); }},
          Row{"nothing new", [](UpdateWindow &window) { window.showUpToDate(text("2")); }}}) {
        SCOPED_TRACE(row.name);
        UpdateWindow window(text("Quillmarsh"));
        row.show(window);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        for (const QLabel *label : window.findChildren<QLabel *>()) {
            if (label->isVisible() && label->wordWrap()) {
                EXPECT_GE(label->height(), label->heightForWidth(label->width()));
            }
        }
    }
}

TEST_F(UpdaterTest, aPlaceThatCannotBeLockedIsNotTakenForABusyOne)
{
    ASSERT_TRUE(QDir(root()).mkdir(text(".update-lock")));
    updater->checkForUpdates();
    ASSERT_TRUE(QTest::qWaitFor(
        [this] { return ExpectedWarnings::messages().contains(text("update found: 1.1")); }));
    Q_EMIT updater->window()->installChosen();
    EXPECT_EQ(delegate.ends, QStringList(text("The folder %1 cannot be written to.").arg(root())));
}

TEST_F(UpdaterTest, aRunThatWasCancelledSaysNothingMore)
{
    useFeed(text("http://example.org/feed.xml")); // Refused, a moment later.
    updater->checkForUpdates();
    updater->window()->reject();
    QCoreApplication::processEvents();
    EXPECT_EQ(delegate.ends, QStringList(text("cancelled")));
    updater->checkForUpdates();
    ASSERT_TRUE(QTest::qWaitFor([this] { return delegate.ends.size() == 2; }));
    EXPECT_EQ(delegate.ends.back(), text("The address is not a secure one (https)."));
}

class DMHelperAppDelegateTest : public testing::Test
{
protected:
    DMHelperAppDelegateTest()
    {
        m_info.bundleIdentifier = text("org.quillmarsh.Quillmarsh");
        m_info.bundleVersion = text("1.0");
    }

    /// Runs the menu's update in a helper inside `prefix`, and keeps the errors that it presents.
    std::unique_ptr<DMHelperAppDelegate> launch(const QString &prefix)
    {
        auto helper = std::make_unique<DMHelperAppDelegate>(
            m_ports, m_info, prefix + text("/libexec/quillmarsh/quillmarsh-updater"));
        helper->setErrorPresenter([this](const UpdateError &error) { m_errors.append(error); });
        helper->applicationDidFinishLaunching(m_platform.statusBar);
        return helper;
    }

    MemoryPlatform m_platform;
    const UpdaterPorts m_ports{m_platform.clock, m_platform.settings,
                               m_platform.runningApplications};
    QTemporaryDir m_folder;
    Info m_info;
    QList<UpdateError> m_errors;
};

TEST_F(DMHelperAppDelegateTest, itsMenuHasTheUpdateASeparatorAndQuit)
{
    const auto helper = launch(text("/opt/q"));
    QStringList titles;
    for (const QAction *action : m_platform.statusBar.menu()->actions())
        titles.append(action->isSeparator() ? text("-") : action->text());
    EXPECT_EQ(titles, (QStringList{text("Update in background"), text("-"), text("Quit")}));
    EXPECT_EQ(helper->mainAppBundlePath(), text("/opt/q"));
    EXPECT_EQ(helper->mainAppUpdater(), nullptr);
}

TEST_F(DMHelperAppDelegateTest, anUpdateThatCannotBeginSaysWhyWithItsCode)
{
    struct Row
    {
        QString prefix;
        bool isRunning;
        int code;
        const char *description;
        QString domain;
    };
    const QString there = makePrefix(m_folder.path() + text("/q"));
    const QString cocoa = text("NSCocoaErrorDomain");
    for (const Row &row :
         {Row{m_folder.path(), true, 2, "Main application bundle could not be located", cocoa},
          Row{there, true, 1, "Main application is running. It should update itself.", cocoa},
          Row{there, false, 1,
              "This Quillmarsh has no address to look for updates at. Updates come from where "
              "you got it.",
              UpdateError::updaterDomain()}}) {
        m_platform.runningApplications.setBundlePaths({row.isRunning ? row.prefix : QString()});
        ExpectedWarnings::expect(text("ERROR: %1 - %2").arg(row.code).arg(text(row.description)));
        m_errors.clear();
        const auto helper = launch(row.prefix);
        helper->updateMainApp();
        ASSERT_EQ(m_errors.size(), 1) << row.description;
        EXPECT_EQ(m_errors.front().code, row.code);
        EXPECT_EQ(m_errors.front().localizedDescription, text(row.description));
        EXPECT_EQ(m_errors.front().domain, row.domain);
        EXPECT_EQ(helper->mainAppUpdater(), nullptr);
        EXPECT_EQ(helper->isMainAppRunning(), row.isRunning && row.prefix == there);
    }
}

TEST_F(DMHelperAppDelegateTest, answersItsUpdaterByVersionSettingsAndWhatRuns)
{
    const auto updater = DM_SUUpdater::updaterForMainBundle(m_ports, m_info);
    for (const auto &[version, isBeta] :
         {std::pair("2.1b", true), {"2.1", false}, {"2.1b2", false}}) {
        m_info.bundleShortVersionString = text(version);
        EXPECT_EQ(launch(m_folder.path())->updaterShouldCheckForBetaUpdates(*updater), isBeta)
            << version;
    }
    EXPECT_EQ(ExpectedWarnings::messages().filter(text("beta")),
              QStringList(text("update check for beta version enabled\n")));
    const auto helper = launch(m_folder.path());
    EXPECT_FALSE(helper->isUpdaterInTestMode(*updater));
    m_platform.settings.setValue(text("SUUpdaterIsInTestMode"), true);
    EXPECT_FALSE(helper->isUpdaterInTestMode(*updater));
    m_platform.settings.setValue(text("checkForTestUpdates"), true);
    EXPECT_TRUE(helper->isUpdaterInTestMode(*updater));
    helper->checkForUpdates(true);
    EXPECT_FALSE(updater->automaticallyChecksForUpdates()) << "no update in progress";
    m_info.feedUrl = text("https://localhost:1/");
    const QString prefix = QFileInfo(m_folder.path()).canonicalFilePath() + text("/versions/1.0");
    makePrefix(prefix);
    ASSERT_TRUE(QFile::link(prefix, m_folder.path() + text("/current")));
    const auto busy = launch(prefix);
    busy->updateMainApp();
    busy->checkForUpdates(true);
    EXPECT_TRUE(updater->automaticallyChecksForUpdates());
    EXPECT_TRUE(busy->updaterShouldRelaunchApplication(*updater));
    m_platform.runningApplications.setBundlePaths({prefix});
    EXPECT_FALSE(busy->updaterShouldRelaunchApplication(*updater));
    const QString another = QFileInfo(prefix).path() + text("/0.9");
    m_platform.runningApplications.setBundlePaths({another});
    EXPECT_FALSE(busy->updaterShouldRelaunchApplication(*updater)) << "another version runs";
    m_platform.runningApplications.setBundlePaths({m_folder.path()});
    EXPECT_TRUE(busy->updaterShouldRelaunchApplication(*updater)) << "another installation runs";
    EXPECT_FALSE(busy->updaterMayShowModalAlert(*updater));
}

} // namespace
