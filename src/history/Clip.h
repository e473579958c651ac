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
};

/// What a save writes of one record.
struct ClipChange
{
    qint64 pk = 0; ///< 0 for a new record; the save fills it in.
    /// Absent when the record keeps what it has. The text of a record never changes.
    std::optional<Clip> clip;
    double createDate = 0; ///< Seconds since 1970 UTC; written with the clip.
    std::optional<qint32> pasteCount;
};
