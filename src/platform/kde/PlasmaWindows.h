#pragma once

#include "platform/wayland/Toplevels.h"

#include <memory>
#include <vector>

class WaylandConnection;
struct org_kde_plasma_window;
struct org_kde_plasma_window_management;

/// The windows by the protocol that Plasma's task bar uses. KWin offers it to programs whose
/// desktop entry asks for it.
class PlasmaWindows : public Toplevels
{
public:
    /// Its name among the globals, and the version from which on it is used here.
    static constexpr const char *kInterface = "org_kde_plasma_window_management";
    static constexpr quint32 kLeastVersion = 13;

    /// To be made before the connection is started, or on its thread. Where the compositor does
    /// not offer the protocol there are no windows.
    PlasmaWindows(std::shared_ptr<WaylandConnection> connection, const QString &ownApplicationId);
    ~PlasmaWindows() override;

    // ^Toplevels
    void activate(Id window) override;

private:
    struct Listeners;
    /// A window, of which nothing is told on until it has been described once.
    struct Handle
    {
        PlasmaWindows &windows;
        org_kde_plasma_window *proxy;
        Window window = {};
        bool isDescribed = false;

        void changed() const;
    };

    void bind();
    void unbind();
    void add(const char *uuid);
    void remove(const Handle &handle);

    const std::shared_ptr<WaylandConnection> m_connection;
    org_kde_plasma_window_management *m_management = nullptr;
    std::vector<std::unique_ptr<Handle>> m_handles;
};
