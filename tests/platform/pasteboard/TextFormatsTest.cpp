#include "platform/pasteboard/TextFormats.h"

#include <gtest/gtest.h>

namespace {

TEST(TextFormats, areOrderedByHowFaithfulTheyAreAndUnknownOnesLeftOut)
{
    const QStringList offered{QStringLiteral("TARGETS"),
                              QStringLiteral("COMPOUND_TEXT"),
                              QStringLiteral("TEXT"),
                              QStringLiteral("text/plain"),
                              QStringLiteral("STRING"),
                              QStringLiteral("text/plain;charset=no-such-thing"),
                              QStringLiteral("text/plain; charset=\"ISO-8859-15\""),
                              QStringLiteral("text/html"),
                              QStringLiteral("text/plain;charset=UTF-8"),
                              QStringLiteral("UTF8_STRING")};
    const QStringList inOrder{QStringLiteral("UTF8_STRING"),
                              QStringLiteral("text/plain;charset=UTF-8"),
                              QStringLiteral("text/plain; charset=\"ISO-8859-15\""),
                              QStringLiteral("STRING"),
                              QStringLiteral("text/plain"),
                              QStringLiteral("TEXT"),
                              QStringLiteral("COMPOUND_TEXT")};
    EXPECT_EQ(TextFormats::inOrder(offered), inOrder);
}

TEST(TextFormats, onlyAPlainTextBesideObjectsMayHoldNone)
{
    const QString plain = QStringLiteral("text/plain");
    const QString drawing = QStringLiteral("image/svg+xml");
    EXPECT_TRUE(TextFormats::mayHoldNone({drawing, plain}));
    EXPECT_FALSE(TextFormats::mayHoldNone({plain}));
    EXPECT_FALSE(TextFormats::mayHoldNone({drawing, plain, QStringLiteral("UTF8_STRING")}));
    EXPECT_FALSE(TextFormats::mayHoldNone({drawing}));
}

struct EncodingRow
{
    const char *name;
    QByteArray bytes;
    QString format;
    QString type;
    QByteArray utf8;
};

using TextEncodings = testing::TestWithParam<EncodingRow>;

TEST_P(TextEncodings, areToldByTheFormatOrTheType)
{
    const EncodingRow &row = GetParam();
    EXPECT_EQ(TextFormats::toUtf8(row.bytes, row.format, row.type), row.utf8);
}

const QString kPlain = QStringLiteral("text/plain");
const QString kString = QStringLiteral("STRING");
const QString kText = QStringLiteral("TEXT");
const QString kUtf8 = QStringLiteral("UTF8_STRING");
const QString kCompound = QStringLiteral("COMPOUND_TEXT");

QString charset(const char *name)
{
    return QStringLiteral("text/plain;charset=") + QLatin1String(name);
}

const EncodingRow kTextEncodings[] = {
    {"broken", "a\xFF", kUtf8, kUtf8, "a\xFF"},
    {"plainUtf8", "\xC3\xBC", kPlain, kPlain, "\xC3\xBC"},
    {"plainLatin1", "\xFC", kPlain, kPlain, "\xC3\xBC"},
    {"latin9", "\xA4", charset("ISO-8859-15"), charset("ISO-8859-15"), "€"},
    {"utf16", QByteArray("a\0\xAC\x20", 4), charset("utf-16"), charset("utf-16"), "a€"},
    {"utf16Marked", QByteArray("\xFE\xFF\0a", 4), charset("UTF-16"), charset("UTF-16"), "a"},
    {"charsetToldByTheType", "\xA4", kPlain, charset("iso-8859-15"), "€"},
    {"stringThatIsUtf8", "\xC3\xBC", kString, kUtf8, "\xC3\xBC"},
    {"stringThatLooksLikeUtf8", "\xC3\xBC", kString, kString, "\xC3\x83\xC2\xBC"},
    {"textAsString", "\xFC", kText, kString, "\xC3\xBC"},
    {"textAsCompound", "\x1B%G\xE2\x82\xAC\x1B%@", kText, kCompound, "€"},
    {"compoundOfTheWest", "gr\xFC\xDF", kCompound, kCompound, "grüß"},
    {"compoundOfTheEast", "\x1B-L\xBF\xE0\xD8 \x1B$(BF|K\\\x1B(B!", kCompound, kCompound,
     "При 日本!"},
    {"compoundUpperHalf", "\x1B$)A\xD6\xD0\x1B-F\xE1", kCompound, kCompound, "中α"},
    {"compoundKana", "\x1B)I\xB1\xB2", kCompound, kCompound, "ｱｲ"},
    {"compoundSegment",
     QByteArray("a\x1B%/1\x80\x8D"
                "iso8859-15\x02\xA4"
                "b",
                20),
     kCompound, kCompound, "a€b"},
    {"compoundDirection",
     "\x9B"
     "1]a\tb\x9B]",
     kCompound, kCompound, "a\tb"},
    {"compoundCutOff", "a\x1B%/1\x80", kCompound, kCompound, "a"}};

INSTANTIATE_TEST_SUITE_P(All, TextEncodings, testing::ValuesIn(kTextEncodings),
                         [](const auto &row) { return std::string(row.param.name); });

} // namespace
