#pragma once

#include "shortcut/MASShortcut.h"

#include <QString>
#include <QVariant>

#include <optional>

/// Turns a stored setting into a shortcut and back. Stateless; those found by name live as long
/// as the process.
class ValueTransformer
{
public:
    ValueTransformer() = default;
    ValueTransformer(const ValueTransformer &) = delete;
    ValueTransformer &operator=(const ValueTransformer &) = delete;
    virtual ~ValueTransformer() = default;

    /// The transformer known by a name; null when there is none.
    static const ValueTransformer *valueTransformerForName(const QString &name);

    virtual QString name() const = 0;
    virtual bool allowsReverseTransformation() const = 0;

    /// The shortcut a stored value stands for; absent when it stands for none.
    virtual std::optional<MASShortcut> transformedValue(const QVariant &stored) const = 0;

    /// What to store for a shortcut or for none. Never called where the reverse is not allowed.
    virtual QVariant reverseTransformedValue(const std::optional<MASShortcut> &shortcut) const = 0;
};
