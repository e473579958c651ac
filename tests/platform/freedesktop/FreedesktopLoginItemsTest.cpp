#include "platform/freedesktop/entries/FreedesktopLoginItems.h"
#include "platform/freedesktop/RegularFile.h"
#include "platform/freedesktop/entries/AutostartEntry.h"

#include "support/ExpectedWarnings.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

class FreedesktopLogin : public testing::Test
{
protected:
    QString path(const char *name) const { return m_folder.filePath(QString::fromUtf8(name)); }

    void put(const char *name, const QByteArray &bytes) const
    {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    FreedesktopLoginItems items() const
    {
        return FreedesktopLoginItems(m_folder.path(), QCoreApplication::applicationFilePath());
    }

    QByteArray ours() const
    {
        return readRegularFile(path("org.quillmarsh.Quillmarsh.desktop")).value_or(QByteArray());
    }

    QTemporaryDir m_folder;
};

TEST_F(FreedesktopLogin, theEntryIsValidForAnyPath)
{
    const QString odd = path("a \"quoted\" $path 100%\\é");
    ASSERT_TRUE(QFile::copy(QStringLiteral("/usr/bin/true"), odd));
    FreedesktopLoginItems items(m_folder.path(), odd);
    items.insertLast(odd);
    EXPECT_EQ(items.resolvedPath(items.snapshot().value().first()), odd);
    QProcess validate;
    validate.start(QStringLiteral("desktop-file-validate"),
                   {path("org.quillmarsh.Quillmarsh.desktop")});
    ASSERT_TRUE(validate.waitForFinished());
    EXPECT_EQ(validate.readAllStandardOutput().toStdString(), "");
    EXPECT_EQ(validate.exitCode(), 0);
}

TEST_F(FreedesktopLogin, whatTheUserAddedMovesAlongAndWhatSwitchedItOffDoesNot)
{
    auto items = this->items();
    items.insertLast(QCoreApplication::applicationFilePath());
    const QByteArray plain = ours();
    put("org.quillmarsh.Quillmarsh.desktop",
        plain + "X-GNOME-Autostart-Delay=5\nX-GNOME-Autostart-enabled=false\nTryExec=/gone\n"
                "Comment[de]=Ablage\nX-GNOME-Autostart-Delay=6\nno key\n\n"
                "[Desktop Action new]\nName=New\n");
    items.remove(items.snapshot().value().first());
    EXPECT_TRUE(ours().isEmpty());
    items.insertLast(QCoreApplication::applicationFilePath());
    EXPECT_EQ(ours().toStdString(), (plain + "X-GNOME-Autostart-Delay=5\nComment[de]=Ablage\n\n"
                                             "[Desktop Action new]\nName=New\n")
                                        .toStdString());
}

TEST_F(FreedesktopLogin, anEntryOutlivesTheVersionThatWroteIt)
{
    for (const char *version : {"1.0", "1.1"}) {
        ASSERT_TRUE(QDir(m_folder.path()).mkpath(path("versions/") + QLatin1String(version)));
        ASSERT_TRUE(QFile::copy(QStringLiteral("/usr/bin/true"),
                                path("versions/") + QLatin1String(version) +
                                    QStringLiteral("/quillmarsh")));
    }
    ASSERT_TRUE(QFile::link(QStringLiteral("versions/1.0"), path("current")));
    FreedesktopLoginItems items(m_folder.path(), path("versions/1.0/quillmarsh"));
    items.insertLast(path("versions/1.0/quillmarsh"));
    EXPECT_TRUE(items.startsApplication(items.snapshot().value().first()));
    QFile::remove(path("current"));
    ASSERT_TRUE(QFile::link(QStringLiteral("versions/1.1"), path("current")));
    const FreedesktopLoginItems later(m_folder.path(), path("versions/1.1/quillmarsh"));
    EXPECT_TRUE(later.startsApplication(items.snapshot().value().first()));
}

TEST_F(FreedesktopLogin, aHiddenEntryIsNotInTheListAndIsShownAgainByInserting)
{
    put("org.quillmarsh.Quillmarsh.desktop", "[Desktop Entry]\nHidden=true\nX-Mine=1\n");
    auto items = this->items();
    EXPECT_TRUE(items.snapshot()->isEmpty());
    items.insertLast(QCoreApplication::applicationFilePath());
    EXPECT_EQ(items.snapshot()->size(), 1);
    EXPECT_FALSE(ours().contains("Hidden"));
    EXPECT_TRUE(ours().contains("X-Mine=1"));
}

TEST_F(FreedesktopLogin, itsEntryIsSeenAsTheSessionWillSeeIt)
{
    const QByteArray us =
        "[Desktop Entry]\nExec=" +
        QFile::encodeName(QFileInfo(QCoreApplication::applicationFilePath()).filePath()) + '\n';
    struct Row
    {
        const char *file;
        QByteArray entry;
        OwnEntry state;
    };
    const char *const kOurs = "org.quillmarsh.Quillmarsh.desktop";
    const Row rows[]{
        {"other.desktop", "[Desktop Entry]\nExec=true\n", OwnEntry::Missing},
        {kOurs, "[Desktop Entry]\nExec=/nowhere/quillmarsh\n", OwnEntry::Missing},
        {kOurs, us, OwnEntry::Enabled},
        {kOurs, us + "X-GNOME-Autostart-enabled=true\n", OwnEntry::Enabled},
        {kOurs, us + "X-GNOME-Autostart-enabled=false\n", OwnEntry::Disabled},
        {kOurs, us + "Hidden=true\n", OwnEntry::Disabled},
        {kOurs, "[Desktop Entry]\nHidden=true\n", OwnEntry::Disabled},
        {"mine.desktop", us, OwnEntry::Enabled},
    };
    for (const Row &row : rows) {
        put(row.file, row.entry);
        EXPECT_EQ(items().ownEntry(), row.state) << row.entry.constData();
    }
}

TEST_F(FreedesktopLogin, brokenEntriesAreListedButDoNotResolve)
{
    put("binary.desktop", QByteArray(1000, '\xfe'));
    put("gone.desktop", "[Desktop Entry]\nExec=/nowhere/program\n");
    put("huge.desktop", "[Desktop Entry]\nExec=true\n" + QByteArray(2'000'000, '#'));
    put("notes.txt", "[Desktop Entry]\nExec=true\n");
    ASSERT_TRUE(QFile::link(QStringLiteral("/nowhere"), path("link.desktop")));
    const auto items = this->items();
    const QList<LoginItem> list = items.snapshot().value();
    ASSERT_EQ(list.size(), 4);
    for (const LoginItem &item : list)
        EXPECT_FALSE(items.resolvedPath(item)) << qUtf8Printable(item.id);
}

TEST_F(FreedesktopLogin, aProgramIsFoundOnThePathAndThroughLinks)
{
    ASSERT_TRUE(QFile::link(QCoreApplication::applicationFilePath(), path("linked")));
    put("a.desktop", "[Desktop Entry]\nExec=\"" + path("linked").toUtf8() + "\" %U\n");
    put("b.desktop", "[Desktop Entry]\nExec=env A=b\n");
    const auto items = this->items();
    EXPECT_EQ(items.resolvedPath({QStringLiteral("a.desktop")}), path("linked"));
    EXPECT_TRUE(items.startsApplication({QStringLiteral("a.desktop")}));
    EXPECT_FALSE(items.startsApplication({QStringLiteral("b.desktop")}));
    EXPECT_TRUE(items.resolvedPath({QStringLiteral("b.desktop")})->endsWith(u"/env"));
}

TEST_F(FreedesktopLogin, aMissingOrDanglingFolderIsEmptyAndIsMade)
{
    ASSERT_TRUE(QFile::link(path("target"), path("dangling")));
    for (const char *name : {"missing/below", "dangling"}) {
        FreedesktopLoginItems items(path(name), QCoreApplication::applicationFilePath());
        ASSERT_TRUE(items.snapshot()) << name;
        EXPECT_TRUE(items.snapshot()->isEmpty());
        items.insertLast(QCoreApplication::applicationFilePath());
        EXPECT_EQ(items.snapshot()->size(), 1) << name;
    }
}

TEST_F(FreedesktopLogin, aFolderThatIsNoneIsNoListAndRefusesAnEntry)
{
    put("file", "");
    FreedesktopLoginItems items(path("file"), QCoreApplication::applicationFilePath());
    EXPECT_FALSE(items.snapshot());
    ExpectedWarnings::expect(QStringLiteral("could not be written"));
    items.insertLast(QCoreApplication::applicationFilePath());
    ExpectedWarnings::expect(QStringLiteral("could not be removed"));
    items.remove({QStringLiteral("a.desktop")});
}

TEST_F(FreedesktopLogin, aLinkInTheEntrysPlaceIsReplacedAndItsTargetLeftAlone)
{
    put("elsewhere", "[Desktop Entry]\nX-Mine=1\n");
    ASSERT_TRUE(QFile::link(path("elsewhere"), path("org.quillmarsh.Quillmarsh.desktop")));
    auto items = this->items();
    items.insertLast(QCoreApplication::applicationFilePath());
    EXPECT_EQ(readRegularFile(path("elsewhere")), "[Desktop Entry]\nX-Mine=1\n");
    EXPECT_TRUE(ours().contains("Exec="));
}

TEST_F(FreedesktopLogin, anotherProgramsImageIsNotTakenForOurs)
{
    put("other.AppImage", "");
    qputenv("APPDIR", m_folder.path().toUtf8());
    qputenv("APPIMAGE", path("other.AppImage").toUtf8());
    EXPECT_EQ(FreedesktopLoginItems::runningApplication(), QCoreApplication::applicationFilePath());
    qputenv("APPDIR", QCoreApplication::applicationDirPath().toUtf8());
    EXPECT_EQ(FreedesktopLoginItems::runningApplication(), path("other.AppImage"));
    qunsetenv("APPDIR");
    qunsetenv("APPIMAGE");
}

} // namespace
