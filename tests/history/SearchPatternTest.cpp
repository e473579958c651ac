#include "history/SearchPattern.h"
#include "history/FoldedText.h"
#include "history/TextSummary.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <random>

namespace {

bool isFound(const QString &term, const QString &text)
{
    return SearchPattern(term).matches(FoldedText::fold(text.toUtf8()).toStdString());
}

/// In a text that comes in parts of so many characters.
bool isFoundInParts(const QString &term, const QString &text, std::size_t characters)
{
    const SearchPattern pattern(term);
    SearchPattern::Progress progress;
    const std::u32string whole = text.toStdU32String();
    for (std::size_t at = 0; at < std::max<std::size_t>(whole.size(), 1); at += characters) {
        const QString part = QString::fromStdU32String(whole.substr(at, characters));
        if (pattern.matches(FoldedText::fold(part.toUtf8()).toStdString(), progress))
            return true;
    }
    return false;
}

/// What a summary of the text says; it may not know.
bool mayBeFound(const QString &term, const QString &text)
{
    const SearchPattern pattern(term);
    const TextSummary summary(FoldedText::fold(text.toUtf8()).toStdString());
    return summary.answer({pattern.literals(), pattern.isLiteral()}) != TextSummary::Answer::No;
}

struct PatternRow
{
    const char *name;
    QString term;
    QString text;
    bool isFound;
};

using SearchPatternTable = testing::TestWithParam<PatternRow>;

TEST_P(SearchPatternTable, findsTheTermOrNot)
{
    EXPECT_EQ(isFound(GetParam().term, GetParam().text), GetParam().isFound);
}

QString u(const char *text)
{
    return QString::fromUtf8(text);
}

INSTANTIATE_TEST_SUITE_P(
    Terms, SearchPatternTable,
    testing::Values(PatternRow{"otherCase", u("Mail"), u("an eMAIL came"), true},
                    PatternRow{"greekFinalSigma", u("ΣΑΣ"), u("σας"), true},
                    PatternRow{"cyrillic", u("привет"), u("ПРИВЕТ, мир"), true},
                    PatternRow{"sharpSIsOneLetter", u("stra?e"), u("STRAßE"), true},
                    PatternRow{"sharpSIsNotTwoLetters", u("strasse"), u("Straße"), false},
                    PatternRow{"deseretBeyondTheFirstPlane", u("𐐀"), u("x𐐨y"), true},
                    PatternRow{"anyOnesCountCharacters", u("é??é"), u("é🎉ßé"), true},
                    PatternRow{"percentIsNoWildcard", u("1%2"), u("1 of 2"), false},
                    PatternRow{"backslashIsItself", u("\\*"), u("a\\b"), true},
                    PatternRow{"nulInTheText", u("after"), QStringLiteral("before\0after"), true}),
    [](const auto &row) { return std::string(row.param.name); });

/// The pattern language read literally, character by character.
bool matchesLiterally(const std::u32string &pattern, std::size_t p, const std::u32string &text,
                      std::size_t t)
{
    if (p == pattern.size())
        return t == text.size();
    if (pattern[p] == '*')
        return matchesLiterally(pattern, p + 1, text, t) ||
               (t < text.size() && matchesLiterally(pattern, p, text, t + 1));
    return t < text.size() && (pattern[p] == '?' || pattern[p] == text[t]) &&
           matchesLiterally(pattern, p + 1, text, t + 1);
}

TEST(SearchPattern, findsWhatALiteralReadingOfThePatternFinds)
{
    std::mt19937 random(20260102);
    const auto randomText = [&](const QStringList &alphabet, unsigned longest) {
        QString text;
        for (auto size = random() % (longest + 1); size > 0; --size)
            text += alphabet[static_cast<qsizetype>(random()) % alphabet.size()];
        return text;
    };
    const QStringList letters{u("a"), u("B"), u("b"), u("é"), u("É"), u("🎉"), u("\n")};
    const QStringList patternLetters = letters + QStringList{u("*"), u("?")};
    int found = 0;
    int denied = 0;
    for (int i = 0; i < 20000; ++i) {
        const QString term = randomText(patternLetters, 5);
        const QString text = randomText(letters, 40);
        const bool expected =
            matchesLiterally((u("*") + term + u("*")).toCaseFolded().toStdU32String(), 0,
                             text.toCaseFolded().toStdU32String(), 0);
        ASSERT_EQ(isFound(term, text), expected)
            << term.toStdString() << " in " << text.toStdString();
        ASSERT_EQ(isFoundInParts(term, text, 1 + random() % 4), expected)
            << term.toStdString() << " in " << text.toStdString();
        ASSERT_TRUE(!expected || mayBeFound(term, text))
            << term.toStdString() << " in " << text.toStdString();
        denied += mayBeFound(term, text) ? 0 : 1;
        found += expected ? 1 : 0;
    }
    EXPECT_GT(found, 2000);
    EXPECT_LT(found, 18000);
    EXPECT_GT(denied, 2000);
}

TEST(TextSummary, knowsOfAByteAndOfMostRunsThatAreNotThere)
{
    std::string text;
    std::mt19937 random(7);
    while (text.size() < 100'000)
        text += "the quick brown foxes "[random() % 22];
    const TextSummary summary(text);
    const auto answer = [&](const char *term) {
        const SearchPattern pattern(u(term));
        return summary.answer({pattern.literals(), pattern.isLiteral()});
    };
    EXPECT_EQ(answer("q"), TextSummary::Answer::Yes);
    EXPECT_EQ(answer("z"), TextSummary::Answer::No);
    EXPECT_EQ(answer("?q"), TextSummary::Answer::Perhaps);
    EXPECT_EQ(answer("he*z"), TextSummary::Answer::No);
    EXPECT_EQ(TextSummary(std::string(20'000, 'w') + std::string(20'000, 'o'))
                  .answer({SearchPattern(u("ow")).literals(), true}),
              TextSummary::Answer::No);
    EXPECT_EQ(answer("the"), TextSummary::Answer::Perhaps);
    EXPECT_EQ(TextSummary("only words " + std::string(20'000, 'w'))
                  .answer({SearchPattern(u("sword")).literals(), true}),
              TextSummary::Answer::No);
    EXPECT_LE(summary.bytes(), text.size() / 8 + 32);
    EXPECT_EQ(TextSummary().answer({{"z"}, true}), TextSummary::Answer::Perhaps);
}

} // namespace
