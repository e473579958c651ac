#include "updates/updater/UpdateVersion.h"

#include <QRegularExpression>

std::optional<UpdateVersion> UpdateVersion::parse(const QString &text)
{
    static const QRegularExpression kForm(
        QStringLiteral("\\A(?:0|[1-9][0-9]{0,8})(?:\\.(?:0|[1-9][0-9]{0,8})){0,7}b?\\z"));
    if (!kForm.match(text).hasMatch())
        return std::nullopt;
    UpdateVersion version;
    version.m_isBeta = isBeta(text);
    for (const QString &number : text.chopped(version.m_isBeta ? 1 : 0).split(u'.'))
        version.m_numbers.append(number.toInt());
    return version;
}

std::strong_ordering UpdateVersion::operator<=>(const UpdateVersion &other) const
{
    for (qsizetype i = 0; i < qMax(m_numbers.size(), other.m_numbers.size()); ++i) {
        const auto order = m_numbers.value(i) <=> other.m_numbers.value(i);
        if (std::is_neq(order))
            return order;
    }
    return other.m_isBeta <=> m_isBeta;
}
