"""The snippets of the reference: its project checks clean, its C program runs, and each Python snippet is executed by it.

usage: reference_test.py BUILD_FOLDER
"""
from __future__ import annotations

import importlib.util
import re
import subprocess
import sys
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).parent))
from bench_panel import BenchPanel  # noqa: E402

BUILD = Path(sys.argv.pop()).resolve()
REFERENCE = BUILD / "reference"


class ReferencePanel(BenchPanel):
    FOLDER, PROGRAM, PORT = "reference/panel", "../../reference_panel", 4


class Snippets(unittest.TestCase):
    def test_check_finds_nothing_in_the_json(self) -> None:
        check = subprocess.run([BUILD / "tools" / "zof", "check", "--strict", REFERENCE / "panel"], capture_output=True, text=True)
        self.assertEqual((check.returncode, check.stdout), (0, ""))

    def test_c_and_python_drive_the_controls_of_their_pages(self) -> None:
        spec = importlib.util.spec_from_file_location("snippets", REFERENCE / "code" / "snippets.py")
        snippets = importlib.util.module_from_spec(spec)
        spec.loader.exec_module(snippets)
        shown = [line for line in (REFERENCE / "panel" / "session").read_text().splitlines() if line.startswith("view")]
        script = "\nwait 1\n".join(shown) + "\nwait 1\nprint 1 1\n"
        with ReferencePanel(str(BUILD), script) as panel:
            self.assertEqual(panel.wait_log("1/1: (.*)")[1], "12.05 V")
            with panel.open() as host:
                names = [name for name, value in vars(snippets).items() if callable(value)]
                self.assertEqual(len(names), len(shown))
                for view in host.project.views:
                    self.assertIn(view.name, [control.type for control in view.controls])
                for name in names:
                    with self.subTest(name):
                        getattr(snippets, name)(host)
        self.assertEqual([line for line in panel.log if re.search("zof_|res/.*:|cannot", line)], [])


if __name__ == "__main__":
    unittest.main()
