"""Builds frames and finds them in a byte stream. It depends on neither the line nor the rows."""
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
    raw: bytes  # as seen on the line


@dataclass(frozen=True)
class Noise:
    """Bytes outside any frame. `crc` is true if they form a frame with a wrong checksum."""

    raw: bytes
    crc: bool = False


Found = Union[Frame, Noise]


def crc16(data: bytes) -> bytes:
    """Returns the CRC-16/XMODEM, high byte first."""
    return binascii.crc_hqx(data, 0).to_bytes(2, "big")


def build(op: int, payload: bytes, head: tuple[int, int] = (0x5A, 0xA5), crc: bool = False) -> bytes:
    """Builds a frame. Raises WrongArgument if the payload is too long."""
    body = bytes([op]) + payload
    if crc:
        body += crc16(body)
    if len(body) > LENGTH_MAX:
        raise WrongArgument(f"a frame holds {LENGTH_MAX} bytes, not {len(body)}")
    length = bytes([len(body)]) if len(body) < LONG else bytes([LONG | len(body) >> 8, len(body) & 0xFF])
    return bytes(head) + length + body


class Parser:
    """Accepts bytes in pieces of any size and returns the frames in them. Never blocks."""

    def __init__(self, head: tuple[int, int] = (0x5A, 0xA5), crc: bool = False) -> None:
        self.head = bytes(head)
        self.crc = crc
        self._buffer = b""

    def feed(self, data: bytes) -> list[Found]:
        self._buffer += data
        return self._take(False)

    def idle(self) -> list[Found]:
        """Call this after a silence of the line: an incomplete frame was noise. Otherwise a false head would swallow
        the answers that follow it."""
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
        """Returns the frame at the start of the buffer, NO_FRAME, CRC_WRONG, or None while it may become a frame."""
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
        # A panel encodes payloads around 127 bytes as short frames whose length byte has bit 7 set. They are
        # unambiguous, because the operation is followed by a type code or, with 128 bytes, by a zero.
        size = b[2] - 1 - more
        if b[3] not in (READ, WRITE) or not 125 <= size <= 128:
            return None
        if size < 128:
            return _Place(3, 4, 4 + size, 4 + size + more, 4 if size == 127 else 3)
        # With 128 bytes the last byte is missing: the terminating zero of the text with which all answers this long end.
        return _Place(3, 5, 132, 132 + more, 4, b"\0") if b[4] == 0 else None


@dataclass(frozen=True)
class _Place:
    """Offsets of the parts of a frame, in bytes from its start."""

    op: int
    payload: int
    payload_end: int
    total: int
    crc_from: int
    lost: bytes = b""


NO_FRAME = Noise(b"")
CRC_WRONG = Noise(b"", True)
