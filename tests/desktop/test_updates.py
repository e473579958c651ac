"""An update from the feed to the relaunch, against a server of our own; and that nothing but the
publisher's file is ever installed."""

import os
import pathlib
import signal
import unittest

from journey import BINARY, Journey, Quillmarsh
from tray import Tray
from update_feed import Publisher, Server, archive, feed, fill_prefix


class UpdateJourney(Journey):
    """Version 1.0.0 in a prefix of its own, and what a server offers."""

    starts_app = False

    def setUp(self):
        super().setUp()
        self.publisher = Publisher(self.file("publisher"))
        self.server = Server(self.publisher.certificate)
        self.addCleanup(self.server.close)
        self.root = pathlib.Path(self.file("opt"))
        fill_prefix(self.root / "versions/1.0.0", "1.0.0")
        (self.root / "current").symlink_to("versions/1.0.0")
        self.variables = {
            "QUILLMARSH_TEST_FEED_URL": self.server.url("/feed.xml"),
            "QUILLMARSH_TEST_FEED_KEY": self.publisher.public,
            "QUILLMARSH_TEST_AUTHORITIES": str(self.publisher.authority),
        }
        self.tray = Tray(self.desktop)
        self.addCleanup(self.end_programs)

    def programs(self):
        """The processes that run out of our prefix, by id, with their executables."""
        found = {}
        for process in pathlib.Path("/proc").glob("[0-9]*"):
            try:
                path = os.readlink(process / "exe")
            except OSError:
                continue
            if path.startswith(str(self.root)):
                found[int(process.name)] = path
        return found

    def end_programs(self):
        for process in self.programs():
            os.kill(process, signal.SIGTERM)
        self.wait_for(lambda: not self.programs(), "the end of what was relaunched")

    def offer(self, version="1.1.0", file=None, **options):
        """Puts an archive of that version, or the file given, into the feed."""
        file = file or archive(self.file("update.tar.gz"), self.root / "versions/1.0.0", version)
        self.server.answers["/update"] = pathlib.Path(file).read_bytes()
        self.server.answers["/feed.xml"] = feed(
            self.publisher.item(file, self.server.url("/update"), version, **options))

    def start(self, program=None, **variables):
        self.app = Quillmarsh(self.desktop, str(program or self.root / "current/bin/quillmarsh"),
                              {**self.variables, **variables})

    def check(self):
        """Chooses the menu's check and returns its window."""
        self.tray.choose(self.app.process.pid, "Check For Updates...")
        window = self.app.window("Software Update")
        self.app.wait_until_active(window)
        return window

    def current(self):
        return os.readlink(self.root / "current")


class WholeWay(UpdateJourney):
    def test_an_update_is_found_installed_and_running(self):
        self.offer()
        self.start()
        self.check()
        self.app.wait_for_log("update found: 1.1.0")
        self.app.key("alt+i")
        self.app.wait_for_log("update installed: 1.1.0", seconds=30)
        self.assertEqual(self.app.process.wait(10), 0)
        self.assertEqual(self.current(), "versions/1.1.0")
        self.app.wait_for_log("devmate setup complete", count=2)


if __name__ == "__main__":
    unittest.main()
