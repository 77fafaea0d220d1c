"""Gathers Windows tests from a fake build and runs them; shell scripts fake the programs."""
import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

SCRIPTS = pathlib.Path(__file__).resolve().parents[2] / "tools" / "windows-tests"

# A fake that understands a test program's arguments: -o LOG,txt ARGUMENT...
LOG = 'log=${2%,txt}; echo "log of $0" >"$log"; '
PROGRAMS = {
    "tests/a/test-good.exe": 'printf "%s|%s|%s|%s\\n" "$CORVANTA_TEST_REGISTRY" "$SCALE" "$3" "$4" >>"$RECORD"',
    "tests/a & b/test-bad.exe": "echo output; exit 3",
    "tests/a/test-slow.exe": "echo output; exec sleep 60",
    "tests/a/test-wine.exe": "exit 1",
    "tests/a/child.exe": "exit 0",
    "bin/library.dll": "",
}


class WindowsTestsTest(unittest.TestCase):
    def setUp(self):
        self.directory = tempfile.TemporaryDirectory()
        self.addCleanup(self.directory.cleanup)
        top = pathlib.Path(self.directory.name)
        self.tree, self.target, self.record = top / "tree", top / "gathered", top / "record"
        self.build = self.tree / "build" / "windows"
        shutil.copytree(SCRIPTS, self.tree / "tools" / "windows-tests")
        for name, body in PROGRAMS.items():
            file = self.build / name
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_text(f"#!/bin/sh\n{LOG}{body}\n")
            file.chmod(0o755)
        (self.build / "wine-only").write_text("a.wine\tbecause\n")

    def listed(self, *tests):
        """Makes ctest list tests: name, labels, and command, in which @ is the build directory."""
        listing = {"tests": [{"name": name,
                              "command": [word.replace("@", str(self.build)) for word in command],
                              "properties": [{"name": "LABELS", "value": labels}, {"name": "TIMEOUT", "value": 2.0}]}
                             for name, labels, command in tests]}
        (self.tree / "listing").write_text(json.dumps(listing))
        ctest = self.tree / "path" / "ctest"
        ctest.parent.mkdir()
        ctest.write_text(f"#!/bin/sh\ncat '{self.tree}/listing'\n")
        ctest.chmod(0o755)

    def call(self, script):
        path = f"{self.tree}/path:{os.environ['PATH']}"
        return subprocess.run([sys.executable, self.tree / "tools/windows-tests" / script, self.target],
                              env={**os.environ, "PATH": path, "RECORD": str(self.record)}, text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT)

    def gathered_files(self):
        files = self.target / "files" / self.build.relative_to("/")
        return sorted(str(file.relative_to(files)) for file in files.rglob("*") if file.is_file())

    def test_everything_passes(self):
        under_wine = ["/x/run-under-wine", "@/tests/a/test-good.exe"]
        self.listed(("a.good", ["windows"], under_wine),
                    ("a.case", ["windows"], [*under_wine, "one", "two"]),
                    ("a.scaled", ["windows"], ["/x/cmake", "-E", "env", "SCALE=2", *under_wine]),
                    ("a.wine", ["windows", "wine-only"], ["/x/run-under-wine", "@/tests/a/test-wine.exe"]))
        self.assertEqual(self.call("gather").returncode, 0)
        self.assertEqual(self.gathered_files(), ["bin/library.dll", "tests/a/child.exe", "tests/a/test-good.exe"])

        result = self.call("run")
        self.assertEqual(result.stdout, "passed  a.good\npassed  a.case\npassed  a.scaled\n"
                                        "Left out:\na.wine\tbecause\n\n3 passed, 0 failed\n")
        self.assertEqual(result.returncode, 0)
        key = "Software\\Corvanta tests\\"
        self.assertEqual(self.record.read_text(),
                         f"{key}a.good|||\n{key}a.case||one|two\n{key}a.scaled|2||\n")

    def test_failures(self):
        self.listed(("a.bad", ["windows"], ["/x/run-under-wine", "@/tests/a & b/test-bad.exe"]),
                    ("a.slow", ["windows"], ["/x/run-under-wine", "@/tests/a/test-slow.exe"]))
        self.assertEqual(self.call("gather").returncode, 0)
        files = f"{self.target}/files{self.build}"

        result = self.call("run")
        self.assertEqual(result.stdout,
                         f"FAILED  a.bad\noutput\nlog of {files}/tests/a & b/test-bad.exe\n\nexit code: 3\n"
                         f"FAILED  a.slow\noutput\nlog of {files}/tests/a/test-slow.exe\n\nexit code: none in 2 s\n"
                         "Left out:\na.wine\tbecause\n\n0 passed, 2 failed\n")
        self.assertEqual(result.returncode, 1)

    def test_what_cannot_be_gathered(self):
        for name, command, message in [
            ("a.script", ["/x/run-under-wine", "/x/script.sh"], "it needs the label wine-only"),
            ("a.gone", ["/x/run-under-wine", "@/tests/a/test-gone.exe"], "test-gone.exe"),
        ]:
            with self.subTest(name):
                shutil.rmtree(self.tree / "path", ignore_errors=True)
                shutil.rmtree(self.target, ignore_errors=True)
                self.listed((name, ["windows"], command))
                result = self.call("gather")
                self.assertNotEqual(result.returncode, 0)
                self.assertIn(message, result.stdout)


if __name__ == "__main__":
    unittest.main()
