#include "platform/memory/MemoryDesktopLists.h"

void MemoryLoginItems::append(const QString &program)
{
    m_items.append({LoginItem{QString::number(++m_lastId)}, program});
}

QStringList MemoryLoginItems::programs() const
{
    QStringList programs;
    for (const auto &[item, program] : m_items)
        programs.append(program);
    return programs;
}

std::optional<QList<LoginItem>> MemoryLoginItems::snapshot() const
{
    if (!m_isAvailable)
        return std::nullopt;
    QList<LoginItem> items;
    for (const auto &[item, program] : m_items)
        items.append(item);
    return items;
}

std::optional<QString> MemoryLoginItems::resolvedPath(const LoginItem &item) const
{
    for (const auto &[known, program] : m_items) {
        if (known == item && !program.isEmpty())
            return program;
    }
    return std::nullopt;
}

bool MemoryLoginItems::startsApplication(const LoginItem &item) const
{
    return m_applicationPath && resolvedPath(item) == m_applicationPath;
}

OwnEntry MemoryLoginItems::ownEntry() const
{
    for (const auto &[item, program] : m_items) {
        if (startsApplication(item))
            return m_isOwnEnabled ? OwnEntry::Enabled : OwnEntry::Disabled;
    }
    return OwnEntry::Missing;
}

void MemoryLoginItems::insertLast(const QString &path)
{
    if (!m_isWritable)
        return;
    append(path);
    m_isOwnEnabled = true;
}

void MemoryLoginItems::remove(const LoginItem &item)
{
    m_items.removeIf([&](const auto &known) { return known.first == item; });
}

std::optional<InstalledApplication>
MemoryInstalledApplications::applicationAtPath(const QString &path)
{
    for (const InstalledApplication &file : std::as_const(m_files)) {
        if (file.path == path)
            return file;
    }
    return std::nullopt;
}
