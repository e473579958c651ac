#include "platform/portal/RemoteControlSession.h"

#include "platform/SettingsStore.h"
#include "platform/portal/PortalBus.h"

#include <QDBusObjectPath>
#include <QLoggingCategory>

#include <utility>

namespace {

Q_LOGGING_CATEGORY(lcSession, "quillmarsh.portal.session", QtInfoMsg)

using namespace std::chrono_literals;

const auto kRemoteDesktop = QStringLiteral("org.freedesktop.portal.RemoteDesktop");
const auto kClipboard = QStringLiteral("org.freedesktop.portal.Clipboard");
const auto kSession = QStringLiteral("org.freedesktop.portal.Session");
const auto kStore = QStringLiteral("org.freedesktop.impl.portal.PermissionStore");
const auto kStorePath = QStringLiteral("/org/freedesktop/impl/portal/PermissionStore");
const auto kStoreTable = QStringLiteral("remote-desktop");

/// Steps that ask no person.
constexpr std::chrono::milliseconds kStepLimit{10s};
constexpr uint kKeyboard = 1;
/// Until the user takes it back.
constexpr uint kForGood = 2;

} // namespace

const QString RemoteControlSession::kTokenKey = QStringLiteral("remoteControlToken");

RemoteControlSession::RemoteControlSession(std::shared_ptr<PortalBus> bus, SettingsStore &settings,
                                           Wish wish, QObject *parent)
    : Consent(parent), m_bus(std::move(bus)), m_settings(settings), m_wish(wish)
{
    connect(m_bus.get(), &PortalBus::vanished, this, [this] {
        m_request.reset();
        m_isClosed = true;
        close();
        m_wasLost = m_state == State::Given;
        if (m_state == State::Asking || m_state == State::Given)
            end(State::Ended);
    });
    connect(m_bus.get(), &PortalBus::appeared, this, [this] {
        // Not what the user has ended.
        if (std::exchange(m_wasLost, false))
            resume();
    });
}

RemoteControlSession::~RemoteControlSession()
{
    m_request.reset();
    close();
}

QString RemoteControlSession::token() const
{
    return m_settings.value(kTokenKey).toString();
}

void RemoteControlSession::ask()
{
    if (m_state != State::Given && m_state != State::Asking)
        begin(Manner::Asking);
}

void RemoteControlSession::resume()
{
    if (m_state != State::Given && m_state != State::Asking && !token().isEmpty())
        lookUpToken();
}

/// With one that is not good any more the desktop would ask its user, who did not want anything.
void RemoteControlSession::lookUpToken()
{
    auto question =
        QDBusMessage::createMethodCall(kStore, kStorePath, kStore, QStringLiteral("Lookup"));
    question.setArguments({kStoreTable, token()});
    setState(State::Asking);
    m_bus->call(question, this, [this](const QDBusMessage &reply) {
        if (m_state != State::Asking || m_request)
            return;
        if (reply.type() == QDBusMessage::ReplyMessage) {
            begin(Manner::Silent);
            return;
        }
        qCInfo(lcSession).noquote()
            << "What the user agreed to is not remembered any more:" << reply.errorMessage();
        end(State::Ended);
    });
}

void RemoteControlSession::begin(Manner manner)
{
    m_manner = manner;
    setState(State::Asking);
    m_bus->whenReady(this, [this] {
        if (m_state == State::Asking && !m_request)
            create();
    });
}

void RemoteControlSession::create()
{
    const QString sessionToken = PortalBus::newToken();
    request({kRemoteDesktop,
             QStringLiteral("CreateSession"),
             {},
             {{QStringLiteral("session_handle_token"), sessionToken}}},
            kStepLimit, [this](const QVariantMap &results) {
                const QVariant handle = results.value(QStringLiteral("session_handle"));
                m_createdPath = handle.metaType() == QMetaType::fromType<QDBusObjectPath>()
                                    ? handle.value<QDBusObjectPath>().path()
                                    : handle.toString();
                m_isClosed = false;
                QDBusConnection bus = m_bus->bus();
                bus.connect(PortalBus::kService, m_createdPath, kSession, QStringLiteral("Closed"),
                            this, SLOT(handleClosed()));
                selectDevices();
            });
}

void RemoteControlSession::selectDevices()
{
    QVariantMap options{{QStringLiteral("types"), kKeyboard},
                        {QStringLiteral("persist_mode"), kForGood}};
    if (!token().isEmpty())
        options[QStringLiteral("restore_token")] = token();
    request({kRemoteDesktop,
             QStringLiteral("SelectDevices"),
             {QVariant::fromValue(QDBusObjectPath(m_createdPath))},
             options},
            kStepLimit, [this](const QVariantMap &) {
                if (m_wish == Wish::KeysAndClipboard)
                    requestClipboard();
                else
                    start();
            });
}

/// Before the start, or the user is not asked for it.
void RemoteControlSession::requestClipboard()
{
    const QVariantList arguments{QVariant::fromValue(QDBusObjectPath(m_createdPath)),
                                 QVariantMap()};
    m_bus->call(PortalBus::message(kClipboard, QStringLiteral("RequestClipboard"), arguments), this,
                [this, path = m_createdPath](const QDBusMessage &reply) {
                    if (m_state != State::Asking || path != m_createdPath)
                        return;
                    if (reply.type() == QDBusMessage::ErrorMessage)
                        fail({PortalRequest::Outcome::Failed, {}, reply.errorMessage()});
                    else
                        start();
                });
}

void RemoteControlSession::start()
{
    // A person takes the time that it takes; when none is to be asked there is nothing to wait for.
    std::optional<std::chrono::milliseconds> limit;
    if (m_manner == Manner::Silent)
        limit = kStepLimit;
    request({kRemoteDesktop,
             QStringLiteral("Start"),
             {QVariant::fromValue(QDBusObjectPath(m_createdPath)), QString()}},
            limit, [this](const QVariantMap &results) { handleStarted(results); });
}

void RemoteControlSession::handleStarted(const QVariantMap &results)
{
    // Without one the user did not want it remembered, and the one before is used up.
    const QString next = results.value(QStringLiteral("restore_token")).toString();
    m_settings.setValue(kTokenKey, next.isEmpty() ? QVariant() : QVariant(next));
    m_canType = (results.value(QStringLiteral("devices")).toUInt() & kKeyboard) != 0;
    const bool hasClipboard = results.value(QStringLiteral("clipboard_enabled")).toBool();
    if (m_wish == Wish::KeysAndClipboard ? !hasClipboard : !m_canType) {
        qCInfo(lcSession, "The user has not agreed to what is needed");
        end(State::Refused);
        return;
    }
    m_path = m_createdPath;
    setState(State::Given);
}

void RemoteControlSession::request(const PortalRequest::Question &question,
                                   std::optional<std::chrono::milliseconds> limit,
                                   const std::function<void(const QVariantMap &)> &granted)
{
    m_request = std::make_unique<PortalRequest>(
        *m_bus, question, limit, [this, granted](const Answer &answer) {
            // To the end of this: it is the request that tells.
            const std::unique_ptr<PortalRequest> answered = std::move(m_request);
            if (answer.outcome == PortalRequest::Outcome::Granted)
                granted(answer.results);
            else
                fail(answer);
        });
}

void RemoteControlSession::fail(const Answer &answer)
{
    using Outcome = PortalRequest::Outcome;
    if (answer.outcome == Outcome::Failed)
        qCInfo(lcSession).noquote() << "There is no remote control:" << answer.error;
    if (answer.outcome == Outcome::Cancelled)
        end(State::Refused);
    else if (m_manner == Manner::Silent || answer.outcome == Outcome::Ended)
        end(State::Ended);
    else
        end(State::Unavailable);
}

void RemoteControlSession::end(State state)
{
    m_request.reset();
    m_path.clear();
    m_canType = false;
    close();
    setState(state);
}

void RemoteControlSession::close()
{
    if (m_createdPath.isEmpty())
        return;
    QDBusConnection bus = m_bus->bus();
    bus.disconnect(PortalBus::kService, m_createdPath, kSession, QStringLiteral("Closed"), this,
                   SLOT(handleClosed()));
    if (!m_isClosed)
        bus.send(PortalBus::message(kSession, QStringLiteral("Close"), {}, m_createdPath));
    m_createdPath.clear();
}

void RemoteControlSession::handleClosed()
{
    qCInfo(lcSession, "Remote control has been ended");
    m_isClosed = true;
    end(State::Ended);
}

void RemoteControlSession::setState(State state)
{
    if (std::exchange(m_state, state) != state)
        Q_EMIT stateChanged();
}
