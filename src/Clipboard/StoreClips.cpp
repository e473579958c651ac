#include "Clipboard/StoreClips.h"

#include "Clipboard/settings/SettingsKeys.h"
#include "platform/SettingsStore.h"

#include <QFileInfo>

#include <limits>

std::unique_ptr<StoreClips> StoreClips::open(const QString &storeFolder, Clock &clock,
                                             const SettingsStore &settings)
{
    if (!QFileInfo::exists(storeFolder + QStringLiteral("/Quillmarsh.sqlite")))
        return nullptr;
    return std::unique_ptr<StoreClips>(new StoreClips(storeFolder, clock, settings));
}

StoreClips::StoreClips(const QString &storeFolder, Clock &clock, const SettingsStore &settings)
    : m_settings(settings), m_history(storeFolder, clock, m_settings), m_clips(m_history, {})
{
}

qint64 StoreClips::StoredSettings::getMaxItems() const
{
    if (!m_settings.contains(SettingsKeys::kMaxItems))
        return SettingsKeys::kDefaultMaxItems;
    const qint64 stored = m_settings.integerForKey(SettingsKeys::kMaxItems);
    // What is no size of a history limits nothing, as in the application.
    return stored > 0 ? stored : std::numeric_limits<qint64>::max();
}

qint64 StoreClips::StoredSettings::getMaxStringSize() const
{
    return m_settings.contains(SettingsKeys::kMaxStringSize)
               ? m_settings.integerForKey(SettingsKeys::kMaxStringSize)
               : SettingsKeys::kDefaultMaxStringSize;
}
