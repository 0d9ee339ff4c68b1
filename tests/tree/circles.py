#!/usr/bin/python3
"""Checks that no files of the library need each other in a circle: each can be read, tested and replaced on top of
the files below it. A call through a table is not a need, and zof_wiring.cpp, which fills the tables, is left out.

usage: circles.py NM LIBRARY SOURCE_FOLDER
"""
import collections
import pathlib
import re
import subprocess
import sys

NM, LIBRARY, TOP = sys.argv[1:]
LEFT_OUT = "zof_wiring.cpp"


def needs_of(listing):
    """Returns, for each file, the files that it needs, with the symbols."""
    defined, wanted = {}, collections.defaultdict(set)
    for line in listing.splitlines():
        found = re.match(r".*\[(.*)\.o(?:bj)?\]: (\S+) (\S)", line)
        if not found:
            continue
        file, symbol, kind = found.groups()
        if kind in "TDBRC":
            defined[symbol] = file
        elif kind == "U" and file != LEFT_OUT:
            wanted[file].add(symbol)
    needs = collections.defaultdict(lambda: collections.defaultdict(list))
    for file, symbols in wanted.items():
        for symbol in sorted(symbols):
            if defined.get(symbol, file) != file:
                needs[file][defined[symbol]].append(symbol)
    return needs


def circles_in(needs):
    """Returns the groups of files of which each reaches every other (Tarjan's algorithm)."""
    order, low, stack, groups = {}, {}, [], []

    def visit(file):
        order[file] = low[file] = len(order)
        stack.append(file)
        for other in needs[file] if file in needs else ():
            if other not in order:
                visit(other)
            if other in stack:
                low[file] = min(low[file], low[other])
        if low[file] == order[file]:
            at = stack.index(file)
            groups.append(sorted(stack[at:]))
            del stack[at:]

    for file in list(needs):
        if file not in order:
            visit(file)
    return [group for group in groups if len(group) > 1]


def demangled(symbol):
    return subprocess.run(["c++filt", symbol], capture_output=True, text=True, check=True).stdout.strip()


listing = subprocess.run([NM, "-A", "--format=posix", LIBRARY], capture_output=True, text=True, check=True).stdout
needs = needs_of(listing)
places = {path.name: str(path.relative_to(TOP)) for path in (pathlib.Path(TOP) / "zof_src").rglob("*.cpp")}
status = 0
if len(needs) < 100:
    print(f"{LIBRARY}: only {len(needs)} files with symbols; is it built?")
    status = 1
for circle in circles_in(needs):
    status = 1
    print(f"{len(circle)} files need each other:")
    for file in circle:
        for other in circle:
            if needs[file][other]:
                print(f"  {places[file]} needs {places[other]}: {', '.join(map(demangled, needs[file][other]))}")
sys.exit(status)
