#pragma once

#include "platform/wayland/pasteboard/OfferReader.h"

#include <QList>
#include <QString>

#include <functional>
#include <map>
#include <memory>
#include <optional>

/// Asks the owners of selections for their text on behalf of those who want to paste it. Whoever
/// asks while an owner is thinking gets the same answer, so that a hung one costs its time once.
/// Owned by the pasteboard's service; on the connection's thread.
class TextQuestions
{
public:
    using TimePoint = WaylandConnection::TimePoint;
    using Selection = DataControl::Selection;
    /// Told the text; absent when there is none or it was not given in time.
    using Receiver = std::function<void(const std::optional<QString> &text)>;

    /// The references must outlive this object.
    TextQuestions(WaylandConnection &connection, const PasteboardLimits &limits);

    /// `offer` is null for a selection that is nobody's.
    void ask(Selection selection, const std::shared_ptr<DataOffer> &offer, Receiver receive);

    /// Those who wait for an owner that owns the selection no more; it is given up.
    QList<Receiver> takeUnanswered(Selection selection);

    /// Gives up owners that are too slow, and says when the next will be.
    std::optional<TimePoint> keepDeadlines(TimePoint now);

private:
    struct Question
    {
        std::unique_ptr<OfferReader> reader;
        QList<Receiver> receivers;
    };

    void answerFinished(Question &question);

    WaylandConnection &m_connection;
    const PasteboardLimits &m_limits;
    std::map<Selection, Question> m_questions;
};
