#!/usr/bin/env python3
"""scripts/check-hosts on a small tree with one thing planted in each."""

import subprocess
import tempfile
import unittest
from pathlib import Path

CHECK = Path(__file__).parents[2] / "scripts" / "check-hosts"

# In two pieces, because the check reads this file, too.
HOST = "mirror.example." + "org"
ADDRESS = "http:/" + "/10.0.0.1"
CLEAN = {
    "docs/licence.txt": "The sources are at https://sqlite.org.\n",
    "src/icon.svg": '<svg xmlns="http://www.w3.org/2000/svg"/>\n',
    "src/grid.cpp": "grid.context(); grid.common(); // 网格 COM, .NET\n",
    "scripts/fetch": 'apt-get update; npm pack sources; echo "$protocol://$host"\n',
    "build/fetched.txt": HOST + "\n",
}


def check(changes):
    """Exit code and output of the check on the clean tree with `changes` (path: text)."""
    with tempfile.TemporaryDirectory() as folder:
        for path, text in {**CLEAN, **changes}.items():
            file = Path(folder) / path
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_text(text, encoding="utf-8")
        result = subprocess.run([CHECK, folder], capture_output=True, check=False, text=True)
        return result.returncode, result.stdout + result.stderr


class CheckHosts(unittest.TestCase):
    def assert_refused(self, path, text, place):
        self.assertEqual(check({path: text}), (1, place + "\n"))

    def test_accepts_the_clean_tree(self):
        self.assertEqual(check({}), (0, ""))

    def test_refuses_a_host_in_a_script(self):
        self.assert_refused("scripts/fetch", f"\ndeb {HOST} main\n", f"scripts/fetch:2: the host {HOST}")

    def test_refuses_a_host_in_a_chinese_text(self):
        self.assert_refused("docs/guide.md", f"下载{HOST}。\n", f"docs/guide.md:1: the host {HOST}")

    def test_refuses_an_address_by_number(self):
        self.assert_refused("cmake/fetch.cmake", f'file(DOWNLOAD "{ADDRESS}:8080/x")\n',
                            f"cmake/fetch.cmake:1: the host {ADDRESS}")

    def test_refuses_another_host_of_a_known_one(self):
        host = "sqlite.org." + HOST
        self.assert_refused("docs/licence.txt", f"https://{host}/x\n", f"docs/licence.txt:1: the host https://{host}")

    def test_names_each_host_of_a_line(self):
        self.assert_refused("scripts/fetch", f"{HOST} a.{HOST}\n",
                            f"scripts/fetch:1: the host {HOST}\nscripts/fetch:1: the host a.{HOST}")


if __name__ == "__main__":
    unittest.main()
