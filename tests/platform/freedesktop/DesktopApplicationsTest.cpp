#include "platform/freedesktop/entries/DesktopEntryApplicationNames.h"
#include "platform/freedesktop/entries/DesktopEntryCatalog.h"
#include "platform/freedesktop/entries/FreedesktopInstalledApplications.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <latch>
#include <thread>

namespace {

/// Two applications folders, the user's and the system's.
class DesktopApplications : public testing::Test
{
protected:
    void put(const char *file, const QByteArray &keys, const char *folder = "system") const
    {
        const QString path =
            m_folder.filePath(QString::fromUtf8(folder) + u'/' + QString::fromUtf8(file));
        QDir().mkpath(QFileInfo(path).path());
        QFile entry(path);
        ASSERT_TRUE(entry.open(QIODevice::WriteOnly));
        entry.write("[Desktop Entry]\nType=Application\n" + keys);
    }

    std::shared_ptr<DesktopEntryCatalog>
    catalog(DesktopEntryCatalog::Scan scan = DesktopEntryScan::of) const
    {
        return std::make_shared<DesktopEntryCatalog>(
            m_questions,
            QStringList{m_folder.filePath(QStringLiteral("user")),
                        m_folder.filePath(QStringLiteral("system"))},
            std::move(scan));
    }

    QString nameOf(const WindowIdentity &window) const
    {
        return DesktopEntryApplicationNames(catalog()).identify(window).name;
    }

    QStringList installed() const
    {
        QStringList names;
        FreedesktopInstalledApplications applications(catalog());
        for (const InstalledApplication &application : applications.applications())
            names.append(application.name);
        return names;
    }

    QTemporaryDir m_folder;
    /// Time stands still, or goes on by so much whenever somebody looks at it.
    mutable std::atomic<std::chrono::milliseconds> m_step = std::chrono::milliseconds(0);
    mutable std::atomic<int> m_looks = 0;
    mutable FileQuestions m_questions{
        [this] { return Patience::TimePoint(m_step.load() * ++m_looks); }};
};

WindowIdentity window(const char *name, const char *windowClass, const char *gtkId = "",
                      const char *process = "")
{
    return {QString::fromUtf8(name), QString::fromUtf8(windowClass), QString::fromUtf8(gtkId),
            QString::fromUtf8(process)};
}

TEST_F(DesktopApplications, aWindowIsNamedByTheMostTrustworthySign)
{
    put("1password.desktop", "Name=1Password\nName[de]=Geheim\nStartupWMClass=1Password\n"
                             "Exec=/opt/1Password/1password %U\n");
    put("browser.desktop", "Name=Browser\nExec=browser %u\n");
    put("web-mail.desktop", "Name=Web Mail\nExec=browser --app=x\nStartupWMClass=crx_mail\n");
    put("org.example.Files.desktop", "Name=Files\nExec=env A=b /usr/bin/files-app --new-window\n");
    put("helper.desktop", "Name=Helper\nExec=browser\nNoDisplay=true\n");
    put("flat.desktop", "Name=Flat\nExec=flatpak run x\n");
    put("vendor/tool.desktop", "Name=Tool\n");
    put("python3.11.desktop", "Name=Python\nExec=/usr/bin/python3.11\n");
    struct Row
    {
        WindowIdentity window;
        const char *name;
    };
    const Row rows[]{
        {window("1password", "1PASSWORD"), "1Password"},
        {window("crx_mail", "Browser"), "Web Mail"},
        {window("x", "Browser"), "Browser"},
        {window("x", "y", "org.example.files"), "Files"},
        {window("x", "files"), "Files"},
        {window("x", "y", "", "files-app"), "Files"},
        {window("x", "vendor-tool"), "Tool"},
        {window("x", "Unknown", "", "browser"), "Browser"},
        {window("x", "Unknown", "", "flatpak"), "Unknown"},
        {window("script.py", "Script.py", "", "python3.11"), "Script.py"},
        {window("x", "", "", "proc"), "proc"},
        {window("x", "", "", ""), ""},
    };
    const DesktopEntryApplicationNames names(catalog());
    for (const Row &row : rows)
        EXPECT_EQ(names.identify(row.window).name.toStdString(), row.name)
            << qUtf8Printable(row.window.resourceClass);
}

TEST_F(DesktopApplications, aTerminalIsKnownByItsCategory)
{
    put("myterm.desktop", "Name=My Term\nCategories=Utility;TerminalEmulator;\n");
    put("editor.desktop", "Name=Editor\nCategories=Utility;\n");
    const DesktopEntryApplicationNames names(catalog());
    EXPECT_TRUE(names.identify(window("myterm", "MyTerm")).isTerminal);
    EXPECT_FALSE(names.identify(window("editor", "Editor")).isTerminal);
}

TEST_F(DesktopApplications, theUsersEntryShadowsTheSystemsEvenToHideIt)
{
    put("a.desktop", "Name=Ours\n", "user");
    put("a.desktop", "Name=Theirs\nStartupWMClass=theirs\n");
    put("b.desktop", "Name=Gone\nHidden=true\n", "user");
    put("b.desktop", "Name=Still there\n");
    put("c.desktop", "Name=Quiet\nNoDisplay=true\n");
    EXPECT_EQ(installed(), QStringList{QStringLiteral("Ours")});
    EXPECT_EQ(nameOf(window("x", "theirs")), QStringLiteral("theirs"));
    EXPECT_EQ(nameOf(window("x", "b")), QStringLiteral("b"));
    EXPECT_EQ(nameOf(window("x", "c")), QStringLiteral("Quiet"));
}

TEST_F(DesktopApplications, brokenAndHostileEntriesAreLeftOut)
{
    put("good.desktop", "Name=  Good\\n App \nIcon=../../etc/passwd\n");
    put("nameless.desktop", "Name= \n");
    put("endless.desktop", "Name=" + QByteArray(100'000, 'x') + "\n");
    put("link.desktop", "Type=Link\nName=Second type counts for nothing\nHidden=true\n");
    put("missing.desktop", "Name=Missing\nTryExec=/nowhere/at/all\n");
    const QString system = m_folder.filePath(QStringLiteral("system"));
    ASSERT_TRUE(QFile::link(system, system + QStringLiteral("/circle")));
    ASSERT_TRUE(QFile::link(QStringLiteral("/nowhere"), system + QStringLiteral("/a.desktop")));
    ASSERT_TRUE(QDir().mkdir(system + QStringLiteral("/folder.desktop")));
    EXPECT_EQ(installed(), QStringList{QStringLiteral("Good App")});
}

TEST_F(DesktopApplications, passwordManagersAreGuessedByIdOrDescription)
{
    put("org.keepassxc.KeePassXC.desktop", "Name=KeePassXC\n");
    put("vault.desktop", "Name=Vault\nGenericName=Password Manager\n");
    put("xpad.desktop", "Name=Pad\nGenericName=Notes\nIcon=/dev/zero\n");
    FreedesktopInstalledApplications applications(catalog());
    QStringList managers;
    for (const InstalledApplication &application : applications.applications()) {
        if (application.isPasswordManager)
            managers.append(application.name);
        EXPECT_FALSE(applications.icon(application).isNull());
    }
    EXPECT_EQ(managers, (QStringList{QStringLiteral("KeePassXC"), QStringLiteral("Vault")}));
}

TEST_F(DesktopApplications, whatIsInstalledLaterIsFound)
{
    const auto shared = catalog();
    FreedesktopInstalledApplications applications(shared);
    const DesktopEntryApplicationNames names(shared);
    EXPECT_TRUE(applications.applications().isEmpty());
    EXPECT_EQ(names.identify(window("x", "late")).name, QStringLiteral("late"));
    put("sub/late.desktop", "Name=Late\nStartupWMClass=late\n", "user");
    EXPECT_EQ(applications.applications().size(), 1);
    put("later.desktop", "Name=Later\n", "user");
    m_step = std::chrono::seconds(1);
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return names.identify(window("x", "later")).name == QStringLiteral("Later"); }));
}

TEST_F(DesktopApplications, aFolderThatNeverAnswersHoldsNobodyUpAndIsTakenInWhenItComes)
{
    put("far.desktop", "Name=Far\n", "user");
    put("near.desktop", "Name=Near\n");
    const auto isBack = std::make_shared<std::latch>(1);
    m_step = std::chrono::seconds(1);
    const auto shared = catalog([isBack](const QString &folder) {
        if (folder.endsWith(u"user"))
            isBack->wait();
        return DesktopEntryScan::of(folder);
    });
    const DesktopEntryApplicationNames names(shared);
    FreedesktopInstalledApplications applications(shared);
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return names.identify(window("x", "near")).name == QStringLiteral("Near"); }));
    EXPECT_EQ(names.identify(window("x", "far")).name, QStringLiteral("far"));
    EXPECT_EQ(applications.applications().size(), 1);
    isBack->count_down();
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return names.identify(window("x", "far")).name == QStringLiteral("Far"); }));
    m_step = std::chrono::milliseconds(0);
    EXPECT_EQ(applications.applications().size(), 2);
}

/// A file that may be run, at `path`.
void putProgram(const QString &path)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.setPermissions(QFileDevice::ReadOwner | QFileDevice::ExeOwner);
}

TEST_F(DesktopApplications, whatIsChosenByHandBearsTheNameThatCaptureGivesItsWindow)
{
    const auto at = [this](const char *path) { return m_folder.filePath(QString::fromUtf8(path)); };
    for (const char *program : {"bin/reed", "bin/Reed.AppImage", "bin/plain", "bin/sedge"})
        putProgram(at(program));
    ASSERT_TRUE(QFile::link(at("bin/reed"), at("bin/link")));
    ASSERT_TRUE(QFile::link(at("bin/plain"), at("bin/plain-link")));
    put("reed.desktop", "Name=Reed Editor\nExec=\"" + at("bin/reed").toUtf8() + "\" %U\n");
    put("image.desktop", "Name=Image\nExec=" + at("bin/Reed.AppImage").toUtf8() + "\n");
    put("else/copy.desktop", "Name=Copied\nExec=" + at("bin/reed").toUtf8() + "\n", "desk");
    put("else/own.desktop", "Name=Of its own\nExec=/nowhere\n", "desk");
    // Runs out of the image; its own executable lies within.
    WindowIdentity image = window("inner", "Inner", "", "inner");
    image.programPath = at("bin/Reed.AppImage");
    WindowIdentity sedge = window("sedge", "Sedge", "", "sedge");
    sedge.programPath = at("bin/sedge");
    const auto shared = catalog();
    FreedesktopInstalledApplications applications(shared, [&] {
        return QList<WindowIdentity>{image, sedge, sedge};
    });
    struct Row
    {
        const char *file;
        const char *name;
        const char *path;
    };
    const Row rows[]{
        {"bin/reed", "Reed Editor", "system/reed.desktop"},
        {"bin/link", "Reed Editor", "system/reed.desktop"},
        {"bin/Reed.AppImage", "Image", "system/image.desktop"},
        {"bin/sedge", "Sedge", "bin/sedge"},
        {"bin/plain", "plain", "bin/plain"},
        {"bin/plain-link", "plain", "bin/plain"},
        {"system/reed.desktop", "Reed Editor", "system/reed.desktop"},
        {"desk/else/copy.desktop", "Reed Editor", "system/reed.desktop"},
        {"desk/else/own.desktop", "Of its own", "desk/else/own.desktop"},
    };
    for (const Row &row : rows) {
        const auto chosen = applications.applicationAtPath(at(row.file));
        ASSERT_TRUE(chosen) << row.file;
        EXPECT_EQ(chosen->name.toStdString(), row.name) << row.file;
        EXPECT_EQ(chosen->path, at(row.path)) << row.file;
    }
    EXPECT_EQ(DesktopEntryApplicationNames(shared).identify(image).name, QStringLiteral("Image"));
    QStringList offered;
    for (const InstalledApplication &application : applications.applications())
        offered.append(application.name);
    EXPECT_EQ(offered, (QStringList{QStringLiteral("Image"), QStringLiteral("Reed Editor"),
                                    QStringLiteral("Sedge")}));
}

TEST_F(DesktopApplications, manyThreadsMayAskWhileTheFoldersChange)
{
    put("a.desktop", "Name=A\n");
    const auto shared = catalog();
    const DesktopEntryApplicationNames names(shared);
    std::vector<std::thread> threads;
    std::atomic<int> wrong = 0;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            for (int round = 0; round < 300; ++round)
                wrong += names.identify(window("x", "a")).name != QStringLiteral("A");
        });
    }
    for (int round = 0; round < 20; ++round) {
        put(qPrintable(QStringLiteral("b%1.desktop").arg(round)), "Name=B\n");
        shared->currentIndex();
    }
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_EQ(wrong, 0);
}

} // namespace
