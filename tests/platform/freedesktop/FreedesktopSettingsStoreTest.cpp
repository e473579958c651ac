#include "platform/freedesktop/FreedesktopSettingsStore.h"

#include "support/ExpectedWarnings.h"
#include "support/FullDisk.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPoint>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <csignal>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

const QString kKey = QStringLiteral("maxItems");

class FreedesktopSettings : public testing::Test
{
protected:
    QString path(const char *name = "config/settings.plist") const
    {
        return m_folder.filePath(QString::fromUtf8(name));
    }

    void put(const QByteArray &bytes, const char *name = "config/settings.plist") const
    {
        QDir().mkpath(QFileInfo(path(name)).path());
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    QByteArray bytes(const char *name = "config/settings.plist") const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    /// What a start of the program would find now.
    QVariant stored(const QString &key = kKey) const
    {
        return FreedesktopSettingsStore(path()).value(key);
    }

    QTemporaryDir m_folder;
};

const QByteArray kOlder = "<plist><dict><key>maxItems</key><integer>5</integer></dict></plist>";
const QByteArray kMalformed = "<plist><dict><key>maxItems</key>";

TEST_F(FreedesktopSettings, aValueOutlivesAKillRightAfterItWasSet)
{
    const pid_t child = fork();
    if (child == 0) {
        FreedesktopSettingsStore(path()).setValue(kKey, qlonglong(7));
        raise(SIGKILL);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(stored(), qlonglong(7));
}

TEST_F(FreedesktopSettings, theFileIsPrivateXmlThatAnotherReaderUnderstands)
{
    FreedesktopSettingsStore settings(path());
    settings.setValue(kKey, qlonglong(-3));
    settings.setValue(QStringLiteral("archive"), QByteArray("\0\1", 2));
    settings.setValue(QStringLiteral("text"), QStringLiteral("a\x01\u0007<🗝>"));
    EXPECT_EQ(QFileInfo(path()).permissions() & 0x777,
              QFileDevice::ReadUser | QFileDevice::WriteUser);
    EXPECT_TRUE(bytes().startsWith("<?xml"));
    QProcess python;
    python.start(QStringLiteral("/usr/bin/python3"),
                 {QStringLiteral("-c"),
                  QStringLiteral("import plistlib,sys;d=plistlib.load(open(sys.argv[1],'rb'));"
                                 "print(d['maxItems'],d['archive'],ascii(d['text']))"),
                  path()});
    ASSERT_TRUE(python.waitForFinished());
    EXPECT_EQ(python.readAllStandardOutput().toStdString(),
              "-3 b'\\x00\\x01' 'a\\ufffd\\ufffd<\\U0001f5dd>'\n");
}

TEST_F(FreedesktopSettings, whatItDoesNotKnowStaysInTheFile)
{
    put("<plist><dict><key>big</key><integer>18446744073709551615</integer>"
        "<key>nested</key><dict><key>a</key><array><real>0.5</real></array></dict>"
        "<key>when</key><date>2026-01-02T03:04:05Z</date></dict></plist>");
    FreedesktopSettingsStore(path()).setValue(kKey, true);
    EXPECT_TRUE(bytes().contains("<integer>18446744073709551615</integer>"));
    EXPECT_TRUE(bytes().contains("<real>0.5</real>"));
    EXPECT_TRUE(bytes().contains("<date>2026-01-02T03:04:05Z</date>"));
}

TEST_F(FreedesktopSettings, whatAnotherProgramWroteMeanwhileStays)
{
    put(kOlder);
    FreedesktopSettingsStore settings(path());
    FreedesktopSettingsStore(path()).setValue(QStringLiteral("other"), true);
    settings.setValue(kKey, qlonglong(6));
    EXPECT_EQ(stored(QStringLiteral("other")), true);
    EXPECT_EQ(stored(), qlonglong(6));
}

TEST_F(FreedesktopSettings, aBinaryFileIsReadAndWrittenAsXml)
{
    const auto tree = PropertyList::parse(kOlder);
    put(PropertyList::toBinary(tree.get()));
    EXPECT_EQ(stored(), qlonglong(5));
    FreedesktopSettingsStore(path()).setValue(QStringLiteral("other"), true);
    EXPECT_TRUE(bytes().startsWith("<?xml"));
    EXPECT_EQ(stored(), qlonglong(5));
}

TEST_F(FreedesktopSettings, aValueOfAnImpossibleTypeIsRefused)
{
    FreedesktopSettingsStore settings(path());
    settings.setValue(kKey, true);
    ExpectedWarnings::expect(QStringLiteral("A setting cannot be of the type QPoint"));
    settings.setValue(kKey, QPoint(1, 2));
    EXPECT_EQ(settings.value(kKey), true);
}

TEST_F(FreedesktopSettings, aMalformedFileIsSetAsideUntilFreshSettingsAreAccepted)
{
    put(kMalformed);
    put("earlier", "config/settings.plist.damaged-1");
    ExpectedWarnings::expect(QStringLiteral("the file is now"));
    {
        FreedesktopSettingsStore settings(path());
        EXPECT_TRUE(settings.areSettingsDamaged());
        settings.setValue(kKey, qlonglong(1));
        EXPECT_EQ(settings.value(kKey), qlonglong(1));
    }
    EXPECT_EQ(bytes("config/settings.plist.damaged-1"), "earlier");
    EXPECT_EQ(bytes("config/settings.plist.damaged-2"), kMalformed);
    // The question was not answered, so a restart asks it again.
    FreedesktopSettingsStore restarted(path());
    EXPECT_TRUE(restarted.areSettingsDamaged());
    restarted.setValue(kKey, qlonglong(2));
    restarted.acceptFreshSettings();
    EXPECT_FALSE(restarted.areSettingsDamaged());
    EXPECT_FALSE(FreedesktopSettingsStore(path()).areSettingsDamaged());
    EXPECT_EQ(stored(), qlonglong(2));
}

TEST_F(FreedesktopSettings, anythingButADictionaryIsDamagedAndAPipeIsNotOpened)
{
    for (const QByteArray &content : {QByteArray(), QByteArray("<plist><true/></plist>"),
                                      QByteArray("bplist00\xff"), QByteArray("{json: 1}")}) {
        put(content);
        ExpectedWarnings::expect(QStringLiteral("the file is now"));
        EXPECT_TRUE(FreedesktopSettingsStore(path()).areSettingsDamaged()) << content.constData();
    }
    ASSERT_EQ(mkfifo(qUtf8Printable(path()), 0600), 0);
    ExpectedWarnings::expect(QStringLiteral("it is not a file of settings"));
    EXPECT_TRUE(FreedesktopSettingsStore(path()).areSettingsDamaged());
}

TEST_F(FreedesktopSettings, aFileThatIsSpoiledWhileRunningIsSetAsideAndNothingIsLost)
{
    put(kOlder);
    FreedesktopSettingsStore settings(path());
    put(kMalformed);
    ExpectedWarnings::expect(QStringLiteral("the file is now"));
    settings.setValue(QStringLiteral("other"), true);
    EXPECT_FALSE(settings.areSettingsDamaged());
    EXPECT_EQ(stored(), qlonglong(5));
    EXPECT_EQ(bytes("config/settings.plist.damaged-1"), kMalformed);
}

TEST_F(FreedesktopSettings, aFailedWriteHoldsInMemoryAndIsMadeUpForByTheNext)
{
    // A file where the folder should be refuses everybody, root too.
    put("", "config");
    FreedesktopSettingsStore settings(path());
    ExpectedWarnings::expect(QStringLiteral("could not be written"));
    settings.setValue(kKey, qlonglong(1));
    settings.setValue(QStringLiteral("other"), qlonglong(2));
    EXPECT_EQ(settings.value(kKey), qlonglong(1));
    ASSERT_TRUE(QFile::remove(path("config")));
    settings.setValue(QStringLiteral("third"), qlonglong(3));
    EXPECT_EQ(stored(), qlonglong(1));
    EXPECT_EQ(stored(QStringLiteral("other")), qlonglong(2));
}

TEST_F(FreedesktopSettings, aFullDiskLeavesTheFileAsItWas)
{
    FreedesktopSettingsStore settings(path());
    settings.setValue(kKey, qlonglong(1));
    const QByteArray before = bytes();
    {
        const FullDisk disk(10);
        ExpectedWarnings::expect(QStringLiteral("could not be written"));
        settings.setValue(kKey, qlonglong(2));
    }
    EXPECT_EQ(bytes(), before);
    EXPECT_EQ(settings.value(kKey), qlonglong(2));
    settings.setValue(QStringLiteral("other"), true);
    EXPECT_EQ(stored(), qlonglong(2));
}

TEST_F(FreedesktopSettings, aLinkedFileStaysALink)
{
    put(kOlder, "dotfiles/settings.plist");
    QDir().mkpath(path("config"));
    ASSERT_TRUE(QFile::link(path("dotfiles/settings.plist"), path()));
    FreedesktopSettingsStore(path()).setValue(kKey, qlonglong(9));
    EXPECT_TRUE(QFileInfo(path()).isSymLink());
    EXPECT_EQ(stored(), qlonglong(9));
    EXPECT_TRUE(bytes("dotfiles/settings.plist").contains("<integer>9</integer>"));
    // A link whose target is yet to come is not damage.
    ASSERT_TRUE(QDir(path("dotfiles")).removeRecursively());
    FreedesktopSettingsStore fresh(path());
    EXPECT_FALSE(fresh.areSettingsDamaged());
    fresh.setValue(kKey, qlonglong(10));
    EXPECT_TRUE(bytes("dotfiles/settings.plist").contains("<integer>10</integer>"));
}

} // namespace
