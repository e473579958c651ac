#!/usr/bin/python3
"""A private desktop for a test: X server, window manager, session bus and an empty home.

As a program:  desktop.py [--wm openbox|xfwm4|kwin_x11|none] [--screen WxH]... [--no-bus] -- COMMAND...
runs COMMAND on such a desktop, ends everything afterwards, and exits as COMMAND did.
As a module:   with Desktop() as desktop: desktop.start([...])
"""

import argparse
import os
import subprocess
import sys

from surroundings import Surroundings


class Desktop(Surroundings):
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
        self.start(
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

    def active(self):
        """Id of the window in front."""
        return self.ask("xdotool", "getactivewindow")

    def place(self, window):
        """The window's x, y, width and height on the screen."""
        told = self.ask("xwininfo", "-id", window)
        place = dict(line.strip().split(":", 1) for line in told.splitlines() if ": " in line)
        return [int(place[name]) for name in (
            "Absolute upper-left X", "Absolute upper-left Y", "Width", "Height")]

    def click(self, window, x, y, *more):
        """Into the window, in pixels from its corner."""
        self.run(["xdotool", "mousemove", "--window", window, str(x), str(y), "click", *more, "1"])


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
