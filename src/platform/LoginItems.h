#pragma once

#include <QList>
#include <QString>

#include <optional>

/// One entry of the login items, known to the list that gave it out.
struct LoginItem
{
    QString id;

    bool operator==(const LoginItem &) const = default;
};

enum class OwnEntry {
    Enabled, ///< We are started.
    Missing, ///< No entry starts us.
    Disabled ///< There is one, and it is switched off.
};

/// The programs that the user's session starts at login, in order. Owned by Platform; used from
/// the main thread.
class LoginItems
{
public:
    LoginItems() = default;
    LoginItems(const LoginItems &) = delete;
    LoginItems &operator=(const LoginItems &) = delete;
    virtual ~LoginItems() = default;

    /// What an entry of our own starts: the running program, or the single file that it was
    /// started from. Absent when it cannot be told.
    virtual std::optional<QString> applicationPath() const = 0;

    /// The entries, the one inserted last at the end. A list that was never made is empty; absent
    /// when the list cannot be read.
    virtual std::optional<QList<LoginItem>> snapshot() const = 0;

    /// The absolute path of the program that an entry starts, as the entry names it; absent when
    /// there is no such program.
    virtual std::optional<QString> resolvedPath(const LoginItem &item) const = 0;

    /// Whether an entry starts applicationPath(), be it by way of a link.
    virtual bool startsApplication(const LoginItem &item) const = 0;

    /// What the session will do about us at the next login. Looked up anew each time, because other
    /// programs change it too.
    virtual OwnEntry ownEntry() const = 0;

    /// Takes an entry off the list. A failure is logged.
    virtual void remove(const LoginItem &item) = 0;

    /// Puts an entry for the program at `path` behind the last one. What the user had added to an
    /// earlier entry for it is carried over. A failure is logged.
    virtual void insertLast(const QString &path) = 0;
};
