#!/usr/bin/env python3
"""All our own code is compiled with the options that make memory errors harder to exploit.

    compiler_options_test.py COMPILE_COMMANDS
"""

import json
import shlex
import sys
from pathlib import Path

WANTED = {"-fstack-protector-strong", "-D_FORTIFY_SOURCE=2", "-D_GLIBCXX_ASSERTIONS"}
# _FORTIFY_SOURCE does nothing without optimisation.
OPTIMISED = {"-O1", "-O2", "-O3", "-Os"}

status = 0
sources = 0
for entry in json.loads(Path(sys.argv[1]).read_text(encoding="utf-8")):
    if not entry["file"].endswith(".cpp"):
        continue
    sources += 1
    given = set(shlex.split(entry["command"]))
    missing = sorted(WANTED - given) + ([] if OPTIMISED & given else ["-O2"])
    if missing:
        print(f"{entry['file']} is compiled without {' '.join(missing)}; does its target link corvanta_settings?")
        status = 1
if not sources:
    print(f"{sys.argv[1]} names no source")
    status = 1
sys.exit(status)
