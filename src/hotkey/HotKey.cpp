#include "hotkey/HotKey.h"

#include "platform/ModifierFlags.h"

#include <QMetaMethod>
#include <QStringList>

#include <array>
#include <utility>

namespace {

constexpr std::array<std::pair<quint64, const char *>, 4> kFlagNames{{
    {ModifierFlags::kControl, "NSControlKeyMask"},
    {ModifierFlags::kCommand, "NSCommandKeyMask"},
    {ModifierFlags::kShift, "NSShiftKeyMask"},
    {ModifierFlags::kOption, "NSAlternateKeyMask"},
}};

QString flagNames(quint64 modifierFlags)
{
    QStringList names;
    for (const auto &[flag, name] : kFlagNames) {
        if (modifierFlags & flag)
            names.append(QString::fromLatin1(name));
    }
    return names.join(QStringLiteral(" | "));
}

QString baseDescription(const char *className, const void *object)
{
    return QString::asprintf("<%s: %p>", className, object);
}

} // namespace

HotKey::HotKey(quint16 keyCode, quint64 modifierFlags, Task task)
    : m_keyCode(keyCode), m_modifierFlags(modifierFlags), m_task(std::move(task))
{
}

HotKey::HotKey(quint16 keyCode, quint64 modifierFlags, QObject *target, QByteArray action,
               QVariant object)
    : m_keyCode(keyCode), m_modifierFlags(modifierFlags), m_target(target),
      m_action(std::move(action)), m_object(std::move(object))
{
}

quint32 HotKey::carbonFlags(quint64 modifierFlags)
{
    const quint32 held = CarbonModifiers::ofFlags(modifierFlags);
    return modifierFlags & ModifierFlags::kCapsLock ? held | CarbonModifiers::kCapsLock : held;
}

void HotKey::invokeWithEvent(const KeyUpEvent &event) const
{
    if (QObject *const target = m_target) {
        const QMetaObject *const meta = target->metaObject();
        const int method = meta->indexOfMethod(m_action + "(KeyUpEvent,QVariant)");
        if (method >= 0) {
            meta->method(method).invoke(target, Qt::DirectConnection, Q_ARG(KeyUpEvent, event),
                                        Q_ARG(QVariant, m_object));
            return;
        }
    }
    if (m_task)
        m_task(event);
}

QString HotKey::description() const
{
    QString invoked = QStringLiteral("(block)");
    if (const QObject *const target = m_target; target && !m_action.isEmpty())
        invoked = QStringLiteral("[%1 %2]").arg(
            baseDescription(target->metaObject()->className(), target),
            QString::fromUtf8(m_action));
    return QStringLiteral("%1\n\t(key: %2\n\tflags: (%3)\n\tinvokes: %4)")
        .arg(baseDescription("HotKey", this), QString::number(m_keyCode),
             flagNames(m_modifierFlags), invoked);
}

bool HotKey::registerWith(HotKeys &service, quint32 id)
{
    if (!service.registerHotKey({kSignature, id}, m_keyCode, carbonFlags()))
        return false;
    m_hotKeyRef = &service;
    m_hotKeyID = id;
    return true;
}

void HotKey::unregister()
{
    if (HotKeys *const service = std::exchange(m_hotKeyRef, nullptr))
        service->unregisterHotKey({kSignature, m_hotKeyID});
}
