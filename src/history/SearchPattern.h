#pragma once

#include <QStringView>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// A search term in the pattern language of the search field: found anywhere in a text, whatever
/// the case; "*" stands for any run of characters, line breaks included, and "?" for any one.
class SearchPattern
{
public:
    explicit SearchPattern(QStringView term);

    /// Whether the term is found in a text that FoldedText made.
    bool matches(std::string_view foldedText) const;

    /// How far the term was found in a text that comes in parts.
    struct Progress
    {
        std::size_t segment = 0; ///< The first that was not found.
        std::string rest;        ///< End of what came, where that segment may begin.
    };
    /// The same with the next part of such a text, which ends where a character does.
    bool matches(std::string_view foldedPart, Progress &progress) const;

    /// What stands literally in every text that matches.
    std::vector<std::string_view> literals() const;
    /// Whether a text that has that one literal matches.
    bool isLiteral() const;

private:
    /// What stands between two "*".
    struct Segment
    {
        std::size_t leadingAny = 0;  ///< How many "?" it begins with.
        std::string core;            ///< The rest, with kAnyOne for each "?" in it.
        std::size_t literalSize = 0; ///< Bytes of `core` before its first "?".
        std::size_t mostBytes = 0;   ///< Of a text that matches it.
    };

    static Segment segmentOf(QStringView part);
    static std::size_t endOfMatch(std::string_view text, std::size_t from, const Segment &segment);

    std::vector<Segment> m_segments;
};
