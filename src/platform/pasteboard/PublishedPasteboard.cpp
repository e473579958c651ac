#include "platform/pasteboard/PublishedPasteboard.h"

#include <QCoreApplication>
#include <QEvent>

#include <utility>

void PublishedPasteboard::announce(qint64 changeCount)
{
    doOnMainThread([this, changeCount] { Q_EMIT changed(changeCount); });
}

void PublishedPasteboard::announcePasteRead()
{
    m_changes.notePasteRead();
    doOnMainThread([this] {
        // Another paste may be expected by now.
        if (isPasteRead())
            Q_EMIT pasteRead();
    });
}

void PublishedPasteboard::announceFetched()
{
    doOnMainThread([this, written = m_changes.changeCount()] { Q_EMIT fetched(written); });
}

/// The event only wakes the main thread: what crosses the threads is in PasteboardChanges.
void PublishedPasteboard::doOnMainThread(std::function<void()> task)
{
    m_changes.post(std::move(task));
    QCoreApplication::postEvent(this, new QEvent(QEvent::User));
}

void PublishedPasteboard::customEvent(QEvent *)
{
    for (const auto &task : m_changes.takeTasks())
        task();
}

void PublishedPasteboard::askText(Selection selection, QObject *context, TextAnswer answer)
{
    // What is at hand is pasted before the next key, which may have been pressed already.
    if (const auto text =
            selection == Selection::Clipboard ? m_changes.text() : std::optional<QString>()) {
        answer(text);
        return;
    }
    const qint64 number = ++m_questionsAsked;
    m_questions.insert(number, {context, std::move(answer)});
    const auto receive = [this, number](const std::optional<QString> &text) {
        doOnMainThread([this, number, text] {
            const Question question = m_questions.take(number);
            if (question.context)
                question.answer(text);
        });
    };
    if (!ask(selection, receive))
        m_questions.remove(number);
}
