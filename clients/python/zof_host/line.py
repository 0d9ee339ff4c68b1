"""The line: its settings, and a serial port as a stream for the class Panel."""
from __future__ import annotations

from dataclasses import dataclass
from typing import Protocol

from .errors import LineLost

POLL_S = 0.05


@dataclass(frozen=True)
class Settings:
    """The line settings in `zofhmi.g` of the panel's project."""

    baud: int = 115200
    head: tuple[int, int] = (0x5A, 0xA5)
    crc: bool = False
    queue_bytes: int = 1024  # its `buffsize` + 1024
    bits: int = 8
    parity: str = "N"
    stop_bits: int = 1
    events: bool = False  # its `event_en`

    @property
    def byte_s(self) -> float:
        return (1 + self.bits + (self.parity != "N") + self.stop_bits) / self.baud


class Stream(Protocol):
    """The interface of a byte stream."""

    def read(self) -> bytes:
        """Returns received bytes, or b"" after waiting POLL_S. Raises OSError if the line is lost."""

    def write(self, data: bytes) -> None:
        """Sends all bytes. Raises OSError if the line is lost."""

    def close(self) -> None:
        """Closes the stream. Called when no `read` is running."""


class SerialStream:
    def __init__(self, device: str, settings: Settings) -> None:
        """Opens a port. Raises LineLost, with the reason, if it cannot be opened."""
        import serial  # pyserial is needed only to open a port

        try:
            self._port = serial.Serial(device, settings.baud, settings.bits, settings.parity, settings.stop_bits,
                                       timeout=POLL_S, exclusive=True)
        except (OSError, ValueError) as why:
            raise LineLost(str(why)) from why

    def read(self) -> bytes:
        first: bytes = self._port.read(1)
        rest: bytes = self._port.read(self._port.in_waiting) if first else b""
        return first + rest

    def write(self, data: bytes) -> None:
        self._port.write(data)
        # No flush, because it would wait in steps of the driver. Panel computes the transmission time itself.

    def close(self) -> None:
        self._port.close()
