#pragma once

#include "platform/HotKeys.h"
#include "platform/portal/GlobalShortcutsPortal.h"
#include "platform/typing/HeldShortcuts.h"

#include <QMap>
#include <QTimer>

#include <map>
#include <memory>
#include <vector>

class KeyboardLayout;
class PortalBus;

/// Hot keys of a desktop that lets programs only ask for them, by its portal: the user says there
/// which keys they have. The keys that are registered are a wish, told once; whatever they have
/// become follows by chosenElsewhere(). Only actions with a name can be asked for. Where there is
/// no portal everything goes to the hot keys given. Owned by Platform; used from the main thread.
class PortalHotKeys : public HotKeys
{
    Q_OBJECT

public:
    /// `layout` must outlive this object.
    PortalHotKeys(std::shared_ptr<PortalBus> bus, const KeyboardLayout &layout,
                  std::unique_ptr<HotKeys> otherwise, QObject *parent = nullptr);
    ~PortalHotKeys() override;

    /// Nothing is asked of the desktop, which may ask the user, before this.
    void begin();

    // ^HotKeys
    Control control() const override;
    void configure() override;
    QString configurationFor(const HotKeyCombination &combination,
                             const QString &word) const override;
    bool registerHotKey(HotKeyId id, quint32 keyCode, quint32 carbonModifiers) override;
    bool registerAction(HotKeyId id, quint32 keyCode, quint32 carbonModifiers,
                        const HotKeyAction &action) override;
    void unregisterHotKey(HotKeyId id) override;
    bool isAvailable(quint32 keyCode, quint32 carbonModifiers) override;
    bool isGranted(HotKeyId id) override;
    void setSuspended(bool) override {}

Q_SIGNALS:
    /// With a press that is told next: what the desktop wants to see of the window that it opens.
    void activationTokenGiven(const QString &token);

private:
    enum class Portal { NotAsked, Asked, There, Absent };

    struct Registration
    {
        QString name;
        HotKeyCombination combination;
    };

    void handleMissing();
    void bindLater();
    void bind();
    void takeKeys(const GlobalShortcutsPortal::Keys &keys);
    void handleRefusal();
    void tell(const QString &name, const QString &description);
    HotKeyEvent eventOf(HotKeyId id, qlonglong timestamp) const;
    std::vector<HotKeyId> idsOf(const QString &name) const;

    const KeyboardLayout &m_layout;
    const std::unique_ptr<HotKeys> m_otherwise;
    Portal m_portalState = Portal::NotAsked;
    bool m_isRefused = false;
    std::map<HotKeyId, Registration> m_registrations;
    QMap<QString, QString> m_titles; ///< Of the names that are, or have been, registered.
    QStringList m_bound;             ///< The names that the portal was asked for.
    QTimer m_bindTimer;
    HeldShortcuts m_held;
    GlobalShortcutsPortal m_portal;
};
