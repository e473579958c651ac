#include "platform/memory/MemorySettingsStore.h"

void MemorySettingsStore::setValue(const QString &key, const QVariant &value)
{
    const QVariant before = this->value(key);
    if (value.isValid())
        m_values.insert(key, value);
    else
        m_values.remove(key);
    if (this->value(key) != before)
        Q_EMIT valueChanged(key);
    Q_EMIT valueStored(key);
}
