#pragma once

#include <QObject>
#include <QString>

#include <optional>

class ClipPaster;
class ClipboardCapture;

/// What happened to copies while nobody looked: the history says each of it at its foot the next
/// time it opens, and no more once it was closed. Owned by the application delegate.
class HistoryNotices : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive this object.
    HistoryNotices(const ClipboardCapture &capture, const ClipPaster &paster);

    /// From now on text() tells what has happened since the last opening.
    void historyOpens();
    void historyCloses() { m_text.clear(); }

    /// One sentence a line; empty while there is nothing to say.
    const QString &text() const { return m_text; }

private:
    void copyRefused(std::optional<qint64> bytes, qint64 limit);
    void unrecordedReplaced(bool wasPicture);

    QString m_refusal; ///< The latest, because its text is what the user misses.
    QString m_replacement;
    QString m_text;
};
