#!/usr/bin/python3
"""A private Wayland session for a test: a compositor without a screen, a session bus, an empty home,
and a keyboard and a pointer of the test's.

As a program:  session.py sway|labwc|kde [--screen WxH] [--xwayland] -- COMMAND...
runs COMMAND in such a session, ends everything afterwards, and exits as COMMAND did.
As a module:   with session("sway") as desktop: desktop.start([...])

Compositors refuse to be root's, so root becomes an ordinary user first; SESSION_INPUT names the
program that presses the keys.
"""

import argparse
import contextlib
import functools
import glob
import json
import os
import pwd
import re
import shutil
import subprocess
import sys
import time
import unittest

from kwin import WindowManager
from surfaces import Surfaces
from surroundings import HERE, Surroundings

APP_ID = "org.quillmarsh.Quillmarsh"
# Debian's LayerShellQt, with which Quillmarsh shows the history in a layer; no compositor tells what
# it shows there.
HAS_LAYERS = bool(glob.glob("/usr/lib/*/libLayerShellQtInterface.so.6"))
LAYER = "layer"
INPUT = os.environ.get("SESSION_INPUT", "build/dev/bin/session_input")


def become_ordinary(*folders):
    """Starts this program again as a user who is not root, and who may write to these folders."""
    for folder in folders:
        os.makedirs(folder, exist_ok=True)
    if os.geteuid():
        return
    account = pwd.getpwnam("nobody")
    for folder in folders:
        os.chown(folder, account.pw_uid, account.pw_gid)
    os.setgroups([])
    os.setgid(account.pw_gid)
    os.setuid(account.pw_uid)
    os.execv(sys.executable, [sys.executable, "-B", *sys.argv])


class Session(Surroundings):
    """`quillmarsh` is the program that the session is for: where no program may bind a chord, the
    session has its chords start it, and where a program must be allowed to type, it is."""

    kind = None  # as QUILLMARSH_SESSION and the command line name it
    desktop_name = None
    seconds_to_start = 30

    def __init__(self, screen="1280x800", xwayland=False, quillmarsh=None, environment=None):
        super().__init__()
        self.screen = tuple(map(int, screen.split("x")))
        self.has_xwayland = xwayland
        self.quillmarsh = quillmarsh
        self.bindings = {"super+shift+v": f"{quillmarsh} launch",
                         "super+shift+x": f"{quillmarsh} swop"} if quillmarsh else {}
        self.environment.update(XDG_SESSION_TYPE="wayland", XDG_CURRENT_DESKTOP=self.desktop_name,
                                **(environment or {}))
        self.log_path = os.path.join(self.home, "compositor.log")
        self.hands = None
        self.is_watched = HAS_LAYERS
        self.surfaces = None
        self.kept = None  # where pictures are kept, as far as their number
        self._pictures = 0

    def begin(self):
        self.start_bus()
        self.prepare()
        with open(self.log_path, "wb") as log:
            self.compositor = self.start_compositor(stdout=log, stderr=log)
        self.wait_for(self.is_up, f"{self.kind}; see {self.log_path}",
                      self.seconds_to_start)
        self._start_input()

    def prepare(self):
        """Writes what the compositor reads when it starts."""

    def start_compositor(self, **options):
        raise NotImplementedError

    def is_up(self):
        """Whether clients can connect; WAYLAND_DISPLAY is set then."""
        raise NotImplementedError

    def write(self, path, text):
        path = os.path.join(self.home, path)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)
        return path

    def _start_input(self):
        self.hands = self.start([os.path.abspath(INPUT), *map(str, self.screen)],
                                stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        if self.hands.stdout.readline() != "ready\n":
            raise RuntimeError("no keyboard for the session")

    def order(self, *words):
        """Has the keyboard or the pointer do something; returns the lines that are said to it."""
        self.hands.stdin.write(" ".join(map(str, words)) + "\n")
        self.hands.stdin.flush()
        told = []
        while (line := self.hands.stdout.readline()) != "done\n":
            if not line:
                raise RuntimeError(f"the session's keyboard ended at {words}")
            told.append(line.rstrip("\n"))
        return told

    def keys(self, *chords, at_once=True):
        """Presses and releases each, far quicker than any hand."""
        self.order("key", *chords)

    def type(self, text):
        for number, line in enumerate(text.split("\n")):
            if number:
                self.keys("Return")
            if line:
                self.order("type", line)

    def hold(self, *names):
        self.order("press", *names)

    def release(self, *names):
        self.order("release", *names)

    def tap(self, name):
        self.keys(name)

    def windows(self):
        """What is shown, each as {"id", "name", "app", "is active"} and, where the compositor tells
        it, "pid" and "place"."""
        raise NotImplementedError

    def watch(self, variables):
        if not self.is_watched:
            return None
        variables["WAYLAND_DEBUG"] = "1"
        self.surfaces = Surfaces()
        return self.surfaces.read

    def _layer(self):
        return self.surfaces and self.surfaces.layer("quillmarsh")

    def keep_picture(self):
        if self.kept:
            self._pictures += 1
            time.sleep(0.3)  # until it is drawn; nothing that is checked depends on it
            with contextlib.suppress(unittest.SkipTest):
                self.picture(f"{self.kept}-{self._pictures}.png")

    def window(self, name):
        """Id of the shown window of that name, a regular expression; None when there is none."""
        # With what notices a click elsewhere, which comes right after it.
        if name == "Quillmarsh" and self._layer() and self.surfaces.layer("quillmarsh-outside"):
            return LAYER
        return next((window["id"] for window in self.windows() if re.fullmatch(name, window["name"])),
                    None)

    def _active(self):
        return next((window for window in self.windows() if window["is active"]), {})

    def active(self):
        """Id of the window in front."""
        layer = self._layer()
        return LAYER if layer and layer.has_keyboard else self._active().get("id")

    def is_in_front(self, process, application):
        """Whether the active window is of that process, or where only that is told, of an
        application of that name."""
        active = self._active()
        return active.get("pid", process.pid) == process.pid and active.get("app") == application

    def has_keyboard(self, window):
        return self.active() == window

    def place(self, window):
        """The window's x, y, width and height on the screen."""
        if window == LAYER:
            # One third down is where it is asked to be; a click that misses it shows.
            width, height = self._layer().size
            return [(self.screen[0] - width) // 2, (self.screen[1] - height) // 3, width, height]
        return next(shown["place"] for shown in self.windows() if shown["id"] == window)

    def move(self, window, x, y):
        """Where windows are moved; a compositor that tiles keeps it where it is."""

    def click(self, window, x, y, count=1):
        """Into the window, in pixels from its corner."""
        left, top, _, _ = self.place(window)
        self.click_at(left + x, top + y, count)

    def click_at(self, x, y, count=1):
        self.order("move", x, y)
        self.order("click", count)

    def picture(self, path, window=None):
        """The screen, or that window as it lies there, as a file."""
        self.take_picture(path)
        if window:
            x, y, width, height = self.place(window)
            self.run(["mogrify", "-crop", f"{width}x{height}+{x}+{y}", "+repage", path])

    def take_picture(self, path):
        self.run(["grim", path])

    def copy(self, text, target=None):
        """Copies as another program, which stays behind as the owner, as an application does."""
        return self.run(["wl-copy", "--type", target or "text/plain"],
                        input=text.encode() if isinstance(text, str) else text,
                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def pasteboard(self, target=None, is_primary=False):
        """What a paste would give now; None when there is nothing of that kind."""
        told = self.run(["timeout", "5", "wl-paste", "--no-newline",
                         *(["--primary"] if is_primary else []), "--type", target or "text"],
                        capture_output=True)
        return told.stdout.decode("utf-8", "replace") if told.returncode == 0 else None

    def start_owner(self, *arguments, is_ready=True):
        """A clipboard owner of session_owner.cpp; it says so once it is."""
        owner = self.start([os.path.join(os.path.dirname(os.path.abspath(INPUT)), "session_owner"),
                            *map(str, arguments)], stdout=subprocess.PIPE, text=True)
        if is_ready:
            owner.stdout.readline()
        return owner


class SwaySession(Session):
    kind = "sway"
    desktop_name = "sway"
    key_names = {"super": "Mod4", "alt": "Mod1", "ctrl": "Ctrl", "shift": "Shift"}

    def prepare(self):
        width, height = self.screen
        self.told = os.path.join(self.home, "told")
        lines = [f"xwayland {'enable' if self.has_xwayland else 'disable'}",
                 f"output * resolution {width}x{height}",
                 "focus_follows_mouse no"]
        for chord, command in self.bindings.items():
            keys = "+".join(self.key_names.get(key, key) for key in chord.split("+"))
            lines.append(f"bindsym {keys} exec {command}")
        # Run once clients can connect.
        lines.append(f'exec printf "%s\\n" "$WAYLAND_DISPLAY" "$SWAYSOCK" "$DISPLAY" >{self.told}.new'
                     f" && mv {self.told}.new {self.told}")
        self.config = self.write("sway.config", "\n".join(lines) + "\n")

    def start_compositor(self, **options):
        return self.start(["sway", "-c", self.config], env=dict(
            self.environment, WLR_BACKENDS="headless", WLR_LIBINPUT_NO_DEVICES="1",
            WLR_RENDERER="pixman"), **options)

    def is_up(self):
        if not os.path.exists(self.told):
            return False
        with open(self.told, encoding="utf-8") as file:
            display, socket, x_display = file.read().split("\n")[:3]
        self.environment.update(WAYLAND_DISPLAY=display, SWAYSOCK=socket)
        if self.has_xwayland:
            self.environment["DISPLAY"] = x_display
        return True

    def message(self, *words):
        """What the compositor answers to an order or a question."""
        return json.loads(self.ask("swaymsg", "-r", *words))

    def windows(self):
        def below(node):
            for child in node["nodes"] + node["floating_nodes"]:
                yield from below(child)
            if node.get("pid") and node["visible"]:
                box, frame = node["rect"], node["window_rect"]
                yield {"id": node["id"], "name": node["name"], "app": node["app_id"],
                       "pid": node["pid"], "is active": node["focused"],
                       "place": [box["x"] + frame["x"], box["y"] + frame["y"], frame["width"],
                                 frame["height"]]}

        return list(below(self.message("-t", "get_tree")))

    def activate(self, window):
        self.message(f"[con_id={window}] focus")


class LabwcSession(Session):
    """It tells neither where its windows are nor whose."""

    kind = "labwc"
    desktop_name = "labwc:wlroots"
    key_names = {"super": "W", "alt": "A", "ctrl": "C", "shift": "S"}

    def prepare(self):
        # Its screen is not configured by anything that it reads.
        self.screen = (1280, 720)
        self.told = os.path.join(self.home, "told")
        binds = ""
        for chord, command in self.bindings.items():
            keys = "-".join(self.key_names.get(key, key) for key in chord.split("+"))
            binds += (f'<keybind key="{keys}"><action name="Execute" command="{command}"/>'
                      "</keybind>")
        self.config = os.path.dirname(self.write(
            "labwc/rc.xml", f"<labwc_config><keyboard>{binds}</keyboard></labwc_config>\n"))
        # Run once clients can connect.
        self.startup = self.write(
            "labwc/ready", f'echo "$WAYLAND_DISPLAY" >{self.told}.new\nmv {self.told}.new {self.told}\n')

    def start_compositor(self, **options):
        return self.start(["labwc", "-C", self.config, "-s", f"sh {self.startup}"], env=dict(
            self.environment, WLR_BACKENDS="headless", WLR_LIBINPUT_NO_DEVICES="1",
            WLR_RENDERER="pixman"), **options)

    def is_up(self):
        if not os.path.exists(self.told):
            return False
        with open(self.told, encoding="utf-8") as file:
            self.environment["WAYLAND_DISPLAY"] = file.read().strip()
        return True

    def windows(self):
        parts = (line.split("\t", 3) for line in self.order("windows"))
        return [{"id": number, "name": title, "app": application, "is active": active == "1"}
                for number, active, application, title in parts]

    def activate(self, window):
        self.order("activate", window)


class KWinSession(Session):
    kind = "kde"
    desktop_name = "KDE"
    menu = ("<Menu><Name>Applications</Name><DefaultAppDirs/><DefaultDirectoryDirs/>"
            "<Include><All/></Include></Menu>\n")

    def prepare(self):
        # Applications are known, and allowed what their entries ask for, only through a menu.
        for name in ("applications.menu", "kf5-applications.menu"):
            self.write(f"etc/xdg/menus/{name}", self.menu)
        # Nothing moves that a test would have to wait for, and windows have the least of frames.
        self.write(".config/kdeglobals", "[KDE]\nAnimationDurationFactor=0\n")
        self.write(".config/kwinrc", "[org.kde.kdecoration2]\nNoPlugin=true\n")
        self.allow("session-input", os.path.abspath(INPUT), "org_kde_kwin_fake_input")
        if self.quillmarsh:
            self._allow_quillmarsh()
        # The original has a capability that a container may not grant.
        self.program = os.path.join(self.home, "kwin_wayland")
        shutil.copy(shutil.which("kwin_wayland"), self.program)
        os.chmod(self.program, 0o755)

    def allow(self, name, program, interfaces):
        """A desktop entry by which the compositor grants a program these interfaces."""
        self.write(f".local/share/applications/{name}.desktop",
                   f"[Desktop Entry]\nType=Application\nName={name}\nExec={program}\nNoDisplay=true\n"
                   f"X-KDE-Wayland-Interfaces={interfaces}\n")

    def _allow_quillmarsh(self):
        """As the installed entry does, for the program that the one named starts."""
        with open(os.path.join(HERE, "../../data", f"{APP_ID}-program.desktop"),
                  encoding="utf-8") as entry:
            interfaces = re.search("^X-KDE-Wayland-Interfaces=(.*)$", entry.read(), re.M)[1]
        program = os.path.join(os.path.dirname(self.quillmarsh), "../libexec/quillmarsh/quillmarsh")
        self.allow("quillmarsh-program", os.path.normpath(program), interfaces)

    def start_compositor(self, **options):
        width, height = self.screen
        environment = dict(self.environment, KWIN_COMPOSE=os.environ.get("KWIN_COMPOSE", "O2"), QT_NO_XDG_DESKTOP_PORTAL="1",
                           KWIN_SCREENSHOT_NO_PERMISSION_CHECKS="1",
                           XDG_CONFIG_DIRS=os.path.join(self.home, "etc/xdg") + ":/etc/xdg",
                           QT_QPA_PLATFORM="")
        del environment["XDG_CURRENT_DESKTOP"], environment["QT_QPA_PLATFORM"]
        self.environment["WAYLAND_DISPLAY"] = "wayland-kde"
        return self.start([self.program, "--virtual", "--width", str(width), "--height", str(height),
                           "--no-lockscreen", "--socket", "wayland-kde",
                           *(["--xwayland"] if self.has_xwayland else [])],
                          env=environment, **options)

    def is_up(self):
        runtime = self.environment["XDG_RUNTIME_DIR"]
        # Version 6 has its service of shortcuts a while after it has windows.
        return ("true" in self.ask("dbus-send", "--session", "--print-reply",
                                   "--dest=org.freedesktop.DBus", "/",
                                   "org.freedesktop.DBus.NameHasOwner",
                                   "string:org.kde.kglobalaccel")
                and os.path.exists(os.path.join(runtime, "wayland-kde"))
                and "KWin" in self.ask("dbus-send", "--session", "--print-reply",
                                       "--dest=org.kde.KWin", "/KWin",
                                       "org.kde.KWin.supportInformation"))

    def await_shortcuts(self):
        self.wait_for(lambda: "true" in self.ask(
            "dbus-send", "--session", "--print-reply", "--dest=org.kde.kglobalaccel",
            "/component/" + APP_ID.replace(".", "_"), "org.kde.kglobalaccel.Component.isActive"),
            "the shortcuts")

    @functools.cached_property
    def manager(self):
        return WindowManager(self.environment["DBUS_SESSION_BUS_ADDRESS"], self.home)

    def windows(self):
        # Quillmarsh asks which keys are held by a window of one pixel, which nobody sees.
        return [window for window in self.manager.windows() if window["place"][2] > 1]

    def activate(self, window):
        self.manager.activate(window)

    def move(self, window, x, y):
        self.manager.move(window, x, y)

    def take_picture(self, path):
        width, height = self.screen
        pixels = self.manager.pixels(width, height)
        if pixels is None:
            raise unittest.SkipTest("this KWin draws with what shows it to nobody")
        self.run(["convert", "-size", f"{width}x{height}", "-depth", "8", "BGRA:-", "-alpha", "off",
                  path], input=pixels)


KINDS = {kind.kind: kind for kind in (SwaySession, LabwcSession, KWinSession)}


def session(kind, **options):
    return KINDS[kind](**options)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("kind", choices=KINDS)
    parser.add_argument("--screen", default="1280x800")
    parser.add_argument("--xwayland", action="store_true")
    parser.add_argument("command", nargs=argparse.REMAINDER)
    options = parser.parse_args()
    command = options.command[1:] if options.command[:1] == ["--"] else options.command
    become_ordinary()
    with session(options.kind, screen=options.screen, xwayland=options.xwayland) as desktop:
        return desktop.run(command).returncode


if __name__ == "__main__":
    sys.exit(main())
