#include "platform/x11/selection/SelectionQuestions.h"

#include "platform/x11/selection/SelectionConnection.h"

#include <algorithm>
#include <utility>

SelectionQuestions::SelectionQuestions(SelectionConnection &connection, PropertyPool &pool,
                                       const PasteboardLimits &limits)
    : m_connection(connection), m_pool(pool), m_limits(limits)
{
}

void SelectionQuestions::ask(xcb_atom_t selection, Receiver receive)
{
    // One question for all who ask meanwhile, because owners muddle up two transfers.
    const auto question =
        m_questions
            .try_emplace(selection, Question{SelectionReader(m_connection, m_pool, m_limits), {}})
            .first;
    auto &[reader, receivers] = question->second;
    receivers.append(std::move(receive));
    if (reader.isReading())
        return;
    // ICCCM 2.4 prefers the time of an event; but whoever owns the selection now is who is meant.
    reader.begin(selection, XCB_CURRENT_TIME, {PasteboardLimits::kMaxIdleText},
                 SelectionReader::Wish::Text);
    xcb_flush(m_connection.xcb());
}

bool SelectionQuestions::handle(const xcb_generic_event_t &event)
{
    const bool isOurs = std::any_of(m_questions.begin(), m_questions.end(),
                                    [&](auto &entry) { return entry.second.reader.handle(event); });
    if (isOurs)
        answerFinished();
    return isOurs;
}

std::optional<SelectionQuestions::TimePoint> SelectionQuestions::keepDeadlines(TimePoint now)
{
    std::optional<TimePoint> next;
    for (auto &[selection, question] : m_questions)
        question.reader.checkClock(now);
    answerFinished();
    for (const auto &[selection, question] : m_questions) {
        if (const std::optional<TimePoint> deadline = question.reader.deadline())
            next = next ? std::min(*next, *deadline) : deadline;
    }
    return next;
}

void SelectionQuestions::answerFinished()
{
    for (auto &[selection, question] : m_questions) {
        const auto fetched = question.reader.takeFinished();
        if (!fetched)
            continue;
        const std::optional<QString> text = fetched->copy.copy().text;
        // Taken first: who receives may ask again.
        const auto receivers = std::exchange(question.receivers, {});
        for (const Receiver &receive : receivers)
            receive(text);
    }
}
