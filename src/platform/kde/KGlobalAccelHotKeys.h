#pragma once

#include "platform/HotKeys.h"
#include "platform/kde/KGlobalAccelService.h"
#include "platform/typing/HeldShortcuts.h"

#include <QDBusConnection>
#include <QList>
#include <QMap>
#include <QSet>

#include <map>
#include <memory>
#include <optional>
#include <vector>

class KeyboardLayout;

/// Hot keys of Plasma's own service, which knows them by name: the user sees them in the system's
/// settings and may choose others there, and they work under Wayland. All of it is asked without
/// waiting: a registration counts as granted until the service says otherwise. Where the service
/// is not there everything goes to the hot keys given. Owned by Platform; used from the main
/// thread.
class KGlobalAccelHotKeys : public HotKeys
{
    Q_OBJECT

public:
    /// Who takes the keys.
    enum class Keys {
        Service, ///< The service does: nobody else can.
        /// The other hot keys do, and the service keeps the names and the user's choice alone.
        /// Grabs hold back what is typed behind a hot key; the service lets it through to whatever
        /// window was in front.
        Otherwise
    };

    /// `layout` must outlive this object. The service is asked for at once.
    KGlobalAccelHotKeys(const QDBusConnection &bus, const KeyboardLayout &layout, Keys keys,
                        std::unique_ptr<HotKeys> otherwise, QObject *parent = nullptr);
    /// The service keeps what was chosen, and does without us.
    ~KGlobalAccelHotKeys() override;

    // ^HotKeys
    Control control() const override;
    QString configurationFor(const HotKeyCombination &combination,
                             const QString &word) const override;
    bool registerHotKey(HotKeyId id, quint32 keyCode, quint32 carbonModifiers) override;
    bool registerAction(HotKeyId id, quint32 keyCode, quint32 carbonModifiers,
                        const HotKeyAction &action) override;
    void unregisterHotKey(HotKeyId id) override;
    /// From the list that was asked for at the last suspension, which is when a recording begins.
    bool isAvailable(quint32 keyCode, quint32 carbonModifiers) override;
    bool isGranted(HotKeyId id) override;
    void setSuspended(bool isSuspended) override;

private:
    enum class Service { Asked, There, Absent };

    struct Registration
    {
        QString name;
        HotKeyCombination combination;
    };

    /// What the service knows by one name.
    struct Action
    {
        QString title;
        bool isListed = false; ///< It has a name that means something to the user.
        /// Nobody has it registered when that is absent.
        std::optional<HotKeyCombination> wanted;
        bool isActive = false; ///< The service was told that we take its presses.
        /// What the service was last told, or has told; 0 for no keys. Absent before the first time
        /// in this process, when what the user chose in the system's settings goes before our wish.
        std::optional<int> told;
        bool isRefused = false;
        bool types = false;
    };

    void serviceAppeared();
    void goOtherwise();
    /// Whether the other hot keys are asked for a registration.
    bool asksOtherwise() const { return m_onlyLists || m_service == Service::Absent; }
    void passOn();
    void flushLater();
    void flush();
    void push(const QString &name, Action &action);
    void takeAnswer(const QString &name, int asked, bool wasFirst, const QList<int> &keys);
    void takeChoice(const QString &name, const QList<int> &keys);
    void askWhetherFree(int code);
    void askWhatIsTaken();
    void hearPress(const QString &name, qlonglong timestamp);
    HotKeyEvent eventOf(HotKeyId id, qlonglong timestamp) const;
    std::vector<HotKeyId> idsOf(const QString &name) const;

    const KeyboardLayout &m_layout;
    const bool m_onlyLists; ///< Keys::Otherwise.
    std::unique_ptr<HotKeys> m_otherwise;
    Service m_service = Service::Asked;
    bool m_isSuspended = false;
    bool m_isFlushPending = false;
    std::map<HotKeyId, Registration> m_registrations;
    QMap<QString, Action> m_actions;
    QSet<int> m_refused; ///< Codes that others hold.
    QSet<int> m_asked;   ///< Codes about which a question is under way.
    QSet<int> m_taken;   ///< Codes that other programs have, when it was last asked.
    KGlobalAccelService m_plasma;
    HeldShortcuts m_held;
};
