#pragma once

#include "shortcut/ValueTransformer.h"

/// The name under which bindings ask for KeyedUnarchiveTransformer.
inline const QString NSKeyedUnarchiveFromDataTransformerName =
    QStringLiteral("NSKeyedUnarchiveFromData");

/// Shortcuts stored as keyed archives: the form the settings use. No shortcut is stored as empty
/// data rather than removed, so that a shortcut the user cleared does not come back as the
/// default at the next start.
class KeyedUnarchiveTransformer : public ValueTransformer
{
public:
    // ^ValueTransformer
    QString name() const override { return NSKeyedUnarchiveFromDataTransformerName; }
    bool allowsReverseTransformation() const override { return true; }
    std::optional<MASShortcut> transformedValue(const QVariant &stored) const override;
    QVariant reverseTransformedValue(const std::optional<MASShortcut> &shortcut) const override;
};
