"""Tells which small changes to the program no test notices. tools/mutants calls this and says how it is used."""
import argparse
import concurrent.futures
import contextlib
import fcntl
import hashlib
import json
import os
import pathlib
import subprocess
import sys
import tempfile
import time

sys.dont_write_bytecode = True
import changes  # noqa: E402
import trials  # noqa: E402
import weave  # noqa: E402
from copy_of_tree import FOLDERS, CopyOfTree  # noqa: E402

ROOT = pathlib.Path(__file__).resolve().parents[2]
WORK = ROOT / "build" / "mutants"


def main():
    parser = argparse.ArgumentParser(add_help=False, usage="see tools/mutants --help")
    parser.add_argument("--windows", action="store_true")
    parser.add_argument("--sample", type=int, default=600)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--minutes", type=float, default=float("inf"))
    parser.add_argument("--list", action="store_true")
    parser.add_argument("paths", nargs="*")
    options = parser.parse_args()
    end = time.monotonic() + 60 * options.minutes
    WORK.mkdir(parents=True, exist_ok=True)
    with open(WORK / "lock", "w", encoding="utf-8") as lock:
        try:
            fcntl.flock(lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
        except BlockingIOError:
            sys.exit("tools/mutants: another run is changing the copy in build/mutants")
        return Run(options, end).all()


class Run:
    def __init__(self, options, end):
        self.options = options
        self.end = end
        self.tier = "windows" if options.windows else "host"
        self.copy = CopyOfTree(ROOT, WORK / "tree", self.tier, ROOT / "tools" / "mutation" / "mutants.h")
        self.trials = trials.Trials(WORK, os.cpu_count() * (2 if options.windows else 1))
        self.results = Results(WORK / f"results-{self.tier}.json", self.tier)
        self.elsewhere = Results(WORK / f"results-{'host' if options.windows else 'windows'}.json", self.tier)

    def all(self):
        say("bringing the copy up to date")
        self.copy.update()
        code, messages = self.copy.make("--target", *self.copy.generated())
        if code:
            sys.exit("tools/mutants: the copy does not compile:\n" + messages[-4000:])
        every = self._every_change()
        # More than are asked for: the compiler refuses some.
        wanted = self.options.sample or len(every)
        chosen = dict(enumerate(every[:wanted + wanted // 6], start=1))
        mutants = weave.Mutants(self.copy.tree, chosen)
        say(f"{len(every)} changes are possible")
        if self.options.list:
            for name, change in sorted(chosen.values(), key=lambda item: (item[0], item[1].begin)):
                print(place(name, change, mutants.originals[name]), changes.described(change, mutants.originals[name]))
            return 0
        try:
            self._build(mutants)
            numbers = sorted(mutants.chosen)[:wanted]
            tests = trials.tests_of(self.copy.build)
            say(f"{len(tests)} tests run without a mutant")
            with self._sessions():
                reached_by, seconds = self.trials.reached(tests, WORK / "reached", self._path_of)
                self.results.keep_survivors = len(seconds) == len(tests)
                caught_by = self._judge(mutants, numbers, reached_by, seconds)
        finally:
            mutants.restore()
        return self._report(mutants, caught_by, reached_by, len(numbers) - len(caught_by))

    def _every_change(self):
        """All changes in the order of the sample: it depends on what is changed and not on where that stands."""
        sources = self.copy.sources(self.options.paths or FOLDERS)
        if not sources:
            sys.exit(f"tools/mutants: no sources of the {self.tier} tier in {' '.join(self.options.paths)}")
        kept = WORK / "found"
        kept.mkdir(exist_ok=True)
        jobs = [(self.copy.tree / name, arguments, kept) for name, arguments in sources.items()]
        ordered = []
        times = {}
        with concurrent.futures.ProcessPoolExecutor() as pool:
            for name, found in zip(sources, pool.map(find_or_remember, jobs)):
                source = (self.copy.tree / name).read_bytes()
                for change in found:
                    if self.options.windows and not name.endswith("_win.cpp") and \
                            not self.elsewhere.survives(source, change):
                        continue
                    lines = source[source.rfind(b"\n", 0, change.begin) + 1:change.end]
                    identity = (os.path.basename(name), change.what, b" ".join(lines.split()), change.text)
                    times[identity] = times.get(identity, 0) + 1
                    key = hashlib.sha256(repr((self.options.seed, times[identity], identity)).encode()).digest()
                    ordered.append((key, name, change))
        return [(name, change) for _, name, change in sorted(ordered, key=lambda item: item[0])]

    def _build(self, mutants):
        for attempt in range(30):
            mutants.write()
            say(f"building {len(mutants.chosen)} mutants" if attempt == 0 else
                f"building again without {mutants.refused} that the compiler refuses")
            code, messages = self.copy.make("--", "-k", "0")
            if code == 0:
                return
            if not mutants.refuse(messages):
                break
        sys.exit("tools/mutants: the copy does not compile:\n" + messages[-4000:])

    @contextlib.contextmanager
    def _sessions(self):
        """Lets the tests under Wine share sessions, as ./test does."""
        if not self.options.windows:
            yield
            return
        os.environ["TEST_SESSIONS"] = tempfile.mkdtemp()
        # Where Wine's template is: each test gets a home of its own.
        os.environ.setdefault("XDG_CACHE_HOME", str(pathlib.Path.home() / ".cache"))
        try:
            yield
        finally:
            # A mutant may have written anything anywhere.
            subprocess.run([ROOT / "tests/support/end-wine-sessions", os.environ["TEST_SESSIONS"]], check=False,
                           stderr=subprocess.DEVNULL)

    def _path_of(self, path):
        return f"Z:{path}" if self.options.windows else str(path)

    def _judge(self, mutants, numbers, reached_by, seconds):
        """Which test catches each mutant, None for a survivor; those are missing for which there was no time."""
        def one(number):
            name, change = mutants.chosen[number]
            source = mutants.originals[name]
            known, last = self.results.get(source, change)
            if known:
                return number, last
            # What has caught it before will catch it again.
            for test in sorted(reached_by.get(number, ()), key=lambda test: test.name != last):
                if time.monotonic() > self.end:
                    return number, time
                if not self.trials.passes(test, {"CORVANTA_MUTANT": str(number)}, 10 + 8 * seconds[test.name]):
                    self.results.put(source, change, test.name)
                    return number, test.name
            self.results.put(source, change, None)
            return number, None

        caught_by = {}
        for done, (number, test) in enumerate(self.trials.each(one, numbers), start=1):
            if test is not time:
                caught_by[number] = test
            if done % 50 == 0 or done == len(numbers):
                self.results.save()
                say(f"{done} of {len(numbers)}: {sum(test is None for test in caught_by.values())} survive")
        return caught_by

    def _report(self, mutants, caught_by, reached_by, not_tried):
        explained = Explained(ROOT / "tools" / "mutation" / "equivalent")
        equivalent = elsewhere = 0
        survivors = []
        for number, test in caught_by.items():
            name, change = mutants.chosen[number]
            source = mutants.originals[name]
            if test is not None:
                continue
            if explained.has(name, change, source):
                equivalent += 1
                continue
            if self.elsewhere.catches(source, change):
                elsewhere += 1
                continue
            note = "" if number in reached_by else " (no test reaches it)"
            line = f"{place(name, change, source)} {changes.described(change, source)}{note}"
            survivors.append((name, change.begin, line))
        for _, _, line in sorted(survivors):
            print(line)
        counted = len(caught_by) - equivalent
        unreached = sum(line.endswith("(no test reaches it)") for _, _, line in survivors)
        share = 100 * (counted - len(survivors)) / counted if counted else 100
        print(f"{len(caught_by)} mutants, {equivalent} equivalent; of {counted} others "
              f"{counted - len(survivors)} caught ({share:.1f} %)"
              + (f", {elsewhere} of them on the other tier" if elsewhere else "") + f", {len(survivors)} not, "
              f"{unreached} of which no test reaches"
              + (f"; no time for {not_tried}" if not_tried else ""))
        return 1 if survivors or not_tried else 0


class Results:
    """What earlier runs found, by what it depends on: the file of a mutant and the tests."""

    def __init__(self, file, tier):
        self.file = file
        self.known = json.loads(file.read_text()) if file.exists() else {}
        tests = hashlib.sha256(tier.encode())
        for name in subprocess.check_output(["git", "ls-files", "-z", "tests"], cwd=ROOT, text=True).split("\0"):
            if name and (ROOT / name).is_file():
                tests.update((ROOT / name).read_bytes())
        self.tests = tests.hexdigest()[:16]
        self.keep_survivors = True  # not when tests were left out that might have caught them

    @staticmethod
    def _key(source, change):
        return hashlib.sha256(source + repr(change).encode()).hexdigest()[:32]

    def get(self, source, change):
        """Whether the result is known, and which test caught the mutant, now or when the tests were others."""
        tests, test = self.known.get(self._key(source, change), ("", None))
        return tests == self.tests, test

    def put(self, source, change, test):
        if test is not None or self.keep_survivors:
            self.known[self._key(source, change)] = (self.tests, test)

    def catches(self, source, change):
        """Whether a test caught the mutant when it last ran, be the tests others now."""
        return self.known.get(self._key(source, change), ("", None))[1] is not None

    def survives(self, source, change):
        """Whether the mutant has been tried, and no test caught it."""
        return self._key(source, change) in self.known and not self.catches(source, change)

    def save(self):
        self.file.write_text(json.dumps(self.known))


class Explained:
    """Survivors that change nothing anyone could notice: file, source line, change and reason, with tabs between them."""

    def __init__(self, path):
        lines = [line.split("\t") for line in path.read_text().splitlines() if line and not line.startswith("#")]
        self.known = {(file, line, change) for file, line, change, _ in lines}

    def has(self, name, change, source):
        begin = source.rfind(b"\n", 0, change.begin) + 1
        line = source[begin:source.index(b"\n", begin)].decode().strip()
        return (os.path.basename(name), line, changes.described(change, source)) in self.known


def find_or_remember(job):
    path, arguments, directory = job
    tool = (ROOT / "tools" / "mutation" / "changes.py").read_bytes()
    kept = directory / hashlib.sha256(tool + path.read_bytes() + repr(arguments).encode()).hexdigest()
    if kept.exists():
        return [changes.Change(begin, end, text.encode("latin-1"), *rest)
                for begin, end, text, *rest in json.loads(kept.read_text())]
    found = changes.find(path, arguments)
    kept.write_text(json.dumps([[change.begin, change.end, change.text.decode("latin-1"), change.what, change.statement,
                                 change.constant] for change in found]))
    return found


def place(name, change, source):
    return f"{name}:{source.count(bytes([10]), 0, change.begin) + 1}:"


def say(message):
    print(f"tools/mutants: {message}", file=sys.stderr, flush=True)


sys.exit(main())
