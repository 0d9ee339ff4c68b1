#!/usr/bin/python3
"""Validates the files of project folders with the JSON Schemas that `zof catalogue` writes, and checks that these refuse
common mistakes.

usage: schema.py ZOF_PROGRAM FOLDER...
"""
import copy
import json
import pathlib
import subprocess
import sys
import tempfile

import jsonschema

program, folders = sys.argv[1], [pathlib.Path(folder) for folder in sys.argv[2:]]
FILES = [("config/project/zofprj.g", "project"), ("config/project/zofhmi.g", "link"), ("config/view/*", "view"),
         ("config/looks.g", "looks"), ("config/theme/*/looks.g", "looks"), ("config/theme/*/*.g", "theme"), ("config/languages/*.g", "language")]

with tempfile.TemporaryDirectory() as folder:
    subprocess.run([program, "catalogue", "--schema", folder], check=True)
    schemas = {name: json.loads(pathlib.Path(folder, name + ".json").read_text()) for _, name in FILES}
for schema in schemas.values():
    jsonschema.Draft7Validator.check_schema(schema)
check = {name: jsonschema.Draft7Validator(schema) for name, schema in schemas.items()}


def faults(name, data):
    out = []
    for error in check[name].iter_errors(data):
        while error.context:
            error = error.context[-1]
        out.append("/".join(map(str, error.absolute_path)) + ": " + error.message[:150])
    return out


bad = []
count = 0
for folder in folders:
    for pattern, name in FILES:
        for file in sorted(folder.glob(pattern)):
            if file.name == "looks.g" and name != "looks":
                continue
            count += 1
            bad += [f"{file}: {fault}" for fault in faults(name, json.loads(file.read_text()))]
if count < 3:
    bad.append("there are no files to validate")

VIEW = {"view": {"v_id": 1}, "controls": [{"type": "button", "theme": "", "property": {
    "pub_t": {"id": 1, "size": {"width": 9, "height": 9}, "t_mode": "touch", "alpha": 255}, "mode": "toggle",
    "styles": [{"style_state": "pressed + checked", "style_part": 327680, "body_t": {"main_color": "#FA0"}}]}}]}
MISTAKES = [("unknown", 1, "property"), ("id", 70000, "pub_t"), ("alpha", "255", "pub_t"), ("t_mode", "press", "pub_t"),
            ("mode", "toggled", "property"), ("align_e", 34, "property"), ("main_color", "#12345", "body_t"),
            ("style_state", "pressed+", "style"), ("type", "buton", "entry"), ("type", 30, "entry")]
bad += [f"a valid view: {fault}" for fault in faults("view", VIEW)]
for key, value, where in MISTAKES:
    view = copy.deepcopy(VIEW)
    entry = view["controls"][0]
    style = entry["property"]["styles"][0]
    {"entry": entry, "property": entry["property"], "pub_t": entry["property"]["pub_t"], "style": style,
     "body_t": style["body_t"]}[where][key] = value
    if not faults("view", view):
        bad.append(f"{key}: {value!r} in {where} is not refused")
LOOKS = {"colors": {"a": "#FA0", "b": "$a", "c": 1}, "looks": {"one": {
    "is": "two", "body_t": {"main_color": "$a", "border": {"width": 1}}, "second:selection:pressed+checked": {}, "knob": {}}}}
bad += [f"valid looks: {fault}" for fault in faults("looks", LOOKS)]
for wrong in ({"looks": {"one": {"presed": {}}}}, {"looks": {"one": {"pressed:knob": {}}}}, {"colors": {"a": "brown"}},
              {"looks": {"one": {"knob": {"style_part": 1}}}}, {"looks": {"one": {"is": 1}}}):
    if not faults("looks", wrong):
        bad.append(f"looks: {wrong} is not refused")
print("\n".join(bad))
sys.exit(bool(bad))
