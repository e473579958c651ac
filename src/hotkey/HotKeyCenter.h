#pragma once

#include "hotkey/HotKey.h"
#include "platform/HotKeys.h"

#include <QObject>
#include <QPointer>

#include <functional>
#include <memory>
#include <unordered_set>

/// Runs an action when a combination is let go, whatever program has the keyboard. Keeps every
/// registered HotKey, so that a caller need not. A second registry beside the shortcuts of the
/// application, and independent of it: it acts on the release instead of the press, at once
/// instead of queued, and knows Caps Lock. The application has the shared one; a test makes its
/// own. Used from the main thread.
class HotKeyCenter : public QObject
{
    Q_OBJECT

public:
    struct Hash
    {
        size_t operator()(const std::shared_ptr<HotKey> &hotKey) const { return hotKey->hash(); }
    };
    struct Equal
    {
        bool operator()(const std::shared_ptr<HotKey> &a, const std::shared_ptr<HotKey> &b) const
        {
            return *a == *b;
        }
    };
    /// By key code and flags. No entry is null.
    using HotKeySet = std::unordered_set<std::shared_ptr<HotKey>, Hash, Equal>;

    /// `hotKeys` is not owned; nothing can be registered any more when it goes.
    explicit HotKeyCenter(HotKeys &hotKeys, QObject *parent = nullptr);
    /// Unregisters everything.
    ~HotKeyCenter() override { unregisterAllHotKeys(); }

    /// Makes the shared center on a hot-key service: once, at the start of the program.
    static void connectShared(HotKeys &hotKeys);
    /// Null until it is connected.
    static HotKeyCenter *sharedHotKeyCenter();

    /// The registered record; null when one with the same key code and flags is registered
    /// already, or the hot-key service refuses.
    std::shared_ptr<HotKey> registerHotKeyWithKeyCode(quint16 keyCode, quint64 modifierFlags,
                                                      HotKey::Task task);
    std::shared_ptr<HotKey> registerHotKeyWithKeyCode(quint16 keyCode, quint64 modifierFlags,
                                                      QObject *target, const QByteArray &action,
                                                      const QVariant &object = {});
    /// The same for an existing record; null also when that holds a registration.
    std::shared_ptr<HotKey> registerHotKey(const std::shared_ptr<HotKey> &hotKey);

    /// Null, or a record that is not registered here, is ignored: an equal one keeps its place.
    void unregisterHotKey(const std::shared_ptr<HotKey> &hotKey);
    /// All that act on the target; for null, none.
    void unregisterHotKeysWithTarget(const QObject *target);
    void unregisterHotKeysWithTarget(const QObject *target, const QByteArray &action);
    void unregisterHotKeyWithKeyCode(quint16 keyCode, quint64 modifierFlags);
    void unregisterAllHotKeys()
    {
        unregisterMatching([](const HotKey &) { return true; });
    }

    bool hasRegisteredHotKeyWithKeyCode(quint16 keyCode, quint64 modifierFlags) const;
    HotKeySet registeredHotKeys() const { return m_registeredHotKeys; }
    /// The number that the next registration gets. A refused attempt does not use it up.
    quint32 nextHotKeyID() const { return m_nextHotKeyID; }

private:
    void handleEvent(const HotKeyEvent &event);
    void unregisterMatching(const std::function<bool(const HotKey &)> &isMatch);

    QPointer<HotKeys> m_service;
    HotKeySet m_registeredHotKeys;
    quint32 m_nextHotKeyID = 1;
};
