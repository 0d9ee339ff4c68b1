"""A serial line for tests: two pseudo-terminals, with the transmission time of a wire between them."""
from __future__ import annotations

import os
import select
import threading
import time
import tty

PIECE = 32  # bytes that arrive together, as from a receiver's FIFO


class PacedLine:
    """`panel` and `host` are the paths of both ends. `taint`, if set, is called with every piece and may change it:
    taint(to_panel, data) -> data."""

    def __init__(self, baud: int = 921600) -> None:
        self.byte_s = 10 / baud
        self.taint = lambda to_panel, data: data
        self._masters, self._slaves = zip(*(os.openpty() for _ in range(2)))
        for slave in self._slaves:
            tty.setraw(slave)  # the far end stays open, so the line survives when one side closes it
        self.panel, self.host = map(os.ttyname, self._slaves)
        self._stop_read, self._stop = os.pipe()
        self._threads = [threading.Thread(target=self._carry, args=(a, b), daemon=True) for a, b in ((0, 1), (1, 0))]
        for thread in self._threads:
            thread.start()

    def _carry(self, source: int, to: int) -> None:
        free = 0.0
        while True:
            ready, _, _ = select.select([self._masters[source], self._stop_read], [], [])
            if self._stop_read in ready:
                return
            data = os.read(self._masters[source], PIECE)
            free = max(free, time.monotonic()) + len(data) * self.byte_s
            time.sleep(max(free - time.monotonic(), 0))
            os.write(self._masters[to], self.taint(to == 0, data))

    def close(self) -> None:
        os.write(self._stop, b"x")
        for thread in self._threads:
            thread.join()
        for fd in (*self._masters, *self._slaves, self._stop, self._stop_read):
            os.close(fd)
