#!/usr/bin/env python3
"""scripts/check-guides on a small tree with one wrong name planted in each."""

import subprocess
import tempfile
import unittest
from pathlib import Path

CHECK = Path(__file__).parents[2] / "scripts" / "check-guides"

# The check requires more than 100 rows of tests.
ROWS = 101
CLEAN = {
    "README.md": "See `docs/guide.md`, `browser/grid.h`, `grid.h`, `browser/gr*.h` and `grid.*`.\n",
    "src/browser/grid.h": "",
    "src/browser/grid.cpp": "",
    "src/browser/README.md": "Start at `grid.h`.\n",
    "tests/browser/grid_test.cpp": "TEST(Grid, HoldsTexts) {}\nTEST_F(GridTest, HasRows) {}\n",
    "docs/guide.md": "`Grid.HoldsTexts`, `GridTest.*` and `windows.h`, made by `ZEPBase.Profile`.\n",
    "docs/behaviour-notes.md": "- **G1** Cells hold texts.\n",
    "docs/behaviour-tests.md": "- **G1**\n" +
        "  - `tests/browser/grid_test.cpp`: `Grid.HoldsTexts`\n" * ROWS,
}


def check(changes):
    """Exit code and output of the check on the clean tree with `changes` (path: appended text)."""
    with tempfile.TemporaryDirectory() as folder:
        for path in {**CLEAN, **changes}:
            file = Path(folder) / path
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_text(CLEAN.get(path, "") + changes.get(path, ""), encoding="utf-8")
        result = subprocess.run([CHECK, folder], capture_output=True, check=False, text=True)
        return result.returncode, result.stdout + result.stderr


class CheckGuides(unittest.TestCase):
    def assert_refused(self, path, text, reason):
        self.assertEqual(check({path: text}), (1, reason + "\n"))

    def test_accepts_the_clean_tree(self):
        self.assertEqual(check({}), (0, ""))

    def test_refuses_a_test_that_does_not_exist(self):
        self.assert_refused("docs/guide.md", "`Grid.HasRows`", "a guide names the test Grid.HasRows")

    def test_refuses_a_suite_without_tests(self):
        self.assert_refused("docs/guide.md", "`Gri.*`", "a guide names the test Gri.*")

    def test_refuses_a_test_that_its_file_does_not_have(self):
        self.assert_refused("docs/behaviour-tests.md", "  - `src/browser/grid.h`: `GridTest.HasRows`\n",
                            "docs/behaviour-tests.md: no test GridTest.HasRows in src/browser/grid.h")

    def test_refuses_a_note_without_tests(self):
        self.assert_refused("docs/behaviour-notes.md", "- **G2** Cells are locked.\n",
                            "behaviour notes and their tests do not pair up: **G2**")

    def test_refuses_a_missing_file_without_its_folder(self):
        self.assert_refused("docs/guide.md", "`rid.h`", "a guide names the file rid.h")

    def test_refuses_a_missing_file_in_a_folder_of_a_component(self):
        self.assert_refused("docs/guide.md", "`editor/grid.h`", "a guide names the file editor/grid.h")

    def test_refuses_a_missing_file_with_any_ending(self):
        self.assert_refused("docs/guide.md", "`browser/cell.*`", "a guide names the file browser/cell.*")

    def test_refuses_a_missing_folder(self):
        self.assert_refused("docs/guide.md", "`src/editor`", "a guide names src/editor")

    def test_reads_the_readme_of_a_component(self):
        self.assert_refused("src/browser/README.md", "`cell.h`", "a guide names the file cell.h")


if __name__ == "__main__":
    unittest.main()
