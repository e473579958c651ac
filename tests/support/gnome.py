"""GNOME Shell without a screen: a session in which a program sees copies, types and has shortcuts by
the desktop's portals alone."""

import base64
import functools
import json
import os
import plistlib
import time
import uuid

import dbus.bus

from session import APP_ID, KINDS, Session


SHELL = "org.gnome.Shell"
PORTALS = "org.freedesktop.portal.Desktop"
LIBEXEC = "/usr/libexec"
# Codes of a US keyboard, in rows from where each begins.
ROWS = {2: "1234567890-=", 16: "qwertyuiop[]", 30: "asdfghjkl;'`", 43: "\\zxcvbnm,./", 57: " "}
SHIFTED_ROWS = {2: "!@#$%^&*()_+", 16: "QWERTYUIOP{}", 30: 'ASDFGHJKL:"~', 43: "|ZXCVBNM<>?"}
SHIFT = 42
NAMES = {"escape": 1, "backspace": 14, "tab": 15, "return": 28, "ctrl": 29, "shift": SHIFT, "alt": 56,
         "space": 57, "f1": 59, "home": 102, "up": 103, "prior": 104, "left": 105, "right": 106,
         "end": 107, "down": 108, "next": 109, "delete": 111, "super": 125}


def codes_in(rows):
    return {sign: start + place for start, row in rows.items() for place, sign in enumerate(row)}


CODES = codes_in(ROWS)
SHIFTED_CODES = codes_in(SHIFTED_ROWS)
# Kept by the Shell from one question to the next.
HANDS = """
const {Clutter, GLib, St} = imports.gi;
const seat = Clutter.get_default_backend().get_default_seat();
global.test = {
    keyboard: seat.create_virtual_device(Clutter.InputDeviceType.KEYBOARD_DEVICE),
    pointer: seat.create_virtual_device(Clutter.InputDeviceType.POINTER_DEVICE),
    strike(strokes) {
        for (const [code, isDown] of strokes)
            this.keyboard.notify_key(GLib.get_monotonic_time(), code, isDown);
    },
    move(x, y) { this.pointer.notify_absolute_motion(GLib.get_monotonic_time(), x, y); },
    click(count) {
        for (let i = 0; i < 2 * count; i++)
            this.pointer.notify_button(GLib.get_monotonic_time(), Clutter.BUTTON_PRIMARY,
                i % 2 ? Clutter.ButtonState.RELEASED : Clutter.ButtonState.PRESSED);
    },
    all: () => global.get_window_actors().map(actor => actor.meta_window).filter(
        window => !window.minimized && window.title !== null),
    windows() {
        return this.all().map(window => {
            const frame = window.get_frame_rect();
            return {id: window.get_id(), pid: window.get_pid(), name: window.title,
                    app: window.get_wm_class(), "is active": window.has_focus(),
                    place: [frame.x, frame.y, frame.width, frame.height]};
        });
    },
    window(id) { return this.all().find(window => window.get_id() === id); },
    read(format) {
        this.content = undefined;
        St.Clipboard.get_default().get_content(St.ClipboardType.CLIPBOARD, format,
            (_, bytes) => { this.content = bytes && bytes.get_size() ?
                GLib.base64_encode(bytes.toArray()) : null; });
    },
    write(format, text) {
        St.Clipboard.get_default().set_content(St.ClipboardType.CLIPBOARD, format,
            new GLib.Bytes(GLib.base64_decode(text)));
    },
};
Main.overview.hide();
imports.gi.St.Settings.get().inhibit_animations();
"""


class Shell:
    """Answers to JavaScript, which it does in its unsafe mode."""

    def __init__(self, address):
        self._bus = dbus.bus.BusConnection(address)
        self._proxy = self._bus.get_object(SHELL, "/org/gnome/Shell", introspect=False)

    def run(self, script):
        """The value of the last expression."""
        is_done, answer = self._proxy.Eval(script, dbus_interface=SHELL)
        if not is_done:
            raise RuntimeError(f"the Shell could not run {script!r}: {answer}")
        return json.loads(answer) if answer else None

    def picture(self, path):
        self._bus.get_object(SHELL + ".Screenshot", "/org/gnome/Shell/Screenshot",
                             introspect=False).Screenshot(
            False, False, path, dbus_interface=SHELL + ".Screenshot")


class GnomeSession(Session):
    """The portals are the desktop's own. Whoever is to be asked for shortcuts is a stand-in, because
    the desktop's is its whole settings program. `consents`: the user has answered before that
    Quillmarsh may record and type, so that nothing is asked."""

    kind = "gnome"
    desktop_name = "GNOME"
    seconds_to_start = 120  # it paints by the processor alone

    def __init__(self, consents=True, **options):
        super().__init__(**options)
        # Of an answer that was remembered; as the portals' record and our settings have it.
        self.token = str(uuid.uuid4()) if consents else None
        self.is_watched = False

    def prepare(self):
        # A program is known by its desktop entry alone, whose program must be there.
        self.write(f".local/share/applications/{APP_ID}.desktop",
                   f"[Desktop Entry]\nType=Application\nName=Quillmarsh\nExec={self.quillmarsh}\n"
                   f"Icon={APP_ID}\n")
        self.environment["DBUS_SYSTEM_BUS_ADDRESS"] = self._second_bus()
        # What a user's session would have the settings in; nothing outlives the test.
        self.environment["GSETTINGS_BACKEND"] = "memory"

    def _second_bus(self):
        kept = self.environment.get("DBUS_SESSION_BUS_ADDRESS")
        self.start_bus()
        address, self.environment["DBUS_SESSION_BUS_ADDRESS"] = (
            self.environment["DBUS_SESSION_BUS_ADDRESS"], kept)
        return address

    def start_compositor(self, **options):
        width, height = self.screen
        self.environment["WAYLAND_DISPLAY"] = "wayland-gnome"
        environment = dict(self.environment)
        del environment["WAYLAND_DISPLAY"]
        return self.start(["gnome-shell", "--headless", "--virtual-monitor", f"{width}x{height}",
                           "--wayland-display", "wayland-gnome", "--unsafe-mode", "--no-x11"],
                          env=environment, **options)

    @functools.cached_property
    def shell(self):
        return Shell(self.environment["DBUS_SESSION_BUS_ADDRESS"])

    def is_up(self):
        runtime = self.environment["XDG_RUNTIME_DIR"]
        return (os.path.exists(os.path.join(runtime, "wayland-gnome")) and self._owns(SHELL)
                and self._can_run())

    def _owns(self, name):
        return "true" in self.ask("dbus-send", "--session", "--print-reply",
                                  "--dest=org.freedesktop.DBus", "/",
                                  "org.freedesktop.DBus.NameHasOwner", f"string:{name}")

    def _can_run(self):
        try:
            return self.shell.run("Main.layoutManager._startingUp") is False
        except (RuntimeError, dbus.DBusException):
            return False

    def _start_input(self):
        self.shell.run(HANDS)
        self._start_portals()

    def _start_portals(self):
        shared = ("WAYLAND_DISPLAY", "XDG_CURRENT_DESKTOP", "XDG_DATA_HOME", "XDG_RUNTIME_DIR", "HOME")
        self.run(["dbus-update-activation-environment", *shared])
        self.helper("shortcut_settings.py")
        for program, name in (
                ("xdg-permission-store", "org.freedesktop.impl.portal.PermissionStore"),
                ("xdg-desktop-portal-gnome", "org.freedesktop.impl.portal.desktop.gnome"),
                ("xdg-desktop-portal", PORTALS)):
            with open(os.path.join(self.home, program + ".log"), "wb") as log:
                self.start([os.path.join(LIBEXEC, program)], stdout=log, stderr=log)
            self.wait_for(lambda name=name: self._owns(name), name, 30)
            if self.token and program == "xdg-permission-store":
                self._consent()

    def _consent(self):
        store = dbus.bus.BusConnection(self.environment["DBUS_SESSION_BUS_ADDRESS"]).get_object(
            "org.freedesktop.impl.portal.PermissionStore", "/org/freedesktop/impl/portal/PermissionStore",
            introspect=False)
        now = dbus.Int64(time.time_ns() // 1000)
        # The keyboard, with the clipboard, and no screens.
        agreed = dbus.Struct((now, now, dbus.UInt32(1), True, dbus.Array([], signature="(uuv)")),
                             signature="xxuba(uuv)", variant_level=1)
        store.Set("remote-desktop", True, self.token, {APP_ID: ["yes"]},
                  dbus.Struct(("GNOME", dbus.UInt32(1), agreed), signature="suv", variant_level=1),
                  dbus_interface="org.freedesktop.impl.portal.PermissionStore", signature="sbsa{sas}v")
        settings = os.path.join(self.environment["XDG_CONFIG_HOME"], APP_ID + ".plist")
        os.makedirs(os.path.dirname(settings), exist_ok=True)
        with open(settings, "wb") as file:
            plistlib.dump({"welcomeWindowShown": True, "remoteControlToken": self.token}, file)

    def order(self, *words):
        word, *rest = words
        if word == "move":
            self.shell.run(f"global.test.move({int(rest[0])}, {int(rest[1])})")
        elif word == "click":
            self.shell.run(f"global.test.click({int(rest[0])})")
        else:
            self.strike(strokes_of(word, rest))

    def strike(self, strokes):
        self.shell.run(f"global.test.strike({json.dumps(strokes)})")

    def windows(self):
        return self.shell.run("global.test.windows()")

    def activate(self, window):
        self.shell.run(f"global.test.window({window}).activate(global.get_current_time())")

    def move(self, window, x, y):
        self.shell.run(f"global.test.window({window}).move_frame(true, {x}, {y})")

    def take_picture(self, path):
        self.shell.picture(os.path.abspath(path))

    def copy(self, text, target=None):
        """The Shell itself copies: any other program would need the keyboard for it."""
        data = base64.b64encode(text.encode() if isinstance(text, str) else text).decode()
        self.shell.run(f"global.test.write({json.dumps(target or 'text/plain;charset=utf-8')}, "
                       f"{json.dumps(data)})")

    def pasteboard(self, target=None, is_primary=False):
        self.shell.run(f"global.test.read({json.dumps(target or 'text/plain;charset=utf-8')})")
        told = self.wait_for(lambda: self.shell.run("[global.test.content]")[:1], "a content", 5)[0]
        return told and base64.b64decode(told).decode("utf-8", "replace")


def strokes_of(order, words):
    """Pairs of a key and whether it goes down."""
    if order == "type":
        return [stroke for sign in " ".join(words) for stroke in strokes_of_sign(sign)]
    if order in ("press", "release"):
        return [(code_of(name), order == "press") for name in words]
    strokes = []
    for chord in words:
        if len(chord) == 1:
            strokes += strokes_of_sign(chord)
            continue
        codes = [code_of(name) for name in chord.split("+")]
        strokes += [(code, True) for code in codes] + [(code, False) for code in reversed(codes)]
    return strokes


def strokes_of_sign(sign):
    if sign in SHIFTED_CODES:
        code = SHIFTED_CODES[sign]
        return [(SHIFT, True), (code, True), (code, False), (SHIFT, False)]
    return [(code_of("tab" if sign == "\t" else sign), is_down) for is_down in (True, False)]


def code_of(name):
    return NAMES.get(name.lower()) or CODES[name]


KINDS[GnomeSession.kind] = GnomeSession
