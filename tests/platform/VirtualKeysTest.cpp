#include "platform/VirtualKeys.h"

#include "platform/ModifierFlags.h"

#include <QKeyEvent>

#include <gtest/gtest.h>

namespace {

TEST(VirtualKeys, everyKeyIsFoundAgainFromItsEvdevCode)
{
    for (const VirtualKey::Row &row : VirtualKey::rows())
        EXPECT_EQ(VirtualKey::fromEvdev(row.evdevCode), row.virtualKey) << row.xkbName;
}

TEST(VirtualKeys, aKeyWithoutARowIsNotFound)
{
    constexpr quint32 kEvdevPrint = 99;
    EXPECT_EQ(VirtualKey::fromEvdev(kEvdevPrint), VirtualKey::kNotFound);
    EXPECT_FALSE(VirtualKey::toEvdev(200));
    EXPECT_FALSE(VirtualKey::toEvdev(VirtualKey::kNotFound));
}

TEST(VirtualKeys, anEventIsReadByItsScanCode)
{
    const QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, 55, 0, 0);
    EXPECT_EQ(VirtualKey::ofEvent(press), VirtualKey::kV);
    const QKeyEvent synthetic(QEvent::KeyPress, Qt::Key_V, Qt::NoModifier);
    EXPECT_EQ(VirtualKey::ofEvent(synthetic), VirtualKey::kNotFound);
}

TEST(ModifierFlags, aModifierKeyIsHeldFromItsPressToItsReleaseHoweverItIsCalled)
{
    struct Row
    {
        const char *name;
        Qt::Key key;
        quint32 symbol;
        Qt::KeyboardModifiers before; ///< As the display tells them with the key.
        quint64 flag;
    };
    const Row rows[] = {
        {"Super as X11 has it", Qt::Key_Meta, 0xFFEB, Qt::MetaModifier, ModifierFlags::kCommand},
        {"Super as Wayland has it", Qt::Key_Super_L, 0xFFEB, Qt::MetaModifier,
         ModifierFlags::kCommand},
        {"the right one", Qt::Key_Super_R, 0xFFEC, Qt::MetaModifier, ModifierFlags::kCommand},
        {"Alt", Qt::Key_Alt, 0xFFE9, Qt::AltModifier, ModifierFlags::kOption},
        {"Alt with Shift", Qt::Key_Meta, 0xFFE7, Qt::AltModifier, ModifierFlags::kOption},
    };
    for (const Row &row : rows) {
        const QKeyEvent press(QEvent::KeyPress, row.key, {}, 9, row.symbol, 0);
        EXPECT_EQ(ModifierFlags::ofEvent(press), row.flag) << row.name;
        const QKeyEvent release(QEvent::KeyRelease, row.key, row.before, 9, row.symbol, 0);
        EXPECT_EQ(ModifierFlags::ofEvent(release), 0U) << row.name;
        EXPECT_TRUE(ModifierFlags::isModifierKey(press)) << row.name;
    }
}

} // namespace
