"""What users do with controls: events by the names of a project, their numbering, and the handlers of a program.

The panel numbers its events modulo 256, and answers to `view.events`, `view.snapshot` and `control.event` carry the last
number. All of them are encoded by one thread of the panel, so each frame with a number proves which events were sent
before it.
"""
from __future__ import annotations

from dataclasses import dataclass, field
from typing import Any, Callable, Dict, List, Optional, Tuple, TypeVar, Union

from . import rows
from .project import Project
from .rows import EventKind

CHOICES = {"droplist", "rollist", "list", "mbox", "btnmatrix", "keyboard", "table", "tileview"}
TEXTS = {"label", "txtbox", "img"}
SEQUENCE = 256

Value = Union[int, str, Tuple[int, str]]


@dataclass(frozen=True)
class ControlEvent:
    """The base class of events of a control. `place` is its view and control, "home/brew", or "1/17" without a
    project. `time` is the arrival, by time.monotonic()."""

    place: str
    view: int = field(repr=False, compare=False)
    control: int = field(repr=False, compare=False)
    time: float = field(repr=False, compare=False)

    def __repr__(self) -> str:
        return f"{type(self).__name__}({self.place}{self._words()})"

    def _words(self) -> str:
        return ""


@dataclass(frozen=True, repr=False)
class Clicked(ControlEvent):
    """Pressed and released."""


@dataclass(frozen=True, repr=False)
class LongPressed(ControlEvent):
    """Held down."""


@dataclass(frozen=True, repr=False)
class Ready(ControlEvent):
    """Enter in a keyboard or a text box."""


@dataclass(frozen=True, repr=False)
class Cancelled(ControlEvent):
    """The key that closes a keyboard."""


@dataclass(frozen=True, repr=False)
class Focused(ControlEvent):
    """Touched, or reached by keys."""


@dataclass(frozen=True, repr=False)
class Changed(ControlEvent):
    """The user has changed the value: a number, or the text of a text box."""

    value: int | str

    def _words(self) -> str:
        return f", {self.value!r}"


@dataclass(frozen=True, repr=False)
class Selected(ControlEvent):
    """The user has chosen one of several: an option, a button of a message box, a button of a list, a cell. `index` is
    -1 for none; of a cell and a tile it is row * 65536 + column."""

    index: int
    text: str

    def _words(self) -> str:
        quoted = self.text.replace('"', '\\"')
        return f', {self.index}, "{quoted}"'


@dataclass(frozen=True)
class ViewShown:
    """A view is shown on a layer."""

    view: str
    layer: int
    time: float = field(repr=False, compare=False)


@dataclass(frozen=True)
class LanguageChanged:
    """The panel shows texts of another language."""

    language: str
    time: float = field(repr=False, compare=False)


@dataclass(frozen=True)
class Missed:
    """So many events were lost on the line. A Snapshot of each view that is shown follows."""

    count: int
    time: float = field(repr=False, compare=False)


@dataclass(frozen=True)
class Snapshot:
    """What the controls of a view stand at: a number, a text, or index and text, by name. It includes all events that
    were received before it. Received at the start, after a restart of the panel, and after lost events."""

    view: str
    values: Dict[str, Value]
    time: float = field(repr=False, compare=False)


PanelEvent = Union[ControlEvent, ViewShown, LanguageChanged]
Handler = Callable[[Any], object]
H = TypeVar("H", bound=Handler)

_PLAIN = {EventKind.CLICKED: Clicked, EventKind.LONG_PRESSED: LongPressed, EventKind.READY: Ready,
          EventKind.CANCEL: Cancelled, EventKind.FOCUSED: Focused}


class Names:
    """Names of views and controls, and the types of controls, for ids of a project. Without a project, or for an
    unknown id, the name is the number."""

    def __init__(self, project: Project | None) -> None:
        self._views = {view.id: view.name for view in project.views} if project else {}
        self._controls = {(view.id, control.id): control for view in project.views
                          for control in view.controls} if project else {}

    def view(self, view: int) -> str:
        return self._views.get(view, str(view))

    def control(self, view: int, control: int) -> str:
        known = self._controls.get((view, control))
        return known.name if known and known.name else str(control)

    def value(self, view: int, control: int, number: int, text: str) -> Value:
        known = self._controls.get((view, control))
        if known and known.type in CHOICES:
            return number, text
        if known and known.type in TEXTS:
            return text
        return number if known or not text else (number, text) if number else text

    def event(self, view: int, control: int, state: rows.ControlEvent, now: float) -> PanelEvent:
        """Raises ValueError for an unknown kind."""
        kind = EventKind(state.event)
        if kind == EventKind.VIEW:
            return ViewShown(self.view(view), state.number, now)
        if kind == EventKind.LANGUAGE:
            return LanguageChanged(state.text, now)
        place = f"{self.view(view)}/{self.control(view, control)}"
        known = self._controls.get((view, control))
        chooses = kind == EventKind.CLICKED and known is not None and known.type == "list"
        if kind != EventKind.CHANGED and not chooses:
            return _PLAIN[kind](place, view, control, now)
        value = self.value(view, control, state.number, state.text)
        if isinstance(value, tuple):
            return Selected(place, view, control, now, *value)
        return Changed(place, view, control, now, value)


class Sequence:
    """Counts the numbers of events. Not thread-safe."""

    def __init__(self) -> None:
        self._last: Optional[int] = None

    def restart(self) -> None:
        """The panel has started: its next event is number 1."""
        self._last = 0

    def seen(self, number: int, new: bool) -> int:
        """Takes the number of a new event, or of the last one from an answer. Returns how many were lost before."""
        lost = 0 if self._last is None else (number - self._last - new) % SEQUENCE
        self._last = number
        return lost


class Handlers:
    """The functions that a program has registered for places and types of events."""

    def __init__(self) -> None:
        self._rows: List[Tuple[str, Optional[type], Handler]] = []

    def add(self, place: str, kind: Optional[type], handler: Handler) -> None:
        self._rows.append((place.lower(), kind, handler))

    def call(self, event: Any) -> None:
        place = getattr(event, "place", "").lower()
        for wanted, kind, handler in self._rows:
            if wanted in ("", place) and (kind is None or isinstance(event, kind)):
                handler(event)
