#!/usr/bin/python3
"""A panel with a status area, as small as can be: StatusNotifierWatcher and host in one. It prints
a line of JSON for each item that registers: what a panel would show of it. Lines on its standard
input are texts of entries of the item's menu, which it activates; after a process id and a tab, of
the item of that process, as soon as there is one.

usage: panel.py
"""

import json
import sys

import dbus
import dbus.mainloop.glib
import dbus.service
from gi.repository import GLib

WATCHER = "org.kde.StatusNotifierWatcher"
ITEM = "org.kde.StatusNotifierItem"
MENU = "com.canonical.dbusmenu"


class Watcher(dbus.service.Object):
    def __init__(self, bus):
        super().__init__(bus, "/StatusNotifierWatcher")
        self.bus = bus
        self.item = None
        self.items = {}  # by process id
        self.wanted = {}  # the same, for those that are yet to come

    @dbus.service.method(WATCHER, in_signature="s", sender_keyword="sender")
    def RegisterStatusNotifierItem(self, service, sender=None):
        self.item = sender if service.startswith("/") else service
        process = str(self.bus.call_blocking(dbus.BUS_DAEMON_NAME, dbus.BUS_DAEMON_PATH,
                                             dbus.BUS_DAEMON_IFACE, "GetConnectionUnixProcessID",
                                             "s", (sender,)))
        self.items[process] = self.item
        GLib.idle_add(self.tell)
        if process in self.wanted:
            GLib.idle_add(self.choose, f"{process}\t{self.wanted.pop(process)}")

    @dbus.service.method(WATCHER, in_signature="s")
    def RegisterStatusNotifierHost(self, service):
        pass

    @dbus.service.method(dbus.PROPERTIES_IFACE, in_signature="ss", out_signature="v")
    def Get(self, interface, name):
        return {"IsStatusNotifierHostRegistered": True, "ProtocolVersion": dbus.Int32(0),
                "RegisteredStatusNotifierItems": dbus.Array([], signature="s")}[name]

    @dbus.service.method(dbus.INTROSPECTABLE_IFACE, out_signature="s",
                         path_keyword="path", connection_keyword="connection")
    def Introspect(self, path, connection):
        """With the properties, which the library leaves out and some toolkits look for."""
        told = super().Introspect(path, connection)
        return told.replace(f'<interface name="{WATCHER}">',
                            f'<interface name="{WATCHER}"><property access="read" type="b" '
                            'name="IsStatusNotifierHostRegistered"/>')

    def menu(self, item):
        menu = dbus.Interface(self.bus.get_object(item, "/MenuBar", introspect=False), MENU)
        return menu, menu.GetLayout(0, -1, dbus.Array([], signature="s"))[1][2]

    def tell(self):
        item = self.bus.get_object(self.item, "/StatusNotifierItem", introspect=False)
        try:
            told = item.GetAll(ITEM, dbus_interface=dbus.PROPERTIES_IFACE)
        except dbus.DBusException:
            return  # gone again
        print(json.dumps({"icon": told["IconName"], "pixmaps": len(told["IconPixmap"]),
                          "title": told["ToolTip"][2],
                          "menu": [entry[1].get("label", "-") for entry in self.menu(self.item)[1]]}),
              flush=True)

    def choose(self, line):
        process, _, text = line.rpartition("\t")
        item = self.items.get(process) if process else self.item
        if item is None:
            self.wanted[process] = text
            return
        menu, entries = self.menu(item)
        for number, facts, _ in entries:
            if facts.get("label") == text:
                menu.Event(number, "clicked", dbus.String("", variant_level=1), dbus.UInt32(0))


def main():
    dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
    bus = dbus.SessionBus()
    watcher = Watcher(bus)
    name = dbus.service.BusName(WATCHER, bus, do_not_queue=True)
    loop = GLib.MainLoop()

    def read(*_):
        line = sys.stdin.readline()
        watcher.choose(line.strip()) if line else loop.quit()
        return bool(line)

    GLib.io_add_watch(sys.stdin.fileno(), GLib.IO_IN | GLib.IO_HUP, read)
    loop.run()
    del name


if __name__ == "__main__":
    main()
