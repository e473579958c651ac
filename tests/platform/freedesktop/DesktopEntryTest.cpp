#include "platform/freedesktop/entries/DesktopEntry.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <random>
#include <sys/stat.h>

namespace {

TEST(DesktopEntry, theFirstOfItsGroupsUntranslatedKeysCount)
{
    const auto entry = DesktopEntry::parse("# comment\r\n\r\n[Other]\nName=no\n[Desktop Entry]\r\n"
                                           "Name[de]=Rechner\nName = One\\sTwo\\n\\\\ \r\n"
                                           "Name=Second\nHidden=true\nNoDisplay=True\n=none\n"
                                           "Categories=System;TerminalEmulator;\n"
                                           "[Desktop Action new]\nIcon=no\n");
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->text("Name"), QStringLiteral("One Two\n\\"));
    EXPECT_TRUE(entry->isTrue("Hidden"));
    EXPECT_FALSE(entry->isTrue("NoDisplay"));
    EXPECT_EQ(entry->list("Categories"),
              (QStringList{QStringLiteral("System"), QStringLiteral("TerminalEmulator")}));
    EXPECT_FALSE(entry->text("Icon"));
    EXPECT_FALSE(DesktopEntry::parse("Name=without a group\n"));
}

struct Command
{
    const char *name;
    const char *exec;
    QStringList words;
};

using DesktopEntryCommand = testing::TestWithParam<Command>;

TEST_P(DesktopEntryCommand, isSplitAsQuoted)
{
    const auto entry = DesktopEntry::parse(QByteArray("[Desktop Entry]\nExec=") + GetParam().exec);
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->command(), GetParam().words);
}

INSTANTIATE_TEST_SUITE_P(
    Exec, DesktopEntryCommand,
    testing::Values(
        Command{"plain", "app --new  %U", {QStringLiteral("app"), QStringLiteral("--new")}},
        Command{"quoted",
                R"("/opt/My App/run" "a \\"b\\" \\$c \\\\d" 100%%)",
                {QStringLiteral("/opt/My App/run"), QStringLiteral("a \"b\" $c \\d"),
                 QStringLiteral("100%")}},
        Command{"emptyArgument", R"(app "")", {QStringLiteral("app"), QString(QLatin1String(""))}},
        Command{"openQuote", R"(app "x)", {}}, Command{"nothing", "", {}}),
    [](const auto &row) { return std::string(row.param.name); });

TEST(DesktopEntry, anyCommandComesBackFromItsExec)
{
    const QStringList command{QStringLiteral("/opt/é 🗝/a\"b`c$d\\e%f\tg\nh"),
                              QStringLiteral("%U"), QString(QLatin1String("")),
                              QStringLiteral("--x=~&;|"), QStringLiteral("plain")};
    const QByteArray bytes = "[Desktop Entry]\nExec=" + DesktopEntry::execValue(command).toUtf8();
    EXPECT_EQ(DesktopEntry::parse(bytes)->command(), command);
}

TEST(DesktopEntry, whatIsNoOrdinaryFileIsNotRead)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.desktop"));
    ASSERT_EQ(mkfifo(qUtf8Printable(path), 0600), 0);
    EXPECT_FALSE(DesktopEntry::read(path));
    EXPECT_FALSE(DesktopEntry::read(QStringLiteral("/dev/zero")));
    EXPECT_FALSE(DesktopEntry::read(folder.path()));
    QFile huge(folder.filePath(QStringLiteral("huge.desktop")));
    ASSERT_TRUE(huge.open(QIODevice::WriteOnly));
    huge.write("[Desktop Entry]\n");
    ASSERT_TRUE(huge.resize(2 * 1024 * 1024));
    huge.close();
    EXPECT_FALSE(DesktopEntry::read(huge.fileName()));
}

TEST(DesktopEntry, noBytesAreBeyondReading)
{
    std::mt19937 random(20260103);
    const QByteArray alphabet = QByteArrayLiteral("[]=\\\"%\n\r# ;DesktopEntryExec\0\xff\xc3(");
    for (int round = 0; round < 5'000; ++round) {
        QByteArray bytes = round % 2 ? "[Desktop Entry]\nExec=" : "";
        for (quint32 length = random() % 200; length > 0; --length)
            bytes +=
                alphabet[static_cast<qsizetype>(random() % static_cast<quint32>(alphabet.size()))];
        if (const auto entry = DesktopEntry::parse(bytes)) {
            const QStringList command = entry->command();
            EXPECT_LE(command.join(u' ').size(), bytes.size() + 1);
        }
    }
}

} // namespace
