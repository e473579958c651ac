#!/usr/bin/python3
"""A private desktop for a test: X server, window manager, session bus and an empty home.

As a program:  desktop.py [--wm openbox|xfwm4|kwin_x11|none] [--screen WxH]... [--no-bus] -- COMMAND...
runs COMMAND on such a desktop, ends everything afterwards, and exits as COMMAND did.
As a module:   with Desktop() as desktop: desktop.start([...])
"""

import argparse
import functools
import os
import subprocess
import sys

from held_keys import HeldKeys
from surroundings import Surroundings


class Desktop(Surroundings):
    kind = "x11"

    def __init__(self, wm="openbox", screen="1280x800", bus=True, xvfb_arguments=()):
        super().__init__()
        self.wm = wm
        self.screen = screen
        self.has_bus = bus
        self.xvfb_arguments = list(xvfb_arguments)

    def begin(self):
        self._start_x_server()
        if self.has_bus:
            self.start_bus()
        if self.wm != "none":
            self._start_window_manager()

    def _start_x_server(self):
        read_end, write_end = os.pipe()
        # What stands where a Wayland session has its compositor.
        self.compositor = self.start(
            ["Xvfb", "-displayfd", str(write_end), "-screen", "0", self.screen + "x24",
             "-nolisten", "tcp", "-noreset", *self.xvfb_arguments],
            pass_fds=[write_end], quiet=True)
        os.close(write_end)
        with os.fdopen(read_end) as pipe:
            number = pipe.readline().strip()
        if not number:
            raise RuntimeError("Xvfb did not start")
        self.environment["DISPLAY"] = ":" + number

    def _start_window_manager(self):
        if self.wm == "openbox":
            # It announces itself before it manages the screen; this command runs afterwards.
            managed = os.path.join(self.home, "managed")
            self.start(["openbox", "--startup", f"touch {managed}"], quiet=True)
            self.wait_for(lambda: os.path.exists(managed), "openbox")
            return
        self.start([self.wm], quiet=True)
        self.wait_for(lambda: self._root_property("_NET_SUPPORTING_WM_CHECK"),
                      "a window manager")

    def _root_property(self, name):
        told = subprocess.run(["xprop", "-root", name], env=self.environment,
                              capture_output=True, text=True, check=False).stdout
        return "not found" not in told and "no such atom" not in told and told.strip()

    def keys(self, *chords, at_once=False):
        """Presses and releases each; `at_once` far quicker than any hand."""
        self.run(["xdotool", "key", "--clearmodifiers", *(["--delay", "0"] if at_once else []),
                  *chords])

    def type(self, text):
        self.run(["xdotool", "type", "--delay", "5", text])

    @functools.cached_property
    def held(self):
        return HeldKeys(self.environment)

    def hold(self, *names):
        self.held.press(*names)

    def release(self, *names):
        self.held.release(*names)

    def tap(self, name):
        """A key that is not let go of what is held with it."""
        self.held.tap(name)

    def window(self, name):
        """Id of the shown window of that name, a regular expression; None when there is none."""
        # A window that is destroyed during the walk ends the search with an X error and no answer,
        # which says nothing of the windows that are still there.
        while True:
            told = self.run(["xdotool", "search", "--onlyvisible", "--name", f"^{name}$"],
                            capture_output=True, text=True)
            if "X Error" not in told.stderr:
                return told.stdout.strip().split("\n")[-1] or None

    def active(self):
        """Id of the window in front."""
        return self.ask("xdotool", "getactivewindow")

    def is_in_front(self, process, _application):
        return self.ask("xdotool", "getactivewindow", "getwindowpid") == str(process.pid)

    def has_keyboard(self, window):
        focused = self.ask("xdotool", "getwindowfocus")
        return self.active() == window and focused not in ("", "1")

    def activate(self, window):
        self.run(["xdotool", "windowactivate", window])

    def move(self, window, x, y):
        self.run(["xdotool", "windowmove", "--sync", window, str(x), str(y)])

    def place(self, window):
        """The window's x, y, width and height on the screen."""
        told = self.ask("xwininfo", "-id", window)
        place = dict(line.strip().split(":", 1) for line in told.splitlines() if ": " in line)
        return [int(place[name]) for name in (
            "Absolute upper-left X", "Absolute upper-left Y", "Width", "Height")]

    def click(self, window, x, y, count=1):
        """Into the window, in pixels from its corner."""
        self._click(["--window", window, str(x), str(y)], count)

    def click_at(self, x, y, count=1):
        self._click([str(x), str(y)], count)

    def _click(self, place, count):
        self.run(["xdotool", "mousemove", *place, "click", "--repeat", str(count), "--delay", "50",
                  "1"])

    def picture(self, path, window=None):
        """The screen or a window, as a file."""
        self.run(["import", "-window", window or "root", path])

    def copy(self, text, target=None):
        """Copies as another program. xclip stays behind as the owner, as an application does."""
        command = ["xclip", "-selection", "clipboard", "-i", *(["-t", target] if target else [])]
        # xclip keeps its output open while it serves, so a pipe would never end.
        return self.run(command, input=text.encode() if isinstance(text, str) else text,
                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def pasteboard(self, target=None, is_primary=False):
        """What a paste would give now; None when there is nothing of that kind."""
        told = self.run(["timeout", "5", "xclip", "-selection",
                         "primary" if is_primary else "clipboard", "-o", "-t",
                         target or "UTF8_STRING"], capture_output=True)
        return told.stdout.decode("utf-8", "replace") if told.returncode == 0 else None

    def start_owner(self, *arguments, is_ready=True):
        """A clipboard owner of owner.py; it says so once it is."""
        return self.helper("owner.py", *arguments, is_ready=is_ready)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--wm", default="openbox")
    parser.add_argument("--screen", default="1280x800")
    parser.add_argument("--no-bus", action="store_true")
    parser.add_argument("command", nargs=argparse.REMAINDER)
    options = parser.parse_args()
    command = options.command[1:] if options.command[:1] == ["--"] else options.command
    with Desktop(options.wm, options.screen, not options.no_bus) as desktop:
        return desktop.run(command).returncode


if __name__ == "__main__":
    sys.exit(main())
