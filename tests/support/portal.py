#!/usr/bin/python3
"""A desktop portal that knows only how programs shall look. Prints "ready" once it can be asked, and
takes orders from its standard input, one a line:

  scheme 0|1|2          no preference, dark, light
  accent RED GREEN BLUE from 0 to 1
"""

import sys

import dbus
import dbus.mainloop.glib
import dbus.service
from gi.repository import GLib

SPACE = "org.freedesktop.appearance"
SETTINGS = "org.freedesktop.portal.Settings"


class Portal(dbus.service.Object):
    def __init__(self, bus):
        self.settings = {}
        super().__init__(dbus.service.BusName("org.freedesktop.portal.Desktop", bus),
                         "/org/freedesktop/portal/desktop")

    @dbus.service.method(SETTINGS, in_signature="as", out_signature="a{sa{sv}}")
    def ReadAll(self, _spaces):
        return {SPACE: self.settings} if self.settings else {}

    @dbus.service.signal(SETTINGS, signature="ssv")
    def SettingChanged(self, space, key, value):
        pass

    def obey(self, source, _condition):
        order, *words = source.readline().split() or ["end"]
        if order == "end":
            return False
        key = "color-scheme" if order == "scheme" else "accent-color"
        value = dbus.UInt32(words[0]) if order == "scheme" else dbus.Struct(
            map(float, words), signature="ddd")
        self.settings[key] = value
        self.SettingChanged(SPACE, key, value)
        return True


def main():
    dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
    portal = Portal(dbus.SessionBus())
    GLib.io_add_watch(sys.stdin, GLib.PRIORITY_DEFAULT, GLib.IO_IN | GLib.IO_HUP, portal.obey)
    print("ready", flush=True)
    GLib.MainLoop().run()


main()
