#pragma once

#include <QStringView>

/// What somebody types to search, taken apart. A view of what was typed.
struct SearchTerm
{
    QStringView term;       ///< In the pattern language.
    bool onlyFiles = false; ///< "file:" stands before it, and a space if there was one.

    static SearchTerm of(QStringView typed);
};
