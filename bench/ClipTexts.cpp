#include "ClipTexts.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr std::size_t kVocabulary = 6000;
constexpr std::size_t kLargest = 1'000'000; // bytes

// The standard library's own distributions differ from one implementation to the next.
double uniform(std::mt19937 &random)
{
    return (static_cast<double>(random()) + 0.5) / 4294967296.0;
}

double normal(std::mt19937 &random)
{
    const double radius = std::sqrt(-2 * std::log(uniform(random)));
    return radius * std::cos(6.283185307179586 * uniform(random));
}

/// With its middle at 60, one in twenty above 5000.
std::size_t realSize(std::mt19937 &random)
{
    const double size = std::exp(std::log(60.0) + 2.689 * normal(random));
    return static_cast<std::size_t>(std::clamp(size, 1.0, double(kLargest)));
}

} // namespace

ClipTexts::ClipTexts(Sizes sizes) : m_sizes(sizes)
{
    Random random(1);
    m_languages = {
        wordsOf({"the", "re",  "in",  "con", "er",  "ti",  "on", "al",  "st",
                 "an",  "ver", "qu",  "ple", "ing", "ed",  "ly", "com", "put",
                 "mar", "sh",  "cla", "por", "ta",  "ble", "zo"},
                random),
        wordsOf({"get", "set",   "_",     "Item", "Value", "node", "map",   "str",
                 "int", "std::", "void",  "->",   "()",    "Size", "Index", "return",
                 "=",   "x",     "const", "{",    "}",     ";",    "zip"},
                random),
        wordsOf({"при", "ко", "ста", "не", "го", "во", "ра",   "про", "на", "ме", "ли",
                 "то",  "ка", "пе",  "ре", "ни", "ем", "ость", "ный", "зу", "щи", "жа"},
                random),
        wordsOf({"日", "本", "的", "中", "国", "人", "大", "学", "生", "会", "時", "間",   "東",
                 "京", "是", "不", "了", "我", "在", "有", "を", "は", "に", "の", "する", "れば"},
                random),
        wordsOf({"ال", "كت", "اب", "مد", "رس", "ية", "وال", "في", "من", "حا", "سو", "بق", "ري",
                 "عل", "مي", "نا"},
                random)};
    for (std::size_t rank = 0; rank < kVocabulary; ++rank)
        m_ranks.insert(m_ranks.end(), 1 + kVocabulary / (rank + 1), rank);
}

ClipTexts::Words ClipTexts::wordsOf(const std::vector<const char *> &syllables, Random &random)
{
    Words words(kVocabulary);
    for (std::size_t rank = 0; rank < words.size(); ++rank) {
        // Frequent words are short.
        const std::size_t most = rank < 50 ? 2 : 5;
        for (std::size_t i = 0, count = 1 + random() % most; i < count; ++i)
            words[rank] += syllables[random() % syllables.size()];
    }
    return words;
}

std::string ClipTexts::text(unsigned number) const
{
    if (m_sizes == Sizes::Even)
        return evenText(number);
    Random random(number);
    const std::size_t size = realSize(random);
    // What they are of, in hundredths.
    const auto kind = random() % 100;
    std::string text = kind < 55   ? prose(m_languages[0], " ", size, random)
                       : kind < 70 ? prose(m_languages[1], " ", size, random)
                       : kind < 80 ? prose(m_languages[2], " ", size, random)
                       : kind < 86 ? prose(m_languages[3], "", size, random)
                       : kind < 91 ? prose(m_languages[4], " ", size, random)
                                   : data(size, random);
    return text + ' ' + std::to_string(number);
}

std::string ClipTexts::prose(const Words &words, const char *gap, std::size_t size,
                             Random &random) const
{
    std::string text;
    text.reserve(size + 64);
    for (unsigned word = 1; text.size() < size; ++word) {
        text += words[m_ranks[random() % m_ranks.size()]];
        text += word % 12 == 0 ? "\n" : gap;
    }
    return text;
}

/// Addresses, and for long clips what looks like the rows of a table.
std::string ClipTexts::data(std::size_t size, Random &random)
{
    static const char kDigits[] = "0123456789abcdefghijklmnopqrstuvwxyz";
    std::string text = size < 200 ? "https://example.org/" : "id;name;sum\n";
    text.reserve(size + 64);
    while (text.size() < size) {
        for (int i = 0; i < 8; ++i)
            text += kDigits[random() % 36];
        text += size < 200 ? '/' : (random() % 5 == 0 ? '\n' : ';');
    }
    return text;
}

std::string ClipTexts::evenText(unsigned number)
{
    static const char *const kWords[] = {
        "the",    "meeting", "moved",  "to",       "Thursday", "invoice", "please", "check",
        "server", "error",   "commit", "password", "window",   "https",   "report", "Straße",
        "and",    "answer",  "budget", "customer", "delivery", "example", "future", "garden"};
    Random random(number);
    std::string text = "clip " + std::to_string(number) + ":";
    while (text.size() < 195)
        text += std::string(" ") + kWords[random() % std::size(kWords)];
    return text;
}
