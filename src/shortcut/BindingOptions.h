#pragma once

#include "shortcut/ValueTransformer.h"

#include <QString>
#include <QVariant>

#include <optional>

/// How a binding turns a stored setting into a shortcut and back: by a transformer, else by the
/// one with a name, else as it stands.
struct BindingOptions
{
    const ValueTransformer *valueTransformer = nullptr; ///< Not owned.
    std::optional<QString> valueTransformerName;

    /// The transformer to use; null when there is none.
    const ValueTransformer *transformer() const;

    /// The shortcut that `stored` stands for; absent when it stands for none.
    std::optional<MASShortcut> shortcutOf(const QVariant &stored) const;

    /// What to store for a shortcut or for none; as it stands where the transformer does not
    /// allow the reverse.
    QVariant storedFormOf(const std::optional<MASShortcut> &shortcut) const;
};
