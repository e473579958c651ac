#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

class Clock;
class SettingsStore;

/// When to look for updates unasked: once a day and a little at random, so that not everybody asks
/// at once. The choice and the time of the last look are settings and outlive the program. Owned by
/// the updater. While it is off no timer runs; while it is on, one that fires once a day.
class UpdateSchedule : public QObject
{
    Q_OBJECT

public:
    inline static const QString kEnabledKey = QStringLiteral("automaticallyChecksForUpdates");
    inline static const QString kLastCheckKey = QStringLiteral("lastUpdateCheck");

    /// Where nothing can be looked for, `isPossible` is false and it is never due.
    UpdateSchedule(SettingsStore &settings, const Clock &clock, bool isPossible,
                   QObject *parent = nullptr);

    bool isEnabled() const;
    void setEnabled(bool isEnabled);
    /// A look has begun, for whatever reason.
    void checked();

Q_SIGNALS:
    void due();

private:
    void arm();

    SettingsStore &m_settings;
    const Clock &m_clock;
    const bool m_isPossible;
    QTimer m_timer{this};
};
