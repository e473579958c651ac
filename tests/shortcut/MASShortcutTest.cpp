#include "shortcut/MASShortcut.h"

#include "platform/KeyedArchive.h"
#include "platform/memory/MemoryPlatform.h"
#include "shortcut/KeyNames.h"
#include "shortcut/MASDictionaryTransformer.h"

#include <QKeyEvent>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace {

using namespace ModifierFlags;

QByteArray archiveOf(const QVariantMap &fields, const QString &name = QStringLiteral("MASShortcut"))
{
    return KeyedArchive::archive({name, {name, QStringLiteral("NSObject")}, fields});
}

class Shortcut : public testing::Test
{
protected:
    Shortcut() { KeyNames::current().setKeyboardLayout(&m_layout); }
    ~Shortcut() override { KeyNames::current().setKeyboardLayout(nullptr); }

    MemoryKeyboardLayout m_layout;
};

TEST_F(Shortcut, onlyTheFourModifiersAreKept)
{
    EXPECT_EQ(MASShortcut(9, kCommand | kCapsLock | kFunction | 0x8), MASShortcut(9, kCommand));
    EXPECT_NE(MASShortcut(9, kCommand), MASShortcut(9, kControl));
    EXPECT_NE(MASShortcut(9, kCommand), MASShortcut(8, kCommand));
}

TEST_F(Shortcut, modifiersReadInOneOrder)
{
    EXPECT_EQ(MASShortcut(40, kCommand | kShift).description(), QStringLiteral("⇧⌘K"));
    EXPECT_EQ(MASShortcut(40, kShortcutMask).modifierFlagsString(), QStringLiteral("⌃⌥⇧⌘"));
    EXPECT_EQ(MASShortcut(40, kCommand | kOption | kShift).modifierFlagsString(),
              QStringLiteral("⌥⇧⌘"));
    EXPECT_EQ(MASShortcut(40, 0).description(), QStringLiteral("K"));
}

TEST_F(Shortcut, theHotKeyServiceGetsCarbonBits)
{
    EXPECT_EQ(MASShortcut(9, kShortcutMask).carbonFlags(), 0x1B00U);
    EXPECT_EQ(MASShortcut(9, kOption).carbonFlags(), 0x0800U);
    EXPECT_EQ(MASShortcut(9, 0).carbonKeyCode(), 9U);
    EXPECT_EQ(MASShortcut(VirtualKey::kNotFound, 0).carbonKeyCode(), 0U);
}

TEST_F(Shortcut, anEventGivesItsKeyAndModifiers)
{
    const QKeyEvent press(QEvent::KeyPress, Qt::Key_V, Qt::MetaModifier | Qt::ShiftModifier, 55, 0,
                          0);
    EXPECT_EQ(MASShortcut::shortcutWithEvent(press), MASShortcut(9, kCommand | kShift));
    constexpr quint32 kPrint = 107;
    const QKeyEvent print(QEvent::KeyPress, Qt::Key_Print, Qt::NoModifier, kPrint, 0, 0);
    EXPECT_EQ(MASShortcut::shortcutWithEvent(print).keyCode(), VirtualKey::kNotFound);
}

struct KeyRow
{
    const char *name;
    quint64 keyCode;
    QString keyName;
    QString keyEquivalent;
};

class KeyName : public Shortcut, public testing::WithParamInterface<KeyRow>
{
};

TEST_P(KeyName, readsAndComparesAs)
{
    m_layout.setName(VirtualKey::kGrave, QStringLiteral("´"));
    m_layout.setName(VirtualKey::kF20, QStringLiteral("\u0010"));
    m_layout.setName(VirtualKey::kISOSection, QString(QChar(0xD800)));
    m_layout.setName(VirtualKey::kMinus, QStringLiteral("ß"));
    EXPECT_EQ(MASShortcut(GetParam().keyCode, 0).keyCodeString(), GetParam().keyName);
    EXPECT_EQ(MASShortcut(GetParam().keyCode, 0).keyCodeStringForKeyEquivalent(),
              GetParam().keyEquivalent);
}

QString functionKey(char16_t character)
{
    return QString(QChar(character));
}

INSTANTIATE_TEST_SUITE_P(
    Keys, KeyName,
    testing::Values(KeyRow{"letter", 40, QStringLiteral("K"), QStringLiteral("k")},
                    KeyRow{"spacingAccent", 50, QStringLiteral("´"), QStringLiteral("´")},
                    KeyRow{"controlCharacter", 90, {}, {}}, KeyRow{"loneSurrogate", 10, {}, {}},
                    KeyRow{"growsInUpperCase", 27, QStringLiteral("SS"), {}},
                    KeyRow{"none", VirtualKey::kNotFound, {}, {}}, KeyRow{"modifier", 56, {}, {}},
                    KeyRow{"space", 49, QStringLiteral("Space"), QStringLiteral(" ")},
                    KeyRow{"return", 36, QStringLiteral("↩"), QStringLiteral("↩")},
                    KeyRow{"keypadMinus", 78, QStringLiteral("–"), QStringLiteral("–")},
                    KeyRow{"help", 114, QStringLiteral("?"), QStringLiteral("?")},
                    KeyRow{"pageDown", 121, QStringLiteral("⇟"), QStringLiteral("⇟")},
                    KeyRow{"f1", 122, QStringLiteral("F1"), functionKey(0xF704)},
                    KeyRow{"f12", 111, QStringLiteral("F12"), functionKey(0xF70F)},
                    KeyRow{"f16", 106, QStringLiteral("F16"), functionKey(0xF713)},
                    KeyRow{"f19", 80, QStringLiteral("F19"), functionKey(0xF716)}),
    [](const auto &row) { return std::string(row.param.name); });

TEST_F(Shortcut, theNameFollowsTheLayout)
{
    const QSignalSpy changes(&KeyNames::current(), &KeyNames::changed);
    const MASShortcut shortcut(VirtualKey::kY, kCommand);
    m_layout.setName(VirtualKey::kY, QStringLiteral("z"));
    EXPECT_EQ(shortcut.description(), QStringLiteral("⌘Z"));
    EXPECT_EQ(changes.count(), 1);
}

TEST_F(Shortcut, anArchiveGivesTheShortcutBack)
{
    for (const MASShortcut &shortcut :
         {MASShortcut(9, kCommand | kShift), MASShortcut(VirtualKey::kNotFound, kOption)})
        EXPECT_EQ(MASShortcut::unarchive(shortcut.archive()), shortcut);
}

TEST_F(Shortcut, noKeyIsArchivedAsMinusOne)
{
    const MASShortcut none(VirtualKey::kNotFound, kShift);
    const auto object = KeyedArchive::unarchiveObject(none.archive());
    ASSERT_TRUE(object);
    EXPECT_EQ(object->className, QStringLiteral("MASShortcut"));
    EXPECT_EQ(object->fields.value(QStringLiteral("KeyCode")).toLongLong(), -1);
    EXPECT_EQ(object->fields.value(QStringLiteral("ModifierFlags")).toLongLong(), 0x20000);
}

TEST_F(Shortcut, aDecodedShortcutKeepsForeignBitsAndItsCopyLosesThem)
{
    const auto decoded = MASShortcut::unarchive(archiveOf(
        {{QStringLiteral("KeyCode"), 9LL}, {QStringLiteral("ModifierFlags"), 0x110000LL}}));
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->modifierFlags(), 0x110000U);
    EXPECT_NE(decoded->copy(), *decoded);
    EXPECT_EQ(decoded->copy(), MASShortcut(9, kCommand));
}

TEST_F(Shortcut, whatIsNoArchiveOfAShortcutIsNone)
{
    const QVariantMap complete{{QStringLiteral("KeyCode"), 9LL},
                               {QStringLiteral("ModifierFlags"), 0x120000LL}};
    ASSERT_TRUE(MASShortcut::unarchive(archiveOf(complete)));
    EXPECT_FALSE(MASShortcut::unarchive(archiveOf(complete, QStringLiteral("ApplicationDef"))));
    EXPECT_FALSE(MASShortcut::unarchive(archiveOf({{QStringLiteral("KeyCode"), 9LL}})));
    EXPECT_FALSE(MASShortcut::unarchive(archiveOf({{QStringLiteral("KeyCode"), QStringLiteral("9")},
                                                   {QStringLiteral("ModifierFlags"), 0LL}})));
    EXPECT_FALSE(MASShortcut::unarchive("not an archive"));
    EXPECT_FALSE(MASShortcut::unarchive({}));
}

TEST_F(Shortcut, theDictionaryTransformerTellsNoneAsTheEmptyDictionary)
{
    const ValueTransformer *transformer =
        ValueTransformer::valueTransformerForName(QStringLiteral("MASDictionaryTransformer"));
    ASSERT_TRUE(transformer);
    const QVariant none = transformer->reverseTransformedValue(std::nullopt);
    EXPECT_EQ(none, QVariant(QVariantMap()));
    EXPECT_EQ(transformer->transformedValue(none), std::nullopt);

    const MASShortcut shortcut(9, kCommand);
    const QVariant stored = transformer->reverseTransformedValue(shortcut);
    EXPECT_EQ(stored.toMap().value(QStringLiteral("keyCode")), QVariant(9LL));
    EXPECT_EQ(transformer->transformedValue(stored), shortcut);

    QVariantMap broken = stored.toMap();
    broken.insert(QStringLiteral("modifierFlags"), QByteArray("1"));
    EXPECT_EQ(transformer->transformedValue(broken), std::nullopt);
    EXPECT_EQ(transformer->transformedValue(9LL), std::nullopt);
}

} // namespace
