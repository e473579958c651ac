#pragma once

#include "platform/LoginItems.h"

#include <QByteArray>

/// The entries of the user's autostart folder, ordered by when they were written. An entry that
/// is marked hidden counts as removed. Ours is a file of its own name, so inserting it replaces
/// it and makes it the newest.
class FreedesktopLoginItems : public LoginItems
{
public:
    static QString standardFolder();

    /// The single file that the program was started from if it runs out of one, else its own
    /// executable.
    static std::optional<QString> runningApplication();

    explicit FreedesktopLoginItems(
        const QString &folder = standardFolder(),
        const std::optional<QString> &applicationPath = runningApplication());

    // ^LoginItems
    std::optional<QString> applicationPath() const override { return m_applicationPath; }
    std::optional<QList<LoginItem>> snapshot() const override;
    std::optional<QString> resolvedPath(const LoginItem &item) const override;
    bool startsApplication(const LoginItem &item) const override;
    OwnEntry ownEntry() const override;
    void remove(const LoginItem &item) override;
    void insertLast(const QString &path) override;

private:
    /// Our own file's.
    static LoginItem ownItem();
    /// Every entry, the hidden ones too, the one written last at the end; absent when they cannot
    /// be read.
    std::optional<QList<LoginItem>> allItems() const;
    QString pathOf(const LoginItem &item) const { return m_folder + u'/' + item.id; }
    qint64 timeAfterLast() const;

    QString m_folder;
    std::optional<QString> m_applicationPath;
    /// Our entry as it was removed last: it is removed first when it moves to the end.
    QByteArray m_removed;
};
