#include "platform/wayland/FakeDesktop.h"

#include <fake-input-server-protocol.h>
#include <plasma-window-management-server-protocol.h>
#include <virtual-keyboard-unstable-v1-server-protocol.h>
#include <wlr-foreign-toplevel-management-unstable-v1-server-protocol.h>

#include <unistd.h>

#include <algorithm>
#include <utility>

namespace {

constexpr int kPlasmaVersion = 16;
constexpr int kFakeInputVersion = 4;
constexpr int kToplevelVersion = 3;

FakeDesktop &of(wl_resource *resource)
{
    return *static_cast<FakeDesktop *>(wl_resource_get_user_data(resource));
}

void destroy(wl_client *, wl_resource *resource)
{
    wl_resource_destroy(resource);
}

} // namespace

/// What clients ask. Of interfaces with many requests only those are here that we make.
struct FakeDesktop::Requests
{
    static void note(wl_resource *resource, const QString &what)
    {
        of(resource).m_requests.append(what);
    }

    static void noteKey(wl_resource *keyboard, uint32_t key, bool isPress)
    {
        note(keyboard, (isPress ? u'+' : u'-') + QString::number(key));
    }

    static wl_resource *create(wl_client *client, const wl_interface *interface, int version,
                               uint32_t id, const void *requests, void *desktop)
    {
        wl_resource *resource = wl_resource_create(client, interface, version, id);
        wl_resource_set_implementation(resource, requests, desktop, [](wl_resource *ended) {
            std::erase(of(ended).m_managers, ended);
            std::erase_if(of(ended).m_views,
                          [ended](const View &view) { return view.resource == ended; });
        });
        return resource;
    }

    static void bindVirtualKeyboards(wl_client *client, void *desktop, uint32_t, uint32_t id)
    {
        static struct zwp_virtual_keyboard_v1_interface keyboard = {};
        keyboard.keymap = [](wl_client *, wl_resource *, uint32_t, int32_t fd, uint32_t) {
            ::close(fd);
        };
        keyboard.key = [](wl_client *, wl_resource *self, uint32_t, uint32_t key, uint32_t state) {
            noteKey(self, key, state != 0);
        };
        keyboard.modifiers = [](wl_client *, wl_resource *self, uint32_t held, uint32_t latched,
                                uint32_t locked, uint32_t group) {
            note(self, u'm' + QString::number(held + latched + locked + group));
        };
        keyboard.destroy = &destroy;
        static struct zwp_virtual_keyboard_manager_v1_interface manager = {};
        manager.create_virtual_keyboard = [](wl_client *client_, wl_resource *self, wl_resource *,
                                             uint32_t keyboardId) {
            create(client_, &zwp_virtual_keyboard_v1_interface, 1, keyboardId, &keyboard,
                   &of(self));
        };
        create(client, &zwp_virtual_keyboard_manager_v1_interface, 1, id, &manager, desktop);
    }

    static void bindFakeInput(wl_client *client, void *desktop, uint32_t, uint32_t id)
    {
        static struct org_kde_kwin_fake_input_interface input = {};
        input.authenticate = [](wl_client *, wl_resource *, const char *, const char *) {};
        input.keyboard_key = [](wl_client *, wl_resource *self, uint32_t key, uint32_t state) {
            noteKey(self, key, state != 0);
        };
        create(client, &org_kde_kwin_fake_input_interface, kFakeInputVersion, id, &input, desktop);
    }

    static void bindToplevels(wl_client *client, void *desktop, uint32_t, uint32_t id)
    {
        static struct zwlr_foreign_toplevel_manager_v1_interface manager = {};
        manager.stop = [](wl_client *, wl_resource *self) {
            std::erase(of(self).m_managers, self);
        };
        addManager(create(client, &zwlr_foreign_toplevel_manager_v1_interface, kToplevelVersion, id,
                          &manager, desktop));
    }

    static void bindPlasmaWindows(wl_client *client, void *desktop, uint32_t, uint32_t id)
    {
        static struct org_kde_plasma_window_management_interface management = {};
        management.get_window_by_uuid = [](wl_client *client_, wl_resource *self, uint32_t windowId,
                                           const char *uuid) {
            static struct org_kde_plasma_window_interface requests = {};
            requests.destroy = &destroy;
            requests.set_state = [](wl_client *, wl_resource *window, uint32_t, uint32_t) {
                of(window).handleActivate(window);
            };
            wl_resource *view = create(client_, &org_kde_plasma_window_interface, kPlasmaVersion,
                                       windowId, &requests, &of(self));
            of(self).m_views.push_back({view, uuid});
            if (const Window *window = of(self).find(uuid)) {
                of(self).describe(view, *window);
                org_kde_plasma_window_send_initial_state(view);
            }
        };
        addManager(create(client, &org_kde_plasma_window_management_interface, kPlasmaVersion, id,
                          &management, desktop));
    }

    static void addManager(wl_resource *manager)
    {
        of(manager).m_managers.push_back(manager);
        for (const Window &window : of(manager).m_windows)
            of(manager).addView(manager, window);
    }
};

FakeDesktop::FakeDesktop(Kind kind) : m_kind(kind)
{
    offer();
}

FakeDesktop::~FakeDesktop()
{
    // What programs have refers to this object.
    run([this] { wl_display_destroy_clients(display()); });
}

void FakeDesktop::show(const char *application, bool isActive, bool isMinimized)
{
    run([&] {
        Window *window = find(application);
        const bool isNew = !window;
        if (isNew)
            window = &m_windows.emplace_back(Window{application});
        window->isActive = isActive;
        window->isMinimized = isMinimized;
        if (!isNew) {
            tell(*window);
            return;
        }
        for (wl_resource *manager : m_managers)
            addView(manager, *window);
    });
}

void FakeDesktop::close(const char *application)
{
    run([&] {
        std::erase_if(m_windows,
                      [&](const Window &window) { return window.application == application; });
        for (const View &view : m_views) {
            if (view.application != application)
                continue;
            if (m_kind == Kind::Plasma)
                org_kde_plasma_window_send_unmapped(view.resource);
            else
                zwlr_foreign_toplevel_handle_v1_send_closed(view.resource);
        }
    });
}

void FakeDesktop::offer()
{
    run([this] {
        const auto add = [this](const wl_interface &interface, int version,
                                wl_global_bind_func_t bind) {
            m_globals.push_back(wl_global_create(display(), &interface, version, this, bind));
        };
        if (m_kind == Kind::Plasma) {
            add(org_kde_plasma_window_management_interface, kPlasmaVersion,
                &Requests::bindPlasmaWindows);
            add(org_kde_kwin_fake_input_interface, kFakeInputVersion, &Requests::bindFakeInput);
        } else {
            add(zwlr_foreign_toplevel_manager_v1_interface, kToplevelVersion,
                &Requests::bindToplevels);
            add(zwp_virtual_keyboard_manager_v1_interface, 1, &Requests::bindVirtualKeyboards);
        }
    });
}

void FakeDesktop::withdraw()
{
    run([this] {
        for (wl_global *global : std::exchange(m_globals, {}))
            wl_global_destroy(global);
    });
}

void FakeDesktop::finish()
{
    run([this] {
        for (wl_resource *manager : std::exchange(m_managers, {}))
            zwlr_foreign_toplevel_manager_v1_send_finished(manager);
    });
}

void FakeDesktop::setObliging(bool isObliging)
{
    run([&] { m_isObliging = isObliging; });
}

QStringList FakeDesktop::takeRequests()
{
    QStringList requests;
    run([&] { requests.swap(m_requests); });
    return requests;
}

FakeDesktop::Window *FakeDesktop::find(const QByteArray &application)
{
    const auto window = std::ranges::find(m_windows, application, &Window::application);
    return window == m_windows.end() ? nullptr : &*window;
}

void FakeDesktop::tell(const Window &window)
{
    for (const View &view : m_views) {
        if (view.application == window.application)
            describe(view.resource, window);
    }
}

void FakeDesktop::describe(wl_resource *view, const Window &window) const
{
    const char *name = window.application.constData();
    if (m_kind == Kind::Plasma) {
        org_kde_plasma_window_send_app_id_changed(view, name);
        org_kde_plasma_window_send_title_changed(view, name);
        uint32_t states = 0;
        if (window.isActive)
            states |= ORG_KDE_PLASMA_WINDOW_MANAGEMENT_STATE_ACTIVE;
        if (window.isMinimized)
            states |= ORG_KDE_PLASMA_WINDOW_MANAGEMENT_STATE_MINIMIZED;
        org_kde_plasma_window_send_state_changed(view, states);
        return;
    }
    zwlr_foreign_toplevel_handle_v1_send_app_id(view, name);
    zwlr_foreign_toplevel_handle_v1_send_title(view, name);
    wl_array states;
    wl_array_init(&states);
    const auto add = [&states](uint32_t state) {
        *static_cast<uint32_t *>(wl_array_add(&states, sizeof state)) = state;
    };
    if (window.isActive)
        add(ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_ACTIVATED);
    if (window.isMinimized)
        add(ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_MINIMIZED);
    zwlr_foreign_toplevel_handle_v1_send_state(view, &states);
    wl_array_release(&states);
    zwlr_foreign_toplevel_handle_v1_send_done(view);
}

void FakeDesktop::addView(wl_resource *manager, const Window &window)
{
    if (m_kind == Kind::Plasma) {
        // They ask for it by that.
        org_kde_plasma_window_management_send_window_with_uuid(manager, 0,
                                                               window.application.constData());
        return;
    }
    static struct zwlr_foreign_toplevel_handle_v1_interface requests = {};
    requests.destroy = &destroy;
    requests.activate = [](wl_client *, wl_resource *view, wl_resource *) {
        of(view).handleActivate(view);
    };
    wl_resource *view = Requests::create(wl_resource_get_client(manager),
                                         &zwlr_foreign_toplevel_handle_v1_interface,
                                         kToplevelVersion, 0, &requests, this);
    m_views.push_back({view, window.application});
    zwlr_foreign_toplevel_manager_v1_send_toplevel(manager, view);
    describe(view, window);
}

void FakeDesktop::handleActivate(wl_resource *view)
{
    const auto asked = std::ranges::find(m_views, view, &View::resource);
    m_requests.append(QStringLiteral("activate ") + QString::fromUtf8(asked->application));
    Window *window = m_isObliging ? find(asked->application) : nullptr;
    if (!window)
        return;
    for (Window &each : m_windows) {
        each.isActive = &each == window;
        tell(each);
    }
}
