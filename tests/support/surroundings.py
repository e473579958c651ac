"""What every private desktop of a test has: an empty home, a session bus, and the processes that
were started there, which end with it."""

import os
import shutil
import signal
import subprocess
import tempfile
import time

HERE = os.path.dirname(os.path.abspath(__file__))


class Surroundings:
    """Owns every process it starts and ends them by their id, last started first."""

    def __init__(self):
        self.processes = []
        self.home = tempfile.mkdtemp(prefix="quillmarsh-test-")
        self.environment = self._clean_environment()

    def _clean_environment(self):
        kept = {
            name: value
            for name, value in os.environ.items()
            if not name.startswith(("XDG_", "QT_", "GTK_", "DBUS_", "WAYLAND_", "QUILLMARSH_"))
            and name not in ("DISPLAY", "XAUTHORITY", "DESKTOP_SESSION", "AT_SPI_BUS_ADDRESS",
                             "SWAYSOCK")
        }
        runtime = os.path.join(self.home, "run")
        os.mkdir(runtime, 0o700)
        kept.update(
            HOME=self.home,
            XDG_RUNTIME_DIR=runtime,
            XDG_CONFIG_HOME=os.path.join(self.home, ".config"),
            XDG_DATA_HOME=os.path.join(self.home, ".local/share"),
            XDG_CACHE_HOME=os.path.join(self.home, ".cache"),
            XDG_DATA_DIRS="/usr/local/share:/usr/share",
            LC_ALL="C.UTF-8",
            NO_AT_BRIDGE="1",
        )
        return kept

    def begin(self):
        """Starts what the surroundings consist of."""
        raise NotImplementedError

    def __enter__(self):
        try:
            self.begin()
        except BaseException:
            self.close()
            raise
        return self

    def __exit__(self, *_):
        self.close()

    def start_bus(self):
        read_end, write_end = os.pipe()
        self.start(["dbus-daemon", "--session", "--nofork", f"--print-address={write_end}"],
                   pass_fds=[write_end], quiet=True)
        os.close(write_end)
        with os.fdopen(read_end) as pipe:
            self.environment["DBUS_SESSION_BUS_ADDRESS"] = pipe.readline().strip()

    def start(self, command, quiet=False, **options):
        """Starts a process here; it is ended with the surroundings."""
        options.setdefault("env", self.environment)
        if quiet:
            options.setdefault("stdout", subprocess.DEVNULL)
            options.setdefault("stderr", subprocess.DEVNULL)
        process = subprocess.Popen(command, **options)
        self.processes.append(process)
        return process

    def run(self, command, **options):
        options.setdefault("env", self.environment)
        return subprocess.run(command, check=False, **options)

    def ask(self, *command):
        """What a command says, less the blanks around it."""
        return self.run(command, capture_output=True, text=True).stdout.strip()

    def helper(self, script, *arguments, is_ready=True, **options):
        """Starts a program of this folder; `is_ready` waits for the line in which it says so."""
        pipes = {"stdin": subprocess.PIPE, "stdout": subprocess.PIPE, "stderr": subprocess.DEVNULL}
        process = self.start(["/usr/bin/python3", "-B", os.path.join(HERE, script),
                              *map(str, arguments)], text=True, **{**pipes, **options})
        if is_ready:
            process.stdout.readline()
        return process

    def repeat(self, action, condition, what, each=2, seconds=30):
        """Does it again and again until it has come out, for programs that do not say from when on
        they can be asked."""
        def has_come_out():
            action()
            try:
                return self.wait_for(condition, what, each)
            except TimeoutError:
                return False

        return self.wait_for(has_come_out, what, seconds)

    @staticmethod
    def wait_for(condition, what, seconds=10.0):
        """Polls until `condition` answers something true, and returns it."""
        limit = time.monotonic() + seconds
        while True:
            answer = condition()
            if answer:
                return answer
            if time.monotonic() > limit:
                raise TimeoutError(f"{what} did not come within {seconds:g} s")
            time.sleep(0.01)

    def watch(self, _variables):
        """Changes the variables of a program that is about to start, so that its log tells more; what
        takes the log's lines, and answers whether a line was no other's, or None."""
        return None

    def keep_picture(self):
        """Keeps what the screen shows, where that was asked for."""

    def await_shortcuts(self):
        """Returns once those of a program that has just started work."""

    def close(self):
        for process in reversed(self.processes):
            if process.poll() is None:
                process.terminate()
                try:
                    process.wait(5)
                except subprocess.TimeoutExpired:
                    process.send_signal(signal.SIGKILL)
                    process.wait()
            for pipe in (process.stdin, process.stdout, process.stderr):
                if pipe:
                    pipe.close()
        self.processes.clear()
        shutil.rmtree(self.home, ignore_errors=True)
