#pragma once

#include "platform/InstalledApplications.h"

#include <memory>

class DesktopEntryCatalog;

/// The applications with a desktop entry.
class FreedesktopInstalledApplications : public InstalledApplications
{
public:
    explicit FreedesktopInstalledApplications(std::shared_ptr<DesktopEntryCatalog> catalog);

    // ^InstalledApplications
    QList<InstalledApplication> applications() override;
    std::optional<InstalledApplication> applicationAtPath(const QString &path) override;
    QIcon icon(const InstalledApplication &application) override;

private:
    std::shared_ptr<DesktopEntryCatalog> m_catalog;
};
