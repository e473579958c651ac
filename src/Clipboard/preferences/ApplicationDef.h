#pragma once

#include "platform/KeyedArchive.h"

#include <QString>

#include <optional>

/// One application whose copies are not recorded. The name identifies it: capture compares it with
/// the name of the application in front.
struct ApplicationDef
{
    QString name; ///< The bundle file name without its extension.
    QString path; ///< The desktop entry, or the program where there is none; may be empty.

    /// Whether the name is all there is to tell the application by: that of its file, because it
    /// has no desktop entry and no window told another.
    bool isKnownByNameOnly() const;

    ArchivedObject encode() const;
    /// Absent when the object is of another class or lacks a field.
    static std::optional<ApplicationDef> decode(const ArchivedObject &object);

    bool operator==(const ApplicationDef &) const = default;
};
