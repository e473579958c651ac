"""The status item in panels and trays that come and go, and the word to those who have neither."""

import json
import pathlib
import select
import subprocess
import unittest

from Xlib import Xatom, display
from journey import BINARY, BUNDLE, SUPPORT, Journey, Quillmarsh

REPOSITORY = pathlib.Path(__file__).resolve().parent.parent.parent
UPDATER = str(pathlib.Path(BINARY).parent.parent / "libexec/quillmarsh/quillmarsh-updater")
SYMBOLIC = BUNDLE + "-symbolic"
MENU = ["Quillmarsh v", "Check For Updates...", "Preferences...", "-", "Launch...", "-",
        "Clear All", "-", "Help...", "Send Feedback...", "-", "Quit"]


class Tray(Journey):
    starts_app = False

    def panel(self):
        return self.desktop.start(["/usr/bin/python3", str(SUPPORT / "panel.py")],
                                  stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)

    def item_in(self, panel):
        self.assertTrue(select.select([panel.stdout], [], [], 10)[0], "no item in the panel")
        return json.loads(panel.stdout.readline())

    def end(self, process):
        process.kill()
        process.wait()

    def install_icons(self):
        for kind, name in (("scalable", BUNDLE), ("symbolic", SYMBOLIC)):
            folder = pathlib.Path(self.desktop.environment["XDG_DATA_HOME"],
                                  f"icons/hicolor/{kind}/apps")
            folder.mkdir(parents=True)
            (folder / f"{name}.svg").write_bytes(
                (REPOSITORY / f"data/icons/{name}.svg").read_bytes())

    def test_a_panel_shows_the_item_by_name_and_again_after_each_restart(self):
        self.install_icons()
        self.app = Quillmarsh(self.desktop, BINARY)
        for _ in range(3):
            panel = self.panel()
            item = self.item_in(panel)
            self.assertEqual((item["icon"], item["title"]), (SYMBOLIC, "Quillmarsh"))
            item["menu"][0] = item["menu"][0][:len(MENU[0])]
            self.assertEqual(item["menu"], MENU)
            self.end(panel)
        panel = self.panel()
        self.item_in(panel)
        print("Launch...", file=panel.stdin, flush=True)
        self.app.window()
        print("Quit", file=panel.stdin, flush=True)
        self.assertEqual(self.app.process.wait(10), 0)

    def test_an_icon_that_is_not_installed_is_sent_as_a_picture(self):
        panel = self.panel()
        self.app = Quillmarsh(self.desktop, BINARY)
        item = self.item_in(panel)
        self.assertEqual(item["icon"], "")
        self.assertGreater(item["pixmaps"], 0)

    def colors_at(self, area):
        told = self.desktop.run(["import", "-window", "root", "-crop", area, "-depth", "8",
                                 "txt:-"],
                                capture_output=True, text=True).stdout
        return {pixel.split()[2] for pixel in told.splitlines()[1:]}

    def test_an_older_tray_colours_the_item(self):
        self.app = Quillmarsh(self.desktop, BINARY)
        screen = display.Display(self.desktop.environment["DISPLAY"])
        for _ in range(2):
            tray = self.desktop.start(["trayer", "--height", "31"], quiet=True)
            owner = self.wait_for(
                lambda: screen.get_selection_owner(screen.intern_atom("_NET_SYSTEM_TRAY_S0")),
                "the tray")
            for color, components in (("#00FF00", (0, 0xFFFF, 0)), ("#FF0000", (0xFFFF, 0, 0))):
                owner.change_property(screen.intern_atom("_NET_SYSTEM_TRAY_COLORS"),
                                      Xatom.CARDINAL, 32, components * 4)
                screen.flush()
                self.wait_for(lambda: color in self.colors_at("40x31+0+769"), color)
            self.end(tray)

    def test_a_tray_that_colours_its_items_leaves_the_helpers_colours_alone(self):
        screen = display.Display(self.desktop.environment["DISPLAY"])
        self.desktop.start(["trayer", "--height", "31"], quiet=True)
        owner = self.wait_for(
            lambda: screen.get_selection_owner(screen.intern_atom("_NET_SYSTEM_TRAY_S0")),
            "the tray")
        owner.change_property(screen.intern_atom("_NET_SYSTEM_TRAY_COLORS"), Xatom.CARDINAL, 32,
                              (0, 0xFFFF, 0) * 4)
        screen.sync()
        empty = self.colors_at("40x31+0+769")
        self.app = Quillmarsh(self.desktop, UPDATER, wait=False)
        self.app.wait_for_log("status item shown")
        self.wait_for(lambda: len(self.colors_at("40x31+0+769") - empty) > 9, "the item's picture")
        self.assertNotIn("#00FF00", self.colors_at("40x31+0+769"))

    def test_without_a_tray_the_first_start_says_once_how_to_open_the_history(self):
        told = self.notifications()
        self.app = Quillmarsh(self.desktop, BINARY)
        self.wait_for(lambda: "Press ⇧⌘V (Super + Shift + V) to open the history" in told(),
                      "the hint")
        self.wait_for(lambda: self.app.setting("traylessHintShown"), "the hint to be remembered")


if __name__ == "__main__":
    unittest.main()
