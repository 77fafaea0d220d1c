"""Checks the form of the public forge's workflow, which cannot be run here, and that what it calls exists."""
import os
import pathlib
import re
import subprocess
import unittest

import yaml

ROOT = pathlib.Path(__file__).resolve().parents[2]
WORKFLOW = ROOT / ".github" / "workflows" / "ci.yml"

KEYS = {
    "workflow": {"name", "on", "permissions", "concurrency", "defaults", "env", "jobs"},
    "job": {"name", "needs", "runs-on", "container", "timeout-minutes", "env", "steps", "if"},
    "step": {"name", "id", "uses", "with", "run", "if", "env"},
}
INPUTS = {
    "actions/checkout": set(),
    "actions/cache": {"path", "key"},
    "actions/upload-artifact": {"name", "path", "if-no-files-found", "retention-days"},
    "actions/download-artifact": {"name", "path"},
}
# One of our files, called by its path from the root.
SCRIPT = re.compile(r"(?<![\w/.${}-])(\./[\w-]+|(?:tools|packaging|tests|\.ci)/[\w./-]+)")


def unknown(kind, where, mapping, required=()):
    return ([f"{where}: unknown key {key}" for key in mapping if key not in KEYS[kind]] +
            [f"{where}: no {key}" for key in required if key not in mapping])


def findings_in_action(where, step):
    name, _, version = step["uses"].partition("@")
    if name not in INPUTS:
        return [f"{where}: unknown action {name}"]
    found = [f"{where}: unknown input {key}" for key in step.get("with", {}) if key not in INPUTS[name]]
    if not re.fullmatch(r"v[0-9]+", version):
        found.append(f"{where}: {name} is not pinned by its major version")
    return found


def findings_in_script(where, script):
    found = []
    # Expressions are expanded before the shell sees them.
    plain = re.sub(r"\$\{\{.*?\}\}", "x", script)
    if subprocess.run(["bash", "-n"], input=plain, text=True, stderr=subprocess.DEVNULL).returncode != 0:
        found.append(f"{where}: bash cannot read it")
    for path in SCRIPT.findall(plain):
        if not (ROOT / path).is_file():
            found.append(f"{where}: there is no {path}")
        elif not os.access(ROOT / path, os.X_OK):
            found.append(f"{where}: {path} is not executable")
    return found


def findings_in_job(where, job):
    found = unknown("job", where, job, ["runs-on", "timeout-minutes", "steps"])
    outputs = set()
    for number, step in enumerate(job.get("steps", []), 1):
        place = f"{where}, step {number}"
        found += unknown("step", place, step)
        for reference in re.findall(r"steps\.([\w-]+\.outputs\.[\w-]+)", str(step)):
            if reference not in outputs:
                found.append(f"{place}: no step before gives {reference}")
        if ("uses" in step) == ("run" in step):
            found.append(f"{place}: one of uses and run, please")
        elif "uses" in step:
            found += findings_in_action(place, step)
        else:
            found += findings_in_script(place, step["run"])
            outputs |= {f"{step.get('id')}.outputs.{name}"
                        for name in re.findall(r'echo "(\w+)=.*>>"\$GITHUB_OUTPUT"', step["run"])}
    return found


def artifacts(job, action):
    return {step["with"]["name"] for step in job.get("steps", []) if step.get("uses", "").startswith(action + "@")}


def findings(text):
    """What is wrong with a workflow, one line each."""
    workflow = yaml.safe_load(text)
    # YAML takes the word "on" for true.
    workflow = {"on" if key is True else key: value for key, value in workflow.items()}
    found = unknown("workflow", "workflow", workflow, ["on", "permissions", "jobs"])
    jobs = workflow.get("jobs", {})
    for name, job in jobs.items():
        found += findings_in_job(name, job)
        needs = [job["needs"]] if isinstance(job.get("needs"), str) else job.get("needs", [])
        found += [f"{name}: there is no job {other} to wait for" for other in needs if other not in jobs]
        given = set().union(*(artifacts(jobs[other], "actions/upload-artifact") for other in needs if other in jobs))
        for artifact in sorted(artifacts(job, "actions/download-artifact") - given):
            found.append(f"{name}: no job before uploads {artifact}")
    if "://" in text:
        found.append("workflow: names a host")
    return found


# A change of the real workflow, and what must be found then.
FAULTS = [
    ("permissions:", "permission:", "workflow: unknown key permission"),
    ("    timeout-minutes: 60\n", "", "windows: no timeout-minutes"),
    ("    needs: linux\n", "    needs: other\n", "windows: there is no job other to wait for"),
    ("    needs: linux\n", "", "windows: no job before uploads windows-tests"),
    ("actions/cache@v4", "actions/cache@main", "linux, step 6: actions/cache is not pinned by its major version"),
    ("actions/cache@v4", "actions/cash@v4", "linux, step 6: unknown action actions/cash"),
    ("          path: windows-tests\n", "          paths: windows-tests\n", "windows, step 2: unknown input paths"),
    ("        run: ./test\n", "        runs: ./test\n", "linux, step 7: unknown key runs"),
    ("        run: ./test\n", "", "linux, step 7: one of uses and run, please"),
    ("run: ./test\n", "run: ./tests\n", "linux, step 7: there is no ./tests"),
    ("run: ./test\n", "run: tools/common\n", "linux, step 7: tools/common is not executable"),
    ("run: ./test\n", "run: \"if ./test; then\"\n", "linux, step 7: bash cannot read it"),
    ("python tools/windows-tests/run ", "python tools/windows-tests/rum ",
     "windows, step 3: there is no tools/windows-tests/rum"),
    ("steps.qt.outputs.key", "steps.qt.outputs.prefix", "linux, step 6: no step before gives qt.outputs.prefix"),
    ("        id: qt\n", "", "linux, step 6: no step before gives qt.outputs.key"),
    ("run: ./test\n", "run: curl https://x.example\n", "workflow: names a host"),
]


class WorkflowTest(unittest.TestCase):
    def test_workflow(self):
        self.assertEqual(findings(WORKFLOW.read_text()), [])

    def test_faults_are_found(self):
        text = WORKFLOW.read_text()
        for before, after, finding in FAULTS:
            with self.subTest(finding):
                self.assertIn(before, text)
                self.assertIn(finding, findings(text.replace(before, after)))


if __name__ == "__main__":
    unittest.main()
