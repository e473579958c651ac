"""The clips from the shell and from launchers: words whose answers come from the running instance,
over the bus, or from the store when nobody runs."""

import json
import os
import pathlib
import plistlib
import re
import shutil
import sqlite3
import subprocess
import time

from journey import BINARY, Journey, Quillmarsh

# As a launcher: it takes the second line, or record, that it is given.
CHOOSER = """#!/usr/bin/python3
import sys
data = sys.stdin.buffer.read()
end = b"\\0" if "--read0" in sys.argv else b"\\n"
sys.stdout.buffer.write(data.split(end)[1] + end)
"""


class Clips(Journey):
    starts_app = False

    def word(self, *words, stdin="", code=0):
        """What the command wrote on its standard output."""
        ended = subprocess.run([BINARY, *words], input=stdin.encode(), capture_output=True,
                               timeout=20, check=False, env=self.desktop.environment)
        self.assertEqual(ended.returncode, code, (words, ended.stderr))
        self.said = ended.stderr.decode()
        return ended.stdout.decode()

    def ids(self, *words):
        return [line.split("\t")[0] for line in self.word("list", *words).splitlines()]

    def use_every(self, is_running):
        lines = self.word("list").splitlines()
        self.assertEqual([line.split("\t")[1] for line in lines],
                         ["third [31m clip", "the second clip", "first clip"])
        ids = [line.split("\t")[0] for line in lines]
        self.assertEqual(self.ids("SECOND"), ids[1:2])
        self.assertEqual(self.word("list", "-0"),
                         f"{ids[0]}\tthird\n\x1b[31m clip\0{ids[1]}\tthe second\nclip\0"
                         f"{ids[2]}\tfirst clip\0")
        told = json.loads(self.word("list", "--json"))
        self.assertEqual([(clip["id"], clip["text"]) for clip in told],
                         [(ids[0], "third\n\x1b[31m clip"), (ids[1], "the second\nclip"),
                          (ids[2], "first clip")])
        self.assertEqual(json.loads(self.word("list", "--json", "nothing like it")), [])
        for name in (ids[1], "2", lines[1]):
            self.assertEqual(self.word("get", name), "the second\nclip")
        self.assertEqual(self.word("get", stdin=lines[1] + "\n"), "the second\nclip")
        # A launcher that was left without a choice.
        self.assertEqual(self.word("get", stdin="", code=1), "")
        self.assertEqual(self.said, "")
        for words, code in ((("get", "4"), 1), (("get", "c999"), 1), (("get", "x"), 2),
                            (("get", "0"), 2), (("list", "--what"), 2), (("get", "1", "2"), 2),
                            (("copy", "words"), 2), (("delete", "c999"), 1)):
            with self.subTest(words):
                self.assertEqual(self.word(*words, code=code), "")
                self.assertIn("quillmarsh: ", self.said)
        if not is_running:
            self.word("copy", stdin="nobody takes it", code=1)
            self.word("paste", "1", code=1)
        self.word("delete", ids[0], "3")
        self.assertEqual(self.ids(), ids[1:2])

    def fill(self):
        for text in ("first clip", "the second\nclip", "third\n\x1b[31m clip"):
            self.word("copy", stdin=text)
        self.assertEqual(self.app.clips()[0], "third\n\x1b[31m clip")

    def test_words_do_the_same_with_an_instance_and_with_the_store_alone(self):
        for name, options, is_running in (("an instance", {}, True), ("the store", {}, False)):
            with self.subTest(name):
                self.enter(**options)
                self.assertEqual(self.word("list"), "")
                self.app = Quillmarsh(self.desktop, BINARY)
                self.fill()
                if not is_running:
                    self.app.quit()
                self.use_every(is_running)

    def test_a_copy_is_on_the_clipboard_and_only_text_within_the_limit_becomes_one(self):
        self.app = Quillmarsh(self.desktop, BINARY)
        self.word("copy", stdin="from the shell")
        self.assertEqual(self.desktop.pasteboard(), "from the shell")
        for refused in (b"", b"\xff\xfe\xfd", b"x" * 10001):
            ended = subprocess.run([BINARY, "copy"], input=refused, capture_output=True,
                                   timeout=20, check=False, env=self.desktop.environment)
            self.assertEqual(ended.returncode, 1, ended.stderr)
        self.assertEqual(self.app.clips(), ["from the shell"])

    def test_the_lines_of_the_help_give_the_chosen_clip(self):
        self.app = Quillmarsh(self.desktop, BINARY)
        tools = pathlib.Path(self.desktop.home, "tools")
        tools.mkdir()
        for name in ("rofi", "dmenu", "fzf"):
            (tools / name).write_text(CHOOSER)
            (tools / name).chmod(0o755)
        os.symlink(BINARY, tools / "quillmarsh")
        environment = dict(self.desktop.environment, PATH=f"{tools}:{os.environ['PATH']}")
        lines = [line.strip() for line in self.word("--help").splitlines() if " | " in line]
        self.assertEqual([re.search(r"\| (\w+)", line)[1] for line in lines],
                         ["rofi", "dmenu", "fzf"])
        editor = self.editor("gtk")
        for line in lines:
            with self.subTest(line):
                for text in ("not this", "the chosen\none", "nor this"):
                    self.word("copy", stdin=text)
                ended = subprocess.run(["sh", "-c", line], env=environment, timeout=20,
                                       capture_output=True, text=True, check=False)
                self.assertEqual(ended.returncode, 0, ended.stderr)
                if line.endswith("get"):
                    self.assertEqual(ended.stdout, "the chosen\none")
                else:
                    self.wait_for_text(editor, "the chosen\none")
                    self.app.key("ctrl+a", "Delete")
                    self.wait_for_text(editor, "")

    def test_a_deletion_takes_what_a_search_in_the_window_hides(self):
        self.app = Quillmarsh(self.desktop, BINARY)
        for text in ("hidden", "searched for"):
            self.word("copy", stdin=text)
        self.app.open_history()
        self.app.type("searched")
        self.word("delete", "2")
        self.assertEqual(self.app.clips(), ["searched for"])

    def test_a_list_is_whole_while_the_instance_ends(self):
        self.app = Quillmarsh(self.desktop, BINARY)
        store = self.app.store
        self.app.quit()
        with sqlite3.connect(store) as database:
            database.executemany(
                "INSERT INTO ClipItem (strValue, createDate) VALUES (?, ?)",
                [(f"clip {i}", time.time() - 10000 + i) for i in range(10000)])
        database.close()
        for _ in range(3):
            self.app = Quillmarsh(self.desktop, BINARY)
            asking = [subprocess.Popen([BINARY, "list"], stdout=subprocess.PIPE,
                                       stderr=subprocess.PIPE, env=self.desktop.environment)
                      for _ in range(3)]
            self.app.process.terminate()
            for process in asking:
                lines, said = process.communicate(timeout=20)
                self.assertEqual((process.returncode, said), (0, b""))
                self.assertEqual(lines.count(b"\n"), 10000)
            self.app.process.wait(10)

    def test_a_list_of_lines_needs_nothing_but_the_door(self):
        self.app = Quillmarsh(self.desktop, BINARY)
        self.fill()
        # Where it finds no application that it could become.
        alone = shutil.copy(BINARY, self.desktop.home)
        def run(*words):
            return subprocess.run([alone, *words], capture_output=True, text=True, timeout=20,
                                  check=False, env=self.desktop.environment)
        for words, texts in (((), ["third [31m clip", "the second clip", "first clip"]),
                             (("SECOND",), ["the second clip"]), (("second", "clip"), []),
                             (("",), ["third [31m clip", "the second clip", "first clip"])):
            with self.subTest(words):
                told = run("list", *words)
                self.assertEqual(told.returncode, 0, told.stderr)
                self.assertEqual([line.split("\t")[1] for line in told.stdout.splitlines()], texts)
        for words in (("--json",), ("-0",), ("--", "x"), ("two\nlines",), ("x" * 3000,)):
            with self.subTest(words):
                self.assertIn("cannot be started", run("list", *words).stderr)

    def test_a_history_moves_by_a_file_and_comes_back_equal(self):
        self.app = Quillmarsh(self.desktop, BINARY)
        self.fill()
        columns = "strValue, rtfValue, applicationName, filepath, createDate, pasteCount"
        before = self.app.clips(columns)
        path = self.file("clips.json")
        self.word("export", path)
        self.assertEqual(os.stat(path).st_mode & 0o777, 0o600)
        self.word("delete", "1", "2", "3")
        self.assertEqual(self.app.clips(), [])
        # Nothing is taken unasked.
        self.assertIn("3 clips to take", self.word("import", path, code=1))
        self.assertEqual(self.app.clips(), [])
        self.assertIn("3 clips taken", self.word("import", "--yes", path))
        self.assertEqual(self.app.clips(columns), before)
        self.assertIn("3 clips known already", self.word("import", "--yes", path))
        self.word("import", BINARY, code=1)
        self.assertEqual(self.app.clips(columns), before)

    def test_what_another_program_has_kept_is_taken_as_far_as_there_is_room(self):
        settings = pathlib.Path(self.desktop.environment["XDG_CONFIG_HOME"],
                                "org.quillmarsh.Quillmarsh.plist")
        settings.parent.mkdir(parents=True, exist_ok=True)
        settings.write_bytes(plistlib.dumps({"welcomeWindowShown": True, "maxItems": 25}))
        self.app = Quillmarsh(self.desktop, BINARY)
        self.word("copy", stdin="already here")
        self.assertIn("No history", self.word("import", code=1))
        path = pathlib.Path(self.desktop.environment["XDG_DATA_HOME"], "clipman.json")
        path.write_text(json.dumps([f"old {i}" for i in range(40)] + ["already here", "x" * 10001]))
        told = self.word("import", "--yes")
        for line in (f"Clipman: 42 clips in {path}", "1 clip known already", "1 clip larger than",
                     "the oldest 16 will be left out", "24 clips to take", "24 clips taken"):
            self.assertIn(line, told)
        self.assertEqual(set(self.app.clips()),
                         {"already here", *(f"old {i}" for i in range(16, 40))})
        # Two gigabytes of nothing.
        with open(path, "wb") as broken:
            broken.truncate(2 << 30)
        self.assertIn("nothing of it could be read", self.word("import", "--yes"))
        self.assertEqual(len(self.app.clips()), 25)

    def test_the_interface_describes_itself(self):
        self.app = Quillmarsh(self.desktop, BINARY)
        described = subprocess.run(
            ["gdbus", "introspect", "--session", "--dest", "org.quillmarsh.Quillmarsh",
             "--object-path", "/org/quillmarsh/Quillmarsh"],
            env=self.desktop.environment, capture_output=True, text=True, check=True).stdout
        manual = pathlib.Path(__file__).parents[2].joinpath("data/quillmarsh.1.in").read_text()
        methods = re.findall(r"^      (\w+)\(", described.split("interface org.quillmarsh.Clips")[1]
                             .split("signals:")[0], re.MULTILINE)
        self.assertEqual(methods, ["Find", "Lines", "Clips", "Copy", "Paste", "Delete", "Room",
                                   "Add"])
        for method in methods:
            self.assertIn(f".BR {method} ", manual)
        self.word("copy", stdin="two\nlines")
        told = subprocess.run(
            ["gdbus", "call", "--session", "--dest", "org.quillmarsh.Quillmarsh", "--object-path",
             "/org/quillmarsh/Quillmarsh", "--method", "org.quillmarsh.Clips.Lines", "[1, 2]"],
            env=self.desktop.environment, capture_output=True, text=True, check=True).stdout
        self.assertEqual(told, "([(int64 1, 'two lines')],)\n")
