#pragma once

#include "Clipboard/HistoryClips.h"
#include "history/CaptureSettings.h"
#include "history/ClipHistory.h"

#include <QString>

#include <memory>

class SettingsStore;

/// The clips on disk, for the shell while no instance can be asked. An instance that holds the
/// store sees what is changed by this as it sees any other program's changes. Owned by main.
class StoreClips : public SharedClips
{
public:
    /// Null when there is no store in the folder; none is made. `clock` and `settings` must outlive
    /// the result.
    static std::unique_ptr<StoreClips> open(const QString &storeFolder, Clock &clock,
                                            const SettingsStore &settings);

    // ^SharedClips
    Answer<QList<qlonglong>> find(const QString &term) override { return m_clips.find(term); }
    Answer<QList<Line>> lines(const QList<qlonglong> &ids) override { return m_clips.lines(ids); }
    Answer<QList<SharedClip>> clips(const QList<qlonglong> &ids) override
    {
        return m_clips.clips(ids);
    }
    Fault copy(const QByteArray &utf8) override { return m_clips.copy(utf8); }
    Fault paste(qint64 id) override { return m_clips.paste(id); }
    Answer<qint64> remove(const QList<qlonglong> &ids) override { return m_clips.remove(ids); }
    Answer<Room> room() override { return m_clips.room(); }
    Answer<Added> add(const QList<SharedClip> &clips, bool onlyCount) override
    {
        return m_clips.add(clips, onlyCount);
    }

private:
    /// The limits as they are stored.
    class StoredSettings : public CaptureSettings
    {
    public:
        explicit StoredSettings(const SettingsStore &settings) : m_settings(settings) {}

        // ^CaptureSettings
        qint64 getMaxItems() const override;
        qint64 getMaxStringSize() const override;
        bool isNotificationsEnabled() const override { return false; }
        QStringList ignoredNames() const override { return {}; }
        bool isRecordingAllowed() const override { return false; }

    private:
        const SettingsStore &m_settings;
    };

    StoreClips(const QString &storeFolder, Clock &clock, const SettingsStore &settings);

    StoredSettings m_settings;
    ClipHistory m_history;
    HistoryClips m_clips;
};
