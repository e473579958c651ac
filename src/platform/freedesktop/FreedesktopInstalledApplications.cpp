#include "platform/freedesktop/FreedesktopInstalledApplications.h"

#include "platform/freedesktop/DesktopEntry.h"
#include "platform/freedesktop/DesktopEntryCatalog.h"
#include "platform/freedesktop/DesktopEntryIcon.h"

#include <QApplication>
#include <QFileInfo>
#include <QSet>
#include <QStyle>

#include <algorithm>

namespace {

bool isPasswordManager(const DesktopApplication &application)
{
    // By the last part of the desktop id, which stays when a package renames the rest.
    static const QSet<QString> kPasswordManagers{
        QStringLiteral("1password"),
        QStringLiteral("authpass"),
        QStringLiteral("bitwarden"),
        QStringLiteral("buttercup"),
        QStringLiteral("dashlane"),
        QStringLiteral("enpass"),
        QStringLiteral("gnome-passwordsafe"),
        QStringLiteral("keepass"),
        QStringLiteral("keepass2"),
        QStringLiteral("keepassx"),
        QStringLiteral("keepassxc"),
        QStringLiteral("keeperpasswordmanager"),
        QStringLiteral("keyguard"),
        QStringLiteral("kpcli"),
        QStringLiteral("kwalletmanager"),
        QStringLiteral("kwalletmanager5"),
        QStringLiteral("lastpass"),
        QStringLiteral("nordpass"),
        QStringLiteral("onepassword"),
        QStringLiteral("padloc"),
        QStringLiteral("passwordsafe"),
        QStringLiteral("proton-pass"),
        QStringLiteral("pwsafe"),
        QStringLiteral("qtpass"),
        QStringLiteral("revelation"),
        QStringLiteral("secrets"),
    };
    static const QSet<QString> kWholeIds{QStringLiteral("com.bitwarden.desktop"),
                                         QStringLiteral("me.proton.pass"),
                                         QStringLiteral("org.gnome.seahorse.application")};
    const QString id = application.id.toLower();
    return kWholeIds.contains(id) || kPasswordManagers.contains(id.section(u'.', -1)) ||
           application.genericName.contains(u"password manager", Qt::CaseInsensitive);
}

} // namespace

FreedesktopInstalledApplications::FreedesktopInstalledApplications(
    std::shared_ptr<DesktopEntryCatalog> catalog)
    : m_catalog(std::move(catalog))
{
}

QList<InstalledApplication> FreedesktopInstalledApplications::applications()
{
    const auto index = m_catalog->currentIndex();
    QList<InstalledApplication> list;
    for (const DesktopApplication &application : index->scan().applications) {
        if (application.isDisplayed)
            list.append({application.name, application.path, application.iconName,
                         isPasswordManager(application)});
    }
    std::stable_sort(list.begin(), list.end(), [](const auto &left, const auto &right) {
        return QString::compare(left.name, right.name, Qt::CaseInsensitive) < 0;
    });
    return list;
}

std::optional<InstalledApplication>
FreedesktopInstalledApplications::applicationAtPath(const QString &path)
{
    const QFileInfo file(path);
    if (file.suffix() == u"desktop") {
        const auto entry = DesktopEntry::read(path);
        const QString name =
            entry ? entry->text("Name").value_or(QString()).simplified() : QString();
        if (name.isEmpty())
            return std::nullopt;
        return InstalledApplication{name, path, entry->text("Icon").value_or(QString()), false};
    }
    if (!file.isFile() || !file.isExecutable())
        return std::nullopt;
    return InstalledApplication{file.fileName(), path, {}, false};
}

QIcon FreedesktopInstalledApplications::icon(const InstalledApplication &application)
{
    QIcon icon = desktopEntryIcon(application.iconName);
    if (!icon.isNull())
        return icon;
    return QIcon::fromTheme(QStringLiteral("application-x-executable"),
                            QApplication::style()->standardIcon(QStyle::SP_FileIcon));
}
