#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Tests check_includes.py on a small tree of right and wrong includes.

Every wrong line of tests/fixtures/includes ends in `// wrong`. The check must report exactly these lines.
"""

import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

HERE = Path(__file__).resolve().parent
FIXTURE = HERE / "fixtures" / "includes"


def run_check(root):
    command = [sys.executable, str(HERE / "check_includes.py"), str(root)]
    return subprocess.run(command, capture_output=True, text=True, check=False)


def marked_lines():
    for path in FIXTURE.rglob("*"):
        if path.is_file():
            for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), start=1):
                if line.endswith("// wrong"):
                    yield f"{path.relative_to(FIXTURE).as_posix()}:{number}"


class CheckIncludesTest(unittest.TestCase):
    def test_names_the_wrong_includes_and_no_others(self):
        result = run_check(FIXTURE)
        named = re.findall(r"^(\S+:\d+): ", result.stdout, flags=re.MULTILINE)
        self.assertEqual(sorted(named), sorted(marked_lines()))
        self.assertGreater(len(named), 0)
        self.assertEqual(result.returncode, 1, result.stderr)

    def test_passes_a_tree_of_right_includes(self):
        with tempfile.TemporaryDirectory() as root:
            Path(root, "ui").mkdir()
            Path(root, "ui", "Popup.h").write_text("#include <QDialog>\n", encoding="utf-8")
            result = run_check(root)
        self.assertEqual(result.returncode, 0, result.stdout + result.stderr)

    def test_does_not_pass_a_tree_without_sources(self):
        with tempfile.TemporaryDirectory() as root:
            self.assertEqual(run_check(root).returncode, 2)


if __name__ == "__main__":
    unittest.main()
