#pragma once

#include "history/SwopItem.h"

#include <QList>
#include <QObject>

#include <optional>
#include <utility>

/// Whether a swop is under way, and what it holds until the exchange. Capture fills it, paste
/// consumes it, the history window says it. Owned by the application delegate.
class SwopState : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    bool performSwop() const { return m_performSwop; }
    /// The latest copy since the swop began.
    const std::optional<SwopItem> &swopClipItem() const { return m_swopClipItem; }
    /// Name of the application whose selection is exchanged; empty when none was asked for it.
    const QString &targetName() const { return m_targetName; }

    /// Holds nothing at first.
    void begin(const QString &targetName);
    /// Holds `item` in place of what was held. A copy of the same text takes its place for good.
    void hold(const SwopItem &item);
    /// Copies that gave way to later ones, oldest first, once: they belong into the history.
    QList<SwopItem> takeReplaced() { return std::exchange(m_replaced, {}); }
    void clear();

Q_SIGNALS:
    void changed();

private:
    bool m_performSwop = false;
    QString m_targetName;
    std::optional<SwopItem> m_swopClipItem;
    QList<SwopItem> m_replaced;
};
