"""Runs the tests of a build, with and without a mutant."""
import concurrent.futures
import contextlib
import dataclasses
import json
import os
import queue
import shutil
import signal
import subprocess
import sys
import time

# What reads the tree and not the program, or builds; and what clicks at random, and takes its time.
LEFT_OUT = ("ci.", "cmake.", "documents.", "fuzz.", "mutants.", "packaging.", "soak.")


@dataclasses.dataclass(frozen=True)
class Test:
    name: str
    command: tuple
    environment: tuple
    directory: str
    unset: tuple = ()


def tests_of(build):
    """The tests of a build that run programs of it."""
    listed = json.loads(subprocess.check_output(["ctest", "--test-dir", build, "--show-only=json-v1"], text=True))
    tests = []
    for test in listed["tests"]:
        if "command" not in test or test["name"].startswith(LEFT_OUT):
            continue
        properties = {item["name"]: item["value"] for item in test.get("properties", [])}
        environment = tuple(tuple(item.split("=", 1)) for item in properties.get("ENVIRONMENT", []))
        unset = tuple(item.removesuffix("=unset:") for item in properties.get("ENVIRONMENT_MODIFICATION", []))
        tests.append(Test(test["name"], tuple(test["command"]), environment,
                          properties.get("WORKING_DIRECTORY", str(build)), unset))
    return tests


class Trials:
    """Tests that run beside each other, each in a home, settings and directory for temporary files of its own."""

    def __init__(self, directory, jobs):
        self.jobs = jobs
        self.homes = queue.SimpleQueue()
        for number in range(jobs):
            self.homes.put(directory / f"home-{number}")

    def passes(self, test, variables, limit):
        """Whether a test passes with these variables, within seconds."""
        home = self.homes.get()
        try:
            shutil.rmtree(home, ignore_errors=True)
            for name in ("settings", "temporary"):
                (home / name).mkdir(parents=True)
            own = {"HOME": str(home), "TMPDIR": str(home / "temporary"), "XDG_CONFIG_HOME": str(home / "settings")}
            environment = {**os.environ, **dict(test.environment), **own, **variables}
            for name in test.unset:
                environment.pop(name, None)
            return self._run(test, environment, limit)
        finally:
            self.homes.put(home)

    def _run(self, test, environment, limit):
        # A session of its own, so that what the test started ends with it.
        with subprocess.Popen(test.command, cwd=test.directory, env=environment, stdin=subprocess.DEVNULL,
                              stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, start_new_session=True) as process:
            try:
                return process.wait(limit) == 0
            except subprocess.TimeoutExpired:
                # run-under-wine ends its Wine when it is asked to.
                os.killpg(process.pid, signal.SIGTERM)
                with contextlib.suppress(subprocess.TimeoutExpired):
                    process.wait(10)
                return False
            finally:
                # A session of Wine's that tests share runs on, and run-under-wine ends what it started otherwise.
                if "TEST_SESSIONS" not in environment:
                    with contextlib.suppress(ProcessLookupError):
                        os.killpg(process.pid, signal.SIGKILL)

    def each(self, function, items):
        """The function's results for all items, as many at a time as there are jobs."""
        with concurrent.futures.ThreadPoolExecutor(self.jobs) as pool:
            yield from pool.map(function, items)

    def reached(self, tests, directory, path_of):
        """Which tests reach which mutant, and how many seconds each takes; those that fail without one are left out.

        path_of turns a path into what a program of the build calls it.
        """
        shutil.rmtree(directory, ignore_errors=True)
        directory.mkdir(parents=True)

        def one(test):
            start = time.monotonic()
            passed = self.passes(test, {"CORVANTA_MUTANTS_REACHED": path_of(directory / test.name)}, 600)
            return test, passed, time.monotonic() - start

        by_mutant, seconds = {}, {}
        for test, passed, took in self.each(one, tests):
            if not passed:
                print(f"left out, as it fails without a mutant: {test.name}", file=sys.stderr)
                continue
            seconds[test.name] = took
            record = directory / test.name
            for number in record.read_text().split() if record.exists() else []:
                by_mutant.setdefault(int(number), []).append(test)
        for found in by_mutant.values():
            found.sort(key=lambda test: seconds[test.name])
        return by_mutant, seconds
