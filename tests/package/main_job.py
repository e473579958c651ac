"""Copy, open, find, paste and leave, with the installed program on a machine that has little else."""

import os
import pathlib

import dbus
import dbus.bus
from desktop import Desktop
from quillmarsh import BUNDLE, Quillmarsh, contents, copy

PROGRAM = "/usr/bin/quillmarsh"
OWN_PLACES = {f".config/{BUNDLE}.plist", f".local/share/{BUNDLE}"}


def step(told):
    print("  " + told, flush=True)


def is_terminal_in_front(desktop):
    return "XTerm" in desktop.ask("xprop", "-id", desktop.active(), "WM_CLASS")


def paste_into_terminal(desktop, app):
    target = os.path.join(desktop.home, "typed")
    desktop.start(["xterm", "-fa", "monospace", "-e", f"cat > {target}"], quiet=True)
    desktop.wait_for(lambda: os.path.exists(target) and is_terminal_in_front(desktop),
                     "xterm in front")
    desktop.run([PROGRAM, "launch"])
    app.wait_until_active(app.window())
    app.type("heron")
    app.key("Return")
    app.wait_until_hidden()
    app.key("Return", "ctrl+d")
    desktop.wait_for(lambda: contents(target) == "a heron in the reeds\n", "the pasted clip")
    os.remove(target)


def activate(desktop):
    """As a launcher does; the bus starts the program."""
    bus = dbus.bus.BusConnection(desktop.environment["DBUS_SESSION_BUS_ADDRESS"])
    bus.get_object(BUNDLE, "/org/quillmarsh/Quillmarsh", introspect=False).ActivateAction(
        "preferences", dbus.Array([], signature="v"), dbus.Dictionary({}, signature="sv"),
        dbus_interface="org.freedesktop.Application")
    desktop.wait_for(lambda: desktop.ask("xdotool", "search", "--onlyvisible", "--name",
                                         "^Preferences$"), "the preferences")


def written(home):
    """Files and folders that the program may have made, less the display's and the bus's own."""
    found = set()
    for path in pathlib.Path(home).rglob("*"):
        place = str(path.relative_to(home))
        if path.is_file() and not place.startswith(("run/", ".cache/", "managed")):
            found.add(next((own for own in OWN_PLACES if place.startswith(own)), place))
    return found


def main():
    with Desktop() as desktop:
        app = Quillmarsh(desktop, PROGRAM)
        for text in ("a heron in the reeds", "a bittern"):
            copy(desktop, text)
            app.wait_for_clip(text)
        step("copies are recorded")
        paste_into_terminal(desktop, app)
        step("the chosen clip is in the terminal")
        desktop.run([PROGRAM, "quit"])
        assert app.process.wait(10) == 0
        activate(desktop)
        step("the bus starts it by its service file")
        desktop.run([PROGRAM, "quit"])
        extra = written(desktop.home) - OWN_PLACES
        assert not extra, f"written elsewhere: {extra}"
        step("it wrote its history and its settings, and nothing else")


if __name__ == "__main__":
    main()
