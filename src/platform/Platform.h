#pragma once

#include "platform/Appearance.h"
#include "platform/ApplicationNames.h"
#include "platform/Capabilities.h"
#include "platform/Clock.h"
#include "platform/Consent.h"
#include "platform/FileQuestions.h"
#include "platform/FrontApplication.h"
#include "platform/HotKeys.h"
#include "platform/InstalledApplications.h"
#include "platform/KeySender.h"
#include "platform/KeyboardLayout.h"
#include "platform/LoginItems.h"
#include "platform/Notifications.h"
#include "platform/Pasteboard.h"
#include "platform/RunningApplications.h"
#include "platform/SettingsStore.h"
#include "platform/StatusBar.h"
#include "platform/SymbolicHotKeys.h"
#include "platform/WindowSpace.h"
#include "platform/Workspace.h"

#include <memory>

/// Everything the application wants of the desktop, one object a capability. Owned by main and
/// outlives all who use it. A capability that a desktop lacks is an object that says so,
/// never a null pointer. Later members may use earlier ones, so they go first.
struct Platform
{
    std::unique_ptr<Capabilities> capabilities;
    std::unique_ptr<Clock> clock;
    std::unique_ptr<FileQuestions> fileQuestions;
    std::unique_ptr<SettingsStore> settings;
    std::unique_ptr<Consent> consent;
    std::unique_ptr<Appearance> appearance;
    std::unique_ptr<ApplicationNames> applicationNames;
    std::unique_ptr<InstalledApplications> installedApplications;
    std::unique_ptr<LoginItems> loginItems;
    std::unique_ptr<RunningApplications> runningApplications;
    std::unique_ptr<Notifications> notifications;
    std::unique_ptr<Workspace> workspace;
    std::unique_ptr<WindowSpace> windowSpace;
    std::unique_ptr<KeyboardLayout> keyboardLayout;
    std::unique_ptr<HotKeys> hotKeys;
    std::unique_ptr<SymbolicHotKeys> symbolicHotKeys;
    std::unique_ptr<FrontApplication> frontApplication;
    std::unique_ptr<Pasteboard> pasteboard;
    std::unique_ptr<KeySender> keySender;
    std::unique_ptr<StatusBar> statusBar;
};
