#include "platform/wayland/FrontNames.h"

#include "platform/ApplicationNames.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <utility>

FrontNames::FrontNames(std::shared_ptr<const Toplevels> toplevels, const ApplicationNames &names)
    : m_toplevels(std::move(toplevels)), m_names(names)
{
}

FrontNames::Front FrontNames::front() const
{
    const std::optional<Toplevels::Window> window = m_toplevels->front();
    const bool isOurs = m_oursHasKeyboard || (window && m_toplevels->isOurs(*window));
    QString applicationId;
    {
        const MutexLock lock(m_mutex);
        if (isOurs)
            m_lastApplicationId.clear();
        else if (window)
            m_lastApplicationId = window->applicationId;
        applicationId = m_lastApplicationId;
    }
    if (isOurs)
        return {ownName(), true};
    // Until its last window closes is as much as is known of how long a program runs.
    if (applicationId.isEmpty() || !m_toplevels->isOpen(applicationId))
        return {};
    Toplevels::Window named;
    named.applicationId = applicationId;
    return {m_names.identify(identityOf(named)).name, false};
}

QString FrontNames::ownName() const
{
    const QString program = QCoreApplication::applicationFilePath();
    return m_names
        .identify({m_toplevels->ownApplicationId(),
                   m_toplevels->ownApplicationId(),
                   {},
                   QFileInfo(program).fileName(),
                   program})
        .name;
}
