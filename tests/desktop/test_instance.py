"""Every way in but the shortcuts and the status item: words on the command line, calls over the
bus, a start beside a running, a dead or a hung instance."""

import os
import shutil
import signal
import sqlite3
import subprocess

import dbus
import dbus.bus
from Xlib import X, display
from journey import BINARY, BUNDLE, HeldKeys, Journey, Quillmarsh

OBJECT = "/org/quillmarsh/Quillmarsh"


class SingleInstance(Journey):
    starts_app = False

    def word(self, *words, **options):
        """One more start with these words, to its end."""
        options.setdefault("env", self.desktop.environment)
        return subprocess.run([BINARY, *words], capture_output=True, text=True, timeout=20,
                              check=False, **options)

    def call(self, action):
        """The same over the bus; an empty action is a plain activation."""
        bus = dbus.bus.BusConnection(self.desktop.environment["DBUS_SESSION_BUS_ADDRESS"])
        application = dbus.Interface(bus.get_object(BUNDLE, OBJECT, introspect=False),
                                     "org.freedesktop.Application")
        data = dbus.Dictionary({"desktop-startup-id": "a_TIME1"}, signature="sv")
        if action:
            application.ActivateAction(action, dbus.Array([], signature="v"), data)
        else:
            application.Activate(data)
        bus.close()

    def say(self, *words):
        ended = self.word(*filter(None, words))
        self.assertEqual((ended.returncode, ended.stdout), (0, ""), ended.stderr)

    def use_every(self, action):
        """Every action but the last leaves the program as the next one needs it."""
        for text in ("an old clip", "a new clip"):
            self.copy(text)
        action("launch")
        self.app.wait_until_active(self.app.window())
        self.app.close()
        action("")
        self.app.wait_until_active(self.app.window())
        self.app.type("old")
        # While only one clip is found; the others go too, and the window shows that.
        action("clear-all")
        self.wait_for(lambda: self.app.clips() == [], "an empty history")
        self.assertIsNotNone(self.app.window(wait=False))
        self.app.close()
        for word, window in (("preferences", "Preferences"), ("feedback", "Send Feedback"),
                             ("check-for-updates", "Software Update")):
            action(word)
            self.app.window(window)
        action("quit")
        self.assertEqual(self.app.process.wait(10), 0)
        self.assertIn("Exit", self.app.log)

    def test_every_action_is_performed_whichever_door_it_comes_through(self):
        rows = [("words", {}, self.say),
                ("words without a bus", {"bus": False}, self.say),
                ("calls over the bus", {}, self.call)]
        for name, options, action in rows:
            with self.subTest(name):
                self.enter(**options)
                self.app = Quillmarsh(self.desktop, BINARY)
                self.use_every(action)

    def test_a_swop_through_a_key_of_the_window_manager_waits_until_the_key_is_up(self):
        self.app = Quillmarsh(self.desktop, BINARY)
        self.copy("the clip")
        editor = self.editor("gtk", "the selection")
        self.app.key("ctrl+a")
        # It lives on: repeats of the held key are its own, and would be the editor's without it.
        binder = self.desktop.start(
            ["/usr/bin/python3", "-c",
             "import subprocess, sys; from Xlib import X, display; d = display.Display();"
             "d.screen().root.grab_key(53, X.Mod4Mask, 1, X.GrabModeAsync, X.GrabModeAsync);"
             "d.sync(); print('bound', flush=True); d.next_event();"
             "subprocess.run([sys.argv[1], 'swop']); print('said', flush=True);"
             "[None for event in iter(d.next_event, None)]", BINARY], stdout=subprocess.PIPE, text=True)
        binder.stdout.readline()
        keys = HeldKeys(self.desktop.environment)
        keys.press("super", "x")
        self.assertEqual(binder.stdout.readline(), "said\n")
        keys.release("super", "x")
        self.app.wait_until_active(self.app.window())
        self.app.key("Return")
        self.wait_for_text(editor, "the clip")
        self.app.wait_for_clip("the selection")

    def test_with_nothing_running_a_word_does_its_work_or_starts_the_program(self):
        self.app = Quillmarsh(self.desktop, BINARY)
        self.copy("secret")
        self.app.quit()
        without_display = dict(self.desktop.environment)
        del without_display["DISPLAY"]
        for word in ("quit", "clear-all"):
            ended = self.word(word, env=without_display)
            self.assertEqual((ended.returncode, ended.stdout, ended.stderr), (0, "", ""), word)
        self.assertEqual(self.app.clips(), [])
        self.assertNotIn(b"secret", self.app.store.read_bytes())
        for word, window in (("launch", "Quillmarsh"), ("preferences", "Preferences")):
            self.app = Quillmarsh(self.desktop, BINARY, words=[word])
            self.app.window(window)
            self.app.quit()

    def test_clips_that_cannot_be_deleted_now_are_not_told_to_be(self):
        self.app = Quillmarsh(self.desktop, BINARY)
        self.copy("a clip")
        with sqlite3.connect(self.app.store, isolation_level=None) as other:
            other.execute("BEGIN IMMEDIATE")
            ended = self.word("clear-all")
            self.assertEqual(ended.returncode, 1)
            self.assertIn("nothing was deleted", ended.stderr)
            with self.assertRaises(dbus.exceptions.DBusException):
                self.call("clear-all")
            other.execute("ROLLBACK")
        other.close()
        self.assertEqual(self.app.clips(), ["a clip"])
        self.say("clear-all")
        self.wait_for(lambda: self.app.clips() == [], "an empty history")

    def test_words_are_answered_or_refused_before_a_display_is_looked_for(self):
        rows = [(["--help"], 0, "clear-all", ""), (["-h", "launch"], 0, "usage:", ""),
                (["--version"], 0, "Quillmarsh 1.", ""),
                (["open"], 2, "", 'no command "open"'),
                (["--launch"], 2, "", 'no command "--launch"'),
                (["launch", "quit"], 2, "", "one command at a time"),
                ([""], 2, "", 'no command ""'),
                (["-session", "10a1"], 1, "", "DISPLAY is not set"),
                (["launch"], 1, "", "DISPLAY is not set")]
        for words, code, answer, problem in rows:
            with self.subTest(words):
                ended = self.word(*words, env={"HOME": self.desktop.home})
                self.assertEqual(ended.returncode, code, ended.stderr)
                for expected, told in ((answer, ended.stdout), (problem, ended.stderr)):
                    self.assertIn(expected, told)
                    self.assertEqual(expected == "", told == "")

    def test_what_keys_start_is_little_and_needs_the_application_beside_it(self):
        header = subprocess.run(["readelf", "-d", BINARY], capture_output=True, text=True,
                                check=True).stdout
        for library in ("libQt", "libstdc++"):
            self.assertNotIn(library, header)
        alone = self.file("bin/quillmarsh")
        os.makedirs(os.path.dirname(alone))
        shutil.copy(BINARY, alone)
        ended = subprocess.run([alone], capture_output=True, text=True, timeout=20, check=False,
                               env=self.desktop.environment)
        self.assertEqual(ended.returncode, 1)
        self.assertIn("libexec/quillmarsh/quillmarsh cannot be started: No such file",
                      ended.stderr)

    def test_a_hung_instance_is_told_of(self):
        self.app = Quillmarsh(self.desktop, BINARY)
        self.app.process.send_signal(signal.SIGSTOP)
        ended = self.word("launch")
        self.assertEqual(ended.returncode, 1)
        self.assertIn("does not answer", ended.stderr)

    def test_one_store_has_one_instance_whatever_the_environment_of_a_start(self):
        full = self.desktop.environment
        poor = {name: full[name] for name in ("HOME", "DISPLAY", "PATH")}
        rows = [("a poorer one", full, poor),
                ("a richer one", poor, full),
                ("another place for temporary files", poor, {**poor, "TMPDIR": "/var/tmp"}),
                ("relative folders", poor, {**poor, "XDG_DATA_HOME": "share",
                                            "XDG_CONFIG_HOME": "config"})]
        for name, first, second in rows:
            with self.subTest(name):
                self.app = Quillmarsh(self.desktop, "/usr/bin/env",
                                      words=["-i", "QUILLMARSH_TRACE=1",
                                             *(f"{key}={value}" for key, value in first.items()),
                                             BINARY])
                self.copy("a clip")
                ended = self.word("launch", env=second, cwd=self.desktop.home)
                self.assertEqual((ended.returncode, ended.stdout, ended.stderr), (0, "", ""))
                self.app.window()
                self.assertEqual(self.word("clear-all", env=second).returncode, 0)
                self.wait_for(lambda: self.app.clips() == [], "an empty history")
                # The next start is in time for the end of this one.
                self.assertEqual(self.word("quit", env=second).returncode, 0)
        ended = self.word("launch", env={**poor, "DISPLAY": ""})
        self.assertIn("DISPLAY is not set", ended.stderr)

    def test_whoever_shows_that_a_start_is_under_way_hears_of_its_end(self):
        screen = display.Display(self.desktop.environment["DISPLAY"])
        screen.screen().root.change_attributes(event_mask=X.PropertyChangeMask)
        screen.sync()
        self.app = Quillmarsh(self.desktop, BINARY, {"DESKTOP_STARTUP_ID": "quiet_TIME1"})
        self.word("preferences", env=dict(self.desktop.environment,
                                          DESKTOP_STARTUP_ID='a "further" start_TIME2'))
        self.call("launch")
        begin = screen.intern_atom("_NET_STARTUP_INFO_BEGIN")
        told = []

        def ended():
            while screen.pending_events():
                event = screen.next_event()
                if event.type == X.ClientMessage:
                    told.extend([b""] if event.client_type == begin else [])
                    told[-1] += bytes(event.data[1])
            return {text.partition(b"\0")[0].decode() for text in told}
        wanted = {'remove: ID="quiet_TIME1"', 'remove: ID="a \\"further\\" start_TIME2"',
                  'remove: ID="a_TIME1"'}
        self.wait_for(lambda: wanted <= ended(), "the end of all three starts")

    def test_the_bus_starts_the_program_for_whom_activates_it(self):
        services = os.path.join(self.desktop.environment["XDG_DATA_HOME"], "dbus-1/services")
        os.makedirs(services)
        with open(os.path.join(services, BUNDLE + ".service"), "w", encoding="utf-8") as service:
            service.write(f"[D-BUS Service]\nName={BUNDLE}\nExec={BINARY}\n")
        self.desktop.run(["dbus-send", "--session", "--print-reply", "--dest=org.freedesktop.DBus",
                          "/", "org.freedesktop.DBus.ReloadConfig"], capture_output=True)
        self.call("preferences")
        self.wait_for(lambda: self.desktop.ask("xdotool", "search", "--onlyvisible", "--name",
                                               "^Preferences$"), "the preferences")
        self.call("quit")
