#!/usr/bin/python3
"""The panel's layout as data, put together from its pages. `views.py` writes the view and language files from it, `look.py` the
constants of the panel's code, `art.py` draws in its colours."""
import page_about
import page_output
import page_rails
import page_settings
import page_trend
from layout import *
from page_rails import ROW_COLUMNS, ROW_ID

# Number of the view -> its name and its controls.
VIEWS = {1: ("output", page_output.PAGE), 2: ("rails", page_rails.PAGE), 3: ("about", page_about.PAGE),
         4: ("settings", page_settings.PAGE), 5: ("trend", page_trend.PAGE)}
LANGUAGES = {"en": 0, "de": 1}                     # name -> place in a row of WORDS
