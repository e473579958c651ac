#include "platform/typing/KnownKeys.h"

#include "platform/ApplicationNames.h"
#include "platform/ModifierFlags.h"

#include "support/ExpectedWarnings.h"

#include <gtest/gtest.h>

#include <xkbcommon/xkbcommon-keysyms.h>

namespace {

constexpr KeyChord kCtrlV{CarbonModifiers::kControl, XKB_KEY_v};

WindowIdentity window(const char *windowClass, const char *name = "")
{
    return {QString::fromLatin1(name), QString::fromLatin1(windowClass), QString(), QString()};
}

TEST(KeySequences, areReadAsTheyAreWritten)
{
    struct Row
    {
        QString text;
        std::optional<KeySequence> sequence;
    };
    const Row rows[] = {
        {QStringLiteral("ctrl+V"), KeySequence{kCtrlV}},
        {QStringLiteral("Shift+Insert"), KeySequence{{CarbonModifiers::kShift, XKB_KEY_Insert}}},
        {QStringLiteral("Control+Alt+F5  Super+x"),
         KeySequence{{CarbonModifiers::kControl | CarbonModifiers::kOption, XKB_KEY_F5},
                     {CarbonModifiers::kCommand, XKB_KEY_x}}},
        {QStringLiteral("quotedbl P \\ é"),
         KeySequence{
             {0, XKB_KEY_quotedbl}, {0, XKB_KEY_P}, {0, XKB_KEY_backslash}, {0, XKB_KEY_eacute}}},
        {QString(), {}},
        {QStringLiteral("Hyper+x"), {}},
        {QStringLiteral("Ctrl+"), {}},
        {QStringLiteral("Ctrl+foo"), {}},
        {QStringLiteral("a ").repeated(65), {}},
    };
    for (const Row &row : rows)
        EXPECT_EQ(KeySequences::fromText(row.text), row.sequence) << qUtf8Printable(row.text);
}

TEST(KnownKeys, theUsersTableGoesFirstAndIsFollowed)
{
    std::optional<QByteArray> users;
    KnownKeys known([&users] { return users; });
    EXPECT_TRUE(known.keysOf(window("XTerm"), false).pastesPrimary);
    EXPECT_TRUE(known.keysOf(window("Unheard"), true).pastesPrimary);
    EXPECT_FALSE(known.keysOf(window("Unheard"), false).pastesPrimary);
    EXPECT_TRUE(known.keysOf(window("x", "qemu-system-arm"), false).copy.empty());

    users = R"([{"applications": ["XTERM", "foo.*"], "copy": "none"}])";
    EXPECT_EQ(known.keysOf(window("XTerm"), true).paste, KeySequence{kCtrlV});
    EXPECT_TRUE(known.keysOf(window("Foo.Bar"), false).copy.empty());
    users.reset();
    EXPECT_TRUE(known.keysOf(window("XTerm"), true).pastesPrimary);
}

TEST(KnownKeys, whatIsWrongInTheUsersTableIsToldOnceAndTheRestHolds)
{
    struct Row
    {
        const char *entry;
        const char *problem;
    };
    const Row rows[] = {
        {"7", "entry 2 (): \"applications\" is no list"},
        {R"({"paste": "Ctrl+v"})", "\"applications\" is no list"},
        {R"({"applications": ["b", 3]})", "entry 2 (b): \"applications\" is no list"},
        {R"({"applications": ["b"], "paste": "Ctrl+foo"})", "entry 2 (b): \"paste\" tells no keys"},
        {R"({"applications": ["b"], "copy": ["Ctrl+c"]})", "\"copy\" tells no keys"},
        {R"({"applications": ["b"], "replace": ""})", "\"replace\" tells no keys"},
        {R"({"applications": ["b"], "primary": "yes"})", "\"primary\" is neither"},
        {R"({"applications": ["b"], "remote": true})", "\"remote\" is neither"},
        {R"({"applications": ["b"], "past": "Ctrl+y"})", "\"past\" is not known"},
    };
    for (const Row &row : rows) {
        const QByteArray table = QByteArray(R"([{"applications": ["a"], "paste": "Ctrl+y"},
)") + row.entry + R"(, {"applications": ["c"], "copy": "marked"}])";
        KnownKeys known([&table] { return table; });
        ExpectedWarnings::expect(QLatin1String(row.problem));
        EXPECT_NE(known.keysOf(window("a"), false).paste, KeySequence{kCtrlV});
        EXPECT_EQ(known.keysOf(window("b"), false).paste, KeySequence{kCtrlV});
        EXPECT_TRUE(known.keysOf(window("c"), false).copiesMarked);
        EXPECT_TRUE(known.keysOf(window("XTerm"), false).pastesPrimary);
    }
    for (const auto &[table, problem] :
         {std::pair<QByteArray, const char *>("[\n{\"applications\": }\n]", "line 2"),
          {"{}", "it is no list"},
          {QByteArray("[\0\xFF\xFE", 4), "line 1"}}) {
        KnownKeys known([&contents = table] { return contents; });
        ExpectedWarnings::expect(QLatin1String(problem));
        EXPECT_TRUE(known.keysOf(window("XTerm"), false).pastesPrimary);
        EXPECT_TRUE(known.keysOf(window("XTerm"), false).pastesPrimary);
    }
}

} // namespace
