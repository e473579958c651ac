#include "platform/wayland/ToplevelTracker.h"

#include "platform/wayland/WaylandConnection.h"

#include <QLoggingCategory>

#include <wlr-foreign-toplevel-management-unstable-v1-client-protocol.h>

#include <algorithm>
#include <span>
#include <utility>

namespace {

Q_LOGGING_CATEGORY(lcWindows, "quillmarsh.windows", QtInfoMsg)

constexpr quint32 kVersion = 3;

bool contains(const wl_array &states, quint32 state)
{
    const std::span all(static_cast<const quint32 *>(states.data), states.size / sizeof(quint32));
    return std::ranges::find(all, state) != all.end();
}

} // namespace

struct ToplevelTracker::Listeners
{
    static Handle &of(void *handle) { return *static_cast<Handle *>(handle); }

    static constexpr zwlr_foreign_toplevel_manager_v1_listener kManager{
        .toplevel =
            [](void *self, zwlr_foreign_toplevel_manager_v1 *,
               zwlr_foreign_toplevel_handle_v1 *proxy) {
                static_cast<ToplevelTracker *>(self)->add(proxy);
            },
        .finished =
            [](void *self, zwlr_foreign_toplevel_manager_v1 *) {
                qCWarning(lcWindows, "The compositor tells of windows no more");
                static_cast<ToplevelTracker *>(self)->forget();
            }};

    static constexpr zwlr_foreign_toplevel_handle_v1_listener kHandle{
        .title = [](void *handle, zwlr_foreign_toplevel_handle_v1 *,
                    const char *title) { of(handle).window.title = QString::fromUtf8(title); },
        .app_id =
            [](void *handle, zwlr_foreign_toplevel_handle_v1 *, const char *applicationId) {
                of(handle).window.applicationId = QString::fromUtf8(applicationId);
            },
        .output_enter = [](void *, zwlr_foreign_toplevel_handle_v1 *, wl_output *) {},
        .output_leave = [](void *, zwlr_foreign_toplevel_handle_v1 *, wl_output *) {},
        .state =
            [](void *handle, zwlr_foreign_toplevel_handle_v1 *, wl_array *states) {
                Window &window = of(handle).window;
                window.isActivated =
                    contains(*states, ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_ACTIVATED);
                window.isMinimized =
                    contains(*states, ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_MINIMIZED);
            },
        .done =
            [](void *handle, zwlr_foreign_toplevel_handle_v1 *) {
                of(handle).tracker.tell(of(handle).window);
            },
        .closed = [](void *handle,
                     zwlr_foreign_toplevel_handle_v1 *) { of(handle).tracker.remove(of(handle)); },
        .parent = [](void *, zwlr_foreign_toplevel_handle_v1 *,
                     zwlr_foreign_toplevel_handle_v1 *) {}};
};

ToplevelTracker::ToplevelTracker(std::shared_ptr<WaylandConnection> connection,
                                 const QString &ownApplicationId)
    : Toplevels(ownApplicationId), m_connection(std::move(connection))
{
    bind();
    m_connection->addGlobalListener(this, [this](const QByteArray &interface, quint32, bool) {
        if (interface == zwlr_foreign_toplevel_manager_v1_interface.name)
            bind();
    });
    m_connection->addLossListener(this, [this] { tellNoMore(); });
}

ToplevelTracker::~ToplevelTracker()
{
    m_connection->removeListeners(this);
    const auto end = [this] { unbind(); };
    // Nothing runs on the thread of a connection that is lost.
    if (!m_connection->run(end))
        end();
}

void ToplevelTracker::activate(Id window)
{
    m_connection->post([this, window] {
        const auto handle =
            std::ranges::find(m_handles, window, [](const auto &each) { return each->window.id; });
        if (handle != m_handles.end() && m_connection->seat())
            zwlr_foreign_toplevel_handle_v1_activate((*handle)->proxy, m_connection->seat());
    });
}

/// Binds what is offered now, unless it is bound.
void ToplevelTracker::bind()
{
    const bool isOffered =
        m_connection->versionOf(zwlr_foreign_toplevel_manager_v1_interface.name) > 0;
    if (!isOffered)
        unbind();
    if (!isOffered || m_manager)
        return;
    m_manager = m_connection->bind<zwlr_foreign_toplevel_manager_v1>(
        zwlr_foreign_toplevel_manager_v1_interface, kVersion);
    zwlr_foreign_toplevel_manager_v1_add_listener(m_manager, &Listeners::kManager, this);
}

void ToplevelTracker::unbind()
{
    if (m_manager)
        zwlr_foreign_toplevel_manager_v1_stop(m_manager);
    forget();
}

void ToplevelTracker::forget()
{
    tellNoMore();
    for (const auto &handle : m_handles)
        zwlr_foreign_toplevel_handle_v1_destroy(handle->proxy);
    m_handles.clear();
    if (m_manager)
        zwlr_foreign_toplevel_manager_v1_destroy(std::exchange(m_manager, nullptr));
}

void ToplevelTracker::add(zwlr_foreign_toplevel_handle_v1 *proxy)
{
    m_handles.push_back(std::make_unique<Handle>(Handle{*this, proxy, {}}));
    m_handles.back()->window.id = newId();
    zwlr_foreign_toplevel_handle_v1_add_listener(proxy, &Listeners::kHandle,
                                                 m_handles.back().get());
}

void ToplevelTracker::remove(const Handle &handle)
{
    tellClosed(handle.window.id);
    zwlr_foreign_toplevel_handle_v1_destroy(handle.proxy);
    std::erase_if(m_handles, [&](const auto &each) { return each.get() == &handle; });
}
