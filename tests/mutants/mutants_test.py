"""Changes a small program in all possible ways and looks which of the changes a weak test of it catches."""
import pathlib
import subprocess
import sys
import tempfile
import time
import unittest

sys.dont_write_bytecode = True
TOOLS = pathlib.Path(__file__).resolve().parents[2] / "tools" / "mutation"
sys.path.insert(0, str(TOOLS))
import changes  # noqa: E402
import trials  # noqa: E402
import weave  # noqa: E402

SAMPLE = b"""
constexpr int longest = 10;
static_assert(sizeof(int) > 1, "not changed: nothing to decide while the program runs");
int list[2]; // what the compiler refuses

bool isLong(int length)
{
    return length > longest;
}

struct Handle { // whose truth is not that of the bool it can be made of
    Handle(bool) {}
    explicit operator bool() const { return 1; }
};

bool isMissing(const Handle &handle)
{
    if (!handle)
        return true;
    return false;
}

int difference(int from, int to) { return to - from; }

const char *kind(int length)
{
    const char *result = "long";
    if (!isLong(length))
        result = "short";
    else
        list[0]++;
    return result;
}

int main()
{
    return !isMissing(Handle(false)) && isLong(12) && difference(3, 5) == 2 && kind(4)[0] == 's' &&
                   kind(30)[1] == 'o'
               ? 0
               : 1;
}
"""
SURVIVE = {"longest: number one more", "isLong: > became >=", "Handle: number one more", "isMissing: truth turned",
           "kind: string changed \"long\"", "kind: string changed \"short\"", "kind: number one more 0",
           "kind: statement removed list[0]++;"}
CAUGHT = {"isLong: > became <=", "Handle: condition negated", "isMissing: negation removed", "isMissing: truth turned",
          "difference: - became +", "kind: negation removed !isLong(length)",
          "kind: statement removed result = \"short\";"}


class MutantsTest(unittest.TestCase):
    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.tree = pathlib.Path(directory.name)
        self.file = self.tree / "sample.cpp"
        self.file.write_bytes(SAMPLE)
        # What main tests with is no part of what is tested.
        found = [change for change in changes.find(self.file, ["-xc++", "-std=c++17"])
                 if change.begin < SAMPLE.index(b"int main")]
        self.mutants = weave.Mutants(self.tree, enumerate((("sample.cpp", change) for change in found), start=1))
        self.program = trials.Test("sample", (str(self.tree / "sample"),), (), str(self.tree))
        self.trials = trials.Trials(self.tree, 2)

    def compile(self):
        self.mutants.write()
        command = ["g++", "-std=c++17", "-w", "-include", TOOLS / "mutants.h", "sample.cpp", "-o", "sample"]
        return subprocess.run(command, cwd=self.tree, stderr=subprocess.PIPE, text=True, check=False)

    def compile_what_can_be(self):
        done = self.compile()
        while done.returncode:
            self.assertTrue(self.mutants.refuse(done.stderr), done.stderr)
            done = self.compile()

    def name(self, number):
        change = self.mutants.chosen[number][1]
        function = next(name for name in ("kind", "difference", "isMissing", "Handle", "isLong", "longest")
                        if SAMPLE.index(name.encode()) - 10 < change.begin)
        text = SAMPLE[change.begin:change.end].decode()
        return f"{function}: {change.what}" + (f" {text}" if function == "kind" else "")

    def test_tells_caught_from_surviving(self):
        self.compile_what_can_be()
        self.assertEqual(self.mutants.refused, 1)
        self.assertTrue(self.trials.passes(self.program, {}, 60))
        numbers = list(self.mutants.chosen)
        passes = self.trials.each(
            lambda number: self.trials.passes(self.program, {"CORVANTA_MUTANT": str(number)}, 60), numbers)
        found = {(self.name(number), passed) for number, passed in zip(numbers, passes)}
        self.assertEqual({name for name, passed in found if passed}, SURVIVE)
        self.assertEqual({name for name, passed in found if not passed}, CAUGHT)

    def test_knows_which_tests_reach_a_mutant(self):
        self.compile_what_can_be()
        tests = [self.program, trials.Test("other", ("true",), (), str(self.tree)),
                 trials.Test("failing", ("false",), (), str(self.tree))]
        reached_by, seconds = self.trials.reached(tests, self.tree / "reached", str)
        self.assertEqual(set(seconds), {"sample", "other"})
        self.assertEqual({number: [test.name for test in found] for number, found in reached_by.items()},
                         {number: ["sample"] for number, (_, change) in self.mutants.chosen.items()
                          if SAMPLE[change.begin:change.end] != b"true"})

    def test_leaves_the_files_as_they_were(self):
        self.mutants.write()
        self.assertNotEqual(self.file.read_bytes(), SAMPLE)
        self.mutants.restore()
        self.assertEqual(self.file.read_bytes(), SAMPLE)

    def test_environment_of_a_test(self):
        asks = trials.Test("asks", ("sh", "-c", 'test "$A-${HOME#*/home-}" = 1-0 && test -z "${B+set}"'),
                           (("A", "1"), ("B", "2")), str(self.tree), ("B",))
        self.assertTrue(trials.Trials(self.tree, 1).passes(asks, {}, 60))

    def test_only_what_is_shared_runs_on(self):
        for shared in [(), (("TEST_SESSIONS", "here"),)]:
            starts = trials.Test("starts", ("sh", "-c", "(sleep 0.5; touch ran-on) &"), shared, str(self.tree))
            self.assertTrue(self.trials.passes(starts, {}, 60))
            time.sleep(1)
            self.assertEqual((self.tree / "ran-on").exists(), bool(shared))

    def test_ends_what_does_not_end(self):
        slow = trials.Test("slow", ("sh", "-c", "sleep 600; true"), (), str(self.tree))
        self.assertFalse(self.trials.passes(slow, {}, 0.2))


if __name__ == "__main__":
    unittest.main()
