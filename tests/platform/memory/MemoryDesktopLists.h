#pragma once

#include "platform/InstalledApplications.h"
#include "platform/LoginItems.h"
#include "platform/SymbolicHotKeys.h"

#include <utility>

class MemoryInstalledApplications : public InstalledApplications
{
public:
    void setApplications(const QList<InstalledApplication> &list) { m_applications = list; }
    /// A file that can be chosen by hand.
    void addFile(const InstalledApplication &file) { m_files.append(file); }

    // ^InstalledApplications
    QList<InstalledApplication> applications() override { return m_applications; }
    std::optional<InstalledApplication> applicationAtPath(const QString &path) override;
    QIcon icon(const InstalledApplication &) override { return {}; }

private:
    QList<InstalledApplication> m_applications;
    QList<InstalledApplication> m_files;
};

/// Login items by the program they start; an empty program does not resolve.
class MemoryLoginItems : public LoginItems
{
public:
    void setAvailable(bool isAvailable) { m_isAvailable = isAvailable; }
    void setApplicationPath(const std::optional<QString> &path) { m_applicationPath = path; }
    /// Adds an entry as another program would.
    void append(const QString &program);
    /// Whether insertLast() finds room on the disk.
    void setWritable(bool isWritable) { m_isWritable = isWritable; }
    /// Switches our entries off, or on again, as the desktop's own list does.
    void setOwnEnabled(bool isEnabled) { m_isOwnEnabled = isEnabled; }
    /// The programs in order.
    QStringList programs() const;

    // ^LoginItems
    std::optional<QString> applicationPath() const override { return m_applicationPath; }
    std::optional<QList<LoginItem>> snapshot() const override;
    std::optional<QString> resolvedPath(const LoginItem &item) const override;
    bool startsApplication(const LoginItem &item) const override;
    OwnEntry ownEntry() const override;
    void remove(const LoginItem &item) override;
    void insertLast(const QString &path) override;

private:
    bool m_isAvailable = true;
    bool m_isWritable = true;
    bool m_isOwnEnabled = true;
    std::optional<QString> m_applicationPath = QStringLiteral("/usr/bin/quillmarsh");
    QList<std::pair<LoginItem, QString>> m_items;
    int m_lastId = 0;
};

class MemorySymbolicHotKeys : public SymbolicHotKeys
{
    Q_OBJECT

public:
    using SymbolicHotKeys::SymbolicHotKeys;

    // ^SymbolicHotKeys
    QList<SymbolicHotKey> hotKeys() const override { return {}; }
    void refresh() override { Q_EMIT refreshed(); }
};
