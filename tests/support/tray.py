#!/usr/bin/python3
"""A status area: as a program the watcher that status items register with, as a module the menu of
one of them.

    tray = Tray(desktop); tray.choose(process.pid, "Check For Updates...")
"""

import pathlib
import subprocess
import sys

import dbus

WATCHER = "org.kde.StatusNotifierWatcher"
MENU = "com.canonical.dbusmenu"
PYTHON = "/usr/bin/python3"


class Tray:
    def __init__(self, desktop):
        self.desktop = desktop
        watcher = desktop.start([PYTHON, str(pathlib.Path(__file__).resolve())],
                                stdout=subprocess.PIPE, text=True)
        watcher.stdout.readline()

    def _bus(self):
        return dbus.bus.BusConnection(self.desktop.environment["DBUS_SESSION_BUS_ADDRESS"])

    def menu(self, pid):
        """The entries of the item of that process, by title: each its id, its properties and the
        name of its connection; None when there is no such item."""
        bus = self._bus()
        try:
            items = bus.get_object(WATCHER, "/StatusNotifierWatcher").Get(
                WATCHER, "RegisteredStatusNotifierItems", dbus_interface=dbus.PROPERTIES_IFACE)
            names = [name for name in items if bus.name_has_owner(name) and
                     bus.call_blocking("org.freedesktop.DBus", "/", "org.freedesktop.DBus",
                                       "GetConnectionUnixProcessID", "s", (name,)) == pid]
            if not names:
                return None
            layout = dbus.Interface(bus.get_object(names[0], "/MenuBar"), MENU).GetLayout(
                0, -1, dbus.Array([], "s"))[1]
            return {str(entry[1].get("label", "")): (entry[0], entry[1], names[0])
                    for entry in layout[2]}
        except dbus.DBusException:
            return None
        finally:
            bus.close()

    def choose(self, pid, title):
        """Clicks an entry, as soon as the process shows its item."""
        identifier, _, name = self.desktop.wait_for(
            lambda: (self.menu(pid) or {}).get(title), f"the entry {title!r}")
        bus = self._bus()
        dbus.Interface(bus.get_object(name, "/MenuBar"), MENU).Event(
            identifier, "clicked", dbus.Int32(0), dbus.UInt32(0))
        bus.close()


def main():
    import dbus.mainloop.glib
    import dbus.service
    from gi.repository import GLib

    class Watcher(dbus.service.Object):
        items = []

        @dbus.service.method(WATCHER, in_signature="s", sender_keyword="sender")
        def RegisterStatusNotifierItem(self, _, sender=None):
            self.items.append(sender)

        # Qt reads only those properties that it is told of here.
        @dbus.service.method(dbus.INTROSPECTABLE_IFACE, out_signature="s")
        def Introspect(self):
            return (f'<node><interface name="{WATCHER}"><method name="RegisterStatusNotifierItem">'
                    '<arg type="s" direction="in"/></method>'
                    '<property name="IsStatusNotifierHostRegistered" type="b" access="read"/>'
                    '</interface></node>')

        @dbus.service.method(dbus.PROPERTIES_IFACE, in_signature="ss", out_signature="v")
        def Get(self, _, name):
            return {"IsStatusNotifierHostRegistered": True, "ProtocolVersion": dbus.Int32(0),
                    "RegisteredStatusNotifierItems": dbus.Array(self.items, "s")}[name]

    dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
    bus = dbus.SessionBus()
    owned = [dbus.service.BusName(WATCHER, bus), Watcher(bus, "/StatusNotifierWatcher")]
    print("ready", flush=True)
    GLib.MainLoop().run()
    return len(owned)


if __name__ == "__main__":
    sys.exit(main())
