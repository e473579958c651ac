#include "platform/DisplayChoice.h"

namespace {

using Session = DisplayChoice::Session;

QString waylandProblem(const Session &session)
{
    return session.wayland.isEmpty()
               ? QStringLiteral("Quillmarsh needs a Wayland display (WAYLAND_DISPLAY is not set).")
               : QStringLiteral("The Wayland display %1 cannot be reached.")
                     .arg(QString::fromLocal8Bit(session.wayland));
}

/// `lack` is what keeps us from Wayland in a session that has it; null in one that has not.
DisplayChoice x11In(const Session &session, const QString &lack)
{
    if (session.x11.isEmpty() && lack.isNull())
        return {.problem = QStringLiteral("Quillmarsh needs an X11 display (DISPLAY is not set).")};
    if (session.x11.isEmpty())
        return {.problem = QStringLiteral("Quillmarsh cannot work on this Wayland display: %1; and "
                                          "there is no X11 display (DISPLAY is not set). Start "
                                          "Xwayland, or log in to another session.")
                               .arg(lack)};
    if (!session.isX11There())
        return {.problem = QStringLiteral("The X11 display %1 cannot be reached.")
                               .arg(QString::fromLocal8Bit(session.x11))};
    if (session.wayland.isEmpty())
        return {};
    const QString why = lack.isNull() ? QStringLiteral("QUILLMARSH_DISPLAY says so") : lack;
    return {.notice = QStringLiteral("running under Wayland by way of X11, because %1: copies from "
                                     "native Wayland windows may not be recorded, pasting into "
                                     "them may fail, and shortcuts may not work while one is in "
                                     "front")
                          .arg(why)};
}

} // namespace

DisplayChoice DisplayChoice::in(const Session &session)
{
    if (!session.wish.isEmpty() && session.wish != "x11" && session.wish != "wayland")
        return {.problem = QStringLiteral("QUILLMARSH_DISPLAY is \"%1\"; it can be x11 or wayland.")
                               .arg(QString::fromLocal8Bit(session.wish))};
    if (session.wish == "x11" || (session.wish.isEmpty() && session.wayland.isEmpty()))
        return x11In(session, {});
    const std::optional<QString> lack = session.whatWaylandLacks();
    if (!lack)
        return {.display = Display::Wayland};
    if (session.wish.isEmpty())
        return x11In(session, lack->isEmpty()
                                  ? QStringLiteral("no compositor answers at WAYLAND_DISPLAY")
                                  : *lack);
    if (lack->isEmpty())
        return {.problem = waylandProblem(session)};
    return {.display = Display::Wayland, .notice = QStringLiteral("on this display %1").arg(*lack)};
}
