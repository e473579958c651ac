"""The status item in panels and trays that come and go, and the word to those who have neither."""

import json
import pathlib
import select

from Xlib import Xatom, display
from journey import BINARY, BUNDLE, Journey, Quillmarsh

REPOSITORY = pathlib.Path(__file__).resolve().parent.parent.parent
UPDATER = str(pathlib.Path(BINARY).parent.parent / "libexec/quillmarsh/quillmarsh-updater")
SYMBOLIC = BUNDLE + "-symbolic"


class Tray(Journey):
    starts_app = False

    def panel(self):
        return self.desktop.helper("panel.py", is_ready=False)

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
            self.assertEqual(item["menu"][3:6], ["-", "Launch...", "-"])
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

    def colours(self):
        """Of the tray's end, where the item is."""
        told = self.desktop.ask("import", "-window", "root", "-crop", "40x31+0+769", "-depth", "8",
                                "txt:-")
        return {pixel.split()[2] for pixel in told.splitlines()[1:]}

    def tray(self, *components):
        """An older tray that asks for icons of that colour."""
        tray = self.desktop.start(["trayer", "--height", "31"], quiet=True)
        screen = display.Display(self.desktop.environment["DISPLAY"])
        owner = self.wait_for(
            lambda: screen.get_selection_owner(screen.intern_atom("_NET_SYSTEM_TRAY_S0")), "the tray")
        owner.change_property(screen.intern_atom("_NET_SYSTEM_TRAY_COLORS"), Xatom.CARDINAL, 32,
                              components * 4)
        screen.sync()
        screen.close()
        return tray

    def test_an_older_tray_colours_the_item(self):
        self.app = Quillmarsh(self.desktop, BINARY)
        for color, components in (("#00FF00", (0, 0xFFFF, 0)), ("#FF0000", (0xFFFF, 0, 0))):
            tray = self.tray(*components)
            self.wait_for(lambda: color in self.colours(), color)
            self.end(tray)

    def test_a_tray_that_colours_its_items_leaves_the_helpers_colours_alone(self):
        self.tray(0, 0xFFFF, 0)
        empty = self.colours()
        self.app = Quillmarsh(self.desktop, UPDATER, wait=False)
        self.app.wait_for_log("status item shown")
        self.wait_for(lambda: len(self.colours() - empty) > 9, "the item's picture")
        self.assertNotIn("#00FF00", self.colours())

    def test_without_a_tray_the_first_start_says_once_how_to_open_the_history(self):
        told = self.notifications()
        self.app = Quillmarsh(self.desktop, BINARY)
        self.wait_for(lambda: "Press ⇧⌘V (Super + Shift + V) to open the history" in told(),
                      "the hint")
        self.wait_for(lambda: self.app.setting("traylessHintShown"), "the hint to be remembered")
