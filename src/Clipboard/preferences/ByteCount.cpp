#include "Clipboard/preferences/ByteCount.h"

#include <QCoreApplication>
#include <QLocale>

#include <array>

QString byteCount(qint64 bytes)
{
    if (bytes == 1)
        return QCoreApplication::translate("ByteCount", "1 byte");
    constexpr std::array kUnits{
        QT_TRANSLATE_NOOP("ByteCount", "bytes"), QT_TRANSLATE_NOOP("ByteCount", "KB"),
        QT_TRANSLATE_NOOP("ByteCount", "MB"),    QT_TRANSLATE_NOOP("ByteCount", "GB"),
        QT_TRANSLATE_NOOP("ByteCount", "TB"),    QT_TRANSLATE_NOOP("ByteCount", "PB"),
        QT_TRANSLATE_NOOP("ByteCount", "EB")};
    constexpr double kThousandAfterRounding = 999.95;
    size_t unit = 0;
    auto amount = static_cast<double>(bytes);
    while (amount >= kThousandAfterRounding && unit + 1 < kUnits.size()) {
        amount /= 1000;
        ++unit;
    }
    QString number = QLocale().toString(amount, 'f', 1);
    if (number.endsWith(u'0'))
        number.chop(2);
    return QStringLiteral("%1 %2").arg(number,
                                       QCoreApplication::translate("ByteCount", kUnits[unit]));
}
