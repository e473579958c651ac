#include "hotkey/HotKey.h"

#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>
#include <vector>

namespace {

using namespace ModifierFlags;
using VirtualKey::kV;

using Calls = std::vector<std::pair<quint16, QVariant>>;

class Target : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE void fire(const KeyUpEvent &event, const QVariant &object)
    {
        m_calls.emplace_back(event.keyCode, object);
    }
    Q_INVOKABLE void fireWithoutArguments() { m_calls.emplace_back(); }

    Calls m_calls;
};

QString baseDescription(const char *className, const void *object)
{
    return QString::asprintf("<%s: %p>", className, object);
}

TEST(HotKey, isEqualByKeyAndFlagsWhateverItDoes)
{
    const HotKey hotKey(kV, kCommand, [](const KeyUpEvent &) {});
    EXPECT_EQ(hotKey, HotKey(kV, kCommand, nullptr, "fire", 1));
    EXPECT_NE(hotKey, HotKey(VirtualKey::kX, kCommand, nullptr));
    EXPECT_NE(hotKey, HotKey(kV, kCommand | kFunction, nullptr)) << "flags are kept whole";
    EXPECT_EQ(hotKey.hash(), 0x100009U);
}

TEST(HotKey, describesItself)
{
    const HotKey block(kV, kCommand | kControl | kCapsLock, nullptr);
    EXPECT_EQ(block.description(), baseDescription("HotKey", &block) +
                                       QStringLiteral("\n\t(key: 9\n\tflags: (NSControlKeyMask | "
                                                      "NSCommandKeyMask)\n\tinvokes: (block))"));
    QObject target;
    const HotKey call(kV, kOption | kShift, &target, "fire", {});
    EXPECT_EQ(call.description(), baseDescription("HotKey", &call) +
                                      QStringLiteral("\n\t(key: 9\n\tflags: (NSShiftKeyMask | "
                                                     "NSAlternateKeyMask)\n\tinvokes: [%1 fire])")
                                          .arg(baseDescription("QObject", &target)));
}

TEST(HotKey, callsTheTargetWithEventAndObjectWhileItLives)
{
    auto target = std::make_unique<Target>();
    KeyUpEvent event;
    event.keyCode = kV;
    const HotKey hotKey(kV, kCommand, target.get(), "fire", QStringLiteral("object"));
    hotKey.invokeWithEvent(event);
    HotKey(kV, kCommand, target.get(), "fires", {}).invokeWithEvent(event);
    HotKey(kV, kCommand, target.get(), "fireWithoutArguments", {}).invokeWithEvent(event);
    EXPECT_EQ(target->m_calls, (Calls{{kV, QStringLiteral("object")}}));
    target.reset();
    hotKey.invokeWithEvent(event);
    EXPECT_EQ(hotKey.target(), nullptr);
}

} // namespace

#include "HotKeyTest.moc"
