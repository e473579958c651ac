#!/usr/bin/python3
"""The part of GNOME's settings program that the shortcuts portal asks: gives every shortcut the keys
that its program would prefer, and asks nobody. Prints "ready" once it can be asked."""

import dbus
import dbus.mainloop.glib
import dbus.service
from gi.repository import GLib

NAME = "org.gnome.Settings.GlobalShortcutsProvider"


class Provider(dbus.service.Object):
    def __init__(self, bus):
        super().__init__(dbus.service.BusName(NAME, bus), "/org/gnome/Settings/GlobalShortcutsProvider")

    @dbus.service.method(NAME, in_signature="ssa(sa{sv})", out_signature="a(sa{sv})")
    def BindShortcuts(self, _application, _window, wanted):
        return [(name, {"description": options["description"],
                        "shortcuts": dbus.Array([options["preferred_trigger"]], "s")})
                for name, options in wanted]


def main():
    dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
    Provider(dbus.SessionBus())
    print("ready", flush=True)
    GLib.MainLoop().run()


main()
