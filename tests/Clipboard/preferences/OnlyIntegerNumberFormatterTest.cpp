#include "Clipboard/preferences/OnlyIntegerNumberFormatter.h"

#include "Clipboard/preferences/ByteCount.h"

#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

#include <limits>

namespace {

struct Partial
{
    const char *name;
    const char16_t *text;
    bool isValid;
    qint64 value;
};

using PartialString = testing::TestWithParam<Partial>;

TEST_P(PartialString, isRefusedWithABeepUnlessItIsAllDigits)
{
    int beeps = 0;
    OnlyIntegerNumberFormatter formatter(nullptr, [&beeps] { ++beeps; });
    const QString text = QString::fromUtf16(GetParam().text);
    EXPECT_EQ(formatter.isPartialStringValid(text), GetParam().isValid);
    EXPECT_EQ(beeps, GetParam().isValid ? 0 : 1);
    EXPECT_EQ(OnlyIntegerNumberFormatter::integerValue(text), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, PartialString,
    testing::Values(
        Partial{"empty", u"", true, 0}, Partial{"digits", u"10000", true, 10000},
        Partial{"arabicIndic", u"\u0661\u0662", true, 12},
        Partial{"beyondTheFirstPlane", u"\U0001D7CF\U0001D7D0", true, 12},
        Partial{"largest", u"9223372036854775807", true, std::numeric_limits<qint64>::max()},
        Partial{"twentyDigits", u"99999999999999999999", true, std::numeric_limits<qint64>::max()},
        Partial{"letter", u"12a", false, 12}, Partial{"minus", u"-1", false, 0},
        Partial{"blank", u"1 0", false, 1}, Partial{"superscript", u"1\u00B2", false, 1},
        Partial{"romanNumeral", u"\u2167", false, 0}),
    [](const auto &row) { return std::string(row.param.name); });

TEST(IntegerField, keepsItsDigitsWhenALetterIsTyped)
{
    int beeps = 0;
    QLineEdit field;
    field.setValidator(new OnlyIntegerNumberFormatter(&field, [&beeps] { ++beeps; }));
    QTest::keyClicks(&field, QStringLiteral("12x"));
    EXPECT_EQ(field.text(), QStringLiteral("12"));
    EXPECT_EQ(beeps, 1);
    field.selectAll();
    QTest::keyClick(&field, Qt::Key_Delete);
    EXPECT_EQ(field.text(), QString());
    EXPECT_EQ(beeps, 1);
}

struct Reading
{
    qint64 bytes;
    const char *text;
};

using ByteCount = testing::TestWithParam<Reading>;

TEST_P(ByteCount, readsAsPeopleSayIt)
{
    EXPECT_EQ(byteCount(GetParam().bytes), QString::fromUtf8(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(Sizes, ByteCount,
                         testing::Values(Reading{0, "0 bytes"}, Reading{1, "1 byte"},
                                         Reading{999, "999 bytes"}, Reading{1000, "1 KB"},
                                         Reading{10000, "10 KB"}, Reading{1550, "1.6 KB"},
                                         Reading{999'999, "1 MB"}, Reading{64'000'000, "64 MB"},
                                         Reading{std::numeric_limits<qint64>::max(), "9.2 EB"}));

} // namespace
