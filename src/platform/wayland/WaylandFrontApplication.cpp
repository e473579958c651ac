#include "platform/wayland/WaylandFrontApplication.h"

#include "platform/wayland/QtWaylandRequests.h"
#include "platform/wayland/WaylandConnection.h"

#include <QEvent>
#include <QGuiApplication>

#include <algorithm>
#include <tuple>
#include <utility>

namespace {

using Steady = std::chrono::steady_clock;
using std::chrono::milliseconds;

/// Most compositors go back to the target by themselves within this.
constexpr milliseconds kPatience{60};
/// What was in front may claim that back within this after a window of ours has opened, and nobody
/// clicks elsewhere so soon.
constexpr milliseconds kOpening{300};
constexpr const char *kActivationToken = "XDG_ACTIVATION_TOKEN";

} // namespace

WaylandFrontApplication::WaylandFrontApplication(std::shared_ptr<WaylandConnection> connection,
                                                 std::shared_ptr<Toplevels> toplevels,
                                                 std::shared_ptr<FrontNames> names, QObject *parent)
    : FrontApplication(parent), m_connection(std::move(connection)),
      m_toplevels(std::move(toplevels)), m_names(std::move(names))
{
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this,
            &WaylandFrontApplication::followKeyboard);
    qGuiApp->installEventFilter(this);
}

WaylandFrontApplication::~WaylandFrontApplication()
{
    // Behind the tasks that use this object.
    std::ignore = m_connection->run([] {});
}

bool WaylandFrontApplication::returnToTarget(milliseconds limit)
{
    const Steady::time_point start = Steady::now();
    const Toplevels::Id target = aim();
    // Else that one gets the keyboard for a moment, and the toolkit asks to have it back when it
    // hears of it, which is when the target has it.
    if (target != 0 && m_toplevels->isOursBehind()) {
        m_toplevels->activate(target);
        std::ignore = roundTrip();
    }
    finishQtWaylandRequests();
    if (!roundTrip())
        return false;
    // Ours have made way, and the compositor has given the keyboard to whom it chose before it
    // reads the next key.
    if (!m_toplevels->isComplete())
        return true;
    if (target == 0)
        return false;
    using Place = Toplevels::Place;
    Place place = m_toplevels->awaitFront(target, start + std::min(kPatience, limit));
    if (place == Place::Behind) {
        m_toplevels->activate(target);
        place = m_toplevels->awaitFront(target, start + limit);
    }
    return place == Place::InFront;
}

void WaylandFrontApplication::activate(QWindow *window)
{
    if (!window)
        return;
    // Where the toolkit looks for it, the one time.
    const bool hasToken = !m_activationToken.isEmpty();
    if (hasToken)
        qputenv(kActivationToken, std::exchange(m_activationToken, {}));
    window->requestActivate();
    if (hasToken)
        qunsetenv(kActivationToken);
    else
        // Without one a compositor only marks a window that is open already, and may leave one that
        // opens behind another that opened a moment ago.
        m_toplevels->activateOwn(window->title(), Steady::now() + kOpening);
}

bool WaylandFrontApplication::isInFront(const QWindow &window) const
{
    if (const QWindow *focused = QGuiApplication::focusWindow())
        return focused == &window;
    if (m_toplevels->isComingBack(window.title()))
        return true;
    // With a menu some take the keyboard from all of ours, and give it back with the next key. Who
    // is in front they tell all the while.
    const std::optional<Toplevels::Window> front = m_toplevels->front();
    return front && m_toplevels->isOurs(*front) &&
           front->id == m_toplevels->ownWindow(window.title());
}

void WaylandFrontApplication::endStartup(const QString &activationToken)
{
    // The sign ends when a window is activated with it.
    m_activationToken = activationToken.toUtf8();
}

bool WaylandFrontApplication::eventFilter(QObject *watched, QEvent *event)
{
    // Of a window that is closed the toolkit does not say that the keyboard has left it, and of one
    // that is hidden only when the compositor has told.
    if (event->type() == QEvent::Hide && watched->isWindowType() &&
        (watched == QGuiApplication::focusWindow() || !QGuiApplication::focusWindow())) {
        m_toplevels->leaveOwn();
        followKeyboard(nullptr);
    }
    return FrontApplication::eventFilter(watched, event);
}

void WaylandFrontApplication::followKeyboard(const QWindow *window)
{
    m_names->setOursHasKeyboard(window != nullptr);
    if (!window) {
        // Later: a paste goes back to the target while none of ours has the keyboard.
        QMetaObject::invokeMethod(this, &WaylandFrontApplication::letTargetGo,
                                  Qt::QueuedConnection);
        return;
    }
    if (std::exchange(m_isTargetHeld, true))
        return;
    m_connection->post([this] {
        // What came to the front before ours may still be under way.
        if (m_connection->roundTrip())
            m_toplevels->holdTarget();
    });
}

void WaylandFrontApplication::letTargetGo()
{
    const QWindow *window = QGuiApplication::focusWindow();
    if ((window && window->isVisible()) || !std::exchange(m_isTargetHeld, false))
        return;
    m_connection->post([this] { m_toplevels->letTargetGo(); });
}

/// False when the compositor is gone.
bool WaylandFrontApplication::roundTrip()
{
    bool isThere = false;
    const bool hasRun = m_connection->run([&] { isThere = m_connection->roundTrip(); });
    return hasRun && isThere;
}

Toplevels::Id WaylandFrontApplication::aim() const
{
    const bool isOurs = m_ownTarget && m_ownTarget->isVisible();
    return isOurs ? m_toplevels->ownWindow(m_ownTarget->title()) : m_toplevels->target();
}
