#!/usr/bin/python3
"""Checks that the design page has a German word for each name of the catalogue that it shows, and no other.

usage: german.py ZOF GERMAN_JSON
"""
import json
import re
import subprocess
import sys

ZOF, GERMAN = sys.argv[1:]
# Words of the line's protocol, and names that stand for any name.
AS_THEY_ARE = re.compile(r"\d+ baud|0String|\*")


def shown(catalogue):
    for record in catalogue["records"]:
        for key in record["keys"]:
            yield key.get("label", key["key"])
            yield key.get("record") if key["kind"] == "array" else None
            yield from (one["name"] for one in key.get("names", []))
    for kind in catalogue["types"]:
        yield from [kind["name"], *kind["states"], *kind["parts"]]
    yield from [*catalogue["groups"], *catalogue["slides"], "default"]


def main():
    listing = subprocess.run([ZOF, "catalogue", "--json"], capture_output=True, text=True, check=True).stdout
    plain = {re.sub("_(t|e|en)$", "", name).replace("_", " ") for name in shown(json.loads(listing)) if name}
    names = {name for name in plain if not AS_THEY_ARE.fullmatch(name)}
    german = set(json.load(open(GERMAN, encoding="utf-8")))
    for name in sorted(names - german):
        print(f"{GERMAN}: there is no German word for \"{name}\"")
    for name in sorted(german - names):
        print(f"{GERMAN}: the catalogue has no \"{name}\"")
    return 1 if names != german else 0


sys.exit(main())
