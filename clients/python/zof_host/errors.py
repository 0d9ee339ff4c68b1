"""The errors of this library."""
from __future__ import annotations

import reprlib


class PanelError(Exception):
    """The base class of all errors of this library."""


class WrongArgument(PanelError, ValueError, TypeError):
    """The request cannot be sent: a value has the wrong kind or size, an id is missing, or a row cannot be written."""


class NoAnswer(PanelError, TimeoutError):
    """A request was not answered in time. `alive` is true if the panel answered a later request, so it refuses this one
    or does not know it. A missing control is not the cause: its reads are answered with an empty text, -1 or 0."""

    def __init__(self, what: str, waited_s: float, tries: int, alive: bool) -> None:
        self.what, self.waited_s, self.tries, self.alive = what, waited_s, tries, alive
        times = "" if tries == 1 else f" and {tries} tries"
        why = ("The panel answers other requests: it refuses this one, or its version does not know it." if alive else
               "The panel answers nothing: do line, rate, head bytes and checksum match its zofhmi.g, and is it running?")
        super().__init__(f"no answer to {what} after {waited_s:.2f} s{times}. {why}")


class Refused(PanelError):
    """The panel has rejected the request."""


class NotLoaded(PanelError, LookupError):
    """The view of the control is not loaded. Show it, write `view.load`, or set `load_en` in the panel's zofhmi.g."""

    def __init__(self, what: str) -> None:
        super().__init__(f"cannot {what}: its view is not loaded")


class NotTaken(PanelError):
    """The value read back differs from the one written: it is out of range, the control does not exist, or the panel's
    program has written another value."""

    def __init__(self, what: str, wrote: object, reads: object) -> None:
        self.what, self.wrote, self.reads = what, wrote, reads
        super().__init__(f"{what}: wrote {reprlib.repr(wrote)}, the panel has {reprlib.repr(reads)}")


class LineLost(PanelError, ConnectionError):
    """The line is closed, or the device has disappeared."""


class UnknownName(PanelError, LookupError):
    """No view or control has this name."""


class Unsure(PanelError):
    """A write may or may not have been executed: the read that confirms it had to be repeated, or the panel restarted
    in between. Raised only for rows that cannot be read back."""
