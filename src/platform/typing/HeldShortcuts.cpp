#include "platform/typing/HeldShortcuts.h"

#include <QTimer>

#include <utility>

namespace {

/// Held keys repeat by further presses. Somebody who lets go and presses anew is told by the
/// release in between; where that is lost, by the time.
constexpr std::chrono::milliseconds kLongestRepetition{1000};

/// Who holds a key for longer has forgotten it, or its release was lost.
constexpr std::chrono::seconds kLongestHold{2};

} // namespace

void HeldShortcuts::press(const QString &name, qlonglong timestamp, bool waitsForRelease)
{
    Hold &hold = m_holds[name];
    const TimePoint now = std::chrono::steady_clock::now();
    const auto before = std::exchange(hold.since, now);
    if (before && now - *before < kLongestRepetition)
        return;
    if (!waitsForRelease) {
        tellPress(name, timestamp);
        return;
    }
    const int press = ++m_lastPress;
    hold.waitingPress = press;
    QTimer::singleShot(kLongestHold, this, [this, name, timestamp, press] {
        if (m_holds.value(name).waitingPress == press)
            tellPress(name, timestamp);
    });
}

void HeldShortcuts::release(const QString &name, qlonglong timestamp)
{
    const auto hold = m_holds.find(name);
    if (hold == m_holds.end() || !std::exchange(hold->since, std::nullopt))
        return;
    if (hold->waitingPress != 0)
        tellPress(name, timestamp);
    Q_EMIT released(name, timestamp);
}

void HeldShortcuts::tellPress(const QString &name, qlonglong timestamp)
{
    m_holds[name].waitingPress = 0;
    Q_EMIT pressed(name, timestamp);
}
