"""Reads names, ids and line settings from a panel's project folder. It writes nothing."""
from __future__ import annotations

import json
from pathlib import Path
from typing import Any, NamedTuple

from .errors import PanelError, UnknownName
from .line import Settings

SPEEDS = (2400, 4800, 9600, 19200, 38400, 57600, 115200, 230400, 460800, 500000, 576000, 921600, 1000000, 1152000,
          1500000)
TYPES = ("label", "button", "container", "image_button", "line", "arc", "bar", "slider", "sw", "cb", "mbox", "tileview",
         "txtbox", "list", "droplist", "rollist", "chart", "table", "spinbox", "img", "gif", "qrcode", "video",
         "keyboard", "tile", "sketchpad", "btnmatrix", "animimg", "scrollcont", "scrollcont_obj")
# Names that files may have in place of numbers; of types, those that differ from the names above.
TYPE_NAMES = {"image button": "image_button", "switch": "sw", "check box": "cb", "message box": "mbox", "tile view": "tileview",
              "text box": "txtbox", "drop list": "droplist", "roller": "rollist", "spin box": "spinbox", "image": "img",
              "qr code": "qrcode", "sketch pad": "sketchpad", "button matrix": "btnmatrix", "image sequence": "animimg",
              "scroll container": "scrollcont", "scroll item": "scrollcont_obj"}
SPEED_NAMES = tuple(f"{speed} baud" for speed in SPEEDS)
BIT_NAMES, PARITY_NAMES, STOP_NAMES = ("7 bits", "8 bits"), ("none", "odd", "even"), ("1 bit", "2 bits")
LAYER_NAMES = ("screen", "above", "top", "behind")
QUEUE_MORE = 1024


class Control(NamedTuple):
    id: int
    name: str
    type: str


class View(NamedTuple):
    id: int
    name: str
    controls: list[Control]
    layer: int


class Project:
    def __init__(self, folder: str | Path) -> None:
        """Reads a project. `folder` contains `config` or `res/config`, or is `config` itself. Raises PanelError, which
        names the file, if it is not a project."""
        config = _config(Path(folder))
        project = _load(config / "project" / "zofprj.g")
        link = config / "project" / "zofhmi.g"
        try:
            self.views = [_view(config / "view", entry) for entry in project.get("views") or []]
            self.settings = _settings(_load(link)) if link.exists() else Settings()
        except (AttributeError, IndexError, TypeError, ValueError) as why:
            raise PanelError(f"{folder}: a value in its project files is of the wrong kind: {why}") from None

    def ids(self, view: int | str | None, control: int | str | None) -> tuple[int | None, int | None]:
        """Returns the ids of a view and a control in it. Numbers are returned unchanged and unchecked."""
        view_id = self.view_id(view) if isinstance(view, str) else view
        if not isinstance(control, str):
            return view_id, control
        if view_id is None:
            raise UnknownName(f"control {control}: the view is missing")
        here = [v for v in self.views if v.id == view_id]
        for one in here[0].controls if here else []:
            if one.name.lower() == control.lower():
                return view_id, one.id
        raise UnknownName(f"the view {view} has no control {control}")

    def view_id(self, name: str) -> int:
        for view in self.views:
            if view.name.lower() == name.lower():
                return view.id
        raise UnknownName(f"the project has no view {name}; it has {', '.join(v.name for v in self.views)}")


def _config(folder: Path) -> Path:
    places = [folder / "config", folder / "res" / "config", folder]
    return next((place for place in places if (place / "project" / "zofprj.g").exists()), places[0])


def _lower(value: Any) -> Any:
    """Converts all keys to lower case, because the panel ignores their case."""
    if isinstance(value, dict):
        return {key.lower(): _lower(inner) for key, inner in value.items()}
    return [_lower(inner) for inner in value] if isinstance(value, list) else value


def _load(path: Path) -> dict[str, Any]:
    try:
        data = _lower(json.loads(path.read_text(encoding="utf-8-sig")))
    except (OSError, ValueError) as why:
        raise PanelError(f"{path}: {why}") from None
    if not isinstance(data, dict):
        raise PanelError(f"{path}: the root is not an object")
    return data


def _number(value: int | str, names: tuple[str, ...]) -> int:
    """Returns a number that a file may give by name, without regard to case."""
    return names.index(" ".join(value.lower().split())) if isinstance(value, str) else value


def _type(value: int | str) -> str:
    if isinstance(value, str):
        name = " ".join(value.lower().split())
        return TYPE_NAMES.get(name, name)
    return TYPES[value] if 0 <= value < len(TYPES) else str(value)


def _view(folder: Path, entry: dict[str, Any]) -> View:
    name = str(entry.get("pagename", ""))
    file = _load(folder / name)
    controls = []
    for control in file.get("controls") or []:
        pub = control.get("property", {}).get("pub_t", {})
        controls.append(Control(pub.get("id", 0), pub.get("name", ""), _type(control.get("type", 0))))
    return View(entry.get("pageid", 0), Path(name).stem, controls,
                _number(file.get("view", {}).get("layer", 0), LAYER_NAMES))


def _settings(hmi: dict[str, Any]) -> Settings:
    uart = hmi.get("uart", {})
    speed = _number(uart.get("speed_e", 0), SPEED_NAMES)
    return Settings(baud=SPEEDS[speed] if speed < len(SPEEDS) else speed,
                    head=(hmi.get("head_fh", 0), hmi.get("head_fl", 0)), crc=bool(hmi.get("crc_en", 0)),
                    queue_bytes=hmi.get("buffsize", 0) + QUEUE_MORE, events=bool(hmi.get("event_en", 0)),
                    bits=8 if _number(uart.get("bit_e", 0), BIT_NAMES) else 7, parity="NOE"[_number(uart.get("parity_e", 0), PARITY_NAMES)],
                    stop_bits=2 if _number(uart.get("stop_e", 0), STOP_NAMES) else 1)
