#pragma once

#include <QStringList>
#include <QtGlobal>

/// The settings that capture and paste obey, read anew each time because the user changes them
/// while clips arrive. Implemented above this room, by whoever owns the preference panes; must
/// outlive the objects that are given it.
class CaptureSettings
{
public:
    CaptureSettings() = default;
    CaptureSettings(const CaptureSettings &) = delete;
    CaptureSettings &operator=(const CaptureSettings &) = delete;
    virtual ~CaptureSettings() = default;

    /// How many clips the history holds before an addition removes its oldest.
    virtual qint64 getMaxItems() const = 0;

    /// Largest text that is recorded, in bytes of UTF-8.
    virtual qint64 getMaxStringSize() const = 0;

    /// Largest picture that is kept, in bytes of PNG; 0 when none is to be kept.
    virtual qint64 getMaxPictureSize() const { return 0; }

    virtual bool isNotificationsEnabled() const = 0;

    /// Names of the applications whose copies are not recorded, in list order.
    virtual QStringList ignoredNames() const = 0;

    /// False while the ignore list is unknown: then every copy counts as one from an ignored
    /// application.
    virtual bool isRecordingAllowed() const = 0;
};
