#pragma once

#include "hotkey/KeyUpEvent.h"
#include "platform/HotKeys.h"

#include <QByteArray>
#include <QPointer>
#include <QString>
#include <QVariant>

#include <cstddef>
#include <functional>

/// One key with modifiers and what it does: a record with identity, shared between whoever made it
/// and the HotKeyCenter that has it registered. It never changes for others; only the center
/// registers it and takes the registration back. The action is either a task or a method of a
/// target, which the record does not keep alive.
class HotKey
{
public:
    using Task = std::function<void(const KeyUpEvent &)>;

    /// 'htk1': sets these registrations apart from other registries' in the process.
    static constexpr quint32 kSignature = 0x68746B31;

    /// `keyCode` is a virtual key code; `modifierFlags` are bits of ModifierFlags and are kept
    /// whole, Caps Lock and all. The task may be empty.
    HotKey(quint16 keyCode, quint64 modifierFlags, Task task);

    /// `action` is the bare name of a method that the meta-object system knows,
    /// `Q_INVOKABLE void action(const KeyUpEvent &event, const QVariant &object)`.
    HotKey(quint16 keyCode, quint64 modifierFlags, QObject *target, QByteArray action,
           QVariant object);

    HotKey(const HotKey &) = delete;
    HotKey &operator=(const HotKey &) = delete;
    /// Unregisters first.
    ~HotKey() { unregister(); }

    quint16 keyCode() const { return m_keyCode; }
    quint64 modifierFlags() const { return m_modifierFlags; }
    /// The modifiers in bits of CarbonModifiers.
    quint32 carbonFlags() const { return carbonFlags(m_modifierFlags); }
    /// The same for any flags. Unlike those of a shortcut they include Caps Lock.
    static quint32 carbonFlags(quint64 modifierFlags);

    const Task &task() const { return m_task; }
    /// Null when there is none or when it is gone.
    QObject *target() const { return m_target; }
    const QByteArray &action() const { return m_action; }
    const QVariant &object() const { return m_object; }

    /// The service that holds the registration; null unless registered.
    HotKeys *hotKeyRef() const { return m_hotKeyRef; }
    /// The number of the latest registration; 0 before the first.
    quint32 hotKeyID() const { return m_hotKeyID; }

    /// Calls the action on the target, if that is alive and has such a method; else runs the task,
    /// if there is one.
    void invokeWithEvent(const KeyUpEvent &event) const;

    /// For the log, on several lines.
    QString description() const;

    size_t hash() const { return m_modifierFlags ^ m_keyCode; }

    /// Whether both stand for the same key and flags, whatever they do.
    bool operator==(const HotKey &other) const
    {
        return m_keyCode == other.m_keyCode && m_modifierFlags == other.m_modifierFlags;
    }

private:
    friend class HotKeyCenter;

    /// False, and nothing has changed, when the service refuses.
    [[nodiscard]] bool registerWith(HotKeys &service, quint32 id);
    void unregister();

    quint16 m_keyCode;
    quint64 m_modifierFlags;
    Task m_task;
    QPointer<QObject> m_target;
    QByteArray m_action;
    QVariant m_object;
    QPointer<HotKeys> m_hotKeyRef;
    quint32 m_hotKeyID = 0;
};
