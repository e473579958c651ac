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

from Xlib import X, Xutil

from owner import Owner

STDIN = 0


class Program(Owner):
    def __init__(self):
        super().__init__()
        self.windows = []

    def show(self, name):
        window = self.display.screen().root.create_window(
            200, 200, 200, 100, 0, X.CopyFromParent, event_mask=X.StructureNotifyMask)
        window.set_wm_class(name.lower(), name)
        window.set_wm_hints(flags=Xutil.InputHint, input=True)
        if self.windows:
            window.set_wm_transient_for(self.windows[0])
        self.windows.append(window)
        window.map()
        while self.display.next_event().type != X.MapNotify:
            pass
        window.set_input_focus(X.RevertToPointerRoot, X.CurrentTime)

    def close(self):
        while self.windows:
            self.windows.pop().destroy()

    def do(self, line):
        command, _, argument = line.strip().partition(" ")
        if command in ("window", "dialog"):
            self.show(argument)
        elif command == "class":
            self.windows[0].set_wm_class(argument.lower(), argument)
        elif command == "copy":
            self.own({"UTF8_STRING": argument.encode()})
        else:
            self.close()
        self.display.sync()
        print("done", flush=True)

    def run(self):
        told = b""
        while True:
            while self.display.pending_events():
                self.handle(self.display.next_event())
            if STDIN not in select.select([self.display.fileno(), STDIN], [], [])[0]:
                continue
            read = os.read(STDIN, 4096)
            if not read:
                return
            *lines, told = (told + read).split(b"\n")
            for line in lines:
                self.do(line.decode())


Program().run()
