#pragma once

#include <wlr-foreign-toplevel-management-unstable-v1-client-protocol.h>

#include <cstdint>
#include <map>
#include <string>

/// The windows that a wlroots compositor tells of, for a test that wants to know which is in front.
class Windows
{
public:
    void listen(zwlr_foreign_toplevel_manager_v1 *manager);

    /// A line each: number, 1 for the one in front else 0, application and title, between tabs.
    std::string told() const;
    /// Gives the window the keyboard; nothing happens when there is none of that number.
    void activate(uint32_t number, wl_seat *seat) const;

private:
    struct Window
    {
        std::string application;
        std::string title;
        bool isActive = false;
    };

    static const zwlr_foreign_toplevel_manager_v1_listener kManager;
    static const zwlr_foreign_toplevel_handle_v1_listener kWindow;

    std::map<zwlr_foreign_toplevel_handle_v1 *, Window> m_windows;
};
