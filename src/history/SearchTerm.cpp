#include "history/SearchTerm.h"

#include <QString>

SearchTerm SearchTerm::of(QStringView typed)
{
    static const QString kFilePrefix = QStringLiteral("file:");
    if (!typed.startsWith(kFilePrefix, Qt::CaseInsensitive))
        return {typed, false};
    const QStringView term = typed.mid(kFilePrefix.size());
    return {term.startsWith(u' ') ? term.mid(1) : term, true};
}
