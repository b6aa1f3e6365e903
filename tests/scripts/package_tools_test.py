#!/usr/bin/env python3
"""scripts/bill-of-materials, and scripts/sign with a throw-away certificate."""

import json
import os
import subprocess
import tempfile
import unittest
from pathlib import Path

SCRIPTS = Path(__file__).parents[2] / "scripts"
PASSWORD = "throw-away"


def run(*command, **options):
    return subprocess.run(command, check=True, capture_output=True, **options)


class BillOfMaterials(unittest.TestCase):
    def bill(self):
        return run(SCRIPTS / "bill-of-materials", "1.2.3").stdout

    def test_returns_the_same_bytes_each_time(self):
        self.assertEqual(self.bill(), self.bill())

    def test_names_each_component_with_version_and_licence(self):
        bill = json.loads(self.bill())
        self.assertEqual(bill["bomFormat"], "CycloneDX")
        self.assertEqual(bill["metadata"]["component"]["version"], "1.2.3")
        names = {component["name"] for component in bill["components"]}
        self.assertEqual(names, {"GCC runtime libraries", "mingw-w64 runtime", "utfcpp", "CLI11",
                                 "JSON for Modern C++", "SQLite amalgamation"})
        for component in bill["components"]:
            self.assertTrue(component["version"], component["name"])
            self.assertTrue(component["licenses"], component["name"])

    def test_has_the_pinned_version_of_sqlite(self):
        pinned = (SCRIPTS / "fetch-sqlite").read_text(encoding="utf-8")
        sqlite = [one for one in json.loads(self.bill())["components"] if "SQLite" in one["name"]]
        self.assertIn("version=" + sqlite[0]["version"], pinned)


class Sign(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        run("openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2", "-subj",
            "/CN=throw-away", "-keyout", "key.pem", "-out", "certificate.pem", cwd=self.folder)
        run("openssl", "pkcs12", "-export", "-inkey", "key.pem", "-in", "certificate.pem", "-out",
            "certificate.p12", "-passout", "pass:" + PASSWORD, cwd=self.folder)
        (self.folder / "program.c").write_text("int main(void) { return 0; }\n", encoding="utf-8")
        run("x86_64-w64-mingw32-gcc-posix", "-o", "program.exe", "program.c", cwd=self.folder)

    def sign(self, password):
        return subprocess.run([SCRIPTS / "sign", "certificate.p12", "program.exe"],
                              cwd=self.folder, capture_output=True, check=False,
                              env={**os.environ, "PRICEDOWN_CERT_PASSWORD": password})

    def verifies(self):
        return subprocess.run(["osslsigncode", "verify", "-CAfile", "certificate.pem", "-in",
                               "program.exe"], cwd=self.folder, capture_output=True,
                              check=False).returncode == 0

    def test_gives_a_program_a_signature_that_verifies(self):
        self.assertFalse(self.verifies())
        mode = (self.folder / "program.exe").stat().st_mode
        self.assertEqual(self.sign(PASSWORD).returncode, 0)
        self.assertTrue(self.verifies())
        self.assertEqual((self.folder / "program.exe").stat().st_mode, mode)

    def test_leaves_the_program_alone_with_a_wrong_password(self):
        before = (self.folder / "program.exe").read_bytes()
        self.assertNotEqual(self.sign("wrong").returncode, 0)
        self.assertEqual((self.folder / "program.exe").read_bytes(), before)
        self.assertEqual(list(self.folder.glob("*.signed")), [])


if __name__ == "__main__":
    unittest.main()
