#include "history/SearchPattern.h"

#include "history/FoldedText.h"

#include <QList>
#include <QString>

#include <experimental/simd>

#include <algorithm>
#include <cstring>

namespace {

constexpr std::size_t kNotFound = std::string_view::npos;
/// No byte of UTF-8.
constexpr char kAnyOne = '\xFF';

/// Where `part`, which is not empty, begins in `text`. Looks at a register's width of places at a
/// time, because a search walks through megabytes at each key press.
std::size_t find(std::string_view text, std::string_view part)
{
    namespace stdx = std::experimental;
    using Bytes = stdx::native_simd<unsigned char>;
    constexpr std::size_t kWidth = Bytes::size();

    if (part.size() > text.size())
        return kNotFound;
    const std::size_t places = text.size() - part.size() + 1;
    if (places < kWidth)
        return text.find(part);
    const auto *begin = reinterpret_cast<const unsigned char *>(text.data());
    const Bytes first(static_cast<unsigned char>(part.front()));
    const Bytes last(static_cast<unsigned char>(part.back()));
    for (std::size_t place = 0;;) {
        const Bytes atFirst(begin + place, stdx::element_aligned);
        const Bytes atLast(begin + place + part.size() - 1, stdx::element_aligned);
        auto hits = (atFirst == first) && (atLast == last);
        while (stdx::any_of(hits)) {
            const int hit = stdx::find_first_set(hits);
            const std::size_t candidate = place + static_cast<std::size_t>(hit);
            if (std::memcmp(begin + candidate, part.data(), part.size()) == 0)
                return candidate;
            hits[static_cast<std::size_t>(hit)] = false;
        }
        if (place == places - kWidth)
            return kNotFound;
        // The last step looks at some places again rather than beyond the end.
        place = std::min(place + kWidth, places - kWidth);
    }
}

bool isContinuation(char byte)
{
    return (byte & 0xC0) == 0x80;
}

/// Where the character after the one at `at` begins.
std::size_t nextCharacter(std::string_view text, std::size_t at)
{
    do
        ++at;
    while (at < text.size() && isContinuation(text[at]));
    return at;
}

/// Where a match of `core` at `at` ends.
std::size_t endOfCore(std::string_view text, std::size_t at, std::string_view core)
{
    for (const char byte : core) {
        if (at >= text.size())
            return kNotFound;
        if (byte == kAnyOne)
            at = nextCharacter(text, at);
        else if (text[at] == byte)
            ++at;
        else
            return kNotFound;
    }
    return at;
}

} // namespace

SearchPattern::SearchPattern(QStringView term)
{
    for (const QStringView part : term.split(u'*')) {
        if (!part.isEmpty())
            m_segments.push_back(segmentOf(part));
    }
}

SearchPattern::Segment SearchPattern::segmentOf(QStringView part)
{
    Segment segment;
    while (part.startsWith(u'?')) {
        ++segment.leadingAny;
        part = part.mid(1);
    }
    bool isFirst = true;
    for (const QStringView literal : part.split(u'?')) {
        if (!isFirst)
            segment.core += kAnyOne;
        segment.core += FoldedText::fold(literal.toUtf8()).toStdString();
        if (isFirst)
            segment.literalSize = segment.core.size();
        isFirst = false;
    }
    constexpr std::size_t kLongestCharacter = 4;
    const auto anyInside =
        static_cast<std::size_t>(std::count(segment.core.begin(), segment.core.end(), kAnyOne));
    segment.mostBytes =
        segment.core.size() - anyInside + (segment.leadingAny + anyInside) * kLongestCharacter;
    return segment;
}

bool SearchPattern::matches(std::string_view foldedText) const
{
    // Each segment has a fixed number of characters, so the leftmost match leaves the most for
    // the segments after it.
    std::size_t at = 0;
    for (const Segment &segment : m_segments) {
        at = endOfMatch(foldedText, at, segment);
        if (at == kNotFound)
            return false;
    }
    return true;
}

bool SearchPattern::matches(std::string_view foldedPart, Progress &progress) const
{
    progress.rest += foldedPart;
    const std::string_view text = progress.rest;
    std::size_t at = 0;
    for (; progress.segment < m_segments.size(); ++progress.segment) {
        const Segment &segment = m_segments[progress.segment];
        const std::size_t end = endOfMatch(text, at, segment);
        if (end != kNotFound) {
            at = end;
            continue;
        }
        // A match that ends in a later part begins here at the earliest.
        std::size_t begin = text.size() - std::min(text.size(), segment.mostBytes - 1);
        while (begin > at && begin < text.size() && isContinuation(text[begin]))
            --begin;
        progress.rest.erase(0, std::max(at, begin));
        return false;
    }
    return true;
}

std::vector<std::string_view> SearchPattern::literals() const
{
    std::vector<std::string_view> literals;
    for (const Segment &segment : m_segments) {
        std::string_view rest = segment.core;
        while (!rest.empty()) {
            const std::size_t end = std::min(rest.find(kAnyOne), rest.size());
            if (end > 0)
                literals.push_back(rest.substr(0, end));
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
    }
    return literals;
}

bool SearchPattern::isLiteral() const
{
    return m_segments.size() == 1 && m_segments.front().leadingAny == 0 &&
           !m_segments.front().core.empty() &&
           m_segments.front().literalSize == m_segments.front().core.size();
}

std::size_t SearchPattern::endOfMatch(std::string_view text, std::size_t from,
                                      const Segment &segment)
{
    for (std::size_t i = 0; i < segment.leadingAny; ++i) {
        if (from >= text.size())
            return kNotFound;
        from = nextCharacter(text, from);
    }
    if (segment.core.empty())
        return from;
    const std::string_view literal = std::string_view(segment.core).substr(0, segment.literalSize);
    for (;;) {
        const std::size_t found = find(text.substr(from), literal);
        if (found == kNotFound)
            return kNotFound;
        const std::size_t end = endOfCore(text, from + found, segment.core);
        if (end != kNotFound)
            return end;
        from += found + 1;
    }
}
