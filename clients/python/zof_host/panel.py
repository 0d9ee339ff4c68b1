"""The host's side of a panel: reads and writes that are answered or fail clearly, and events that are never lost.

One thread receives. It passes answers to the waiting requests, matched by row, ids and request fields, and puts
everything else into a queue of events, so a read cannot consume a touch and a touch cannot be mistaken for an answer.
After a restart of the panel a second thread restores its settings.
"""
from __future__ import annotations

import contextlib
import enum
import queue
import threading
import time
from collections import Counter, deque
from dataclasses import dataclass, field, replace
from pathlib import Path
from typing import Any, Callable, Iterator, Mapping, TypeVar, Union, cast

from . import rows
from .catalogue import row_of
from .errors import LineLost, NoAnswer, NotLoaded, NotTaken, PanelError, Refused, Unsure, WrongArgument
from .events import (ControlEvent, Handler, Handlers, LanguageChanged, Missed, Names, Sequence, Snapshot, Value,
                     ViewShown)
from .frame import READ, WRITE, Found, Frame, Parser, build
from .line import SerialStream, Settings, Stream
from .project import Project
from .row import Row

T = TypeVar("T")

IDLE_S = 0.2  # a silence of this length ends an incomplete frame
REOPEN_S = 0.5  # between two attempts to reopen a lost line
FRAME_BYTES = 4352  # longest frame that the panel accepts
FLUSH_BYTES = 256  # makes the panel stop waiting for a frame announced by noise
CHECK_S = 0.5  # how often the number of the last event is asked for
NO_VIEW = 65535
LAYERS = 3  # layers whose view can be read; the background layer is not among them
REPORTS = 0x70  # flags of system.touch_config that enable touch reports
READ_BACK_GIVES_OTHERS = {"system.rtc", "video.state", "button.state"}  # may read back a different value
NEVER_CONFIRMED = {"system.reboot"}  # the panel restarts without an answer


class TouchState(enum.IntEnum):
    RELEASED = 0
    PRESSED = 1
    HELD = 2


@dataclass(frozen=True)
class Touch:
    """A touch reported by the panel. `time` is its arrival, by time.monotonic()."""

    state: TouchState
    x: int
    y: int
    time: float = field(compare=False)


@dataclass(frozen=True)
class PowerOn:
    """The panel has started, and its earlier state is lost."""

    time: float = field(compare=False)


@dataclass(frozen=True)
class Restored:
    """The settings written before the panel's restart have been written again. `settings` is their number."""

    settings: int
    time: float = field(compare=False)


@dataclass(frozen=True)
class LineGone:
    """The line is lost and will be reopened. Until then requests end with LineLost."""

    why: str
    time: float = field(compare=False)


@dataclass(frozen=True)
class LineBack:
    """The line is back. The panel may or may not have restarted in the meantime."""

    time: float = field(compare=False)


Event = Union[Touch, PowerOn, Restored, LineGone, LineBack, ControlEvent, ViewShown, LanguageChanged, Missed, Snapshot]
H = TypeVar("H", bound=Handler)
Trace = Callable[[float, bool, Found], None]  # time, whether it came from the panel, frame or noise


def _is_missing(row: Row[Any], value: Any) -> bool:
    """Whether the value may be that of a missing control."""
    if row in (rows.SWITCH_ON, rows.CHECK_BOX_CHECKED):
        return bool(value == 0)
    return value in ("", -1, {"u8": 0xFF, "u16": 0xFFFF, "u32": 0xFFFFFFFF}.get(row.value[0][1]))


class _Waiter:
    """A request that waits for its answer."""

    def __init__(self, op: int, key: bytes) -> None:
        self.op, self.key = op, key
        self.queued = 0  # bytes sent to the panel's queue up to and including this request
        self.answer: bytes | None = None
        self.done = threading.Event()


class Panel:
    """A panel at the far end of a line. Its methods may be called from any thread."""

    def __init__(self, stream: Stream, settings: Settings = Settings(), *, timeout_ms: int = 1000, tries: int = 3,
                 project: Project | None = None, trace: Trace | None = None, restore: bool = True,
                 reopen: Callable[[], Stream] | None = None) -> None:
        """Uses `stream` as the line. `timeout_ms` is the time-out of one try of a request, `tries` the number of times
        that a read is sent. `trace` is called with every frame sent or received, on the thread that handles it. With
        `restore`, the last value of each setting is kept and written again after a restart of the panel. `reopen`
        returns a new stream after this one was lost; it raises LineLost or OSError while the line cannot be opened."""
        self.settings = settings
        self.project = project
        self.timeout_s = timeout_ms / 1000
        self.tries = max(tries, 1)
        self.counts: Counter[str] = Counter()  # line statistics: sent, frames, noise, crc, strays, late, repeats
        self._stream, self._trace = stream, trace
        self._parser = Parser(settings.head, settings.crc)
        self._pad = b"\xff" if settings.head[0] == 0 else b"\0"
        self._events: queue.SimpleQueue[Event | None] = queue.SimpleQueue()
        self._lock = threading.Lock()  # guards the fields below
        self._waiting: dict[tuple[int, bytes], deque[_Waiter]] = {}
        self._late: Counter[bytes] = Counter()  # answers no longer waited for, by key
        self._queued = self._executed = 0  # bytes sent to the panel's queue, and bytes executed from it
        self._starts = 0  # number of times that the panel has started since this object was created
        self._unconfirmed = 0  # writes not yet confirmed by a barrier
        self._doubt = False  # some of these writes may be lost
        self._kept: dict[bytes, tuple[Row[Any], bytes]] = {}  # by setting, in the order of the last writes
        self._restore = restore
        self._restoring = False
        self._names = Names(project)
        self._sequence = Sequence()
        self._handlers = Handlers()
        self._collectors: list[tuple[int, dict[str, Value]]] = []  # view and values of the snapshots that are being read
        self._repair = threading.Event()  # snapshots are to be read
        self._lost: Exception | None = None
        self._closed = False
        self._reopen = reopen
        self._sending = threading.Lock()  # held while a frame is sent
        self._out_at = 0.0  # when the last byte of the last frame leaves the line
        self._reader = threading.Thread(target=self._read_line, name="zof_host reader", daemon=True)
        self._reader.start()
        if settings.events:
            threading.Thread(target=self._watch, name="zof_host watch", daemon=True).start()

    @classmethod
    def open(cls, device: str, baud: int | None = None, *, head: tuple[int, int] | None = None, crc: bool | None = None,
             queue_bytes: int | None = None, timeout_ms: int = 1000, tries: int = 3,
             project: Project | str | Path | None = None, trace: Trace | None = None, restore: bool = True,
             reopen: bool = True) -> Panel:
        """Opens a panel on a serial port. Settings that are not given are taken from the project's `zofhmi.g` or,
        without a project, from the defaults of `Settings`. A lost port is reopened when it is available again, unless
        `reopen` is false. Raises LineLost if the port cannot be opened now."""
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
        """Closes the line. Pending requests end with LineLost; `events` ends after the last event."""
        self._closed = True
        self._repair.set()
        if threading.current_thread() is not self._reader:
            self._reader.join()
        self._stream.close()

    # Requests ------------------------------------------------------------------------------------------------------

    def read(self, row: Row[T], *, view: int | str | None = None, control: int | str | None = None,
             **request: int | str) -> T:
        """Reads a row's value. Repeats the read if it is not answered, which is safe because a read changes nothing."""
        if not row.readable:
            raise WrongArgument(f"{row.name} cannot be read")
        if row is rows.SYSTEM_TOUCH and self.read(rows.SYSTEM_TOUCH_CONFIG) & REPORTS:
            raise PanelError("touch reports are enabled and look like the answer to this read; take events() instead")
        key, what = self._address(row, "read", view, control, request)
        value = self._value(row, what, self._ask(row, key, what)[0])
        if row.address and _is_missing(row, value):
            self._present_check(key, what)
        return value

    def _present_check(self, key: bytes, what: str) -> None:
        """Raises NotLoaded if the value that a missing control has comes from a view that is not loaded. Older panels
        do not know the row."""
        row = rows.CONTROL_PRESENT
        address = key[2 + 1:2 + 1 + 4]  # after the codes of type and row: view and control
        try:
            present = self._value(row, what, self._ask(row, row.code + address, what)[0])
        except NoAnswer as why:
            if not why.alive:
                raise
            return
        if present == 0:
            raise NotLoaded(what)

    def write(self, row: Row[T], value: T | str, *, view: int | str | None = None, control: int | str | None = None,
              confirm: bool = True, **request: int | str) -> None:
        """Sets a row. Returns when the panel has executed the write, which the answer to a read after it proves: a read
        of the row itself if possible, otherwise of `view.size` or a system row. Raises Unsure if a doubt remains.
        Without `confirm` it returns when the frame has been sent; `barrier` confirms all such writes together.

        A row that can be read back is written again if the write did not arrive. Other rows are written only once,
        because some of them count (`spin_box.count`, `system.tone`)."""
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
        """Waits until everything sent has been executed. Raises Unsure if writes without `confirm` may be lost."""
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
        """Returns the next event, or None after the time-out or if the panel is closed. Raises LineLost if the line is
        lost."""
        try:
            event = self._events.get(timeout=timeout_s)
        except queue.Empty:
            return None
        if event is None:
            self._events.put(None)  # other waiting threads must see the end, too
            if self._lost and not self._closed:
                raise LineLost(f"the line is gone: {self._lost}")
        return event

    def events(self) -> Iterator[Event]:
        """Yields all events since the panel was opened, waiting for each next one. Ends when the panel is closed."""
        while True:
            event = self.event()
            if event is None:
                return
            yield event

    def on(self, place: str = "", kind: type | None = None) -> Callable[[H], H]:
        """Registers the decorated function for events of a place, "home/brew", of a type, or of both. `run` calls it,
        on its own thread."""

        def add(handler: H) -> H:
            self._handlers.add(place, kind, handler)
            return handler

        return add

    def run(self) -> None:
        """Takes all events and calls the functions that are registered for them, until the panel is closed. An
        exception of a function ends it."""
        for event in self.events():
            self._handlers.call(event)

    def snapshot(self, view: int | str) -> dict[str, Value]:
        """Reads what the controls of a view stand at: a number, a text, or index and text, by name. Raises NotLoaded if
        the view is not loaded."""
        number = self._known().view_id(view) if isinstance(view, str) else view
        with self._collecting(number) as values:
            index = 0
            while True:
                page = self.read(rows.VIEW_SNAPSHOT, view=number, index=index)
                if page.control == 0 and page.number == -1:
                    raise NotLoaded(f"read view.snapshot of view {view}")
                index += 1
                if not page.more:
                    break
            with self._lock:
                return dict(values)

    # Events of users -----------------------------------------------------------------------------------------------

    def _watch(self) -> None:
        """Asks for the number of the last event, because a lost one is otherwise noticed with the next one only, and
        reads snapshots at the start, after a restart of the panel and after lost events."""
        self._repair.set()
        while not self._closed:
            wanted = self._repair.wait(CHECK_S)
            try:
                if wanted and not self._closed:
                    self._repair.clear()
                    self._snapshots()
                else:
                    self.read(rows.VIEW_EVENTS)
            except (NoAnswer, LineLost):
                if wanted:
                    self._repair.set()
                    time.sleep(CHECK_S)
            except PanelError:  # a view was left meanwhile
                self._repair.set()

    def _snapshots(self) -> None:
        for view in self.read(rows.VIEW_STACK):
            if view == NO_VIEW:
                continue
            with self._collecting(view) as values:
                more, index = 1, 0
                while more:
                    more = self.read(rows.VIEW_SNAPSHOT, view=view, index=index).more
                    index += 1
                with self._lock:  # so that no event comes between the values and the queue
                    self._events.put(Snapshot(self._names.view(view), dict(values), time.monotonic()))

    @contextlib.contextmanager
    def _collecting(self, view: int) -> Iterator[dict[str, Value]]:
        """Collects the values of a view that arrive meanwhile. Several threads may read snapshots of the same view."""
        collector: tuple[int, dict[str, Value]] = (view, {})
        with self._lock:
            self._collectors.append(collector)
        try:
            yield collector[1]
        finally:
            with self._lock:
                self._collectors = [one for one in self._collectors if one is not collector]

    def _number_seen(self, row: Row[Any], key: bytes, value: bytes, now: float) -> bool:
        """Takes the number of the last event from any frame that has it, and values for snapshots, in the order of the
        line. Returns true for an event. The lock is held."""
        if row not in (rows.CONTROL_EVENT, rows.VIEW_EVENTS, rows.VIEW_SNAPSHOT) or not value:
            return False
        try:
            state = row.decode_value(value)
        except ValueError:
            return False
        new = row is rows.CONTROL_EVENT and state.event != 0
        lost = self._sequence.seen(value[0], new)
        if lost:
            self._events.put(Missed(lost, now))
            self._repair.set()
        if row is rows.VIEW_SNAPSHOT and state.control:
            self._collect(int.from_bytes(key[-4:-2], "big"), state.control, state)
        elif new:
            view, control = int.from_bytes(key[-4:-2], "big"), int.from_bytes(key[-2:], "big")
            try:
                self._events.put(self._names.event(view, control, state, now))
            except ValueError:
                return False
            self._collect(view, control, state)
        return new

    def _collect(self, view: int, control: int, state: Any) -> None:
        for collected, values in self._collectors:
            if collected == view and control:
                values[self._names.control(view, control)] = self._names.value(view, control, state.number, state.text)

    def _address(self, row: Row[Any], verb: str, view: int | str | None, control: int | str | None,
                 request: Mapping[str, int | str]) -> tuple[bytes, str]:
        """Returns the encoded row, ids and request fields, and their description for messages."""
        if isinstance(view, str) or isinstance(control, str):
            view, control = self._known().ids(view, control)
        numbers = {name: self._number(name, value, view) for name, value in request.items()}
        key = row.key(view, control, numbers)
        given = [f"{name} {value}" for name, value in (("view", view), ("control", control)) if value is not None]
        given += [f"{name} {value}" for name, value in request.items()]
        return key, f"{verb} {row.name}" + (" of " + ", ".join(given) if given else "")

    def _known(self) -> Project:
        if self.project is None:
            raise WrongArgument("names of views and controls need a project; use numbers without one")
        return self.project

    def _number(self, name: str, value: int | str, view: int | None) -> int:
        """Returns the number of a request field; views, and controls of the same view, may be given by name."""
        if not isinstance(value, str):
            return value
        if name.endswith("view"):
            return self._known().view_id(value)
        number = self._known().ids(view, value)[1]
        assert number is not None
        return number

    def _views_named(self, row: Row[T], value: Any) -> T:
        """Replaces the names of views in a value by their ids."""
        parts = list(value) if isinstance(value, tuple) else [value]
        for i, (name, kind) in enumerate(row.value[:len(parts)]):
            if isinstance(parts[i], str) and kind != "text" and name.endswith("view"):
                parts[i] = self._known().view_id(parts[i])
        return cast(T, type(value)(*parts) if isinstance(value, tuple) else parts[0])

    def _value(self, row: Row[T], what: str, data: bytes) -> T:
        try:
            return row.decode_value(data)
        except ValueError:
            raise Refused(f"the panel refuses to {what}") from None

    def _ask(self, row: Row[Any], key: bytes, what: str) -> tuple[bytes, int]:
        """Sends a read. Returns its answer and the number of tries."""
        # A late answer must not be mistaken for an event, so such a read is not repeated.
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
        """Waits until late answers to earlier tries, which may have an old value, can no longer arrive: the answer to a
        read of another row comes after all of them."""
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
        # A language key is read back as its text.
        comparable = not (isinstance(value, str) and value.startswith("#"))
        now: T | None = None
        for again in range(self.tries):
            self.counts["repeats"] += again > 0
            now = self._value(row, what, self._write_once(row, key, payload, what, row, key)[0])
            if not comparable or now == value:
                return
        raise NotTaken(what, value, now)

    def _write_view(self, payload: bytes, what: str, view: Any) -> None:
        """Shows a view and looks for it on the layers. Its file names the layer, but the host may not have the
        file."""
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
        barrier: Row[Any] = rows.VIEW_SIZE
        if row.system:
            barrier = rows.SYSTEM_STANDBY_STATE
        starts = self._starts
        tries = self._write_once(row, key, payload, what, barrier, barrier.code)[1]
        if tries > 1 or self._starts != starts:
            why = "the panel has restarted" if self._starts != starts else f"{barrier.name} had to be asked for twice"
            raise Unsure(f"{what}: {why}, so it may or may not have been done")

    def _write_once(self, row: Row[Any], key: bytes, payload: bytes, what: str, barrier: Row[Any],
                    barrier_key: bytes) -> tuple[bytes, int]:
        """Sends the write and then a read. Returns the answer to the read and its number of tries. Requests of one kind
        are executed in order, so an acknowledgement, if the panel sends one, has arrived by then."""
        waiter = self._send_waiting(WRITE, WRITE, key, payload[len(key):], row)
        try:
            answer = self._ask(barrier, barrier_key, what)
        finally:
            self._forget(waiter)
        if waiter.answer and waiter.answer != b"\0":
            raise Refused(f"the panel refuses to {what}")
        return answer

    def _restore_run(self) -> None:
        """Writes all settings again, in the order of their last writes, until none of them can have been lost."""
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
        except PanelError:  # the line or the panel was lost again; the next start restores the settings
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
        """Sends a barrier before the bytes in flight could exceed the panel's queue, because a line without flow
        control cannot stop the host."""
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
        """Registers a waiter and sends its request."""
        return self._send(op, key + value, row, _Waiter(answer_op, key), repeats)

    def _send(self, op: int, payload: bytes, row: Row[Any], waiter: _Waiter | None = None,
              repeats: _Waiter | None = None, again: bytes | None = None) -> _Waiter:
        """Sends a frame. `again` names a setting to restore; nothing is sent if it has been written since."""
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
                # An answer to the second try may belong to the first, so it proves only what was queued then.
                waiter.queued = repeats.queued if repeats else self._queued
                if waiter.op:
                    self._waiting.setdefault((waiter.op, waiter.key), deque()).append(waiter)
            # The leading byte ends the remains of a previous frame damaged on the line. Before a repetition the panel
            # may have seen a false head and wait for the rest of a frame, which this many bytes end.
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

    # Receiving -----------------------------------------------------------------------------------------------------

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
            except Exception as why:  # pyserial reports a lost port in many ways
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
        """Wakes all waiting requests, because nothing is in flight any longer."""
        with self._lock:
            self._lost = why
            self._wake_waiting()
            self._doubt = self._doubt or self._unconfirmed > 0
            self._executed = self._queued
            self._late.clear()

    def _wake_waiting(self) -> None:
        """With the lock held."""
        for waiters in self._waiting.values():
            for waiter in waiters:
                waiter.done.set()

    def _line_returns(self) -> bool:
        """Waits until the line can be reopened. Returns False if the panel is closed in the meantime."""
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
            if found.op == READ and self._number_seen(row, key, value, now):
                return
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
        """Handles a restart of the panel. A second thread restores the settings, because this one must keep reading."""
        with self._lock:
            self._executed = self._queued  # the queue is empty after a start
            self._wake_waiting()  # requests before the start are not answered; they are sent again at once
            self._starts += 1
            self._doubt = self._doubt or self._unconfirmed > 0
            self._sequence.restart()
            begin = bool(self._kept) and not self._restoring
            self._restoring = self._restoring or begin
        self._events.put(PowerOn(now))
        self._repair.set()
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
