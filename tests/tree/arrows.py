#!/usr/bin/python3
"""Checks on every #include that dependencies between rooms, and between the floors of a room, run downwards, and that
nothing above the port includes more than the C and C++ standard libraries, cJSON, LVGL and our own headers; the
sockets of an application may include Boost.Asio too. Tools include headers of a system in files of that system
alone.

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
    "catalogue": {"hmi", "func", "control", "project", "drv", "zof_lib"},
    "inspect": {"catalogue", "hmi", "func", "control", "project", "drv", "zof_lib"},
    "check": {"catalogue", "hmi", "control", "project", "drv", "zof_lib"},
}
FREE = {"zof.h", "zof_start.h", "zof_start.cpp", "zof_plain.h", "zof_plain.cpp", "zof_wiring.cpp"}  # the public header, the start and the wiring may include everything
# The folders of a room, lowest first; above them are the files that are in none. Each may include those below it.
FLOORS = {"project": ["base", "path", "read", "look", "view"]}
APP_FLOORS = ["hardware", "bench", "net", "ui"]       # of apps/, likewise

C_LIBRARY = set("assert complex ctype errno fenv float inttypes iso646 limits locale math setjmp signal stdalign stdarg"
                " stdatomic stdbool stddef stdint stdio stdlib stdnoreturn string tgmath threads time uchar wchar"
                " wctype".split())
GENERATED = {"bench_ids.h", "bench_look.h"}      # from the layout of the panel
LIBRARIES = {"cjson/cJSON.h", "lvgl.h"}
NET_LIBRARIES = {"boost/asio.hpp"}          # in apps/net alone
PORT_LIBRARIES = re.compile(r"SDL\.h|libav(codec|format|util)/\w+\.h|libsw(resample|scale)/\w+\.h"
                            r"|src/extra/libs/png/lodepng\.h|src/misc/lv_gc\.h|turbojpeg\.h")
# What only the build runs.
BUILD_ONLY = re.compile(r"reference/|zof_media/")
POSIX = re.compile(r"(unistd|fcntl|poll|termios|pty|dirent|dlfcn|fnmatch|glob|spawn|pwd|grp|pthread|sys/\w+)\.h")


def is_standard(name):
    """Headers of the C++ library have neither a suffix nor a folder."""
    return re.fullmatch(r"[a-z_]+", name) or (name.endswith(".h") and name[:-2] in C_LIBRARY)


def is_ours(name):
    return (TOP / "zof_src" / name).exists()


def floor_of(rel):
    floors = FLOORS[rel.parts[0]]
    return floors.index(rel.parts[1]) if rel.parts[1] in floors else len(floors)


def room_fault(rel, name):
    """Returns what is wrong with a file of zof_src including one of our headers, or None."""
    room, target = rel.parts[0], pathlib.Path(name).parts[0]
    if room in FREE:
        return None
    if target == "zof.h" or (target != room and target not in MAY[room]):
        return f"{room} may not include {name}"
    if target == room and room in FLOORS and floor_of(rel) < floor_of(pathlib.Path(name)):
        return f"{'/'.join(rel.parts[:-1])} is a floor below {name}"
    return None


def library_fault(rel, name):
    """Returns what is wrong with a file of zof_src including a header that is not ours, or None."""
    if is_standard(name) or name in LIBRARIES:
        return None
    if rel.name.startswith("host_null"):
        return f"{name} is not standard C++, in which the template for new hosts is written"
    if rel.name.startswith("host_") or (rel.parts[0] == "port" and PORT_LIBRARIES.fullmatch(name)):
        return None
    where = "of SDL, a decoder or the standard library, as port/ outside host_* may use" if rel.parts[0] == "port" \
        else "standard, of cJSON, of LVGL or ours"
    return f"{name} is not {where}"


def app_floor(path):
    return APP_FLOORS.index(path.parts[0]) if path.parts[0] in APP_FLOORS else len(APP_FLOORS)


def app_fault(rel, name):
    """Returns what is wrong with a file of the application including a header, or None."""
    if (TOP / "apps" / name).exists() and app_floor(rel) < app_floor(pathlib.Path(name)):
        return f"{rel.parts[0]} is a floor below {name}"
    if re.match(r"port/|drv/zof_[a-z]+_up", name):
        return "the application includes the port or the wiring"
    ours = is_ours(name) or (TOP / "apps" / name).exists() or name in GENERATED
    libraries = LIBRARIES | (NET_LIBRARIES if rel.parts[0] == "net" else set())
    return None if ours or is_standard(name) or name in libraries else \
        f"{name} is not standard, of LVGL or ours"


def tool_fault(rel, name):
    """Returns what is wrong with a file of the tools including a header, or None."""
    of_system = re.search(r"_(posix|win32)\.cpp$", rel.name) or BUILD_ONLY.match(rel.as_posix())
    return f"{name} is of one system; put its use into a file that ends in _posix.cpp" \
        if POSIX.fullmatch(name) and not of_system else None


faults = []
for folder in "zof_src", "apps", "tools":
    for path in sorted((TOP / folder).rglob("*.[ch]*")):
        rel = path.relative_to(TOP / folder)
        for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
            found = re.match(r'\s*#\s*include\s*[<"]([^>"]+)', line)
            if not found:
                continue
            name = found.group(1)
            check = {"apps": app_fault, "tools": tool_fault}.get(folder) or (room_fault if is_ours(name) else library_fault)
            fault = check(rel, name)
            if fault:
                faults.append(f"{folder}/{rel}:{number}: {fault}")
print("\n".join(faults))
sys.exit(1 if faults else 0)
