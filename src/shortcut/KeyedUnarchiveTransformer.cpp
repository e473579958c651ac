#include "shortcut/KeyedUnarchiveTransformer.h"

std::optional<MASShortcut> KeyedUnarchiveTransformer::transformedValue(const QVariant &stored) const
{
    if (stored.typeId() != QMetaType::QByteArray)
        return std::nullopt;
    return MASShortcut::unarchive(stored.toByteArray());
}

QVariant
KeyedUnarchiveTransformer::reverseTransformedValue(const std::optional<MASShortcut> &shortcut) const
{
    return shortcut ? shortcut->archive() : QByteArrayLiteral("");
}
