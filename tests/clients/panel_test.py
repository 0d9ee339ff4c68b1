"""The Python library and its command line with real panels at the far end of a line: the bench panel, and the gallery,
where every type of control is driven by name.

usage: panel_test.py BUILD_FOLDER [TEST...]
"""
from __future__ import annotations

import random
import re
import subprocess
import sys
import threading
import time
import unittest
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from bench_panel import CLIENT, BenchPanel, GalleryPanel, PlainPanel
from zof_host import NotLoaded, Panel, PowerOn, Touch, rows
from zof_host.row import Row

BUILD = sys.argv.pop(1)
TAPS = "until 60000 1 17 go\n" + "tap 40 320\nwait 100\n" * 400
SESSION = {"view": 1, "control": 17}  # a label that the panel's program does not change

# For each view of the gallery: row, control, value to write or a list of accepted values to read, index for rows that
# have one. The library reads back what it can.
STEPS = {
    "index": [(rows.SWITCH_ON, "theme", 1)],
    "labels": [(rows.LABEL_TEXT, "label_9", "by a host")],
    "buttons": [(rows.BUTTON_TEXT, "count", "17"), (rows.IMAGE_BUTTON_TEXT, "lamp", "on"), (rows.CONTROL_ALPHA, "count", 200)],
    "pictures": [(rows.IMAGE_IMAGE, "zoomed", "lamp_on.png"), (rows.LINE_LOOK, "line", rows.LineLook(0x2FA36B, 8, 255, 1))],
    "values": [(rows.ARC_VALUE, "arc", 20), (rows.SLIDER_VALUE, "slider", 70), (rows.BAR_VALUE, "bar", 30)],
    "switches": [(rows.CHECK_BOX_CHECKED, "cb", 1), (rows.SPIN_BOX_VALUE, "spin", 2000)],
    "lists": [(rows.LIST_TEXT, "list", "Row 0", 0), (rows.DROP_LIST_OPEN, "drop", 1), (rows.DROP_LIST_OPEN, "drop", 0),
              (rows.ROLLER_MODIFY, "roller", "Option 2", 2), (rows.DROP_LIST_SELECTED, "drop", 1), (rows.ROLLER_SELECTED, "roller", 1)],
    "charts": [(rows.CHART_COLOR, "lines", 0xE0A030, 3), (rows.CHART_NEXT, "lines", 40, 3)],
    "tables": [(rows.TABLE_TEXT, "table", rows.TableText(1, 0, "3.30")), (rows.BUTTON_MATRIX_CAPTION, "matrix", ["7"], 0)],
    "tiles": [(rows.TILE_VIEW_TILE, "grid", rows.TileViewTile(1, 1, 1))],
    "typing": [(rows.TEXT_BOX_ADD_TEXT, "line", "by a host"), (rows.TEXT_BOX_TEXT, "line", ["by a host"]),
               (rows.KEYBOARD_KEY, "keyboard", [0xFFFF])],
    "messages": [(rows.MESSAGE_BOX_OPEN, "ask", 1), (rows.MESSAGE_BOX_OPEN, "ask", 0)],
    "moving": [(rows.GIF_PLAY, "gif", 1), (rows.QR_CODE_TEXT, "qr", "a host was here")],
    "media": [(rows.VIDEO_VOLUME, "video", 0), (rows.VIDEO_STATE, "video", range(5))],
}


class Panels(unittest.TestCase):
    def opened(self, bench: BenchPanel, **more) -> Panel:
        panel = self.enterContext(bench.open(**more))
        event = panel.event(10)
        if event is None:        # the first event may be lost, because opening the line flushes its input
            bench.stop()
            bench.start()
            event = panel.event(60)
        self.assertIsInstance(event, PowerOn)
        return panel

    def python(self, *args: str) -> subprocess.Popen:
        process = subprocess.Popen([sys.executable, "-u", *args], cwd=CLIENT, stdout=subprocess.PIPE,
                                   stderr=subprocess.STDOUT, text=True)
        self.addCleanup(process.stdout.close)
        return process

    def command(self, bench: BenchPanel, line: str) -> subprocess.Popen:
        return self.python("-m", "zof_host", "--port", bench.line.host, "--project", str(bench.project), "--timeout", "5000",
                           *line.split())

    def until(self, process: subprocess.Popen, *patterns: str) -> None:
        """Reads lines until each pattern has matched."""
        left, seen = list(patterns), []
        timer = threading.Timer(60, process.kill)
        timer.start()
        while left:
            seen.append(process.stdout.readline())
            self.assertTrue(seen[-1], f"no {left} in {seen}")
            left = [pattern for pattern in left if not re.search(pattern, seen[-1])]
        timer.cancel()
        process.terminate()
        process.wait()

    def test_ten_lines_put_a_live_value_on_a_label_and_print_touches(self) -> None:
        bench = self.enterContext(BenchPanel(BUILD, TAPS))
        with bench.open() as panel:
            panel.event(60)
            panel.write(rows.LABEL_TEXT, "go", **SESSION)
            panel.write(rows.SYSTEM_TOUCH_CONFIG, 0x10)
            self.assertIsInstance(panel.event(60), Touch)  # the session has received it
        page = (CLIENT / "README.md").read_text()
        code = page.split("```python\n")[1].split("```")[0].replace("/dev/ttyUSB0", bench.line.host)
        self.assertLessEqual(len(code.splitlines()), 10)
        self.until(self.python("-c", code), r"PRESSED.*x=40, y=320", r"RELEASED.*x=40, y=320")
        with bench.open() as panel:
            self.assertRegex(panel.read(rows.LABEL_TEXT, **SESSION), r"^\d\d:\d\d:\d\d$")

    def test_the_command_line_drives_the_panel_by_names_while_its_board_runs(self) -> None:
        bench = self.enterContext(BenchPanel(BUILD, TAPS, board=True))
        self.opened(bench).close()
        for line, said in (("list slider", "slider         settings/slider0"),
                           ("set slider.value settings/SLIDER0 55", "^$"), ("get slider.value 4/19", "^55\n$"),
                           ("get view.size", "^width=800 height=480\n$"),
                           ("set view.display about", "^$"), ("get view.displayed 0", "^3\n$"),
                           ("set slider.value 4/19 5", "wrote 5, the panel has 10"),
                           ("get label.text output/nothing", "has no control nothing"),
                           ("set --no-confirm label.text 1/17 go", "^$")):
            self.assertRegex(self.command(bench, line).communicate(timeout=60)[0], said)
        self.until(self.command(bench, "watch slider.value 4/19"), "^slider.value 10$", "^touch pressed 40 320$")
        bench.stop()
        monitor = self.command(bench, "monitor")
        time.sleep(0.5)  # until it has opened the line
        bench.start()
        self.until(monitor, "panel answer system.reboot word=43707")

    def test_a_folder_without_a_program_runs_its_actions_and_is_driven_by_a_host(self) -> None:
        on = {"changed": ["set label_4.txt touched", "view lists left"]}
        plain = self.enterContext(PlainPanel(BUILD, "until 60000 6 4 go\ntap 590 105\nwait 3600000\n", "switches", "cb", on,
                                             hmi={"event_en": 1}))
        panel = self.opened(plain)
        panel.write(rows.VIEW_DISPLAY, "switches")
        panel.write(rows.LABEL_TEXT, "go", view="switches", control="label_4")
        shown: list[str] = []
        while shown[-1:] != ["ViewShown(view='lists', layer=0)"]:
            event = panel.event(30)
            self.assertIsNotNone(event, shown)
            shown.append(repr(event))
        self.assertIn("Changed(switches/cb, 1)", shown)
        self.assertEqual(panel.read(rows.LABEL_TEXT, view="switches", control="label_4"), "touched")
        with ThreadPoolExecutor(4) as pool:  # beside those that the panel's own thread reads
            for values in pool.map(panel.snapshot, ["switches"] * 20):
                self.assertEqual(values["cb"], 1)
        with self.assertRaises(NotLoaded):
            panel.read(rows.ARC_VALUE, view="values", control="arc")

    def test_texts_of_every_length_come_back_with_and_without_checksum_also_on_a_bad_line(self) -> None:
        dice = random.Random(4)

        def taint(_to_panel: bool, data: bytes) -> bytes:
            luck = dice.random()
            if luck < 0.01:
                return data[:-1]
            if luck < 0.02:
                return b"\xAA\x55\x7F" + data
            return bytes([data[0] ^ 0x10]) + data[1:] if luck < 0.03 else data

        odd = {"crc_en": 1, "resend_en": 0, "head_fh": 0xAA, "head_fl": 0x55, "timeout": 8}
        # Not longer, because busy machines cause gaps, and of a frame with a gap the panel keeps 256 bytes.
        for hmi, lengths in ((odd, (*range(112, 123), 220)), ({}, (*range(116, 124), 230))):
            bench = self.enterContext(BenchPanel(BUILD, hmi=hmi))
            panel = self.opened(bench, **({"timeout_ms": 500, "tries": 8} if hmi else {}))
            bench.line.taint = taint if hmi else bench.line.taint
            for length in lengths:
                with self.subTest(f"{length} bytes, {hmi}"):
                    text = "".join(dice.choice("abcde") for _ in range(length))
                    panel.write(rows.LABEL_TEXT, text, **SESSION)
                    self.assertEqual(panel.read(rows.LABEL_TEXT, **SESSION), text)

    def test_a_host_walks_all_views_of_the_gallery_and_drives_each_type_that_has_rows_of_its_own(self) -> None:
        driven = {row.name.split(".")[0] for steps in STEPS.values() for row, *_ in steps}
        known = {row.name.split(".")[0] for row in vars(rows).values() if isinstance(row, Row)}
        self.assertEqual(known - driven, {"system", "view"})
        gallery = self.enterContext(GalleryPanel(BUILD))
        panel = self.opened(gallery)
        for view in reversed(panel.project.views):
            panel.write(rows.VIEW_DISPLAY, view.id)
            for row, control, value, *index in STEPS.get(view.name, []):
                at = {"view": view.id, "control": control} | {name: i for (name, _), i in zip(row.request, index)}
                with self.subTest(f"{row.name} of {at}"):
                    if isinstance(value, (list, range)):
                        self.assertIn(panel.read(row, **at), value)
                    else:
                        panel.write(row, value, **at)
        for language in ("de", "zh", "en"):
            panel.write(rows.SYSTEM_LANGUAGE, language)
        self.assertEqual(panel.read(rows.VIEW_DISPLAYED, layer=0), 1)
        self.assertEqual([line for line in gallery.log if re.search("err|cannot|fail", line)], [])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + [f"Panels.{name}" for name in sys.argv[1:]])
