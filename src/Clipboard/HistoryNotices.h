#pragma once

#include <QObject>
#include <QString>

#include <optional>

class ClipPaster;
class ClipboardCapture;
class SettingsStore;

/// What happened to copies while nobody looked: the history says each of it at its foot the next
/// time it opens, and no more once it was closed. Owned by the application delegate.
class HistoryNotices : public QObject
{
    Q_OBJECT

public:
    /// All must outlive this object.
    HistoryNotices(const ClipboardCapture &capture, const ClipPaster &paster,
                   const SettingsStore &settings);

    /// From now on text() tells what has happened since the last opening.
    void historyOpens();
    void historyCloses() { m_text.clear(); }

    /// What the open history says at its foot, one sentence a line: first that nothing is recorded,
    /// as long as damaged settings wait for their user. Empty while there is nothing to say.
    QString text() const;

private:
    void copyRefused(std::optional<qint64> bytes, qint64 limit);
    void unrecordedReplaced(bool wasPicture);

    const SettingsStore &m_settings;
    QString m_refusal; ///< The latest, because its text is what the user misses.
    QString m_replacement;
    QString m_text;
};
