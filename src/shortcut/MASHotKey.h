#pragma once

#include "platform/HotKeys.h"

#include <QPointer>

#include <functional>
#include <memory>
#include <optional>
#include <utility>

class MASShortcut;

/// One registration of a shortcut with the hot-key service, which it releases when it is
/// destroyed: dropping it everywhere is the way to unregister. Owned by MASShortcutMonitor.
class MASHotKey
{
public:
    /// 'MASS': sets these registrations apart from other registries' in the process.
    static constexpr quint32 kSignature = 0x4D415353;

    /// Registers the shortcut; null when the service refuses it. `hotKeys` may go before the
    /// result does. `named`, when given, is how the desktop's settings list it.
    [[nodiscard]] static std::unique_ptr<MASHotKey>
    registeredHotKeyWithShortcut(HotKeys &hotKeys, const MASShortcut &shortcut,
                                 const std::optional<HotKeyAction> &named = std::nullopt);

    MASHotKey(const MASHotKey &) = delete;
    MASHotKey &operator=(const MASHotKey &) = delete;
    ~MASHotKey();

    /// Unique in the process and never used again, even when the registration failed.
    quint32 carbonID() const { return m_carbonID; }

    /// Whether presses reach us; another program may have taken the combination since.
    bool isGranted() const;

    const std::function<void()> &action() const { return m_action; }
    void setAction(std::function<void()> action) { m_action = std::move(action); }

private:
    MASHotKey() = default;

    QPointer<HotKeys> m_hotKeys; ///< Null unless registered.
    quint32 m_carbonID = 0;
    std::function<void()> m_action;
};
