#pragma once

#include "platform/SharedClips.h"

#include <QList>
#include <QString>

/// The histories of other programs that lie in this user's folders. Any thread.
namespace ForeignHistories {

struct Found
{
    QString program;         ///< Its name, the same in every language.
    QString path;            ///< The file.
    QList<SharedClip> clips; ///< Newest first, each dated; files have a text.
    bool isWhole = true;     ///< False when it, or a part of it, was not understood.
};

/// Reads what there is, in a bounded time and memory. Programs without a history, and those with
/// nothing in it, are left out unless something was not understood. Few programs keep when a clip
/// was copied; those of the others are dated back from the file, a second apart.
QList<Found> read();

/// The clips of all, newest first and each text once.
QList<SharedClip> merged(const QList<Found> &histories);

} // namespace ForeignHistories
