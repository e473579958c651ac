#include "platform/wayland/pasteboard/TextQuestions.h"

#include <algorithm>
#include <utility>

TextQuestions::TextQuestions(WaylandConnection &connection, const PasteboardLimits &limits)
    : m_connection(connection), m_limits(limits)
{
}

void TextQuestions::ask(Selection selection, const std::shared_ptr<DataOffer> &offer,
                        Receiver receive)
{
    if (!offer) {
        receive(std::nullopt);
        return;
    }
    Question &question = m_questions[selection];
    question.receivers.append(std::move(receive));
    if (!question.reader)
        question.reader = std::make_unique<OfferReader>(
            m_connection, m_limits, [this, &question] { answerFinished(question); });
    if (question.reader->isReading())
        return;
    question.reader->begin(offer, {PasteboardLimits::kMaxIdleText}, OfferReader::Wish::Text);
    answerFinished(question);
}

QList<TextQuestions::Receiver> TextQuestions::takeUnanswered(Selection selection)
{
    const auto question = m_questions.find(selection);
    if (question == m_questions.end())
        return {};
    question->second.reader->abandon();
    return std::exchange(question->second.receivers, {});
}

std::optional<TextQuestions::TimePoint> TextQuestions::keepDeadlines(TimePoint now)
{
    std::optional<TimePoint> next;
    for (auto &[selection, question] : m_questions) {
        question.reader->checkClock(now);
        answerFinished(question);
        if (const auto deadline = question.reader->deadline())
            next = next ? std::min(*next, *deadline) : deadline;
    }
    return next;
}

void TextQuestions::answerFinished(Question &question)
{
    const auto fetched = question.reader->takeFinished();
    if (!fetched)
        return;
    const std::optional<QString> text = fetched->copy.copy().text;
    // Taken first: who receives may ask again.
    const auto receivers = std::exchange(question.receivers, {});
    for (const Receiver &receive : receivers)
        receive(text);
}
