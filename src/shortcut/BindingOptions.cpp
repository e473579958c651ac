#include "shortcut/BindingOptions.h"

const ValueTransformer *BindingOptions::transformer() const
{
    if (valueTransformer || !valueTransformerName)
        return valueTransformer;
    return ValueTransformer::valueTransformerForName(*valueTransformerName);
}

std::optional<MASShortcut> BindingOptions::shortcutOf(const QVariant &stored) const
{
    if (const ValueTransformer *by = transformer())
        return by->transformedValue(stored);
    if (stored.metaType() != QMetaType::fromType<MASShortcut>())
        return std::nullopt;
    return *static_cast<const MASShortcut *>(stored.constData());
}

QVariant BindingOptions::storedFormOf(const std::optional<MASShortcut> &shortcut) const
{
    const ValueTransformer *by = transformer();
    if (by && by->allowsReverseTransformation())
        return by->reverseTransformedValue(shortcut);
    return shortcut ? QVariant::fromValue(*shortcut) : QVariant();
}
