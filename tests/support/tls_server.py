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


class TlsServer:
    """Serves until close(). `answer(method, path, headers, body)` gives (status, headers, body) for
    each request, on the server's threads."""

    def __init__(self, folder, answer):
        self.answer = answer
        self.authority = make_authority(folder)
        context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        context.load_cert_chain(*self._certificate(folder))
        outer = self

        class Handler(http.server.BaseHTTPRequestHandler):
            protocol_version = "HTTP/1.1"

            def setup(self):
                # On the connection's own thread, so that a client which never speaks stops nobody.
                self.request = context.wrap_socket(self.request, server_side=True)
                super().setup()

            def finish(self):
                super().finish()
                self.request.close()

            def handle_any(self):
                body = self.rfile.read(int(self.headers.get("Content-Length", 0)))
                status, headers, answer = outer.answer(self.command, self.path, self.headers, body)
                self.send_response(status)
                for name, value in {"Content-Length": str(len(answer)), **headers}.items():
                    self.send_header(name, value)
                self.end_headers()
                self.wfile.write(answer)

            do_GET = do_POST = handle_any

            def log_message(self, *_):
                pass

        class Server(http.server.ThreadingHTTPServer):
            def handle_error(self, *_):
                pass  # A client that breaks off, or trusts another authority, is part of tests.

        self._server = Server(("127.0.0.1", 0), Handler)
        self._thread = threading.Thread(target=self._server.serve_forever, args=(0.05,),
                                        daemon=True)
        self._thread.start()
        self.url = f"https://127.0.0.1:{self._server.server_address[1]}"

    def _certificate(self, folder):
        base = os.path.join(folder, "server")
        issuer = self.authority.removesuffix(".pem")
        with open(base + ".ext", "w", encoding="utf-8") as extensions:
            extensions.write("subjectAltName=IP:127.0.0.1\n")
        _openssl("req", *_NEW_KEY, "-keyout", base + ".key", "-out", base + ".csr",
                 "-subj", "/CN=127.0.0.1")
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
