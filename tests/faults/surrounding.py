"""What may happen to the desktop around the program, and to the programs beside it."""

import os
import random
import select
import signal
import time

from stage import BINARY, Pulse, Stage

OWNERS = ("hangs", "dies", "refuses", "raves", "lists", "stalls", "breaks", "drips", "boasts",
          "swells", "races")
FAULTS = os.path.relpath(os.path.dirname(os.path.abspath(__file__)),
                         os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "support"))


def owner(stage, *arguments):
    return stage.helper(os.path.join(FAULTS, "owners.py"), *arguments)


def check_works(stage, text):
    """Copied, opened, and pasted by the keys of the user."""
    stage.copy_new(text)
    stage.wait_for_texts([text], 30)
    stage.app.open_history()
    stage.app.close()


def killed_program(times=100, seed=None):
    """The program itself is killed while copies come in."""
    chance = random.Random(seed)
    committed = 0
    with Stage({"maxItems": 1_000_000}) as stage:
        copies = owner(stage, "bursts", 1_000_000, 8)
        seen = set()
        for _ in range(times):
            stage.start_app(wait=chance.random() < 0.8)
            time.sleep(chance.uniform(0, 0.7))
            if stage.app.store.exists():
                seen |= set(stage.clips())
            stage.app.process.send_signal(signal.SIGKILL)
            stage.app.process.wait()
            if stage.app.store.exists():
                stage.check_store(seen)
        committed = len(seen)
        copies.kill()
        stage.start_app()
        check_works(stage, "after all that")
        stage.check_store(seen)
    return f"{times}", f"all of {committed:,} committed clips there, store whole, and it starts"


def ended_display(times=10):
    """The X server is killed while copies come in."""
    committed = 0
    for _ in range(times):
        with Stage() as stage:
            stage.start_app()
            owner(stage, "bursts", 100_000, 8)
            stage.wait_for(lambda: len(stage.clips()) > 20, "copies")
            seen = stage.clips()
            stage.processes[0].kill()
            stage.app.process.wait(15)
            stage.check_store(seen)
            committed += len(seen)
    return f"{times}", f"it ends, all of {committed:,} committed clips there, store whole"


def restarted_bus(times=3):
    """The session bus ends and another one comes in its place."""
    with Stage(bus=False) as stage:
        address = f"unix:path={stage.home}/bus"
        stage.environment["DBUS_SESSION_BUS_ADDRESS"] = address

        def start_bus():
            bus = stage.start(["dbus-daemon", "--session", "--nofork", f"--address={address}"],
                              quiet=True)
            stage.wait_for(lambda: stage.ask(
                "dbus-send", f"--bus={address}", "--print-reply", "--dest=org.freedesktop.DBus", "/",
                "org.freedesktop.DBus.ListNames"), "the bus")
            return bus

        bus = start_bus()
        stage.start_app()
        for number in range(times):
            check_works(stage, f"with bus {number}")
            bus.kill()
            bus.wait()
            os.unlink(f"{stage.home}/bus")
            check_works(stage, f"without bus {number}")
            bus = start_bus()
            check_works(stage, f"with another bus {number}")
            if stage.run([BINARY, "launch"]).returncode:
                raise AssertionError("the second start did not find the first")
            stage.app.wait_until_active(stage.app.window())
            stage.app.close()
        if stage.app.quit():
            raise AssertionError("the program did not end well")
    return f"{times}", "copies, keys and the word of a second start reach it with and without a bus"


def restarted_tray(times=10):
    """The panel ends and comes again."""
    with Stage() as stage:
        stage.start_app()
        for number in range(times):
            panel = stage.helper("panel.py", is_ready=False)
            if not select.select([panel.stdout], [], [], 15)[0]:
                raise AssertionError(f"no item in panel {number}")
            panel.kill()
            panel.wait()
        check_works(stage, "after the panels")
    return f"{times}", "its item is in each new panel"


def shifted_clock(shifts=(86_400, -86_400, 1e9, -1e9, 0)):
    """The clock is set, as after a suspend or by its user: the newest copy is the topmost."""
    library = os.environ["SHIFTED_CLOCK_LIBRARY"]
    with Stage() as stage:
        shift = os.path.join(stage.home, "shift")
        with open(shift, "w", encoding="ascii") as file:
            file.write("0")
        stage.start_app({"LD_PRELOAD": library, "SHIFTED_CLOCK": shift})
        expected = []
        for number, seconds in enumerate(shifts):
            check_works(stage, f"before {number}")
            stage.app.process.send_signal(signal.SIGSTOP)
            with open(shift, "w", encoding="ascii") as file:
                file.write(f"{seconds:.0f}")
            stage.app.process.send_signal(signal.SIGCONT)
            check_works(stage, f"after {number}")
            expected = [f"after {number}", f"before {number}", *expected]
            if stage.clips() != expected:
                raise AssertionError(f"the order is {stage.clips()}")
    return f"{len(shifts)}", "the newest copy is the topmost, keys work at once"


def bursts(count=10_000, interval=5):
    """Three programs copy in turns."""
    with Stage({"maxItems": count + 100}) as stage:
        stage.start_app()
        copies = owner(stage, "bursts", count, interval)
        begun = time.monotonic()
        missed = int(copies.stdout.readline())
        took = time.monotonic() - begun
        texts = [f"burst copy {number}" for number in range(count)]
        stage.wait_for(lambda: len(stage.clips()) >= count - missed, "all copies", 60)
        stage.check_store()
        clips = stage.clips()
        lost = count - len(set(clips) & set(texts))
        if lost > missed or clips != [text for text in reversed(texts) if text in set(clips)]:
            raise AssertionError(f"{lost} are lost, or not in their order; {missed} were not fetched")
    return f"{count:,} copies", (f"{lost} lost, in their order, one each {took / count * 1000:.1f} ms "
                                 f"({missed} were not asked for within a second)")


def bad_owner(kind):
    """The history is opened while such an owner has the clipboard; a copy after it is recorded."""
    with Stage() as stage:
        stage.start_app()
        stage.copy_new("before")
        stage.wait_for_texts(["before"], 20)
        editor = stage.editor()
        window = stage.app.open_history()
        with Pulse(stage, window, editor) as pulse:
            bad = owner(stage, kind)
            stage.app.type("bef")
            stage.app.key("BackSpace", "ctrl+v")
            time.sleep(3)
            bad.kill()
            bad.wait()
            stage.copy_new("after")
            stage.wait_for_texts(["after"], 30)
        stage.app.close()
        stage.check_store(["before", "after"])
        if stage.app.process.poll() is not None:
            raise AssertionError("the program has ended")
    return pulse.longest[window], pulse.longest[editor]


def bad_owners():
    worst = {kind: bad_owner(kind) for kind in OWNERS}
    kind = max(worst, key=lambda kind: worst[kind][0])
    return f"{len(OWNERS)} kinds", (
        f"the next copy is recorded; longest pause {worst[kind][0]:.0f} ms ({kind}; a bare window "
        f"beside it {max(bare for _, bare in worst.values()):.0f} ms)")
