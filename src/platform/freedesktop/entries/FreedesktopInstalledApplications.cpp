#include "platform/freedesktop/entries/FreedesktopInstalledApplications.h"

#include "platform/freedesktop/entries/DesktopEntry.h"
#include "platform/freedesktop/entries/DesktopEntryApplicationNames.h"
#include "platform/freedesktop/entries/DesktopEntryCatalog.h"
#include "platform/freedesktop/entries/DesktopEntryIcon.h"

#include <QApplication>
#include <QFileInfo>
#include <QSet>
#include <QStandardPaths>
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

InstalledApplication installed(const DesktopApplication &application)
{
    return {application.name, application.path, application.iconName,
            isPasswordManager(application)};
}

} // namespace

FreedesktopInstalledApplications::FreedesktopInstalledApplications(
    std::shared_ptr<DesktopEntryCatalog> catalog, OpenWindows openWindows)
    : m_catalog(std::move(catalog)), m_openWindows(std::move(openWindows))
{
}

QList<InstalledApplication> FreedesktopInstalledApplications::applications()
{
    const auto index = m_catalog->currentIndex();
    QList<InstalledApplication> list;
    QSet<QString> names;
    for (const DesktopApplication &application : index->applications()) {
        if (!application.isDisplayed)
            continue;
        list.append(installed(application));
        names.insert(application.name);
    }
    for (const WindowIdentity &window : m_openWindows()) {
        const InstalledApplication application = ofWindow(*index, window);
        if (application.name.isEmpty() || names.contains(application.name))
            continue;
        list.append(application);
        names.insert(application.name);
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
    if (file.suffix() == u"desktop")
        return ofEntry(path);
    if (!file.isFile() || !file.isExecutable())
        return std::nullopt;
    return ofProgram(path);
}

InstalledApplication FreedesktopInstalledApplications::ofWindow(const DesktopEntryIndex &index,
                                                                const WindowIdentity &window) const
{
    if (const DesktopApplication *application = index.find(window))
        return installed(*application);
    return {DesktopEntryApplicationNames(m_catalog).identify(window).name,
            window.programPath,
            {},
            false};
}

std::optional<InstalledApplication>
FreedesktopInstalledApplications::ofEntry(const QString &path) const
{
    const auto entry = DesktopEntry::read(path);
    const QString name = entry ? entry->text("Name").value_or(QString()).simplified() : QString();
    if (name.isEmpty())
        return std::nullopt;
    // An entry that lies elsewhere, as on a desktop, names nobody's windows: what counts is the
    // installed one that starts the same program.
    const auto index = m_catalog->currentIndex();
    const QStringList command = entry->command();
    const QString program =
        QFileInfo(QStandardPaths::findExecutable(command.value(0))).canonicalFilePath();
    const auto &known = index->applications();
    const bool isInstalled =
        std::any_of(known.begin(), known.end(), [&](const DesktopApplication &application) {
            return application.name == name;
        });
    const DesktopApplication *starter = isInstalled ? nullptr : index->findProgram(program);
    if (starter)
        return installed(*starter);
    return InstalledApplication{name, path, entry->text("Icon").value_or(QString()), false};
}

InstalledApplication FreedesktopInstalledApplications::ofProgram(const QString &path) const
{
    const auto index = m_catalog->currentIndex();
    const QString program = QFileInfo(path).canonicalFilePath();
    if (const DesktopApplication *application = index->findProgram(program))
        return installed(*application);
    const QString processName = QFileInfo(program).fileName();
    const QList<WindowIdentity> windows = m_openWindows();
    // A script that starts its program from another folder often bears the program's name.
    for (const bool isByName : {false, true}) {
        for (const WindowIdentity &window : windows) {
            if (isByName ? window.processName == QFileInfo(path).fileName()
                         : window.programPath == program) {
                InstalledApplication application = ofWindow(*index, window);
                if (!application.name.isEmpty())
                    return application;
            }
        }
    }
    return ofWindow(*index, {{}, {}, {}, processName, program});
}

QIcon FreedesktopInstalledApplications::icon(const InstalledApplication &application)
{
    QIcon icon = desktopEntryIcon(application.iconName);
    if (!icon.isNull())
        return icon;
    return QIcon::fromTheme(QStringLiteral("application-x-executable"),
                            QApplication::style()->standardIcon(QStyle::SP_FileIcon));
}
