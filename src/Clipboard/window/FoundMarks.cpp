#include "Clipboard/window/FoundMarks.h"

#include "history/FoundPlaces.h"

#include <QTextCursor>
#include <QTextDocument>

QList<QTextEdit::ExtraSelection> FoundMarks::in(QTextDocument &document, const FoundPlaces &found,
                                                const QColor &background)
{
    constexpr qsizetype kMost = 500;
    QList<QTextEdit::ExtraSelection> marks;
    if (found.isEmpty())
        return marks;
    // Place for place what the document counts.
    const QString text = document.toPlainText();
    for (const FoundPlaces::Place &place : found.in(text, kMost)) {
        QTextEdit::ExtraSelection mark;
        mark.cursor = QTextCursor(&document);
        mark.cursor.setPosition(static_cast<int>(place.start));
        mark.cursor.setPosition(static_cast<int>(place.start + place.length),
                                QTextCursor::KeepAnchor);
        mark.format.setBackground(background);
        marks.append(mark);
    }
    return marks;
}
