#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

/// What a long folded text may hold, in a fraction of its size: a search passes over most texts by
/// it without reading them. What it denies is certain. A value; empty for a text that has none.
class TextSummary
{
public:
    /// What a text must hold to be found, put so that a hundred thousand summaries are asked it.
    class Question
    {
    public:
        Question() = default;
        /// All of `literals`, which are not empty; `isAll` when a text that has the one literal is
        /// found.
        Question(const std::vector<std::string_view> &literals, bool isAll);

    private:
        friend class TextSummary;

        std::vector<unsigned char> m_bytes;
        std::vector<std::uint32_t> m_runs; ///< Hashes of three bytes each.
        bool m_isOneByte = false;
    };

    enum class Answer { No, Yes, Perhaps };

    TextSummary() = default;
    explicit TextSummary(std::string_view foldedText);

    Answer answer(const Question &question) const;
    std::uint32_t bytes() const { return m_bytes; }

private:
    static std::uint32_t hashOf(const char *run);
    bool isSet(std::uint32_t bit) const;
    void set(std::uint32_t bit);

    std::unique_ptr<std::uint64_t[]> m_bits; ///< One for each byte, then those of the runs.
    std::uint32_t m_bytes = 0;
};
