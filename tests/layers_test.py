#!/usr/bin/python3
"""Reads the includes under src/ and tests/ and fails, with file and line, where one runs up.

layers_test.py [ROOT]        checks a source tree
layers_test.py --self-test   checks that each kind of wrong include is found
"""

import os
import re
import sys
import tempfile

ROOMS = ("history", "shortcut", "updates", "hotkey", "preferenceswindow")
# What their widgets have in common, below them.
LOOKS = "looks"
ROOMS_WITH_WIDGETS = ("shortcut", "updates", "hotkey", "preferenceswindow")
# What HTML and RTF are to the adapters, and to those who show them.
RICH_TEXT = "platform/richtext"
# The folders of Clipboard/, which knows them all, and whom each of them knows above the platform.
FOLDERS = {
    "Clipboard/exchange": set(),
    "Clipboard/settings": {LOOKS, "shortcut", "hotkey"},
    "Clipboard/preview": {LOOKS, "preview"},
    "Clipboard/window": {LOOKS, RICH_TEXT, "history", "Clipboard/preview"},
    "Clipboard/preferences": {LOOKS, "shortcut", "preferenceswindow", "Clipboard/settings"},
    "Clipboard/welcome": {LOOKS, "Clipboard/settings"},
}
ADAPTERS = ("x11", "wayland", "kde", "portal", "absent", "freedesktop")
# The only files of src/ that name adapters, and that know of the one who chooses them.
MAINS = ("Clipboard/main.cpp", "updates/helper_main.cpp", "door/main.cpp")
# What adapters of one kind share; each may know it.
SHARED = {"platform/pasteboard", "platform/typing", RICH_TEXT}
LOADER = "platform/PlatformLoader.cpp"
LOADER_HEADER = "platform/PlatformLoader.h"
# Where it puts the adapters of each display system together.
LOADER_PARTS = "platform/loader"

INCLUDE = re.compile(r'\s*#\s*include\s*"([^"]+)"')
# It asks the owner and waits for it on the main thread; the pasteboard does not.
TOOLKIT_CLIPBOARD = re.compile(r"QClipboard|\bclipboard\(\)|createStandardContextMenu")


def layer(path):
    """The layer of a file under src/: a room, or a folder of the platform or of Clipboard."""
    parts = path.split("/")
    if parts[0] in ("platform", "Clipboard") and len(parts) > 2:
        return parts[0] + "/" + parts[1]
    return parts[0]


def may_know(path):
    """The layers that a file under src/ may include from."""
    own = layer(path)
    if own == "Clipboard":
        known = {"Clipboard", "platform", LOOKS, *ROOMS, *FOLDERS}
    elif own in FOLDERS:
        known = {own, "platform", *FOLDERS[own]}
    elif own.removeprefix("platform/") in ADAPTERS:
        known = {own, *SHARED, "platform"}
        if own in ("platform/kde", "platform/portal"):
            known.add("platform/wayland")  # What they add goes over the same connection.
    elif own in ("history", "platform/pasteboard"):
        known = {own, "platform", RICH_TEXT}
    else:
        known = {own, "platform"}
    if own in ROOMS_WITH_WIDGETS:
        known.add(LOOKS)
    if path in MAINS or path == LOADER or own == LOADER_PARTS:
        known |= {"platform/" + adapter for adapter in ADAPTERS}
    if path == LOADER:
        known.add(LOADER_PARTS)
    return known


def fault(path, included):
    """Why a file under src/ may not include another; None when it may."""
    target = layer(included)
    if target not in may_know(path):
        return f"{layer(path)} may not know {target}"
    if included == LOADER_HEADER and path != LOADER and path not in MAINS:
        return "only main chooses the platform"
    return None


def fault_in_test(path, included):
    """The same for a file under tests/: adapters are named by their own tests only."""
    is_adapters_test = path.startswith(("platform/", "desktop/", "fuzz/", "support/"))
    if layer(included) in {"platform/" + adapter for adapter in ADAPTERS} and not is_adapters_test:
        return "only tests of the platform name adapters"
    return None


def sources(folder):
    for parent, folders, names in os.walk(folder):
        folders.sort()
        for name in sorted(names):
            if name.endswith((".h", ".cpp", ".h.in")):
                yield os.path.relpath(os.path.join(parent, name), folder)


def includes(folder, path):
    with open(os.path.join(folder, path), encoding="utf-8") as source:
        for number, line in enumerate(source, 1):
            match = INCLUDE.match(line)
            if match and not match[1].endswith(".moc"):
                yield number, match[1]


def waits_for_owners(folder, path):
    """The lines of a file that name the toolkit's clipboard."""
    with open(os.path.join(folder, path), encoding="utf-8") as source:
        return [number for number, line in enumerate(source, 1) if TOOLKIT_CLIPBOARD.search(line)]


def cycles(arrows):
    """Include cycles, each once, as lists of files."""
    found, done = [], set()

    def visit(path, trail):
        if path in trail:
            found.append(trail[trail.index(path):] + [path])
            return
        if path in done:
            return
        for included in arrows.get(path, ()):
            visit(included, trail + [path])
        done.add(path)

    for start in sorted(arrows):
        visit(start, [])
    return found


def check(root):
    """What is wrong in the tree, one line a fault."""
    faults = []
    src, tests = os.path.join(root, "src"), os.path.join(root, "tests")
    known = {path.removesuffix(".in") for path in sources(src)}
    arrows = {}
    for path in sources(src):
        for number, included in includes(src, path):
            if included not in known:
                why = "no file of that name, counted from src/"
            else:
                arrows.setdefault(path, []).append(included)
                why = fault(path, included)
            if why:
                faults.append(f'src/{path}:{number}: "{included}": {why}')
        faults += [f"src/{path}:{number}: the toolkit's clipboard waits for other programs"
                   for number in waits_for_owners(src, path)]
    for path in sources(tests):
        for number, included in includes(tests, path):
            why = fault_in_test(path, included) if included in known else None
            if why:
                faults.append(f'tests/{path}:{number}: "{included}": {why}')
    faults += [f"src/{cycle[0]}:1: a circle: " + " > ".join(cycle) for cycle in cycles(arrows)]
    return faults


# A file, its includes, and the text that its report must contain (None: nothing is wrong).
CASES = (
    ("Clipboard/AppDelegate.h", ("history/Store.h", "platform/Clock.h"), None),
    ("Clipboard/main.cpp", ("platform/PlatformLoader.h", "platform/x11/Keys.h"), None),
    ("platform/PlatformLoader.cpp", ("platform/x11/Keys.h", "platform/freedesktop/Bus.h"), None),
    ("history/Store.cpp", ("platform/Clock.h", "platform/Info.h"), None),
    ("history/Store.cpp", ("platform/Clock.h", "shortcut/Value.h"), "src/history/Store.cpp:2:"),
    ("history/Store.cpp", ("Clipboard/AppDelegate.h",), "history may not know Clipboard"),
    ("history/Store.cpp", ("platform/x11/Keys.h",), "history may not know platform/x11"),
    ("Clipboard/AppDelegate.cpp", ("platform/x11/Keys.h",), "may not know platform/x11"),
    ("Clipboard/AppDelegate.cpp", ("platform/PlatformLoader.h",), "only main chooses"),
    ("updates/Window.cpp", ("looks/Field.h",), None),
    ("history/Store.cpp", ("looks/Field.h",), "history may not know looks"),
    ("looks/Field.cpp", ("shortcut/Value.h",), "looks may not know shortcut"),
    ("looks/Field.cpp", ("platform/QClipboard.h",), "waits for other programs"),
    ("platform/x11/Keys.cpp", ("platform/freedesktop/Bus.h",), "may not know platform/freedesktop"),
    ("platform/x11/Keys.cpp", ("history/Store.h",), "platform/x11 may not know history"),
    ("platform/x11/Keys.cpp", ("platform/pasteboard/Uris.h",), None),
    ("platform/x11/Keys.cpp", ("platform/richtext/Rtf.h",), None),
    ("Clipboard/window/View.h", ("platform/richtext/Rtf.h",), None),
    ("history/Store.cpp", ("platform/richtext/Rtf.h",), None),
    ("shortcut/View.cpp", ("platform/richtext/Rtf.h",), "shortcut may not know platform/richtext"),
    ("platform/pasteboard/Uris.cpp", ("platform/x11/Keys.h",), "may not know platform/x11"),
    ("platform/kde/Keys.cpp", ("platform/wayland/Connection.h",), None),
    ("platform/portal/Keys.cpp", ("platform/wayland/Connection.h",), None),
    ("platform/wayland/Keys.cpp", ("platform/kde/Connection.h",), "may not know platform/kde"),
    ("history/Store.cpp", ("platform/pasteboard/Uris.h",), "may not know platform/pasteboard"),
    ("platform/Clock.cpp", ("platform/x11/Keys.h",), "platform may not know platform/x11"),
    ("platform/Clock.cpp", ("Clock.h",), "no file of that name"),
    ("history/Store.h", ("history/Item.h",), "a circle"),
    ("Clipboard/AppDelegate.h", ("Clipboard/window/View.h", "Clipboard/preview/Body.h"), None),
    ("Clipboard/window/View.h", ("Clipboard/preview/Body.h", "history/Store.h"), None),
    ("Clipboard/preview/Body.h", ("Clipboard/window/View.h",), "may not know Clipboard/window"),
    ("Clipboard/preview/Body.h", ("Clipboard/AppDelegate.h",), "preview may not know Clipboard"),
    ("Clipboard/preview/Body.h", ("history/Store.h",), "preview may not know history"),
    ("Clipboard/preview/Body.h", ("preview/Content.h", "looks/Field.h"), None),
    ("Clipboard/window/View.h", ("preview/Content.h",), "window may not know preview"),
    ("preview/Content.h", ("looks/Field.h",), "preview may not know looks"),
    ("Clipboard/other/New.h", ("platform/Clock.h", "looks/Field.h"), "other may not know looks"),
)


def write(root, path, included):
    path = os.path.join(root, path)
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "a", encoding="utf-8") as file:
        file.writelines(f'#include "{name}"\n' for name in included)


def self_test():
    failed = []
    for path, included, expected in CASES:
        with tempfile.TemporaryDirectory() as root:
            for name in {name for _, names, _ in CASES for name in names} - {"Clock.h"}:
                write(root, "src/" + name.replace("Info.h", "Info.h.in"), ())
            write(root, "src/history/Item.h", ("history/Store.h",))
            write(root, "src/" + path, included)
            told = check(root)
            is_right = not told if expected is None else len(told) == 1 and expected in told[0]
            if not is_right:
                failed.append(f"{path} including {included}: expected {expected}, told {told}")
    with tempfile.TemporaryDirectory() as root:
        write(root, "src/platform/x11/Keys.h", ())
        write(root, "tests/history/StoreTest.cpp", ("platform/x11/Keys.h",))
        write(root, "tests/platform/x11/KeysTest.cpp", ("platform/x11/Keys.h",))
        if [line.split(": ")[0] for line in check(root)] != ["tests/history/StoreTest.cpp:1"]:
            failed.append(f"an adapter named by a room's test: told {check(root)}")
    return failed


def main():
    if sys.argv[1:] == ["--self-test"]:
        faults = self_test()
    else:
        here = os.path.dirname(os.path.abspath(__file__))
        faults = check(sys.argv[1] if sys.argv[1:] else os.path.dirname(here))
    print("\n".join(faults))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
