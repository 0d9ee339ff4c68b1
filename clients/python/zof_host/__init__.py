"""Reads and sets every view and control of a panel over its serial line. See README.md."""
from . import rows
from .errors import LineLost, NoAnswer, NotTaken, PanelError, Refused, UnknownName, Unsure, WrongArgument
from .line import Settings, Stream
from .panel import Event, LineBack, LineGone, Panel, PowerOn, Restored, Touch, TouchState
from .project import Project
from .row import Row

__all__ = ["Event", "LineBack", "LineGone", "LineLost", "NoAnswer", "NotTaken", "Panel", "PanelError", "PowerOn",
           "Project", "Refused", "Restored", "Row", "Settings", "Stream", "Touch", "TouchState", "UnknownName", "Unsure",
           "WrongArgument", "rows"]
