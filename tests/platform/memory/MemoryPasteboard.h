#pragma once

#include "platform/Pasteboard.h"
#include "platform/pasteboard/PasteboardChanges.h"

#include <QPointer>

/// A pasteboard within the process. Tests copy as another client with copyFromOutside() and read
/// what was written with contents().
class MemoryPasteboard : public Pasteboard
{
    Q_OBJECT

public:
    using Pasteboard::Pasteboard;

    /// A change by another client; `changeCount` and `isOwnWrite` are filled in. Emits changed()
    /// at once. A text beyond the largest useful size arrives as too large, a concealed copy
    /// arrives empty.
    void copyFromOutside(PasteboardContents contents);

    /// Another client has marked a text; absent, none is marked any more.
    void markOutside(const std::optional<QString> &text) { m_markedText = text; }
    const std::optional<QString> &markedText() const { return m_markedText; }

    /// From now on the owners hang: questions wait until answerNow(), and nothing is at hand.
    void setOwnersHang(bool hang) { m_ownersHang = hang; }
    /// Answers what waits, with nothing where `text` is absent.
    void answerNow(const std::optional<QString> &text);

    /// From now on write() is refused.
    void setWriteFails(bool fails) { m_writeFails = fails; }

    /// The application that own writes are made in from now on; `isOurs` when it is ourselves.
    void setFront(const QString &applicationName, bool isOurs = false);
    /// The application in front asks for what is there, as for a paste.
    Copy pasteInFront();
    bool areFetchesTold() const { return m_areFetchesTold; }
    /// Whether what is pasted has been asked for; at first it always has.
    void setPasteRead(bool isRead);

    qint64 maxUsefulText() const { return m_changes.maxUsefulText(); }
    qint64 maxUsefulPicture() const { return m_changes.maxUsefulPicture(); }
    /// Change counts examined so far.
    const QList<qint64> &acknowledged() const { return m_acknowledged; }
    const QList<qint64> &discarded() const { return m_discarded; }
    /// What was written through write(), oldest first.
    const QList<Copy> &writes() const { return m_writes; }

    // ^Pasteboard
    qint64 changeCount() const override { return m_changes.changeCount(); }
    QList<PasteboardContents> changesAfter(qint64 changeCount) const override
    {
        return m_changes.changesAfter(changeCount);
    }
    std::optional<PasteboardContents> contents() const override { return m_changes.contents(); }
    void acknowledge(qint64 changeCount) override;
    void discard(qint64 changeCount) override;
    void setLargestUsefulText(qint64 bytes) override { m_changes.setLargestUsefulText(bytes); }
    void setLargestUsefulPicture(qint64 bytes) override
    {
        m_changes.setLargestUsefulPicture(bytes);
    }
    bool write(const Copy &copy) override;
    bool isPasteRead() const override { return m_isPasteRead; }
    void setFetchesTold(bool areTold) override { m_areFetchesTold = areTold; }
    void clear() override;
    void askText(Selection selection, QObject *context, TextAnswer answer) override;
    void markText(const QString &text) override { m_markedText = text; }
    void shutDown() override {}

private:
    PasteboardChanges m_changes;
    bool m_writeFails = false;
    bool m_isPasteRead = true;
    QString m_frontName;
    bool m_isOursInFront = false;
    bool m_areFetchesTold = false;
    QList<qint64> m_acknowledged;
    QList<qint64> m_discarded;
    QList<Copy> m_writes;
    std::optional<QString> m_copiedText; ///< As its owner has it, whatever the history may know.
    std::optional<QString> m_markedText;
    bool m_ownersHang = false;
    QList<std::pair<QPointer<QObject>, TextAnswer>> m_questions;
};
