#pragma once

class Clock;
class RunningApplications;
class SettingsStore;

/// What an updater wants of the desktop, in whichever program it works. All outlive it.
struct UpdaterPorts
{
    Clock &clock;
    SettingsStore &settings;
    RunningApplications &runningApplications;
};
