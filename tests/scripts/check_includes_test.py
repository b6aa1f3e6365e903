#!/usr/bin/env python3
"""scripts/check-includes on small trees with one thing planted in each."""

import contextlib
import importlib.machinery
import importlib.util
import io
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

CHECK = Path(__file__).parents[2] / "scripts" / "check-includes"
sys.dont_write_bytecode = True
loader = importlib.machinery.SourceFileLoader("check_includes", str(CHECK))
check_includes = importlib.util.module_from_spec(
    importlib.util.spec_from_loader("check_includes", loader))
loader.exec_module(check_includes)

CLEAN = {
    "src/platform/text.h": "#include <string>\n",
    "src/platform/text.cpp": '#include "platform/text.h"\n',
    "src/env/messages.h": '#include "platform/text.h"\n',
    "src/print/page.h": '#include "env/messages.h"\n',
    "src/editor/save.h": '#include "env/messages.h"\n',
    "src/browser/class_tree.h": '#include "editor/save.h"\n#include "print/page.h"\n',
    "src/control/price_down.h": '#include "browser/class_tree.h"\n',
    "src/windows/com/bstr.h": '#include <windows.h>\n#include "platform/text.h"\n',
    "src/windows/base/fonts.h": '#include "windows/com/bstr.h"\n',
    "src/windows/grid/grid_window.h": '#include "windows/base/fonts.h"\n',
    "src/windows/print/printer.h": '#include "windows/base/fonts.h"\n',
    "src/windows/control/tree_window.h": '#include "windows/grid/grid_window.h"\n',
    "src/windows/server/module.h": '#include "windows/control/tree_window.h"\n',
    "workbench/company/schema.h": "#include <sqlite3.h>\n",
}


def check(changes):
    """Exit code and output of the check on the clean tree with `changes` (path: text)."""
    with tempfile.TemporaryDirectory() as folder:
        for path, text in {**CLEAN, **changes}.items():
            file = Path(folder) / path
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_text(text, encoding="utf-8")
        output = io.StringIO()
        with contextlib.redirect_stdout(output):
            code = check_includes.main(Path(folder))
        return code, output.getvalue()


class CheckIncludes(unittest.TestCase):
    def assert_refused(self, path, include, reason):
        code, output = check({path: f"#include {include}\n"})
        self.assertIn(f"{path}:1: {reason}\n", output)
        self.assertIn("\n1 violations\n", output)
        self.assertEqual(code, 1)

    def test_accepts_the_clean_tree(self):
        self.assertEqual(check({}), (0, ""))

    def test_refuses_includes_that_point_up(self):
        for path, header in [
            ("src/platform/value.h", "store/tables.h"),
            ("src/store/tables.h", "env/messages.h"),
            ("src/env/rights.h", "print/page.h"),
            ("src/print/column.h", "editor/save.h"),
            ("src/editor/check.h", "browser/class_tree.h"),
            ("src/browser/cell.h", "control/price_down.h"),
            ("src/windows/com/variant.h", "windows/base/fonts.h"),
            ("src/windows/com/variant.h", "windows/server/module.h"),
            ("src/windows/base/dpi.h", "windows/grid/grid_window.h"),
            ("src/windows/base/dpi.h", "windows/print/printer.h"),
            ("src/windows/grid/painter.h", "windows/control/tree_window.h"),
            ("src/windows/control/place.h", "windows/server/module.h"),
        ]:
            with self.subTest(path=path, header=header):
                source, target = Path(path).parent, Path(header).parent
                self.assert_refused(path, f'"{header}"',
                                    f"{source.relative_to('src')} may not include {target}")

    def test_refuses_includes_past_a_component_that_is_not_its_own(self):
        self.assert_refused("src/print/column.h", '"store/tables.h"',
                            "print may not include store")
        self.assert_refused("src/editor/check.h", '"print/page.h"',
                            "editor may not include print")
        self.assert_refused("src/windows/com/variant.h", '"env/messages.h"',
                            "windows/com may not include env")
        self.assert_refused("src/windows/base/dpi.h", '"browser/class_tree.h"',
                            "windows/base may not include browser")

    def test_refuses_includes_sideways_in_the_skin(self):
        skin = ["control", "editor", "print"]
        for source, target in [(s, t) for s in skin for t in skin if s != t]:
            with self.subTest(source=source, target=target):
                self.assert_refused(f"src/windows/{source}/new.h", f'"windows/{target}/x.h"',
                                    f"windows/{source} may not include windows/{target}")

    def test_refuses_in_the_skin_what_belongs_to_another_window(self):
        for source, target in [("editor", "windows/grid"), ("print", "windows/grid"),
                               ("editor", "browser"), ("print", "control"), ("control", "editor")]:
            with self.subTest(source=source, target=target):
                self.assert_refused(f"src/windows/{source}/new.h", f'"{target}/x.h"',
                                    f"windows/{source} may not include {target}")

    def test_refuses_the_skin_and_the_system_in_the_core(self):
        self.assert_refused("src/control/new.h", '"windows/com/bstr.h"',
                            "control may not include windows/com")
        for header in ["windows.h", "unistd.h", "sys/stat.h"]:
            self.assert_refused("src/store/new.h", f"<{header}>",
                                "the core includes the C++ standard library alone")

    def test_refuses_third_parties_and_the_workbench_in_the_library(self):
        for header in ["sqlite3.h", "nlohmann/json.hpp", "utf8.h", "CLI/CLI.hpp", "wx/app.h"]:
            self.assert_refused("src/windows/server/new.h", f"<{header}>",
                                "not among the Windows headers that the library uses")
        self.assert_refused("src/windows/server/new.h", '"workbench/company/schema.h"',
                            "windows/server may not include workbench/company")

    def test_refuses_what_a_workbench_folder_may_not_know(self):
        self.assert_refused("workbench/company/new.h", '"platform/text.h"',
                            "workbench/company may not include platform")
        self.assert_refused("workbench/passwords/new.h", '"workbench/company/schema.h"',
                            "workbench/passwords may not include workbench/company")
        self.assert_refused("workbench/suite/new.h", "<Windows.h>",
                            "workbench/suite is built natively too")

    def test_accepts_of_the_forms_windows_only_their_ids_in_the_host(self):
        for ids, other in [("windows/editor/form_ids.h", "windows/editor/form_window.h"),
                           ("windows/print/preview_ids.h", "windows/print/printer.h")]:
            with self.subTest(ids=ids):
                self.assertEqual(check({"workbench/host/tour.cpp": f'#include "{ids}"\n'}), (0, ""))
                self.assert_refused("workbench/host/tour.cpp", f'"{other}"',
                                    f"workbench/host may not include {Path(other).parent}")
                self.assert_refused("workbench/suite/new.h", f'"{ids}"',
                                    f"workbench/suite may not include {Path(ids).parent}")

    def test_refuses_unknown_headers_folders_and_forms(self):
        self.assert_refused("src/env/new.h", '"rights.h"',
                            "not the header of a component; write COMPONENT/FILE.h")
        self.assert_refused("src/env/new.h", "HEADER",
                            "an include of neither a quoted nor a system header")
        self.assert_refused("src/windows/new/new.h", "<string>", "a file outside all components")

    def test_finds_a_circle_of_two_files(self):
        code, output = check({
            "src/browser/item_grid.h": "",
            "src/browser/item_grid.cpp": '#include "browser/class_tree.h"\n',
            "src/browser/class_tree.h": '#include "browser/item_grid.h"\n',
        })
        self.assertEqual(code, 1)
        self.assertIn("files that include each other in a circle:\n"
                      "    src/browser/class_tree.h:1: browser/class_tree -> browser/item_grid\n"
                      "    src/browser/item_grid.cpp:1: browser/item_grid -> browser/class_tree\n"
                      "1 violations\n", output)

    def test_finds_a_circle_of_three_files_and_names_those_alone(self):
        code, output = check({
            "src/store/a.cpp": '#include "store/b.h"\n',
            "src/store/b.cpp": '#include "store/c.h"\n#include "store/d.h"\n',
            "src/store/c.cpp": '#include "store/a.h"\n',
            "src/store/d.h": "",
        })
        self.assertEqual(code, 1)
        self.assertIn("    src/store/b.cpp:1: store/b -> store/c\n", output)
        self.assertNotIn("store/d", output)

    def test_fails_on_a_tree_without_sources(self):
        with tempfile.TemporaryDirectory() as folder:
            done = subprocess.run([CHECK, folder], capture_output=True, text=True, check=False)
        self.assertEqual(done.returncode, 1)
        self.assertIn("no sources", done.stderr)


if __name__ == "__main__":
    unittest.main()
