#include "platform/kde/PlasmaWindows.h"

#include "platform/wayland/WaylandConnection.h"

#include <plasma-window-management-client-protocol.h>

#include <algorithm>
#include <utility>

namespace {

/// The last one whose events are all listened to below.
constexpr quint32 kVersion = 16;

constexpr quint32 kActive = ORG_KDE_PLASMA_WINDOW_MANAGEMENT_STATE_ACTIVE;
constexpr quint32 kMinimized = ORG_KDE_PLASMA_WINDOW_MANAGEMENT_STATE_MINIMIZED;

} // namespace

/// Filled by name, because newer descriptions of the protocol have more events; and whole up to
/// our version, because an event without a listener ends the program.
struct PlasmaWindows::Listeners
{
    using Proxy = org_kde_plasma_window;

    static Handle &of(void *handle) { return *static_cast<Handle *>(handle); }

    static org_kde_plasma_window_management_listener management()
    {
        using Management = org_kde_plasma_window_management;
        org_kde_plasma_window_management_listener listener = {};
        listener.show_desktop_changed = [](void *, Management *, uint32_t) {};
        listener.window = [](void *, Management *, uint32_t) {};
        listener.stacking_order_changed = [](void *, Management *, wl_array *) {};
        listener.stacking_order_uuid_changed = [](void *, Management *, const char *) {};
        listener.window_with_uuid = [](void *self, Management *, uint32_t, const char *uuid) {
            static_cast<PlasmaWindows *>(self)->add(uuid);
        };
        return listener;
    }

    static org_kde_plasma_window_listener window()
    {
        org_kde_plasma_window_listener listener = {};
        listener.title_changed = [](void *handle, Proxy *, const char *title) {
            of(handle).window.title = QString::fromUtf8(title);
            of(handle).changed();
        };
        listener.app_id_changed = [](void *handle, Proxy *, const char *applicationId) {
            of(handle).window.applicationId = QString::fromUtf8(applicationId);
            of(handle).changed();
        };
        listener.state_changed = [](void *handle, Proxy *, uint32_t state) {
            of(handle).window.isActivated = state & kActive;
            of(handle).window.isMinimized = state & kMinimized;
            of(handle).changed();
        };
        listener.pid_changed = [](void *handle, Proxy *, uint32_t processId) {
            of(handle).window.processId = processId;
            of(handle).changed();
        };
        listener.initial_state = [](void *handle, Proxy *) {
            of(handle).isDescribed = true;
            of(handle).changed();
        };
        listener.unmapped = [](void *handle, Proxy *) { of(handle).windows.remove(of(handle)); };
        listener.virtual_desktop_changed = [](void *, Proxy *, int32_t) {};
        listener.themed_icon_name_changed = [](void *, Proxy *, const char *) {};
        listener.parent_window = [](void *, Proxy *, Proxy *) {};
        listener.geometry = [](void *, Proxy *, int32_t, int32_t, uint32_t, uint32_t) {};
        listener.icon_changed = [](void *, Proxy *) {};
        listener.virtual_desktop_entered = [](void *, Proxy *, const char *) {};
        listener.virtual_desktop_left = [](void *, Proxy *, const char *) {};
        listener.application_menu = [](void *, Proxy *, const char *, const char *) {};
        listener.activity_entered = [](void *, Proxy *, const char *) {};
        listener.activity_left = [](void *, Proxy *, const char *) {};
        listener.resource_name_changed = [](void *, Proxy *, const char *) {};
        return listener;
    }
};

void PlasmaWindows::Handle::changed() const
{
    if (isDescribed)
        windows.tell(window);
}

PlasmaWindows::PlasmaWindows(std::shared_ptr<WaylandConnection> connection,
                             const QString &ownApplicationId)
    : Toplevels(ownApplicationId), m_connection(std::move(connection))
{
    bind();
    m_connection->addGlobalListener(this, [this](const QByteArray &interface, quint32, bool) {
        if (interface == kInterface)
            bind();
    });
    m_connection->addLossListener(this, [this] { tellNoMore(); });
}

PlasmaWindows::~PlasmaWindows()
{
    m_connection->removeListeners(this);
    const auto end = [this] { unbind(); };
    // Nothing runs on the thread of a connection that is lost.
    if (!m_connection->run(end))
        end();
}

void PlasmaWindows::activate(Id window)
{
    m_connection->post([this, window] {
        const auto handle =
            std::ranges::find(m_handles, window, [](const auto &each) { return each->window.id; });
        if (handle != m_handles.end())
            org_kde_plasma_window_set_state((*handle)->proxy, kActive, kActive);
    });
}

/// Binds what is offered now, unless it is bound.
void PlasmaWindows::bind()
{
    static const org_kde_plasma_window_management_listener kListener = Listeners::management();
    const bool isOffered = m_connection->versionOf(kInterface) >= kLeastVersion;
    if (!isOffered)
        unbind();
    if (!isOffered || m_management)
        return;
    m_management = m_connection->bind<org_kde_plasma_window_management>(
        org_kde_plasma_window_management_interface, kVersion);
    org_kde_plasma_window_management_add_listener(m_management, &kListener, this);
}

void PlasmaWindows::unbind()
{
    tellNoMore();
    for (const auto &handle : m_handles)
        org_kde_plasma_window_destroy(handle->proxy);
    m_handles.clear();
    // On our side alone, whatever newer descriptions of the protocol have for it.
    if (m_management)
        wl_proxy_destroy(reinterpret_cast<wl_proxy *>(std::exchange(m_management, nullptr)));
}

void PlasmaWindows::add(const char *uuid)
{
    static const org_kde_plasma_window_listener kListener = Listeners::window();
    org_kde_plasma_window *proxy =
        org_kde_plasma_window_management_get_window_by_uuid(m_management, uuid);
    m_handles.push_back(std::make_unique<Handle>(Handle{*this, proxy}));
    m_handles.back()->window.id = newId();
    org_kde_plasma_window_add_listener(proxy, &kListener, m_handles.back().get());
}

void PlasmaWindows::remove(const Handle &handle)
{
    tellClosed(handle.window.id);
    org_kde_plasma_window_destroy(handle.proxy);
    std::erase_if(m_handles, [&](const auto &each) { return each.get() == &handle; });
}
