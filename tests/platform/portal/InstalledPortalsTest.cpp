#include "platform/portal/InstalledPortals.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

TEST(InstalledPortals, offerWhatTheirFilesListForTheDesktop)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("gnome.portal")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(
        "[portal]\nDBusName=org.freedesktop.impl.portal.desktop.gnome\n"
        "Interfaces=org.freedesktop.impl.portal.Access;org.freedesktop.impl.portal.Clipboard;"
        "org.freedesktop.impl.portal.RemoteDesktop;\nUseIn=gnome;unity\n");
    file.close();
    const auto gnome = QStringLiteral("GNOME");
    const auto clipboard = QStringLiteral("Clipboard");
    const auto remoteDesktop = QStringLiteral("RemoteDesktop");
    struct Row
    {
        const char *name;
        QStringList interfaces;
        QString desktop;
        bool isOffered;
    };
    const Row rows[] = {
        {"all of them", {remoteDesktop, clipboard}, gnome, true},
        {"the desktop's second name", {clipboard}, QStringLiteral("Unity"), true},
        {"one that is missing", {clipboard, QStringLiteral("InputCapture")}, gnome, false},
        {"part of a name", {QStringLiteral("Remote")}, gnome, false},
        {"another desktop", {clipboard}, QStringLiteral("KDE"), false},
    };
    for (const Row &row : rows)
        EXPECT_EQ(InstalledPortals::offer(row.interfaces, {row.desktop}, {folder.path()}),
                  row.isOffered)
            << row.name;
}
