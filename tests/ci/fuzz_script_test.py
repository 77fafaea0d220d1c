"""Calls ./fuzz in a made-up tree whose fuzzers are shell scripts."""
import subprocess
import unittest

from made_up_tree import MadeUpTreeTest

FILES = {
    "CMakePresets.json": """{
  "version": 5,
  "configurePresets": [{"name": "fuzz", "generator": "Ninja", "binaryDir": "${sourceDir}/build/fuzz"}],
  "buildPresets": [{"name": "fuzz", "configurePreset": "fuzz"}]
}
""",
    "CMakeLists.txt": """cmake_minimum_required(VERSION 3.25)
project(made-up LANGUAGES NONE)
add_custom_target(fuzzers)
foreach(name IN ITEMS good-one bad lazy)
  add_custom_target(${name} COMMAND ${CMAKE_COMMAND} -E copy "${CMAKE_SOURCE_DIR}/${name}"
                                    "${CMAKE_BINARY_DIR}/tests/fuzz/${name}-fuzzer")
  add_dependencies(fuzzers ${name})
endforeach()
""",
    # libFuzzer adds new inputs to the first directory, which is the last argument but one.
    "good-one": """#!/bin/sh
echo "$@" >"$(dirname "$0")/arguments"
for each; do before=$last; last=$each; done
echo new >"$before/input"
echo stat::number_of_executed_units: 7
""",
    "bad": """#!/bin/sh
echo '#1 NEW'
echo 'Does not hold: something'
echo "artifact_prefix='x'; Test unit written to /x/bad-crash-1"
exit 77
""",
    "lazy": "#!/bin/sh\n",
    "tests/fuzz/corpus/good_one/a": "a",
    "tests/fuzz/corpus/bad/a": "a",
    "tests/fuzz/corpus/lazy/a": "a",
    "tests/fuzz/good_one.dict": "",
    "tools/packages": "dpkg\n",
}

CASES = [
    # arguments, exit code, the output's lines in any order
    (["1", "good_one"], 0, ["good_one: 7 inputs, no failure"]),
    (["1", "lazy"], 1, ["lazy: has not even run its corpus"]),
    (["2", "good_one", "bad"], 1,
     ["good_one: 7 inputs, no failure", "Does not hold: something",
      "artifact_prefix='x'; Test unit written to /x/bad-crash-1",
      "bad: FAILED with exit code 77, at the input /x/bad-crash-1",
      "Again: QT_QPA_PLATFORM=offscreen {quoted}/build/fuzz/tests/fuzz/bad-fuzzer /x/bad-crash-1"]),
    ([], 2, ["fuzz: for how many minutes, from 1 to 99999?; see --help"]),
    (["0"], 2, ["fuzz: for how many minutes, from 1 to 99999?; see --help"]),
    (["1", "other"], 2, ["fuzz: there is no fuzzer 'other'; see --help"]),
    (["1", "../bad"], 2, ["fuzz: there is no fuzzer '../bad'; see --help"]),
]


class FuzzScriptTest(MadeUpTreeTest):
    def setUp(self):
        super().setUp()
        self.write(FILES)
        self.copy("fuzz", "tools/common", "tests/fuzz/run")

    def call(self, *arguments):
        return subprocess.run([self.tree / "fuzz", *arguments], text=True, stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE)

    def test_calls(self):
        quoted = str(self.tree.resolve()).replace(" ", "\\ ")
        for arguments, status, said in CASES:
            with self.subTest(arguments=arguments):
                result = self.call(*arguments)
                lines = (result.stdout if status < 2 else result.stderr).splitlines()
                self.assertEqual(sorted(lines), sorted(line.format(quoted=quoted) for line in said), result.stderr)
                self.assertEqual(result.returncode, status)

    def test_keeps_what_is_new(self):
        self.call("3", "good_one")
        self.assertTrue((self.tree / "build/fuzz/corpus/good_one/input").exists())
        arguments = (self.tree / "build/fuzz/tests/fuzz/arguments").read_text()
        self.assertIn("-max_total_time=180 ", arguments)
        self.assertIn(f"-dict={self.tree}/tests/fuzz/good_one.dict ", arguments)
        self.assertTrue(arguments.endswith(f" {self.tree}/tests/fuzz/corpus/good_one\n"))

    def test_help(self):
        result = self.call("--help")
        self.assertIn("\n  --coverage ", result.stdout)
        self.assertEqual(result.returncode, 0)


if __name__ == "__main__":
    unittest.main()
