#pragma once

#include <QString>
#include <QStringList>

/// The user's programs that run now. Owned by Platform; used from the main thread, unless an
/// operation says otherwise.
class RunningApplications
{
public:
    RunningApplications() = default;
    RunningApplications(const RunningApplications &) = delete;
    RunningApplications &operator=(const RunningApplications &) = delete;
    virtual ~RunningApplications() = default;

    /// For each running application of that identifier, the folder that it was installed to (the
    /// one that holds bin/), as an absolute path without links. In no order.
    virtual QStringList bundlePaths(const QString &bundleIdentifier) const = 0;

    /// The executables of running programs that are somewhere below `folder`, as absolute paths
    /// without links. In no order. Asked on any thread.
    virtual QStringList programsBelow(const QString &folder) const = 0;
};
