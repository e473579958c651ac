#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QVariant>

#include <optional>

/// The user's settings: typed values under keys. Owned by Platform; used from the main thread.
///
/// A value is a QVariant holding bool, qlonglong, double, QString, QByteArray (data), QDateTime,
/// QVariantList or QVariantMap; an invalid QVariant means absent. Values that were registered as
/// defaults answer for absent keys and are never stored.
class SettingsStore : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// The stored value, else the registered default, else an invalid QVariant.
    virtual QVariant value(const QString &key) const = 0;

    /// Whether a value is stored (a registered default does not count).
    virtual bool contains(const QString &key) const = 0;

    /// Stores a value; an invalid one removes the key. Emits valueChanged when the value differs,
    /// and valueStored in any case.
    /// A failed write is logged and tried again with the next one; the value holds meanwhile.
    virtual void setValue(const QString &key, const QVariant &value) = 0;

    /// Registers a default for one key.
    virtual void registerDefault(const QString &key, const QVariant &value) = 0;

    /// True when the stored settings were unreadable and set aside at start, so that what is here
    /// now is not what the user had: the ignore list went with it, and nothing may be recorded
    /// until acceptFreshSettings().
    virtual bool areSettingsDamaged() const = 0;

    /// The user has agreed to start with fresh settings.
    virtual void acceptFreshSettings() = 0;

    /// Where the settings are kept, for messages.
    virtual QString location() const = 0;

    /// True for a true boolean, a number other than 0, and the texts "YES", "true" and numbers
    /// other than 0; false for everything else and for absent keys.
    bool boolForKey(const QString &key) const;

    /// An integer as it stands, a real without its fraction, a boolean as 0 or 1, a text by its
    /// leading digits; 0 for everything else and for absent keys.
    qint64 integerForKey(const QString &key) const;

Q_SIGNALS:
    void valueChanged(const QString &key);
    /// The key was set, be it to the value that it had already: for those who act on a choice and
    /// not on its difference from the last one.
    void valueStored(const QString &key);
};
