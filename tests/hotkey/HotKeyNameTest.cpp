#include "hotkey/HotKeyName.h"

#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"
#include "platform/memory/MemoryPlatform.h"

#include <gtest/gtest.h>

namespace {

using namespace ModifierFlags;

/// A key gives its letter, or "!" with Shift.
class ShiftingLayout : public MemoryKeyboardLayout
{
public:
    QString characters(quint32 keyCode, quint32 carbonModifiers) const override
    {
        const QString plain = MemoryKeyboardLayout::characters(keyCode, carbonModifiers);
        const bool isShifted = carbonModifiers & CarbonModifiers::kShift;
        return isShifted && !plain.isEmpty() ? QStringLiteral("!") : plain;
    }
};

struct Named
{
    const char *row;
    quint16 keyCode;
    quint64 flags;
    const char16_t *name;
    const char16_t *nameWithoutLayout;
};

constexpr Named kNamed[] = {
    {"by the layout", VirtualKey::kV, kControl | kOption | kCommand | kCapsLock, u"⌃⌥⌘v", u"⌃⌥⌘"},
    {"by the layout under modifiers", VirtualKey::kV, kShift | kFunction, u"⇧!", u"⇧"},
    {"by nothing", VirtualKey::kKeypadEnter, kCommand, u"⌘", u"⌘"},
    {"command", VirtualKey::kCommand, kControl | kCommand, u"⌃⌘", u"⌃⌘"},
    {"shift without its flag", VirtualKey::kShift, 0, u"", u""},
    {"a right key beside its flag", VirtualKey::kRightShift, kShift, u"⇧⇧", u"⇧⇧"},
    {"function", VirtualKey::kFunction, 0, u"⌘", u"⌘"},
    {"space", VirtualKey::kSpace, kOption, u"⌥⎵", u"⌥⎵"},
    {"volume", VirtualKey::kVolumeUp, 0, u"🔊", u"🔊"},
    {"f20", VirtualKey::kF20, kControl, u"⌃F20", u"⌃F20"},
};

TEST(HotKeyName, saysModifiersInOrderAndThenTheKey)
{
    const ShiftingLayout layout;
    for (const Named &each : kNamed) {
        SCOPED_TRACE(each.row);
        EXPECT_EQ(HotKeyName::of(each.keyCode, each.flags, &layout), QString::fromUtf16(each.name));
        EXPECT_EQ(HotKeyName::of(each.keyCode, each.flags, nullptr),
                  QString::fromUtf16(each.nameWithoutLayout));
    }
}

} // namespace
