#pragma once

#include "history/CaptureSettings.h"

class PreferencesApplicationViewController;
class PreferencesGeneralViewController;
class SettingsStore;

/// What capture asks for: the values that the two preference panes show at that moment, so that a
/// change counts from the very next copy. Owned by AppDelegate; what it is given must outlive it.
class LiveSettings : public CaptureSettings
{
public:
    LiveSettings(const PreferencesGeneralViewController &general,
                 const PreferencesApplicationViewController &applications,
                 const SettingsStore &store);

    // ^CaptureSettings
    qint64 getMaxItems() const override;
    qint64 getMaxStringSize() const override;
    qint64 getMaxPictureSize() const override;
    bool isNotificationsEnabled() const override;
    QStringList ignoredNames() const override;
    /// False while damaged settings wait for the user's answer: the ignore list was among them.
    bool isRecordingAllowed() const override;

private:
    const PreferencesGeneralViewController &m_general;
    const PreferencesApplicationViewController &m_applications;
    const SettingsStore &m_store;
};
