"""A command row of the panel and the encoding of its fields."""
from __future__ import annotations

import struct
from dataclasses import dataclass
from typing import Callable, Generic, Iterable, Mapping, Tuple, TypeVar, Union

from .errors import WrongArgument

T = TypeVar("T")

Field = Tuple[str, str]  # name and type, in wire order
Plain = Union[int, str]  # value of a field

_NUMBERS = {"u8": ">B", "s8": ">b", "u16": ">H", "s16": ">h", "u32": ">I", "s32": ">i"}


def encode(fields: Iterable[Field], values: Iterable[Plain]) -> bytes:
    """Encodes fields. Raises WrongArgument, which names the field, if a value does not fit."""
    out = b""
    for (name, kind), value in zip(fields, values):
        if kind == "text":
            if not isinstance(value, str):
                raise WrongArgument(f"{name} is a text, not {value!r}")
            if "\0" in value:
                raise WrongArgument(f"{name}: a text cannot contain a zero, which ends it on the wire")
            out += value.encode() + b"\0"
            continue
        try:
            out += struct.pack(_NUMBERS[kind], value)
        except struct.error:
            raise WrongArgument(f"{name} is a number of type {kind}, not {value!r}") from None
    return out


def size(fields: Iterable[Field]) -> int:
    """Returns the size in bytes of fields that are all numbers, such as addresses and request fields."""
    return sum(struct.calcsize(_NUMBERS[kind]) for _, kind in fields)


def decode(fields: Iterable[Field], data: bytes) -> tuple[list[Plain], bytes]:
    """Decodes fields. Returns their values and the remaining bytes. Raises ValueError if a field is incomplete."""
    values: list[Plain] = []
    for name, kind in fields:
        if kind == "text":
            text, zero, data = data.partition(b"\0")
            if not zero:
                raise ValueError(f"{name} is not terminated")
            values.append(text.decode(errors="replace"))
            continue
        form = _NUMBERS[kind]
        if len(data) < struct.calcsize(form):
            raise ValueError(f"{name} is incomplete")
        values.append(int(struct.unpack_from(form, data)[0]))
        data = data[struct.calcsize(form):]
    return values, data


@dataclass(frozen=True)
class Row(Generic[T]):
    """A value that a host may read or write. T is its type: an int, a str, or a named tuple of several fields."""

    name: str
    code: bytes
    address: tuple[Field, ...]  # view and control, or nothing
    request: tuple[Field, ...]
    value: tuple[Field, ...]
    make: Callable[..., T]
    readable: bool
    writable: bool
    help: str
    chooses: int | None = 0  # leading value fields that select what is set; None: a write is an action, not a state

    @property
    def system(self) -> bool:
        """Is true for rows that the panel executes on arrival; all others wait in its queue."""
        return self.code[0] == 0xB0

    @property
    def key_size(self) -> int:
        """The size in bytes of everything before the value; every answer repeats these bytes."""
        return len(self.code) + size(self.address) + size(self.request)

    def key(self, view: int | None, control: int | None, request: Mapping[str, int]) -> bytes:
        """Encodes code, ids and request fields. Raises WrongArgument if one is missing or superfluous."""
        given: dict[str, int] = {n: v for n, v in (("view", view), ("control", control)) if v is not None}
        for name in request:
            if name in given:
                raise WrongArgument(f"{self.name}: {name} is given twice")
        given.update(request)
        wanted = self.address + self.request
        names = [name for name, _ in wanted]
        if sorted(names) != sorted(given):
            raise WrongArgument(f"{self.name} takes {', '.join(names) or 'no fields'}, not "
                            f"{', '.join(given) or 'nothing'}")
        return self.code + encode(wanted, [given[name] for name in names])

    def setting(self, payload: bytes) -> bytes | None:
        """Returns the part of a write's payload that identifies the setting, or None for an action."""
        return None if self.chooses is None else payload[:self.key_size + size(self.value[:self.chooses])]

    def encode_value(self, value: T) -> bytes:
        parts = tuple(value) if isinstance(value, tuple) else (value,)
        if len(parts) != len(self.value):
            raise WrongArgument(f"{self.name} has {len(self.value)} values, not {len(parts)}")
        return encode(self.value, parts)

    def decode_value(self, data: bytes) -> T:
        """Decodes a value. Raises ValueError if the bytes are not exactly a value of this row."""
        values, rest = decode(self.value, data)
        if rest:
            raise ValueError(f"{len(rest)} bytes too many")
        return self.make(*values)
