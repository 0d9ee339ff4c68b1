"""All rows by name and by code, and decoding of frames into text."""
from __future__ import annotations

from typing import Any

from . import rows
from .frame import READ, WRITE, Found, Frame
from .row import Row, decode

ROWS: dict[str, Row[Any]] = {row.name: row for row in vars(rows).values() if isinstance(row, Row)}
_BY_CODE = {row.code: row for row in ROWS.values()}
_LONGEST = max(len(code) for code in _BY_CODE)


def row_of(payload: bytes) -> Row[Any] | None:
    """Returns the row of a payload, or None for an unknown code."""
    for length in range(2, _LONGEST + 1):
        row = _BY_CODE.get(payload[:length])
        if row:
            return row
    return None


def words(found: Found, from_panel: bool) -> str:
    """Describes a frame in one line: "write label.text view=1 control=5 text='12.5 V'"."""
    if not isinstance(found, Frame):
        return ("wrong CRC: " if found.crc else "noise: ") + found.raw.hex(" ")
    row = row_of(found.payload)
    verb = {READ: "answer" if from_panel else "read", WRITE: "acknowledged" if from_panel else "write"}[found.op]
    if row is None:
        return f"{verb} of an unknown row: {found.payload.hex(' ')}"
    rest = found.payload[len(row.code):]
    try:
        keys, rest = decode(row.address + row.request, rest)
        fields = list(zip((name for name, _ in row.address + row.request), keys))
        if from_panel and found.op == WRITE:
            fields += [("result", rest[0] if rest else "none")]
        elif from_panel or found.op == WRITE:
            fields += zip((name for name, _ in row.value), decode(row.value, rest)[0])
    except ValueError as why:
        return f"{verb} {row.name}: {why}: {found.payload.hex(' ')}"
    return " ".join([verb, row.name] + [f"{name}={value!r}" for name, value in fields])
