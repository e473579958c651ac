#pragma once

#include "platform/ApplicationNames.h"

#include <memory>

class DesktopEntryCatalog;

/// Names applications by their desktop entries.
class DesktopEntryApplicationNames : public ApplicationNames
{
public:
    explicit DesktopEntryApplicationNames(std::shared_ptr<DesktopEntryCatalog> catalog);

    // ^ApplicationNames
    ApplicationIdentity identify(const WindowIdentity &window) const override;

private:
    std::shared_ptr<DesktopEntryCatalog> m_catalog;
};
