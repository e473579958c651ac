#!/usr/bin/python3
"""A private desktop for a test: X server, window manager, session bus and an empty home.

As a program:  desktop.py [--wm openbox|xfwm4|kwin_x11|none] [--screen WxH]... [--no-bus] -- COMMAND...
runs COMMAND on such a desktop, ends everything afterwards, and exits as COMMAND did.
As a module:   with Desktop() as desktop: desktop.start([...])
"""

import argparse
import os
import shutil
import signal
import subprocess
import sys
import tempfile
import time

HERE = os.path.dirname(os.path.abspath(__file__))


class Desktop:
    """Owns every process it starts and ends them by their id, last started first."""

    def __init__(self, wm="openbox", screen="1280x800", bus=True, xvfb_arguments=()):
        self.wm = wm
        self.screen = screen
        self.has_bus = bus
        self.xvfb_arguments = list(xvfb_arguments)
        self.processes = []
        self.home = tempfile.mkdtemp(prefix="quillmarsh-test-")
        self.environment = self._clean_environment()

    def _clean_environment(self):
        kept = {
            name: value
            for name, value in os.environ.items()
            if not name.startswith(("XDG_", "QT_", "GTK_", "DBUS_", "WAYLAND_", "QUILLMARSH_"))
            and name not in ("DISPLAY", "XAUTHORITY", "DESKTOP_SESSION", "AT_SPI_BUS_ADDRESS")
        }
        runtime = os.path.join(self.home, "run")
        os.mkdir(runtime, 0o700)
        kept.update(
            HOME=self.home,
            XDG_RUNTIME_DIR=runtime,
            XDG_CONFIG_HOME=os.path.join(self.home, ".config"),
            XDG_DATA_HOME=os.path.join(self.home, ".local/share"),
            XDG_CACHE_HOME=os.path.join(self.home, ".cache"),
            XDG_DATA_DIRS="/usr/local/share:/usr/share",
            LC_ALL="C.UTF-8",
            NO_AT_BRIDGE="1",
        )
        return kept

    def __enter__(self):
        try:
            self._start_x_server()
            if self.has_bus:
                self._start_bus()
            if self.wm != "none":
                self._start_window_manager()
        except BaseException:
            self.close()
            raise
        return self

    def __exit__(self, *_):
        self.close()

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

    def _start_bus(self):
        read_end, write_end = os.pipe()
        self.start(["dbus-daemon", "--session", "--nofork", f"--print-address={write_end}"],
                   pass_fds=[write_end], quiet=True)
        os.close(write_end)
        with os.fdopen(read_end) as pipe:
            self.environment["DBUS_SESSION_BUS_ADDRESS"] = pipe.readline().strip()

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

    def start(self, command, quiet=False, **options):
        """Starts a process on this desktop; it is ended with the desktop."""
        options.setdefault("env", self.environment)
        if quiet:
            options.setdefault("stdout", subprocess.DEVNULL)
            options.setdefault("stderr", subprocess.DEVNULL)
        process = subprocess.Popen(command, **options)
        self.processes.append(process)
        return process

    def run(self, command, **options):
        options.setdefault("env", self.environment)
        return subprocess.run(command, check=False, **options)

    def ask(self, *command):
        """What a command says, less the blanks around it."""
        return self.run(command, capture_output=True, text=True).stdout.strip()

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

    def helper(self, script, *arguments, is_ready=True, **options):
        """Starts a program of this folder; `is_ready` waits for the line in which it says so."""
        pipes = {"stdin": subprocess.PIPE, "stdout": subprocess.PIPE, "stderr": subprocess.DEVNULL}
        process = self.start(["/usr/bin/python3", "-B", os.path.join(HERE, script),
                              *map(str, arguments)], text=True, **{**pipes, **options})
        if is_ready:
            process.stdout.readline()
        return process

    def repeat(self, action, condition, what, each=2, seconds=30):
        """Does it again and again until it has come out, for programs that do not say from when on
        they can be asked."""
        def has_come_out():
            action()
            try:
                return self.wait_for(condition, what, each)
            except TimeoutError:
                return False

        return self.wait_for(has_come_out, what, seconds)

    @staticmethod
    def wait_for(condition, what, seconds=10.0):
        """Polls until `condition` answers something true, and returns it."""
        limit = time.monotonic() + seconds
        while True:
            answer = condition()
            if answer:
                return answer
            if time.monotonic() > limit:
                raise TimeoutError(f"{what} did not come within {seconds:g} s")
            time.sleep(0.01)

    def close(self):
        for process in reversed(self.processes):
            if process.poll() is None:
                process.terminate()
                try:
                    process.wait(5)
                except subprocess.TimeoutExpired:
                    process.send_signal(signal.SIGKILL)
                    process.wait()
            for pipe in (process.stdin, process.stdout, process.stderr):
                if pipe:
                    pipe.close()
        self.processes.clear()
        shutil.rmtree(self.home, ignore_errors=True)


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
