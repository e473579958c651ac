"""Those that copy pictures, which the history does not record and must not lose either."""

import subprocess

from application import COLUMNS, Application
from editors import CopyReader, Editor

SCREENSHOOTER = ["xfce4-screenshooter", "--fullscreen", "--clipboard"]


def is_picture_kept(desk):
    return desk.tell("sh", "-c", "timeout 5 xclip -o -selection clipboard -t image/png"
                     " | head -c 4 | xxd -p") == "89504e47"


class PaintProgram(CopyReader):
    """Pictures, which the history does not record and must not lose either; and its text tool."""

    def start(self, desk, text):
        self.is_filled = False
        self.text = text
        picture = desk.file("heron.png", None)
        subprocess.run(["convert", "-size", "640x480", "xc:teal", "PNG24:" + picture], check=True)
        return desk.desktop.start([*self.command, picture], quiet=True)

    @staticmethod
    def wait_until_open(desk):
        desk.wait_for(lambda: "heron" in desk.title(), "the picture", 90)

    def settle(self, desk):
        self.wait_until_open(desk)
        super().settle(desk)
        desk.type(self.text)

    def type_one(self, desk):
        desk.key("Escape", "t")
        desk.click(600, 400)
        super().type_one(desk)

    def close_after_copy(self, desk):
        desk.process = self.start(desk, "")
        desk.wait_until_in_front(self.window_class)
        self.wait_until_open(desk)
        desk.desktop.repeat(lambda: desk.key(*self.copy_keys),
                            lambda: "image/png" in (desk.pasteboard("TARGETS") or ""),
                            "the copied picture", seconds=90)
        self.quit(desk)
        desk.wait_for(lambda: is_picture_kept(desk), "the closed application's picture")
        return "✓, the picture"


def take_screenshot(desk):
    desk.desktop.start(SCREENSHOOTER, quiet=True).wait(30)
    desk.wait_for(lambda: is_picture_kept(desk), "the screenshot")


class Screenshooter(Application):
    absent = {column: "shot" for column in COLUMNS if column != "close_after_copy"}

    def close_after_copy(self, desk):
        take_screenshot(desk)
        return "✓, the picture"


class Neighbour(Editor):
    """The editor, while another program has a part in the clipboard or would like to."""

    def close_after_copy(self, desk):
        super().close_after_copy(desk)
        take_screenshot(desk)
        return "✓, a screenshot too"
