#!/usr/bin/python3
"""Checks on every #include that dependencies between rooms run downwards, and that only the port uses system headers.

usage: arrows.py SOURCE_FOLDER
"""
import pathlib
import re
import sys

TOP = pathlib.Path(sys.argv[1])
# Each room and the rooms it may include.
MAY = {
    "zof_lib": set(),
    "drv": {"zof_lib"},
    "port": {"drv", "zof_lib"},
    "project": {"drv", "zof_lib"},
    "control": {"project", "drv", "zof_lib"},
    "func": {"control", "project", "drv", "zof_lib"},
    "hmi": {"func", "control", "project", "drv", "zof_lib"},
}
FREE = {"zof.h", "zof_start.h", "zof_start.cpp", "zof_wiring.cpp"}      # the public header, the start and the wiring may include everything
SYSTEM = re.compile(r"^(SDL|libav|libsw|windows|unistd|fcntl|termios|dirent|poll|pthread|sys/|asm/|linux/)")

faults = []
for path in sorted((TOP / "zof_src").rglob("*.[ch]*")):
    rel = path.relative_to(TOP / "zof_src")
    room = rel.parts[0]
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        found = re.match(r'\s*#\s*include\s*([<"])([^>"]+)', line)
        if not found:
            continue
        kind, name = found.groups()
        place = f"zof_src/{rel}:{number}"
        if room != "port" and SYSTEM.match(name):
            faults.append(f"{place}: {name} is a system header; only port/ may include it")
        if kind == "<" or room in FREE:
            continue
        target = name.split("/")[0]
        if target == "zof.h" or (target in MAY and target != room and target not in MAY[room]):
            faults.append(f"{place}: {room} may not include {name}")
for path in sorted((TOP / "apps").rglob("*.[ch]*")):
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        if re.match(r'\s*#\s*include\s*"(port|drv/zof_[a-z]+_up)', line):
            faults.append(f"{path.relative_to(TOP)}:{number}: the application includes the port or the wiring")
print("\n".join(faults))
sys.exit(1 if faults else 0)
