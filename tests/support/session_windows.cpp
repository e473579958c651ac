#include "session_windows.h"

#include <wayland-client.h>

namespace {

uint32_t numberOf(zwlr_foreign_toplevel_handle_v1 *handle)
{
    return wl_proxy_get_id(reinterpret_cast<wl_proxy *>(handle));
}

bool holdsActivated(const wl_array *states)
{
    const auto *state = static_cast<const uint32_t *>(states->data);
    for (size_t i = 0; i < states->size / sizeof *state; ++i) {
        if (state[i] == ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_ACTIVATED)
            return true;
    }
    return false;
}

} // namespace

const zwlr_foreign_toplevel_handle_v1_listener Windows::kWindow = {
    [](void *data, zwlr_foreign_toplevel_handle_v1 *handle, const char *title) {
        static_cast<Windows *>(data)->m_windows[handle].title = title;
    },
    [](void *data, zwlr_foreign_toplevel_handle_v1 *handle, const char *application) {
        static_cast<Windows *>(data)->m_windows[handle].application = application;
    },
    [](void *, zwlr_foreign_toplevel_handle_v1 *, wl_output *) {},
    [](void *, zwlr_foreign_toplevel_handle_v1 *, wl_output *) {},
    [](void *data, zwlr_foreign_toplevel_handle_v1 *handle, wl_array *states) {
        static_cast<Windows *>(data)->m_windows[handle].isActive = holdsActivated(states);
    },
    [](void *, zwlr_foreign_toplevel_handle_v1 *) {},
    [](void *data, zwlr_foreign_toplevel_handle_v1 *handle) {
        static_cast<Windows *>(data)->m_windows.erase(handle);
        zwlr_foreign_toplevel_handle_v1_destroy(handle);
    },
    [](void *, zwlr_foreign_toplevel_handle_v1 *, zwlr_foreign_toplevel_handle_v1 *) {},
};

const zwlr_foreign_toplevel_manager_v1_listener Windows::kManager = {
    [](void *data, zwlr_foreign_toplevel_manager_v1 *, zwlr_foreign_toplevel_handle_v1 *handle) {
        zwlr_foreign_toplevel_handle_v1_add_listener(handle, &kWindow, data);
    },
    [](void *, zwlr_foreign_toplevel_manager_v1 *) {},
};

void Windows::listen(zwlr_foreign_toplevel_manager_v1 *manager)
{
    zwlr_foreign_toplevel_manager_v1_add_listener(manager, &kManager, this);
}

std::string Windows::told() const
{
    std::string lines;
    for (const auto &[handle, window] : m_windows)
        lines += std::to_string(numberOf(handle)) + '\t' + (window.isActive ? '1' : '0') + '\t' +
                 window.application + '\t' + window.title + '\n';
    return lines;
}

void Windows::activate(uint32_t number, wl_seat *seat) const
{
    for (const auto &[handle, window] : m_windows) {
        if (numberOf(handle) == number)
            zwlr_foreign_toplevel_handle_v1_activate(handle, seat);
    }
}
