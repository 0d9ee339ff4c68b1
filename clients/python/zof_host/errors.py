"""What can go wrong between a host and a panel."""
from __future__ import annotations

import reprlib


class PanelError(Exception):
    """All errors of this library."""


class WrongArgument(PanelError, ValueError, TypeError):
    """What was asked for cannot be sent: a value of the wrong kind or size, a missing id, a row that cannot be written."""


class NoAnswer(PanelError, TimeoutError):
    """A request was not answered in time. `alive`: the panel answered another one behind it, so it is this request
    that it has nothing to say to."""

    def __init__(self, what: str, waited_s: float, tries: int, alive: bool) -> None:
        self.what, self.waited_s, self.tries, self.alive = what, waited_s, tries, alive
        times = "" if tries == 1 else f" and {tries} tries"
        why = ("The panel is there, but is silent about this: is there such a control, of this type, and has its view "
               "been shown?" if alive else
               "The panel answers nothing: are line, rate, head bytes and checksum those of its zofhmi.g, and does it "
               "run?")
        super().__init__(f"no answer to {what} after {waited_s:.2f} s{times}. {why}")


class Refused(PanelError):
    """The panel has answered that it does not do this."""


class NotTaken(PanelError):
    """A value was written and another one is read back: out of range, or the panel's program wrote its own."""

    def __init__(self, what: str, wrote: object, reads: object) -> None:
        self.what, self.wrote, self.reads = what, wrote, reads
        super().__init__(f"{what}: wrote {reprlib.repr(wrote)}, the panel has {reprlib.repr(reads)}")


class LineLost(PanelError, ConnectionError):
    """The line has been closed or has gone away."""


class UnknownName(PanelError, LookupError):
    """No view or control has this name."""


class Unsure(PanelError):
    """A write may or may not have been done: what shows that it has been executed had to be asked for twice, or the panel
    has restarted in between. Only rows that cannot be read back end like this."""
