#pragma once

#include <QList>
#include <QStringView>

/// Texts by what people see as one character: a letter with its accents, a flag, a family.
namespace VisibleCharacters {

qint64 count(QStringView text);

/// A run of emoji, in UTF-16 units.
struct Run
{
    qsizetype start;
    qsizetype length;
};
/// Where emoji stand, in order; not those that are asked to look like text.
QList<Run> emoji(QStringView text);

} // namespace VisibleCharacters
