#!/usr/bin/python3
"""Clipboard owners at their worst. Prints "owner" once it owns CLIPBOARD.

  owners.py hangs            never answers
  owners.py dies             ends before it answers
  owners.py refuses          lists a text and refuses it
  owners.py raves            lists formats without names, and answers with nonsense
  owners.py lists            lists 60,000 formats
  owners.py stalls           announces a text in pieces, sends one and no more
  owners.py breaks           likewise, and ends
  owners.py drips            sends a byte at a time, for ever
  owners.py boasts           announces 4 GB, and sends three bytes
  owners.py swells           announces nothing, and sends 100 MB
  owners.py races            copies a thousand times as fast as it can, and never answers
  owners.py bursts COUNT MS  three owners take turns, COUNT copies, one each MS milliseconds
"""

import pathlib
import select
import sys
import time

from Xlib import X, Xatom
from Xlib.error import BadWindow

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "support"))
from owner import Owner  # noqa: E402

MODE = sys.argv[1]
PIECE = b"x" * 60_000


class BadOwner(Owner):
    def __init__(self):
        super().__init__()
        self.transfers = {}  # by the requestor's property: how many pieces were sent

    def answer(self, request):
        if MODE == "hangs" or MODE == "races":
            return
        if MODE == "dies":
            sys.exit(0)
        is_targets = request.target == self.display.intern_atom("TARGETS")
        if MODE == "raves":
            request.requestor.change_property(request.property, request.target, 16, [1, 2, 3])
            self.tell(request, request.property)
        elif is_targets:
            self.tell_targets(request)
        elif MODE == "refuses":
            self.tell(request, X.NONE)
        else:
            self.announce(request)

    def tell_targets(self, request):
        names = ([*range(10, 60_010)] if MODE == "lists" else
                 [self.display.intern_atom("UTF8_STRING")])
        request.requestor.change_property(request.property, Xatom.ATOM, 32, names)
        self.tell(request, request.property)

    def announce(self, request):
        size = 0xFFFFFFFF if MODE == "boasts" else 0
        request.requestor.change_attributes(event_mask=X.PropertyChangeMask)
        request.requestor.change_property(request.property, self.display.intern_atom("INCR"), 32,
                                          [size])
        self.transfers[request.property] = 0
        self.tell(request, request.property)

    def handle(self, happened):
        if happened.type == X.PropertyNotify and happened.state == X.PropertyDelete and \
                happened.atom in self.transfers:
            self.send_piece(happened.window, happened.atom)
        else:
            super().handle(happened)

    def send_piece(self, window, place):
        sent = self.transfers[place]
        self.transfers[place] += 1
        text = self.display.intern_atom("UTF8_STRING")
        if sent and MODE == "stalls":
            return
        if sent and MODE == "breaks":
            sys.exit(0)
        pieces = {"drips": b"x", "boasts": b"abc" if not sent else b"",
                  "swells": PIECE if sent * len(PIECE) < 100e6 else b""}
        if MODE == "drips":
            time.sleep(0.05)
        window.change_property(place, text, 8, pieces.get(MODE, PIECE))
        self.display.flush()

    def tell(self, request, given):
        from Xlib.protocol import event
        request.requestor.send_event(event.SelectionNotify(
            time=request.time, requestor=request.requestor, selection=request.selection,
            target=request.target, property=given))
        self.display.flush()


def burst(count, interval):
    """A text that is replaced before its owner answered for it was never to be had by anybody, so
    each stays until it has been fetched; says how long that took at most, and how many were not
    fetched within a second."""
    owners = [Owner() for _ in range(3)]
    missed = 0
    print("owner", flush=True)
    for number in range(count):
        owner = owners[number % len(owners)]
        owner.own({"UTF8_STRING": f"burst copy {number}".encode()})
        begun = time.monotonic()
        while time.monotonic() < begun + interval or (
                not owner.was_fetched and time.monotonic() < begun + 1):
            for one in owners:
                while one.display.pending_events():
                    one.handle(one.display.next_event())
            select.select([one.display.fileno() for one in owners], [], [],
                          max(0.0, begun + interval - time.monotonic()) or 0.01)
        missed += not owner.was_fetched
    print(missed, flush=True)
    owners[0].serve(2)


def main():
    if MODE == "bursts":
        burst(int(sys.argv[2]), int(sys.argv[3]) / 1000)
        return
    owner = BadOwner()
    for _ in range(1000 if MODE == "races" else 1):
        owner.own({"UTF8_STRING": b"never told"})
    print("owner", flush=True)
    try:
        owner.serve()
    except BadWindow:
        pass


if __name__ == "__main__":
    main()
