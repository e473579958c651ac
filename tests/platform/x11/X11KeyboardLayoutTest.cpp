#include "platform/x11/keys/X11KeyboardLayout.h"

#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"

#include "Keyboard.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

#include <linux/input-event-codes.h>

namespace {

struct Named
{
    quint16 keyCode;
    const char16_t *name;
};

struct Layout
{
    const char *name;
    const char *setup;
    std::vector<Named> keys;
};

class LayoutNames : public testing::TestWithParam<Layout>
{
protected:
    KeyboardSetup m_setup;
    X11KeyboardLayout m_layout;
};

TEST_P(LayoutNames, aKeyIsNamedAsItIsPrinted)
{
    EXPECT_EQ(m_layout.asciiCapableName(VirtualKey::kQ), QStringLiteral("q"));
    m_setup.setLayout(GetParam().setup);
    for (const Named &key : GetParam().keys)
        EXPECT_EQ(m_layout.asciiCapableName(key.keyCode), QString::fromUtf16(key.name))
            << key.keyCode;
}

const Layout kLayoutNames[] = {
    {"us",
     "us",
     {{VirtualKey::kV, u"v"},
      {VirtualKey::kGrave, u"`"},
      {VirtualKey::kReturn, u""},
      {VirtualKey::kF1, u""},
      {VirtualKey::kFunction, u""}}},
    {"fr",
     "fr",
     {{VirtualKey::kA, u"q"},
      {VirtualKey::kDigit1, u"&"},
      {VirtualKey::kSemicolon, u"m"},
      {VirtualKey::kLeftBracket, u"^"}}},
    {"de", "de", {{VirtualKey::kY, u"z"}, {VirtualKey::kGrave, u"^"}, {VirtualKey::kEqual, u"´"}}},
    {"cz", "cz", {{VirtualKey::kDigit2, u"ě"}, {VirtualKey::kY, u"z"}, {VirtualKey::kEqual, u"´"}}},
    {"tr", "tr", {{VirtualKey::kI, u"ı"}, {VirtualKey::kSemicolon, u"ş"}}},
    {"dvorak", "us dvorak", {{VirtualKey::kV, u"k"}, {VirtualKey::kPeriod, u"v"}}},
    {"ru", "ru", {{VirtualKey::kA, u"a"}, {VirtualKey::kV, u"v"}}},
    {"gr", "gr", {{VirtualKey::kA, u"a"}, {VirtualKey::kQ, u"q"}}},
    {"il", "il", {{VirtualKey::kA, u"a"}, {VirtualKey::kV, u"v"}}},
    {"ruBeforeFr", "ru,fr", {{VirtualKey::kA, u"q"}, {VirtualKey::kSemicolon, u"m"}}}};

INSTANTIATE_TEST_SUITE_P(Layouts, LayoutNames, testing::ValuesIn(kLayoutNames),
                         [](const auto &row) { return std::string(row.param.name); });

TEST(X11KeyboardLayout, charactersFollowModifiersAndGroup)
{
    KeyboardSetup setup;
    RealKeyboard keyboard;
    const X11KeyboardLayout layout;
    EXPECT_EQ(layout.characters(VirtualKey::kDigit1, CarbonModifiers::kShift), QStringLiteral("!"));
    setup.setLayout("-layout de,ru");
    EXPECT_EQ(layout.characters(VirtualKey::kEqual, 0), QString()) << "a dead key";
    EXPECT_EQ(layout.characters(VirtualKey::kEqual, CarbonModifiers::kShift), QString());
    EXPECT_EQ(layout.characters(VirtualKey::kY, CarbonModifiers::kShift), QStringLiteral("Z"));
    EXPECT_EQ(layout.characters(VirtualKey::kY, CarbonModifiers::kCapsLock), QStringLiteral("Z"));
    EXPECT_EQ(layout.characters(VirtualKey::kReturn, 0), QString());
    setup.setGroup(1);
    EXPECT_EQ(layout.characters(VirtualKey::kA, 0), QStringLiteral("ф"));
    EXPECT_EQ(layout.asciiCapableName(VirtualKey::kY), QStringLiteral("z"));
}

TEST(X11KeyboardLayout, itTellsOfLayoutsAndGroupsAndOfNothingElse)
{
    KeyboardSetup setup;
    RealKeyboard keyboard;
    const X11KeyboardLayout layout;
    QSignalSpy changes(&layout, &KeyboardLayout::changed);
    const auto clear = [&] {
        std::ignore = layout.asciiCapableName(VirtualKey::kA);
        QCoreApplication::processEvents();
        changes.clear();
    };
    setup.setLayout("-layout us,ru");
    EXPECT_TRUE(changes.count() > 0 || changes.wait());
    clear();
    setup.setGroup(1);
    EXPECT_TRUE(changes.count() > 0 || changes.wait());
    clear();
    keyboard.tap(KEY_LEFTSHIFT, KEY_A, KEY_NUMLOCK, KEY_NUMLOCK);
    std::ignore = layout.asciiCapableName(VirtualKey::kA);
    QCoreApplication::processEvents();
    EXPECT_EQ(changes.count(), 0);
}

} // namespace
