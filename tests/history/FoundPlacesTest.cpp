#include "history/FoundPlaces.h"
#include "history/CopiedFiles.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

struct Row
{
    const char *name;
    QString typed;
    QString text;
    QString marked; ///< The text with what is marked in brackets.
};

TEST(FoundPlaces, marksTheLettersThatWereSought)
{
    const Row kRows[] = {
        {"nothing sought", u""_s, u"abc"_s, u"abc"_s},
        {"every place, whatever the case", u"aB"_s, u"ab xAB"_s, u"[ab] x[AB]"_s},
        {"none", u"z"_s, u"abc"_s, u"abc"_s},
        {"both sides of any text", u"a*c"_s, u"abbc c"_s, u"[a]bb[c] c"_s},
        {"all or nothing of them", u"a*z"_s, u"abc"_s, u"abc"_s},
        {"one character between", u"a?c"_s, u"ac a😀c abc"_s, u"ac [a😀c] [abc]"_s},
        {"any character at the ends", u"?b?"_s, u"abc"_s, u"a[b]c"_s},
        {"wildcards alone", u"*?*"_s, u"abc"_s, u"abc"_s},
        {"after file:", u"File: a"_s, u"file: a"_s, u"file: [a]"_s},
        {"Arabic", u"عرب"_s, u"نص عربي"_s, u"نص [عرب]ي"_s},
        {"at the very end", u"c?d"_s, u"abc"_s, u"abc"_s},
    };
    for (const Row &row : kRows) {
        const FoundPlaces found(row.typed);
        QString marked = row.text;
        const QList<FoundPlaces::Place> places = found.in(row.text, 100);
        for (auto place = places.rbegin(); place != places.rend(); ++place) {
            marked.insert(place->start + place->length, u']');
            marked.insert(place->start, u'[');
        }
        EXPECT_EQ(marked, row.marked) << row.name << ": " << marked.toStdString();
    }
    EXPECT_TRUE(FoundPlaces(u"file:?"_s).isEmpty());
    EXPECT_EQ(FoundPlaces(u"a"_s).in(QString(1000, u'a'), 10).size(), 10);
}

TEST(CopiedFiles, areTheLinesWhenAllArePaths)
{
    struct Copied
    {
        const char *name;
        std::optional<QString> text;
        std::optional<QString> filepath;
        int count;
    };
    const Copied kRows[] = {
        {"three", u"/a\n/b c\n/d"_s, u"/a"_s, 3},
        {"a break at the end", u"/a\n/b\n"_s, u"/a"_s, 2},
        {"breaks of two characters", u"/a\r\n/b\r\n"_s, u"/a"_s, 2},
        {"one alone", u"/a"_s, u"/a"_s, 0},
        {"an empty line among them", u"/a\n\n/b"_s, u"/a"_s, 0},
        {"names alone", u"a\nb"_s, u"/a"_s, 0},
        {"another first", u"/b\n/a"_s, u"/a"_s, 0},
        {"a longer first", u"/ab\n/c"_s, u"/a"_s, 0},
        {"one that is relative", u"/a\nb"_s, u"/a"_s, 0},
        {"no file", u"/a\n/b"_s, std::nullopt, 0},
        {"no text", std::nullopt, u"/a"_s, 0},
    };
    for (const Copied &row : kRows)
        EXPECT_EQ(CopiedFiles::of(row.text, row.filepath).size(), row.count) << row.name;
}

} // namespace
