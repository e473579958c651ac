"""What an update needs around it: keys, a server of the feed, prefixes with a program in them, and
files signed for a feed."""

import io
import os
import pathlib
import shutil
import socket
import subprocess
import tarfile
import tempfile
import threading

from tls_server import TlsServer, reply

SIGNER = os.environ.get("SIGNER", "build/dev/tools/quillmarsh-sign")
UPDATABLE = os.environ.get("UPDATABLE", "build/dev/tests/desktop/quillmarsh_updatable")
DOOR = os.environ.get("QUILLMARSH_BINARY", "build/dev/bin/quillmarsh")
UPDATER = os.environ.get("UPDATER", "build/dev/tests/desktop/updater_updatable")


_stripped = {}


def stripped(program):
    """A copy without debug information; small enough to be packed often."""
    if program not in _stripped:
        folder = tempfile.TemporaryDirectory(prefix="quillmarsh-stripped-")
        path = os.path.join(folder.name, "program")
        subprocess.run(["strip", "-o", path, program], check=True)
        _stripped[program] = folder, path
    return _stripped[program][1]


class Publisher:
    """A key pair under `folder`, and what is signed with it."""

    def __init__(self, folder):
        self.folder = pathlib.Path(folder)
        self.folder.mkdir()
        self.secret = self.folder / "secret"
        self.public = self.sign_tool("make-key", self.secret).strip()

    @staticmethod
    def sign_tool(*arguments):
        return subprocess.run([SIGNER, *map(str, arguments)], check=True, capture_output=True,
                              text=True).stdout

    def item(self, file, url, version, kind="prefix", secret=None, **options):
        """The feed's item for a file, as the signer prints it."""
        told = [f"--{name.replace('_', '-')}={value}" for name, value in options.items()]
        return self.sign_tool("sign", secret or self.secret, file, "--version", version, "--url",
                              url, "--kind", kind, *told)


def feed(*items):
    return ("<?xml version='1.0'?><updates>" + "".join(items) + "</updates>").encode()


def fill_prefix(prefix, version, program=UPDATABLE):
    """The program, what starts it and its helper as an installation has them; `version` is what they report."""
    for place, source in (("bin/quillmarsh", DOOR),
                          ("libexec/quillmarsh/quillmarsh", program),
                          ("libexec/quillmarsh/quillmarsh-updater", UPDATER)):
        path = pathlib.Path(prefix, place)
        path.parent.mkdir(parents=True, exist_ok=True)
        shutil.copy(stripped(source), path)
    path = pathlib.Path(prefix, "share/quillmarsh/test-version")
    path.parent.mkdir(parents=True)
    path.write_text(version)


def archive(path, prefix=None, version=None, extra=()):
    """A tar.gz of a prefix under the version given, and further (TarInfo, bytes) pairs."""
    with tarfile.open(path, "w:gz", compresslevel=1) as tar:
        if prefix:
            for name in ("bin", "libexec"):
                tar.add(os.path.join(prefix, name), name)
            entry = tarfile.TarInfo("share/quillmarsh/test-version")
            entry.size = len(version)
            tar.addfile(entry, io.BytesIO(version.encode()))
        for entry, content in extra:
            tar.addfile(entry, io.BytesIO(content))
    return path


class FeedServer(TlsServer):
    """Serves `answers`, by path: bytes, or a function that is given the request. What was asked for
    is in `asked`, with the Range header."""

    def __init__(self, folder):
        self.answers = {}
        self.asked = []
        super().__init__(folder, self._answer)

    def _answer(self, request):
        wanted = request.headers.get("Range")
        self.asked.append((request.path, wanted))
        answer = self.answers.get(request.path)
        if callable(answer):
            answer(request)
        elif answer is None:
            reply(request, 404)
        elif wanted:
            start = int(wanted[6:].split("-")[0])
            reply(request, 206, answer[start:],
                  Content_Range=f"bytes {start}-{len(answer) - 1}/{len(answer)}")
        else:
            reply(request, 200, answer)


class Proxy:
    """Passes CONNECT on; where to is in `connected`."""

    def __init__(self):
        self.connected = []
        self.listener = socket.create_server(("127.0.0.1", 0))
        self.port = self.listener.getsockname()[1]
        threading.Thread(target=self._accept, daemon=True).start()

    def _accept(self):
        while True:
            try:
                client, _ = self.listener.accept()
            except OSError:
                return
            threading.Thread(target=self._serve, args=(client,), daemon=True).start()

    def _serve(self, client):
        request = client.recv(4096).split()
        self.connected.append(request[1].decode())
        host, port = self.connected[-1].rsplit(":", 1)
        with client, socket.create_connection((host, int(port))) as server:
            client.sendall(b"HTTP/1.1 200 OK\r\n\r\n")
            upwards = threading.Thread(target=self._pass, args=(client, server), daemon=True)
            upwards.start()
            self._pass(server, client)
            upwards.join()

    @staticmethod
    def _pass(source, target):
        try:
            while data := source.recv(65536):
                target.sendall(data)
            # The other thread reads from one of them, too.
            for end in (source, target):
                end.shutdown(socket.SHUT_RDWR)
        except OSError:
            pass

    def close(self):
        self.listener.close()
