#include "history/SwopState.h"

#include <utility>

void SwopState::begin(const QString &targetName)
{
    m_performSwop = true;
    m_targetName = targetName;
    m_swopClipItem.reset();
    Q_EMIT changed();
}

void SwopState::hold(const SwopItem &item)
{
    if (m_swopClipItem && m_swopClipItem->text != item.text)
        m_replaced.append(*m_swopClipItem);
    m_swopClipItem = item;
    Q_EMIT changed();
}

void SwopState::clear()
{
    const bool wasUnderWay = std::exchange(m_performSwop, false);
    m_targetName.clear();
    m_swopClipItem.reset();
    m_replaced.clear();
    if (wasUnderWay)
        Q_EMIT changed();
}
