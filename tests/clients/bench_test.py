"""The Python library and its command line on the bench panel, a program of its own at the far end of a line.

usage: bench_test.py BUILD_FOLDER [TEST...]
"""
from __future__ import annotations

import random
import re
import subprocess
import sys
import threading
import time
import unittest
from pathlib import Path

SOURCE = Path(__file__).parents[2]
CLIENT = SOURCE / "clients" / "python"
sys.path.insert(0, str(CLIENT))
from bench_panel import BenchPanel  # noqa: E402
from zof_host import Panel, PowerOn, rows  # noqa: E402
from zof_host.frame import READ, build  # noqa: E402

BUILD = sys.argv.pop(1)
TAPS = "until 60000 1 17 go\n" + "tap 40 320\nwait 100\n" * 400


class Bench(unittest.TestCase):
    def bench(self, *args, **more) -> BenchPanel:
        bench = BenchPanel(BUILD, *args, **more)
        self.addCleanup(bench.__exit__)
        return bench

    def opened(self, bench: BenchPanel, **more) -> Panel:
        panel = bench.open(**more)
        self.addCleanup(panel.close)
        self.assertIsInstance(panel.event(60), PowerOn)
        return panel

    def command(self, bench: BenchPanel, *args: str) -> subprocess.Popen:
        words = [sys.executable, "-m", "zof_host", "--port", bench.line.host, "--project", str(bench.project),
                 "--timeout", "5000", *args]
        process = subprocess.Popen(words, cwd=CLIENT, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        self.addCleanup(process.stdout.close)
        return process

    def says(self, bench: BenchPanel, *args: str) -> str:
        return self.command(bench, *args).communicate(timeout=60)[0]

    def until(self, process: subprocess.Popen, *patterns: str) -> None:
        """Reads lines until each pattern was seen."""
        left, seen = list(patterns), []
        timer = threading.Timer(60, process.kill)
        timer.start()
        while left:
            line = process.stdout.readline()
            self.assertTrue(line, f"no {left} in {seen}")
            seen.append(line)
            left = [pattern for pattern in left if not re.search(pattern, line)]
        timer.cancel()
        process.terminate()
        process.wait()

    def test_ten_lines_put_a_live_value_on_a_label_and_print_touches(self) -> None:
        bench = self.bench(TAPS)
        with bench.open() as panel:
            panel.event(60)
            panel.write(rows.LABEL_TEXT, "go", view=1, control=17)
        page = (CLIENT / "README.md").read_text()
        code = page.split("```python\n")[1].split("```")[0].replace("/dev/ttyUSB0", bench.line.host)
        self.assertLessEqual(len(code.splitlines()), 10)
        process = subprocess.Popen([sys.executable, "-uc", code], cwd=CLIENT, stdout=subprocess.PIPE, text=True)
        self.addCleanup(process.stdout.close)
        self.until(process, r"PRESSED.*x=40, y=320", r"RELEASED.*x=40, y=320")
        with bench.open() as panel:
            self.assertRegex(panel.read(rows.LABEL_TEXT, view=1, control=17), r"^\d\d:\d\d:\d\d$")

    def test_the_command_line_drives_the_panel_by_names_while_its_board_runs(self) -> None:
        bench = self.bench(TAPS, board=True)
        self.opened(bench).close()
        self.assertIn("slider         settings/slider0", self.says(bench, "list", "slider"))
        self.assertEqual(self.says(bench, "set", "slider.value", "settings/SLIDER0", "55"), "")
        self.assertEqual(self.says(bench, "get", "slider.value", "4/19"), "55\n")
        self.assertEqual(self.says(bench, "get", "view.size"), "width=800 height=480\n")
        self.assertEqual(self.says(bench, "set", "view.display", "about"), "")
        self.assertEqual(self.says(bench, "get", "view.displayed", "0"), "3\n")
        self.assertIn("wrote 5, the panel has 10", self.says(bench, "set", "slider.value", "4/19", "5"))
        self.assertIn("has no control nothing", self.says(bench, "get", "label.text", "output/nothing"))
        self.assertEqual(self.says(bench, "set", "--no-confirm", "label.text", "1/17", "go"), "")
        self.until(self.command(bench, "watch", "slider.value", "4/19"), "^slider.value 10$", "^touch pressed 40 320$")
        bench.stop()
        monitor = self.command(bench, "monitor")
        time.sleep(0.5)
        bench.start()
        self.until(monitor, "panel answer system.reboot word=43707")

    def test_texts_of_every_length_come_back_on_a_bad_line_with_checksum_and_other_settings(self) -> None:
        bench = self.bench(hmi={"crc_en": 1, "resend_en": 0, "head_fh": 0xAA, "head_fl": 0x55, "timeout": 8})
        panel = self.opened(bench, timeout_ms=500, tries=8)
        dice = random.Random(4)
        seed = 4

        def taint(_to_panel: bool, data: bytes) -> bytes:
            luck = dice.random()
            if luck < 0.01:
                return data[:-1]
            if luck < 0.02:
                return b"\xAA\x55\x7F" + data
            return bytes([data[0] ^ 0x10]) + data[1:] if luck < 0.03 else data

        bench.line.taint = taint
        # No longer ones: of a frame with a gap in it, as busy machines make them, the panel keeps 256 bytes.
        for length in [*range(112, 123), 220]:
            with self.subTest(f"{length} bytes, seed {seed}"):
                text = "".join(dice.choice("abcde") for _ in range(length))
                panel.write(rows.LABEL_TEXT, text, view=1, control=17)
                self.assertEqual(panel.read(rows.LABEL_TEXT, view=1, control=17), text)
        panel.write(rows.SYSTEM_TOUCH_CONFIG, 0x10)

    def test_texts_of_every_length_come_back_without_checksum_and_a_restart_is_told(self) -> None:
        bench = self.bench()
        panel = self.opened(bench)
        for length in [*range(116, 124), 230]:
            panel.write(rows.LABEL_TEXT, "x" * length, view=1, control=17)
        bench.stop()
        bench.start()
        self.assertIsInstance(panel.event(60), PowerOn)
        self.assertEqual(panel.read(rows.LABEL_TEXT, view=1, control=17), "Session")

    def test_a_byte_between_two_frames_of_one_block_saves_the_second(self) -> None:
        bench = self.bench()
        for between, answered in ((b"", 1), (b"\0", 2)):
            panel = bench.open()
            if not between:
                panel.event(60)
            panel.read(rows.VIEW_SIZE)  # nothing of an earlier block is left
            frames: list[bytes] = []
            panel._trace = lambda _at, from_panel, found: frames.append(found.raw) if from_panel else None
            ask = build(READ, rows.SYSTEM_STANDBY_STATE.code)
            panel._stream.write(ask + between + ask)
            deadline = time.monotonic() + 5
            while len(frames) < 2 and time.monotonic() < deadline and answered == 2:
                time.sleep(0.01)
            panel.barrier()
            self.assertEqual(len(frames) - 1, answered)
            panel.close()


if __name__ == "__main__":
    unittest.main()
