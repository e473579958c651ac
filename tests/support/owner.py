#!/usr/bin/python3
"""A clipboard owner that behaves as told. Prints "owner" once it owns CLIPBOARD.

  owner.py secret TEXT                 a password manager's copy
  owner.py html HTML TEXT              a browser's copy
  owner.py files [FORMAT FILE]... TEXT a text, and in other formats what is in the files
  owner.py brief MILLISECONDS TEXT     copies and exits
  owner.py burst COUNT INTERVAL_MS     COUNT different copies
  owner.py hang                        never answers, marked text neither
"""

import pathlib
import select
import sys
import time

from Xlib import X, Xatom, display
from Xlib.protocol import event


class Owner:
    def __init__(self):
        self.display = display.Display()
        self.window = self.display.screen().root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)
        self.formats = {}
        self.answers = True
        self.was_fetched = False

    def own(self, formats, selection="CLIPBOARD"):
        """`formats`: target name to bytes."""
        self.formats = {self.display.intern_atom(name): data for name, data in formats.items()}
        self.was_fetched = False
        self.window.set_selection_owner(self.display.intern_atom(selection), X.CurrentTime)
        self.display.sync()

    def serve(self, seconds=None):
        limit = time.monotonic() + seconds if seconds is not None else None
        while True:
            while self.display.pending_events():
                self.handle(self.display.next_event())
            wait = None if limit is None else limit - time.monotonic()
            if wait is not None and wait <= 0:
                return
            select.select([self.display.fileno()], [], [], wait)

    def serve_until_fetched(self, seconds):
        """A text that its owner replaces before answering for it was never to be had by anybody;
        on a busy machine that takes this program longer than the interval."""
        limit = time.monotonic() + seconds
        while not self.was_fetched and time.monotonic() < limit:
            self.serve(0.001)

    def handle(self, happened):
        if happened.type == X.SelectionRequest and self.answers:
            self.answer(happened)

    def answer(self, request):
        given = request.property
        targets = self.display.intern_atom("TARGETS")
        if request.target == targets:
            request.requestor.change_property(given, Xatom.ATOM, 32, [targets, *self.formats])
        elif request.target in self.formats:
            request.requestor.change_property(given, request.target, 8, self.formats[request.target])
            self.was_fetched = True
        else:
            given = X.NONE
        request.requestor.send_event(event.SelectionNotify(
            time=request.time, requestor=request.requestor, selection=request.selection,
            target=request.target, property=given))
        self.display.flush()


def main():
    mode, *words = sys.argv[1:]
    owner = Owner()
    text = {"UTF8_STRING": words[-1].encode() if words else b"never told"}
    if mode == "burst":
        count, interval = map(int, words)
        # The first answer of a Python program is slow; the burst itself must not be.
        owner.own({"UTF8_STRING": b"before the burst"})
        owner.serve(0.3)
        for i in range(count):
            owner.own({"UTF8_STRING": f"burst copy {i}".encode()})
            owner.serve(interval / 1000)
            owner.serve_until_fetched(1)
    elif mode == "html":
        owner.own({**text, "text/html": words[0].encode()})
    elif mode == "secret":
        owner.own({**text, "x-kde-passwordManagerHint": b"secret"})
    elif mode == "files":
        files = zip(words[0:-1:2], words[1::2])
        owner.own({**text, **{name: pathlib.Path(file).read_bytes() for name, file in files}})
    else:
        owner.answers = mode != "hang"
        owner.own(text)
        if mode == "hang":
            owner.own(text, "PRIMARY")
    print("owner", flush=True)
    owner.serve(int(words[0]) / 1000 if mode == "brief" else 2 if mode == "burst" else None)


if __name__ == "__main__":
    main()
