#include "Clipboard/LiveSettings.h"

#include "Clipboard/preferences/PreferencesApplicationViewController.h"
#include "Clipboard/preferences/PreferencesGeneralViewController.h"
#include "platform/SettingsStore.h"

LiveSettings::LiveSettings(const PreferencesGeneralViewController &general,
                           const PreferencesApplicationViewController &applications,
                           const SettingsStore &store)
    : m_general(general), m_applications(applications), m_store(store)
{
}

qint64 LiveSettings::getMaxItems() const
{
    return m_general.getMaxItems();
}

qint64 LiveSettings::getMaxStringSize() const
{
    return m_general.getMaxStringSize();
}

qint64 LiveSettings::getMaxPictureSize() const
{
    return m_general.getMaxPictureSize();
}

bool LiveSettings::isNotificationsEnabled() const
{
    return m_general.isNotificationsEnabled();
}

QStringList LiveSettings::ignoredNames() const
{
    QStringList names;
    for (const ApplicationDef &application : m_applications.data())
        names.append(application.name);
    return names;
}

bool LiveSettings::isRecordingAllowed() const
{
    return !m_store.areSettingsDamaged();
}
