#!/usr/bin/python3
# The program behind the design page, as its pages see it: who is served, what edits change, what is shown, and what survives
# a crash. No browser.   usage: design_test.py BUILD
import base64
import io
import json
import os
import random
import shutil
import signal
import socket
import struct
import subprocess
import sys
import tempfile
import urllib.request

from PIL import Image

BUILD = os.path.abspath(sys.argv[1])
ZOF = BUILD + "/tools/zof"
LIMIT_S = 60
VIEW = "config/view/main.g"


class Page:
    """A page without a browser: one WebSocket."""

    def __init__(self, address, token=None, origin=None, host=None):
        name, _, query = address[len("http://"):].partition("/?token=")
        port = int(name.split(":")[1])
        self.socket = socket.create_connection(("127.0.0.1", port), LIMIT_S)
        key = base64.b64encode(os.urandom(16)).decode()
        lines = [f"GET /socket?token={token or query} HTTP/1.1", f"Host: {host or name}",
                 "Upgrade: websocket", "Connection: Upgrade", f"Sec-WebSocket-Key: {key}", "Sec-WebSocket-Version: 13",
                 f"Origin: {origin or 'http://' + name}", "", ""]
        self.socket.sendall("\r\n".join(lines).encode())
        self.data = b""
        while b"\r\n\r\n" not in self.data:
            self.data += self.socket.recv(65536)
        head, self.data = self.data.split(b"\r\n\r\n", 1)
        self.status = int(head.split()[1])
        self.last, self.events, self.picture = 0, [], None

    def take(self, count):
        while len(self.data) < count:
            more = self.socket.recv(1 << 20)
            assert more, "the program has closed the connection"
            self.data += more
        out, self.data = self.data[:count], self.data[count:]
        return out

    def message(self):
        """Returns the next message; pictures are put together, and returned as None."""
        whole = b""
        while True:
            first, size = self.take(2)
            size &= 127
            size = struct.unpack(">H", self.take(2))[0] if size == 126 else struct.unpack(">Q", self.take(8))[0] if size == 127 else size
            whole += self.take(size)
            kind = first & 15 or kind
            if first & 128:
                break
        if kind == 9:  # ping
            self.frame(10, whole)
            return None
        if kind == 1:
            return json.loads(whole)
        assert kind == 2, (kind, whole)
        code, _, x, y, width, height, full_width, full_height = struct.unpack("<8I", whole[:32])
        if code == 1:
            if not self.picture or self.picture.size != (full_width, full_height):
                self.picture = Image.new("RGB", (full_width, full_height))
            self.picture.paste(Image.frombytes("RGBA", (width, height), whole[32:]).convert("RGB"), (x, y))
        return None

    def frame(self, kind, data):
        count = len(data)
        size = struct.pack(">B", 128 | count) if count < 126 else struct.pack(">BH", 254, count) if count < 65536 else struct.pack(">BQ", 255, count)
        size = struct.pack(">B", 128 | kind) + size
        self.socket.sendall(size + b"\0\0\0\0" + data)

    def ask(self, what, **args):
        self.last += 1
        self.frame(1, json.dumps({"id": self.last, "do": what, **args}).encode())
        while True:
            message = self.message()
            if message and message.get("id") == self.last:
                return message
            if message:
                self.events.append(message)

    def wait(self, event, test=lambda one: True):
        for i, one in enumerate(self.events):
            if one["event"] == event and test(one):
                self.events = self.events[i + 1:]
                return one
        while True:
            one = self.message()
            if one and one.get("event") == event and test(one):
                self.events = []  # all came before
                return one


class Program:
    """`zof design` on a folder."""

    def __init__(self, folder, state):
        self.process = subprocess.Popen([ZOF, "design", folder], stdout=subprocess.PIPE, text=True,
                                        env={**os.environ, "ZOF_STATE": state, "SDL_AUDIODRIVER": "dummy"})
        self.address = self.process.stdout.readline().strip()

    def page(self, **args):
        page = Page(self.address, **args)
        if page.status == 101:
            page.ask("hello")
            page.wait("tree")
        return page

    def players(self):
        out = subprocess.run(["ps", "-o", "pid=,comm=", "--ppid", str(self.process.pid)], capture_output=True, text=True).stdout
        return [int(line.split()[0]) for line in out.splitlines() if "zof_player" in line]

    def end(self):
        self.process.kill()
        self.process.wait()


def shot(folder):
    out = subprocess.run([ZOF, "view", folder, "--shot", "-"], capture_output=True, check=True).stdout
    return Image.open(io.BytesIO(out)).convert("RGB")


def text(folder, name=VIEW):
    with open(f"{folder}/res/{name}", newline="") as file:
        return file.read()


def refused(program):
    for what, args in {"token": {"token": "0" * 32}, "origin": {"origin": "http://example.test"}, "host": {"host": "example.test"}}.items():
        assert program.page(**args).status != 101, f"another {what} is served"
    base, token = program.address.split("/?token=")
    assert urllib.request.urlopen(f"{base}/socket?token={token}").status == 204
    for path in ("/..%2f..%2fetc%2fpasswd", "//etc/passwd", "/.npmrc", "/config/view/main.g", "/socket?token=" + "0" * 32):
        try:
            urllib.request.urlopen(base + path)
            raise AssertionError(path + " is served")
        except urllib.error.HTTPError as fault:
            assert fault.code == (403 if "token" in path else 404), path
    assert b"app.js" in urllib.request.urlopen(base + "/").read()
    page = program.page()
    for file in ("../../../etc/passwd", "/etc/passwd", "config/../../x.g"):
        assert not page.ask("source", file=file)["ok"], file
        assert not page.ask("edit", label="x", edits=[{"file": file, "create": "x"}])["ok"], file
    for name in ("../x.png", "a/../../x.png", "/tmp/x.png", ".png", "x.g", "x.png\n", ""):
        assert not page.ask("import", folder="image", name=name, data="eA==")["ok"], name
    assert not page.ask("import", folder="config/view", name="x.png", data="eA==")["ok"]
    assert not page.ask("asset", tile=1, name="../config/view/main.g", width=9, height=9)["ok"]
    assert not page.ask("specimen", tile=1, name="../config/view/main.g", size=9, text="a", width=9, height=9)["ok"]
    assert not page.ask("make", name="x", template="blank", panelWidth=480, panelHeight=272, languages=["en"])["ok"]
    for line in ("", "[]", "{}", '{"do": 1}', '{"do": "edit"}', '{"do": "tile"}', "x" * 70000):
        page.frame(1, line.encode())
    assert page.ask("hello")["ok"]


def random_gestures(program, folder):
    """Each edit changes only its value, the picture is that of a fresh start, and undo gives the first bytes again."""
    page = program.page()
    before = text(folder)
    count = len(json.loads(before)["controls"])
    dice = random.Random(3)
    for step in range(40):
        path = f"controls[{dice.randrange(count)}].property.pub_t." + dice.choice(["pt.x", "pt.y", "size.width", "size.height"])
        old, value = text(folder), dice.randrange(1, 300)
        edits = [{"file": VIEW, "path": path, "value": value}]
        if step % 4 == 0:
            assert page.ask("try", edits=[{**edits[0], "value": 5}])["ok"]
            assert text(folder) == old, "a try is written"
        reply = page.ask("edit", label=f"Step {step}", edits=edits)
        changes = reply["gesture"]["changes"] if reply["ok"] else []
        made = text(folder)
        if changes:
            lines, row, at = old.split("\n"), changes[0]["line"] - 1, changes[0]["column"] - 1
            end = at + len(changes[0]["before"])
            assert lines[row][at:end] == changes[0]["before"]
            lines[row] = lines[row][:at] + str(value) + lines[row][end:]
            assert made == "\n".join(lines), path
        else:
            assert made == old, path
    page.ask("hit", x=0, y=0)
    assert page.picture.tobytes() == shot(folder).tobytes(), "the picture is not that of a fresh start"
    while page.ask("undo")["ok"]:
        pass
    assert text(folder) == before
    page.ask("hit", x=0, y=0)
    assert page.picture.tobytes() == shot(folder).tobytes()


def two_pages_and_others(program, folder):
    first, second = program.page(), program.page()
    edit = {"file": VIEW, "path": "controls[3].property.pub_t.pt.x", "value": 77}
    first.ask("edit", label="Move", edits=[edit])
    seen = second.wait("file", lambda one: one["cause"] == "edit")
    assert seen["gesture"]["changes"][0]["after"] == "77"
    with open(f"{folder}/res/{VIEW}", "r+", newline="") as file:  # another program
        changed = file.read().replace('"x": 77', '"x": 78')
        file.seek(0)
        file.write(changed)
    seen = second.wait("file", lambda one: one["cause"] == "elsewhere")
    assert seen["gesture"]["source"] == "elsewhere" and seen["undo"]["undo"]
    assert second.ask("undo")["ok"] and '"x": 77' in text(folder)
    assert second.ask("undo")["ok"]
    with open(f"{folder}/res/{VIEW}", "rb+") as file:  # bytes that no connection of texts may carry
        good = file.read()
        file.seek(0)
        file.write(good.replace(b'"title"', b'"t\xfftle"', 1))
    seen = second.wait("file", lambda one: one["cause"] == "elsewhere")
    assert "UTF-8" in second.ask("source", file=VIEW)["error"]
    with open(f"{folder}/res/{VIEW}", "wb") as file:
        file.write(good)
    second.wait("file", lambda one: one["cause"] == "elsewhere")
    assert second.ask("source", file=VIEW)["ok"] and first.ask("source", file=VIEW)["ok"]


def views(program, folder):
    """A view that is made is shown by the next request, although the project is being loaded again."""
    page = program.page()
    for name in ("menu", "menu2"):
        assert page.ask("viewAdd", view="main", name=name, copy=True)["ok"]
        shown = page.ask("show", view=name)
        assert shown["ok"], shown
        page.wait("tree", lambda one: one["shown"]["view"] == name and one["controls"])
    assert page.ask("viewDelete", view="menu2")["ok"] and page.ask("viewDelete", view="menu")["ok"]
    page.wait("shown", lambda one: one["shown"]["view"] == "main")
    assert not os.path.exists(f"{folder}/res/config/view/menu.g")


def fixes(program, folder):
    page = program.page()
    good = text(folder)
    bad = good.replace('"width": 250', '"widht": 250', 1).replace('"look": "card"', '"look": "crd"', 1).replace('"alpha": 255', '"alpha": "255"', 1)
    with open(f"{folder}/res/{VIEW}", "w", newline="") as file:
        file.write(bad)
    found = page.wait("problems", lambda one: len(one["problems"]) >= 3)["problems"]
    sure = [fix for problem in found for fix in problem["fixes"][:1] if fix["sure"]]
    assert len(sure) == 3, found
    assert page.ask("edit", label="Fix all 3", edits=[edit for fix in sure for edit in fix["edits"]])["ok"]
    assert text(folder) == good
    page.wait("problems", lambda one: not [problem for problem in one["problems"] if problem["error"]])


def kept_open(program):
    """A player has what it needs, and no socket of the server, which would stay open after the program."""
    program.page().ask("hit", x=0, y=0)
    for player in program.players():
        links = [os.readlink(f"/proc/{player}/fd/{fd}") for fd in os.listdir(f"/proc/{player}/fd")]
        assert not [link for link in links if link.startswith("socket:")], links


def hangs(program):
    page = program.page()
    os.kill(program.players()[0], signal.SIGSTOP)
    assert not page.ask("hit", x=0, y=0)["ok"]
    page.wait("runtime", lambda one: one["state"] == "stopped")
    page.wait("runtime", lambda one: one["state"] == "runs")
    assert page.ask("hit", x=0, y=0)["ok"]


def no_panel(program):
    """A port at which something else listens is named, and tried again until a panel is there."""
    page = program.page()
    with socket.create_server(("127.0.0.1", 0)) as other:
        assert page.ask("mode", mode="live", address=str(other.getsockname()[1]))["ok"]
        for _ in range(2):
            other.accept()[0].close()
            assert "is not that of a panel" in page.wait("runtime", lambda one: one["state"] == "stopped")["note"]
    assert page.ask("mode", mode="design")["ok"]
    assert not page.wait("runtime", lambda one: one["state"] == "runs")["note"]


def crashes(program, folder, state):
    page = program.page()
    before = text(folder)
    page.ask("hit", x=0, y=0)
    for player in program.players():
        os.kill(player, signal.SIGKILL)
    page.wait("runtime", lambda one: one["state"] == "stopped")
    # Soon after its start, the project may have ended the player, so that it starts again only with the next edit.
    assert page.ask("edit", label="Move", edits=[{"file": VIEW, "path": "controls[3].property.pub_t.pt.x", "value": 30}])["ok"]
    page.wait("runtime", lambda one: one["state"] == "runs")
    for player in program.players():
        os.kill(player, signal.SIGKILL)
    page.wait("runtime", lambda one: one["state"] == "stopped")
    page = program.page()  # as after a reload, which tries again, and waits for what is drawn
    page.ask("hit", x=0, y=0)
    assert page.picture.tobytes() == shot(folder).tobytes()
    assert page.ask("edit", label="Move", edits=[{"file": VIEW, "path": "controls[3].property.pub_t.pt.x", "value": 31}])["ok"]
    program.end()
    again = Program(folder, state)
    page = again.page()
    undone = [page.ask("undo")["ok"] for _ in range(2)]
    again.end()
    assert undone == [True, True] and text(folder) == before, "undo does not survive the program"


def main():
    with tempfile.TemporaryDirectory() as top:
        folder, state = top + "/panel", top + "/state"
        subprocess.run([ZOF, "new", folder, "--template", "dashboard"], check=True, stdout=subprocess.DEVNULL)
        shutil.copytree(folder, top + "/kept")
        program = Program(folder, state)
        try:
            refused(program)
            kept_open(program)
            hangs(program)
            no_panel(program)
            random_gestures(program, folder)
            two_pages_and_others(program, folder)
            views(program, folder)
            fixes(program, folder)
            crashes(program, folder, state)
        finally:
            program.end()
        same = subprocess.run(["diff", "-r", top + "/kept", folder], capture_output=True, text=True)
        assert same.returncode == 0, same.stdout


main()
