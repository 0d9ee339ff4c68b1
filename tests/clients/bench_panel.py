#!/usr/bin/python3
"""Runs the bench panel as a separate program at the far end of a paced line, with or without its virtual board.

usage: bench_panel.py BUILD_FOLDER      starts both and prints the path of the host's end, until it is interrupted
"""
from __future__ import annotations

import contextlib
import json
import os
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import threading
import time
from pathlib import Path

CLIENT = Path(__file__).parents[2] / "clients" / "python"
sys.path[:0] = [str(Path(__file__).parent), str(CLIENT)]
from paced_line import PacedLine  # noqa: E402
from zof_host import Panel  # noqa: E402


class BenchPanel:
    """`hmi`: changed keys of zofhmi.g. `moves` has the time of each "print 1 16" of the session."""

    FOLDER, PROGRAM, PORT = "panel", "zof_bench", 5

    def __init__(self, build: str, script: str = "wait 1\n", board: bool = False, hmi: dict[str, int] | None = None,
                 window: bool = False, arguments: list[str] | None = None) -> None:
        self.build = Path(build).resolve()
        self.line = PacedLine()
        self.moves: list[float] = []
        self.log: list[str] = []
        self._window = window
        self._arguments = arguments or []
        self._folder = tempfile.TemporaryDirectory()
        self._top = Path(self._folder.name)
        self.project = self._top / "res"
        shutil.copytree(self.build / self.FOLDER / "res", self.project)
        link = self.project / "config" / "project" / "zofhmi.g"
        link.write_text(json.dumps({**json.loads(link.read_text()), **(hmi or {})}))
        (self._top / "session").write_text(script)
        self._board = self._start_board() if board else None
        self.start()

    def start(self) -> None:
        """May be called again after `stop`, like a panel that is switched off and on."""
        hidden = {} if self._window else {"SDL_VIDEODRIVER": "offscreen", "SDL_AUDIODRIVER": "dummy"}
        env = {**os.environ, "XDG_STATE_HOME": str(self._top), "ZOF_SCRIPT": "session", "ZOF_COM6": "board", f"ZOF_COM{self.PORT}": self.line.panel, **hidden}
        self.panel = subprocess.Popen([*self.command(), *self._arguments], cwd=self._top, env=env, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        self._logger = threading.Thread(target=self._read_log, daemon=True)
        self._logger.start()

    def command(self) -> list[str | Path]:
        return [self.build / self.FOLDER / self.PROGRAM, "--project", "res"]

    def stop(self) -> None:
        """Fails if the panel has exited by itself, or has printed a sanitizer report."""
        ended = self.panel.poll() is not None
        self.panel.kill()
        self.panel.wait()
        self._logger.join()
        self.panel.stdout.close()
        if ended or any("Sanitizer" in line or "runtime error" in line for line in self.log):
            raise AssertionError("the panel has failed:\n" + "".join(self.log[-80:]))

    def wait_log(self, pattern: str, seconds: float = 60) -> re.Match[str]:
        """Returns the first line of the log in which the pattern is found."""
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            for line in list(self.log):
                if found := re.search(pattern, line):
                    return found
            time.sleep(0.02)
        raise AssertionError(f"no {pattern} in the log:\n" + "".join(self.log[-40:]))

    def open(self, **more) -> Panel:
        """Answers may take long under sanitizers."""
        return Panel.open(self.line.host, project=self.project, timeout_ms=more.pop("timeout_ms", 5000), **more)

    def __enter__(self) -> BenchPanel:
        return self

    def __exit__(self, *_: object) -> None:
        try:
            self.stop()
        finally:
            if self._board:
                self._board.kill()
                self._board.wait()
            self.line.close()
            self._folder.cleanup()

    def _read_log(self) -> None:
        for text in self.panel.stdout:
            if text.startswith("1/16:"):
                self.moves.append(time.monotonic())
            self.log.append(text)
            if self._window:
                print(text, end="")

    def _start_board(self) -> subprocess.Popen:
        board = subprocess.Popen([self.build / "tools" / "board_sim", "--link", self._top / "board"], stdout=subprocess.DEVNULL)
        while not (self._top / "board").exists() and board.poll() is None:
            time.sleep(0.02)
        return board


class GalleryPanel(BenchPanel):
    FOLDER, PROGRAM, PORT = "examples/gallery/gallery", "gallery", 4


class PlainPanel(GalleryPanel):
    """The gallery's folder without its program. `on` is added to a control of a view."""

    def __init__(self, build: str, script: str, view: str, control: str, on: dict[str, list[str]], **more) -> None:
        self._changed = view, control, on
        super().__init__(build, script, **more)

    def command(self) -> list[str | Path]:
        view, control, on = self._changed
        path = self.project / "config" / "view" / f"{view}.g"
        file = json.loads(path.read_text())
        next(c for c in file["controls"] if c["property"]["pub_t"]["name"] == control)["on"] = on
        path.write_text(json.dumps(file))
        return [self.build / "tools" / "zof", "run", "res"]


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    for number in (signal.SIGINT, signal.SIGTERM):
        signal.signal(number, signal.default_int_handler)
    display = "DISPLAY" in os.environ or "WAYLAND_DISPLAY" in os.environ
    with contextlib.suppress(AssertionError, KeyboardInterrupt):  # the user may interrupt it
        with BenchPanel(sys.argv[1], board=True, window=display) as bench:
            print(f"python3 -m zof_host --port {bench.line.host} --project {bench.project} get view.size", flush=True)
            bench.panel.wait()
