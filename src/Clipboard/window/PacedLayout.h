#pragma once

#include <QObject>

class QTextDocument;

/// Has a document that is shown laid out in steps of a part of a frame each, while there is nothing
/// else to be done. The text engine does so too, but doubles its steps until each takes many
/// frames. Owned by the document.
class PacedLayout : public QObject
{
    Q_OBJECT

public:
    /// Whether nothing in the document, which the engine lays out at once, takes longer than that.
    /// For any thread.
    static bool suits(const QTextDocument &document);

    /// Before the document is shown, so that it has a layout of the toolkit's own.
    explicit PacedLayout(QTextDocument &document);

    /// The document is laid out anew, for another width perhaps.
    void restart() { m_position = 0; }

    // ^QObject
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QTextDocument &m_document;
    int m_position = 0; ///< Up to which it is laid out, as far as is known.
};
