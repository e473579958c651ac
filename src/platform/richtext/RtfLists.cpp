#include "platform/richtext/RtfLists.h"

#include <QTextBlock>
#include <QTextList>

#include <algorithm>

namespace {

constexpr int kMaxDepth = 8;
constexpr int kMaxLists = 500;
constexpr int kBullet = 23;

int formatOf(const QTextList &list)
{
    switch (list.format().style()) {
    case QTextListFormat::ListDecimal:
        return 0;
    case QTextListFormat::ListUpperRoman:
        return 1;
    case QTextListFormat::ListLowerRoman:
        return 2;
    case QTextListFormat::ListUpperAlpha:
        return 3;
    case QTextListFormat::ListLowerAlpha:
        return 4;
    default:
        return kBullet;
    }
}

} // namespace

int RtfLists::levelOf(const QTextList &list)
{
    return std::clamp(list.format().indent() - 1, 0, kMaxDepth);
}

int RtfLists::numberOf(const QTextList &list)
{
    const auto known = m_numbers.constFind(&list);
    if (known != m_numbers.cend())
        return *known;
    const Kind kind{formatOf(list), levelOf(list)};
    const auto same = std::find_if(m_kinds.cbegin(), m_kinds.cend(), [&](const Kind &other) {
        return other.format == kind.format && other.level == kind.level &&
               (kind.format == kBullet || m_kinds.size() >= kMaxLists);
    });
    int number = static_cast<int>(same - m_kinds.cbegin()) + 1;
    if (same == m_kinds.cend())
        m_kinds.append(kind);
    m_numbers.insert(&list, number);
    return number;
}

QString RtfLists::marker(const QTextList &list, const QTextBlock &item)
{
    return formatOf(list) == kBullet ? QStringLiteral("•") : list.itemText(item);
}

QByteArray RtfLists::tables() const
{
    if (m_kinds.isEmpty())
        return {};
    QByteArray lists("{\\*\\listtable");
    QByteArray overrides("{\\*\\listoverridetable");
    for (int number = 1; number <= m_kinds.size(); ++number) {
        const Kind &kind = m_kinds.at(number - 1);
        const QByteArray id = QByteArray::number(number);
        lists += "{\\list";
        for (int level = 0; level <= kind.level; ++level) {
            const QByteArray text =
                kind.format == kBullet
                    ? QByteArray("\\'01\\u8226 ?;}{\\levelnumbers;}")
                    : "\\'02\\'0" + QByteArray::number(level) + ".;}{\\levelnumbers\\'01;}";
            lists += "{\\listlevel\\levelnfc" + QByteArray::number(kind.format) +
                     "\\leveljc0\\levelstartat1\\levelfollow0{\\leveltext" + text + "\\fi-360\\li" +
                     QByteArray::number((level + 1) * 720) + '}';
        }
        lists += "\\listid" + id + '}';
        overrides += "{\\listoverride\\listid" + id + "\\listoverridecount0\\ls" + id + '}';
    }
    return lists + '}' + overrides + '}';
}
