#include "shortcut/MASShortcutValidator.h"

#include "platform/SymbolicHotKeys.h"
#include "platform/memory/MemoryHotKeys.h"
#include "platform/memory/MemoryPlatform.h"
#include "shortcut/KeyNames.h"

#include <gtest/gtest.h>

namespace {

using namespace VirtualKey;
namespace Flags = ModifierFlags;

const QString kUntouched = QStringLiteral("untouched");
const QString kSystemText = QStringLiteral(
    "This combination cannot be used because it is already used by a system-wide keyboard "
    "shortcut.\nIf you really want to use this key combination, most shortcuts can be changed in "
    "the Keyboard & Mouse panel in System Preferences.");

class FixedSymbolicHotKeys : public SymbolicHotKeys
{
public:
    // ^SymbolicHotKeys
    QList<SymbolicHotKey> hotKeys() const override
    {
        return {{kL, CarbonModifiers::kCommand, true},
                {kD, CarbonModifiers::kCommand, false},
                {kF4, CarbonModifiers::kOption, true}};
    }
    void refresh() override {}
};

class Validator : public testing::Test
{
protected:
    Validator() { KeyNames::current().setKeyboardLayout(&m_layout); }
    ~Validator() override { KeyNames::current().setKeyboardLayout(nullptr); }

    /// The explanation; kUntouched when the shortcut is free.
    QString explanationOf(const MASShortcut &shortcut)
    {
        QString explanation = kUntouched;
        const bool isTaken = m_validator.isShortcutAlreadyTakenBySystem(shortcut, &explanation);
        EXPECT_EQ(isTaken, m_validator.isShortcutAlreadyTakenBySystem(shortcut));
        EXPECT_EQ(isTaken, explanation != kUntouched);
        return explanation;
    }

    MemoryKeyboardLayout m_layout;
    MemoryHotKeys m_hotKeys;
    FixedSymbolicHotKeys m_symbolicHotKeys;
    MASShortcutValidator m_validator{&m_symbolicHotKeys, &m_hotKeys};
};

struct ValidityRow
{
    const char *name;
    MASShortcut shortcut;
    bool isValid;
    bool isValidWithAnyOption;
};

using Validity = testing::TestWithParam<ValidityRow>;

TEST_P(Validity, dependsOnTheModifiersUnlessItIsAFunctionKey)
{
    MASShortcutValidator validator;
    EXPECT_EQ(validator.isShortcutValid(GetParam().shortcut), GetParam().isValid);
    validator.setAllowAnyShortcutWithOptionModifier(true);
    EXPECT_EQ(validator.isShortcutValid(GetParam().shortcut), GetParam().isValidWithAnyOption);
}

INSTANTIATE_TEST_SUITE_P(
    Combinations, Validity,
    testing::Values(
        ValidityRow{"f5", {kF5, 0}, true, true},
        ValidityRow{"shiftF5", {kF5, Flags::kShift}, true, true},
        ValidityRow{"f20", {kF20, 0}, true, true}, ValidityRow{"letter", {kA, 0}, false, false},
        ValidityRow{"shiftLetter", {kA, Flags::kShift}, false, false},
        ValidityRow{"controlLetter", {kA, Flags::kControl}, true, true},
        ValidityRow{"commandLetter", {kA, Flags::kCommand}, true, true},
        ValidityRow{"optionLetter", {kA, Flags::kOption}, false, true},
        ValidityRow{"optionShiftLetter", {kA, Flags::kOption | Flags::kShift}, false, true},
        ValidityRow{"optionControlLetter", {kA, Flags::kOption | Flags::kControl}, true, true},
        ValidityRow{"optionSpace", {kSpace, Flags::kOption}, true, true},
        ValidityRow{"optionEscape", {kEscape, Flags::kOption}, true, true},
        ValidityRow{"bareSpace", {kSpace, 0}, false, false}),
    [](const auto &row) { return std::string(row.param.name); });

TEST_F(Validator, anEnabledHotKeyOfTheDesktopIsTaken)
{
    EXPECT_EQ(explanationOf({kL, Flags::kCommand}), kSystemText);
    EXPECT_EQ(explanationOf({kL, Flags::kCommand | Flags::kShift}), kUntouched);
    EXPECT_EQ(explanationOf({kD, Flags::kCommand}), kUntouched);
}

TEST_F(Validator, whatAnotherProgramHoldsIsTakenLikeTheDesktopsOwn)
{
    m_hotKeys.holdElsewhere(kV, CarbonModifiers::kCommand);
    EXPECT_EQ(explanationOf({kV, Flags::kCommand}), kSystemText);
    ASSERT_TRUE(m_hotKeys.registerHotKey({1, 1}, kX, CarbonModifiers::kCommand));
    EXPECT_EQ(explanationOf({kX, Flags::kCommand}), kUntouched) << "our own hot keys do not count";
}

struct MenuRow
{
    const char *name;
    MASShortcut shortcut;
    QString takenBy; ///< Empty: free.
};

class MenuClash : public Validator, public testing::WithParamInterface<MenuRow>
{
};

TEST_P(MenuClash, namesTheFirstItemInDepthFirstOrder)
{
    m_validator.setMainMenu([] {
        const QString f1(QChar(0xF704));
        MenuItem file{QStringLiteral("File"), QStringLiteral("q"), Flags::kCommand, {}};
        file.submenu = {{QStringLiteral("Save"), QStringLiteral("s"), Flags::kCommand, {}},
                        {QStringLiteral("Quit"), QStringLiteral("q"), Flags::kCommand, {}},
                        {QStringLiteral("%1 ‹b›"),
                         QStringLiteral("P"),
                         Flags::kCommand | Flags::kCapsLock,
                         {}}};
        return MenuModel{{QStringLiteral("Separator"), {}, 0, {}},
                         file,
                         {QStringLiteral("Second"), QStringLiteral("s"), Flags::kCommand, {}},
                         {QStringLiteral("Help"), f1, Flags::kFunction, {}}};
    });
    const QString expected =
        GetParam().takenBy.isEmpty()
            ? kUntouched
            : QStringLiteral("This shortcut cannot be used because it is already used by the menu "
                             "item ‘") +
                  GetParam().takenBy + QStringLiteral("’.");
    EXPECT_EQ(explanationOf(GetParam().shortcut), expected);
}

INSTANTIATE_TEST_SUITE_P(
    Items, MenuClash,
    testing::Values(MenuRow{"exact", {kS, Flags::kCommand}, QStringLiteral("Save")},
                    MenuRow{"otherModifiers", {kS, Flags::kCommand | Flags::kShift}, {}},
                    MenuRow{
                        "capital", {kP, Flags::kCommand | Flags::kShift}, QStringLiteral("%1 ‹b›")},
                    MenuRow{"capitalWithoutShift", {kP, Flags::kCommand}, {}},
                    MenuRow{"submenuBeforeItsItem", {kQ, Flags::kCommand}, QStringLiteral("Quit")},
                    MenuRow{"functionKey", {kF1, 0}, QStringLiteral("Help")},
                    MenuRow{"free", {kZ, Flags::kCommand}, {}}),
    [](const auto &row) { return std::string(row.param.name); });

} // namespace
