"""Reads and sets everything a panel shows, over its serial line. See README.md."""
from . import rows
from .errors import LineLost, NoAnswer, NotTaken, PanelError, Refused, UnknownName
from .line import Settings, Stream
from .panel import Event, Panel, PowerOn, Touch, TouchState
from .project import Project
from .row import Row

__all__ = ["Event", "LineLost", "NoAnswer", "NotTaken", "Panel", "PanelError", "PowerOn", "Project", "Refused", "Row",
           "Settings", "Stream", "Touch", "TouchState", "UnknownName", "rows"]
