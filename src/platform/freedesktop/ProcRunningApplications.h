#pragma once

#include "platform/RunningApplications.h"

/// What runs according to /proc: an application is its executable, named like the last part of its
/// identifier in small letters. Processes of other users cannot be read and do not count.
class ProcRunningApplications : public RunningApplications
{
public:
    // ^RunningApplications
    QStringList bundlePaths(const QString &bundleIdentifier) const override;
    QStringList programsBelow(const QString &folder) const override;
};
