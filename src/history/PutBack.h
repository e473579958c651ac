#pragma once

#include "history/SwopItem.h"
#include "platform/Pasteboard.h"

#include <QObject>
#include <QTimer>

#include <chrono>
#include <optional>

/// The selection that a swop has replaced: it goes back on the pasteboard when the target has asked
/// for the clip that was pasted, at the latest a while later, and not at all if somebody copies
/// meanwhile. Owned by the paster.
class PutBack : public QObject
{
    Q_OBJECT

public:
    /// For a target that has not read the clip, and from its first question on. `pasteboard` must
    /// outlive this object.
    PutBack(Pasteboard &pasteboard, std::chrono::milliseconds patience,
            std::chrono::milliseconds reading);

    /// The clip that is on the pasteboard makes room for `selection`; at once if it was read.
    void begin(const SwopItem &selection);
    /// What is still due is done at once.
    void finish();
    void cancel();

Q_SIGNALS:
    void done();
    /// The pasteboard could not be written.
    void failed();

private:
    struct Due
    {
        SwopItem selection;
        std::optional<PasteboardContents> pasted;
    };

    Pasteboard &m_pasteboard;
    const std::chrono::milliseconds m_patience;
    std::optional<Due> m_due;
    QTimer m_timer;
};
