#pragma once

#include <QList>
#include <QTextEdit>

class FoundPlaces;

/// The marks that a preview has where a search has found something.
namespace FoundMarks {

/// In the order of the document; the first hundreds when there are more.
QList<QTextEdit::ExtraSelection> in(QTextDocument &document, const FoundPlaces &found,
                                    const QColor &background);

} // namespace FoundMarks
