"""What may happen to the disk and to the file below the program."""

import contextlib
import os
import shutil
import sqlite3
import subprocess
import time

from stage import Pulse, Stage, check_store

PAGE = 4096


def mount(*arguments):
    subprocess.run(["mount", *arguments], check=True)


class SmallDisk:
    """A file system of a few megabytes in memory, and how much of it is free."""

    def __init__(self, folder, megabytes=4):
        self.folder = str(folder)
        os.makedirs(self.folder, exist_ok=True)
        mount("-t", "tmpfs", "-o", f"size={megabytes}m", "none", self.folder)
        self.ballast = os.path.join(self.folder, "ballast")

    def leave(self, pages):
        """Has so many pages left."""
        with open(self.ballast, "ab", buffering=0) as ballast, contextlib.suppress(OSError):
            while os.statvfs(self.folder).f_bavail > pages:
                ballast.write(b"x" * PAGE)

    def empty(self):
        os.unlink(self.ballast)

    def end(self):
        subprocess.run(["umount", "-l", self.folder], check=False)


def has_failed_or_saved(stage, text, failures):
    return (text in stage.clips() or
            sum("Unresolved error" in line for line in stage.app.log) > failures)


def full_disk(sizes=(0, 1, 2, 3, 4, 5, 6, 8, 10, 12, 16)):
    """Every copy meets a disk with a few pages left, and is there once there is room, without
    anything else being copied."""
    with Stage() as stage:
        disk = SmallDisk(stage.data)
        try:
            stage.start_app()
            texts = []
            failed = 0
            for pages in sizes:
                for length in (20, 9_000):
                    failures = sum("Unresolved error" in line for line in stage.app.log)
                    text = f"copy {len(texts)} " + "x" * length
                    disk.leave(pages)
                    stage.copy_new(text)
                    texts.append(text)
                    stage.wait_for(lambda: has_failed_or_saved(stage, text, failures),
                                   "the copy or the failure")
                    failed += text not in stage.clips()
                    disk.empty()
                    stage.wait_for_texts(texts, 90)
            stage.check_store(texts)
            if stage.app.quit():
                raise AssertionError("the program did not end well")
            told = start_on_full_disk(stage, disk, texts)
        finally:
            disk.end()
    return f"{len(texts)}", (f"{failed} saves failed and came through by themselves once there was "
                             f"room; store whole; {told}")


def start_on_full_disk(stage, disk, texts):
    disk.leave(0)
    stage.start_app(wait=False)
    stage.wait_for(lambda: stage.app.process.poll() is not None or
                   any("devmate setup complete" in line for line in stage.app.log), "the start", 30)
    has_started = stage.app.process.poll() is None
    if has_started:
        stage.copy_new("on a full disk")
        time.sleep(1)
    disk.empty()
    if has_started:
        stage.wait_for_texts(["on a full disk"], 90)
        stage.app.quit()
    check_store(stage.app.store, texts)
    return ("a start with no room at all works" if has_started else
            "a start with no room at all ends with the error, and leaves the store alone")


def read_only_folder():
    """The store's file system takes no writes: the history is shown and takes nothing."""
    with Stage() as stage:
        stage.start_app()
        stage.copy_new("kept")
        stage.wait_for_texts(["kept"], 20)
        stage.app.quit()
        mount("--bind", stage.data, stage.data)
        try:
            mount("-o", "remount,ro,bind", stage.data)
            stage.start_app()
            stage.copy_new("not to be kept")
            stage.app.wait_for_log("stays as it is")
            stage.app.open_history()
            stage.app.close()
            if stage.app.quit():
                raise AssertionError("the program did not end well")
        finally:
            subprocess.run(["umount", "-l", stage.data], check=False)
        if stage.clips() != ["kept"]:
            raise AssertionError("the history is another")
        stage.check_store(["kept"])
    return "1", "the history is shown and refuses what is new, with a line in the log"


def vanished_folder(times=5):
    """The folder is removed below the running program."""
    with Stage() as stage:
        stage.start_app()
        for number in range(times):
            text = f"before {number}"
            stage.copy_new(text)
            stage.wait_for_texts([text], 20)
            shutil.rmtree(stage.data)
            stage.copy_new(f"after {number}")
            stage.wait_for_texts([f"after {number}"], 20)
        stage.check_store([f"after {times - 1}"])
        stage.app.quit()
        stage.start_app()
        stage.check_store([f"after {times - 1}"])
    return f"{times}", "a new store takes what is copied from then on; what was removed stays so"


def locked_store(seconds=60, copies=20):
    """Another program keeps the store locked; the history is opened meanwhile."""
    with Stage() as stage:
        stage.start_app()
        stage.copy_new("before")
        stage.wait_for_texts(["before"], 20)
        editor = stage.editor()
        window = stage.app.open_history()
        other = sqlite3.connect(stage.app.store, isolation_level=None)
        other.execute("BEGIN EXCLUSIVE")
        end = time.monotonic() + seconds
        texts = [f"while locked {number}" for number in range(copies)]
        with Pulse(stage, window, editor) as pulse:
            for text in texts:
                stage.copy_new(text)
                stage.app.type("w")
                stage.app.key("BackSpace")
                time.sleep(max(0.0, min(seconds / copies, end - time.monotonic())))
        if set(texts) & set(stage.clips()):
            raise AssertionError("the store was not locked")
        other.execute("ROLLBACK")
        other.close()
        stage.wait_for_texts(texts, 90)
        stage.check_store(["before", *texts])
    return f"{copies} copies", (
        f"all {copies} in the store after it was let go; longest pause {pulse.longest[window]:.0f} ms "
        f"(a bare window beside it {pulse.longest[editor]:.0f} ms)")
