"""What the packaging scripts in Python share: where things are, the facts of the release, and how a script
fails.

The scripts are run with -B: compiled modules beside them would end up in the archive of the sources.
"""

import os
import pathlib
import subprocess
import sys

root = pathlib.Path(__file__).resolve().parent.parent
# A check that is called by hand uses the last build of ./package.
build = pathlib.Path(os.environ.get("build") or root / "build/package/source/build/release")


class Failure(Exception):
    """What went wrong, for the person who makes the release."""


def main(function):
    """Runs a script and ends the process: a Failure is one line on standard error and exit code 1."""
    try:
        sys.exit(function(*sys.argv[1:]))
    except Failure as failure:
        sys.exit(f"{pathlib.Path(sys.argv[0]).name}: {failure}")


def run(*command, **options):
    """The standard output of a command; its standard error is part of the Failure when it fails."""
    try:
        done = subprocess.run(command, check=True, capture_output=True, text=True, **options)
    except FileNotFoundError:
        raise Failure(f"{command[0]} is not installed; tools/packages names its package")
    except subprocess.CalledProcessError as error:
        raise Failure(f"{command[0]} failed with exit code {error.returncode}: {error.stderr.strip()}")
    return done.stdout


def environment(name):
    """A variable that ./package sets."""
    value = os.environ.get(name, "")
    if not value:
        raise Failure(f"the environment variable {name} is not set; ./package sets it")
    return value


def qt_prefix():
    """The Qt that the program is linked to."""
    return pathlib.Path(os.environ.get("QT_WINDOWS_PREFIX") or
                        run(str(root / "tools/qt-windows/build"), "--prefix-only").strip())


def facts():
    """Everything in packaging/common, under the same names."""
    # Checks neither get nor need these.
    unset = dict.fromkeys(("stage", "out", "commit", "SOURCE_DATE_EPOCH", "QT_WINDOWS_PREFIX"), "not set")
    known = {**unset, **os.environ, "root": str(root), "build": str(build)}
    text = run("bash", "-euc", 'set -a; source "$root/packaging/common" >&2; env -0', env=known)
    return dict(line.split("=", 1) for line in text.split("\0") if "=" in line)
