"""The Python library without a panel: its frames, and its behaviour on bad lines and with bad panels."""
from __future__ import annotations

import contextlib
import queue
import random
import re
import subprocess
import sys
import threading
import time
import unittest
from pathlib import Path

SOURCE = Path(__file__).parents[2]
sys.path.insert(0, str(SOURCE / "clients" / "python"))
from zof_host import (LineBack, LineGone, LineLost, NoAnswer, NotTaken, Panel, PanelError, PowerOn, Refused,  # noqa: E402
                      Restored, Settings, Touch, Unsure, rows)
from zof_host.catalogue import ROWS, row_of, words  # noqa: E402
from zof_host.frame import READ, WRITE, Frame, Parser, build, crc16  # noqa: E402
from zof_host.row import decode  # noqa: E402

HEAD = bytes([0x5A, 0xA5])
WIDTH = rows.CONTROL_WIDTH.code + bytes([0, 1, 0, 7])
TOUCH = build(READ, rows.SYSTEM_TOUCH.code + bytes([1, 0, 80, 0, 40]))
POWER_ON = build(READ, rows.SYSTEM_REBOOT.code + bytes([0xAA, 0xBB]))


def panel_frame(payload: bytes, crc: bool) -> bytes:
    """A frame as sent by a panel, with the irregular forms around 127 bytes."""
    n = len(payload)
    if n > 128 or n < 125 or (not crc and n < 127):
        return build(READ, payload, crc=crc)
    length = bytes([n + (3 if crc else 1), READ])
    if n == 128:
        counted = b"\0" + payload[:127]
        return HEAD + length + counted + (crc16(counted) if crc else b"")
    return HEAD + length + payload + (crc16(payload if n == 127 else bytes([READ]) + payload) if crc else b"")


class Codec(unittest.TestCase):
    def test_makes_and_understands_every_example_of_the_pages(self) -> None:
        pages = "".join((SOURCE / "docs" / name).read_text() for name in ("protocol.md", "firmware.md"))
        lines = [line for block in re.findall(r"```frames\n(.*?)```", pages, re.S) for line in block.splitlines()]
        self.assertGreaterEqual(len(lines), 20)
        for line in lines:
            with self.subTest(line):
                verb, name, raw = re.fullmatch(r"(read|write|) +(\S+) +([0-9A-F ]+)", line).groups()
                (frame,) = Parser().feed(bytes.fromhex(raw))
                row = ROWS[name]
                self.assertIs(row_of(frame.payload), row)
                keys, rest = decode(row.address + row.request, frame.payload[len(row.code):])
                ids = keys[:len(row.address)]
                key = row.key(*ids or (None, None), {name: at for (name, _), at in zip(row.request, keys[len(ids):])})
                value = b"" if verb == "read" else row.encode_value(row.decode_value(rest))
                self.assertEqual(build(WRITE if verb == "write" else READ, key + value), bytes.fromhex(raw))
                self.assertTrue(words(frame, verb == "").startswith(f"{verb or 'answer'} {name}"))
        for frame in build(READ, rows.VIEW_SIZE.code, crc=True), build(WRITE, rows.BAR_VALUE.code + bytes([0, 1, 0, 6, 0, 40]), crc=True):
            self.assertIn(frame.hex(" ").upper(), pages)

    def test_finds_frames_however_their_bytes_arrive(self) -> None:
        text = [rows.LABEL_TEXT.code + bytes([0, 1, 0, 5]) + b"t" * (n - 8) + b"\0" for n in (9, *range(124, 130), 300)]
        noise = b"\x5A\x00\xA5\x5A\x5A\xA5\x01\xFF"
        for crc in (False, True):
            stream = noise + b"".join(panel_frame(payload, crc) + noise for payload in text)
            for cut in range(len(stream)):
                parser = Parser(crc=crc)
                found = parser.feed(stream[:cut]) + parser.feed(stream[cut:]) + parser.idle()
                self.assertEqual([f.payload for f in found if isinstance(f, Frame)], text)
                self.assertEqual(b"".join(f.raw for f in found), stream)

    def test_a_wrong_checksum_is_noise_and_a_false_head_swallows_nothing_after_a_silence(self) -> None:
        parser = Parser(crc=True)
        good = build(READ, WIDTH, crc=True)
        for place in range(3, len(good)):
            bad = good[:place] + bytes([good[place] ^ 1]) + good[place + 1:]
            found = parser.feed(bad + good) + parser.idle()
            self.assertEqual([f.raw for f in found if isinstance(f, Frame)][-1], good)
            self.assertEqual(b"".join(f.raw for f in found), bad + good)
        parser = Parser()
        self.assertEqual(parser.feed(HEAD + b"\xFF\xFF\x11" + TOUCH), [])
        self.assertIn(TOUCH, [f.raw for f in parser.idle()])


    def test_random_streams_lose_no_byte_and_no_frame_after_a_silence(self) -> None:
        seed = random.randrange(1 << 32)
        dice = random.Random(seed)
        for _ in range(300):
            crc = dice.random() < 0.5
            frames = [build(READ, dice.randbytes(dice.choice((2, 5, 60, 300))), crc=crc) for _ in range(3)]
            parts = [dice.choice((HEAD, HEAD[:1], HEAD + b"\xFF\xFF", dice.randbytes(dice.randrange(20)), dice.choice(frames)))
                     for _ in range(dice.randrange(12))]
            stream, found, parser = b"".join(parts), [], Parser(crc=crc)
            while stream:
                cut = dice.randrange(1, 40)
                found += parser.feed(stream[:cut])
                stream = stream[cut:]
            found += parser.idle()
            with self.subTest(seed=seed, parts=parts):
                self.assertEqual(b"".join(f.raw for f in found), b"".join(parts))
                self.assertEqual([f.raw for f in parser.feed(frames[0]) + parser.idle()], [frames[0]])


class FakePanel:
    """A stream to a simulated panel, whose behaviour is a function: frame -> answers."""

    def __init__(self, answers) -> None:
        self.answers, self.frames, self.raw = answers, [], []
        self.out: queue.Queue = queue.Queue()
        self._parser = Parser()

    def read(self) -> bytes:
        data = b""
        with contextlib.suppress(queue.Empty):
            data = self.out.get(timeout=0.02)
        if isinstance(data, Exception):
            raise data
        return data

    def write(self, data: bytes) -> None:
        self.raw.append(data)
        for frame in self._parser.feed(data):
            if isinstance(frame, Frame):
                self.frames.append(frame)
                for answer in self.answers(frame):
                    self.out.put(answer)

    def close(self) -> None:
        pass


def store(**kept: bytes):
    """A panel that stores written values by key, and answers every read."""
    kept = {getattr(rows, name).code: value for name, value in kept.items()}

    def answers(frame: Frame):
        row = row_of(frame.payload)
        key, value = frame.payload[:row.key_size], frame.payload[row.key_size:]
        if frame.op == WRITE:
            kept[key] = value
            return []
        zero = row.encode_value(row.make(*[("" if kind == "text" else 0) for _, kind in row.value]))
        return [build(READ, key + kept.get(key, zero))]

    return answers


class Requests(unittest.TestCase):
    AT = {"view": 1, "control": 7}

    def panel(self, answers, **more) -> tuple[Panel, FakePanel]:
        fake = FakePanel(answers)
        panel = Panel(fake, Settings(), timeout_ms=200, **more)
        self.addCleanup(panel.close)
        return panel, fake

    def test_events_between_an_answers_bytes_are_events_and_the_answer_is_the_answer(self) -> None:
        stream = TOUCH + build(READ, WIDTH + bytes([0, 99])) + TOUCH
        for cut in range(len(stream) + 1):
            panel, _ = self.panel(lambda _: [stream[:cut], stream[cut:]])
            self.assertEqual(panel.read(rows.CONTROL_WIDTH, **self.AT), 99)
            touch = Touch(1, 80, 40, 0)
            self.assertEqual([panel.event(1), panel.event(1)], [touch, touch])
            self.assertIsNone(panel.event(0))
            panel.close()

    def test_a_read_is_repeated_and_then_reports_the_request_and_whether_the_panel_is_alive(self) -> None:
        panel, fake = self.panel(lambda frame: store()(frame) if len(fake.frames) > 2 else [])
        self.assertEqual(panel.read(rows.CONTROL_WIDTH, **self.AT), 0)
        self.assertEqual(len(fake.frames), 3)
        said = r"read label.text of view 1, control 7 after \d\.\d\d s and 3 tries.*"
        for answers, why in ((lambda _: [], "answers nothing"),
                             (lambda frame: [] if frame.payload[0] == 0xB2 else store()(frame), "answers other requests")):
            panel, _ = self.panel(answers)
            with self.assertRaisesRegex(NoAnswer, said + why) as caught:
                panel.read(rows.LABEL_TEXT, **self.AT)
            self.assertEqual(caught.exception.alive, why == "answers other requests")

    def test_a_late_answer_is_not_an_event_and_a_read_that_looks_like_one_is_sent_once(self) -> None:
        late: list[bytes] = []

        def slow(frame):
            if frame.payload.startswith(rows.SYSTEM_REBOOT.code):
                late.append(POWER_ON)
                return []
            return late + store()(frame)

        panel, _ = self.panel(slow)
        self.assertEqual(panel.read(rows.SYSTEM_REBOOT), 0xAABB)
        self.assertIsNone(panel.event(0.1))
        # A late answer is not taken for that to the next read, which follows a write.
        keep, held = store(), []

        def after(frame):
            answers = keep(frame)
            if frame.op == WRITE or frame.payload[0] == 0xB0:
                return answers
            if len(fake.frames) <= 3:
                held.extend(answers)
                return []
            late, held[:] = held[:], []
            return late + answers

        panel, fake = self.panel(after)
        self.assertRaises(NoAnswer, panel.read, rows.SLIDER_VALUE, **self.AT)
        panel.write(rows.SLIDER_VALUE, 42, **self.AT)
        self.assertEqual([f.op for f in fake.frames].count(WRITE), 1)
        panel, _ = self.panel(store(SYSTEM_TOUCH_CONFIG=b"\x10"))
        self.assertRaisesRegex(PanelError, r"take events\(\)", panel.read, rows.SYSTEM_TOUCH)

    def test_a_write_is_confirmed_by_the_answer_after_it(self) -> None:
        for row, value, ids, read in ((rows.SLIDER_VALUE, 42, self.AT, "slider.value"),
                                        (rows.LABEL_COLOR, 0xFF0000, self.AT, "view.size"),
                                        (rows.SYSTEM_BRIGHT, 80, {}, "system.standby_state"),
                                        (rows.SYSTEM_TOUCH_CONFIG, 0x30, {}, "system.touch_config")):
            panel, fake = self.panel(store())
            panel.write(row, value, **ids)
            self.assertEqual([" ".join(words(f, False).split()[:2]) for f in fake.frames],
                             [f"write {row.name}", f"read {read}"])
        # A value that reads back differently is written again, as it may be lost; a count never, as it may have
        # arrived.
        panel, fake = self.panel(lambda frame: store()(frame) if frame.op == READ else [])
        self.assertRaisesRegex(NotTaken, "wrote 42, the panel has 0", panel.write, rows.SLIDER_VALUE, 42, **self.AT)
        self.assertEqual([f.op for f in fake.frames], [WRITE, READ] * 3)
        panel, fake = self.panel(lambda _: [])
        self.assertRaises(NoAnswer, panel.write, rows.SPIN_BOX_COUNT, 1, **self.AT)
        self.assertEqual([f.op for f in fake.frames].count(WRITE), 1)
        panel, _ = self.panel(lambda frame: [build(WRITE, frame.payload[:2] + b"\1")] if frame.op == WRITE else store()(frame))
        self.assertRaisesRegex(Refused, "write system.bright", panel.write, rows.SYSTEM_BRIGHT, 200)
        self.assertRaises(PanelError, panel.read, rows.SYSTEM_BRIGHT)

    def test_a_write_that_may_be_lost_raises(self) -> None:
        def deaf_once(frame):
            return store()(frame) if len(fake.frames) > 2 else []

        panel, fake = self.panel(deaf_once)
        self.assertRaisesRegex(Unsure, "write label.color.*asked for twice", panel.write, rows.LABEL_COLOR, 1, **self.AT)
        self.assertEqual(fake.raw[-1][:257], bytes(256) + HEAD[:1])  # after the bytes that end a false frame
        panel, fake = self.panel(deaf_once)
        panel.write(rows.LABEL_COLOR, 1, **self.AT, confirm=False)
        self.assertRaisesRegex(Unsure, "some of the last 1 writes", panel.barrier)
        panel.barrier()
        restarts = [[POWER_ON], []]
        panel, fake = self.panel(lambda frame: (restarts.pop(0) if restarts else []) + store()(frame), restore=False)
        self.assertRaisesRegex(Unsure, "has restarted", panel.write, rows.LABEL_COLOR, 1, **self.AT)

    def test_a_view_is_confirmed_by_what_is_displayed(self) -> None:
        layers = {0: 1, 1: 65535, 2: 65535}

        def answers(frame):
            if frame.op == WRITE:
                layers[2] = 7 if frame.payload[-1] == 7 else layers[2]
                return []
            if frame.payload.startswith(rows.VIEW_DISPLAYED.code):
                return [build(READ, frame.payload + layers[frame.payload[2]].to_bytes(2, "big"))]
            return store()(frame)

        panel, _ = self.panel(answers)
        panel.write(rows.VIEW_DISPLAY, 7)
        self.assertRaisesRegex(NotTaken, "wrote 9, the panel has 1", panel.write, rows.VIEW_DISPLAY, 9)

    def test_a_restarted_panel_gets_its_settings_again(self) -> None:
        panel, fake = self.panel(store())
        for color in (1, 2):
            panel.write(rows.BUTTON_COLOR, rows.ButtonColor(0, color), **self.AT)
            panel.write(rows.BUTTON_COLOR, rows.ButtonColor(1, color), **self.AT)
        panel.write(rows.SPIN_BOX_COUNT, 1, **self.AT)
        panel.write(rows.SYSTEM_BRIGHT, 50)
        panel.write(rows.SLIDER_VALUE, 42, **self.AT)
        del fake.frames[:]
        fake.out.put(POWER_ON)
        self.assertIsInstance(panel.event(5), PowerOn)
        restored = panel.event(5)
        self.assertIsInstance(restored, Restored)
        self.assertEqual(restored.settings, 4)
        self.assertEqual([words(f, False).split(" ", 2)[1] + words(f, False)[-7:] for f in fake.frames if f.op == WRITE],
                         ["button.color0 rgb=2", "button.color1 rgb=2", "system.brightcent=50", "slider.valuealue=42"])
        # A read that the start has swallowed is sent again at once.
        panel, fake = self.panel(lambda frame: store()(frame) if len(fake.frames) > 1 else [POWER_ON])
        panel.timeout_s = 30
        begin = time.monotonic()
        self.assertEqual(panel.read(rows.CONTROL_WIDTH, **self.AT), 0)
        self.assertLess(time.monotonic() - begin, 15)
        panel, fake = self.panel(store(), restore=False)
        panel.write(rows.SLIDER_VALUE, 42, **self.AT)
        fake.out.put(POWER_ON)
        self.assertIsInstance(panel.event(5), PowerOn)
        self.assertIsNone(panel.event(0.1))

    def test_a_lost_line_is_reopened(self) -> None:
        second = FakePanel(store())
        streams = [OSError("not yet"), second]

        def reopen():
            stream = streams.pop(0)
            if isinstance(stream, Exception):
                raise stream
            return stream

        panel, fake = self.panel(store(), reopen=reopen)
        fake.out.put(OSError("unplugged"))
        self.assertIsInstance(panel.event(5), LineGone)
        self.assertIsInstance(panel.event(5), LineBack)
        panel.write(rows.SLIDER_VALUE, 42, **self.AT)
        self.assertEqual(len(second.frames), 2)

    def test_never_has_more_in_flight_than_the_panels_queue_holds(self) -> None:
        panel, fake = self.panel(store())
        for _ in range(40):
            panel.write(rows.LABEL_TEXT, "x" * 90, **self.AT, confirm=False)
        under_way = worst = 0
        for frame in fake.frames:
            under_way += len(frame.raw)
            worst = max(worst, under_way)
            under_way = 0 if frame.op == READ else under_way
        self.assertTrue(900 < worst <= 1024, worst)
        self.assertRaisesRegex(ValueError, "too long for the panel's queue", panel.write, rows.LABEL_TEXT, "x" * 1024, **self.AT)

    def test_a_lost_line_ends_all_waiting_requests_and_closing_ends_the_events(self) -> None:
        panel, _ = self.panel(lambda _: [OSError("unplugged")])
        self.assertRaisesRegex(LineLost, "unplugged", panel.read, rows.VIEW_SIZE)
        self.assertRaises(LineLost, panel.read, rows.VIEW_SIZE)
        self.assertRaises(LineLost, list, panel.events())
        panel, fake = self.panel(store())
        fake.out.put(TOUCH)
        threading.Timer(0.1, panel.close).start()
        self.assertEqual(len(list(panel.events())), 1)
        self.assertRaisesRegex(LineLost, "closed", panel.read, rows.VIEW_SIZE)


class CommandLine(unittest.TestCase):
    def test_wrong_arguments_end_with_one_line_and_status_2(self) -> None:
        for args, status, said in (("list slider", 0, "slider.value"), ("get view.size", 2, "--port is missing"),
                                   ("--port /x get nothing", 2, "no row nothing"),
                                   ("--port /x get label.text 5", 2, "VIEW/CONTROL"),
                                   ("--port /x set slider.value 1/5 much", 2, "value is a number"),
                                   ("--port /nowhere get view.size", 1, "/nowhere"),
                                   ("--project /nowhere list", 1, "/nowhere/config/project/zofprj.g")):
            done = subprocess.run([sys.executable, "-m", "zof_host", *args.split()], cwd=SOURCE / "clients" / "python",
                                  stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
            self.assertIn(said, done.stdout)
            self.assertEqual(done.returncode, status, args)
            self.assertNotIn("Traceback", done.stdout)


if __name__ == "__main__":
    unittest.main()
