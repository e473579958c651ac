#include "platform/freedesktop/FreedesktopWorkspace.h"

#include "platform/FileQuestions.h"

#include "BusService.h"
#include "support/ExpectedWarnings.h"

#include <QDir>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

class FakeFileManager : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")

public:
    void reset() {}
    QStringList calls;

public Q_SLOTS:
    void ShowItems(const QStringList &uris, const QString &startupId)
    {
        calls << uris.join(u'|') + u' ' + startupId;
    }
};

namespace {

/// A folder of programs that stands for the whole PATH, and one of files.
class FreedesktopWorkspaceTest : public testing::Test
{
protected:
    FreedesktopWorkspaceTest() : savedPath(qgetenv("PATH"))
    {
        qputenv("PATH", QFile::encodeName(programs.path()));
    }
    ~FreedesktopWorkspaceTest() override { qputenv("PATH", savedPath); }

    /// A program that writes down what it was asked to open.
    void install(const QString &name)
    {
        write(programs.filePath(name),
              "#!/bin/sh\nprintf '%s\\n' \"${0##*/} $*\" > " + noteFile().toLocal8Bit());
        QFile::setPermissions(programs.filePath(name),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    static void write(const QString &name, const QByteArray &bytes)
    {
        QFile file(name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    QString noteFile() const { return files.filePath(QStringLiteral("note")); }

    bool isNoted(const QString &expected) const
    {
        return QTest::qWaitFor([&] {
            QFile file(noteFile());
            return file.open(QIODevice::ReadOnly) && file.readAll() == expected.toUtf8() + '\n';
        });
    }

    QByteArray savedPath;
    QTemporaryDir programs;
    QTemporaryDir files;
    FileQuestions questions;
    FreedesktopWorkspace workspace{questions};
};

TEST_F(FreedesktopWorkspaceTest, opensFilesAndAddressesWithTheDesktopsOpener)
{
    const QString file = files.filePath(QStringLiteral("a b's $file.txt"));
    write(file, "x");
    install(QStringLiteral("gio"));
    EXPECT_TRUE(workspace.openFile(file));
    EXPECT_TRUE(isNoted(QStringLiteral("gio open ") + file));
    install(QStringLiteral("xdg-open"));
    EXPECT_TRUE(workspace.openUrl(QUrl(QStringLiteral("https://example.org/ü?a=b c"))));
    EXPECT_TRUE(isNoted(QStringLiteral("xdg-open https://example.org/%C3%BC?a=b%20c")));
}

TEST_F(FreedesktopWorkspaceTest, saysWhenNothingCanBeOpened)
{
    install(QStringLiteral("xdg-open"));
    EXPECT_FALSE(workspace.openFile(files.filePath(QStringLiteral("missing"))));
    EXPECT_FALSE(workspace.openUrl(QUrl()));
    EXPECT_FALSE(workspace.openUrl(QUrl(QStringLiteral("--help"))));
    QFile::remove(programs.filePath(QStringLiteral("xdg-open")));
    ExpectedWarnings::expect(QStringLiteral("could be started"));
    EXPECT_FALSE(workspace.openFile(files.path()));
}

TEST_F(FreedesktopWorkspaceTest, showsAFileInTheFileManagerElseOpensItsFolder)
{
    install(QStringLiteral("xdg-open"));
    const QString file = files.filePath(QStringLiteral("ä b.txt"));
    BusService<FakeFileManager> manager(QStringLiteral("org.freedesktop.FileManager1"),
                                        QStringLiteral("/org/freedesktop/FileManager1"));
    workspace.selectFile(file, files.path());
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return manager.ask([](FakeFileManager &fake) { return fake.calls; }) ==
               QStringList{QString::fromLatin1(QUrl::fromLocalFile(file).toEncoded()) + u' '};
    }));
    EXPECT_FALSE(QFile::exists(noteFile()));
    FreedesktopWorkspace withoutBus{questions,
                                    QDBusConnection(QStringLiteral("no such connection"))};
    withoutBus.selectFile(file, files.path());
    EXPECT_TRUE(isNoted(QStringLiteral("xdg-open ") + files.path()));
}

TEST_F(FreedesktopWorkspaceTest, aDesktopEntryShowsItsOwnIconAndNothingIsWithoutOne)
{
    QImage picture(16, 16, QImage::Format_RGB32);
    picture.fill(Qt::magenta);
    ASSERT_TRUE(picture.save(files.filePath(QStringLiteral("icon.png"))));
    const QString entry = files.filePath(QStringLiteral("app.desktop"));
    write(entry, "[Desktop Entry]\nName=App\nIcon=" +
                     files.filePath(QStringLiteral("icon.png")).toLocal8Bit() +
                     "\n[Desktop Action x]\nIcon=/none.png\n");
    const QImage shown = workspace.iconForFile(entry).pixmap(16, 16).toImage();
    ASSERT_FALSE(shown.isNull());
    EXPECT_EQ(shown.pixelColor(8, 8), QColor(Qt::magenta));

    for (const char *other : {"text.txt", "gone.desktop", "", "/dev/null", "/proc"}) {
        const QString path =
            *other == '/' ? QString::fromLatin1(other) : files.filePath(QLatin1String(other));
        EXPECT_FALSE(workspace.iconForFile(path).pixmap(16, 16).isNull()) << other;
    }
}

} // namespace

#include "WorkspaceTest.moc"
