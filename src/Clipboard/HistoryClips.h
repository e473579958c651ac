#pragma once

#include "platform/SharedClips.h"

#include <functional>
#include <memory>

class ClipHistory;
class ClipItem;

/// The clips of a history, for the shell and other programs: those of the instance that runs, or
/// of the store alone while none does. Owned by main.
class HistoryClips : public SharedClips
{
public:
    /// What it takes an application for; all are absent without one.
    struct Application
    {
        /// Makes the history know the latest copies.
        std::function<void()> catchUp = {};
        /// Puts a text on the pasteboard and records it; false when that was refused.
        std::function<bool(const QString &)> copy = {};
        std::function<void(const std::shared_ptr<ClipItem> &)> paste = {};
    };

    /// The history must outlive this object.
    HistoryClips(ClipHistory &history, Application application);

    // ^SharedClips
    Answer<QList<qlonglong>> find(const QString &term) override;
    Answer<QList<Line>> lines(const QList<qlonglong> &ids) override;
    Answer<QList<SharedClip>> clips(const QList<qlonglong> &ids) override;
    Fault copy(const QByteArray &utf8) override;
    Fault paste(qint64 id) override;
    Answer<qint64> remove(const QList<qlonglong> &ids) override;
    Answer<Room> room() override;
    Answer<Added> add(const QList<SharedClip> &clips, bool onlyCount) override;

private:
    std::vector<std::shared_ptr<ClipItem>> itemsOf(const QList<qlonglong> &ids);

    ClipHistory &m_history;
    const Application m_application;
};
