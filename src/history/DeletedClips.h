#pragma once

#include "history/Clip.h"

#include <QTimer>

#include <chrono>
#include <memory>
#include <vector>

class ClipItem;

/// What became of a deletion that was taken back.
struct BroughtBack
{
    std::shared_ptr<ClipItem> newest; ///< Of the clips that are back; null when none is.
    qint64 maxItems = 0;              ///< The limit that they met.
    int unfit = 0; ///< How many had no place any more. They are still held, behind all others.
};

/// What was deleted in the history and can still be brought back, deletion by deletion. In memory
/// only, and no longer than until the history's window has been closed for a minute. Owned by
/// ClipHistory.
class DeletedClips
{
public:
    static constexpr std::chrono::milliseconds kTime = std::chrono::minutes(1);
    /// So much is held at most; the latest deletions are.
    static constexpr qint64 kMostBytes = 512LL * 1024 * 1024;

    /// What can be brought back of the latest deletion.
    enum class Latest { Held, InPart, Lost };

    /// Clips that were deleted at once, with what decides how many of them would still be there.
    struct Step
    {
        std::vector<ClipChange> clips;
        qint64 count = 0;    ///< Of the history's clips before the deletion.
        qint64 maxItems = 0; ///< The limit at that moment.
        bool isWhole = true; ///< Whether all that was deleted is there.
    };

    explicit DeletedClips(std::chrono::milliseconds time = kTime);

    /// How many deletions are held.
    int count() const { return static_cast<int>(m_steps.size()); }
    /// Held, too, when there is none.
    Latest latest() const;
    /// Holds a deletion; nothing when there is nothing in it.
    void push(Step step);
    /// There was a deletion that cannot be held. Those before it are not held either, because they
    /// would be taken for it.
    void lose();
    /// The latest, which is not held any more. There must be one.
    Step takeLatest();
    /// Holds a part of one that was taken, behind all others.
    void putBehind(Step step);
    void clear();
    qint64 mostBytes() const { return m_mostBytes; }
    void setMostBytes(qint64 bytes) { m_mostBytes = bytes; }

    void windowOpens();
    void windowCloses();

private:
    void dropOldest();

    std::vector<Step> m_steps; ///< The latest is the last.
    QTimer m_timer;            ///< Runs while the window is closed.
    qint64 m_mostBytes = kMostBytes;
    bool m_isLatestLost = false;
    bool m_isWindowOpen = false;
};
