#pragma once

#include "platform/SettingsStore.h"

#include <QVariantMap>

/// Settings within the process.
class MemorySettingsStore : public SettingsStore
{
    Q_OBJECT

public:
    using SettingsStore::SettingsStore;

    void setDamaged(bool areDamaged) { m_areDamaged = areDamaged; }

    // ^SettingsStore
    QVariant value(const QString &key) const override
    {
        return m_values.contains(key) ? m_values.value(key) : m_defaults.value(key);
    }
    bool contains(const QString &key) const override { return m_values.contains(key); }
    void setValue(const QString &key, const QVariant &value) override;
    void registerDefault(const QString &key, const QVariant &value) override
    {
        m_defaults.insert(key, value);
    }
    bool areSettingsDamaged() const override { return m_areDamaged; }
    void acceptFreshSettings() override { m_areDamaged = false; }
    QString location() const override { return QStringLiteral("memory"); }

private:
    QVariantMap m_values;
    QVariantMap m_defaults;
    bool m_areDamaged = false;
};
