"""The host's side of a panel: reads and writes that are answered or fail clearly, and events that are never lost.

One thread owns what comes in. It hands answers to those who wait for them, by row, ids and request fields, and
everything that nobody asked for to a queue of events; so a read cannot eat a touch, and a touch is no answer. A second
one, started by the first restart of the panel, sets what the panel has forgotten.
"""
from __future__ import annotations

import enum
import queue
import threading
import time
from collections import Counter, deque
from dataclasses import dataclass, field, replace
from pathlib import Path
from typing import Any, Callable, Iterator, Mapping, TypeVar, Union

from . import rows
from .catalogue import row_of
from .errors import LineLost, NoAnswer, NotTaken, PanelError, Refused, Unsure, WrongArgument
from .frame import READ, WRITE, Found, Frame, Parser, build
from .line import SerialStream, Settings, Stream
from .project import Project
from .row import Row

T = TypeVar("T")

IDLE_S = 0.2  # a silence of this length ends whatever looks like the begin of a frame
REOPEN_S = 0.5  # how often a line that was lost is looked for
FRAME_BYTES = 4352  # the panel takes no longer ones
FLUSH_BYTES = 256  # end a panel's waiting for a frame that noise has announced
LAYERS = 3  # of those whose view can be read; the background's cannot
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


@dataclass(frozen=True)
class Restored:
    """What was written before the panel's restart has been written again, so many settings."""

    settings: int
    time: float = field(compare=False)


@dataclass(frozen=True)
class LineGone:
    """The line is lost, and is looked for. Until it is back requests end with LineLost."""

    why: str
    time: float = field(compare=False)


@dataclass(frozen=True)
class LineBack:
    """The line is there again. The panel may or may not have restarted meanwhile."""

    time: float = field(compare=False)


Event = Union[Touch, PowerOn, Restored, LineGone, LineBack]
Trace = Callable[[float, bool, Found], None]  # time, from the panel, what


class _Waiter:
    """A request whose answer has not come."""

    def __init__(self, op: int, key: bytes) -> None:
        self.op, self.key = op, key
        self.queued = 0  # bytes that had gone into the panel's queue with this request
        self.answer: bytes | None = None
        self.done = threading.Event()


class Panel:
    """A panel at the far end of a line. Its methods may be called by any thread."""

    def __init__(self, stream: Stream, settings: Settings = Settings(), *, timeout_ms: int = 1000, tries: int = 3,
                 project: Project | None = None, trace: Trace | None = None, restore: bool = True,
                 reopen: Callable[[], Stream] | None = None) -> None:
        """`timeout_ms`: how long one try of a request may last. `tries`: how often a read is asked. `trace` is called
        with everything that goes over the line, by the thread that sees it. `restore`: the last value of each setting
        is kept and written again when the panel has restarted. `reopen` makes a new stream when this one is lost;
        LineLost or OSError while there is none."""
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
        self._queued = self._executed = 0  # bytes for the panel's queue
        self._starts = 0  # of the panel, since this one was opened
        self._unconfirmed = 0  # writes that no barrier has confirmed yet
        self._doubt = False  # some of them may be lost
        self._kept: dict[bytes, tuple[Row[Any], bytes]] = {}  # by setting, in the order of the last writes
        self._restore = restore
        self._restoring = False
        self._lost: Exception | None = None
        self._closed = False
        self._reopen = reopen
        self._sending = threading.Lock()  # one frame after the other
        self._out_at = 0.0  # when the last frame has left the line
        self._reader = threading.Thread(target=self._read_line, name="zof_host reader", daemon=True)
        self._reader.start()

    @classmethod
    def open(cls, device: str, baud: int | None = None, *, head: tuple[int, int] | None = None, crc: bool | None = None,
             queue_bytes: int | None = None, timeout_ms: int = 1000, tries: int = 3,
             project: Project | str | Path | None = None, trace: Trace | None = None, restore: bool = True,
             reopen: bool = True) -> Panel:
        """A panel on a serial port. What is not given is as in the project's `zofhmi.g`, and without a project as in
        `Settings`. A port that is lost is opened again when it returns, unless `reopen` is false. LineLost when it
        cannot be opened now."""
        known = Project(project) if isinstance(project, (str, Path)) else project
        given = {"baud": baud, "head": head, "crc": crc, "queue_bytes": queue_bytes}
        changes: dict[str, Any] = {name: value for name, value in given.items() if value is not None}
        settings = replace(known.settings if known else Settings(), **changes)
        return cls(SerialStream(device, settings), settings, timeout_ms=timeout_ms, tries=tries, project=known,
                   trace=trace, restore=restore, reopen=(lambda: SerialStream(device, settings)) if reopen else None)

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
             **request: int | str) -> T:
        """A row's value. Asks again when no answer comes: reading changes nothing in a panel."""
        if not row.readable:
            raise WrongArgument(f"{row.name} cannot be read")
        if row is rows.SYSTEM_TOUCH and self.read(rows.SYSTEM_TOUCH_CONFIG) & REPORTS:
            raise PanelError("touches are reported, and a report looks like the answer to this read; take events()")
        key, what = self._address(row, "read", view, control, request)
        return self._value(row, what, self._ask(row, key, what)[0])

    def write(self, row: Row[T], value: T | str, *, view: int | str | None = None, control: int | str | None = None,
              confirm: bool = True, **request: int | str) -> None:
        """Sets a row. Returns when the panel has done it, which it shows by what it answers behind the write: the row
        itself where it can be read, `view.size` or a system row elsewhere. Unsure when that leaves a doubt. Without
        `confirm` it returns when the frame is on its way; `barrier` confirms all of those together.

        A write that is seen not to have arrived is repeated where the row is read back. A row that cannot be read is
        sent once and never again: among them are those that count (`spin_box.count`, `system.tone`)."""
        if not row.writable:
            raise WrongArgument(f"{row.name} cannot be written")
        key, what = self._address(row, "write", view, control, request)
        named = self._views_named(row, value)
        payload = key + row.encode_value(named)
        if not row.system:
            self._make_room(len(self._frame(WRITE, payload)))
        if not confirm or row.name in NEVER_CONFIRMED:
            self._send(WRITE, payload, row)
            with self._lock:
                self._unconfirmed += row.name not in NEVER_CONFIRMED
        elif row is rows.VIEW_DISPLAY:
            self._write_view(payload, what, named)
        elif row.readable and row.name not in READ_BACK_GIVES_OTHERS:
            self._write_back(row, key, payload, what, named)
        else:
            self._write_unread(row, key, payload, what)

    def barrier(self) -> None:
        """Returns when everything that was sent has been executed. Unsure when some of what was written without
        `confirm` may be lost."""
        self._barrier()
        with self._lock:
            count, doubt = self._unconfirmed, self._doubt
            self._unconfirmed, self._doubt = 0, False
        if doubt:
            raise Unsure(f"some of the last {count} writes without confirmation may be lost")

    def _barrier(self) -> None:
        starts = self._starts
        tries = self._ask(rows.VIEW_SIZE, rows.VIEW_SIZE.code, "read view.size")[1]
        with self._lock:
            self._doubt = self._doubt or (self._unconfirmed > 0 and (tries > 1 or self._starts != starts))

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
                 request: Mapping[str, int | str]) -> tuple[bytes, str]:
        """The bytes that name what is meant, and the same in words."""
        if isinstance(view, str) or isinstance(control, str):
            view, control = self._known().ids(view, control)
        numbers = {name: self._number(name, value, view) for name, value in request.items()}
        key = row.key(view, control, numbers)
        given = [f"{name} {value}" for name, value in (("view", view), ("control", control)) if value is not None]
        given += [f"{name} {value}" for name, value in request.items()]
        return key, f"{verb} {row.name}" + (" of " + ", ".join(given) if given else "")

    def _known(self) -> Project:
        if self.project is None:
            raise WrongArgument("names of views and controls need a project; numbers do not")
        return self.project

    def _number(self, name: str, value: int | str, view: int | None) -> int:
        """A request field; a control of the same view goes by name too."""
        if not isinstance(value, str):
            return value
        if name.endswith("view"):
            return self._known().view_id(value)
        number = self._known().ids(view, value)[1]
        assert number is not None
        return number

    def _views_named(self, row: Row[T], value: Any) -> T:
        """A value in which views may go by name."""
        parts = list(value) if isinstance(value, tuple) else [value]
        for i, (name, kind) in enumerate(row.value[:len(parts)]):
            if isinstance(parts[i], str) and kind != "text" and name.endswith("view"):
                parts[i] = self._known().view_id(parts[i])
        return type(value)(*parts) if isinstance(value, tuple) else parts[0]

    def _value(self, row: Row[T], what: str, data: bytes) -> T:
        try:
            return row.decode_value(data)
        except ValueError:
            raise Refused(f"the panel refuses to {what}") from None

    def _ask(self, row: Row[Any], key: bytes, what: str) -> tuple[bytes, int]:
        """The answer to a read, and how often it was asked."""
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
            return waiter.answer, i + 1
        waited = time.monotonic() - begin
        alive = self._alive()
        self._forget(waiter)
        if waiter.answer is not None:
            return waiter.answer, tries
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
            self._barrier()

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
            now = self._value(row, what, self._write_once(row, key, payload, what, row, key)[0])
            if not comparable or now == value:
                return
        raise NotTaken(what, value, now)

    def _write_view(self, payload: bytes, what: str, view: Any) -> None:
        """A view is on the layer of its file, which the host may not know."""
        here = [v.layer for v in self.project.views if v.id == view] if self.project else []
        layers = [layer for layer in here or range(LAYERS) if layer < LAYERS]
        row = rows.VIEW_DISPLAY
        if not layers:
            self._write_unread(row, row.code, payload, what)
            return
        shown: list[int] = []
        for _ in range(self.tries):
            self._write_once(row, row.code, payload, what, rows.VIEW_SIZE, rows.VIEW_SIZE.code)
            shown = [self.read(rows.VIEW_DISPLAYED, layer=layer) for layer in layers]
            if view in shown:
                return
        raise NotTaken(what, view, shown[0])

    def _write_unread(self, row: Row[Any], key: bytes, payload: bytes, what: str) -> None:
        behind = rows.SYSTEM_STANDBY_STATE if row.system else rows.VIEW_SIZE
        starts = self._starts
        tries = self._write_once(row, key, payload, what, behind, behind.code)[1]
        if tries > 1 or self._starts != starts:
            why = "the panel has restarted" if self._starts != starts else f"{behind.name} had to be asked for twice"
            raise Unsure(f"{what}: {why}, so it may or may not have been done")

    def _write_once(self, row: Row[Any], key: bytes, payload: bytes, what: str, behind: Row[Any],
                    behind_key: bytes) -> tuple[bytes, int]:
        """Returns the answer to the read behind the write, and how often that was asked. Requests of one kind are
        executed one after the other, so an acknowledgement, if the panel sends any, has come by then."""
        waiter = self._send_waiting(WRITE, WRITE, key, payload[len(key):], row)
        try:
            answer = self._ask(behind, behind_key, what)
        finally:
            self._forget(waiter)
        if waiter.answer and waiter.answer != b"\0":
            raise Refused(f"the panel refuses to {what}")
        return answer

    def _restore_run(self) -> None:
        """Writes everything again, in the order of the last writes, until nothing of it can be lost."""
        try:
            while True:
                with self._lock:
                    starts, repeats, kept = self._starts, self.counts["repeats"], dict(self._kept)
                for setting, (row, payload) in kept.items():
                    self._restore_one(setting, row, payload)
                self._barrier()
                with self._lock:
                    if starts == self._starts and repeats == self.counts["repeats"]:
                        self._restoring = False
                        break
        except PanelError:  # the line or the panel has gone again; its next start begins again
            with self._lock:
                self._restoring = False
            return
        self._events.put(Restored(len(kept), time.monotonic()))

    def _restore_one(self, setting: bytes, row: Row[Any], payload: bytes) -> None:
        if row.system:
            self._send(WRITE, payload, row, again=setting)
            self._ask(rows.SYSTEM_STANDBY_STATE, rows.SYSTEM_STANDBY_STATE.code, f"restore {row.name}")
        else:
            self._make_room(len(self._frame(WRITE, payload)))
            self._send(WRITE, payload, row, again=setting)

    # Sending -------------------------------------------------------------------------------------------------------

    def _frame(self, op: int, payload: bytes) -> bytes:
        return build(op, payload, self.settings.head, self.settings.crc)

    def _make_room(self, size: int) -> None:
        """A line without flow control cannot hold the host back when the panel's queue is full. So what is under way is
        counted, and before it could be too much, a barrier empties the queue."""
        barrier = len(self._frame(READ, rows.VIEW_SIZE.code))
        if size + barrier > self.settings.queue_bytes or size > FRAME_BYTES:
            raise WrongArgument(f"a frame of {size} bytes is too long for the panel's queue of "
                             f"{self.settings.queue_bytes} bytes")
        with self._lock:
            full = self._queued - self._executed + size + barrier > self.settings.queue_bytes
        if full:
            self._barrier()

    def _send_waiting(self, op: int, answer_op: int, key: bytes, value: bytes, row: Row[Any],
                      repeats: _Waiter | None = None) -> _Waiter:
        """Sends a request; its waiter stands before an answer can come."""
        return self._send(op, key + value, row, _Waiter(answer_op, key), repeats)

    def _send(self, op: int, payload: bytes, row: Row[Any], waiter: _Waiter | None = None,
              repeats: _Waiter | None = None, again: bytes | None = None) -> _Waiter:
        """`again`: the setting that a restart made necessary; nothing is sent when it has been written since."""
        waiter = waiter or _Waiter(0, b"")
        frame = self._frame(op, payload)
        with self._sending:
            with self._lock:
                self._line_check()
                if again is not None and self._kept.get(again, (row, b""))[1] != payload:
                    return waiter
                if op == WRITE and self._restore:
                    self._keep(row, payload)
                self._queued += 0 if row.system else len(frame)
                # An answer to the second try may be that to the first, which proves less.
                waiter.queued = repeats.queued if repeats else self._queued
                if waiter.op:
                    self._waiting.setdefault((waiter.op, waiter.key), deque()).append(waiter)
            # The byte in front ends what a disturbed line has left of the last frame. Before a repetition the panel may
            # have seen a head in some noise and wait for the rest of a frame: so many bytes end that.
            self._put(self._pad * (FLUSH_BYTES if repeats else 1) + frame)
            self.counts["sent"] += 1
            if self._trace:
                self._trace(time.monotonic(), False, Frame(op, payload, frame))
        return waiter

    def _keep(self, row: Row[Any], payload: bytes) -> None:
        setting = row.setting(payload)
        if setting is not None:
            self._kept.pop(setting, None)
            self._kept[setting] = row, payload

    def _put(self, data: bytes) -> None:
        try:
            self._stream.write(data)
        except OSError as why:
            raise LineLost(f"the line is gone: {why}") from why
        self._out_at = max(self._out_at, time.monotonic()) + len(data) * self.settings.byte_s

    # What comes in -------------------------------------------------------------------------------------------------

    def _wait(self, waiter: _Waiter) -> bool:
        waiter.done.wait(self.timeout_s + max(self._out_at - time.monotonic(), 0))
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
        while not self._closed:
            try:
                self._read_stream()
            except Exception as why:  # pyserial reports a port that went away in many ways
                self._line_ends(why)
                if self._closed or not self._reopen or not self._line_returns():
                    break
        self._line_ends(self._lost or OSError("closed"))
        self._events.put(None)

    def _read_stream(self) -> None:
        last = 0.0
        while not self._closed:
            data = self._stream.read()
            now = time.monotonic()
            last = now if data else last
            for found in self._parser.idle() if now - last > IDLE_S else self._parser.feed(data):
                self._arrived(found, now)

    def _line_ends(self, why: Exception) -> None:
        """Ends everyone who waits; nothing is under way any more."""
        with self._lock:
            self._lost = why
            for waiters in self._waiting.values():
                for waiter in waiters:
                    waiter.done.set()
            self._doubt = self._doubt or self._unconfirmed > 0
            self._executed = self._queued
            self._late.clear()

    def _line_returns(self) -> bool:
        """Waits for the line; false when the panel is closed meanwhile."""
        assert self._reopen
        self._events.put(LineGone(str(self._lost), time.monotonic()))
        self._stream.close()
        while not self._closed:
            try:
                stream = self._reopen()
            except (PanelError, OSError):
                time.sleep(REOPEN_S)
                continue
            self._parser = Parser(self.settings.head, self.settings.crc)
            with self._lock:
                self._stream, self._lost = stream, None
            self._events.put(LineBack(time.monotonic()))
            return True
        return False

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
            if waiter and not row.system:
                self._executed = max(self._executed, waiter.queued)
        if waiter:
            waiter.answer = value
            waiter.done.set()
        elif found.op == READ:
            self._unasked(row, key, value, now)
        else:
            self.counts["strays"] += 1

    def _started(self, now: float) -> None:
        """The panel has forgotten everything; a thread of its own sets it again, for this one must go on reading."""
        with self._lock:
            self._executed = self._queued  # a new start has an empty queue
            self._starts += 1
            self._doubt = self._doubt or self._unconfirmed > 0
            begin = bool(self._kept) and not self._restoring
            self._restoring = self._restoring or begin
        self._events.put(PowerOn(now))
        if begin:
            threading.Thread(target=self._restore_run, name="zof_host restore", daemon=True).start()

    def _unasked(self, row: Row[Any], key: bytes, value: bytes, now: float) -> None:
        try:
            if row is rows.SYSTEM_TOUCH:
                state, x, y = rows.SYSTEM_TOUCH.decode_value(value)
                self._events.put(Touch(TouchState(state), x, y, now))
                return
            if row is rows.SYSTEM_REBOOT:
                self._started(now)
                return
        except ValueError:
            pass
        with self._lock:
            late = self._late[key] > 0
            self._late[key] -= late
        self.counts["late" if late else "strays"] += 1
