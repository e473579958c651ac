#pragma once

#include "platform/x11/selection/SelectionReader.h"

#include <QList>
#include <QString>

#include <functional>
#include <map>
#include <optional>

/// Asks the owners of selections for their text on behalf of those who want to paste it. Whoever
/// asks while an owner is thinking gets the same answer, so that a hung one costs its time once.
/// Owned by the pasteboard's service; service thread only.
class SelectionQuestions
{
public:
    using TimePoint = SelectionReader::TimePoint;
    /// Told the text; absent when there is none or it was not given in time.
    using Receiver = std::function<void(const std::optional<QString> &text)>;

    /// Nothing is owned; everything must outlive this object.
    SelectionQuestions(SelectionConnection &connection, PropertyPool &pool,
                       const PasteboardLimits &limits);

    void ask(xcb_atom_t selection, Receiver receive);

    /// True when the event belonged to a question.
    bool handle(const xcb_generic_event_t &event);

    /// Gives up owners that are too slow.
    std::optional<TimePoint> keepDeadlines(TimePoint now);

private:
    struct Question
    {
        SelectionReader reader;
        QList<Receiver> receivers;
    };

    void answerFinished();

    SelectionConnection &m_connection;
    PropertyPool &m_pool;
    const PasteboardLimits &m_limits;
    std::map<xcb_atom_t, Question> m_questions;
};
