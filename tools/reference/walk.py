#!/usr/bin/python3
"""Follows a page word by word: writes its files, runs its commands in their order, and takes its pictures.

    walk.py FOLDER PICTURES PAGE.md...      the programs are found through PATH; FOLDER is emptied first

A block with a file name after its language is a file. A block "sh" is run and must succeed, a block "sh stays" keeps running
until the end of the page. A comment "session:" is played by the program that is started next, which must end with it. A comment
"picture: FILE | OPTIONS | TEXT" is a picture by `zof view`, or with the option "session" one that a session saves.
"""
from __future__ import annotations

import os
import re
import shutil
import signal
import subprocess
import sys
from pathlib import Path

BLOCK = re.compile(r"^```(?P<language>\w+) ?(?P<more>.*)\n(?P<text>(?:.*\n)*?)```$"
                   r"|^<!-- session:\n(?P<session>(?:.*\n)*?)-->$"
                   r"|^<!-- picture: (?P<picture>\S+) \| ?(?P<options>.*) \|.*-->$", re.M)
SESSION_S = 180  # on a busy machine


class Walk:
    def __init__(self, page: Path, folder: Path, pictures: Path) -> None:
        self.page, self.folder, self.pictures = page, folder, pictures
        self.place = str(page)
        self.session = ""
        self.running: list[subprocess.Popen[bytes]] = []
        self.played: list[subprocess.Popen[bytes]] = []
        self.log = folder / "walk.log"
        programs = folder / ".bin"
        if not programs.exists():
            programs.mkdir()
            (programs / "python3").symlink_to(sys.executable)  # one that has the modules of the system's packages
        self.env = {**os.environ, "PATH": f"{programs}:{os.environ['PATH']}", "SDL_VIDEODRIVER": "offscreen",
                    "SDL_AUDIODRIVER": "dummy", "ZOF_STATE": "", "ZOF_SHOTS": str(pictures), "PYTHONDONTWRITEBYTECODE": "1"}

    def fail(self, why: str) -> None:
        sys.exit(f"{self.log.read_text(errors='replace')[-4000:]}{self.place}: {why}")

    def start(self, command: str, **more: str) -> subprocess.Popen[bytes]:
        with self.log.open("ab") as log:
            return subprocess.Popen(["sh", "-euc", command], cwd=self.folder, env={**self.env, **more},
                                    stdin=subprocess.DEVNULL, stdout=log, stderr=log, start_new_session=True)

    def must(self, command: str) -> None:
        if self.start(command).wait() != 0:
            self.fail("this fails: " + command)

    def keep(self, command: str) -> None:
        more = {}
        if self.session:
            (self.folder / "session").write_text(self.session)
            more = {"ZOF_SCRIPT": str(self.folder / "session")}
        (self.played if self.session else self.running).append(self.start(command, **more))
        self.session = ""
        for name in re.findall(r"-link (\S+)", command):  # what the next command needs
            self.must(f"for i in $(seq 400); do [ -e {name} ] && exit; sleep 0.05; done; exit 1")

    def step(self, found: re.Match[str]) -> None:
        block = found.groupdict()
        if block["picture"]:
            if block["options"] != "session":
                self.must(f"zof view coffee --shot {self.pictures / block['picture']} {block['options']}")
        elif block["session"]:
            self.session = block["session"]
        elif block["language"] == "sh":
            self.keep(block["text"]) if block["more"] == "stays" else self.must(block["text"])
        elif block["more"]:
            path = self.folder / block["more"]
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(block["text"])

    def run(self) -> None:
        try:
            text = self.page.read_text()
            for found in BLOCK.finditer(text):
                self.place = f"{self.page}:{text.count(chr(10), 0, found.start()) + 1}"
                self.step(found)
                played = any(process.poll() is not None for process in self.played)
                if not played and any(process.poll() is not None for process in self.running):
                    self.fail("a program that should keep running has ended")
            if any(process.wait(SESSION_S) for process in self.played):
                self.fail("a session has failed")
        finally:
            for process in self.running + self.played:
                if process.poll() is None:
                    os.killpg(process.pid, signal.SIGTERM)
                    process.wait()
        for name in re.findall(r"^<!-- picture: (\S+)", text, re.M):
            if not (self.pictures / name).exists():
                self.fail(f"no {name}")


if __name__ == "__main__":
    if len(sys.argv) < 4:
        sys.exit(__doc__)
    folder, pictures = (Path(name).resolve() for name in sys.argv[1:3])
    shutil.rmtree(folder, ignore_errors=True)
    for path in folder, pictures:
        path.mkdir(parents=True, exist_ok=True)
    for page in sys.argv[3:]:
        Walk(Path(page).resolve(), folder, pictures).run()
