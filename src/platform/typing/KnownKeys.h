#pragma once

#include "platform/typing/KeyTable.h"

#include <QByteArray>

#include <functional>
#include <optional>

struct WindowIdentity;

/// What is known of applications' keys: the table that comes with the program, and the user's own,
/// which goes before it. Used from one thread.
class KnownKeys
{
public:
    /// The user's table as it is now; absent when there is none.
    using UsersTable = std::function<std::optional<QByteArray>()>;

    /// An empty `usersTable` is none, ever.
    explicit KnownKeys(UsersTable usersTable);

    /// The keys of the application that a window belongs to: by its class, its name or its
    /// application id; those of a terminal where no table knows a window of one; else the keys of
    /// most. The user's table is read again when it has changed, and what is wrong with it logged.
    ApplicationKeys keysOf(const WindowIdentity &window, bool isTerminal);

private:
    void follow();

    const KeyTable m_shipped;
    UsersTable m_usersTable;
    QByteArray m_read; ///< What m_users was read from.
    KeyTable m_users;
};
