"""Reads and sets every view and control of a panel over its serial line. See README.md."""
from . import rows
from .errors import LineLost, NoAnswer, NotLoaded, NotTaken, PanelError, Refused, UnknownName, Unsure, WrongArgument
from .events import (Cancelled, Changed, Clicked, ControlEvent, Focused, LanguageChanged, LongPressed, Missed, Ready, Selected,
                     Snapshot, ViewShown)
from .line import Settings, Stream
from .panel import Event, LineBack, LineGone, Panel, PowerOn, Restored, Touch, TouchState
from .project import Project
from .row import Row

__all__ = ["Cancelled", "Changed", "Clicked", "ControlEvent", "Event", "Focused", "LanguageChanged", "LineBack", "LineGone",
           "LineLost", "LongPressed", "Missed", "NoAnswer", "NotLoaded", "NotTaken", "Panel", "PanelError", "PowerOn",
           "Project", "Ready", "Refused", "Restored", "Row", "Selected", "Settings", "Snapshot", "Stream", "Touch",
           "TouchState", "UnknownName", "Unsure", "ViewShown", "WrongArgument", "rows"]
