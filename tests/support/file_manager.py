#!/usr/bin/python3
"""Stands in for the desktop's file manager: writes what it is asked to show to FILE, a line an
address; with --refuses it does not know how. Says "ready" once it can be asked.

usage: file_manager.py FILE [--refuses]
"""

import sys

import dbus
import dbus.mainloop.glib
import dbus.service
from gi.repository import GLib

NAME = "org.freedesktop.FileManager1"


class FileManager(dbus.service.Object):
    @dbus.service.method(NAME, in_signature="ass")
    def ShowItems(self, addresses, _):  # noqa: N802, the name of the interface
        if "--refuses" in sys.argv:
            raise dbus.DBusException("not today")
        with open(sys.argv[1], "a", encoding="utf-8") as file:
            file.writelines(address + "\n" for address in addresses)


def main():
    dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
    name = dbus.service.BusName(NAME, dbus.SessionBus(), do_not_queue=True)
    service = FileManager(name, "/org/freedesktop/FileManager1")  # noqa: F841
    print("ready", flush=True)
    GLib.MainLoop().run()


if __name__ == "__main__":
    main()
