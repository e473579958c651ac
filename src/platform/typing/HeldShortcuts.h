#pragma once

#include <QMap>
#include <QObject>
#include <QString>

#include <chrono>
#include <optional>

/// Makes one press of what a service tells of a shortcut while its keys are held. Shortcuts go by
/// their names; times are passed through. Main thread only.
class HeldShortcuts : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// A press or its repetition. The press is told at once, or only when the keys are let go.
    void press(const QString &name, qlonglong timestamp, bool waitsForRelease);
    void release(const QString &name, qlonglong timestamp);
    /// Nothing is told of it any more before the next press.
    void forget(const QString &name) { m_holds.remove(name); }

Q_SIGNALS:
    void pressed(const QString &name, qlonglong timestamp);
    void released(const QString &name, qlonglong timestamp);

private:
    using TimePoint = std::chrono::steady_clock::time_point;

    struct Hold
    {
        std::optional<TimePoint> since; ///< When the last press of one hold came.
        /// The number of a press that waits for its release; 0 for none.
        int waitingPress = 0;
    };

    void tellPress(const QString &name, qlonglong timestamp);

    QMap<QString, Hold> m_holds;
    int m_lastPress = 0;
};
