"""Frames: laying them out, and finding them in what comes in. Nothing here knows the line or the rows."""
from __future__ import annotations

import binascii
from dataclasses import dataclass
from typing import Union

from .errors import WrongArgument

READ, WRITE = 0x11, 0x22
LONG = 0x80
LENGTH_MAX = 0x7FFF


@dataclass(frozen=True)
class Frame:
    op: int
    payload: bytes
    raw: bytes  # as it stood on the line


@dataclass(frozen=True)
class Noise:
    """Bytes that belong to no frame. `crc`: they looked like one, but for the checksum."""

    raw: bytes
    crc: bool = False


Found = Union[Frame, Noise]


def crc16(data: bytes) -> bytes:
    """CRC-16/XMODEM, high byte first."""
    return binascii.crc_hqx(data, 0).to_bytes(2, "big")


def build(op: int, payload: bytes, head: tuple[int, int] = (0x5A, 0xA5), crc: bool = False) -> bytes:
    """A frame as a panel takes it. WrongArgument for a payload that no frame can hold."""
    body = bytes([op]) + payload
    if crc:
        body += crc16(body)
    if len(body) > LENGTH_MAX:
        raise WrongArgument(f"a frame holds {LENGTH_MAX} bytes, not {len(body)}")
    length = bytes([len(body)]) if len(body) < LONG else bytes([LONG | len(body) >> 8, len(body) & 0xFF])
    return bytes(head) + length + body


class Parser:
    """Eats bytes as they come, in any pieces, and gives the frames in them. It never waits."""

    def __init__(self, head: tuple[int, int] = (0x5A, 0xA5), crc: bool = False) -> None:
        self.head = bytes(head)
        self.crc = crc
        self._buffer = b""

    def feed(self, data: bytes) -> list[Found]:
        self._buffer += data
        return self._take(False)

    def idle(self) -> list[Found]:
        """To be called when the line has been silent: what looks like the begin of a frame was none. Without this a
        head in some noise would swallow the answers behind it."""
        return self._take(True)

    def _take(self, idle: bool) -> list[Found]:
        out: list[Found] = []
        noise = b""
        bad_crc = False
        while self._buffer:
            found = self._first()
            if found is None and not idle:
                break
            if isinstance(found, Frame):
                if noise:
                    out.append(Noise(noise, bad_crc))
                    noise, bad_crc = b"", False
                out.append(found)
                self._buffer = self._buffer[len(found.raw):]
                continue
            bad_crc = bad_crc or found is CRC_WRONG
            noise += self._buffer[:1]
            self._buffer = self._buffer[1:]
        if noise:
            out.append(Noise(noise, bad_crc))
        return out

    def _first(self) -> Frame | Noise | None:
        """The frame at the buffer's begin, NO_FRAME, CRC_WRONG, or None as long as it may still become one."""
        b = self._buffer
        if not self.head.startswith(b[:2]):
            return NO_FRAME
        if len(b) < 5:
            return None
        place = self._place(b)
        if place is None:
            return NO_FRAME
        if len(b) < place.total:
            return None
        payload = b[place.payload:place.payload_end] + place.lost
        if self.crc and crc16(b[place.crc_from:place.total - 2]) != b[place.total - 2:place.total]:
            return CRC_WRONG
        return Frame(b[place.op], payload, b[:place.total])

    def _place(self, b: bytes) -> _Place | None:
        more = 2 if self.crc else 0
        if b[2] < LONG:
            length = b[2]
            right = length >= 3 + more and b[3] in (READ, WRITE)
            return _Place(3, 4, 3 + length - more, 3 + length, 3) if right else None
        length = (b[2] & 0x7F) << 8 | b[3]
        if b[4] in (READ, WRITE) and length >= LONG:
            return _Place(4, 5, 4 + length - more, 4 + length, 4)
        # A panel lays payloads around 127 bytes out as short frames whose length byte has bit 7 set. Nothing else looks
        # like them, for behind the operation stands a type code or, with 128 bytes, a zero.
        size = b[2] - 1 - more
        if b[3] not in (READ, WRITE) or not 125 <= size <= 128:
            return None
        if size < 128:
            return _Place(3, 4, 4 + size, 4 + size + more, 4 if size == 127 else 3)
        # There the last byte is cut off: the zero of the text that makes an answer so long.
        return _Place(3, 5, 132, 132 + more, 4, b"\0") if b[4] == 0 else None


@dataclass(frozen=True)
class _Place:
    """Where the parts of a frame stand, in bytes behind its begin."""

    op: int
    payload: int
    payload_end: int
    total: int
    crc_from: int
    lost: bytes = b""


NO_FRAME = Noise(b"")
CRC_WRONG = Noise(b"", True)
