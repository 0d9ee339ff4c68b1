"""The gallery driven by the Python library alone, every type of control by its name in the project folder.

usage: gallery_test.py BUILD_FOLDER [TEST...]
"""
from __future__ import annotations

import sys
import unittest
from pathlib import Path
from typing import Any

sys.path.insert(0, str(Path(__file__).parents[2] / "clients" / "python"))
from bench_panel import BenchPanel  # noqa: E402
from zof_host import Panel, PowerOn, rows  # noqa: E402
from zof_host.row import Row  # noqa: E402

BUILD = sys.argv.pop(1)
ALL_ROWS = [row for row in vars(rows).values() if isinstance(row, Row)]

# Row, control, value to write or None to read, index of rows that have one. The library reads back what it can.
STEPS: dict[str, list[tuple[Any, ...]]] = {
    "labels": [(rows.LABEL_TEXT, "label_9", "by a host"), (rows.LABEL_COLOR, "label_9", 0x3DA9FC)],
    "buttons": [(rows.BUTTON_TEXT, "count", "17"), (rows.BUTTON_STATE, "toggle", 1),
                (rows.IMAGE_BUTTON_TEXT, "lamp", "on"), (rows.CONTROL_ALPHA, "count", 200)],
    "pictures": [(rows.IMAGE_IMAGE, "zoomed", "lamp_on.png"), (rows.IMAGE_ANGLE, "zoomed", 450),
                 (rows.LINE_LOOK, "line", rows.LineLook(0x2FA36B, 8, 255, 1))],
    "values": [(rows.ARC_VALUE, "arc", 20), (rows.SLIDER_VALUE, "slider", 70), (rows.BAR_VALUE, "bar", 30)],
    "switches": [(rows.SWITCH_ON, "sw", 0), (rows.CHECK_BOX_CHECKED, "cb", 1), (rows.SPIN_BOX_VALUE, "spin", 2000)],
    "lists": [(rows.LIST_TEXT, "list", "Row 0", 0), (rows.LIST_TEXT, "list", None, 0),
              (rows.DROP_LIST_MODIFY, "drop", "Option 1", 1), (rows.DROP_LIST_OPEN, "drop", 1),
              (rows.DROP_LIST_OPEN, "drop", 0), (rows.ROLLER_MODIFY, "roller", "Option 2", 2)],
    "tables": [(rows.TABLE_TEXT, "table", rows.TableText(1, 0, "3.30")),
               (rows.BUTTON_MATRIX_CAPTION, "matrix", None, 0),
               (rows.BUTTON_MATRIX_ONE_CHECKED, "one", 1)],
    "charts": [(rows.CONTROL_HIDDEN, "columns", 1)],
    "tiles": [(rows.TILE_VIEW_TILE, "grid", rows.TileViewTile(1, 1, 1))],
    "typing": [(rows.TEXT_BOX_TEXT, "line", "typed by a host"), (rows.TEXT_BOX_ADD_TEXT, "line", "!"),
               (rows.TEXT_BOX_TEXT, "line", None), (rows.KEYBOARD_KEY, "keyboard", None)],
    "messages": [(rows.MESSAGE_BOX_TITLE, "ask", "From a host"), (rows.MESSAGE_BOX_OPEN, "ask", 1),
                 (rows.MESSAGE_BOX_OPEN, "ask", 0)],
    "wheels": [(rows.CONTROL_ALPHA, "arc", 128)],
    "moving": [(rows.GIF_PLAY, "gif", 1), (rows.QR_CODE_TEXT, "qr", "a host was here"),
               (rows.CONTROL_POS, "sequence", rows.ControlPos(20, 20))],
    "media": [(rows.VIDEO_VOLUME, "video", 0), (rows.VIDEO_STATE, "video", None)],
    "drawing": [(rows.CONTROL_HIDDEN, "pad", 1)],
    "transitions": [(rows.BUTTON_TEXT, "path", "by a host")],
    "index": [(rows.SWITCH_ON, "theme", 1)],
}
READ_AS = {("lists", "list"): "Row 0", ("tables", "matrix"): "7", ("typing", "line"): "typed by a host!"}


class GalleryPanel(BenchPanel):
    FOLDER, PROGRAM, PORT = "examples/gallery/gallery", "gallery", 4


def step(panel: Panel, view: str, row: Row[Any], control: str, value: Any, index: int = 0) -> Any:
    at = {"view": view, "control": control, **{name: index for name, _ in row.request}}
    return panel.read(row, **at) if value is None else panel.write(row, value, **at)


class Gallery(unittest.TestCase):
    def test_each_type_with_rows_of_its_own_is_driven(self) -> None:
        driven = {row.name.split(".")[0] for steps in STEPS.values() for row, *_ in steps}
        self.assertEqual({row.name.split(".")[0] for row in ALL_ROWS} - driven, {"system", "view"})

    def test_a_host_walks_all_views_and_drives_what_is_on_them(self) -> None:
        with GalleryPanel(BUILD) as gallery, gallery.open() as panel:
            self.assertIsInstance(panel.event(60), PowerOn)
            for view, steps in STEPS.items():
                with self.subTest(view):
                    panel.write(rows.VIEW_DISPLAY, panel.project.view_id(view))
                    for row, control, value, *request in steps:
                        got = step(panel, view, row, control, value, *request)
                        if (view, control) in READ_AS and value is None:
                            self.assertEqual(got, READ_AS[view, control])
            for language in ("de", "zh", "en"):
                panel.write(rows.SYSTEM_LANGUAGE, language)
            self.assertEqual(panel.read(rows.VIEW_DISPLAYED, layer=0), 1)
        said = [line for line in gallery.log if line.strip() and "work path" not in line]
        self.assertEqual([line for line in said if "err" in line or "cannot" in line or "fail" in line], [])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + [f"Gallery.{name}" for name in sys.argv[1:]])
