#include "platform/richtext/CodePage.h"

#include <algorithm>
#include <utility>

#include <unicode/ucnv.h>

namespace {

/// A font's charset in RTF, and the encoding that it stands for.
struct Charset
{
    int number;
    int codePage;
};

constexpr Charset kCharsets[] = {
    {0, 1252},   {77, 10000}, {128, 932},  {129, 949},  {134, 936},  {136, 950},
    {161, 1253}, {162, 1254}, {163, 1258}, {177, 1255}, {178, 1256}, {186, 1257},
    {204, 1251}, {222, 874},  {238, 1250}, {254, 437},  {255, 850},
};

/// Those that a text may be written in. Western is first and wins when none is better.
constexpr int kWritten[] = {1252, 1250, 1251, 1253, 1254, 1255, 1256, 1257, 874};
/// Enough to tell what script a text is in.
constexpr qsizetype kTellingCharacters = 4000;

QByteArray nameOf(int number)
{
    if (number == 10000)
        return "macintosh";
    if (number == 65001)
        return "UTF-8";
    if (number == 20866)
        return "KOI8-R";
    if (number > 28590 && number < 28606)
        return "ISO-8859-" + QByteArray::number(number - 28590);
    const bool isOfWindows = (number >= 1250 && number <= 1258) || number == 874 || number == 932 ||
                             number == 936 || number == 949 || number == 950;
    return (isOfWindows ? "windows-" : "ibm-") + QByteArray::number(number);
}

/// Null when there is none of that name.
UConverter *opened(const QByteArray &name)
{
    UErrorCode error = U_ZERO_ERROR;
    UConverter *converter = ucnv_open(name.constData(), &error);
    return U_SUCCESS(error) ? converter : nullptr;
}

} // namespace

CodePage::CodePage(Converter converter) : m_converter(std::move(converter)) {}

CodePage::CodePage(int number) : m_converter(opened(nameOf(number)), &ucnv_close)
{
    if (!m_converter)
        m_converter.reset(opened(nameOf(kWestern)));
}

std::optional<CodePage> CodePage::named(const QByteArray &name)
{
    // Without a name there would be the default one.
    Converter converter(name.isEmpty() ? nullptr : opened(name), &ucnv_close);
    if (!converter)
        return std::nullopt;
    return CodePage(std::move(converter));
}

int CodePage::bestFor(QStringView text)
{
    QHash<char16_t, int> counts;
    qsizetype left = kTellingCharacters;
    for (const QChar character : text) {
        if (character.unicode() < 0x80)
            continue;
        ++counts[character.unicode()];
        if (--left == 0)
            break;
    }
    int best = kWestern;
    int mostBytes = 0;
    for (const int number : kWritten) {
        if (counts.isEmpty())
            break;
        const Bytes bytes = CodePage(number).upperHalf();
        int known = 0;
        for (auto count = counts.cbegin(); count != counts.cend(); ++count)
            known += bytes.contains(count.key()) ? count.value() : 0;
        if (known > mostBytes) {
            mostBytes = known;
            best = number;
        }
    }
    return best;
}

int CodePage::ofFontCharset(int charset, int fallback)
{
    const auto found = std::find_if(std::begin(kCharsets), std::end(kCharsets),
                                    [charset](Charset known) { return known.number == charset; });
    return found == std::end(kCharsets) ? fallback : found->codePage;
}

int CodePage::fontCharsetOf(int number)
{
    const auto found = std::find_if(std::begin(kCharsets), std::end(kCharsets),
                                    [number](Charset known) { return known.codePage == number; });
    return found == std::end(kCharsets) ? 0 : found->number;
}

QString CodePage::decoded(const QByteArray &bytes) const
{
    QString text(bytes.size() * 2 + 1, Qt::Uninitialized);
    UErrorCode error = U_ZERO_ERROR;
    const int32_t length = ucnv_toUChars(m_converter.get(), reinterpret_cast<UChar *>(text.data()),
                                         static_cast<int32_t>(text.size()), bytes.constData(),
                                         static_cast<int32_t>(bytes.size()), &error);
    text.truncate(U_SUCCESS(error) ? length : 0);
    return text;
}

CodePage::Bytes CodePage::upperHalf() const
{
    Bytes bytes;
    for (int byte = 0x80; byte <= 0xFF; ++byte) {
        const QString character = decoded(QByteArray(1, static_cast<char>(byte)));
        if (character.size() == 1 && character.front() > QChar(0x9F) &&
            character.front() != QChar::ReplacementCharacter)
            bytes.insert(character.front().unicode(), static_cast<uchar>(byte));
    }
    return bytes;
}
