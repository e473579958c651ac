#pragma once

#include "platform/Consent.h"
#include "platform/portal/PortalRequest.h"

#include <QString>
#include <QVariant>

#include <memory>
#include <optional>

class PortalBus;
class SettingsStore;

/// The one session in which the desktop lets us type, and see what is copied where it does so by
/// no other way. What the user has agreed to is remembered by a token, which is good once: each
/// session brings the next one's. With it nobody is asked again. The desktop shows all the while
/// that there is a session, and ends it when its user wants; then nothing is asked before ask().
/// Owned by Platform, as its Consent; main thread.
class RemoteControlSession : public Consent
{
    Q_OBJECT

public:
    /// In the settings; a text.
    static const QString kTokenKey;

    enum class Wish {
        Keys,            ///< To type.
        KeysAndClipboard ///< And to follow and own the clipboard.
    };

    /// `settings` must outlive this object.
    RemoteControlSession(std::shared_ptr<PortalBus> bus, SettingsStore &settings, Wish wish,
                         QObject *parent = nullptr);
    ~RemoteControlSession() override;

    /// Goes on with what the user has agreed to before, without asking: at the start, and when the
    /// portals were started again.
    void resume();

    /// The path of the session; empty unless the consent is in force.
    const QString &path() const { return m_path; }
    /// Whether keys were among what the user has agreed to.
    bool canType() const { return m_canType; }

    // ^Consent
    State state() const override { return m_state; }
    void ask() override;

private:
    using Answer = PortalRequest::Answer;

    enum class Manner {
        Silent, ///< Only with a token that is good.
        Asking
    };

    QString token() const;
    void lookUpToken();
    void begin(Manner manner);
    void create();
    void selectDevices();
    void requestClipboard();
    void start();
    void handleStarted(const QVariantMap &results);
    void request(const PortalRequest::Question &question,
                 std::optional<std::chrono::milliseconds> limit,
                 const std::function<void(const QVariantMap &results)> &granted);
    void fail(const Answer &answer);
    void end(State state);
    void close();
    void setState(State state);

private Q_SLOTS: // The bus knows receivers by name.
    void handleClosed();

private:
    const std::shared_ptr<PortalBus> m_bus;
    SettingsStore &m_settings;
    const Wish m_wish;
    State m_state = State::NotAsked;
    Manner m_manner = Manner::Asking;
    std::unique_ptr<PortalRequest> m_request;
    QString m_path;          ///< While it is in force.
    QString m_createdPath;   ///< From its creation to its end.
    bool m_wasLost = false;  ///< The portals ended while it was in force.
    bool m_isClosed = false; ///< By the portal, so that there is nothing to be closed.
    bool m_canType = false;
};
