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

private:
    /// What stands between two "*".
    struct Segment
    {
        std::size_t leadingAny = 0;  ///< How many "?" it begins with.
        std::string core;            ///< The rest, with kAnyOne for each "?" in it.
        std::size_t literalSize = 0; ///< Bytes of `core` before its first "?".
    };

    static Segment segmentOf(QStringView part);
    static std::size_t endOfMatch(std::string_view text, std::size_t from, const Segment &segment);

    std::vector<Segment> m_segments;
};
