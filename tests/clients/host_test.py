"""The Python library without a panel: its frames, and what it does when the line or the panel behaves badly."""
from __future__ import annotations

import queue
import re
import subprocess
import sys
import threading
import time
import unittest
from pathlib import Path

SOURCE = Path(__file__).parents[2]
sys.path.insert(0, str(SOURCE / "clients" / "python"))
from zof_host import (LineLost, NoAnswer, NotTaken, Panel, PanelError, PowerOn, Refused, Settings, Touch,  # noqa: E402
                      TouchState, rows)
from zof_host.catalogue import ROWS, row_of, words  # noqa: E402
from zof_host.frame import READ, WRITE, Frame, Parser, build, crc16  # noqa: E402
from zof_host.row import decode, encode  # noqa: E402

HEAD = bytes([0x5A, 0xA5])
WIDTH = rows.CONTROL_WIDTH.code + bytes([0, 1, 0, 7])
TOUCH = build(READ, rows.SYSTEM_TOUCH.code + bytes([1, 0, 80, 0, 40]))
POWER_ON = build(READ, rows.SYSTEM_REBOOT.code + bytes([0xAA, 0xBB]))


def panel_frame(payload: bytes, crc: bool) -> bytes:
    """As a panel lays it out, with its odd forms around 127 bytes."""
    n = len(payload)
    if n > 128 or n < 125 or (not crc and n < 127):
        return build(READ, payload, crc=crc)
    length = bytes([n + (3 if crc else 1), READ])
    if n == 128:
        counted = b"\0" + payload[:127]
        return HEAD + length + counted + (crc16(counted) if crc else b"")
    return HEAD + length + payload + (crc16(payload if n == 127 else bytes([READ]) + payload) if crc else b"")


class Codec(unittest.TestCase):
    def test_makes_and_understands_every_example_of_the_reference(self) -> None:
        page = (SOURCE / "docs" / "protocol.md").read_text()
        block = re.search(r"```frames\n(.*?)```", page, re.S)
        assert block
        for line in block[1].splitlines():
            with self.subTest(line):
                verb, name, raw = re.fullmatch(r"(read|write|) +(\S+) +([0-9A-F ]+)", line).groups()
                (frame,) = Parser().feed(bytes.fromhex(raw))
                row = ROWS[name]
                self.assertIs(row_of(frame.payload), row)
                keys, rest = decode(row.address + row.request, frame.payload[len(row.code):])
                key = row.key(*keys[:2] or (None, None), {})
                value = b"" if verb == "read" else row.encode_value(row.decode_value(rest))
                self.assertEqual(build(WRITE if verb == "write" else READ, key + value), bytes.fromhex(raw))
                self.assertTrue(words(frame, verb == "").startswith(f"{verb or 'answer'} {name}"))
        self.assertIn(build(READ, rows.VIEW_SIZE.code, crc=True).hex(" ").upper(), page)

    def test_every_rows_fields_come_back_as_they_went(self) -> None:
        ends = {"u8": (0, 255), "s8": (-128, 127), "u16": (0, 65535), "s16": (-32768, 32767), "u32": (0, 2**32 - 1),
                "s32": (-2**31, 2**31 - 1), "text": ("", "12.5 V ⚡")}
        for row in ROWS.values():
            for end in (0, 1):
                value = row.make(*[ends[kind][end] for _, kind in row.value])
                self.assertEqual(row.decode_value(row.encode_value(value)), value)
        for kind, value in (("u8", 256), ("s16", "1"), ("text", 1), ("text", "\0")):
            self.assertRaisesRegex(ValueError, "^a", encode, [("a", kind)], [value])
        self.assertRaises(TypeError, rows.LABEL_TEXT.key, 1, None, {})
        self.assertRaises(TypeError, rows.VIEW_SIZE.key, 1, 2, {})

    def test_finds_frames_however_their_bytes_come(self) -> None:
        for crc in (False, True):
            text = [rows.LABEL_TEXT.code + bytes([0, 1, 0, 5]) + b"t" * (n - 8) + b"\0" for n in (9, 124, 125, 126, 127,
                                                                                               128, 129, 300)]
            noise = b"\x5A\x00\xA5\x5A\x5A\xA5\x01\xFF"
            stream = noise + b"".join(panel_frame(payload, crc) + noise for payload in text)
            for cut in range(len(stream)):
                parser = Parser(crc=crc)
                found = parser.feed(stream[:cut]) + parser.feed(stream[cut:]) + parser.idle()
                self.assertEqual([f.payload for f in found if isinstance(f, Frame)], text)
                self.assertEqual(b"".join(f.raw for f in found), stream)

    def test_a_wrong_checksum_is_noise_and_a_false_head_swallows_nothing_behind_a_silence(self) -> None:
        parser = Parser(crc=True)
        good = build(READ, WIDTH, crc=True)
        for place in range(3, len(good)):
            bad = bytearray(good)
            bad[place] ^= 1
            found = parser.feed(bytes(bad) + good) + parser.idle()
            self.assertEqual([f.raw for f in found if isinstance(f, Frame)][-1], good)
            self.assertEqual(b"".join(f.raw for f in found), bad + good)
        parser = Parser()
        self.assertEqual(parser.feed(HEAD + b"\xFF\xFF\x11" + TOUCH), [])
        self.assertIn(TOUCH, [f.raw for f in parser.idle()])


class FakePanel:
    """A stream with a panel behind it whose behaviour is a function: frame -> answers."""

    def __init__(self, answers) -> None:
        self.answers, self.frames, self.times, self.raw = answers, [], [], []
        self.out: queue.Queue = queue.Queue()
        self._parser = Parser()

    def read(self) -> bytes:
        try:
            data = self.out.get(timeout=0.02)
        except queue.Empty:
            return b""
        if isinstance(data, Exception):
            raise data
        return data

    def write(self, data: bytes) -> None:
        self.raw.append(data)
        for frame in self._parser.feed(data):
            if isinstance(frame, Frame):
                self.times.append(time.monotonic())
                self.frames.append(frame)
                for answer in self.answers(self, frame):
                    self.out.put(answer)

    def close(self) -> None:
        pass


def store(**start):
    """A panel that keeps what is written, by key, and answers every read."""
    kept = dict(start.get("kept", {}))

    def answers(_fake: FakePanel, frame: Frame):
        row = row_of(frame.payload)
        key, value = frame.payload[:row.key_size], frame.payload[row.key_size:]
        if frame.op == WRITE:
            kept[key] = value
            return []
        zero = row.encode_value(row.make(*[("" if kind == "text" else 0) for _, kind in row.value]))
        return [build(READ, key + kept.get(key, zero))]

    return answers


class Requests(unittest.TestCase):
    def panel(self, answers, **more) -> tuple[Panel, FakePanel]:
        fake = FakePanel(answers)
        panel = Panel(fake, more.pop("settings", Settings()), timeout_ms=200, **more)
        self.addCleanup(panel.close)
        return panel, fake

    def test_events_between_an_answers_bytes_are_events_and_the_answer_is_the_answer(self) -> None:
        answer = build(READ, WIDTH + bytes([0, 99]))
        stream = POWER_ON + TOUCH + answer + TOUCH
        for cut in range(len(stream) + 1):
            panel, _ = self.panel(lambda *_: [stream[:cut], stream[cut:]])
            self.assertEqual(panel.read(rows.CONTROL_WIDTH, view=1, control=7), 99)
            touch = Touch(TouchState.PRESSED, 80, 40, 0)
            self.assertEqual([panel.event(1), panel.event(1), panel.event(1)], [PowerOn(0), touch, touch])
            self.assertIsNone(panel.event(0))
            panel.close()

    def test_a_read_is_repeated_and_then_says_what_was_asked_and_what_the_silence_means(self) -> None:
        lost = [2]

        def lossy(_fake, frame):
            lost[0] -= 1
            return [] if lost[0] >= 0 else store()(_fake, frame)

        panel, fake = self.panel(lossy)
        self.assertEqual(panel.read(rows.CONTROL_WIDTH, view=1, control=7), 0)
        self.assertEqual(len(fake.frames), 3)
        panel, fake = self.panel(lambda *_: [])
        said = r"read label.text of view 1, control 5 after \d\.\d\d s and 3 tries.*answers nothing"
        with self.assertRaisesRegex(NoAnswer, said):
            panel.read(rows.LABEL_TEXT, view=1, control=5)
        panel, fake = self.panel(lambda f, frame: [] if frame.payload[0] == 0xB2 else store()(f, frame))
        with self.assertRaisesRegex(NoAnswer, "silent about this") as caught:
            panel.read(rows.LABEL_TEXT, view=1, control=5)
        self.assertTrue(caught.exception.alive and isinstance(caught.exception, TimeoutError))

    def test_a_late_answer_is_no_event_and_a_read_that_looks_like_one_is_asked_once(self) -> None:
        late = []

        def slow(fake, frame):
            if frame.payload.startswith(rows.SYSTEM_REBOOT.code):
                late.append(POWER_ON)
                return []
            return late + store()(fake, frame)

        panel, fake = self.panel(slow)
        self.assertEqual(panel.read(rows.SYSTEM_REBOOT), 0xAABB)
        self.assertIsNone(panel.event(0.1))
        # An answer that is too late for its own read is not that to the next one, which asks behind a write.
        keep, held = store(), []

        def behind(fake, frame):
            answers = keep(fake, frame)
            if frame.op == WRITE or frame.payload[0] == 0xB0:
                return answers
            if len(fake.frames) <= 3:
                held.extend(answers)
                return []
            late, held[:] = held[:], []
            return late + answers

        panel, fake = self.panel(behind)
        self.assertRaises(NoAnswer, panel.read, rows.SLIDER_VALUE, view=1, control=7)
        panel.write(rows.SLIDER_VALUE, 42, view=1, control=7)
        self.assertEqual([f.op for f in fake.frames].count(WRITE), 1)
        panel, fake = self.panel(store(kept={rows.SYSTEM_TOUCH_CONFIG.code: b"\x10"}))
        self.assertRaisesRegex(PanelError, r"take events\(\)", panel.read, rows.SYSTEM_TOUCH)

    def test_a_write_is_confirmed_by_what_is_answered_behind_it(self) -> None:
        panel, fake = self.panel(store())
        panel.write(rows.SLIDER_VALUE, 42, view=1, control=7)
        panel.write(rows.LABEL_COLOR, 0xFF0000, view=1, control=5)
        panel.write(rows.SYSTEM_BRIGHT, 80)
        panel.write(rows.SYSTEM_TOUCH_CONFIG, 0x30)
        asked = [words(f, False).split(" view=")[0].split(" percent")[0].split(" flags")[0] for f in fake.frames]
        self.assertEqual(asked, ["write slider.value", "read slider.value", "write label.color", "read view.size",
                                 "write system.bright", "read system.standby_state", "write system.touch_config",
                                 "read system.touch_config"])
        # A value that is not taken is written again, for it may have been lost; a count never, for it may have arrived.
        panel, fake = self.panel(lambda f, frame: store()(f, frame) if frame.op == READ else [])
        with self.assertRaisesRegex(NotTaken, "wrote 42, the panel has 0"):
            panel.write(rows.SLIDER_VALUE, 42, view=1, control=7)
        self.assertEqual([f.op for f in fake.frames], [WRITE, READ] * 3)
        panel, fake = self.panel(lambda f, frame: [])
        self.assertRaises(NoAnswer, panel.write, rows.SPIN_BOX_COUNT, 1, view=1, control=7)
        self.assertEqual([f.op for f in fake.frames].count(WRITE), 1)

        def acknowledging(fake, frame):
            return [build(WRITE, frame.payload[:2] + b"\1")] if frame.op == WRITE else store()(fake, frame)

        panel, fake = self.panel(acknowledging)
        self.assertRaisesRegex(Refused, "write system.bright", panel.write, rows.SYSTEM_BRIGHT, 200)
        self.assertRaises(ValueError, panel.read, rows.SYSTEM_BRIGHT)

    def test_leaves_the_silence_that_the_panel_needs_unless_an_answer_has_shown_it(self) -> None:
        panel, fake = self.panel(store(), settings=Settings(silence_ms=100))
        for value in range(3):
            panel.write(rows.SLIDER_VALUE, value, view=1, control=7, confirm=False)
        gaps = [b - a for a, b in zip(fake.times, fake.times[1:])]
        self.assertGreaterEqual(min(gaps), 0.1)
        # A byte to step on goes in front, in case that the panel has looked too late to see the silence.
        self.assertEqual([raw[0] for raw in fake.raw], [0x5A, 0, 0])
        panel.barrier()
        begin = time.monotonic()
        panel.read(rows.VIEW_SIZE)
        self.assertLess(time.monotonic() - begin, 0.1)
        self.assertEqual(fake.raw[-1][0], 0x5A)

    def test_never_has_more_under_way_than_the_panels_queue_holds(self) -> None:
        panel, fake = self.panel(store())
        for i in range(40):
            panel.write(rows.LABEL_TEXT, "x" * 90, view=1, control=5, confirm=False)
        under_way = worst = 0
        for frame in fake.frames:
            under_way += len(frame.raw)
            worst = max(worst, under_way)
            under_way = 0 if frame.op == READ else under_way
        self.assertTrue(900 < worst <= 1024, worst)
        with self.assertRaisesRegex(ValueError, "too long for the panel's queue"):
            panel.write(rows.LABEL_TEXT, "x" * 1024, view=1, control=5)

    def test_a_line_that_goes_ends_everyone_who_waits_and_closing_ends_the_events(self) -> None:
        panel, fake = self.panel(lambda f, frame: [OSError("unplugged")])
        self.assertRaisesRegex(LineLost, "unplugged", panel.read, rows.VIEW_SIZE)
        self.assertRaises(LineLost, panel.read, rows.VIEW_SIZE)
        self.assertRaises(LineLost, list, panel.events())
        panel, fake = self.panel(store())
        fake.out.put(TOUCH)
        threading.Timer(0.1, panel.close).start()
        self.assertEqual(len(list(panel.events())), 1)
        self.assertRaisesRegex(LineLost, "closed", panel.read, rows.VIEW_SIZE)


class CommandLine(unittest.TestCase):
    def test_wrong_words_end_with_a_line_and_status_2(self) -> None:
        for args, said in ((["list", "slider"], "slider.value"), (["get", "view.size"], "--port is missing"),
                           (["--port", "/x", "get", "nothing"], "no row nothing"),
                           (["--port", "/x", "get", "label.text", "5"], "VIEW/CONTROL"),
                           (["--port", "/x", "set", "slider.value", "1/5", "much"], "value is a number"),
                           (["--port", "/nowhere", "get", "view.size"], "/nowhere"),
                           (["--project", "/nowhere", "list"], "/nowhere/config/project/zofprj.g")):
            done = subprocess.run([sys.executable, "-m", "zof_host", *args], cwd=SOURCE / "clients" / "python",
                                  capture_output=True, text=True)
            self.assertIn(said, done.stdout + done.stderr)
            self.assertEqual(done.returncode, 0 if args[0] == "list" else 1 if "/nowhere" in args else 2)
            self.assertNotIn("Traceback", done.stderr)


if __name__ == "__main__":
    unittest.main()
