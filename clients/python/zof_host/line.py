"""The line: its settings, and a serial port as the panel class wants it."""
from __future__ import annotations

from dataclasses import dataclass
from typing import Protocol

from .errors import LineLost

POLL_S = 0.05


@dataclass(frozen=True)
class Settings:
    """The line as `zofhmi.g` of the panel's project has it."""

    baud: int = 115200
    head: tuple[int, int] = (0x5A, 0xA5)
    crc: bool = False
    queue_bytes: int = 1024  # its `buffsize` + 1024
    bits: int = 8
    parity: str = "N"
    stop_bits: int = 1

    @property
    def byte_s(self) -> float:
        return (1 + self.bits + (self.parity != "N") + self.stop_bits) / self.baud


class Stream(Protocol):
    """Any byte stream will do."""

    def read(self) -> bytes:
        """What has come; waits up to POLL_S and then gives nothing. OSError when the line is gone."""

    def write(self, data: bytes) -> None:
        """Sends all of it. OSError when the line is gone."""

    def close(self) -> None:
        """Called when no `read` is under way any more."""


class SerialStream:
    def __init__(self, device: str, settings: Settings) -> None:
        """LineLost, with the reason, when the port cannot be opened."""
        import serial  # only who opens a port needs pyserial

        try:
            self._port = serial.Serial(device, settings.baud, settings.bits, settings.parity, settings.stop_bits,
                                       timeout=POLL_S, exclusive=True)
        except (OSError, ValueError) as why:
            raise LineLost(str(why)) from why

    def read(self) -> bytes:
        first: bytes = self._port.read(1)
        return first + self._port.read(self._port.in_waiting) if first else first

    def write(self, data: bytes) -> None:
        self._port.write(data)
        # No flush: it would wait in steps of the driver. The pace counts the bytes' time itself.

    def close(self) -> None:
        self._port.close()
