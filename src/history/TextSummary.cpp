#include "history/TextSummary.h"

#include <algorithm>
#include <bit>

namespace {

constexpr std::uint32_t kByteBits = 256;
constexpr std::size_t kRun = 3;
constexpr std::size_t kWordBits = 64;

/// A power of two: a bit for each byte or two of the text, because most runs come again and again,
/// and no more than the runs of a language need.
std::uint32_t runBitsFor(std::size_t textSize)
{
    constexpr std::size_t kMost = 128 * 1024;
    return static_cast<std::uint32_t>(std::clamp(std::bit_floor(textSize), kWordBits, kMost));
}

std::uint32_t hashOfPair(const char *pair)
{
    const auto byte = [&](std::size_t at) {
        return static_cast<std::uint32_t>(static_cast<unsigned char>(pair[at]));
    };
    return ((byte(0) | byte(1) << 8) * 0x85EBCA6BU) >> 12;
}

} // namespace

TextSummary::Question::Question(const std::vector<std::string_view> &literals, bool isAll)
    : m_isOneByte(isAll && literals.size() == 1 && literals.front().size() == 1)
{
    for (const std::string_view literal : literals) {
        m_bytes.insert(m_bytes.end(), literal.begin(), literal.end());
        // Longer ones hold runs that say more.
        if (literal.size() == kRun - 1)
            m_runs.push_back(hashOfPair(literal.data()));
        for (std::size_t at = 0; at + kRun <= literal.size(); ++at)
            m_runs.push_back(hashOf(literal.data() + at));
    }
}

TextSummary::TextSummary(std::string_view foldedText)
{
    const std::uint32_t runBits = runBitsFor(foldedText.size());
    const std::size_t words = (kByteBits + runBits) / kWordBits;
    m_bits = std::make_unique<std::uint64_t[]>(words);
    m_bytes = static_cast<std::uint32_t>(words * sizeof(std::uint64_t));
    for (const char byte : foldedText)
        set(static_cast<unsigned char>(byte));
    for (std::size_t at = 0; at + kRun <= foldedText.size(); ++at) {
        set(kByteBits + (hashOf(foldedText.data() + at) & (runBits - 1)));
        set(kByteBits + (hashOfPair(foldedText.data() + at) & (runBits - 1)));
    }
    if (foldedText.size() >= kRun - 1)
        set(kByteBits +
            (hashOfPair(foldedText.data() + foldedText.size() - (kRun - 1)) & (runBits - 1)));
}

TextSummary::Answer TextSummary::answer(const Question &question) const
{
    if (!m_bits)
        return Answer::Perhaps;
    const bool hasBytes = std::all_of(question.m_bytes.begin(), question.m_bytes.end(),
                                      [this](unsigned char byte) { return isSet(byte); });
    if (!hasBytes || question.m_isOneByte)
        return hasBytes ? Answer::Yes : Answer::No;
    const std::uint32_t mask = m_bytes * 8 - kByteBits - 1;
    const bool hasRuns =
        std::all_of(question.m_runs.begin(), question.m_runs.end(),
                    [&](std::uint32_t hash) { return isSet(kByteBits + (hash & mask)); });
    return hasRuns ? Answer::Perhaps : Answer::No;
}

std::uint32_t TextSummary::hashOf(const char *run)
{
    const auto byte = [&](std::size_t at) {
        return static_cast<std::uint32_t>(static_cast<unsigned char>(run[at]));
    };
    const std::uint32_t product = (byte(0) | byte(1) << 8 | byte(2) << 16) * 0x9E3779B1U;
    // The high bits depend on all of the run, and the low ones are those that are looked at.
    return product >> 12;
}

bool TextSummary::isSet(std::uint32_t bit) const
{
    return m_bits[bit / kWordBits] >> (bit % kWordBits) & 1;
}

void TextSummary::set(std::uint32_t bit)
{
    m_bits[bit / kWordBits] |= std::uint64_t(1) << (bit % kWordBits);
}
