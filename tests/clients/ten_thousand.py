#!/usr/bin/python3
"""10,000 writes, reads and touches at once, on the bench panel while its virtual board runs, over a line that is paced
like 921,600 baud. Every write is read back, every read is compared, every touch is counted; then the latencies.

usage: ten_thousand.py BUILD_FOLDER [COUNT]
"""
from __future__ import annotations

import sys
import threading
import time
from pathlib import Path

sys.path[:0] = [str(Path(__file__).parent), str(Path(__file__).parents[2] / "clients" / "python")]
from bench_panel import BenchPanel  # noqa: E402
from zof_host import Panel, PowerOn, Touch, rows  # noqa: E402

SESSION, BRIGHTNESS = 17, 19  # a label of view 1 and a slider of view 4 that the panel's program leaves alone
FINGER_MS = 50


def script(taps: list[tuple[int, int]]) -> str:
    """The session of one finger. The line that is printed with each of its moves tells when it was."""
    lines = [f"until 60000 1 {SESSION} go"]
    for x, y in taps:
        lines += ["print 1 16", f"press {x} {y}", f"wait {FINGER_MS}", "print 1 16", "release"]
    return "\n".join(lines + ["wait 3600000\n"])


class Run:
    def __init__(self, count: int) -> None:
        self.writes = self.reads = count * 44 // 100  # a finger takes its time: so all three are busy to the end
        # On empty ground, and no two in a row at the same place.
        self.taps = [(20 + i % 300, 306 + i % 30) for i in range((count - self.writes - self.reads) // 2)]
        self.took: dict[str, list[float]] = {"write": [], "read": [], "touch": []}
        self.failures: list[str] = []

    def timed(self, kind: str, work) -> None:
        begin = time.monotonic()
        try:
            work()
        except Exception as why:  # whatever it is: it counts as lost, and the run goes on
            self.failures.append(f"{kind}: {why}")
        self.took[kind].append(time.monotonic() - begin)

    def write_all(self, panel: Panel) -> None:
        for i in range(self.writes):
            text, value = f"{i} " + "x" * (i % 150), 10 + i // 2 % 91
            self.timed("write", (lambda: panel.write(rows.LABEL_TEXT, text, view=1, control=SESSION)) if i % 2 else
                                (lambda: panel.write(rows.SLIDER_VALUE, value, view=4, control=BRIGHTNESS)))

    def read_all(self, panel: Panel) -> None:
        asked = [(lambda: panel.read(rows.VIEW_SIZE), (800, 480)), (lambda: panel.read(rows.SYSTEM_TOUCH_CONFIG), 0x30),
                 (lambda: panel.read(rows.CONTROL_WIDTH, view=1, control=7), 252),
                 (lambda: panel.read(rows.SYSTEM_VERSION, selector=0), "1.0.0")]
        for i in range(self.reads):
            read, want = asked[i % len(asked)]

            def compared() -> None:
                got = read()
                if got != want:
                    raise ValueError(f"{got!r}, not {want!r}")

            self.timed("read", compared)

    def touch_all(self, panel: Panel, moves: list[float]) -> None:
        want = [(state, x, y) for x, y in self.taps for state in (1, 0)]
        for i, expected in enumerate(want):
            event = panel.event(10)
            if not isinstance(event, Touch) or (event.state, event.x, event.y) != expected:
                self.failures.append(f"touch {i}: {event}, not {expected}")
                return
            while len(moves) <= i:  # the session's line comes by another way
                time.sleep(0.001)
            self.took["touch"].append(max(event.time - moves[i], 0))
        extra = panel.event(0.5)
        if extra:
            self.failures.append(f"one event too many: {extra}")

    def run(self, build: str) -> None:
        with BenchPanel(build, script(self.taps), board=True) as bench, bench.open() as panel:
            assert isinstance(panel.event(20), PowerOn)
            panel.write(rows.SYSTEM_TOUCH_CONFIG, 0x30)
            panel.write(rows.LABEL_TEXT, "go", view=1, control=SESSION)
            begin = time.monotonic()
            work = [threading.Thread(target=kind, args=(panel, *more)) for kind, *more in
                    ((self.write_all,), (self.read_all,), (self.touch_all, bench.moves))]
            for thread in work:
                thread.start()
            for thread in work:
                thread.join()
            self.report(time.monotonic() - begin, panel)

    def report(self, took_s: float, panel: Panel) -> None:
        done = {kind: len(times) for kind, times in self.took.items()}
        print(f"{sum(done.values())} in {took_s:.1f} s, by kind: {done}")
        print("milliseconds      min  median     99 %     max")
        for kind, times in self.took.items():
            ms = sorted(1000 * t for t in times) or [0.0]
            print(f"{kind:12}{ms[0]:9.1f}{ms[len(ms) // 2]:8.1f}{ms[len(ms) * 99 // 100]:9.1f}{ms[-1]:8.1f}")
        print(f"lost: {len(self.failures)}; asked again: {panel.counts['repeats']}; noise: {panel.counts['noise']}")


def main() -> int:
    if len(sys.argv) not in (2, 3):
        print(__doc__)
        return 2
    run = Run(int(sys.argv[2]) if len(sys.argv) > 2 else 10000)
    run.run(sys.argv[1])
    for failure in run.failures[:20]:
        print(failure, file=sys.stderr)
    return 1 if run.failures else 0


if __name__ == "__main__":
    sys.exit(main())
