#pragma once

/// What the welcome asks of the application. Implemented above this room; outlives the welcome.
class WelcomeActions
{
public:
    WelcomeActions() = default;
    WelcomeActions(const WelcomeActions &) = delete;
    WelcomeActions &operator=(const WelcomeActions &) = delete;
    virtual ~WelcomeActions() = default;

    /// Stores the choice and changes the login item.
    virtual void setOpenAtLogin(bool isOn) = 0;
    /// Switches the periodic check of an update that is in progress; deliberately nothing without.
    virtual void setCheckForUpdates(bool isOn) = 0;
    /// The last page was reached: the welcome does not come up by itself any more.
    virtual void setWelcomeWindowShown() = 0;
    /// Takes the clips of another program that were offered, for a user who has ticked them.
    virtual void moveIn() = 0;
    /// Opens the history window and points out its parts.
    virtual void startTour() = 0;
};
