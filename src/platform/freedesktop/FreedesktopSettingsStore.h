#pragma once

#include "platform/PropertyList.h"
#include "platform/SettingsStore.h"

#include <QMap>

#include <optional>

/// The settings as a property list in the user's configuration folder. Every change is on disk
/// when setValue() returns, in a file that is replaced whole. Before each write the file is looked
/// at again, so that only the keys set here change and what others wrote meanwhile stays; such
/// values are seen at the next start.
///
/// A file that cannot be read is set aside under a name of its own and nothing is written in its
/// place until the user accepts fresh settings: the file set aside with no new one beside it is
/// how a later start knows that the question is still open.
class FreedesktopSettingsStore : public SettingsStore
{
    Q_OBJECT

public:
    /// The file in the user's configuration folder.
    static QString standardLocation();

    explicit FreedesktopSettingsStore(const QString &path = standardLocation(),
                                      QObject *parent = nullptr);

    // ^SettingsStore
    QVariant value(const QString &key) const override;
    bool contains(const QString &key) const override { return m_values.contains(key); }
    void setValue(const QString &key, const QVariant &value) override;
    void registerDefault(const QString &key, const QVariant &value) override;
    bool areSettingsDamaged() const override { return m_areDamaged; }
    void acceptFreshSettings() override;
    QString location() const override { return m_path; }

private:
    /// Tells whether a file is still the one that was read or written last.
    struct Stamp
    {
        quint64 inode = 0; ///< 0 when there is no file.
        qint64 size = 0;
        qint64 modifiedSeconds = 0;
        qint64 modifiedNanoseconds = 0;

        bool operator==(const Stamp &) const = default;
    };

    Stamp stamp() const;
    void load();
    /// The document in the file; null with `problem` when it is none, null without when there is
    /// no file.
    PropertyList::Tree readFile(QString *problem) const;
    bool setAside(const QString &problem);
    /// Makes the file the base of the next write if somebody else changed it.
    [[nodiscard]] bool adoptForeignChanges();
    void save();
    bool write(QString *problem);

    QString m_path;
    PropertyList::Tree m_document; ///< Everything in the file, also what no QVariant can hold.
    QVariantMap m_values;
    QVariantMap m_defaults;
    QMap<QString, QVariant> m_unsaved; ///< Set but not in the file yet; invalid for removed.
    /// Absent while the file holds something that was neither read nor set aside.
    std::optional<Stamp> m_stamp;
    bool m_areDamaged = false;
    bool m_hasFailed = false;
};
