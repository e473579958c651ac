#pragma once

#include "platform/LoginItems.h"

#include <QString>

#include <functional>
#include <optional>
#include <utility>

/// Puts the application among the programs that the user's session starts, or takes it out. Owned
/// by AppDelegate; main thread only. A list that cannot be read ends the program; an entry that
/// leads nowhere is passed over, and a failed change is only logged.
class LaunchAtLogin
{
public:
    /// Where an entry may go.
    struct InsertionPoint
    {
        std::optional<LoginItem> after; ///< Absent: before the first.

        bool operator==(const InsertionPoint &) const = default;
    };

    /// Our entry, if there is one, and the end of the list; neither when it cannot be told what
    /// our entry would start.
    using Lookup = std::pair<std::optional<LoginItem>, std::optional<InsertionPoint>>;

    /// `items` must outlive this object. `logTrace` takes the lines that are of use only to those
    /// who look for a fault.
    LaunchAtLogin(LoginItems &items, std::function<void(const QString &)> logTrace);

    /// Looks our entry up and tells on standard output what it passes.
    Lookup applicationIsInStartUpItems() const;

    /// Turning it on always moves our entry to the end; turning it off removes the first entry
    /// that starts us.
    void launchAtStartup(bool isOn);

private:
    LoginItems &m_items;
    std::function<void(const QString &)> m_logTrace;
};
