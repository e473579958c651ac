#!/usr/bin/python3
"""A clipboard owner that behaves as told. Prints "owner" once it owns CLIPBOARD.

  owner.py serve [--rtf RTF] [--secret] TEXT   a well-behaved application
  owner.py brief MILLISECONDS TEXT             copies and exits
  owner.py burst COUNT INTERVAL_MS             COUNT different copies
  owner.py hang                                never answers, marked text neither
  owner.py stall                               starts a large transfer, then sleeps
  owner.py die                                 starts a large transfer, then exits
  owner.py large BYTES                         one text of that size, sent in pieces
"""

import argparse
import select
import time

from Xlib import X, Xatom, display
from Xlib.protocol import event

CHUNK = 200_000


class Owner:
    def __init__(self):
        self.display = display.Display()
        self.window = self.display.screen().root.create_window(
            0, 0, 1, 1, 0, X.CopyFromParent, event_mask=X.PropertyChangeMask)
        self.atoms = {}
        self.formats = {}
        self.transfers = {}
        self.after_first_chunk = None
        self.answers = True
        self.was_fetched = False

    def atom(self, name):
        if name not in self.atoms:
            self.atoms[name] = self.display.intern_atom(name)
        return self.atoms[name]

    def own(self, formats):
        """`formats`: target name to bytes."""
        self.formats = {self.atom(name): data for name, data in formats.items()}
        self.was_fetched = False
        self.window.set_selection_owner(self.atom("CLIPBOARD"), X.CurrentTime)
        self.display.flush()

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
        elif happened.type == X.PropertyNotify and happened.state == X.PropertyDelete:
            self.go_on(happened.window.id, happened.atom)

    def answer(self, request):
        given = request.property or request.target
        if request.target == self.atom("TARGETS"):
            offered = [self.atom("TARGETS"), *self.formats]
            request.requestor.change_property(given, Xatom.ATOM, 32, offered)
        elif request.target in self.formats:
            data = self.formats[request.target]
            if len(data) > CHUNK or self.after_first_chunk:
                request.requestor.change_attributes(event_mask=X.PropertyChangeMask)
                request.requestor.change_property(given, self.atom("INCR"), 32, [len(data)])
                self.transfers[(request.requestor.id, given)] = [request.requestor,
                                                                request.target, data, 0]
            else:
                request.requestor.change_property(given, request.target, 8, data)
                self.was_fetched = True
        else:
            given = X.NONE
        request.requestor.send_event(event.SelectionNotify(
            time=request.time, requestor=request.requestor, selection=request.selection,
            target=request.target, property=given))
        self.display.flush()

    def go_on(self, window, given):
        transfer = self.transfers.get((window, given))
        if not transfer:
            return
        requestor, target, data, sent = transfer
        chunk = data[sent:sent + CHUNK]
        requestor.change_property(given, target, 8, chunk)
        self.display.flush()
        transfer[3] += len(chunk)
        if not chunk:
            del self.transfers[(window, given)]
        if self.after_first_chunk:
            self.display.sync()
            self.after_first_chunk()


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("mode")
    parser.add_argument("arguments", nargs="*")
    parser.add_argument("--rtf")
    parser.add_argument("--secret", action="store_true")
    options = parser.parse_intermixed_args()
    owner = Owner()
    if options.mode == "burst":
        count, interval = map(int, options.arguments)
        # The first answer of a Python program is slow; the burst itself must not be.
        owner.own({"UTF8_STRING": b"before the burst"})
        owner.serve(0.3)
        for i in range(count):
            owner.own({"UTF8_STRING": f"burst copy {i}".encode()})
            owner.serve(interval / 1000)
            owner.serve_until_fetched(1)
        print("owner", flush=True)
        owner.serve(2)
        return
    if options.mode in ("serve", "brief"):
        text = options.arguments[-1]
        formats = {"UTF8_STRING": text.encode()}
        if options.rtf:
            formats["text/rtf"] = options.rtf.encode()
        if options.secret:
            formats["x-kde-passwordManagerHint"] = b"secret"
    elif options.mode == "hang":
        owner.answers = False
        formats = {"UTF8_STRING": b"never told"}
    elif options.mode == "large":
        formats = {"UTF8_STRING": b"x" * int(options.arguments[0])}
    else:
        formats = {"UTF8_STRING": b"x" * 5_000_000}
        owner.after_first_chunk = (lambda: time.sleep(3600)) if options.mode == "stall" else (
            lambda: exit(0))
    owner.own(formats)
    if options.mode == "hang":
        owner.window.set_selection_owner(Xatom.PRIMARY, X.CurrentTime)
        owner.display.sync()
    print("owner", flush=True)
    owner.serve(int(options.arguments[0]) / 1000 if options.mode == "brief" else None)


if __name__ == "__main__":
    main()
