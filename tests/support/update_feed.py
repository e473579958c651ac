"""What an update needs around it: keys, an authority of its own with a TLS server on the loopback,
prefixes with a program in them, and files signed for a feed."""

import base64
import http.server
import io
import os
import pathlib
import shutil
import socket
import ssl
import subprocess
import tarfile
import tempfile
import threading

SIGNER = os.environ.get("SIGNER", "build/dev/tools/quillmarsh-sign")
UPDATABLE = os.environ.get("UPDATABLE", "build/dev/tests/desktop/quillmarsh_updatable")
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


def openssl(*arguments):
    subprocess.run(["openssl", *arguments], check=True, capture_output=True)


class Publisher:
    """A key pair and an authority under `folder`, and what is made with them."""

    def __init__(self, folder):
        self.folder = pathlib.Path(folder)
        self.folder.mkdir()
        self.secret = self.folder / "secret"
        self.public = self.sign_tool("make-key", self.secret).strip()
        self.authority = self.folder / "authority.pem"
        openssl("req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:P-256", "-nodes",
                "-days", "2", "-subj", "/CN=Test authority", "-keyout", f"{folder}/authority.key",
                "-out", str(self.authority))
        self.certificate = self._certificate()

    def _certificate(self):
        base = self.folder / "server"
        extensions = self.folder / "extensions"
        extensions.write_text("subjectAltName=DNS:localhost,IP:127.0.0.1\n")
        openssl("req", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:P-256", "-nodes", "-subj",
                "/CN=localhost", "-keyout", f"{base}.key", "-out", f"{base}.csr")
        openssl("x509", "-req", "-in", f"{base}.csr", "-days", "2", "-CA", str(self.authority),
                "-CAkey", f"{self.folder}/authority.key", "-CAcreateserial", "-extfile",
                str(extensions), "-out", f"{base}.pem")
        return f"{base}.pem", f"{base}.key"

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
    """The program and its helper as an installation has them; `version` is what they report."""
    for place, source in (("bin/quillmarsh", program),
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


class Server:
    """Serves `answers`, by path: bytes, or a function that is given the request's handler. What was
    asked for is in `asked`, with the Range header."""

    def __init__(self, certificate):
        self.answers = {}
        self.asked = []
        server = self

        class Handler(http.server.BaseHTTPRequestHandler):
            protocol_version = "HTTP/1.1"

            def do_GET(self):
                wanted = self.headers.get("Range")
                server.asked.append((self.path, wanted))
                answer = server.answers.get(self.path)
                try:
                    if callable(answer):
                        answer(self)
                    elif answer is None:
                        self.send_error(404)
                    else:
                        self.send_bytes(answer, wanted)
                except OSError:
                    self.close_connection = True

            def send_bytes(self, content, wanted=None):
                start = int(wanted[6:].split("-")[0]) if wanted else 0
                self.send_response(206 if wanted else 200)
                if wanted:
                    self.send_header("Content-Range",
                                     f"bytes {start}-{len(content) - 1}/{len(content)}")
                self.send_header("Content-Length", str(len(content) - start))
                self.end_headers()
                self.wfile.write(content[start:])

            def log_message(self, *_):
                pass

        context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        context.load_cert_chain(*certificate)
        self.http = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        self.http.daemon_threads = True
        self.http.socket = context.wrap_socket(self.http.socket, server_side=True,
                                               do_handshake_on_connect=False)
        self.port = self.http.server_address[1]
        threading.Thread(target=self.http.serve_forever, daemon=True).start()

    def url(self, path, scheme="https"):
        return f"{scheme}://localhost:{self.port}{path}"

    def close(self):
        self.http.shutdown()
        self.http.server_close()


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
