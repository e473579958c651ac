#include "Clipboard/LaunchAtLogin.h"

#include <QFileInfo>

#include <cstdio>

namespace {

/// These lines belong to standard output, not to the log.
void print(const QString &line)
{
    std::printf("%s\n", qUtf8Printable(line));
    std::fflush(stdout);
}

} // namespace

LaunchAtLogin::LaunchAtLogin(LoginItems &items, std::function<void(const QString &)> logTrace)
    : m_items(items), m_logTrace(std::move(logTrace))
{
}

LaunchAtLogin::Lookup LaunchAtLogin::applicationIsInStartUpItems() const
{
    if (!m_items.applicationPath()) {
        m_logTrace(QStringLiteral("itemReferencesInLoginItems 3"));
        return {};
    }
    m_logTrace(QStringLiteral("itemReferencesInLoginItems 1"));
    const std::optional<QList<LoginItem>> items = m_items.snapshot();
    if (!items)
        qFatal("The login items cannot be read");
    m_logTrace(QStringLiteral("itemReferencesInLoginItems 2"));
    if (items->isEmpty())
        return {std::nullopt, InsertionPoint{}};

    print(QStringLiteral("There are %1 login items").arg(items->size()));
    const InsertionPoint end{items->last()};
    for (const LoginItem &item : *items) {
        const std::optional<QString> path = m_items.resolvedPath(item);
        if (!path) {
            print(QStringLiteral("Unknown login application"));
            continue;
        }
        print(QStringLiteral("URL Ref: ") + QFileInfo(*path).fileName());
        if (m_items.startsApplication(item))
            return {item, end};
    }
    return {std::nullopt, end};
}

void LaunchAtLogin::launchAtStartup(bool isOn)
{
    const auto [existing, end] = applicationIsInStartUpItems();
    if (existing)
        m_items.remove(*existing);
    if (!isOn) {
        if (existing)
            print(QStringLiteral("Application was removed from login items"));
        return;
    }
    // Without a place there is nothing that an entry could start.
    if (!end)
        return;
    m_items.insertLast(*m_items.applicationPath());
    print(QStringLiteral("Application was added to login items"));
}
