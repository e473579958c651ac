#include "platform/wayland/Toplevels.h"

#include "platform/ApplicationNames.h"

#include <unistd.h>

#include <algorithm>
#include <atomic>

namespace {

/// A window that insists on being in front has a reason.
constexpr int kMaxRequests = 3;

} // namespace

Toplevels::Toplevels(const QString &ownApplicationId) : m_ownApplicationId(ownApplicationId) {}

std::optional<Toplevels::Window> Toplevels::front() const
{
    const MutexLock lock(m_mutex);
    const Known *known = active();
    return known ? std::optional(known->window) : std::nullopt;
}

Toplevels::Id Toplevels::target() const
{
    const MutexLock lock(m_mutex);
    const Id target = m_held.value_or(m_lastForeign);
    const Known *known = find(target);
    return known && !known->window.isMinimized ? target : 0;
}

void Toplevels::holdTarget()
{
    const MutexLock lock(m_mutex);
    m_held = m_lastForeign;
}

void Toplevels::letTargetGo()
{
    const MutexLock lock(m_mutex);
    m_held.reset();
}

bool Toplevels::isTargetHeld() const
{
    const MutexLock lock(m_mutex);
    return m_held.has_value();
}

Toplevels::Id Toplevels::ownWindow(const QString &title) const
{
    const MutexLock lock(m_mutex);
    const Known *known = own(title);
    return known ? known->window.id : 0;
}

void Toplevels::activateOwn(const QString &title, TimePoint deadline)
{
    Id open = 0;
    {
        const MutexLock lock(m_mutex);
        m_wanted = Wanted{title, deadline, m_lastForeign};
        if (const Known *known = own(title)) {
            open = known->window.id;
            ++m_wanted->requests;
        }
    }
    if (open != 0)
        activate(open);
}

void Toplevels::leaveOwn()
{
    const MutexLock lock(m_mutex);
    m_wanted.reset();
}

bool Toplevels::isComingBack(const QString &title) const
{
    const MutexLock lock(m_mutex);
    const Known *front = active();
    return m_wanted && m_wanted->title == title && m_wanted->requests > 0 &&
           std::chrono::steady_clock::now() < m_wanted->deadline && front &&
           front->window.id == m_wanted->rival;
}

bool Toplevels::isOursBehind() const
{
    const MutexLock lock(m_mutex);
    return std::ranges::any_of(m_windows, [this, front = active()](const Known &known) {
        return isOurs(known.window) && !known.window.isMinimized && &known != front;
    });
}

Toplevels::Place Toplevels::awaitFront(Id window, TimePoint deadline) const
{
    const MutexLock lock(m_mutex);
    for (;;) {
        if (!find(window))
            return Place::Gone;
        const Known *front = active();
        if (front && front->window.id == window)
            return Place::InFront;
        if (std::chrono::steady_clock::now() >= deadline)
            return Place::Behind;
        m_changed.wait_until(m_mutex, deadline);
    }
}

QList<WindowIdentity> Toplevels::identities() const
{
    const MutexLock lock(m_mutex);
    QList<WindowIdentity> identities;
    for (const Known &known : m_windows) {
        if (!isOurs(known.window))
            identities.append(identityOf(known.window));
    }
    return identities;
}

bool Toplevels::isOpen(const QString &applicationId) const
{
    const MutexLock lock(m_mutex);
    return std::ranges::any_of(
        m_windows, [&](const Known &known) { return known.window.applicationId == applicationId; });
}

bool Toplevels::isOurs(const Window &window) const
{
    return window.applicationId == m_ownApplicationId ||
           window.processId == static_cast<quint32>(getpid());
}

bool Toplevels::isOwnTitled(const Window &window, const QString &title) const
{
    // The toolkit may add the name of the program to the title, behind a dash.
    const bool hasTitle =
        window.title == title || window.title.startsWith(title + QStringLiteral(" \u2014 "));
    return hasTitle && isOurs(window);
}

Toplevels::Id Toplevels::newId()
{
    static std::atomic<Id> last = 0;
    return ++last;
}

void Toplevels::tell(const Window &window)
{
    Id wanted = 0;
    {
        const MutexLock lock(m_mutex);
        auto known = std::ranges::find(m_windows, window.id,
                                       [](const Known &each) { return each.window.id; });
        if (known == m_windows.end())
            known = m_windows.insert(known, Known());
        const bool comesToFront = window.isActivated && !known->window.isActivated;
        if (comesToFront) {
            known->activation = ++m_activations;
            if (!isOurs(window))
                m_lastForeign = window.id;
        }
        known->window = window;
        wanted = wantedBack(window, comesToFront);
    }
    m_changed.notify_all();
    if (wanted != 0)
        activate(wanted);
}

void Toplevels::tellClosed(Id window)
{
    {
        const MutexLock lock(m_mutex);
        std::erase_if(m_windows,
                      [window](const Known &known) { return known.window.id == window; });
    }
    m_changed.notify_all();
}

void Toplevels::tellNoMore()
{
    {
        const MutexLock lock(m_mutex);
        m_windows.clear();
    }
    m_changed.notify_all();
}

const Toplevels::Known *Toplevels::own(const QString &title) const
{
    const Known *latest = nullptr;
    for (const Known &known : m_windows) {
        if (isOwnTitled(known.window, title) && (!latest || known.activation > latest->activation))
            latest = &known;
    }
    return latest;
}

/// The window of ours that is to be brought to the front after the news; 0 for none.
Toplevels::Id Toplevels::wantedBack(const Window &told, bool comesToFront)
{
    if (!m_wanted)
        return 0;
    if (std::chrono::steady_clock::now() >= m_wanted->deadline) {
        m_wanted.reset();
        return 0;
    }
    const Known *window = own(m_wanted->title);
    if (!window || window->window.isActivated || m_wanted->requests == kMaxRequests)
        return 0;
    const bool isNew = m_wanted->requests == 0 && window->activation == 0;
    const bool isTakenBack = comesToFront && told.id == m_wanted->rival;
    if (!isNew && !isTakenBack)
        return 0;
    ++m_wanted->requests;
    return window->window.id;
}

const Toplevels::Known *Toplevels::find(Id id) const
{
    const auto known =
        std::ranges::find(m_windows, id, [](const Known &each) { return each.window.id; });
    return known == m_windows.end() ? nullptr : &*known;
}

/// Some compositors say for a moment of two windows that they are active.
const Toplevels::Known *Toplevels::active() const
{
    const Known *latest = nullptr;
    for (const Known &known : m_windows) {
        if (known.window.isActivated && (!latest || known.activation > latest->activation))
            latest = &known;
    }
    return latest;
}

WindowIdentity identityOf(const Toplevels::Window &window)
{
    // Its class, too: of a program that comes by way of X the compositor tells that.
    return {window.applicationId, window.applicationId, {}, {}};
}
