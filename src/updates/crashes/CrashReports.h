#pragma once

#include <QString>
#include <QStringList>

/// The crash reports that earlier runs have left in a folder. Owned by DevMateKit. Reading is
/// bounded, and only so many are kept: a program that crashes at every start fills no disk.
class CrashReports
{
public:
    static constexpr int kMaxKept = 5;

    explicit CrashReports(QString folder) : m_folder(std::move(folder)) {}

    const QString &folder() const { return m_folder; }
    /// Removes the oldest, and what holds nothing (a report that a full disk cut off at once).
    void tidy() const;
    /// The reports, newest first, a blank line between two; empty when there is none.
    QString text() const;
    /// How many there are.
    int count() const { return static_cast<int>(paths().size()); }
    void discard() const;

private:
    /// Newest first.
    QStringList paths() const;

    QString m_folder;
};
