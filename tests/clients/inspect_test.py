#!/usr/bin/python3
"""A look into the running bench panel through its port: who is let in, what may be read and changed, and that no client
stops the panel.

usage: inspect_test.py BUILD_FOLDER
"""
import base64
import json
import os
import re
import socket
import stat
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

BUILD = Path(sys.argv.pop(1)).resolve()
PATIENCE_S = 60
RUNTIME = tempfile.TemporaryDirectory()  # with the tokens


class Program:
    def __init__(self, **more):
        env = {**os.environ, "SDL_VIDEODRIVER": "offscreen", "SDL_AUDIODRIVER": "dummy", "ZOF_STATE": "",
               "XDG_RUNTIME_DIR": RUNTIME.name, "ZOF_INSPECT": "0", **more}
        self.process = subprocess.Popen([BUILD / "panel" / "zof_bench"], cwd=BUILD / "panel", env=env, text=True,
                                        stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        found = self.until(r"inspect: 127\.0\.0\.1:(\d+), token in (.*)")
        self.port, self.file = int(found[1]), Path(found[2])
        self.token = self.file.read_text()

    def until(self, pattern):
        for line in self.process.stdout:
            if found := re.search(pattern, line):
                return found
        raise AssertionError(f"the program ended without {pattern}")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.terminate()
        rest = self.process.communicate()[0]
        assert self.process.returncode == 0 and "Sanitizer" not in rest, rest


class Client:
    def __init__(self, program, token=None):
        self.socket = socket.create_connection(("127.0.0.1", program.port), timeout=PATIENCE_S)
        self.lines = self.socket.makefile("rb")
        self.events, self.number = [], 0
        if token:
            self.project = self.ask("hello", token=token)

    def send(self, data):
        self.socket.sendall(data)

    def read(self):
        line = self.lines.readline()
        return json.loads(line) if line else None

    def ask(self, command, **arguments):
        self.number += 1
        self.send(json.dumps({"do": command, "id": self.number, **arguments}).encode() + b"\n")
        while "id" not in (reply := self.read()):
            self.events.append(reply)
        return reply

    def control(self, path):
        return next(one for one in self.ask("tree")["views"][0]["controls"] if one["path"] == path)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.lines.close()
        self.socket.close()


def view(program, *arguments):
    return subprocess.run([BUILD / "tools" / "zof", "view", "--attach", str(program.port), *arguments],
                          env={**os.environ, "XDG_RUNTIME_DIR": RUNTIME.name}, capture_output=True, timeout=PATIENCE_S)


class Inspect(unittest.TestCase):
    def assert_png(self, data):
        self.assertEqual((data[:4], data[-8:]), (b"\x89PNG", b"IEND\xaeB`\x82"))

    def test_reader(self):
        with Program() as program:
            self.assertEqual(stat.S_IMODE(program.file.stat().st_mode), 0o600)
            self.assertRegex(program.token, "^[0-9a-f]{32}$")
            hello = f'{{"do": "hello", "token": "{program.token[:-1]}x"}}\n'.encode()
            for line in b'{"do": "tree"}\n', hello, b"[" * 5000 + b"\n", b"\0" * (2 << 20) + b"\n":
                with Client(program) as client:
                    client.send(line)
                    self.assertEqual(client.read(), {"ok": False, "error": "the first line must be hello with the token"})
                    self.assertIsNone(client.read())
            with Client(program, program.token) as client, Client(program) as second:
                self.assertEqual((client.project["name"], client.project["view"]), ("USB-PD bench box", "output"))
                self.assertEqual(second.read(), {"ok": False, "error": "another client is connected"})
                tree = client.ask("tree")["views"][0]
                self.assertIn("output/set_line", [control["path"] for control in tree["controls"]])
                self.assert_png(base64.b64decode(client.ask("picture")["png"], validate=True))
                self.assertTrue(client.ask("review")["ok"] and client.ask("hit", x=9, y=9)["ok"])
                before = client.ask("snapshot")["state"]
                for command, arguments in (("set", {"row": "view.display", "value": 2}), ("show", {"view": "rails"}),
                                           ("pointer", {"x": 1, "y": 1, "down": True}), ("key", {"key": 1, "down": True}),
                                           ("state", {"control": "output/set_line", "state": "pressed"}),
                                           ("scroll", {"control": "output/set_line", "x": 1, "y": 1}),
                                           ("restore", {"state": {}}), ("picture", {"file": "/nowhere/x.png"})):
                    self.assertIn("needs ZOF_INSPECT_WRITE=1", client.ask(command, **arguments)["error"])
                for command, arguments in ("load", {"dir": "."}), ("quit", {}), ("link", {}), ("advance", {"ms": 1}):
                    self.assertIn("command of zof_player", client.ask(command, **arguments)["error"])
                self.assertEqual(client.ask("snapshot")["state"], before)
                client.send(b"x" * (2 << 20) + b"\n")
                self.assertEqual(client.read()["error"], "the line is too long")
                self.assertIn(b"another client is connected", view(program, "--tree", "-").stderr)
            tree = json.loads(view(program, "--tree", "-", "--view", "rails").stdout)
            self.assertEqual((tree["name"], tree["views"][0]["view"]), ("USB-PD bench box", "rails"))
            self.assert_png(view(program, "--shot", "-").stdout)
            self.assertIn(b"needs ZOF_INSPECT_WRITE=1", view(program, "--shot", "-", "--view", "rails").stderr)
        self.assertFalse(program.file.exists())

    def test_writer(self):
        with Program(ZOF_INSPECT_WRITE="1") as program:
            with Client(program, program.token) as client:
                self.assertTrue(client.ask("set", row="view.display", value=2)["ok"])
                self.assertEqual(client.ask("snapshot")["state"]["views"][-1], "rails")
                self.assertIn({"event": "view", "view": "rails"}, client.events)
            with Client(program, program.token) as client:
                client.ask("show", view="settings", alone=True)
                change = client.ask("values")["change"]
                client.ask("set", control="settings/label_2", row="label.text", value="x")
                x, y, width, height = client.control("settings/average")["box"]
                for down in True, False:  # the panel takes a change back as long as no box answers
                    client.ask("pointer", x=x + width // 2, y=y + height // 2, down=down)
                    while ("pressed" in client.control("settings/average")["state"]) != down:
                        pass
                values = client.ask("values", since=change)["values"]
                self.assertEqual({value["control"]: (value["by"], value["count"]) for value in values if "by" in value},
                                 {"settings/label_2": ("inspector", 1), "settings/average": ("program", 2)})
                self.assertIn({"event": "control", "control": "settings/average", "what": "changed", "value": 0, "text": ""},
                              client.events)
                before = client.ask("picture")["png"]
                self.assertTrue(client.ask("mark", control="settings/average")["ok"])
                self.assertNotEqual(client.ask("picture")["png"], before)
            with Client(program, program.token) as client:  # that closes its end and still gets its answers
                client.send(b'{"do": "tree"}\n' * 100)
                client.socket.shutdown(socket.SHUT_WR)
                self.assertEqual(len([line for line in client.lines if b'"views":' in line]), 100)
            with Client(program, program.token) as client:  # that reads nothing
                client.socket.setblocking(False)
                end = time.monotonic() + PATIENCE_S
                with self.assertRaises((BrokenPipeError, ConnectionResetError)):
                    while time.monotonic() < end:
                        try:
                            client.send(b'{"do": "tree"}\n')
                        except BlockingIOError:
                            time.sleep(0.01)
                program.until("the client does not read; it is disconnected")
            with Client(program, program.token) as client:
                self.assertTrue(client.ask("help")["ok"])


if __name__ == "__main__":
    unittest.main()
