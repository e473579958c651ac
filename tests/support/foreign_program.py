#!/usr/bin/python3
"""Another program on the display, which does what its input tells, a line each, and says "done":

  window CLASS   shows a window of that class and takes the keyboard
  dialog CLASS   the same, for the window
  class CLASS    gives the window another class
  close          closes its windows
  copy TEXT      owns CLIPBOARD, and serves it from then on

It ends when its input does.
"""

import os
import select

from Xlib import X, Xatom, Xutil, display
from Xlib.protocol import event

STDIN = 0


class Program:
    def __init__(self):
        self.display = display.Display()
        self.root = self.display.screen().root
        self.owner = self.root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)
        self.windows = []
        self.text = b""

    def window(self, name):
        window = self.root.create_window(200, 200, 200, 100, 0, X.CopyFromParent,
                                         event_mask=X.StructureNotifyMask)
        window.set_wm_class(name.lower(), name)
        window.set_wm_hints(flags=Xutil.InputHint, input=True)
        if self.windows:
            window.set_wm_transient_for(self.windows[0])
        self.windows.append(window)
        window.map()
        while self.display.next_event().type != X.MapNotify:
            pass
        window.set_input_focus(X.RevertToPointerRoot, X.CurrentTime)

    dialog = window

    def close(self, _):
        while self.windows:
            self.windows.pop().destroy()

    def copy(self, text):
        self.text = text.encode()
        self.owner.set_selection_owner(self.display.intern_atom("CLIPBOARD"), X.CurrentTime)

    def do(self, line):
        command, _, argument = line.strip().partition(" ")
        if command == "class":
            self.windows[0].set_wm_class(argument.lower(), argument)
        else:
            getattr(self, command)(argument)
        self.display.sync()
        print("done", flush=True)

    def answer(self, request):
        utf8, targets = (self.display.intern_atom(name) for name in ("UTF8_STRING", "TARGETS"))
        given = request.property
        if request.target == targets:
            request.requestor.change_property(given, Xatom.ATOM, 32, [targets, utf8])
        elif request.target == utf8:
            request.requestor.change_property(given, utf8, 8, self.text)
        else:
            given = X.NONE
        request.requestor.send_event(event.SelectionNotify(
            time=request.time, requestor=request.requestor, selection=request.selection,
            target=request.target, property=given))
        self.display.flush()

    def run(self):
        told = b""
        while True:
            while self.display.pending_events():
                happened = self.display.next_event()
                if happened.type == X.SelectionRequest:
                    self.answer(happened)
            if STDIN not in select.select([self.display.fileno(), STDIN], [], [])[0]:
                continue
            read = os.read(STDIN, 4096)
            if not read:
                return
            *lines, told = (told + read).split(b"\n")
            for line in lines:
                self.do(line.decode())


Program().run()
