#!/usr/bin/python3
"""Checks that the page on running a program names every variable that the sources read and no other, and that its tables
and those of the bench panel have every option of the panel.

usage: environment.py SOURCE_FOLDER PANEL
"""
import pathlib
import re
import subprocess
import sys

TOP = pathlib.Path(sys.argv[1])
DOCS = TOP / "docs"
OUTSIDE = {"SDL_AUDIODRIVER", "HOME", "DISPLAY"}     # read by libraries, or known to everybody

read, quoted = set(), set()
for folder in "zof_src", "apps", "tools":
    for path in (TOP / folder).rglob("*.cpp"):
        text = path.read_text(encoding="utf-8")
        read.update(re.findall(r'(?:getenv|variable)\("(\w+)"', text))
        quoted.update(re.findall(r'"([A-Z_]+)"', text))
page = (DOCS / "environment.md").read_text(encoding="utf-8")
named = set(re.findall(r"^\| `(\w+)(?:=[^`]*)?` \|", page, re.M))
faults = [f"docs/environment.md does not name {name}" for name in sorted(read - named - OUTSIDE)]
faults += [f"docs/environment.md names {name}, which nothing reads" for name in sorted(named - quoted - OUTSIDE)]

help_text = subprocess.run([sys.argv[2], "--help"], capture_output=True, text=True, check=True).stdout
options = set(re.findall(r"^  (?:-\w, )?(--[\w-]+(?: \S+)?)  ", help_text, re.M))
rows = page + (DOCS / "bench.md").read_text(encoding="utf-8")
tables = {row.replace("\\|", "|") for row in re.findall(r"^\| (?:`-\w`, )?`(--[^`]+)` \|", rows, re.M)}
faults += [f"no table has the option {option}" for option in sorted(options - tables)]
faults += [f"the panel has no option {option}" for option in sorted(tables - options - {"--port N=PATH"})]
print("\n".join(faults))
sys.exit(1 if faults or len(options) < 10 else 0)
