#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <optional>

/// Which display system the program works on, settled from what the session offers. Nothing is
/// asked of a display that is not going to be used, an X server least of all where there is a
/// compositor that has everything.
struct DisplayChoice
{
    enum class Display { X11, Wayland };

    struct Session
    {
        QByteArray wish;    ///< QUILLMARSH_DISPLAY; empty for none.
        QByteArray x11;     ///< DISPLAY; empty when it is not set.
        QByteArray wayland; ///< WAYLAND_DISPLAY, likewise.
        /// Whether a server answers at `x11`.
        std::function<bool()> isX11There;
        /// What the compositor withholds that we cannot do without, as the second half of a
        /// sentence; absent when it has all. Empty when no compositor answers.
        std::function<std::optional<QString>()> whatWaylandLacks;
    };

    Display display = Display::X11;
    QString problem{}; ///< Why there is no display to work on; empty when there is one.
    QString notice{};  ///< For the log: what will not work on it; empty when all does.

    static DisplayChoice in(const Session &session);
};
