#!/usr/bin/python3
"""Touches a check box of the gallery while a host writes and reads, over a line paced at 921,600 baud. Every event is
counted. Then the same with bytes lost on the line: each lost event is noticed, and the host knows at the end what the
panel shows.

usage: event_run.py BUILD_FOLDER [COUNT]      prints rows for bench/RESULTS.md; 10,000 touches take 35 minutes
"""
from __future__ import annotations

import random
import sys
import threading
import time

from bench_panel import GalleryPanel
from zof_host import Changed, Missed, Panel, PanelError, Snapshot, rows

VIEW, TITLE, BOX, SPIN = "switches", "label_4", "cb", "spin"
X, Y, TAP_MS = 590, 105, 40
LOSS = 0.01  # of the bytes to the host
QUIET_S = 5.0  # without an event after the last touch, for a sanitized panel on a busy machine
TRIES = 200  # so that a panel that is still starting is waited for


class Run:
    def __init__(self, build: str, count: int, loss: float) -> None:
        self.build, self.count, self.loss = build, count, loss
        self.failures: list[str] = []
        self.kinds: dict[str, int] = {}
        self.checked: object = 0
        self.missed = self.traffic = 0

    def script(self) -> str:
        tap = f"press {X} {Y}\nwait {TAP_MS // 2}\nrelease\nwait {TAP_MS // 2}\n"
        return f"until 60000 6 4 go\n{tap * self.count}print 6 4\nwait 3600000\n"

    def take(self, event: object) -> None:
        name = type(event).__name__
        self.kinds[name] = self.kinds.get(name, 0) + 1
        if isinstance(event, Changed) and event.place == f"{VIEW}/{BOX}":
            self.checked = event.value
        elif isinstance(event, Snapshot) and event.view == VIEW:
            self.checked = event.values[BOX]
        elif isinstance(event, Missed):
            self.missed += event.count

    def talk(self, panel: Panel, ended: threading.Event) -> None:
        """Writes and reads as long as the touches last."""
        while not ended.is_set():
            try:
                panel.write(rows.SPIN_BOX_VALUE, self.traffic % 1000, view=VIEW, control=SPIN)
                self.traffic += 1
            except PanelError as why:
                if not self.loss:
                    self.failures.append(str(why))

    def run(self) -> list[str]:
        dice = random.Random(7)

        def taint(to_panel: bool, data: bytes) -> bytes:
            return data if to_panel else bytes(b for b in data if dice.random() >= self.loss)

        with GalleryPanel(self.build, self.script(), hmi={"event_en": 1, "crc_en": 1}) as gallery, \
                gallery.open(timeout_ms=300 if self.loss else 5000, tries=TRIES) as panel:
            panel.write(rows.VIEW_DISPLAY, VIEW)
            first = panel.read(rows.VIEW_EVENTS)  # events before the touches: views
            while event := panel.event(1):
                self.kinds = {}
            gallery.line.taint = taint if self.loss else gallery.line.taint
            ended = threading.Event()
            panel.write(rows.LABEL_TEXT, "go", view=VIEW, control=TITLE)
            begin = time.monotonic()
            talk = threading.Thread(target=self.talk, args=(panel, ended))
            talk.start()
            while not any(line.startswith("6/4:") for line in gallery.log):
                if event := panel.event(0.05):
                    self.take(event)
            seconds = time.monotonic() - begin
            ended.set()
            talk.join()
            while event := panel.event(QUIET_S):
                self.take(event)
            gallery.line.taint = lambda to_panel, data: data
            shown = panel.read(rows.CHECK_BOX_CHECKED, view=VIEW, control=BOX)
            sent = (panel.read(rows.VIEW_EVENTS) - first) % 256
        self.judge(shown, sent)
        print(f"| {self.count:,} touches in {seconds:.0f} s beside {self.traffic:,} writes, {self.loss:.0%} of the bytes to the host "
              f"lost: events received, lost and noticed | {self.got():,}, {self.missed:,} | | |", flush=True)
        return self.failures

    def got(self) -> int:
        return sum(self.kinds.get(kind, 0) for kind in ("Clicked", "Changed", "Focused", "ViewShown", "LanguageChanged"))

    def judge(self, shown: int, sent: int) -> None:
        got = self.got()
        if (got + self.missed - sent) % 256:
            self.failures.append(f"{got} events and {self.missed} missed ones are not the {sent} that were sent, modulo 256")
        if self.checked != shown:
            self.failures.append(f"the host takes the box for {self.checked}, the panel shows {shown}")
        if not self.loss and (self.missed or self.kinds.get("Clicked") != self.count or self.kinds.get("Changed") != self.count):
            self.failures.append(f"not one click and one change for each of {self.count} touches: {self.kinds}")
        if self.loss and not self.missed:
            self.failures.append("nothing was lost")


if __name__ == "__main__":
    if len(sys.argv) not in (2, 3):
        sys.exit(__doc__)
    count = int(sys.argv[2]) if len(sys.argv) > 2 else 10000
    failures = [why for loss in (0.0, LOSS) for why in Run(sys.argv[1], count, loss).run()]
    sys.exit("\n".join(failures[:20]) or 0)
