#include "platform/wayland/WaylandConnection.h"

#include "platform/SignalStack.h"

#include <QLoggingCategory>

#include <poll.h>
#include <signal.h>

#include <algorithm>
#include <utility>

Q_LOGGING_CATEGORY(lcWayland, "quillmarsh.wayland")

namespace {

// What is used of a seat came with this version.
constexpr quint32 kSeatVersion = 5;

/// A reader that has gone away fails the write; the signal would end the program.
void blockBrokenPipes()
{
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
}

template <typename Listeners>
void removeOf(Listeners &listeners, const void *owner)
{
    std::erase_if(listeners, [owner](const auto &listener) { return listener.owner == owner; });
}

} // namespace

std::shared_ptr<WaylandConnection> WaylandConnection::open()
{
    wl_display *display = wl_display_connect(nullptr);
    if (!display)
        return nullptr;
    const std::shared_ptr<WaylandConnection> connection(
        new WaylandConnection(display), [](WaylandConnection *last) {
            // A thread cannot wait for its own end.
            if (last->m_thread.get_id() == std::this_thread::get_id())
                std::thread([last] { delete last; }).detach();
            else
                delete last;
        });
    // The first tells the globals, the second what they tell when they are bound.
    if (!connection->roundTrip() || !connection->roundTrip())
        return nullptr;
    return connection;
}

WaylandConnection::WaylandConnection(wl_display *display) : m_display(display)
{
    static constexpr wl_registry_listener kListener{
        [](void *self, wl_registry *, uint32_t name, const char *interface, uint32_t version) {
            static_cast<WaylandConnection *>(self)->addGlobal(name, interface, version);
        },
        [](void *self, wl_registry *, uint32_t name) {
            static_cast<WaylandConnection *>(self)->removeGlobal(name);
        }};
    m_registry = wl_display_get_registry(m_display);
    wl_registry_add_listener(m_registry, &kListener, this);
}

WaylandConnection::~WaylandConnection()
{
    m_tasks.end();
    if (m_thread.joinable())
        m_thread.join();
    if (m_seat)
        wl_seat_destroy(m_seat);
    wl_registry_destroy(m_registry);
    wl_display_disconnect(m_display);
}

quint32 WaylandConnection::versionOf(const char *interface) const
{
    const MutexLock lock(m_mutex);
    const auto global =
        std::find_if(m_globals.begin(), m_globals.end(),
                     [&](const Global &offered) { return offered.interface == interface; });
    return global == m_globals.end() ? 0 : global->version;
}

void *WaylandConnection::bindAny(const wl_interface &interface, quint32 maxVersion)
{
    quint32 name = 0;
    quint32 version = 0;
    {
        const MutexLock lock(m_mutex);
        const auto global =
            std::find_if(m_globals.begin(), m_globals.end(), [&](const Global &offered) {
                return offered.interface == interface.name;
            });
        if (global == m_globals.end())
            return nullptr;
        name = global->name;
        version = std::min({global->version, maxVersion, quint32(interface.version)});
    }
    return wl_registry_bind(m_registry, name, &interface, version);
}

void WaylandConnection::addGlobal(quint32 name, const char *interface, quint32 version)
{
    {
        const MutexLock lock(m_mutex);
        m_globals.push_back({name, interface, version});
    }
    chooseSeat();
    // Copies: who is told may register or remove.
    const auto listeners = m_globalListeners;
    for (const auto &listener : listeners)
        listener.function(interface, name, true);
}

void WaylandConnection::removeGlobal(quint32 name)
{
    QByteArray interface;
    {
        const MutexLock lock(m_mutex);
        const auto global =
            std::find_if(m_globals.begin(), m_globals.end(),
                         [name](const Global &offered) { return offered.name == name; });
        if (global == m_globals.end())
            return;
        interface = global->interface;
        m_globals.erase(global);
    }
    if (m_seat && name == m_seatName) {
        wl_seat_destroy(std::exchange(m_seat, nullptr));
        chooseSeat();
    }
    const auto listeners = m_globalListeners;
    for (const auto &listener : listeners)
        listener.function(interface, name, false);
}

void WaylandConnection::chooseSeat()
{
    if (m_seat)
        return;
    {
        const MutexLock lock(m_mutex);
        const auto seat =
            std::find_if(m_globals.begin(), m_globals.end(), [](const Global &offered) {
                return offered.interface == wl_seat_interface.name;
            });
        if (seat == m_globals.end())
            return;
        m_seatName = seat->name;
    }
    m_seat = bind<wl_seat>(wl_seat_interface, kSeatVersion);
}

void WaylandConnection::start()
{
    m_thread = std::thread([this] { loop(); });
}

bool WaylandConnection::run(const Task &task)
{
    if (!m_thread.joinable() || m_thread.get_id() == std::this_thread::get_id()) {
        task();
        return true;
    }
    return m_tasks.run(task);
}

bool WaylandConnection::roundTrip()
{
    return wl_display_roundtrip(m_display) >= 0;
}

void WaylandConnection::watch(int fd, short events, Ready ready)
{
    m_watches.push_back({fd, events, ++m_watchesMade, std::move(ready)});
}

void WaylandConnection::unwatch(int fd)
{
    std::erase_if(m_watches, [fd](const Watch &watched) { return watched.fd == fd; });
}

void WaylandConnection::addDeadlines(const void *owner, KeepDeadlines keep)
{
    m_deadlines.push_back({owner, std::move(keep)});
}

void WaylandConnection::addLossListener(const void *owner, Task lost)
{
    m_lossListeners.push_back({owner, std::move(lost)});
}

void WaylandConnection::addGlobalListener(const void *owner, GlobalListener listener)
{
    m_globalListeners.push_back({owner, std::move(listener)});
}

void WaylandConnection::removeListeners(const void *owner)
{
    const auto remove = [this, owner] {
        removeOf(m_deadlines, owner);
        removeOf(m_lossListeners, owner);
        removeOf(m_globalListeners, owner);
    };
    // Nothing runs on the thread any more once it has dropped its tasks.
    if (!run(remove))
        remove();
}

void WaylandConnection::loop()
{
    const SignalStack signalStack;
    blockBrokenPipes();
    for (;;) {
        m_tasks.doAll();
        // Outside of the reading below: what is due may wait for a round trip itself.
        if (wl_display_dispatch_pending(m_display) < 0)
            break;
        if (m_tasks.isOver())
            return;
        if (!readEvents(keepDeadlines()))
            break;
    }
    qCWarning(lcWayland, "The compositor is gone: the pasteboard is not followed any more");
    const auto listeners = m_lossListeners;
    for (const auto &listener : listeners)
        listener.function();
    m_tasks.drop();
}

std::optional<WaylandConnection::TimePoint> WaylandConnection::keepDeadlines()
{
    std::optional<TimePoint> next;
    const auto listeners = m_deadlines;
    for (const auto &listener : listeners) {
        if (const auto deadline = listener.function(std::chrono::steady_clock::now()))
            next = next ? std::min(*next, *deadline) : deadline;
    }
    return next;
}

/// Sleeps until there is something to do. False when the compositor is gone.
bool WaylandConnection::readEvents(std::optional<TimePoint> deadline)
{
    // Refused while events wait to be handled.
    if (wl_display_prepare_read(m_display) != 0)
        return true;
    // A compositor that takes nothing for a while must not keep us from our pipes.
    const bool isSent = wl_display_flush(m_display) >= 0;
    std::vector<pollfd> waits{
        {wl_display_get_fd(m_display), short(isSent ? POLLIN : POLLIN | POLLOUT), 0},
        {m_tasks.wakeUp(), POLLIN, 0}};
    std::vector<quint64> numbers;
    for (const Watch &watched : m_watches) {
        waits.push_back({watched.fd, watched.events, 0});
        numbers.push_back(watched.number);
    }
    poll(waits.data(), waits.size(),
         ServiceTasks::patience(deadline, std::chrono::steady_clock::now()));
    m_tasks.noticed();
    if (waits.front().revents & (POLLIN | POLLERR | POLLHUP | POLLNVAL)) {
        if (wl_display_read_events(m_display) < 0)
            return false;
    } else {
        wl_display_cancel_read(m_display);
    }
    if (wl_display_dispatch_pending(m_display) < 0)
        return false;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const pollfd &wait = waits[i + 2];
        const auto watched =
            std::find_if(m_watches.begin(), m_watches.end(),
                         [&](const Watch &candidate) { return candidate.number == numbers[i]; });
        if (wait.revents == 0 || watched == m_watches.end())
            continue;
        const Ready ready = watched->ready; // A copy: it may unwatch itself.
        ready(wait.revents);
    }
    return wl_display_get_error(m_display) == 0;
}
