"""An update from the feed to the relaunch, against a server of our own; and that nothing but the
publisher's file is ever installed."""

import fcntl
import os
import pathlib
import shutil
import signal
import socket
import subprocess
import tarfile

from journey import BINARY, Journey, Quillmarsh
from tls_server import make_authority, reply
from update_feed import FeedServer, Proxy, Publisher, archive, feed, fill_prefix


class UpdateJourney(Journey):
    """Version 1.0.0 in a prefix of its own, and what a server offers."""

    starts_app = False

    def setUp(self):
        super().setUp()
        self.publisher = Publisher(self.file("publisher"))
        self.server = FeedServer(self.desktop.home)
        self.addCleanup(self.server.close)
        self.root = pathlib.Path(self.file("opt"))
        fill_prefix(self.root / "versions/1.0.0", "1.0.0")
        (self.root / "current").symlink_to("versions/1.0.0")
        self.variables = {
            "QUILLMARSH_TEST_FEED_URL": self.server.url("/feed.xml"),
            "QUILLMARSH_TEST_FEED_KEY": self.publisher.public,
            "QUILLMARSH_TEST_AUTHORITIES": self.server.authority,
        }
        self.panel = self.desktop.helper("panel.py", is_ready=False, stdout=subprocess.DEVNULL)
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

    def choose(self, title, program=None):
        """Clicks an entry of the status item's menu."""
        print((program or self.app).process.pid, title, sep="\t", file=self.panel.stdin, flush=True)

    def check(self):
        """Chooses the menu's check and returns its window."""
        self.choose("Check For Updates...")
        window = self.app.window("Software Update")
        self.app.wait_until_active(window)
        return window

    def versions(self):
        return sorted(os.listdir(self.root / "versions"))

    def current(self):
        return os.readlink(self.root / "current")


class WholeWay(UpdateJourney):
    def install(self):
        self.check()
        self.app.wait_for_log("update found")
        self.app.key("alt+i")

    def wait_until_running(self, prefix):
        program = str(prefix) + "/libexec/quillmarsh/quillmarsh"
        self.wait_for(lambda: list(self.programs().values()) == [program], program)

    def test_an_update_is_found_installed_and_running(self):
        self.offer()
        self.start()
        self.install()
        self.assertEqual(self.app.process.wait(20), 0)
        self.wait_until_running(self.root / "versions/1.1.0")
        self.app.wait_for_log("devmate setup complete", count=2)
        self.assertEqual(self.current(), "versions/1.1.0")
        self.assertEqual(self.versions(), ["1.0.0", "1.1.0"])

    def test_an_image_is_replaced_and_the_previous_one_kept(self):
        def image(name, version):
            prefix = self.root / version
            fill_prefix(prefix, version)
            path = pathlib.Path(self.file(name))
            path.write_text(f"#!/bin/sh\nexport APPIMAGE='{self.root}/Quillmarsh.AppImage' "
                            f"APPDIR='{prefix}'\nexec '{prefix}/bin/quillmarsh'\n")
            path.chmod(0o755)
            return path

        installed = self.root / "Quillmarsh.AppImage"
        image("old", "image-1.0.0").rename(installed)
        (self.root / "image-1.0.0/share/quillmarsh/test-version").write_text("1.0.0")
        before = installed.read_bytes()
        new = image("new", "image-1.1.0")
        newer = new.read_bytes() + b"# 1.2.0\n"
        (self.root / "image-1.1.0/share/quillmarsh/test-version").write_text("1.1.0")
        self.offer(file=new, kind="appimage")
        self.start(installed)
        self.check()
        self.app.wait_for_log("update found")
        installed.write_bytes(new.read_bytes())  # Another process was faster.
        self.app.key("alt+i")
        self.app.wait_for_log("update ended: This version is installed already.")
        self.assertEqual(self.app.quit(), 0)
        self.assertFalse(os.path.exists(f"{installed}.previous"))
        for is_found in (False, True):
            installed.write_bytes(before)
            self.start(installed)
            if is_found:
                self.check()
                self.app.wait_for_log("update found")
            installed.write_bytes(newer)  # The user was.
            if is_found:
                self.app.key("alt+i")
            else:
                self.check()
            self.app.wait_for_log("was replaced while Quillmarsh was running.")
            self.assertEqual(self.app.quit(), 0)
            self.assertEqual(installed.read_bytes(), newer)
        installed.write_bytes(before)
        for stage in ("write", "keep"):
            self.start(installed, QUILLMARSH_TEST_FULL_AT=stage)
            self.install()
            self.app.wait_for_log("update ended: There is not enough room on the disk.")
            self.assertEqual(self.app.quit(), 0)
            self.assertEqual(installed.read_bytes(), before)
        self.start(installed)
        self.install()
        self.assertEqual(self.app.process.wait(20), 0)
        self.wait_until_running(self.root / "image-1.1.0")
        self.assertEqual(installed.read_bytes(), new.read_bytes())
        self.assertEqual(pathlib.Path(f"{installed}.previous").read_bytes(), before)

    def test_what_runs_and_what_was_current_stay_whatever_their_versions(self):
        for version in ("0.7.0", "0.8.0", "0.9.0"):
            fill_prefix(self.root / "versions" / version, version)
        (self.root / "current").unlink()
        (self.root / "current").symlink_to("versions/0.9.0")
        running = self.root / "versions/0.8.0/libexec/quillmarsh/quillmarsh-updater"
        Quillmarsh(self.desktop, str(running), self.variables, wait=False)
        self.wait_for(lambda: str(running) in self.programs().values(), "another program of ours")
        self.offer()
        self.start(self.root / "versions/1.0.0/bin/quillmarsh")
        self.install()
        self.assertEqual(self.app.process.wait(20), 0)
        self.assertEqual(self.current(), "versions/1.1.0")
        self.assertEqual(self.versions(), ["0.8.0", "0.9.0", "1.0.0", "1.1.0"])

    def test_a_cancel_that_comes_too_late_is_told_that_the_update_is_installed(self):
        self.offer()
        go = pathlib.Path(self.file("go"))
        self.start(QUILLMARSH_TEST_WAIT_AT="prune", QUILLMARSH_TEST_GO_ON=str(go))
        self.install()
        self.wait_for(lambda: self.current() == "versions/1.1.0", "the switch")
        self.app.close("Software Update")
        go.touch()
        self.app.wait_for_log("update installed: it was too late to cancel")
        self.app.window("Software Update")
        self.assertEqual(self.app.quit(), 0)
        self.start()
        self.assertEqual(list(self.programs().values()),
                         [str(self.root / "versions/1.1.0/libexec/quillmarsh/quillmarsh")])

    def test_quitting_waits_for_no_proxy_that_hangs(self):
        self.offer()
        with socket.create_server(("127.0.0.1", 0)) as silent:
            silent.settimeout(30)
            port = silent.getsockname()[1]
            self.start(https_proxy=f"pac+http://127.0.0.1:{port}/proxy.pac")
            self.check()
            with silent.accept()[0]:
                self.assertEqual(self.app.quit(), 0)

    def test_a_broken_download_goes_on_where_it_stopped_also_through_a_proxy(self):
        self.offer()
        content = self.server.answers["/update"]

        def half(request):
            reply(request, 200, content[:len(content) // 2], Content_Length=str(len(content)))
            request.close_connection = True

        proxy = Proxy()
        self.addCleanup(proxy.close)
        self.server.answers["/update"] = half
        self.start()
        self.install()
        self.app.wait_for_log("update ended: The server ended the connection.")
        self.assertEqual(self.app.quit(), 0)
        self.server.answers["/update"] = content
        self.start(https_proxy=f"http://127.0.0.1:{proxy.port}")
        self.install()
        self.assertEqual(self.app.process.wait(20), 0)
        self.assertEqual(self.current(), "versions/1.1.0")
        first, second = [wanted for path, wanted in self.server.asked if path == "/update"]
        self.assertIsNone(first)
        self.assertGreater(int(second[6:-1]), 100000)
        self.assertEqual(set(proxy.connected), {f"localhost:{self.server.port}"})

    def test_killed_at_any_stage_the_old_or_the_new_version_starts(self):
        self.offer()
        for stage, version in (("check", "1.0.0"), ("download", "1.0.0"), ("verify", "1.0.0"),
                               ("clean", "1.0.0"), ("unpack", "1.0.0"), ("place", "1.0.0"),
                               ("switch", "1.0.0"), ("prune", "1.1.0")):
            with self.subTest(stage):
                self.start(QUILLMARSH_TEST_KILL_AT=stage)
                if stage == "check":
                    self.choose("Check For Updates...")
                else:
                    self.install()
                self.assertEqual(self.app.process.wait(20), -9)
                self.assertEqual(self.current(), "versions/" + version)
                self.start()
                self.assertEqual(self.app.quit(), 0)
        # What the killed ones left behind is gone after the next that ends well.
        self.offer("1.2.0")
        self.start()
        self.install()
        self.assertEqual(self.app.process.wait(20), 0)
        self.assertEqual(self.versions(), ["1.1.0", "1.2.0"])
        self.assertEqual(sorted(os.listdir(self.root)), [".update-lock", "current", "versions"])


class Helper(UpdateJourney):
    def start_helper(self):
        path = self.root / "current/libexec/quillmarsh/quillmarsh-updater"
        self.app = self.helper = Quillmarsh(self.desktop, str(path), self.variables, wait=False)

    def update(self):
        self.choose("Update in background", self.helper)

    def test_it_updates_the_application_and_starts_itself_anew(self):
        self.offer()
        self.start_helper()
        self.update()
        self.assertEqual(self.helper.process.wait(20), 0)
        self.assertEqual(self.current(), "versions/1.1.0")
        program = str(self.root / "versions/1.1.0/libexec/quillmarsh/quillmarsh-updater")
        self.wait_for(lambda: list(self.programs().values()) == [program], program)

    def test_it_speaks_the_users_language(self):
        self.variables["LANGUAGE"] = "de"
        self.start_helper()
        self.choose("Im Hintergrund aktualisieren", self.helper)
        self.helper.wait_for_log("update stage: check")

    def test_it_refuses_a_second_run_and_a_running_application(self):
        self.server.answers["/feed.xml"] = lambda request: request.rfile.read()  # no answer
        self.start_helper()
        self.update()
        self.helper.wait_for_log("update stage: check")
        self.update()
        self.helper.wait_for_log("ERROR: 1 - Updating process is in progress.")
        self.update()
        self.helper.wait_for_log("update stage: check", count=2)
        self.update()
        self.helper.wait_for_log("ERROR: 1 - Updating process is in progress.", count=2)
        fill_prefix(self.root / "versions/0.9.0", "0.9.0")
        self.start(self.root / "versions/0.9.0/bin/quillmarsh")
        self.update()
        self.helper.wait_for_log("ERROR: 1 - Main application is running. It should update itself.")


class NothingIsInstalled(UpdateJourney):
    """Each case leaves everything as it was and says why."""

    def problem(self, reason, is_found=True):
        """Checks, chooses to install when something is found, and waits for the reason."""
        before = len(self.app.log)
        self.check()
        told = lambda text: any(text in line for line in self.app.log[before:])  # noqa: E731
        if is_found:
            self.wait_for(lambda: told("update found"), "an update")
            self.app.key("alt+i")
        try:
            self.wait_for(lambda: told(reason), reason, 40)
        except TimeoutError as problem:
            raise AssertionError(f"{problem}: {self.app.log[before:]}") from None
        self.assertEqual(self.current(), "versions/1.0.0")
        self.assertEqual(self.versions(), ["1.0.0"])
        self.assertFalse(os.path.exists(self.file("evil")))
        self.app.close("Software Update")

    def cases_of_the_feed(self):
        def redirect(request):
            reply(request, 302, Location=self.server.url("/feed.xml", "http"))

        older = self.server.answers["/feed.xml"].replace(b"1.1.0", b"0.9")
        return (("gone", None, "The server does not have the file."),
                ("redirected to http", redirect, "redirects to an address that is not secure"),
                ("malformed", b"<updates><item><version>2", "It is damaged in line 1."),
                ("older", older, "no newer version"))

    def cases_of_the_file(self):
        """Each a content and the item that offers it."""
        url = self.server.url("/update")
        stranger = Publisher(self.file("stranger"))
        prefix = self.root / "versions/1.0.0"
        good = archive(self.file("good"), prefix, "1.1.0")
        content = pathlib.Path(good).read_bytes()
        item = self.publisher.item(good, url, "1.1.0")
        old = self.publisher.item(good, url, "1.0.5").replace("1.0.5", "1.1.0")

        def signed(name, *entries, cut=None):
            members = []
            for path, kind, target in entries:
                entry = tarfile.TarInfo(path)
                entry.type, entry.linkname, entry.mode = kind, target, 0o755
                entry.size = 4 if kind == tarfile.REGTYPE else 0
                members.append((entry, b"evil"))
            path = archive(self.file(name), extra=members)
            packed = pathlib.Path(path).read_bytes()[:cut]
            pathlib.Path(path).write_bytes(packed)
            return packed, self.publisher.item(path, url, "1.1.0")

        file, link, hard = tarfile.REGTYPE, tarfile.SYMTYPE, tarfile.LNKTYPE
        not_ours = "files that do not belong"
        yield "changed", (content[:-9] + b"x" + content[-8:], item), "not the publisher's"
        yield "foreign key", (content, stranger.item(good, url, "1.1.0")), "not the publisher's"
        yield "an old file anew", (content, old), "not the publisher's"
        yield "too short", (content[:-1], item), "sent less than was announced"
        yield "too long", (content + b"x", item), "sends more than was announced"
        yield "no program", signed("a", ("bin/other", file, "")), "holds no program"
        yield "cut", signed("b", ("bin/quillmarsh", file, ""), cut=40), "is damaged"
        yield "up", signed("c", ("bin/../../../../evil", file, "")), not_ours
        yield "absolute", signed("d", (self.file("evil"), file, "")), not_ours
        yield "link out", signed("e", ("bin", link, self.desktop.home)), not_ours
        yield "through a link", signed("f", ("b", link, "bin"), ("b/evil", file, "")), not_ours
        yield "hard link", signed("g", ("bin/quillmarsh", hard, "/bin/sh")), not_ours
        yield "device", signed("h", ("bin/quillmarsh", tarfile.CHRTYPE, "")), not_ours

    def test_from_a_bad_feed(self):
        self.offer()
        self.start()
        for name, answer, reason in self.cases_of_the_feed():
            with self.subTest(name):
                self.server.answers["/feed.xml"] = answer
                self.problem(reason, is_found=False)

    def test_from_a_bad_file(self):
        self.start()
        for name, (content, item), reason in self.cases_of_the_file():
            with self.subTest(name):
                self.server.answers.update({"/update": content, "/feed.xml": feed(item)})
                self.problem(reason)

    def test_when_it_is_put_off_or_skipped(self):
        self.offer()
        self.start()
        for times, key in enumerate(("alt+l", "Escape", "super+w", "alt+s"), 1):
            self.check()
            self.app.wait_for_log("update found", count=times)
            self.app.key(key)
            self.app.wait_until_hidden("Software Update")
        self.assertEqual(self.app.setting("skippedUpdateVersion"), "1.1.0")
        self.assertEqual({path for path, _ in self.server.asked}, {"/feed.xml"})
        self.assertEqual(self.versions(), ["1.0.0"])

    def test_from_a_server_with_another_certificate(self):
        self.offer()
        self.variables["QUILLMARSH_TEST_AUTHORITIES"] = make_authority(self.desktop.home, "stranger")
        self.start()
        self.problem("could not prove who it is", is_found=False)
        self.assertEqual(self.server.asked, [])

    def test_while_another_update_is_under_way(self):
        self.offer()
        self.start()
        with open(self.root / ".update-lock", "w", encoding="utf-8") as lock:
            fcntl.flock(lock, fcntl.LOCK_EX)
            self.problem("Another update of Quillmarsh is under way.")

    def test_over_a_newer_version_that_came_meanwhile(self):
        self.offer()
        fill_prefix(self.root / "versions/1.2.0", "1.2.0")
        self.start()
        self.check()
        self.app.wait_for_log("update found")
        (self.root / "current").unlink()
        (self.root / "current").symlink_to("versions/1.2.0")
        self.app.key("alt+i")
        self.app.wait_for_log("update ended: This version is installed already.")
        self.app.close("Software Update")
        self.check()
        self.app.wait_for_log("installed already: 1.1.0")
        self.assertEqual((self.current(), self.versions()), ("versions/1.2.0", ["1.0.0", "1.2.0"]))

    def test_on_a_full_disk(self):
        self.offer()
        for stage in ("download", "unpack"):
            with self.subTest(stage):
                self.start(QUILLMARSH_TEST_FULL_AT=stage)
                self.problem("not enough room on the disk" if stage == "unpack" else
                             "could not be written")
                self.assertEqual(self.app.quit(), 0)

    def test_by_the_program_that_people_run_whatever_the_environment_says(self):
        """It has no feed, and nothing at run time gives it one."""
        self.offer()
        shutil.rmtree(self.root / "versions/1.0.0")
        program = pathlib.Path(BINARY).parent.parent / "libexec/quillmarsh/quillmarsh"
        fill_prefix(self.root / "versions/1.0.0", "1.0.0", program)
        self.assertNotIn(b"QUILLMARSH_TEST", program.read_bytes())
        self.variables.update({name.replace("TEST_", ""): value
                               for name, value in self.variables.items()})
        self.start()
        self.problem("no address to look for updates at", is_found=False)
        self.assertEqual(self.server.asked, [])
