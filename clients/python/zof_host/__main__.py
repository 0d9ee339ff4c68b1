"""The command line; see python3 -m zof_host --help."""
from __future__ import annotations

import argparse
import contextlib
import sys
import time
from typing import Any, Iterable, Mapping

from . import rows
from .catalogue import ROWS, words
from .errors import LineLost, NoAnswer, PanelError, WrongArgument
from .frame import Found
from .panel import Event, LineBack, LineGone, Panel, PowerOn, Restored, Touch
from .project import Project
from .row import Field, Plain, Row

REPORT_PRESS_RELEASE = 0x30
WAIT_S = 0.5  # between two attempts to reach a port or a panel


def number(text: str) -> int:
    return int(text, 0)


def head(text: str) -> tuple[int, int]:
    first, second = bytes.fromhex(text)
    return first, second


def fields_text(fields: Iterable[Field]) -> str:
    return " ".join(f"{kind}:{name}" for name, kind in fields)


def list_rows(pattern: str, project: Project | None) -> None:
    for row in ROWS.values():
        if pattern in row.name:
            may = ("r" if row.readable else "-") + ("w" if row.writable else "-")
            parts = (["VIEW/CONTROL"] if row.address else []) + [fields_text(row.request), fields_text(row.value)]
            print(f"{row.name:26} {may}  {' '.join(filter(None, parts)):44} {row.help}")
    for view in project.views if project else []:
        print(f"\nview {view.id} {view.name}")
        for control in view.controls:
            if pattern in f"{control.type} {view.name}/{control.name}":
                print(f"  {control.type:14} {view.name}/{control.name:24} {view.id}/{control.id}")


def value_of(field: Field, text: str, project: Project | None) -> Plain:
    """Parses a field; views may be given by name."""
    name, kind = field
    if kind == "text":
        return text
    try:
        return number(text)
    except ValueError:
        if project and name.endswith("view"):
            return project.view_id(text)
        raise SystemExit(f"{name} is a number ({kind}), not \"{text}\"") from None


class Asked:
    """A row and its arguments, parsed from the command line."""

    def __init__(self, args: argparse.Namespace, project: Project | None, with_value: bool) -> None:
        found = ROWS.get(args.row)
        if found is None:
            raise SystemExit(f"there is no row {args.row}; `list` shows them all")
        self.row: Row[Any] = found
        given = list(args.words)
        wanted = (1 if found.address else 0) + len(found.request) + (len(found.value) if with_value else 0)
        if len(given) != wanted:
            raise SystemExit(f"{found.name} takes: {'VIEW/CONTROL ' if found.address else ''}"
                             f"{fields_text(found.request + (found.value if with_value else ()))}")
        self.view: int | str | None = None
        self.control: int | str | None = None
        if found.address:
            self.target(given.pop(0))
        self.request: Mapping[str, Any] = {f[0]: value_of(f, given.pop(0), project) for f in found.request}
        values = [value_of(field, text, project) for field, text in zip(found.value, given)]
        self.value = found.make(*values) if with_value else None

    def target(self, text: str) -> None:
        view, slash, control = text.partition("/")
        if not slash:
            raise SystemExit(f"a control is VIEW/CONTROL, such as 1/5 or main/title, not \"{text}\"")
        self.view = int(view) if view.isdecimal() else view
        self.control = int(control) if control.isdecimal() else control

    def read(self, panel: Panel) -> Any:
        return panel.read(self.row, view=self.view, control=self.control, **self.request)

    def write(self, panel: Panel, confirm: bool) -> None:
        panel.write(self.row, self.value, view=self.view, control=self.control, confirm=confirm, **self.request)


def shown(row: Row[Any], value: Any) -> str:
    if isinstance(value, tuple):
        return " ".join(f"{name}={part}" for (name, _), part in zip(row.value, value))
    return str(value)


def event_words(event: Event) -> str:
    if isinstance(event, Touch):
        return f"touch {event.state.name.lower()} {event.x} {event.y}"
    if isinstance(event, LineGone):
        return f"the line is gone: {event.why}"
    known = {PowerOn: "power on", Restored: "settings restored", LineBack: "the line is back"}
    return known.get(type(event)) or repr(event)


def reports_on(panel: Panel) -> int:
    """Enables touch reports as soon as the panel answers. Returns the previous flags."""
    while True:
        try:
            flags = panel.read(rows.SYSTEM_TOUCH_CONFIG)
            panel.write(rows.SYSTEM_TOUCH_CONFIG, flags | REPORT_PRESS_RELEASE)
            return flags
        except (NoAnswer, LineLost):
            while event := panel.event(0):
                print(event_words(event), flush=True)
            time.sleep(WAIT_S)


def watch(panel: Panel, asked: Asked | None, every_s: float) -> None:
    """Prints touches, and a value when it changes. Waits for a panel that is off. Restores the touch flags at the
    end."""
    flags = reports_on(panel)
    try:
        last: Any = None
        due = time.monotonic()
        while True:
            if asked and time.monotonic() >= due:
                last = value_shown(panel, asked, last)
                due = time.monotonic() + every_s
            event = panel.event(max(due - time.monotonic(), 0) if asked else None)
            if event:
                print(event_words(event), flush=True)
    finally:
        with contextlib.suppress(PanelError):
            panel.write(rows.SYSTEM_TOUCH_CONFIG, flags)


def value_shown(panel: Panel, asked: Asked, last: Any) -> Any:
    """Reads the row and prints it if it has changed. Returns the new value, or the last one if the panel is off."""
    try:
        now = asked.read(panel)
    except (NoAnswer, LineLost):
        return last
    if now != last:
        print(f"{asked.row.name} {shown(asked.row, now)}", flush=True)
    return now


def opened(args: argparse.Namespace, project: Project | None, trace: Any) -> Panel:
    """Opens the panel. `watch` and `monitor` wait until its port exists."""
    waits = args.command in ("watch", "monitor")
    reported = False
    while True:
        try:
            return Panel.open(args.port, args.baud, head=args.head, crc=args.crc, queue_bytes=args.queue,
                              timeout_ms=args.timeout, project=project, trace=trace, reopen=waits)
        except LineLost as why:
            if not waits:
                raise
            if not reported:
                print(f"zof_host: {why}; waiting for it", file=sys.stderr, flush=True)
            reported = True
            time.sleep(WAIT_S)


def show_frame(at: float, from_panel: bool, found: Found) -> None:
    print(f"{at:12.6f} {'panel' if from_panel else ' host'} {words(found, from_panel)}", flush=True)


def arguments() -> argparse.ArgumentParser:
    parser = argparse.ArgumentParser(prog="zof_host", description="Reads and sets views and controls of a panel over its "
                                     "serial line. Exit status: 0 success, 1 failure, 2 wrong arguments.")
    parser.add_argument("--port", metavar="DEVICE", help="the serial line, such as /dev/ttyUSB0")
    parser.add_argument("--project", metavar="FOLDER", help="the panel's project, for names and line settings")
    parser.add_argument("--baud", type=int, help="default without a project: 115200")
    parser.add_argument("--head", type=head, metavar="HEX", help="both head bytes; default without a project: 5AA5")
    parser.add_argument("--crc", action="store_true", default=None, help="frames carry a checksum")
    parser.add_argument("--queue", type=int, metavar="BYTES", help="size of the panel's queue: `buffsize` of zofhmi.g + 1024")
    parser.add_argument("--timeout", type=int, metavar="MS", default=1000, help="time-out of one try of a request")
    parser.add_argument("--trace", action="store_true", help="print all frames to standard error")
    commands = parser.add_subparsers(dest="command", required=True)
    command = commands.add_parser("list", help="list all rows; with a project also its views and controls")
    command.add_argument("pattern", nargs="?", default="", help="only names that contain this word")
    for name, text in (("get", "read a row"), ("set", "write a row"), ("watch", "print touches, and a row when it changes")):
        command = commands.add_parser(name, help=text)
        optional: dict[str, Any] = {"nargs": "?"} if name == "watch" else {}
        command.add_argument("row", help="such as label.text", **optional)
        command.add_argument("words", nargs="*", help="VIEW/CONTROL for rows of controls, request fields"
                             + (", values" if name == "set" else ""))
        if name == "set":
            command.add_argument("--no-confirm", action="store_true", help="do not wait until the panel has executed it")
        if name == "watch":
            command.add_argument("--every", type=int, metavar="MS", default=200, help="how often the row is read")
    commands.add_parser("monitor", help="decode every frame from the panel; sends nothing")
    return parser


def run(args: argparse.Namespace) -> None:
    project = Project(args.project) if args.project else None
    if args.command == "list":
        list_rows(args.pattern, project)
        return
    if not args.port:
        raise SystemExit("--port is missing")
    asked = Asked(args, project, args.command == "set") if getattr(args, "row", None) else None

    def trace_line(at: float, from_panel: bool, found: Found) -> None:
        print(f"{at:12.6f} {'panel' if from_panel else ' host'} {words(found, from_panel)}", file=sys.stderr)

    trace = show_frame if args.command == "monitor" else trace_line if args.trace else None
    with opened(args, project, trace) as panel:
        if args.command == "get" and asked:
            print(shown(asked.row, asked.read(panel)))
        elif args.command == "set" and asked:
            asked.write(panel, not args.no_confirm)
        elif args.command == "watch":
            watch(panel, asked, args.every / 1000)
        else:
            for event in panel.events():
                if isinstance(event, (LineGone, LineBack)):
                    print(f"zof_host: {event_words(event)}", file=sys.stderr, flush=True)


def main() -> int:
    args = arguments().parse_args()
    try:
        run(args)
    except SystemExit as why:
        print(f"zof_host: {why}", file=sys.stderr)
        return 2
    except WrongArgument as why:
        print(f"zof_host: {why}", file=sys.stderr)
        return 2
    except BrokenPipeError:  # `list | head`
        sys.stderr.close()
        return 0
    except (PanelError, OSError) as why:
        print(f"zof_host: {why}", file=sys.stderr)
        return 1
    except KeyboardInterrupt:
        return 0
    return 0


if __name__ == "__main__":
    sys.exit(main())
