#!/usr/bin/python3
"""A small GTK text window. Writes its text to FILE on every change, so that a test can see what
arrived and when; "ready" is written to standard output once the window has the keyboard.

usage: gtk_editor.py FILE [TEXT] [--select] [--slow MS] [--burst COUNT]
(--select selects TEXT; --slow hangs for so long before each copy and paste; --burst copies so many
texts, 5 ms apart, when it is to copy: TEXT 0 and so on)
"""

import os
import sys
import time

import gi

gi.require_version("Gdk", "3.0")
gi.require_version("Gtk", "3.0")
from gi.repository import GLib  # noqa: E402

# The window's class is made of it, by which copies name the application.
GLib.set_prgname("editor")
from gi.repository import Gdk, Gtk  # noqa: E402


def copy_often(view, text, count):
    clipboard = Gtk.Clipboard.get(Gdk.SELECTION_CLIPBOARD)
    numbers = iter(range(count))

    def copy_next():
        number = next(numbers, None)
        if number is not None:
            clipboard.set_text(f"{text} {number}", -1)
        return number is not None

    view.connect_after("copy-clipboard", lambda _: GLib.timeout_add(5, copy_next))


def main():
    arguments = [a for a in sys.argv[1:] if a != "--select"]
    delay = 0
    if "--slow" in arguments:
        index = arguments.index("--slow")
        delay = int(arguments.pop(index + 1)) / 1000
        arguments.pop(index)
    burst = 0
    if "--burst" in arguments:
        index = arguments.index("--burst")
        burst = int(arguments.pop(index + 1))
        arguments.pop(index)
    path = arguments[0]
    window = Gtk.Window(title="GTK editor", default_width=420, default_height=240)
    view = Gtk.TextView()
    view.set_wrap_mode(Gtk.WrapMode.WORD_CHAR)
    view.set_left_margin(6)
    buffer = view.get_buffer()
    if len(arguments) > 1:
        buffer.set_text(arguments[1])
    if "--select" in sys.argv:
        buffer.select_range(*buffer.get_bounds())

    def write(*_):
        with open(path + ".new", "w", encoding="utf-8", newline="") as file:
            file.write(buffer.get_text(*buffer.get_bounds(), True))
        os.rename(path + ".new", path)

    for signal in ("copy-clipboard", "paste-clipboard"):
        view.connect(signal, lambda _: time.sleep(delay))
    if burst:
        copy_often(view, arguments[1], burst)
    buffer.connect("changed", write)
    write()
    window.add(view)
    window.connect("destroy", Gtk.main_quit)
    window.connect("focus-in-event", lambda *_: print("ready", flush=True))
    window.show_all()
    view.grab_focus()
    Gtk.main()


main()
