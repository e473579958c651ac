#pragma once

#include <QList>
#include <QStringView>

/// Texts by what people see as one character: a letter with its accents, a flag, a family.
namespace VisibleCharacters {

qint64 count(QStringView text);

struct Counted
{
    qsizetype end; ///< Where the first character stands that is not counted.
    qint64 characters;
};
/// As much of a text as is counted within a small part of a frame, in UTF-16 units.
constexpr qsizetype kCountedAtOnce = qsizetype{128} * 1024;
/// Counts on from `begin`, where a character begins, through so much.
Counted countSome(QStringView text, qsizetype begin);

/// `length` or as much less as no character is cut in two by.
qsizetype wholeCharacters(QStringView text, qsizetype length);

/// Whether a run of characters without a blank is too long to look for its end at each line: the
/// time to break such a run into lines grows with the square of its length.
bool hasLongWord(QStringView text);

/// A run of emoji, in UTF-16 units.
struct Run
{
    qsizetype start;
    qsizetype length;
};
/// Where emoji stand, in order; not those that are asked to look like text.
QList<Run> emoji(QStringView text);

} // namespace VisibleCharacters
