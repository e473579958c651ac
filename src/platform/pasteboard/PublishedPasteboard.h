#pragma once

#include "platform/Pasteboard.h"
#include "platform/pasteboard/PasteboardChanges.h"

#include <QMap>
#include <QPointer>

/// The main thread's side of a pasteboard whose work is done by a service with a thread of its
/// own: answers from what has been published, and announces on the main thread what the service
/// says. The base of the pasteboards of real display systems.
class PublishedPasteboard : public Pasteboard
{
    Q_OBJECT

public:
    PublishedPasteboard() = default;

    // ^Pasteboard
    qint64 changeCount() const override { return m_changes.changeCount(); }
    QList<PasteboardContents> changesAfter(qint64 changeCount) const override
    {
        return m_changes.changesAfter(changeCount);
    }
    std::optional<PasteboardContents> contents() const override { return m_changes.contents(); }
    void setLargestUsefulText(qint64 bytes) override { m_changes.setLargestUsefulText(bytes); }
    void setLargestUsefulPicture(qint64 bytes) override
    {
        m_changes.setLargestUsefulPicture(bytes);
    }
    bool isPasteRead() const override { return m_changes.isPasteRead(); }
    void askText(Selection selection, QObject *context, TextAnswer answer) override;

protected:
    using Receiver = std::function<void(const std::optional<QString> &text)>;

    PasteboardChanges &changes() { return m_changes; }
    /// Change `changeCount` of another client was published. From the service's thread.
    void announce(qint64 changeCount);
    /// What was pasted has been asked for. From the service's thread.
    void announcePasteRead();
    /// The application in front has asked for what was written last. From the service's thread.
    void announceFetched();
    /// Has the service ask for a text; `receive` is called on its thread. False when there is no
    /// service any more.
    virtual bool ask(Selection selection, Receiver receive) = 0;

    // ^QObject: does on the main thread what the service wants done there.
    void customEvent(QEvent *event) override;

private:
    struct Question
    {
        QPointer<QObject> context;
        TextAnswer answer;
    };

    void doOnMainThread(std::function<void()> task);

    PasteboardChanges m_changes;
    qint64 m_questionsAsked = 0;
    QMap<qint64, Question> m_questions; ///< By number, until they are answered.
};
