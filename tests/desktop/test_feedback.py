"""What leaves the machine: nothing but what the user has seen, and only to whom it is meant for."""

import glob
import json
import os
import pathlib
import signal

from journey import BUNDLE, Journey, Quillmarsh
from tls_server import TlsServer, make_authority, reply

UPDATABLE = os.environ.get("UPDATABLE", "build/dev/tests/desktop/quillmarsh_updatable")
HEADERS = {"host", "connection", "content-type", "content-length", "user-agent", "accept-encoding",
           "accept-language"}
USAGE = {"kind": "usage", "text": "Quillmarsh 1.0.0"}
TEXT = "The preview of my files stays empty."


class Feedback(Journey):
    starts_app = False

    def setUp(self):
        super().setUp()
        self.status = 200
        self.posts = []
        self.usages = []
        self.server = TlsServer(self.desktop.home, self.answer)
        self.addCleanup(self.server.close)
        self.folder = pathlib.Path(self.desktop.environment["XDG_DATA_HOME"], BUNDLE)
        self.draft = self.folder / "feedback-draft.json"

    def answer(self, request):
        headers = request.headers
        told = json.loads(request.rfile.read(int(headers["Content-Length"])))
        known = self.usages if told == USAGE else self.posts
        known.append((request.command, request.path, {name.lower() for name in headers},
                      headers["User-Agent"], told))
        reply(request, self.status, **({"Location": "http://localhost/"} if self.status == 307
                                       else {}))

    def start(self, **options):
        environment = {"QUILLMARSH_TEST_FEEDBACK_URL": self.server.url("/take"),
                       "QUILLMARSH_TEST_AUTHORITIES": self.server.authority,
                       # A sanitizer would keep the crash for itself.
                       "ASAN_OPTIONS": "handle_segv=0",
                       "XDG_CURRENT_DESKTOP": "XFCE", "XDG_SESSION_TYPE": "x11", **options}
        self.app = Quillmarsh(self.desktop, UPDATABLE, environment)

    def sent(self):
        """The one message that has arrived."""
        self.wait_for(lambda: self.posts, "a message")
        method, path, headers, agent, told = self.posts.pop()
        self.assertEqual((method, path, agent, self.posts),
                         ("POST", "/take", "Quillmarsh", []))
        self.assertEqual(headers, HEADERS)
        return told

    def press(self, window, key):
        self.desktop.run(["xdotool", "windowactivate", "--sync", window])
        self.app.wait_until_active(window)
        self.app.key(key)

    def crash(self):
        self.app.process.send_signal(signal.SIGSEGV)
        self.assertEqual(self.app.process.wait(10), -signal.SIGSEGV)

    def reports(self):
        return glob.glob(str(self.folder / "crashes" / "*"))

    def test_a_crash_is_asked_about_once_beside_the_history_and_its_report_is_sent(self):
        self.start()
        self.wait_for(lambda: self.usages, "word that this version runs")
        self.assertEqual(self.usages, [("POST", "/take", HEADERS, "Quillmarsh", USAGE)])
        self.copy("a secret clip")
        self.crash()
        self.start()
        question = self.app.window("Problem Report")
        history = self.app.open_history()
        self.app.type("secret")
        self.app.wait_until_active(history)
        self.app.key("Escape")
        self.assertEqual(self.posts, [])
        self.press(question, "alt+s")
        told = self.sent()
        self.assertEqual(set(told), {"kind", "text"})
        self.assertEqual(told["kind"], "issue")
        self.assertTrue(told["text"].startswith("Quillmarsh 1.0.0\nSIGSEGV, main thread\n"))
        self.assertNotIn("secret", told["text"])
        self.assertNotIn(self.desktop.home, told["text"])
        self.wait_for(lambda: self.reports() == [], "the report to go")
        self.app.quit()
        self.start()
        self.app.open_history()
        self.assertIsNone(self.app.window("Problem Report", wait=False))

    def test_a_declined_report_is_deleted_and_an_undelivered_one_kept(self):
        self.start()
        self.crash()
        self.status = 500
        self.start()
        self.press(self.app.window("Problem Report"), "alt+s")
        self.assertEqual(self.sent()["kind"], "issue")
        self.app.wait_for_log("issue was not sent")
        self.app.key("super+q")
        self.assertEqual(self.app.process.wait(10), 0)
        self.assertEqual(len(self.reports()), 1)
        self.start()
        self.press(self.app.window("Problem Report"), "Escape")
        self.wait_for(lambda: self.reports() == [], "the report to go")
        self.assertEqual(self.posts, [])

    def test_a_feedback_that_cannot_be_delivered_is_kept_and_offered_at_the_next_start(self):
        self.folder.mkdir(parents=True, mode=0o700)
        written = {"text": TEXT, "mail": "ada@example.org", "system": True, "refused": True}
        self.draft.write_text(json.dumps(written))
        foreign = make_authority(self.desktop.home, "foreign")
        for failure, status, arrived, options in (
                ("a stranger's server", 200, 0, {"QUILLMARSH_TEST_AUTHORITIES": foreign}),
                ("nobody there", 200, 0, {"QUILLMARSH_TEST_FEEDBACK_URL": "https://127.0.0.1:1/"}),
                ("a refusal", 503, 1, {}), ("a way back to plain HTTP", 307, 1, {})):
            with self.subTest(failure):
                self.posts.clear()
                self.status = status
                self.start(**options)
                self.press(self.app.window("Send Feedback"), "ctrl+Return")
                self.app.wait_for_log("feedback was not sent")
                self.assertEqual(len(self.posts), arrived)
                self.app.quit()
                self.assertEqual(json.loads(self.draft.read_text()), written)
                self.assertEqual(self.draft.stat().st_mode & 0o777, 0o600)
        self.status = 200
        self.posts.clear()
        self.start()
        self.press(self.app.window("Send Feedback"), "ctrl+Return")
        self.assertEqual(self.sent(), {"kind": "feedback", "text": TEXT, "mail": "ada@example.org",
                                       "system": "Quillmarsh 1.0.0 on XFCE (x11)"})
        self.wait_for(lambda: not self.draft.exists(), "the draft to go")
