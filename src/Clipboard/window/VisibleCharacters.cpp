#include "Clipboard/window/VisibleCharacters.h"

#include <QTextBoundaryFinder>

#include <algorithm>
#include <iterator>

namespace {

struct CodePoints
{
    char32_t first;
    char32_t last;
};

/// Those that are pictures unless a text variant is asked for, in order.
constexpr CodePoints kPictures[] = {
    {0x231A, 0x231B},   {0x23E9, 0x23EC},   {0x23F0, 0x23F0},   {0x23F3, 0x23F3},
    {0x25FD, 0x25FE},   {0x2614, 0x2615},   {0x2648, 0x2653},   {0x267F, 0x267F},
    {0x2693, 0x2693},   {0x26A1, 0x26A1},   {0x26AA, 0x26AB},   {0x26BD, 0x26BE},
    {0x26C4, 0x26C5},   {0x26CE, 0x26CE},   {0x26D4, 0x26D4},   {0x26EA, 0x26EA},
    {0x26F2, 0x26F3},   {0x26F5, 0x26F5},   {0x26FA, 0x26FA},   {0x26FD, 0x26FD},
    {0x2705, 0x2705},   {0x270A, 0x270B},   {0x2728, 0x2728},   {0x274C, 0x274C},
    {0x274E, 0x274E},   {0x2753, 0x2755},   {0x2757, 0x2757},   {0x2795, 0x2797},
    {0x27B0, 0x27B0},   {0x27BF, 0x27BF},   {0x2B1B, 0x2B1C},   {0x2B50, 0x2B50},
    {0x2B55, 0x2B55},   {0x1F004, 0x1F004}, {0x1F0CF, 0x1F0CF}, {0x1F18E, 0x1F18E},
    {0x1F191, 0x1F19A}, {0x1F1E6, 0x1F1FF}, {0x1F201, 0x1F201}, {0x1F21A, 0x1F21A},
    {0x1F22F, 0x1F22F}, {0x1F232, 0x1F236}, {0x1F238, 0x1F23A}, {0x1F250, 0x1F251},
    {0x1F300, 0x1F320}, {0x1F32D, 0x1F335}, {0x1F337, 0x1F37C}, {0x1F37E, 0x1F393},
    {0x1F3A0, 0x1F3CA}, {0x1F3CF, 0x1F3D3}, {0x1F3E0, 0x1F3F0}, {0x1F3F4, 0x1F3F4},
    {0x1F3F8, 0x1F43E}, {0x1F440, 0x1F440}, {0x1F442, 0x1F4FC}, {0x1F4FF, 0x1F53D},
    {0x1F54B, 0x1F54E}, {0x1F550, 0x1F567}, {0x1F57A, 0x1F57A}, {0x1F595, 0x1F596},
    {0x1F5A4, 0x1F5A4}, {0x1F5FB, 0x1F64F}, {0x1F680, 0x1F6C5}, {0x1F6CC, 0x1F6CC},
    {0x1F6D0, 0x1F6D2}, {0x1F6D5, 0x1F6D7}, {0x1F6DC, 0x1F6DF}, {0x1F6EB, 0x1F6EC},
    {0x1F6F4, 0x1F6FC}, {0x1F7E0, 0x1F7EB}, {0x1F7F0, 0x1F7F0}, {0x1F90C, 0x1F93A},
    {0x1F93C, 0x1F945}, {0x1F947, 0x1F9FF}, {0x1FA70, 0x1FAFF},
};

constexpr char16_t kJoiner = 0x200D;
constexpr char16_t kKeycap = 0x20E3;
constexpr char16_t kAsText = 0xFE0E;
constexpr char16_t kAsPicture = 0xFE0F;

bool isPicture(char32_t code)
{
    const auto *found = std::lower_bound(
        std::begin(kPictures), std::end(kPictures), code,
        [](const CodePoints &range, char32_t wanted) { return range.last < wanted; });
    return found != std::end(kPictures) && found->first <= code;
}

char32_t codeAt(QStringView text, qsizetype at)
{
    const QChar unit = text.at(at);
    return unit.isHighSurrogate() && at + 1 < text.size() && text.at(at + 1).isLowSurrogate()
               ? QChar::surrogateToUcs4(unit, text.at(at + 1))
               : unit.unicode();
}

/// Each unit of the text by itself is a character, but for a line's end of two.
bool isPlain(QStringView text)
{
    return std::all_of(text.begin(), text.end(),
                       [](QChar character) { return character.unicode() < 0x300; });
}

bool mayHoldEmoji(QStringView text)
{
    return std::any_of(text.begin(), text.end(), [](QChar character) {
        const char16_t unit = character.unicode();
        return (unit >= 0xD83C && unit <= 0xD83E) || unit == kKeycap || unit == kAsPicture ||
               (unit >= kPictures[0].first && unit <= 0x2B55 && isPicture(unit));
    });
}

bool isEmoji(QStringView character)
{
    if (character.contains(QChar(kAsText)))
        return false;
    return character.contains(QChar(kAsPicture)) || character.contains(QChar(kKeycap)) ||
           isPicture(codeAt(character, 0));
}

/// The end of the character that begins at the finder's place.
qsizetype nextBoundary(QTextBoundaryFinder &finder, QStringView text)
{
    qsizetype end = finder.toNextBoundary();
    // What a joiner ties to a picture is one picture with it.
    while (end > 0 && end < text.size() && text.at(end - 1) == QChar(kJoiner) &&
           codeAt(text, end) >= 0x2190)
        end = finder.toNextBoundary();
    return end;
}

} // namespace

qint64 VisibleCharacters::count(QStringView text)
{
    qint64 characters = 0;
    for (qsizetype begin = 0; begin < text.size();) {
        const Counted some = countSome(text, begin);
        begin = some.end;
        characters += some.characters;
    }
    return characters;
}

VisibleCharacters::Counted VisibleCharacters::countSome(QStringView text, qsizetype begin)
{
    QStringView slice = text.mid(begin, kCountedAtOnce);
    // What stands at the end of a slice may go on behind it.
    const bool isLast = begin + slice.size() == text.size();
    if (!isLast && slice.back().isHighSurrogate())
        slice.chop(1);
    if (isPlain(slice)) {
        qsizetype end = slice.size() - (isLast ? 0 : 1);
        while (!isLast && end > 1 && slice.at(end - 1) == u'\r')
            --end;
        return {begin + end, end - slice.left(end).count(u"\r\n")};
    }
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, slice.data(), slice.size());
    Counted counted{begin, 0};
    for (qsizetype end = nextBoundary(finder, slice); end > 0; end = nextBoundary(finder, slice)) {
        if (end == slice.size() && !isLast && counted.characters > 0)
            break;
        counted.end = begin + end;
        ++counted.characters;
    }
    return counted;
}

qsizetype VisibleCharacters::wholeCharacters(QStringView text, qsizetype length)
{
    // Longer than any character that a person would make.
    constexpr qsizetype kAround = 64;
    if (length <= 0 || length >= text.size())
        return qBound(qsizetype(0), length, text.size());
    const qsizetype start = std::max(qsizetype(0), length - kAround);
    const QStringView around = text.mid(start, 2 * kAround);
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, around.data(), around.size());
    qsizetype whole = 0;
    for (qsizetype end = nextBoundary(finder, around); end > 0 && start + end <= length;
         end = nextBoundary(finder, around))
        whole = end;
    if (whole > 0)
        return start + whole;
    return text.at(length - 1).isHighSurrogate() ? length - 1 : length;
}

bool VisibleCharacters::hasLongWord(QStringView text)
{
    constexpr qsizetype kMaxWordLength = 4'000;
    qsizetype length = 0;
    return std::any_of(text.begin(), text.end(), [&](QChar character) {
        length = character.isSpace() ? 0 : length + 1;
        return length > kMaxWordLength;
    });
}

QList<VisibleCharacters::Run> VisibleCharacters::emoji(QStringView text)
{
    QList<Run> runs;
    if (!mayHoldEmoji(text))
        return runs;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text.data(), text.size());
    qsizetype start = 0;
    for (qsizetype end = nextBoundary(finder, text); end > 0; end = nextBoundary(finder, text)) {
        if (isEmoji(text.mid(start, end - start))) {
            if (!runs.isEmpty() && runs.last().start + runs.last().length == start)
                runs.last().length += end - start;
            else
                runs.append({start, end - start});
        }
        start = end;
    }
    return runs;
}
