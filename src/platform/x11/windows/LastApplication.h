#pragma once

#include <QString>

/// The application that was in front last, for the time when none is: a copy made then may be
/// told by its name only while it runs, and never by ours. Not safe from two threads.
class LastApplication
{
public:
    /// `processId` is 0 where it is not known; such an application is not remembered.
    void remember(const QString &name, quint32 processId);

    /// Empty once it has ended.
    QString nameWhileItRuns() const;

private:
    QString m_name;
    quint32 m_processId = 0;
    QString m_processName; ///< A number is given to another process one day.
};
