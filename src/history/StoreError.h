#pragma once

#include <QString>

#include <utility>
#include <vector>

/// Why the store could not be opened or written: told in one log line, in the form that people
/// search their logs for.
struct StoreError
{
    QString domain;
    int code = 0;
    /// Named details, in the order in which they are told.
    std::vector<std::pair<QString, QString>> userInfo;

    /// An error that SQLite reported.
    static StoreError ofSqlite(int code, const QString &message);
    /// The store cannot be opened, because of `underlying`.
    static StoreError ofOpening(const StoreError &underlying);

    /// The error itself, without its user information.
    QString text() const;
    /// "Unresolved error ", the error, ", " and its user information.
    QString logLine() const;
};
