"""An HTTPS server on the loopback with a certificate authority of its own."""

import http.server
import os
import ssl
import subprocess
import threading


def make_authority(folder, name="authority"):
    """Path of a new authority's certificate; its key lies beside it."""
    base = os.path.join(folder, name)
    _openssl("req", "-x509", *_NEW_KEY, "-keyout", base + ".key", "-out", base + ".pem",
             "-days", "2", "-subj", f"/CN={name}")
    return base + ".pem"


def reply(request, status, body=b"", **headers):
    """A whole answer."""
    request.send_response(status)
    for name, value in {"Content_Length": str(len(body)), **headers}.items():
        request.send_header(name.replace("_", "-"), value)
    request.end_headers()
    request.wfile.write(body)


class TlsServer:
    """Serves until close(). `answer` is given each request, as http.server's handler, on the
    server's threads."""

    def __init__(self, folder, answer):
        self.authority = make_authority(folder)
        context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        context.load_cert_chain(*self._certificate(folder))

        class Handler(http.server.BaseHTTPRequestHandler):
            protocol_version = "HTTP/1.1"

            def setup(self):
                # On the connection's own thread, so that a client which never speaks stops nobody.
                self.request = context.wrap_socket(self.request, server_side=True)
                super().setup()

            def finish(self):
                super().finish()
                self.request.close()

            def do_GET(self):
                answer(self)

            do_POST = do_GET

            def log_message(self, *_):
                pass

        class Server(http.server.ThreadingHTTPServer):
            daemon_threads = True

            def handle_error(self, *_):
                pass  # A client that breaks off, or trusts another authority, is part of tests.

        self._server = Server(("127.0.0.1", 0), Handler)
        self.port = self._server.server_address[1]
        threading.Thread(target=self._server.serve_forever, args=(0.05,), daemon=True).start()

    def url(self, path, scheme="https"):
        return f"{scheme}://localhost:{self.port}{path}"

    def _certificate(self, folder):
        base = os.path.join(folder, "server")
        issuer = self.authority.removesuffix(".pem")
        with open(base + ".ext", "w", encoding="utf-8") as extensions:
            extensions.write("subjectAltName=DNS:localhost\n")
        _openssl("req", *_NEW_KEY, "-keyout", base + ".key", "-out", base + ".csr",
                 "-subj", "/CN=localhost")
        _openssl("x509", "-req", "-in", base + ".csr", "-CA", issuer + ".pem", "-CAkey",
                 issuer + ".key", "-CAcreateserial", "-days", "2", "-extfile", base + ".ext",
                 "-out", base + ".pem")
        return base + ".pem", base + ".key"

    def close(self):
        self._server.shutdown()
        self._server.server_close()


_NEW_KEY = ("-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:P-256", "-nodes")


def _openssl(*arguments):
    subprocess.run(["openssl", *arguments], check=True, capture_output=True)
