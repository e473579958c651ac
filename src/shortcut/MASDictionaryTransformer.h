#pragma once

#include "shortcut/ValueTransformer.h"

/// Shortcuts stored as a dictionary of two numbers, "keyCode" and "modifierFlags". No shortcut is
/// the empty dictionary.
class MASDictionaryTransformer : public ValueTransformer
{
public:
    // ^ValueTransformer
    QString name() const override { return QStringLiteral("MASDictionaryTransformer"); }
    bool allowsReverseTransformation() const override { return true; }
    std::optional<MASShortcut> transformedValue(const QVariant &stored) const override;
    QVariant reverseTransformedValue(const std::optional<MASShortcut> &shortcut) const override;
};
