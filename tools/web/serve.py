#!/usr/bin/python3
"""Serves a folder as a page that may have threads, on this machine alone, and prints its address.

usage: serve.py FOLDER [PORT]     without PORT any free one
"""
import functools
import http.server
import sys


class Handler(http.server.SimpleHTTPRequestHandler):
    extensions_map = {**http.server.SimpleHTTPRequestHandler.extensions_map, ".wasm": "application/wasm",
                      ".js": "text/javascript", ".webmanifest": "application/manifest+json"}

    def end_headers(self):
        self.send_header("Cross-Origin-Opener-Policy", "same-origin")
        self.send_header("Cross-Origin-Embedder-Policy", "require-corp")
        self.send_header("Cache-Control", "no-cache")
        super().end_headers()

    def log_message(self, *_):
        pass


port = int(sys.argv[2]) if len(sys.argv) > 2 else 0
server = http.server.ThreadingHTTPServer(("127.0.0.1", port), functools.partial(Handler, directory=sys.argv[1]))
print(f"http://127.0.0.1:{server.server_port}/", flush=True)
try:
    server.serve_forever()
except KeyboardInterrupt:
    pass
