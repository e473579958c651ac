#pragma once

#include <virtual-keyboard-unstable-v1-client-protocol.h>
#include <wlr-data-control-unstable-v1-client-protocol.h>
#include <xdg-shell-client-protocol.h>

#include <wayland-client.h>

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <functional>
#include <stdexcept>
#include <string>

/// What the probe and the bare reference both say to a Wayland compositor, so that they differ in
/// nothing but what is measured.

constexpr const char *kPlainText = "text/plain;charset=utf-8";

/// A connection with what both use of it; what the compositor does not offer is null.
struct WaylandClient
{
    WaylandClient()
    {
        if (!display)
            throw std::runtime_error("no compositor answers");
        wl_registry_add_listener(wl_display_get_registry(display), &kRegistry, this);
        wl_display_roundtrip(display);
        if (!seat || !dataControl || !shell)
            throw std::runtime_error("the compositor offers too little");
        xdg_wm_base_add_listener(shell, &kShell, nullptr);
        device = zwlr_data_control_manager_v1_get_data_device(dataControl, seat);
        keyboard = wl_seat_get_keyboard(seat);
    }
    ~WaylandClient() { wl_display_disconnect(display); }
    WaylandClient(const WaylandClient &) = delete;
    WaylandClient &operator=(const WaylandClient &) = delete;

    wl_display *display = wl_display_connect(nullptr);
    wl_compositor *compositor = nullptr;
    wl_shm *memory = nullptr;
    wl_seat *seat = nullptr;
    wl_keyboard *keyboard = nullptr;
    wl_data_device_manager *dataDevices = nullptr;
    xdg_wm_base *shell = nullptr;
    zwlr_data_control_manager_v1 *dataControl = nullptr;
    zwlr_data_control_device_v1 *device = nullptr;
    zwp_virtual_keyboard_manager_v1 *virtualKeyboards = nullptr;

private:
    static constexpr xdg_wm_base_listener kShell = {
        [](void *, xdg_wm_base *shell, uint32_t serial) { xdg_wm_base_pong(shell, serial); }};
    static constexpr wl_registry_listener kRegistry = {
        [](void *data, wl_registry *registry, uint32_t name, const char *interface,
           uint32_t offered) {
            auto *self = static_cast<WaylandClient *>(data);
            const auto bind = [&](auto &global, const wl_interface &wanted, uint32_t newest) {
                if (std::strcmp(interface, wanted.name) == 0)
                    global = static_cast<std::remove_reference_t<decltype(global)>>(
                        wl_registry_bind(registry, name, &wanted, std::min(offered, newest)));
            };
            bind(self->compositor, wl_compositor_interface, 4);
            bind(self->memory, wl_shm_interface, 1);
            bind(self->seat, wl_seat_interface, 1);
            bind(self->dataDevices, wl_data_device_manager_interface, 1);
            bind(self->shell, xdg_wm_base_interface, 1);
            bind(self->dataControl, zwlr_data_control_manager_v1_interface, 2);
            bind(self->virtualKeyboards, zwp_virtual_keyboard_manager_v1_interface, 1);
        },
        [](void *, wl_registry *, uint32_t) {}};
};

/// A window of one size that is filled by rows of a colour, as a list of clips would be.
class BareWindow
{
public:
    static constexpr int32_t kWidth = 780;
    static constexpr int32_t kHeight = 486;
    static constexpr int32_t kRow = 22;

    BareWindow(const WaylandClient &client, std::string title)
        : m_client(client), m_title(std::move(title))
    {
        constexpr size_t kSize = size_t{kWidth} * kHeight * 4;
        const int file = memfd_create("window", MFD_CLOEXEC);
        if (ftruncate(file, kSize) != 0)
            throw std::runtime_error("no memory for a window");
        m_pixels = static_cast<uint32_t *>(
            mmap(nullptr, kSize, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0));
        wl_shm_pool *pool = wl_shm_create_pool(client.memory, file, kSize);
        m_buffer =
            wl_shm_pool_create_buffer(pool, 0, kWidth, kHeight, kWidth * 4, WL_SHM_FORMAT_XRGB8888);
        wl_shm_pool_destroy(pool);
        close(file);
    }

    bool isShown() const { return m_surface; }

    void show()
    {
        m_surface = wl_compositor_create_surface(m_client.compositor);
        m_shellSurface = xdg_wm_base_get_xdg_surface(m_client.shell, m_surface);
        xdg_surface_add_listener(m_shellSurface, &kSurface, this);
        m_toplevel = xdg_surface_get_toplevel(m_shellSurface);
        xdg_toplevel_add_listener(m_toplevel, &kToplevel, this);
        xdg_toplevel_set_title(m_toplevel, m_title.c_str());
        xdg_toplevel_set_app_id(m_toplevel, m_title.c_str());
        wl_surface_commit(m_surface);
    }
    void hide()
    {
        xdg_toplevel_destroy(m_toplevel);
        xdg_surface_destroy(m_shellSurface);
        wl_surface_destroy(m_surface);
        m_surface = nullptr;
    }
    /// Fills the rows and shows them.
    void paint(uint32_t color)
    {
        for (int32_t y = 0; y < kHeight; ++y)
            std::fill_n(m_pixels + ptrdiff_t{y} * kWidth, kWidth,
                        y / kRow % 2 ? color : color ^ 0x101010U);
        wl_surface_attach(m_surface, m_buffer, 0, 0);
        wl_surface_damage(m_surface, 0, 0, kWidth, kHeight);
        wl_surface_commit(m_surface);
    }

private:
    static constexpr xdg_surface_listener kSurface = {
        [](void *data, xdg_surface *surface, uint32_t serial) {
            xdg_surface_ack_configure(surface, serial);
            static_cast<BareWindow *>(data)->paint(0xF0F0F0U);
        }};
    static constexpr xdg_toplevel_listener kToplevel = {
        [](void *, xdg_toplevel *, int32_t, int32_t, wl_array *) {}, [](void *, xdg_toplevel *) {},
        nullptr, nullptr};

    const WaylandClient &m_client;
    std::string m_title;
    wl_surface *m_surface = nullptr;
    xdg_surface *m_shellSurface = nullptr;
    xdg_toplevel *m_toplevel = nullptr;
    wl_buffer *m_buffer = nullptr;
    uint32_t *m_pixels = nullptr;
};
