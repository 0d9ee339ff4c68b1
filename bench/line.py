#!/usr/bin/python3
"""Measures what the firmware of a host can expect of the serial line, with the gallery at the far end of a paced
pseudo-terminal. Prints rows for RESULTS.md.   usage: line.py BUILD_FOLDER
"""
from __future__ import annotations

import statistics
import sys
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).parents[1] / "tests" / "clients"))
from bench_panel import GalleryPanel  # noqa: E402
from zof_host import Clicked, Panel, PowerOn, Snapshot, rows  # noqa: E402

VIEW, LABEL, SPIN = "switches", "label_4", "spin"
BOX = 590, 105  # a check box of the view
TEXT = "12.05 V"
WRITES, TOUCHES, RESTARTS = 300, 100, 10
SPEEDS = 115200, 921600


class TimedPanel(GalleryPanel):
    """Keeps the time of each line of its log that the session prints."""

    def _read_log(self) -> None:
        self.prints = []
        for text in self.panel.stdout:
            self.log.append(text)
            if text.startswith("6/4:"):
                self.prints.append(time.monotonic())


def row(what: str, seconds: list[float]) -> None:
    slow = sorted(seconds)[-max(len(seconds) // 100, 1)]
    print(f"| {what} | {statistics.median(seconds) * 1000:.1f} ms, the slowest 1 % from {slow * 1000:.1f} ms | | |", flush=True)


def timed(work, count: int) -> list[float]:
    out = []
    for number in range(count):
        begin = time.monotonic()
        work(number)
        out.append(time.monotonic() - begin)
    return out


def writes(panel: Panel, speed: int) -> None:
    row(f"a host's write of a label's text, until it is read back, {speed} baud",
        timed(lambda number: panel.write(rows.LABEL_TEXT, f"{number:05} V", view=VIEW, control=LABEL), WRITES))
    begin = time.monotonic()
    for number in range(WRITES * 4):
        panel.write(rows.LABEL_TEXT, f"{number:05} V", view=VIEW, control=LABEL, confirm=False)
    panel.barrier()
    print(f"| the same without reading back, one after the other, {speed} baud | "
          f"{WRITES * 4 / (time.monotonic() - begin):.0f} a second | | |", flush=True)


def events(gallery: TimedPanel, panel: Panel, speed: int) -> None:
    """The panel prints a line before each release."""
    panel.write(rows.LABEL_TEXT, "go", view=VIEW, control=LABEL)
    clicks = []
    while len(clicks) < TOUCHES:
        event = panel.event(30)
        if isinstance(event, Clicked):
            clicks.append(event.time)
    row(f"an event, from the release of a finger to the host, {speed} baud",
        [click - release for click, release in zip(clicks, gallery.prints)])


def agreed(panel: Panel, begin: float) -> float:
    """Returns the seconds until the host knows what the panel shows."""
    while not isinstance(panel.event(30), Snapshot):
        pass
    return time.monotonic() - begin


def host_restarts(gallery: TimedPanel, speed: int) -> None:
    seconds = []
    for _ in range(RESTARTS):
        begin = time.monotonic()
        with gallery.open() as panel:
            seconds.append(agreed(panel, begin))
    row(f"a host has restarted, until it knows what the panel shows, {speed} baud", seconds)


def panel_restarts(gallery: TimedPanel, panel: Panel, speed: int) -> None:
    seconds = []
    (gallery.project.parent / "session").write_text("wait 3600000\n")  # the label of the other one comes with its view
    for _ in range(RESTARTS):
        gallery.stop()
        while panel.event(0.2):
            pass
        gallery.start()
        while not isinstance(panel.event(30), PowerOn):
            pass
        begin = time.monotonic()
        seconds.append(agreed(panel, begin))
    row(f"a panel has restarted, until the host knows what it shows, from its first frame, {speed} baud", seconds)


def measure(build: str, speed: int) -> None:
    tap = f"press {BOX[0]} {BOX[1]}\nwait 100\nprint 6 4\nrelease\nwait 97\n"
    script = f"until 600000 6 4 go\n{tap * TOUCHES}wait 3600000\n"
    with TimedPanel(build, script, hmi={"event_en": 1, "crc_en": 1}) as gallery:
        gallery.line.byte_s = 10 / speed
        with gallery.open() as panel:
            panel.write(rows.VIEW_DISPLAY, VIEW)
            writes(panel, speed)
            events(gallery, panel, speed)
            panel_restarts(gallery, panel, speed)
        host_restarts(gallery, speed)


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    for speed in SPEEDS:
        measure(sys.argv[1], speed)
