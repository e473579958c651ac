#pragma once

#include <QObject>
#include <QTimer>

#include <chrono>
#include <deque>
#include <memory>
#include <vector>

class ClipHistory;
class ClipItem;
class ClipPaster;
class Pasteboard;

/// Clips that wait to be pasted one after the other by the user's own keys, in whatever
/// application: the first is on the pasteboard, and once an application has pasted it the next one
/// is. What has not been pasted never gives way, however long it takes; a new copy, or anything
/// else that comes to the pasteboard, ends the queue. Owned by the application delegate.
class PasteQueue : public QObject
{
    Q_OBJECT

public:
    /// How long a paste may take to ask for one format after the other.
    static constexpr std::chrono::milliseconds kReading{100};

    /// All must outlive this object.
    PasteQueue(Pasteboard &pasteboard, ClipHistory &history, ClipPaster &paster,
               std::chrono::milliseconds reading = kReading);

    /// Takes the place of a queue that is under way. False when there is nothing to paste, or the
    /// pasteboard cannot be written.
    bool begin(const std::vector<std::shared_ptr<ClipItem>> &items);
    /// Leaves on the pasteboard what is there.
    void end();

    /// How many are still to be pasted, the one on the pasteboard included; 0 without a queue.
    int left() const { return static_cast<int>(m_items.size()); }

Q_SIGNALS:
    void leftChanged(int left);

private:
    bool offerFirst();
    void noteFetched(qint64 changeCount);
    void goOn();

    Pasteboard &m_pasteboard;
    ClipHistory &m_history;
    ClipPaster &m_paster;
    std::deque<std::shared_ptr<ClipItem>> m_items; ///< The first one is on the pasteboard.
    qint64 m_offered = 0;                          ///< Change count of that.
    QTimer m_readingTimer; ///< Runs from when the first is asked for until that is over.
};
