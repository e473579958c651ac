#include "platform/SettingsStore.h"

#include <QRegularExpression>

#include <cmath>
#include <limits>

namespace {

qint64 leadingInteger(const QString &text)
{
    static const QRegularExpression pattern(QStringLiteral("^\\s*([+-]?\\d+)"));
    const auto match = pattern.match(text);
    if (!match.hasMatch())
        return 0;
    bool fits = false;
    const qint64 number = match.captured(1).toLongLong(&fits);
    if (fits)
        return number;
    return match.captured(1).startsWith(u'-') ? std::numeric_limits<qint64>::min()
                                              : std::numeric_limits<qint64>::max();
}

} // namespace

bool SettingsStore::boolForKey(const QString &key) const
{
    const QVariant stored = value(key);
    if (stored.typeId() == QMetaType::Double)
        return stored.toDouble() != 0.0;
    const QString text = stored.typeId() == QMetaType::QString ? stored.toString() : QString();
    return text.compare(u"yes", Qt::CaseInsensitive) == 0 ||
           text.compare(u"true", Qt::CaseInsensitive) == 0 || integerForKey(key) != 0;
}

qint64 SettingsStore::integerForKey(const QString &key) const
{
    const QVariant stored = value(key);
    switch (stored.typeId()) {
    case QMetaType::Bool:
        return stored.toBool() ? 1 : 0;
    case QMetaType::LongLong:
    case QMetaType::Int:
    case QMetaType::ULongLong:
        return stored.toLongLong();
    case QMetaType::Double: {
        const double real = stored.toDouble();
        // Outside this range the conversion to an integer is undefined.
        constexpr double kLimit = 9.2e18;
        return std::abs(real) < kLimit ? static_cast<qint64>(real) : 0;
    }
    case QMetaType::QString:
        return leadingInteger(stored.toString());
    default:
        return 0;
    }
}
