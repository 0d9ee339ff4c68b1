"""The host's side of a panel: reads and writes that are answered or fail clearly, and events that are never lost.

One thread owns what comes in. It gives answers to those who wait for them, by row, ids and request fields, and
everything that nobody asked for to a queue of events; so a read cannot eat a touch, and a touch is no answer.
"""
from __future__ import annotations

import enum
import queue
import threading
import time
from collections import Counter, deque
from dataclasses import dataclass, field, replace
from pathlib import Path
from typing import Any, Callable, Iterator, TypeVar, Union

from . import rows
from .catalogue import row_of
from .errors import LineLost, NoAnswer, NotTaken, PanelError, Refused
from .frame import READ, WRITE, Found, Frame, Parser, build
from .line import SerialStream, Settings, Stream
from .project import Project
from .row import Row

T = TypeVar("T")

MARGIN_S = 0.001  # on top of the silence between frames, for clocks that are not quite the same
IDLE_S = 0.2  # a silence of this length ends whatever looks like the begin of a frame
BLOCK_BYTES = 4096  # the panel takes no more between two silences
TAIL_BYTES = 256  # nor does it keep more of a frame whose rest has not come
REPORTS = 0x70  # flags of system.touch_config that make touches come unasked
READ_BACK_GIVES_OTHERS = {"system.rtc", "video.state", "button.state"}  # read back, they may differ
NEVER_CONFIRMED = {"system.reboot"}  # the panel goes


class TouchState(enum.IntEnum):
    RELEASED = 0
    PRESSED = 1
    HELD = 2


@dataclass(frozen=True)
class Touch:
    """A touch that the panel reports. `time`: when it came, by time.monotonic()."""

    state: TouchState
    x: int
    y: int
    time: float = field(compare=False)


@dataclass(frozen=True)
class PowerOn:
    """The panel has started: what was set before is gone."""

    time: float = field(compare=False)


Event = Union[Touch, PowerOn]
Trace = Callable[[float, bool, Found], None]  # time, from the panel, what


class _Waiter:
    """A request whose answer has not come."""

    def __init__(self, op: int, key: bytes) -> None:
        self.op, self.key = op, key
        self.queued = 0  # bytes that had gone into the panel's queue with this request
        self.sent = 0  # number of its frame; 0 when its answer may be that of an earlier try
        self.answer: bytes | None = None
        self.done = threading.Event()


class Panel:
    """A panel at the far end of a line. Its methods may be called by any thread."""

    def __init__(self, stream: Stream, settings: Settings = Settings(), *, timeout_ms: int = 1000, tries: int = 3,
                 project: Project | None = None, trace: Trace | None = None) -> None:
        """`timeout_ms`: how long one try of a request may last. `tries`: how often a read is asked. `trace` is called
        with everything that goes over the line, by the thread that sees it."""
        self.settings = settings
        self.project = project
        self.timeout_s = timeout_ms / 1000
        self.tries = max(tries, 1)
        self.counts: Counter[str] = Counter()  # what the line was like: sent, frames, noise, crc, strays, late, repeats
        self._stream, self._trace = stream, trace
        self._parser = Parser(settings.head, settings.crc)
        self._pad = b"\xff" if settings.head[0] == 0 else b"\0"
        self._events: queue.SimpleQueue[Event | None] = queue.SimpleQueue()
        self._lock = threading.Lock()  # guards what follows
        self._waiting: dict[tuple[int, bytes], deque[_Waiter]] = {}
        self._late: Counter[bytes] = Counter()  # answers that nobody waits for any more, by key
        self._sent = self._answered = 0  # numbers of frames
        self._queued = self._executed = 0  # bytes for the panel's queue
        self._lost: Exception | None = None
        self._closed = False
        self._sending = threading.Lock()  # one frame after the other
        self._quiet_at = 0.0  # when the silence behind the last frame is over
        self._reader = threading.Thread(target=self._read_line, name="zof_host reader", daemon=True)
        self._reader.start()

    @classmethod
    def open(cls, device: str, baud: int | None = None, *, head: tuple[int, int] | None = None, crc: bool | None = None,
             silence_ms: int | None = None, queue_bytes: int | None = None, timeout_ms: int = 1000, tries: int = 3,
             project: Project | str | Path | None = None, trace: Trace | None = None) -> Panel:
        """A panel on a serial port. What is not given is as in the project's `zofhmi.g`, and without a project as in
        `Settings`."""
        known = Project(project) if isinstance(project, (str, Path)) else project
        given = {"baud": baud, "head": head, "crc": crc, "silence_ms": silence_ms, "queue_bytes": queue_bytes}
        changes: dict[str, Any] = {name: value for name, value in given.items() if value is not None}
        settings = replace(known.settings if known else Settings(), **changes)
        return cls(SerialStream(device, settings), settings, timeout_ms=timeout_ms, tries=tries, project=known,
                   trace=trace)

    def __enter__(self) -> Panel:
        return self

    def __exit__(self, *_: object) -> None:
        self.close()

    def close(self) -> None:
        """Ends the line. Requests under way end with LineLost, `events` at its end."""
        self._closed = True
        if threading.current_thread() is not self._reader:
            self._reader.join()
        self._stream.close()

    # Requests ------------------------------------------------------------------------------------------------------

    def read(self, row: Row[T], *, view: int | str | None = None, control: int | str | None = None,
             **request: int) -> T:
        """A row's value. Asks again when no answer comes: reading changes nothing in a panel."""
        if not row.readable:
            raise ValueError(f"{row.name} cannot be read")
        if row is rows.SYSTEM_TOUCH and self.read(rows.SYSTEM_TOUCH_CONFIG) & REPORTS:
            raise PanelError("touches are reported, and a report looks like the answer to this read; take events()")
        key, what = self._address(row, "read", view, control, request)
        return self._value(row, what, self._ask(row, key, what))

    def write(self, row: Row[T], value: T, *, view: int | str | None = None, control: int | str | None = None,
              confirm: bool = True, **request: int) -> None:
        """Sets a row. Returns when the panel has done it, which it shows by what it answers behind the write: the row
        itself where it can be read, `view.size` or a system row elsewhere. Without `confirm` it returns when the frame
        is on its way; `barrier` waits for all of those together.

        A write that is seen not to have arrived is repeated where the row is read back. A row that cannot be read is
        sent once and never again: among them are those that count (`spin_box.count`, `system.tone`)."""
        if not row.writable:
            raise ValueError(f"{row.name} cannot be written")
        key, what = self._address(row, "write", view, control, request)
        payload = key + row.encode_value(value)
        if not row.system:
            self._make_room(len(self._frame(WRITE, payload)))
        if not confirm or row.name in NEVER_CONFIRMED:
            self._send(WRITE, payload, row)
        elif row.readable and row.name not in READ_BACK_GIVES_OTHERS:
            self._write_back(row, key, payload, what, value)
        else:
            self._write_once(row, key, payload, what, *((rows.SYSTEM_STANDBY_STATE, rows.SYSTEM_STANDBY_STATE.code)
                                                        if row.system else (rows.VIEW_SIZE, rows.VIEW_SIZE.code)))

    def barrier(self) -> None:
        """Returns when everything that was sent has been executed."""
        self._ask(rows.VIEW_SIZE, rows.VIEW_SIZE.code, "read view.size")

    def event(self, timeout_s: float | None = None) -> Event | None:
        """The next event; None when there is none in time, or no more for ever. LineLost when the line has gone."""
        try:
            event = self._events.get(timeout=timeout_s)
        except queue.Empty:
            return None
        if event is None:
            self._events.put(None)  # the next one who asks must see the end too
            if self._lost and not self._closed:
                raise LineLost(f"the line is gone: {self._lost}")
        return event

    def events(self) -> Iterator[Event]:
        """All events, from the first after opening; waits for the next. Ends when the panel is closed."""
        while True:
            event = self.event()
            if event is None:
                return
            yield event

    def _address(self, row: Row[Any], verb: str, view: int | str | None, control: int | str | None,
                 request: dict[str, int]) -> tuple[bytes, str]:
        """The bytes that name what is meant, and the same in words."""
        if isinstance(view, str) or isinstance(control, str):
            if self.project is None:
                raise ValueError("names of views and controls need a project; numbers do not")
            view, control = self.project.ids(view, control)
        key = row.key(view, control, request)
        given = [f"{name} {value}" for name, value in (("view", view), ("control", control)) if value is not None]
        given += [f"{name} {value}" for name, value in request.items()]
        return key, f"{verb} {row.name}" + (" of " + ", ".join(given) if given else "")

    def _value(self, row: Row[T], what: str, data: bytes) -> T:
        try:
            return row.decode_value(data)
        except ValueError:
            raise Refused(f"the panel refuses to {what}") from None

    def _ask(self, row: Row[Any], key: bytes, what: str) -> bytes:
        """The answer to a read."""
        # An answer that comes after its time must not be taken for an event, so such a read is not repeated.
        looks_like_event = row is rows.SYSTEM_TOUCH or row is rows.SYSTEM_REBOOT
        self._late_let_pass(row, key)
        begin = time.monotonic()
        tries = 1 if looks_like_event else self.tries
        waiter = None
        for i in range(tries):
            if waiter:
                self.counts["repeats"] += 1
                self._forget(waiter)
            waiter = self._send_waiting(READ, READ, key, b"", row, repeats=waiter)
            if self._wait(waiter):
                break
        assert waiter
        if waiter.answer is not None:
            return waiter.answer
        waited = time.monotonic() - begin
        alive = self._alive()
        self._forget(waiter)
        if waiter.answer is not None:
            return waiter.answer
        raise NoAnswer(what, waited, tries, alive)

    def _late_let_pass(self, row: Row[Any], key: bytes) -> None:
        """Answers to earlier tries may still come, with a value from before: another row is asked first, whose answer
        comes behind them all."""
        with self._lock:
            late = self._late.pop(key, 0)
        if not late:
            return
        if row.system:
            other = rows.SYSTEM_TOUCH_CONFIG if key == rows.SYSTEM_STANDBY_STATE.code else rows.SYSTEM_STANDBY_STATE
            self._ask(other, other.code, f"read {other.name}")
        elif key == rows.VIEW_SIZE.code:
            self.read(rows.VIEW_DISPLAYED, layer=0)
        else:
            self.barrier()

    def _alive(self) -> bool:
        row = rows.SYSTEM_STANDBY_STATE
        probe = self._send_waiting(READ, READ, row.code, b"", row)
        answered = self._wait(probe)
        self._forget(probe)
        return answered

    def _write_back(self, row: Row[T], key: bytes, payload: bytes, what: str, value: T) -> None:
        # A key of the language is read back as its text.
        comparable = not (isinstance(value, str) and value.startswith("#"))
        now: T | None = None
        for again in range(self.tries):
            self.counts["repeats"] += again > 0
            now = self._value(row, what, self._write_once(row, key, payload, what, row, key))
            if not comparable or now == value:
                return
        raise NotTaken(what, value, now)

    def _write_once(self, row: Row[Any], key: bytes, payload: bytes, what: str, behind: Row[Any],
                    behind_key: bytes) -> bytes:
        """Gives the answer to the read behind the write. Requests of one kind are executed one after the other, so an
        acknowledgement, if the panel gives any, has come by then."""
        waiter = self._send_waiting(WRITE, WRITE, key, payload[len(key):], row)
        try:
            answer = self._ask(behind, behind_key, what)
        finally:
            self._forget(waiter)
        if waiter.answer and waiter.answer != b"\0":
            raise Refused(f"the panel refuses to {what}")
        return answer

    # Sending -------------------------------------------------------------------------------------------------------

    def _frame(self, op: int, payload: bytes) -> bytes:
        return build(op, payload, self.settings.head, self.settings.crc)

    def _make_room(self, size: int) -> None:
        """The panel has no flow control: it drops what finds its queue full. So what is under way is counted, and
        before it could be too much, a barrier empties the queue."""
        barrier = len(self._frame(READ, rows.VIEW_SIZE.code))
        if size + barrier > self.settings.queue_bytes or size >= BLOCK_BYTES:
            raise ValueError(f"a frame of {size} bytes is too long for the panel's queue of "
                             f"{self.settings.queue_bytes} bytes")
        with self._lock:
            full = self._queued - self._executed + size + barrier > self.settings.queue_bytes
        if full:
            self.barrier()

    def _send_waiting(self, op: int, answer_op: int, key: bytes, value: bytes, row: Row[Any],
                      repeats: _Waiter | None = None) -> _Waiter:
        """Sends a request; its waiter stands before an answer can come."""
        return self._send(op, key + value, row, _Waiter(answer_op, key), repeats)

    def _send(self, op: int, payload: bytes, row: Row[Any], waiter: _Waiter | None = None,
              repeats: _Waiter | None = None) -> _Waiter:
        waiter = waiter or _Waiter(0, b"")
        frame = self._frame(op, payload)
        with self._sending:
            # An answer to the last frame shows that the panel has seen the silence behind it. Elsewhere it is waited
            # for; and as a panel that looks late sees two frames as one block, and steps on one byte too many behind
            # the first, a byte is sent for it to step on.
            with self._lock:
                self._line_check()
                proven = self._answered == self._sent
                self._sent += 1
                self._queued += 0 if row.system else len(frame)
                # An answer to the second try may be that to the first, which proves less.
                waiter.sent = 0 if repeats else self._sent
                waiter.queued = repeats.queued if repeats else self._queued
                if waiter.op:
                    self._waiting.setdefault((waiter.op, waiter.key), deque()).append(waiter)
            if repeats:
                # The panel may have seen a head in some noise, and wait for the rest of a frame that is none.
                self._put(self._pad * TAIL_BYTES, False)
            self._put(frame if proven else self._pad + frame, proven)
            self.counts["sent"] += 1
            if self._trace:
                self._trace(time.monotonic(), False, Frame(op, payload, frame))
        return waiter

    def _put(self, data: bytes, at_once: bool) -> None:
        if not at_once:
            time.sleep(max(self._quiet_at - time.monotonic(), 0))
        try:
            self._stream.write(data)
        except OSError as why:
            raise LineLost(f"the line is gone: {why}") from why
        self._quiet_at = time.monotonic() + len(data) * self.settings.byte_s + self.settings.silence_s + MARGIN_S

    # What comes in -------------------------------------------------------------------------------------------------

    def _wait(self, waiter: _Waiter) -> bool:
        waiter.done.wait(self.timeout_s + max(self._quiet_at - time.monotonic(), 0))
        if waiter.answer is None:
            self._line_check()
        return waiter.answer is not None

    def _line_check(self) -> None:
        if self._lost or self._closed:
            raise LineLost("the line is closed" if self._closed else f"the line is gone: {self._lost}")

    def _forget(self, waiter: _Waiter) -> None:
        with self._lock:
            waiters = self._waiting.get((waiter.op, waiter.key))
            if waiters and waiter in waiters:
                waiters.remove(waiter)
                if waiter.op == READ:
                    self._late[waiter.key] += 1

    def _read_line(self) -> None:
        try:
            last = 0.0
            while not self._closed:
                data = self._stream.read()
                now = time.monotonic()
                last = now if data else last
                for found in self._parser.idle() if now - last > IDLE_S else self._parser.feed(data):
                    self._arrived(found, now)
        except Exception as why:  # of a port that went away pyserial tells in many ways; no reader, no line
            self._lost = why
        self._lost = self._lost or OSError("closed")
        with self._lock:
            for waiters in self._waiting.values():
                for waiter in waiters:
                    waiter.done.set()
        self._events.put(None)

    def _arrived(self, found: Found, now: float) -> None:
        if self._trace:
            self._trace(now, True, found)
        if not isinstance(found, Frame):
            self.counts["crc" if found.crc else "noise"] += 1
            return
        self.counts["frames"] += 1
        row = row_of(found.payload)
        if row is None:
            self.counts["strays"] += 1
            return
        key, value = found.payload[:row.key_size], found.payload[row.key_size:]
        with self._lock:
            waiters = self._waiting.get((found.op, key))
            waiter = waiters.popleft() if waiters else None
            if waiter:
                self._answered = max(self._answered, waiter.sent)
                if not row.system:
                    self._executed = max(self._executed, waiter.queued)
        if waiter:
            waiter.answer = value
            waiter.done.set()
        elif found.op == READ:
            self._unasked(row, key, value, now)
        else:
            self.counts["strays"] += 1

    def _unasked(self, row: Row[Any], key: bytes, value: bytes, now: float) -> None:
        try:
            if row is rows.SYSTEM_TOUCH:
                state, x, y = rows.SYSTEM_TOUCH.decode_value(value)
                self._events.put(Touch(TouchState(state), x, y, now))
                return
            if row is rows.SYSTEM_REBOOT:
                with self._lock:
                    self._executed = self._queued  # a new start has an empty queue
                self._events.put(PowerOn(now))
                return
        except ValueError:
            pass
        with self._lock:
            late = self._late[key] > 0
            self._late[key] -= late
        self.counts["late" if late else "strays"] += 1
