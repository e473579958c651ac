#include "platform/KeyedArchive.h"
#include "platform/PropertyList.h"

#include <QProcess>

#include <gtest/gtest.h>

#include <random>

namespace {

using namespace Qt::StringLiterals;

const QString kClass = u"Quillmarsh.ApplicationDef"_s;

ArchivedObject application(const QString &name, const QString &path)
{
    return {kClass, {kClass, u"NSObject"_s}, {{u"name"_s, name}, {u"path"_s, path}}};
}

ArchivedObject shortcut()
{
    return {u"MASShortcut"_s,
            {u"MASShortcut"_s, u"NSObject"_s},
            {{u"KeyCode"_s, qlonglong(-1)},
             {u"ModifierFlags"_s, quint64(0x120000)},
             {u"flag"_s, true},
             {u"icon"_s, QByteArray("\0\1", 2)},
             {u"real"_s, 0.5}}};
}

QByteArray python(const QString &command, const QByteArray &input = {})
{
    QProcess process;
    process.start(u"/usr/bin/python3"_s,
                  {QStringLiteral(PLATFORM_TEST_DIR "/keyedarchive.py"), command});
    process.write(input);
    process.closeWriteChannel();
    EXPECT_TRUE(process.waitForFinished()) << qUtf8Printable(process.errorString());
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().constData();
    return process.readAllStandardOutput();
}

TEST(KeyedArchive, anotherReaderFindsTheObjectsThatWereWritten)
{
    const QByteArray array = KeyedArchive::archive(QList{
        application(u"Schlüssel 🗝"_s, u"/a.desktop"_s), application(u"B"_s, u"/b.desktop"_s)});
    EXPECT_EQ(python(u"read"_s, array.toBase64()).toStdString(),
              R"(["Quillmarsh.ApplicationDef", ["Quillmarsh.ApplicationDef", "NSObject"], )"
              "{\"name\": \"Schlüssel 🗝\", \"path\": \"/a.desktop\"}]\n"
              R"(["Quillmarsh.ApplicationDef", ["Quillmarsh.ApplicationDef", "NSObject"], )"
              "{\"name\": \"B\", \"path\": \"/b.desktop\"}]\n");
    EXPECT_EQ(python(u"read"_s, KeyedArchive::archive(shortcut()).toBase64()).toStdString(),
              R"(["MASShortcut", ["MASShortcut", "NSObject"], {"KeyCode": -1, )"
              R"("ModifierFlags": 1179648, "flag": true, "icon": "AAE=", "real": 0.5}])"
              "\n");
}

TEST(KeyedArchive, whatAnotherWriterArchivedIsReadWithItsTypes)
{
    const auto array = KeyedArchive::unarchiveArray(QByteArray::fromBase64(python(u"write"_s)));
    ASSERT_TRUE(array);
    ASSERT_EQ(array->size(), 3);
    EXPECT_EQ(array->at(0).className, kClass);
    EXPECT_TRUE(array->at(0).isKindOf(u"ApplicationDef"));
    EXPECT_FALSE(array->at(0).isKindOf(u"Def"));
    EXPECT_EQ(array->at(1).fields,
              (QVariantMap{{u"name"_s, u"Schlüssel 🗝"_s},
                           {u"path"_s, u"/usr/share/applications/1Password.desktop"_s}}));
    // A text that reads "$null" is a text; only the object of that name is no value.
    EXPECT_EQ(array->at(2).fields, (QVariantMap{{u"name"_s, u"$null"_s},
                                                {u"KeyCode"_s, qlonglong(-1)},
                                                {u"ModifierFlags"_s, qlonglong(0x120000)},
                                                {u"flag"_s, true},
                                                {u"real"_s, 0.5},
                                                {u"icon"_s, QByteArray("\0\1", 2)}}));
}

TEST(KeyedArchive, anEmptyArrayIsNotTheSameAsNoArchive)
{
    const QByteArray empty = KeyedArchive::archive(QList<ArchivedObject>());
    ASSERT_TRUE(KeyedArchive::unarchiveArray(empty));
    EXPECT_TRUE(KeyedArchive::unarchiveArray(empty)->isEmpty());
    EXPECT_FALSE(KeyedArchive::unarchiveObject(empty));
    EXPECT_FALSE(KeyedArchive::unarchiveArray(KeyedArchive::archive(shortcut())));
}

/// A binary property list of the given objects, the first on top; offsets and references are one
/// byte each.
QByteArray binary(const QList<QByteArray> &objects)
{
    QByteArray bytes("bplist00");
    QByteArray offsets;
    for (const QByteArray &object : objects) {
        offsets.append(static_cast<char>(bytes.size()));
        bytes += object;
    }
    const qsizetype table = bytes.size();
    bytes += offsets + QByteArray(6, '\0') + "\1\1" + QByteArray(7, '\0') +
             static_cast<char>(objects.size()) + QByteArray(8, '\0') + QByteArray(7, '\0') +
             static_cast<char>(table);
    return bytes;
}

/// Twenty arrays of eight, each holding the next eight times: 8^20 objects in 250 bytes.
QList<QByteArray> explosion()
{
    QList<QByteArray> objects;
    for (int level = 1; level <= 19; ++level)
        objects.append(QByteArray(1, '\xA8') + QByteArray(8, static_cast<char>(level)));
    return objects << QByteArray(1, '\x09');
}

struct Hostile
{
    const char *name;
    QByteArray bytes;
};

using HostileBytes = testing::TestWithParam<Hostile>;

TEST_P(HostileBytes, areNoPropertyListAndNoArchive)
{
    EXPECT_FALSE(PropertyList::parse(GetParam().bytes));
    EXPECT_FALSE(KeyedArchive::unarchiveObject(GetParam().bytes));
    EXPECT_FALSE(KeyedArchive::unarchiveArray(GetParam().bytes));
}

const Hostile kHostileBytes[] = {
    {"empty", {}},
    {"headerOnly", "bplist00"},
    {"arrayThatHoldsItself", binary({QByteArray("\xA1\x00", 2)})},
    {"dictionaryThatIsItsOwnKey", binary({QByteArray("\xD1\x00\x00", 3)})},
    {"expandsBeyondMemory", binary(explosion())},
    {"countBeyondTheFile", binary({QByteArray("\xAF\x13\x7f\xff\xff\xff\xff\xff\xff\xff", 10)})},
    {"textBeyondTheFile", binary({QByteArray("\x5F\x12\xff\xff\xff\xff", 6)})},
    {"countThatIsText", binary({QByteArray("\xAF\x51\x41", 3)})},
    {"keyWithNul", binary({QByteArray("\xD1\x01\x02", 3), QByteArray("\x52\x41\x00", 3), "\x09"})},
    {"keyThatIsAnArray", binary({QByteArray("\xD1\x01\x02", 3), QByteArray("\xA0"), "\x09"})},
    {"referenceToNothing", binary({QByteArray("\xA1\x77", 2)})},
    {"deepXml", "<plist>" + QByteArray("<array>").repeated(200'000) +
                    QByteArray("</array>").repeated(200'000) + "</plist>"}};

INSTANTIATE_TEST_SUITE_P(Bytes, HostileBytes, testing::ValuesIn(kHostileBytes),
                         [](const auto &row) { return std::string(row.param.name); });

TEST(KeyedArchive, rootsThatArePresentButWrongAreAbsent)
{
    const auto read = [](const char *objects, const char *top) {
        const QByteArray xml =
            QByteArray("<plist><dict><key>$version</key><integer>100000</integer>"
                       "<key>$archiver</key><string>NSKeyedArchiver</string>"
                       "<key>$top</key>") +
            top + "<key>$objects</key>" + objects + "</dict></plist>";
        const PropertyList::Tree tree = PropertyList::parse(xml);
        EXPECT_TRUE(tree);
        const QByteArray bytes = PropertyList::toBinary(tree.get());
        return KeyedArchive::unarchiveObject(bytes) || KeyedArchive::unarchiveArray(bytes);
    };
    const char *root = "<dict><key>root</key><integer>1</integer></dict>";
    EXPECT_FALSE(read("<array><string>$null</string><dict/></array>", root));
    EXPECT_FALSE(read("<string>no array</string>", root));
    EXPECT_FALSE(read("<array/>", "<true/>"));
}

TEST(KeyedArchive, anyDamageToAnArchiveGivesSomethingOrNothing)
{
    const QByteArray whole =
        KeyedArchive::archive(QList{shortcut(), application(u"Ä🗝"_s, u"/b"_s)});
    constexpr int kRounds = 20'000;
    std::mt19937 random(20260102);
    int readable = 0;
    for (int round = 0; round < kRounds; ++round) {
        QByteArray bytes = whole;
        for (quint32 change = 0; change <= random() % 4; ++change)
            bytes[static_cast<qsizetype>(random() % static_cast<quint32>(bytes.size()))] =
                static_cast<char>(random() % 2 ? random() : 1U << random() % 8);
        if (random() % 8 == 0)
            bytes.truncate(static_cast<qsizetype>(random() % static_cast<quint32>(bytes.size())));
        readable += KeyedArchive::unarchiveArray(bytes) || KeyedArchive::unarchiveObject(bytes);
        // Settings pass through both forms.
        if (const PropertyList::Tree tree = PropertyList::parse(bytes)) {
            const PropertyList::Tree again = PropertyList::parse(PropertyList::toXml(tree.get()));
            PropertyList::toVariant(again.get());
        }
    }
    // Otherwise the damage never got past the outermost check.
    EXPECT_GT(readable, kRounds / 20);
    EXPECT_LT(readable, kRounds);
}

} // namespace
