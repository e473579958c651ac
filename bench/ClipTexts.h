#pragma once

#include <random>
#include <string>
#include <vector>

/// The clips that benchmarks work on. The same number gives the same clip in every run, and each is
/// different from every other.
class ClipTexts
{
public:
    enum class Sizes {
        Even, ///< Sentences of everyday words, about 200 bytes each.
        /// As people copy: half of them below 60 bytes, one in twenty above 5 kB, a few of 1 MB, so
        /// that 100,000 clips have some 200 MB; prose of several scripts, code, addresses, data.
        Real
    };

    explicit ClipTexts(Sizes sizes);

    /// As UTF-8.
    std::string text(unsigned number) const;

private:
    using Random = std::mt19937;
    using Words = std::vector<std::string>;

    static Words wordsOf(const std::vector<const char *> &syllables, Random &random);
    static std::string evenText(unsigned number);
    std::string prose(const Words &words, const char *gap, std::size_t size, Random &random) const;
    static std::string data(std::size_t size, Random &random);

    Sizes m_sizes;
    std::vector<Words> m_languages;   ///< Of each, the words from the most to the least frequent.
    std::vector<std::size_t> m_ranks; ///< Places in those, as often as their words are used.
};
