"""What KWin tells of its windows and shows of them. It answers through scripts that it runs and
that call back, because it tells no program of its own accord."""

import json
import os
import threading
import time

import dbus
import dbus.bus
import dbus.mainloop.glib
import dbus.service
from gi.repository import GLib

NAME = "org.quillmarsh.Test"
KWIN = "org.kde.KWin"
SECONDS = 20
# Version 6 has other names than version 5.
FIND = """
const shown = workspace.windowList ? workspace.windowList() : workspace.clientList();
const active = workspace.windowList ? workspace.activeWindow : workspace.activeClient;
"""
LIST = FIND + r"""
callDBus("%(name)s", "/", "%(name)s", "tell", JSON.stringify(shown.filter(
    window => !window.minimized && !window.hidden).map(window => ({
    id: String(window.internalId), pid: window.pid, "is active": window === active,
    // A second window of the same title gets a number.
    name: String(window.caption).replace(/ <\d+>$/, ""), app: String(window.resourceClass),
    place: [window.frameGeometry.x, window.frameGeometry.y, window.frameGeometry.width,
            window.frameGeometry.height].map(Math.round)}))));
"""
CHANGE = FIND + """
const window = shown.find(window => String(window.internalId) === "%(window)s");
%(change)s
callDBus("%(name)s", "/", "%(name)s", "tell", "null");
"""
ACTIVATE = "workspace[workspace.windowList ? 'activeWindow' : 'activeClient'] = window;"
MOVE = """
const place = window.frameGeometry;
window.frameGeometry = {x: %d, y: %d, width: place.width, height: place.height};
"""


class _Answer(dbus.service.Object):
    told = None

    @dbus.service.method(NAME, in_signature="s")
    def tell(self, text):
        self.told = text


class WindowManager:
    """The KWin on the bus at `address`; its scripts are written into `folder`."""

    def __init__(self, address, folder):
        self._bus = dbus.bus.BusConnection(address, mainloop=dbus.mainloop.glib.DBusGMainLoop())
        self._bus.request_name(NAME)
        self._answer = _Answer(self._bus, "/")
        self._script = os.path.join(folder, "question.js")

    def windows(self):
        """What is shown, each as {"id", "name", "app", "pid", "place", "is active"}."""
        return self._run(LIST % {"name": NAME})

    def activate(self, window):
        self._run(CHANGE % {"name": NAME, "window": window, "change": ACTIVATE})

    def move(self, window, x, y):
        self._run(CHANGE % {"name": NAME, "window": window, "change": MOVE % (x, y)})

    def pixels(self, width, height):
        """Of the screen's upper left, four bytes each: blue, green, red and nothing. None where it
        draws without OpenGL, as version 6 does without a graphics card."""
        read_end, write_end = os.pipe()
        read = []

        def read_all():
            with os.fdopen(read_end, "rb") as pipe:
                read.append(pipe.read())

        reader = threading.Thread(target=read_all)
        reader.start()
        handed = dbus.types.UnixFd(write_end)
        os.close(write_end)
        try:
            self._bus.get_object(KWIN, "/org/kde/KWin/ScreenShot2", introspect=False).CaptureArea(
                dbus.Int32(0), dbus.Int32(0), dbus.UInt32(width), dbus.UInt32(height),
                dbus.Dictionary({}, signature="sv"), handed,
                dbus_interface="org.kde.KWin.ScreenShot2")
        except dbus.DBusException as problem:
            if "UnknownObject" not in problem.get_dbus_name():
                raise
            return None
        finally:
            os.close(handed.take())
            reader.join()
        return read[0]

    def _run(self, script):
        self._answer.told = None
        with open(self._script, "w", encoding="utf-8") as file:
            file.write(script)
        scripting = dbus.Interface(self._bus.get_object(KWIN, "/Scripting", introspect=False),
                                   "org.kde.kwin.Scripting")
        number = scripting.loadScript(self._script, "question")
        try:
            self._start(number)
            context = GLib.MainContext.default()
            limit = time.monotonic() + SECONDS
            while self._answer.told is None:
                if time.monotonic() > limit:
                    raise TimeoutError("KWin did not run a script to its end")
                # Not blocking, because nothing may come that would end that.
                if not context.iteration(False):
                    time.sleep(0.001)
        finally:
            scripting.unloadScript("question")
        return json.loads(self._answer.told)

    def _start(self, number):
        for place in (f"/Scripting/Script{number}", f"/{number}"):  # of version 6, and of 5
            try:
                self._bus.get_object(KWIN, place, introspect=False).run(
                    dbus_interface="org.kde.kwin.Script")
                return
            except dbus.DBusException as problem:
                if "UnknownObject" not in problem.get_dbus_name():
                    raise
