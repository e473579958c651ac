#pragma once

#include "platform/Clock.h"
#include "platform/KeyboardLayout.h"
#include "platform/RunningApplications.h"
#include "platform/SettingsStore.h"
#include "platform/StatusBar.h"

#include <memory>

/// What the update helper wants of the desktop: less than Platform, because two programs must not
/// both serve the pasteboard and grab the keys. Owned by its main, outlives every other object, and
/// has no null pointer either.
struct HelperPlatform
{
    std::unique_ptr<Clock> clock;
    std::unique_ptr<SettingsStore> settings;
    std::unique_ptr<RunningApplications> runningApplications;
    std::unique_ptr<KeyboardLayout> keyboardLayout;
    std::unique_ptr<StatusBar> statusBar;
};
