#include "updates/updater/UpdateSchedule.h"

#include "platform/Clock.h"
#include "platform/SettingsStore.h"

#include <QRandomGenerator>

#include <algorithm>

namespace {

constexpr qint64 kDayMs = 24LL * 60 * 60 * 1000;
constexpr int kJitterMs = 60 * 60 * 1000;
/// Not in the middle of everything else that a login starts.
constexpr qint64 kSoonestMs = 5LL * 60 * 1000;

} // namespace

UpdateSchedule::UpdateSchedule(SettingsStore &settings, const Clock &clock, bool isPossible,
                               QObject *parent)
    : QObject(parent), m_settings(settings), m_clock(clock), m_isPossible(isPossible)
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::VeryCoarseTimer);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        checked();
        Q_EMIT due();
    });
    arm();
}

bool UpdateSchedule::isEnabled() const
{
    return m_settings.boolForKey(kEnabledKey);
}

void UpdateSchedule::setEnabled(bool isEnabled)
{
    m_settings.setValue(kEnabledKey, isEnabled);
    arm();
}

void UpdateSchedule::checked()
{
    m_settings.setValue(kLastCheckKey, m_clock.now());
    arm();
}

void UpdateSchedule::arm()
{
    m_timer.stop();
    if (!m_isPossible || !isEnabled())
        return;
    const QDateTime last = m_settings.value(kLastCheckKey).toDateTime();
    // A clock that was set back must not put the next look off for longer than a day.
    const qint64 since = last.isValid() ? qMax<qint64>(0, last.msecsTo(m_clock.now())) : kDayMs;
    const qint64 wait = std::clamp(kDayMs - since, kSoonestMs, kDayMs);
    m_timer.start(static_cast<int>(wait) + QRandomGenerator::global()->bounded(kJitterMs));
}
