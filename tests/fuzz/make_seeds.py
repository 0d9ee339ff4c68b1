#!/usr/bin/env python3
"""Makes the seeds and dictionaries of the fuzzers: OUT/<fuzzer>/* and OUT/<fuzzer>.dict, all small. Names of keys and codes
of commands are read from the sources, so that new ones are tried without being told of.

usage: make_seeds.py ZOF_MEDIA_PROGRAM OUT"""
import io
import json
import pathlib
import re
import struct
import subprocess
import sys
import tempfile

from PIL import Image

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
SRC = ROOT / "zof_src"
PROGRAM, OUT = sys.argv[1], pathlib.Path(sys.argv[2])
HMI_SEALED, HMI_CRC, HMI_LONG, HMI_DRAW = 2, 1, 4, 8
GET, SET = 0x11, 0x22


def seed(fuzzer, name, data):
    folder = OUT / fuzzer
    folder.mkdir(parents=True, exist_ok=True)
    (folder / name).write_bytes(data.encode() if isinstance(data, str) else bytes(data))


def dictionary(fuzzer, words):
    lines = {'"' + "".join(f"\\x{b:02X}" for b in word) + '"' for word in words}
    (OUT / f"{fuzzer}.dict").write_text("\n".join(sorted(lines)) + "\n")


# The register link ------------------------------------------------------------------------------------------------
def register_write(addr, *words):
    return bytes([0x5A, 0xA5, 3 + 2 * len(words), 0x82]) + struct.pack(f">H{len(words)}H", addr, *words)


def register_read(addr, count):
    return bytes([0x5A, 0xA5, 4, 0x83]) + struct.pack(">HB", addr, count)


def messages(*parts):
    return b"".join(bytes([len(part)]) + part for part in parts)


def registers():
    names = re.findall(r"\b(REG_\w+) = (\d+),", (ROOT / "apps/hardware/uart/zof_hw_map.h").read_text())
    singles = [register_write(int(at), 1234) for name, at in names]
    rails = register_write(272, 0, 5000, 5000, 3000, 1, 3300, 11000, 5000, 2, 9000, 20000, 5000)
    every = b"".join(messages(frame) for frame in singles)
    for link in ("register_link", "register_frames"):
        seed(link, "every_register", every + b"\xff")
        seed(link, "rails", messages(rails, register_write(256, 3), register_write(257, 1)) + b"\xff")
        seed(link, "reads", messages(register_read(16, 5), register_read(0, 255), register_read(2048, 255)))
        seed(link, "cut_and_noise", messages(singles[0][:4], singles[0][4:], b"\x5a\xa5\x5a" + singles[1]))
        dictionary(link, [b"\x5A\xA5", b"\x5A\xA5\x05\x82", b"\x5A\xA5\x04\x83"] +
                   [struct.pack(">H", int(at)) for name, at in names])


# The host protocol --------------------------------------------------------------------------------------------------
def hmi(flags, counted):
    return bytes([flags, len(counted)]) + bytes(counted)


def type_codes():
    text = (SRC / "hmi/zof_hmi_cmd.cpp").read_text()
    return [bytes([0xB0]), bytes([0xB1])] + [bytes([0xB2, int(x, 16)]) for x in re.findall(r"CTRL_TYPE\((0x\w+),", text)]


def hosts():
    panel = []
    for code in type_codes():
        frames = b""
        for param in range(16):
            for control in range(5, 17) if code == b"\xb2\xf0" else (2 * len(panel), 5 + len(panel) % 14):
                address = bytes([0, 1, 0, control]) if len(code) == 2 else b""
                body = code + bytes([param]) + address
                frames += hmi(HMI_SEALED, bytes([GET]) + body + bytes(2))
                frames += hmi(HMI_SEALED | HMI_CRC, bytes([SET]) + body + b"\0\x02\0\x30\0\x40\0\x10\0")
        panel.append(frames)
        seed("hmi_panel", "type_" + code.hex(), frames[:1500] + hmi(HMI_DRAW, b"")[:1] + b"\x80\x81")
    text = bytes([SET]) + bytes.fromhex("b200000001000568656c6c6f00")
    picture = bytes([SET]) + bytes.fromhex("b2020000010007") + b"blue.png\0"
    plain = bytes.fromhex("5aa50311b0015aa5800311b001")
    walk = hmi(0, plain[:4]) + hmi(0, plain[4:]) + hmi(HMI_SEALED | HMI_LONG, text) + hmi(HMI_SEALED, picture)
    seed("hmi_panel", "texts", walk + hmi(HMI_SEALED | HMI_DRAW, bytes([SET, 0xB1, 0, 0, 2])))
    seed("hmi_frames", "walk", b"\x02" + walk)
    seed("hmi_frames", "reads", b"\x02" + b"".join(hmi(HMI_SEALED, bytes([GET, 0xB0, p, 0])) for p in range(10)))
    for size in (2, 124, 126, 129, 256):
        seed("hmi_frames", f"build_{size}", b"\x01\x01" + struct.pack(">H", size))
    for record in range(0, 23, 4):
        seed("hmi_frames", f"record_{record}", bytes([0, record]) + b"\x01\x02\x03\x04abc\0\x05\x06")
    words = type_codes() + [bytes([0x5A, 0xA5]), b"\x5A\xA5\x80", bytes([GET]), bytes([SET]), b"blue.png\0", b"red.png\0",
                            b"#hello\0", b"de\0", b"\0\x01\0\x05", b"\xff\xff", b"\x7f\xff", b"\x80\0"]
    dictionary("hmi_panel", words)
    dictionary("hmi_frames", words)


# The firmware library -------------------------------------------------------------------------------------------------
def firmware():
    raw, sealed, echo, wait, write, read, system = range(7)
    on, touch = bytes.fromhex("b001aabb"), bytes.fromhex("b0040101005000280000")[:8]
    events = bytes([sealed, len(on)]) + on + bytes([sealed, len(touch)]) + touch
    answered = bytes([read, 2, wait, 30, echo, 3]) + b"hi\0" + bytes([read, 1, wait, 30, echo, 4, 1, 64, 0, 240])
    head = bytes.fromhex("5aa58020115a5a5aa50711b0")  # false heads, and a frame that stops
    noise = bytes([raw, len(head)]) + head + bytes([wait, 255])
    fill = bytes([write, 60, wait, 20]) * 18 + bytes([wait, 90, echo, 4, 1, 64, 0, 240, wait, 30])
    for crc in (0, 1):
        for more in (0, 2, 4 + 8, 16):
            name = f"mode_{crc + more}"
            seed("zof_host", name, bytes([crc + more]) + answered + events + noise + answered)
        seed("zof_host", f"full_{crc}", bytes([crc]) + fill + fill)
        seed("zof_host", f"system_{crc}", bytes([crc + 2, system, 1, wait, 20, echo, 1, 0, system, 3, wait, 255]))
        seed("zof_host", f"silent_{crc}", bytes([crc]) + bytes([system, 5, write, 70] + [wait, 255] * 3) + events)
    dictionary("zof_host", [b"\x5A\xA5", b"\x5A\xA5\x80", bytes([1, 4]) + on, bytes([1, 8]) + touch,
                            bytes([2, 3]) + b"x\0", bytes([4, 60, 3, 20]), bytes([3, 255])])


# Project files ------------------------------------------------------------------------------------------------------
def record_keys():
    """Keys of each record, from its table: name -> [(kind, key, table)]."""
    tables = {}
    for file in ("zof_ctrl_attr.cpp", "zof_prj_attr.cpp"):
        text = (SRC / "project" / file).read_text()
        for name, body in re.findall(r"const reflect_item_t (\w+)_tbl\[\] = \{(.*?)\};", text, re.S):
            rows = re.findall(r"CSON_(\w+)\(\w+,\s*([\w.]+)(?:,\s*(\w+))?(?:,\s*(\w+))?", body)
            tables[name] = rows
    return tables


def example(tables, name, depth=0):
    out = {}
    for kind, key, *more in tables.get(name, []):
        inner = next((m[:-4] for m in more if m.endswith("_tbl")), None)
        if inner and depth < 4:
            value = example(tables, inner, depth + 1)
            out[key] = [value] if "ARRAY" in kind else value
        else:
            out[key] = {"TEXT": "#hello", "BOOL": True}.get(kind, 1)
    return out


def control(number, record, **pub):
    record["pub_t"] = dict(record.get("pub_t", {}), id=number + 10, parent_id=0, hidden=False, alpha=255,
                           pt={"x": 5 * number, "y": 4 * number}, size={"width": 60, "height": 40}, **pub)
    fill = {"style_part": 0, "style_state": 0, "style_sect": 0, "body_t": {"opa": 255, "main_color": 255},
            "txt_t": {"font_lib": "t.ttf", "font_size": 16, "opa": 255}}
    return {"type": number, "theme": "youth", "property": dict(record, styles=[fill])}


def files():
    tables = record_keys()
    text = (SRC / "project/zof_j2s_struct.cpp").read_text()
    types = re.findall(r"\{ZOF_CTRL_\w+, (\w+)_tbl,", text)
    view = example(tables, "zof_view_attr_t") | {"v_id": 2, "layer": 0}
    for number, name in enumerate(types):
        one = control(number, example(tables, name), pub=number % 2 == 0)
        seed("project_files", f"view_{number:02}_{name}", "\x04" + json.dumps({"view": view, "controls": [one]}))
        if number % 8 == 0:
            seed("project_files", f"control_{name}", chr(3 + 8 * number)[:1] + json.dumps(one["property"])
                 if 3 + 8 * number < 128 else "\x03" + json.dumps(one["property"]))
    project = example(tables, "zof_prj_attr_t") | {"views": [{"pageId": 1, "pageName": "v1.g"}, {"pageId": "x"}]}
    seed("project_files", "project", "\x00" + json.dumps(project))
    seed("project_files", "language", "\x01" + json.dumps({"hello": "hallo", "n": 1}))
    seed("project_files", "link", "\x02" + json.dumps(example(tables, "zof_hmi_attr_t")))
    keys = {row[1] for rows in tables.values() for row in rows} | {
        "view", "controls", "type", "theme", "property", "styles", "views", "pageId", "pageName"}
    numbers = [b"-1", b"255", b"65535", b"2147483647", b"-2147483648", b"4294967295", b"1e9", b"true", b"null", b"[]", b"{}"]
    dictionary("project_files", [b'"' + key.encode() + b'":' for key in keys] + numbers +
               [b'"#hello"', b'"t.ttf"', b'"red.png"', b'"youth"'])


# The bitmap font ----------------------------------------------------------------------------------------------------
def font(bpp, glyphs, count=None, bitmap_size=64):
    codes = [code for code, *rest in glyphs]
    head = struct.pack("<HHHHBBb5x", min(codes), max(codes), bitmap_size, len(glyphs) if count is None else count, bpp, 20, -4)
    table = b"".join(struct.pack("<H", code) for code in codes)
    at = len(head) + 6 * len(glyphs) + 4
    offsets, records = b"", b""
    for code, width, height in glyphs:
        offsets += struct.pack("<I", at + len(records))
        records += struct.pack("<BBBbb", width + 1, width, height, 0, 0) + bytes(range(1, width * height * bpp // 8 + 1))
    return head + table + offsets + bytes(4) + records


def fonts():
    letters = [(ord("a"), 4, 4), (ord("b"), 8, 2), (ord("Z"), 3, 5), (0x4E2D, 6, 6)]
    for bpp in (1, 2, 3, 4, 8):
        seed("binfont", f"bpp_{bpp}", font(bpp, letters))
    seed("binfont", "count", font(8, letters, count=900))
    dictionary("binfont", [b"\xff\xff", b"\xff\xff\xff\xff", b"\0\0\0\x80", b"\x08\x14\xfc", b"a\0", b"\x2d\x4e"])


# Pictures -----------------------------------------------------------------------------------------------------------
def picture(mode, form, **how):
    image = Image.new("RGB", (9, 7))
    image.putdata([(x * 28, y * 36, (x * y * 5) % 256) for y in range(7) for x in range(9)])
    file = io.BytesIO()
    image.convert(mode).save(file, form, **how)
    return file.getvalue()


def gif(frames, **how):
    file = io.BytesIO()
    frames[0].save(file, "GIF", save_all=True, append_images=frames[1:], duration=20, **how)
    return file.getvalue()


def made(file, *command):
    subprocess.run([*map(str, command)], check=True, stderr=subprocess.DEVNULL)
    return file.read_bytes()


def pictures(folder):
    png, jpg, gifs, twice, as_it_is = 0, 1, 2, 6, 3  # as in pictures_fuzz.cpp
    for mode in ("1", "L", "LA", "P", "RGB", "RGBA", "I"):
        seed("pictures", "png_" + mode, bytes([png]) + picture(mode, "PNG"))
    laced = made(folder / "x.png", "ffmpeg", "-f", "lavfi", "-i", "testsrc=s=9x7", "-frames:v", 1, "-flags", "+ildct",
                 folder / "x.png")
    seed("pictures", "png_laced", bytes([png]) + laced)
    seed("pictures", "png_wrong_sum", bytes([png + as_it_is]) + laced[:-1] + b"x")
    for name, how in (("plain", {}), ("progressive", {"progressive": True}), ("full", {"subsampling": 0})):
        seed("pictures", "jpg_" + name, bytes([jpg]) + picture("RGB", "JPEG", quality=60, **how))
    full = [Image.new("P", (9, 7), n) for n in range(3)]
    for name, how in (("plain", {"loop": 2}), ("once", {}), ("kept", {"loop": 0, "disposal": 3}), ("laced", {"interlace": 1})):
        seed("pictures", "gif_" + name, bytes([gifs]) + gif(full, **how))
    clear = [Image.new("RGBA", (9, 7), (0, 0, 0, 0)) for n in range(3)]
    for n, frame in enumerate(clear):
        frame.paste((90 * n, 200, 0, 255), (n, n, n + 4, n + 3))
    seed("pictures", "gif_clear", bytes([gifs + twice]) + gif(clear, loop=0, disposal=2))
    chunks = "IHDR PLTE tRNS IDAT IEND iCCP acTL JFIF Exif GIF89a NETSCAPE2.0"
    dictionary("pictures", [word.encode() for word in chunks.split()] +
               [b"\x89PNG\r\n\x1a\n", b"\x21\xf9\x04", b"\x21\xff\x0bNETSCAPE2.0\x03\x01", b"\x2c", b"\x3b"] +
               [bytes([0xFF, marker]) for marker in (0xC0, 0xC2, 0xC4, 0xD8, 0xD9, 0xDA, 0xDD, 0xFF)])


# Sounds and clips ---------------------------------------------------------------------------------------------------
def media(folder):
    wav, mp3, aac, mp4 = range(4)
    replay, resize, pause, rewind = 4, 8, 16, 32  # as in media_fuzz.cpp
    for kind, end in ((wav, "wav"), (mp3 + replay, "mp3"), (aac, "aac")):
        file = folder / ("x." + end)
        seed("media", end, bytes([kind]) + made(file, PROGRAM, "tone", file, 440, 20))
    file = folder / "x.wav"
    for codec in ("pcm_u8", "pcm_s24le", "pcm_f32le", "pcm_alaw", "adpcm_ms", "adpcm_ima_wav"):
        command = ("ffmpeg", "-f", "lavfi", "-i", "sine=d=0.03:r=8000", "-bitexact", "-c:a", codec, "-y", file)
        seed("media", "wav_" + codec, bytes([wav]) + made(file, *command))
    file = folder / "x.mp4"
    for name, how, *clip in (("mpeg4", replay + rewind, 16, 16, 0.16, 440, "mpeg4"),
                             ("png", pause + resize, 16, 16, 0.16, 440, "png"),
                             ("mjpeg", replay + resize, 16, 16, 0.16, 440, "mjpeg"),
                             ("smaller", replay + rewind, 16, 16, 0.16, 440, "mjpeg", 2),
                             ("long", replay + rewind, 120, 80, 0.4, 0, "png")):  # longer than what is read at once
        seed("media", "mp4_" + name, bytes([mp4 + how]) + made(file, PROGRAM, "clip", file, *clip))
    command = ("ffmpeg", "-f", "lavfi", "-i", "testsrc=s=16x16:r=25:d=0.16", "-bitexact", "-c:v", "libx264", "-pix_fmt",
               "yuv420p", "-y", file)
    seed("media", "mp4_h264", bytes([mp4 + replay + pause]) + made(file, *command))
    marks = "ftyp moov mvhd trak tkhd mdia stbl stsd stts stsz stco elst dref esds mdat mp4a mp4v avc1 avcC " \
            "RIFF WAVE fact data LIST ID3 TAG Xing"
    dictionary("media", [mark.encode() for mark in marks.split()] +
               [b"fmt ", b"\xff\xfb\x90\x64", b"\xff\xf1", b"\x7f\xff\xff\xff", b"\xff\xff\xff\xff"])


if __name__ == "__main__":
    registers()
    hosts()
    firmware()
    files()
    fonts()
    with tempfile.TemporaryDirectory() as scratch:
        pictures(pathlib.Path(scratch))
        media(pathlib.Path(scratch))
