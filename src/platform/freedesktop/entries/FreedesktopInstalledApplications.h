#pragma once

#include "platform/ApplicationNames.h"
#include "platform/InstalledApplications.h"

#include <functional>
#include <memory>

class DesktopEntryCatalog;
class DesktopEntryIndex;

/// The applications with a desktop entry, and the programs that have a window open.
class FreedesktopInstalledApplications : public InstalledApplications
{
public:
    using OpenWindows = std::function<QList<WindowIdentity>()>;

    /// `openWindows` tells of each window that is open now and not our own.
    explicit FreedesktopInstalledApplications(
        std::shared_ptr<DesktopEntryCatalog> catalog,
        OpenWindows openWindows = [] { return QList<WindowIdentity>(); });

    // ^InstalledApplications
    QList<InstalledApplication> applications() override;
    std::optional<InstalledApplication> applicationAtPath(const QString &path) override;
    QIcon icon(const InstalledApplication &application) override;

private:
    /// By capture's rule, so that what is chosen is what is ignored.
    InstalledApplication ofWindow(const DesktopEntryIndex &index,
                                  const WindowIdentity &window) const;
    std::optional<InstalledApplication> ofEntry(const QString &path) const;
    InstalledApplication ofProgram(const QString &path) const;

    std::shared_ptr<DesktopEntryCatalog> m_catalog;
    OpenWindows m_openWindows;
};
