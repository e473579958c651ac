#include "updates/updater/UpdateFeed.h"
#include "updates/UpdateSamples.h"
#include "updates/updater/UpdateVersion.h"

#include <gtest/gtest.h>

namespace {

using namespace UpdateSamples;

TEST(UpdateVersion, isOrderedByItsNumbersAndABetaComesBeforeItsRelease)
{
    const QStringList ordered{text("0.9"), text("1.0b"),  text("1.0"),  text("1.0.1"),
                              text("1.9"), text("1.10b"), text("1.10"), text("2")};
    for (qsizetype i = 0; i < ordered.size(); ++i) {
        for (qsizetype j = 0; j < ordered.size(); ++j) {
            const auto left = UpdateVersion::parse(ordered[i]);
            const auto right = UpdateVersion::parse(ordered[j]);
            ASSERT_TRUE(left && right);
            EXPECT_EQ(*left < *right, i < j)
                << qPrintable(ordered[i]) << " and " << qPrintable(ordered[j]);
        }
    }
    EXPECT_EQ(UpdateVersion::parse(text("1.2")), UpdateVersion::parse(text("1.2.0")));
    for (const char *other : {"", "b", "1.", ".1", "1..2", "1.2b3", "1.2 ", "01", "-1", "1.2a",
                              "1.2\n", "../1", "99999999999", "1.2.3.4.5.6.7.8.9"})
        EXPECT_FALSE(UpdateVersion::parse(text(other))) << other;
}

TEST(UpdateFeed, offersTheNewestThatSuitsAndNeverADowngrade)
{
    const QString signature = QString::fromLatin1(QByteArray(64, 's').toBase64());
    const auto item = [&](const char *version, const char *channel, const char *system = "",
                          const char *kind = "prefix", const char *machine = "x86_64") {
        return text("<item><version>%1</version><channel>%2</channel><minimumSystem>%3"
                    "</minimumSystem><later>x</later><file kind='%4' machine='%5' size='9' "
                    "url='https://example.org/f' signature='%6'/></item>")
            .arg(text(version), text(channel), text(system), text(kind), text(machine), signature);
    };
    const QString feed = text("<updates>") + item("1.1", "release") + item("1.3b", "beta") +
                         item("1.4", "test") + item("1.2", "release") +
                         item("8", "release", "99.1") + item("9", "release", "", "appimage") +
                         item("9", "release", "", "prefix", "arm64") + text("</updates>");
    const auto parsed = UpdateFeed::parse(feed.toUtf8());
    ASSERT_TRUE(std::holds_alternative<QList<UpdateItem>>(parsed))
        << qPrintable(std::get<QString>(parsed));
    const auto &items = std::get<QList<UpdateItem>>(parsed);
    struct Row
    {
        const char *installed;
        bool withBeta;
        bool withTest;
        const char *offered;
    };
    for (const Row &row : {Row{"1.0", false, false, "1.2"}, Row{"1.0", true, false, "1.3b"},
                           Row{"1.0", true, true, "1.4"}, Row{"1.0", false, true, "1.4"},
                           Row{"1.2", false, false, ""}, Row{"1.3", true, false, ""},
                           Row{"1.2b", false, false, "1.2"}, Row{"odd", true, true, ""}}) {
        const UpdateItem *newest =
            UpdateFeed::newest(items, {text(row.installed), text("2.36"), text("prefix"),
                                       text("x86_64"), row.withBeta, row.withTest});
        EXPECT_EQ(newest ? newest->version : QString(), text(row.offered)) << row.installed;
    }
    const UpdateItem *forAnySystem = UpdateFeed::newest(
        items, {text("1.2"), std::nullopt, text("prefix"), text("x86_64"), false, false});
    ASSERT_TRUE(forAnySystem);
    EXPECT_EQ(forAnySystem->version, text("8"));
}

TEST(UpdateFeed, isRefusedAsAWholeForOneThingThatCannotBeUsed)
{
    const QString good = feedOf11();
    ASSERT_TRUE(std::holds_alternative<QList<UpdateItem>>(UpdateFeed::parse(good.toUtf8())));
    struct Row
    {
        const char *what;
        const char *instead;
        const char *reason;
    };
    const QByteArray hugeTag = "<updates note='" + QByteArray(9000, 'x') + "'>";
    const QByteArray hugeValue = "<updates note='" + QByteArray(9000, '>') + "'>";
    QByteArray manyAttributes = "<updates";
    for (int i = 0; i < 100; ++i)
        manyAttributes += " a" + QByteArray::number(i) + "='>'";
    manyAttributes += '>';
    for (const Row &row : {
             Row{"1.1", "latest", "a version that is not a number: “latest”."},
             Row{"'9'", "'0'", "Version 1.1 has no possible size."},
             Row{"'9'", "'-9'", "Version 1.1 has no possible size."},
             Row{"'9'", "'9223372036854775808'", "Version 1.1 has no possible size."},
             Row{"'9'", "'1073741825'", "Version 1.1 has no possible size."},
             Row{"signature='", "signature='c3Nz", "Version 1.1 is not signed."},
             Row{"signature", "signed", "Version 1.1 is not signed."},
             Row{"<file", "<minimumSystem>new</minimumSystem><file", "an unknown system."},
             Row{"<file", "<f", "Version 1.1 has no file."},
             Row{"</item>", "", "It is damaged in line 1."},
             Row{"<updates>", "<html>", "It is not a list of updates."},
             Row{"<updates>", "<!DOCTYPE updates [<!ENTITY a 'aaaa'>]><updates>",
                 "It is not a list of updates."},
             Row{"<updates>", hugeTag.constData(), "It is not a list of updates."},
             Row{"<updates>", hugeValue.constData(), "It is not a list of updates."},
             Row{"<updates>", manyAttributes.constData(), "It is not a list of updates."},
         }) {
        const QString feed = QString(good).replace(text(row.what), text(row.instead));
        const auto parsed = UpdateFeed::parse(feed.toUtf8());
        const QString *problem = std::get_if<QString>(&parsed);
        ASSERT_TRUE(problem) << row.instead;
        EXPECT_TRUE(problem->contains(text(row.reason)))
            << row.instead << ": " << qPrintable(*problem);
    }
}

TEST(UpdateFeed, passesOverWhatALaterVersionMayKnowAndReadsWhatIsQuoted)
{
    const QString good = feedOf11();
    struct Row
    {
        const char *what;
        const char *instead;
        qsizetype items;
    };
    const QByteArray longComment = "<updates><!-- it's " + QByteArray(9000, '>') + "-->";
    const QByteArray longNotes =
        "<item><notes><![CDATA[<a b=\"" + QByteArray(9000, '>') + "]]></notes>";
    for (const Row &row : {
             Row{"release", "daily", 0},
             Row{"https:", "http:", 0},
             Row{"https://example.org", "https://", 0},
             Row{"https://example.org", "https:// ", 0},
             Row{"<item>", longNotes.constData(), 1},
             Row{"<updates>", longComment.constData(), 1},
         }) {
        // Of two items only the first is another.
        QString feed = QString(good).replace(text(row.what), text(row.instead));
        const QString second = good.mid(text("<updates>").size());
        feed.replace(text("</updates>"), second);
        const auto parsed = UpdateFeed::parse(feed.toUtf8());
        ASSERT_TRUE(std::holds_alternative<QList<UpdateItem>>(parsed))
            << row.instead << ": " << qPrintable(std::get<QString>(parsed));
        EXPECT_EQ(std::get<QList<UpdateItem>>(parsed).size(), row.items + 1) << row.instead;
    }
}

} // namespace
