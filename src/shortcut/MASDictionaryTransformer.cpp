#include "shortcut/MASDictionaryTransformer.h"

namespace {

QString keyCodeEntry()
{
    return QStringLiteral("keyCode");
}

QString modifierFlagsEntry()
{
    return QStringLiteral("modifierFlags");
}

/// An entry as an unsigned word; absent when it is missing or does not answer as an integer.
std::optional<quint64> wordAt(const QVariantMap &dictionary, const QString &key)
{
    const QVariant value = dictionary.value(key);
    switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
        return static_cast<quint64>(value.toLongLong());
    case QMetaType::ULongLong:
        return value.toULongLong();
    default:
        return std::nullopt;
    }
}

} // namespace

std::optional<MASShortcut> MASDictionaryTransformer::transformedValue(const QVariant &stored) const
{
    if (stored.typeId() != QMetaType::QVariantMap)
        return std::nullopt;
    const QVariantMap dictionary = stored.toMap();
    const std::optional<quint64> keyCode = wordAt(dictionary, keyCodeEntry());
    const std::optional<quint64> flags = wordAt(dictionary, modifierFlagsEntry());
    if (!keyCode || !flags)
        return std::nullopt;
    return MASShortcut(*keyCode, *flags);
}

QVariant
MASDictionaryTransformer::reverseTransformedValue(const std::optional<MASShortcut> &shortcut) const
{
    if (!shortcut)
        return QVariantMap();
    // The settings store's integers are signed; both words fit.
    return QVariantMap{{keyCodeEntry(), static_cast<qlonglong>(shortcut->keyCode())},
                       {modifierFlagsEntry(), static_cast<qlonglong>(shortcut->modifierFlags())}};
}
