#include "history/PasteQueue.h"

#include "history/ClipHistory.h"
#include "history/ClipItem.h"
#include "history/ClipPaster.h"
#include "platform/Pasteboard.h"

PasteQueue::PasteQueue(Pasteboard &pasteboard, ClipHistory &history, ClipPaster &paster,
                       std::chrono::milliseconds reading)
    : m_pasteboard(pasteboard), m_history(history), m_paster(paster)
{
    m_readingTimer.setSingleShot(true);
    m_readingTimer.setInterval(reading);
    connect(&m_readingTimer, &QTimer::timeout, this, &PasteQueue::goOn);
    connect(&m_pasteboard, &Pasteboard::fetched, this, &PasteQueue::noteFetched);
    connect(&m_pasteboard, &Pasteboard::changed, this, &PasteQueue::end);
}

bool PasteQueue::begin(const std::vector<std::shared_ptr<ClipItem>> &items)
{
    end();
    m_items.assign(items.begin(), items.end());
    if (!offerFirst())
        return false;
    m_pasteboard.setFetchesTold(true);
    return true;
}

void PasteQueue::end()
{
    m_readingTimer.stop();
    if (m_items.empty())
        return;
    m_items.clear();
    m_pasteboard.setFetchesTold(false);
    Q_EMIT leftChanged(0);
}

/// What was deleted meanwhile, or whose file is gone, is passed over.
bool PasteQueue::offerFirst()
{
    while (!m_items.empty()) {
        const std::shared_ptr<ClipItem> &item = m_items.front();
        if (item->isInHistory() && m_paster.offer(item->clip())) {
            m_offered = m_pasteboard.changeCount();
            Q_EMIT leftChanged(left());
            return true;
        }
        m_items.pop_front();
    }
    return false;
}

void PasteQueue::noteFetched(qint64 changeCount)
{
    if (m_items.empty())
        return;
    if (changeCount == m_offered)
        m_readingTimer.start();
    else if (changeCount > m_offered)
        end();
}

/// What was asked for has been pasted: many ask for one format after the other, so the next clip
/// comes when nobody asks any more.
void PasteQueue::goOn()
{
    if (m_pasteboard.changeCount() != m_offered) {
        end();
        return;
    }
    const std::shared_ptr<ClipItem> pasted = m_items.front();
    if (pasted->isInHistory())
        m_history.countPaste(pasted);
    m_items.pop_front();
    // Of one that has come to its end the last clip stays, as after any paste.
    if (!offerFirst()) {
        m_pasteboard.setFetchesTold(false);
        Q_EMIT leftChanged(0);
    }
}
