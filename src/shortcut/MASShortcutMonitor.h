#pragma once

#include "platform/HotKeys.h"
#include "shortcut/MASHotKey.h"
#include "shortcut/MASShortcut.h"

#include <QObject>
#include <QPointer>

#include <functional>
#include <memory>
#include <optional>
#include <unordered_map>

/// Runs an action when a shortcut is pressed, whatever program has the keyboard. Holds one hot key
/// for each registered shortcut. The application uses the shared one; a test makes its own. Used
/// from the main thread.
class MASShortcutMonitor : public QObject
{
    Q_OBJECT

public:
    /// `hotKeys` is not owned; nothing can be registered any more when it goes.
    explicit MASShortcutMonitor(HotKeys &hotKeys, QObject *parent = nullptr);
    ~MASShortcutMonitor() override;

    /// Makes the shared monitor on a hot-key service: once, at the start of the program.
    static void connectShared(HotKeys &hotKeys);
    /// Null until it is connected.
    static MASShortcutMonitor *sharedMonitor();

    /// Registers the shortcut, in place of an earlier registration of an equal one. False when the
    /// hot-key service refuses it; nothing has changed then. The action is queued on the event
    /// loop at each press. `named`, when given, is how the desktop's settings list it.
    [[nodiscard]] bool registerShortcut(const MASShortcut &shortcut, std::function<void()> action,
                                        const std::optional<HotKeyAction> &named = std::nullopt);

    /// No shortcut, or one that is not registered, is ignored.
    void unregisterShortcut(const std::optional<MASShortcut> &shortcut);
    void unregisterAllShortcuts() { m_hotKeys.clear(); }
    bool isShortcutRegistered(const MASShortcut &shortcut) const;
    /// Whether a registered shortcut still reaches us; another program may have taken it since.
    bool isShortcutGranted(const MASShortcut &shortcut) const;

    /// Whether a program of this desktop can have hot keys at all.
    bool canRegister() const;

    /// Holds all hot keys back while a recorder records, and puts them back.
    void setSuspended(bool isSuspended);

Q_SIGNALS:
    /// A shortcut that was refused is worth another try, and one that is registered the question
    /// whether it is still granted.
    void availabilityChanged();
    /// The user has chosen otherwise for a registered shortcut in the desktop's own settings.
    void chosenElsewhere(const MASShortcut &shortcut, const HotKeyChoice &choice);

private:
    struct Hash
    {
        size_t operator()(const MASShortcut &shortcut) const { return shortcut.hash(); }
    };

    void handleEvent(const HotKeyEvent &event);
    void handleChoice(HotKeyId id, const HotKeyChoice &choice);

    QPointer<HotKeys> m_service;
    std::unordered_map<MASShortcut, std::unique_ptr<MASHotKey>, Hash> m_hotKeys;
};
