#!/usr/bin/env python3
"""What packaging/checks/executables says about bad executables: patched copies of ours.

    executables_check_test.py CHECK DIRECTORY FACTS
"""

import importlib.machinery
import importlib.util
import os
import struct
import sys
import unittest
import unittest.mock
from pathlib import Path

sys.dont_write_bytecode = True
check_path, directory, facts_path = map(Path, sys.argv[1:])
loader = importlib.machinery.SourceFileLoader("executables", str(check_path))
check = importlib.util.module_from_spec(importlib.util.spec_from_loader("executables", loader))
loader.exec_module(check)

HUEBOX = (directory / "huebox.exe").read_bytes()
PROGRAM = (directory / "corvanta.exe").read_bytes()
FACTS = check.read_facts(facts_path)
RELEASE_FACTS = {key: value.replace(".example", ".test") for key, value in FACTS.items()}
BUILD = "/somewhere/with builds"


def header(data):
    return struct.unpack_from("<I", data, 0x3C)[0]


def number(offset, form, change):
    """A patch of the number at `offset` from the PE header on."""
    def patch(data):
        patched = bytearray(data)
        place = header(data) + offset
        value, = struct.unpack_from(form, data, place)
        struct.pack_into(form, patched, place, change(value))
        return bytes(patched)
    return patch


def text(old, new):
    """A patch of the only occurrence of `old`, of the same length."""
    def patch(data):
        assert len(old) == len(new) and data.count(old) == 1, (old, new, data.count(old))
        return data.replace(old, new)
    return patch


def appended(more):
    return lambda data: data + more


def without(flag):
    return lambda value: value & ~flag


OPTIONAL = 24
FIRST_SECTION = OPTIONAL + 240
SETTINGS_FINDING = "the manifest's settings are "

# The changes, and how the findings begin.
PATCHES = {
    "nothing": (lambda data: data, []),
    "machine": (number(4, "<H", lambda _: 0x14C), ["it is not for x86-64 but for machine 0x14c"]),
    "high entropy": (number(OPTIONAL + 70, "<H", without(0x20)), ["it is not linked with --high-entropy-va"]),
    "dynamic base": (number(OPTIONAL + 70, "<H", without(0x40)), ["it is not linked with --dynamicbase"]),
    "data execution": (number(OPTIONAL + 70, "<H", without(0x100)), ["it is not linked with --nxcompat"]),
    "terminal server": (number(OPTIONAL + 70, "<H", without(0x8000)), ["it is not linked with --tsaware"]),
    "relocations said to be gone": (number(22, "<H", lambda value: value | 1), ["it has no relocations"]),
    "relocations gone": (number(OPTIONAL + 112 + 8 * 5, "<I", lambda _: 0), ["it has no relocations"]),
    "small addresses": (number(22, "<H", without(0x20)), ["it does not take addresses above 2 GB"]),
    "subsystem": (number(OPTIONAL + 68, "<H", lambda _: 2), ["its subsystem is 2 and not 3"]),
    "subsystem version": (number(OPTIONAL + 50, "<H", lambda _: 0), ["the subsystem version is 6.0 and not 6.1"]),
    "system version": (number(OPTIONAL + 40, "<H", lambda _: 4), ["the system version is 4.1 and not 6.1"]),
    "later Windows": (number(OPTIONAL + 48, "<H", lambda _: 10), []),
    "section": (number(FIRST_SECTION + 36, "<I", lambda value: value | 0x80000000),
                ["the section .text can be both written and executed"]),
    "import": (text(b"SHELL32.dll", b"CRYPTSP.dll"), ["it imports CRYPTSP.dll, which is not in the list"]),
    "no imports": (number(OPTIONAL + 112 + 8 * 1, "<I", lambda _: 0), ["it imports nothing"]),
    "rights": (text(b'level="asInvoker"', b'level="asInvader"'), ["the manifest asks for [('asInvader', 'false')]"]),
    "access to other windows": (text(b'uiAccess="false"', b'uiAccess="yesss"'),
                                ["the manifest asks for [('asInvoker', 'yesss')]"]),
    "scale": (text(b"true/pm", b"true   "), [SETTINGS_FINDING]),
    "scale of each screen": (text(b"PerMonitorV2, ", b"              "), [SETTINGS_FINDING]),
    "long paths": (text(b">true</longPathAware>", b">fals</longPathAware>"), [SETTINGS_FINDING]),
    "manifest's end": (text(b"</assembly>", b"<assembly/>"), ["the manifest is no XML"]),
    "resources": (number(OPTIONAL + 112 + 8 * 2, "<I", lambda _: 0),
                  ["it has 0 manifests", "it has 0 version resources"]),
    "description": (text("coloured".encode("utf-16-le"), "colorful".encode("utf-16-le")),
                    ["the version resource's FileDescription is 'Prints a colorful line' and not"]),
    "path": (appended(b"\0" + BUILD.encode() + b"/app/main.cpp\0"),
             [f"it holds a path of the machine that built it: {BUILD}/app/main.cpp"]),
    "path at an odd place in UTF-16": (lambda data: data + b"\0" * (1 + len(data) % 2) + BUILD.encode("utf-16-le"),
                                       [f"it holds a path of the machine that built it: {BUILD}"]),
    "path that is another": (appended(b"\0" + BUILD.encode() + b"2\0"), []),
    "temporary file": (appended(b"\0/tmp/cc0123.s\0"), ["it holds a path of the machine that built it: /tmp/cc0123.s"]),
    "end of another path": (appended(b"\0C:/tmp\0../tmp/x\0"), []),
    "example": (appended(b"\0http://www.quorvik.example/\0"),
                ["it holds an address reserved for examples: http://www.quorvik.example/"]),
    "examples": (appended(b"\0HALCON.examples\0"), []),
    "end of the file": (lambda data: data[:0x100], ["the file is cut off"]),
    "beginning of the file": (lambda data: b"#!" + data[2:], ["the file does not begin as an executable does"]),
}

# The changed fact, and the findings.
OTHER_FACTS = {
    "publisher": ["the version resource's CompanyName is "],
    "copyright": ["the version resource's LegalCopyright is "],
    "name": ["the version resource's ProductName is "],
}


class ExecutablesCheckTest(unittest.TestCase):

    def assert_findings(self, found, beginnings):
        found = list(found)
        self.assertEqual([finding[:len(beginning)] for finding, beginning in zip(found, beginnings)], beginnings)
        self.assertEqual(len(found), len(beginnings), found)

    def test_patched_copies(self):
        for name, (patch, beginnings) in PATCHES.items():
            with self.subTest(name):
                self.assert_findings(
                    check.findings("huebox.exe", patch(HUEBOX), RELEASE_FACTS, ["/tmp", BUILD]), beginnings)

    def test_other_facts(self):
        for fact, beginnings in OTHER_FACTS.items():
            with self.subTest(fact):
                self.assert_findings(
                    check.findings("huebox.exe", HUEBOX, {**RELEASE_FACTS, fact: "another"}, []), beginnings)

    def test_other_version(self):
        self.assert_findings(
            check.findings("huebox.exe", HUEBOX, {**RELEASE_FACTS, "version": "4.3.2"}, []),
            ["the file version is ", "the product version is ",
             "the version resource's FileVersion is ", "the version resource's ProductVersion is "])

    def test_another_program(self):
        found = list(check.findings("qz_com_helper.exe", HUEBOX, RELEASE_FACTS, []))
        self.assertIn("its subsystem is 3 and not 2", found)
        self.assertIn("the manifest asks for [('asInvoker', 'false')] and not for requireAdministrator without uiAccess",
                      found)
        found = list(check.findings("huebox.exe", PROGRAM, RELEASE_FACTS, []))
        self.assertIn("the manifest names the assemblies ['Microsoft.Windows.Common-Controls 6.0.0.0'] and not []", found)

    def test_forbidden_paths(self):
        places = {"XDG_CACHE_HOME": "/srv/caches", "QT_WINDOWS_PREFIX": "/opt/static Qt"}
        with unittest.mock.patch.dict(os.environ, places):
            self.assertLessEqual({*places.values(), BUILD}, set(check.forbidden_paths([BUILD])))
        with unittest.mock.patch.dict(os.environ, dict.fromkeys(places, "")):
            self.assertFalse(set(places.values()) & set(check.forbidden_paths([])))

    def test_addresses_reserved_for_examples(self):
        if RELEASE_FACTS == FACTS:
            self.skipTest("the addresses are real ones")
        self.assertEqual(list(check.examples(PROGRAM, FACTS)), [])
        self.assertTrue(any(FACTS["web_domain"] in finding for finding in check.examples(PROGRAM, RELEASE_FACTS)))


unittest.main(argv=sys.argv[:1])
