#pragma once

#include "history/ClipStore.h"

#include <QString>
#include <QStringView>

#include <optional>

/// What lists show of a clip's text or file.
struct ClipLine
{
    std::optional<QString> line; ///< Without line breaks; absent when there is nothing to tell.
    QString drawn;               ///< The beginning, with them.
    int fileCount = 0;           ///< Of a copy of several files.

    static ClipLine ofText(QStringView text);

    /// As a string. Of a text that goes on, its last character is left out, of which a part may be
    /// missing.
    static QString decoded(const ClipStore::TextPart &start);
    /// At most so many characters in one line, without any that would steer a terminal: white space
    /// and control characters become single spaces.
    static QString plain(QStringView text, qsizetype limit);
};
