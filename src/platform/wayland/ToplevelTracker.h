#pragma once

#include "platform/wayland/Toplevels.h"

#include <memory>
#include <vector>

class WaylandConnection;
struct zwlr_foreign_toplevel_handle_v1;
struct zwlr_foreign_toplevel_manager_v1;

/// The windows by the protocol that task bars of wlroots compositors use.
class ToplevelTracker : public Toplevels
{
public:
    /// To be made before the connection is started, or on its thread. Where the compositor does
    /// not offer the protocol there are no windows; when it offers it later, they come then.
    ToplevelTracker(std::shared_ptr<WaylandConnection> connection, const QString &ownApplicationId);
    ~ToplevelTracker() override;

    // ^Toplevels
    void activate(Id window) override;

private:
    /// A window as it is told of piece by piece, until it is said to be complete.
    struct Handle
    {
        ToplevelTracker &tracker;
        zwlr_foreign_toplevel_handle_v1 *proxy;
        Window window;
    };
    struct Listeners;

    void bind();
    void unbind();
    void forget();
    void add(zwlr_foreign_toplevel_handle_v1 *proxy);
    void remove(const Handle &handle);

    const std::shared_ptr<WaylandConnection> m_connection;
    zwlr_foreign_toplevel_manager_v1 *m_manager = nullptr;
    std::vector<std::unique_ptr<Handle>> m_handles;
};
