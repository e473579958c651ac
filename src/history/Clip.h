#pragma once

#include "platform/Copy.h"

#include <utility>

/// A copy and where it was made: what capture finds, a swop holds, the history adds and the store
/// keeps. Of several files the history keeps the first.
struct Clip : Copy
{
    /// The application in front at the moment of the copy.
    std::optional<QString> applicationName;

    Clip() = default;
    Clip(Copy copy, std::optional<QString> appName)
        : Copy(std::move(copy)), applicationName(std::move(appName))
    {
    }
    /// The attributes that every store has, in the order in which they have always been told.
    Clip(std::optional<QString> strValue, std::optional<QString> rtfValue,
         std::optional<QString> appName, const std::optional<QString> &filepath)
        : Clip({std::move(strValue), std::move(rtfValue),
                filepath ? QStringList(*filepath) : QStringList()},
               std::move(appName))
    {
    }

    /// The first file; absent for a text.
    std::optional<QString> filepath() const
    {
        return fileNames.isEmpty() ? std::nullopt : std::optional(fileNames.first());
    }

    /// Memory that what is stored of its texts takes, in bytes.
    qint64 storedBytes() const
    {
        qint64 characters = text ? text->size() : 0;
        for (const CopyFormat &format : storedFormats())
            characters += this->*format.source ? (this->*format.source)->size() : 0;
        return characters * static_cast<qint64>(sizeof(QChar)) + picture.size();
    }
};

/// What a save writes of one record.
struct ClipChange
{
    qint64 pk = 0; ///< 0 for a new record; the save fills it in.
    /// Absent when the record keeps what it has. The text of a record never changes.
    std::optional<Clip> clip;
    double createDate = 0; ///< Seconds since 1970 UTC; written with the clip.
    std::optional<qint32> pasteCount;
    std::optional<bool> isPinned; ///< Absent when it is as it was.

    // Of a clip that was deleted and comes back
    qint64 formerPk = 0;      ///< Its key again, unless another record has it by now; else 0.
    std::optional<qint64> id; ///< As in the record that it had.
};
