#!/usr/bin/python3
"""10,000 concurrent writes, reads and touches on the bench panel while its virtual board runs, over a line paced at
921,600 baud. Every write is read back, every read is compared, every touch is counted; then prints the latencies.

usage: ten_thousand.py BUILD_FOLDER [COUNT]
"""
from __future__ import annotations

import json
import sys
import threading
import time

from bench_panel import BenchPanel
from zof_host import Panel, PowerOn, Touch, rows

SESSION, BRIGHTNESS = 17, 19  # a label of view 1 and a slider of view 4 that the panel's program does not change
FINGER_MS = 50


class Run:
    def __init__(self, count: int) -> None:
        self.count = count * 44 // 100  # of writes, and of reads; touches are slower, so all three end at about the same time
        # On the empty background, and never twice in a row at the same position.
        self.taps = [(20 + i % 300, 306 + i % 30) for i in range(count // 2 - self.count)]
        self.took: dict[str, list[float]] = {"write": [], "read": [], "touch": []}
        self.failures: list[str] = []
        self.version = ""  # of the panel

    def script(self) -> str:
        """The session of one finger. It prints a line with each move, whose time is recorded."""
        taps = [f"print 1 16\npress {x} {y}\nwait {FINGER_MS}\nprint 1 16\nrelease\n" for x, y in self.taps]
        return f"until 60000 1 {SESSION} go\n" + "".join(taps) + "wait 3600000\n"

    def timed(self, kind: str, work, *args, want=None, **at) -> None:
        begin = time.monotonic()
        try:
            got = work(*args, **at)
            if got != want:
                self.failures.append(f"{kind}: {got!r}, not {want!r}")
        except Exception as why:  # any error counts as lost, and the run continues
            self.failures.append(f"{kind}: {why}")
        self.took[kind].append(time.monotonic() - begin)

    def write_all(self, panel: Panel) -> None:
        for i in range(self.count):
            if i % 2:
                self.timed("write", panel.write, rows.LABEL_TEXT, f"{i} " + "x" * (i % 150), view=1, control=SESSION)
            else:
                self.timed("write", panel.write, rows.SLIDER_VALUE, 10 + i // 2 % 91, view=4, control=BRIGHTNESS)

    def read_all(self, panel: Panel) -> None:
        asked = [(rows.VIEW_SIZE, (800, 480), {}), (rows.SYSTEM_TOUCH_CONFIG, 0x30, {}),
                 (rows.CONTROL_WIDTH, 252, {"view": 1, "control": 7}), (rows.SYSTEM_VERSION, self.version, {"selector": 0})]
        for i in range(self.count):
            row, want, at = asked[i % len(asked)]
            self.timed("read", panel.read, row, want=want, **at)

    def touch_all(self, panel: Panel, moves: list[float]) -> None:
        for i, expected in enumerate((state, x, y) for x, y in self.taps for state in (1, 0)):
            event = panel.event(10)
            if not isinstance(event, Touch) or (event.state, event.x, event.y) != expected:
                self.failures.append(f"touch {i}: {event}, not {expected}")
                return
            while len(moves) <= i:  # the session's output arrives on another channel
                time.sleep(0.001)
            self.took["touch"].append(max(event.time - moves[i], 0))
        extra = panel.event(0.5)
        if extra:
            self.failures.append(f"one event too many: {extra}")

    def run(self, build: str) -> None:
        with BenchPanel(build, self.script(), board=True) as bench, bench.open() as panel:
            self.version = json.loads((bench.project / "config/project/zofprj.g").read_text())["app_ver"]
            assert isinstance(panel.event(20), PowerOn)
            panel.write(rows.SYSTEM_TOUCH_CONFIG, 0x30)
            panel.write(rows.LABEL_TEXT, "go", view=1, control=SESSION)
            while not bench.moves:  # until the session has started: it overwrites the label
                time.sleep(0.001)
            begin = time.monotonic()
            work = [threading.Thread(target=kind, args=(panel, *more)) for kind, *more in
                    ((self.write_all,), (self.read_all,), (self.touch_all, bench.moves))]
            for thread in work:
                thread.start()
            for thread in work:
                thread.join()
            done = {kind: len(times) for kind, times in self.took.items()}
            print(f"{sum(done.values())} in {time.monotonic() - begin:.1f} s, by kind: {done}")
            print("milliseconds      min  median     99 %     max")
            for kind, times in self.took.items():
                ms = sorted(1000 * t for t in times) or [0.0]
                print(f"{kind:12}{ms[0]:9.1f}{ms[len(ms) // 2]:8.1f}{ms[len(ms) * 99 // 100]:9.1f}{ms[-1]:8.1f}")
            print(f"lost: {len(self.failures)}; asked again: {panel.counts['repeats']}; noise: {panel.counts['noise']}")


if __name__ == "__main__":
    if len(sys.argv) not in (2, 3):
        sys.exit(__doc__)
    run = Run(int(sys.argv[2]) if len(sys.argv) > 2 else 10000)
    run.run(sys.argv[1])
    sys.exit("\n".join(run.failures[:20]) or 0)
