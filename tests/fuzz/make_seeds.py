#!/usr/bin/env python3
"""Makes the seeds and dictionaries of the fuzzers: OUT/<fuzzer>/* and OUT/<fuzzer>.dict, all small. Reads the names of
keys and the codes of commands from the sources, so new ones are included automatically.

usage: make_seeds.py ZOF_MEDIA_PROGRAM OUT"""
import json
import pathlib
import random
import re
import struct
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
sys.path[:0] = [str(ROOT / "clients/python"), str(ROOT / "tests/media")]
from make import costly_fonts, gif, picture, spots  # noqa: E402
from zof_host.catalogue import ROWS  # noqa: E402
from zof_host.frame import READ, WRITE, build  # noqa: E402
from zof_host.row import encode  # noqa: E402

PROGRAM, OUT = sys.argv[1], pathlib.Path(sys.argv[2])
HMI_CRC, HMI_SEALED, HMI_LONG, HMI_DRAW = 1, 2, 4, 8  # as in hmi_line.h


def seeds(fuzzer, files, words):
    """`files` maps names to bytes; `words` is the dictionary."""
    (OUT / fuzzer).mkdir(parents=True)
    for name, data in files.items():
        (OUT / fuzzer / name).write_bytes(data)
    lines = {'"' + "".join(f"\\x{b:02X}" for b in word) + '"' for word in words}
    (OUT / f"{fuzzer}.dict").write_text("\n".join(sorted(lines)) + "\n")


def registers():
    addresses = re.findall(r"\bROW\((\d+),", (ROOT / "apps/hardware/uart/zof_hw_map.h").read_text())
    every = [struct.pack(">H", int(at)) for at in addresses]
    writes = [build(0x82, at + b"\x04\xD2") for at in every]
    rails = [build(0x82, struct.pack(f">{len(words)}H", *words)) for words in (
        (272, 0, 5000, 5000, 3000, 1, 3300, 11000, 5000, 2, 9000, 20000, 5000), (256, 3), (257, 1))]
    reads = [build(0x83, struct.pack(">HB", *what)) for what in ((16, 5), (0, 255), (2048, 255))]
    noise = [writes[0][:4], writes[0][4:], b"\x5A\xA5\x5A" + writes[1]]
    draw = b"\xff"
    files = {str(n): b"".join(bytes([len(part)]) + part for part in parts) + draw
             for n, parts in enumerate((writes, rails, reads, noise))}
    seeds("register_link", files, [b"\x5A\xA5", b"\x5A\xA5\x05\x82", b"\x5A\xA5\x04\x83", *every])


def recordings():
    head = "Time,Voltage (V),Current (A),Power (W),Set voltage (V),Set current (A),Output,Rail,Current limit,Link,Note\r\n"
    day = "2026-11-22T01:38:"
    lines = [f"{day}{n // 10:02}.{n % 10}00+01:00,12.0{n % 10}0,0.865,10.4,12.000,1.000,on,PPS 3.30-21.00 V,no,live,\r\n" for n in range(70)]
    files = {"run": head + "".join(lines), "silence": head + lines[0] + f'{day}20.000+01:00,,,,,,,,,held,"a ""b"""\r\n' + day + "30.1Z,1,2\r\n",
             "other": "\ufeffCurrent (A),Time,Voltage (V)\n1,2026-11-22T00:00:00Z,5\n2,9999-12-31T23:59:60-14:00,6\n2,1970"}
    seeds("import", {name: text.encode() for name, text in files.items()}, [b"\r\n", b"Time,", b"Voltage (V),", b"Current (A)", b"+01:00", b'"'])


def hmi(flags, *counted):
    return b"".join(bytes([flags, len(one)]) + one for one in counted)


def hosts():
    panel = {}
    for name, row in ROWS.items():
        value = encode(row.value, ["blue.png" if kind == "text" else 2 for _, kind in row.value])
        keys = [row.code + encode(row.address + row.request, [1, control, 0, 0] if row.address else [1, 1])
                for control in (range(5, 43) if row.address else [0])]
        panel[name] = b"".join(hmi(HMI_SEALED, bytes([READ]) + key) + hmi(HMI_SEALED | HMI_CRC, bytes([WRITE]) + key + value)
                               for key in keys) + bytes([HMI_DRAW, 0x80, 0x81])
    size = build(READ, ROWS["view.size"].code)
    walk = hmi(0, size[:4], size[4:], bytes.fromhex("5aa5800311b106")) + hmi(
        HMI_SEALED | HMI_LONG, bytes([WRITE]) + bytes.fromhex("b200000001000568656c6c6f00"))
    frames = {name: b"\x02" + made[:32] for name, made in panel.items()} | {"walk": b"\x02" + walk}
    frames |= {f"record_{n}": bytes([0, n]) + b"\x01\x02\x03\x04abc\0\x05\x06" for n in range(0, 240, 16)}
    words = [row.code for row in ROWS.values()] + [
        b"\x5A\xA5", b"\x5A\xA5\x80", bytes([READ]), bytes([WRITE]), b"blue.png\0", b"red.png\0", b"#hello\0", b"de\0",
        b"\0\x01\0\x05", b"\xff\xff", b"\x7f\xff", b"\x80\0"]
    dice = random.Random(1)  # a command of hmi_panel: row, control, 1 for a read, a choice for each field
    rows = {f"{name}_row": b"\1" + b"".join(bytes([number & 255, number >> 8, control, step == 0]) + dice.randbytes(12)
                           for control in range(38) for step in range(5)) for number, name in enumerate(ROWS)}
    messages = {name: b"\0" + made for name, made in (panel | {"walk": walk}).items()}
    client = ['{"do": "help", "id": [1, {}]}', '{"do": "tree", "view": 2}', '{"do": "review"}', '{"do": "hit", "x": 9, "y": -1e9}',
              '{"do": "set", "row": "label.text", "control": "#1/#1", "value": "\\u0000"}', '{"do": "picture", "file": "x"}',
              '{"do": "state", "control": "/#4294967297", "state": "pressed+"}', '{"do": "key", "key": 1e99, "down": 1}',
              '{"do": "show", "view": 2, "language": "..", "theme": "/"}', '{"do": "pointer", "x": 1e6, "y": 3, "down": true}',
              '{"do": "restore", "state": {"views": [1, 7], "writes": [{}], "scrolls": [{"control": "x/", "x": 9}]}}']
    lines = {f"line_{i}": b"\2" + text.encode() for i, text in enumerate([*client, "\n".join(client), "[" * 2000, "\n\n"])}
    seeds("hmi_panel", messages | rows | lines, words)
    seeds("hmi_frames", frames, words)


def firmware():
    raw, sealed, echo, wait, write, read, system = range(7)  # steps, as in zof_host_fuzz.cpp
    on, touch, size = bytes.fromhex("b001aabb"), bytes.fromhex("b004010100500028"), bytes([echo, 4, 1, 64, 0, 240])
    events = bytes([sealed, len(on)]) + on + bytes([sealed, len(touch)]) + touch
    answered = bytes([read, 2, wait, 30, echo, 3]) + b"hi\0" + bytes([read, 1, wait, 30]) + size
    noise = bytes([raw, 12]) + bytes.fromhex("5aa58020115a5a5aa50711b0") + bytes([wait, 255])  # false heads, and a cut frame
    steps = {"talk": answered + events + noise + answered, "silent": bytes([system, 5, write, 70] + [wait, 255] * 3) + events,
             "full": (bytes([write, 60, wait, 20]) * 18 + bytes([wait, 90]) + size + bytes([wait, 30])) * 2}
    files = {f"{name}_{mode}": bytes([mode]) + made for name, made in steps.items() for mode in (0, 1, 2, 3, 13, 17)}
    seeds("zof_host", files, [b"\x5A\xA5", b"\x5A\xA5\x80", bytes([1, 4]) + on, bytes([1, 8]) + touch,
                              bytes([2, 3]) + b"x\0", bytes([4, 60, 3, 20]), bytes([3, 255])])


def scripts():
    """Sessions of the panel, and scripts of the virtual board: each line alone, and all lines that do not wait or fail."""
    tour = [line for line in (ROOT / "tools/run.session").read_text().splitlines() if line.split()[0] not in ("wait", "until")]
    steps = ["press 632 168", "move 10 10", "release", "lang de", "view 2", "print 1 1"]
    ends = ["wait 20", "until 90 1 1 *", "until 90 1 1 -", "until 90 2 1 *", "lang none", "view 99", "wait x", "tap 1",
            "drag 1 2 3 4 -5", "shot a b.png", "jump", "#", "quit"]
    files = {"tour": "\n".join(tour), "steps": "\n".join(steps)} | {f"line_{n}": line for n, line in enumerate(steps + ends)}
    names = "wait tap press move release drag shot lang view print until quit".split()
    seeds("session", {name: text.encode() for name, text in files.items()},
          [f"\n{name} ".encode() for name in names] + [b"2147483648", b"-1", b"1 1"])
    steps = ["load 4.7", "load 2A", "load 1e-300", "rail 3", "rail 12", "output on", "output off", "rails 0", "rails 13",
             "unplug", "plug", "fault lose=50", "fault garbage", "fault split=3", "fault late=9", "fault mute", "read 16 5"]
    files = {"all": "\n".join(f"{100 * n} {text}" for n, text in enumerate(steps)), "bad": "5 load 1\n3 quit", "args": "1 rail"}
    seeds("board_script", {name: text.encode() for name, text in files.items()},
          [f" {step}\n".encode() for step in steps + ["quit", "fault flood", "fault replug"]] + [b"1e308", b"#", b"="])


def scpi():
    """Lines of clients, with what happens to box and panel between them, as in scpi_fuzz.cpp."""
    second, deaf, mute, local, bad, leave, long = 128, 1, 2, 4, 8, 16, 224
    rows = re.findall(r'^    \{"(.*?)(?:" LEVEL(?: ")?(.*?))?",', (ROOT / "apps/bench/bench_scpi_rows.cpp").read_text(), re.M)
    names = [re.sub(r"\[.*?\]", "", name + tail) for name, tail in rows]
    sets = ["VOLT 9;*OPC?", "CURR 1.5;:OUTP ON;*OPC", "APPL 12.02,3;VOLT? MAX", "SYST:RAIL 11,15.1 V,3250mA", "OUTP OFF;*WAI",
            "VOLT 9.01;:OUTP 1;:SYST:ERR?", "SYST:REM;LOC", "*ESE 255;*SRE 255;*STB?", "VOLT \"a;b\", 'c", "SOUR1:VOLT:LEV MIN"]

    def said(text, who=0):
        return b"".join(bytes([who | len(part)]) + part for part in (
            (text + "\n").encode()[at:at + 127] for at in range(0, len(text) + 1, 127)))
    files = {f"set_{n}": said(text) + bytes([0, 0]) + said("SYST:RAIL:SEL?;:SYST:ERR?") for n, text in enumerate(sets)}
    files |= {f"happens_{what}": said(sets[1]) + bytes([0, what]) + said(sets[0]) + said(sets[2], second) + bytes([0, 0, 0, 0])
              + said("OUTP ON") for what in (deaf, mute, local, bad, leave, mute | long, bad | long)}
    files["all"] = b"".join(said(name) for name in names)
    files["long"] = said("*IDN?;" * 200)
    seeds("scpi", files, [name.encode() for name in names] + [b";", b":", b"?", b"\n", b"MAX", b"MIN", b"DEF", b" 9 V", b",1e3 mA",
                                                              b"ON", b"OFF", b"\"", b"'"])


def example(tables, name, depth=0):
    """A record with every key of its table."""
    out = {}
    for kind, key, *more in tables.get(name, []):
        inner = next((m[:-4] for m in more if m.endswith("_tbl")), None)
        if inner and depth < 4:
            value = example(tables, inner, depth + 1)
            out[key] = [value] if kind == "ARR" else value
        else:
            out[key] = {"TEXT": "#hello", "BOOL": True}.get(kind, 1)
    return out


def project_files():
    folders = [ROOT / "zof_src/project", ROOT / "zof_src/control"]
    text = "".join(path.read_text() for folder in folders for path in sorted(folder.rglob("*.cpp")))
    types = re.findall(r"X\([A-Z_]+, (\w+)\)", (folders[0] / "base/zof_ctrl_types.h").read_text())
    tables = {name: re.findall(r"CSON_(\w+)\(\w+,\s*([\w.]+)(?:,\s*(\w+))?(?:,\s*(\w+))?", rows)
              for name, rows in re.findall(r"const reflect_item_t (\w+)_tbl\[\] = \{(.*?)\};", text, re.S)}
    project = example(tables, "zof_prj_attr_t") | {"views": [{"pageId": 1, "pageName": "v1.g"}, {"pageId": "x"}]}
    files = {"project": (0, project), "language": (1, {"hello": "hallo", "n": 1}),
             "link": (2, example(tables, "zof_hmi_attr_t"))}
    fill = {"style_part": 0, "style_state": 0, "style_sect": 0, "body_t": {"opa": 255, "main_color": 255},
            "txt_t": {"font_lib": "t.ttf", "font_size": 16, "opa": 255}}
    for number, name in enumerate(f"{type}_attr_t" for type in types):
        place = {"id": number + 10, "parent_id": 0, "hidden": False, "alpha": 255, "pub": number % 2 == 0,
                 "pt": {"x": 5 * number, "y": 4 * number}, "size": {"width": 60, "height": 40}}
        record = example(tables, name)
        record |= {"pub_t": record.get("pub_t", {}) | place, "styles": [fill]}
        view = {"view": example(tables, "zof_view_attr_t") | {"v_id": 2, "layer": 0},
                "controls": [{"type": number, "theme": "youth", "property": record}]}
        files[name] = (4, view)
        files[name + "_theme"] = (3, record)
    files["looks"] = (7, {"colors": {"a": "#FA0", "b": "$a"}, "looks": {"two": fill, "one": {
        "is": "two", "pressed": fill, "items:pressed+checked": fill, "second": {"body_t": {"main_color": "$b"}}}}})
    keys = {row[1] for rows in tables.values() for row in rows} | {
        "colors", "looks", "is", "look", "pressed", "items:checked", "second:selection", "view", "controls", "type", "theme", "property", "styles", "views", "pageId", "pageName"}
    names = re.findall(r'\{"([a-z0-9_ ]+)", \w+\}', text)
    values = [f'"{name}"' for name in sorted(set(names))] + ['"#FA0"', '"#12aB9f"', '"pressed+checked"']
    values += '-1 255 65535 2147483647 -2147483648 4294967295 1e9 true null [] {} "#hello" "t.ttf" "red.png" "youth" "$a" "one"'.split()
    inputs = {name: bytes([kind]) + json.dumps(record).encode() for name, (kind, record) in files.items()}
    words = [word.encode() for word in [f'"{key}":' for key in keys] + values]
    seeds("project_files", inputs, words)
    seeds("check", inputs | {"looks": b"\xF0" + inputs["looks"][1:], "ignore": b"\5key-unknown config/view/one.g:* none\n"}, words)


def jdoc():
    """The first byte chooses the node that is changed."""
    texts = ['{"a": [1, -2.5e+3, true, false, null, {}], "b": {"c": "\\u00fc\\ud83d\\ude00\\n"}}', '[[], [1], [1,2],\n  3]', "7",
             '{"a": 1, // x\n "b": [1,],}', '{"a" 1}', '["\\u12"]', '["\\ud800"]', "[-.5, 01, 1.]", "[" * 1001, "\ufeff{}", '{"a":1 "b":2}']
    seeds("jdoc", {str(n): bytes([n]) + text.encode() for n, text in enumerate(texts)},
          [word.encode() for word in 'true false null \\ud83d\\ude00 \\u0000 \\" // /* */ # -1e5 {} [] "a":'.split()] + [b"\xef\xbb\xbf"])


def font(bpp, count=4):
    glyphs = [(ord("a"), 4, 4), (ord("b"), 8, 2), (ord("Z"), 3, 5), (0x4E2D, 6, 6)]
    head = struct.pack("<HHHHBBb5x", ord("Z"), 0x4E2D, 64, count, bpp, 20, -4)
    codes, offsets, records = b"", b"", b""
    for code, width, height in glyphs:
        codes += struct.pack("<H", code)
        offsets += struct.pack("<I", len(head) + 6 * len(glyphs) + 4 + len(records))
        records += struct.pack("<BBBbb", width + 1, width, height, 0, 0) + bytes(range(1, width * height * bpp // 8 + 1))
    return head + codes + offsets + bytes(4) + records


def made(file, command):
    """Runs a command and returns the file it creates. In the command, FILE is the file and zof_media our program."""
    words = [str({"FILE": file, "zof_media": PROGRAM}.get(word, word)) for word in command.split()]
    subprocess.run(words, check=True, stderr=subprocess.DEVNULL)
    return file.read_bytes()


def media(folder):
    for name in "1.png L.png LA.png P.png RGB.png RGBA.png I.png RGB.jpeg L.jpeg".split():
        picture(1, (9, 7), "RGB").convert(name.split(".")[0]).save(folder / name)
    laced = made(folder / "laced.png", "ffmpeg -f lavfi -i testsrc=s=9x7 -frames:v 1 -flags +ildct FILE")
    gif(folder / "twice.gif", 3, loop=2)
    gif(folder / "kept.gif", 3, loop=0, disposal=3)
    spots(folder / "spots.gif")
    kinds = {".png": 0, ".jpeg": 1, ".gif": 2 + 6}  # as in pictures_fuzz.cpp
    files = {file.name: bytes([kinds[file.suffix]]) + file.read_bytes() for file in folder.iterdir()}
    files["sums"] = b"\x03" + laced[:-1] + b"x"
    words = "IHDR PLTE tRNS IDAT IEND iCCP acTL JFIF Exif GIF89a NETSCAPE2.0".split()
    seeds("pictures", files, [word.encode() for word in words] + [
        b"\x89PNG\r\n\x1a\n", b"\x21\xf9\x04", b"\x21\xff\x0bNETSCAPE2.0\x03\x01", b"\x2c", b"\x3b",
        *(bytes([0xFF, marker]) for marker in (0xC0, 0xC2, 0xC4, 0xD8, 0xD9, 0xDA, 0xDD, 0xFF))])

    wav, mp3, aac, mp4, replay, resize, pause, rewind = 0, 1, 2, 3, 4, 8, 16, 32  # as in media_fuzz.cpp
    tone, clip = "zof_media tone FILE 440 20", "zof_media clip FILE 16 16 0.16 440"
    sine, film = "ffmpeg -f lavfi -i sine=d=0.03:r=8000 -bitexact -c:a", "ffmpeg -f lavfi -i testsrc=s=16x16:r=25:d=0.16"
    table = [(wav, "x.wav", tone), (mp3 + replay, "x.mp3", tone), (aac, "x.aac", tone),
             (mp4 + replay + rewind, "mpeg4.mp4", f"{clip} mpeg4"), (mp4 + pause + resize, "png.mp4", f"{clip} png"),
             (mp4 + replay + resize, "mjpeg.mp4", f"{clip} mjpeg"), (mp4 + replay + rewind, "smaller.mp4", f"{clip} mjpeg 2"),
             (mp4 + replay + rewind, "long.mp4", "zof_media clip FILE 120 80 0.4 0 png"),  # more than one read
             (mp4 + replay + pause, "h264.mp4", f"{film} -bitexact -c:v libx264 -pix_fmt yuv420p FILE")]
    table += [(wav, codec + ".wav", f"{sine} {codec} FILE")
              for codec in ("pcm_u8", "pcm_s24le", "pcm_f32le", "pcm_alaw", "adpcm_ms", "adpcm_ima_wav")]
    words = "ftyp moov mvhd trak tkhd mdia stbl stsd stts stsz stco elst dref esds mdat mp4a mp4v avc1 avcC RIFF WAVE fact " \
            "data LIST ID3 TAG Xing".split()
    seeds("media", {name: bytes([kind]) + made(folder / name, command) for kind, name, command in table},
          [word.encode() for word in words] +
          [b"fmt ", b"\xff\xfb\x90\x64", b"\xff\xf1", b"\x7f\xff\xff\xff", b"\xff\xff\xff\xff"])


if __name__ == "__main__":
    registers()
    recordings()
    hosts()
    firmware()
    scripts()
    scpi()
    project_files()
    jdoc()
    fonts = {f"bpp_{bpp}": b"\0" + font(bpp) for bpp in (1, 2, 3, 4, 8)} | {"count": b"\0" + font(8, count=900)}
    with tempfile.TemporaryDirectory() as scratch:
        media(pathlib.Path(scratch))
        costly_fonts(pathlib.Path(scratch) / "fonts")
        fonts |= {name: b"\2" + (pathlib.Path(scratch) / "fonts" / f"{name}.ttf").read_bytes()
                  for name in ["good", "deep", "huge"]}
    seeds("fonts", fonts, [b"glyf", b"loca", b"maxp", b"cmap", b"hmtx", b"head", b"\xff\xff", b"\xff\xff\xff\xff",
                           b"\0\0\0\x80", b"\x08\x14\xfc", b"a\0", b"\x2d\x4e"])
