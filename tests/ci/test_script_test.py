"""Calls ./test -R in a made-up tree whose build copies shell scripts."""
import os
import subprocess
import unittest

from made_up_tree import MadeUpTreeTest

TIERS = ("host", "windows")

FILES = {
    "CMakePresets.json": """{
  "version": 5,
  "configurePresets": [
    {"name": "host", "generator": "Ninja", "binaryDir": "${sourceDir}/build/host"},
    {"name": "fuzz", "inherits": "host", "binaryDir": "${sourceDir}/build/fuzz"},
    {"name": "windows", "inherits": "host", "binaryDir": "${sourceDir}/build/windows"}
  ],
  "buildPresets": [
    {"name": "host", "configurePreset": "host"},
    {"name": "fuzz", "configurePreset": "fuzz"},
    {"name": "windows", "configurePreset": "windows"}
  ],
  "testPresets": [
    {"name": "host", "configurePreset": "host"},
    {"name": "fuzz", "configurePreset": "fuzz", "filter": {"include": {"label": "^fuzz$"}}},
    {"name": "windows", "configurePreset": "windows"}
  ]
}
""",
    "CMakeLists.txt": """cmake_minimum_required(VERSION 3.25)
project(made-up LANGUAGES NONE)
enable_testing()
file(WRITE "${CMAKE_BINARY_DIR}/facts" "")
get_filename_component(tier "${CMAKE_BINARY_DIR}" NAME)
file(MAKE_DIRECTORY "${CMAKE_BINARY_DIR}/a" "${CMAKE_BINARY_DIR}/bin")
function(copied target path)
  set(path "${CMAKE_BINARY_DIR}/${path}")
  add_custom_command(OUTPUT "${path}" COMMAND ${CMAKE_COMMAND} -E copy "${CMAKE_SOURCE_DIR}/${target}" "${path}")
  add_custom_target(${target} ALL DEPENDS "${path}")
endfunction()
foreach(name IN ITEMS good bad unbuildable)
  copied(${name} a/${name})
  add_test(NAME a.${name} COMMAND "${CMAKE_BINARY_DIR}/a/${name}")
endforeach()
copied(demo bin/demo-program)
if(tier STREQUAL "fuzz")
  add_test(NAME fuzz.good COMMAND "${CMAKE_BINARY_DIR}/a/good")
  set_tests_properties(fuzz.good PROPERTIES LABELS fuzz)
elseif(tier STREQUAL "windows")
  add_test(NAME b.shown COMMAND "${CMAKE_SOURCE_DIR}/shown" "${CMAKE_BINARY_DIR}/bin")
else()
  add_test(NAME b.read COMMAND "${CMAKE_SOURCE_DIR}/good")
endif()
""",
    "good": "#!/bin/sh\n",
    "bad": "#!/bin/sh\nexit 1\n",
    "demo": "#!/bin/sh\n",
    # With TEST_RESULTS set, tests that have passed would not be run.
    "shown": "#!/bin/sh\n[ -z \"$TEST_RESULTS\" ] && [ -d \"$TEST_SESSIONS\" ] && exec \"$1/demo-program\"\n",
    "tests/support/end-wine-sessions": "#!/bin/sh\nrmdir \"$1\"\n",
    "tools/packages": "dpkg\n",
    ".gitignore": "/build/\n",
    "tools/qt-windows/build": "#!/bin/sh\necho /nonexistent\n",
}

CASES = [
    # arguments, exit code, end of the output
    (["-R", "a.good", "host"], 0, "No fuzz test matches 'a.good'\n1 passed, 0 failed"),
    (["-R", "good", "host"], 0, "2 passed, 0 failed"),
    (["-R", "^fuzz"], 0, "No windows test matches '^fuzz'\n1 passed, 0 failed"),
    (["-R", "^fuzz", "windows"], 1, "test: no test matches '^fuzz'"),
    (["-R", "a.good|shown"], 0, "3 passed, 0 failed"),
    (["--again", "-R", "shown", "windows"], 0, "1 passed, 0 failed"),
    (["windows", "-R", "good|bad"], 1, "1 passed, 1 failed"),
    (["-R", "read"], 0, "No windows test matches 'read'\n1 passed, 0 failed"),
    (["-R", "other"], 1, "test: no test matches 'other'"),
    (["-R", "(", "host"], 1, "test: '(' is not a regular expression"),
    (["-R", "unbuildable", "host"], 1, "test: the host build does not compile; the compiler's messages are above"),
    (["-R"], 2, "test: -R needs a regular expression; see --help"),
    (["-R", ""], 2, "test: -R needs a regular expression; see --help"),
    (["-r", "good"], 2, "test: unknown argument '-r'; see --help"),
    (["host", "windows"], 2, "test: name one tier, or none for both; see --help"),
]


class TestScriptTest(MadeUpTreeTest):
    def setUp(self):
        super().setUp()
        self.write(FILES)
        self.copy("test", "tools/common")
        self.temporary = self.tree / "build" / "temporary"
        self.temporary.mkdir(parents=True)
        # Results are only remembered in a repository.
        subprocess.run(["git", "init", "-q", self.tree], check=True)

    def call(self, *arguments):
        environment = {name: value for name, value in os.environ.items() if name != "TEST_RESULTS"}
        environment["TMPDIR"] = str(self.temporary)
        return subprocess.run([self.tree / "test", *arguments], env=environment, text=True, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT)

    def test_calls(self):
        for arguments, status, said in CASES:
            with self.subTest(arguments=arguments):
                result = self.call(*arguments)
                self.assertTrue(result.stdout.endswith(f"{said}\n"), result.stdout)
                self.assertEqual(result.returncode, status)
                self.assertEqual(list(self.temporary.iterdir()), [], "sessions of Wine have not been ended")

    def test_common_registry(self):
        self.write({"tests/support/end-wine-sessions": "#!/bin/sh\nrmdir \"$1\"\nexit 1\n"})
        result = self.call("-R", "good", "windows")
        self.assertTrue(result.stdout.endswith("test: the Windows tests disturb each other; see above\n"), result.stdout)
        self.assertEqual(result.returncode, 1)

    def test_builds_what_it_runs(self):
        self.call("-R", "good")
        for tier in TIERS:
            built = [file.name for folder in ("a", "bin") for file in (self.tree / "build" / tier / folder).iterdir()]
            self.assertEqual(built, ["good"])

    def test_help(self):
        result = self.call("--help")
        self.assertIn("\n  -R PATTERN ", result.stdout)
        self.assertEqual(result.returncode, 0)


if __name__ == "__main__":
    unittest.main()
