#include "platform/freedesktop/entries/DesktopEntryApplicationNames.h"

#include "platform/freedesktop/entries/DesktopEntryCatalog.h"

DesktopEntryApplicationNames::DesktopEntryApplicationNames(
    std::shared_ptr<DesktopEntryCatalog> catalog)
    : m_catalog(std::move(catalog))
{
}

ApplicationIdentity DesktopEntryApplicationNames::identify(const WindowIdentity &window) const
{
    const auto index = m_catalog->index();
    if (const DesktopApplication *application = index->find(window))
        return {application->name, application->isTerminal};
    // The class before the process: it is the application's own word for itself.
    const QString &name =
        window.resourceClass.isEmpty() ? window.processName : window.resourceClass;
    return {name};
}
