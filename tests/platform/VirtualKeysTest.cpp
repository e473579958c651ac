#include "platform/VirtualKeys.h"

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

} // namespace
