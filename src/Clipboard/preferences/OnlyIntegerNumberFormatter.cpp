#include "Clipboard/preferences/OnlyIntegerNumberFormatter.h"

#include <QChar>

#include <algorithm>
#include <limits>
#include <utility>

OnlyIntegerNumberFormatter::OnlyIntegerNumberFormatter(QObject *parent, std::function<void()> beep)
    : QValidator(parent), m_beep(std::move(beep))
{
}

bool OnlyIntegerNumberFormatter::isPartialStringValid(const QString &partialString) const
{
    const auto characters = partialString.toUcs4();
    const bool isValid = std::all_of(characters.begin(), characters.end(),
                                     [](char32_t character) { return QChar::isDigit(character); });
    if (!isValid)
        m_beep();
    return isValid;
}

qint64 OnlyIntegerNumberFormatter::integerValue(const QString &text)
{
    constexpr qint64 kMax = std::numeric_limits<qint64>::max();
    qint64 number = 0;
    for (const char32_t character : text.toUcs4()) {
        if (!QChar::isDigit(character))
            break;
        const int digit = QChar::digitValue(character);
        if (number > (kMax - digit) / 10)
            return kMax;
        number = number * 10 + digit;
    }
    return number;
}

QValidator::State OnlyIntegerNumberFormatter::validate(QString &input, int &) const
{
    return isPartialStringValid(input) ? Acceptable : Invalid;
}
