"""A web server for the pages that browsers show, which tell it what stands in them."""

import http.server
import json
import pathlib
import threading

DOCUMENTS = pathlib.Path(__file__).resolve().parent / "documents"


class PageServer:
    def __init__(self):
        self.document = None
        server = self

        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(self):
                page = DOCUMENTS / self.path.lstrip("/")
                if page.suffix != ".html" or not page.exists():
                    self.send_error(404)
                    return
                # Another browser begins.
                server.document = None
                self.answer(page.read_bytes())

            def do_POST(self):
                server.document = json.loads(self.rfile.read(int(self.headers["Content-Length"])))
                self.answer(b"")

            def answer(self, body):
                self.send_response(200)
                self.send_header("Content-Type", "text/html; charset=utf-8")
                self.send_header("Content-Length", str(len(body)))
                self.end_headers()
                self.wfile.write(body)

            def log_message(self, *_):
                pass

        self.server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        threading.Thread(target=self.server.serve_forever, daemon=True).start()

    def address(self, page):
        return f"http://127.0.0.1:{self.server.server_port}/{page}"
