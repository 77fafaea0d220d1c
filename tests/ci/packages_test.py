"""Lets the scripts install what a machine lacks, with an apt-get that only tells what it was asked for."""
import os
import subprocess
import unittest

from made_up_tree import MadeUpTreeTest

INSTALLED = "Package: {}\nStatus: {}\nMaintainer: Someone <someone@corvanta.invalid>\nArchitecture: all\n" \
    "Version: 1\nDescription: made up\n\n"


class PackagesTest(MadeUpTreeTest):
    def setUp(self):
        super().setUp()
        self.copy("tools/common")
        states = {"one": "install ok installed", "two": "hold ok installed", "removed": "deinstall ok config-files"}
        self.write({"dpkg/status": "".join(INSTALLED.format(name, state) for name, state in states.items())})
        self.write({"bin/apt-get": '#!/bin/sh\necho "$*" >>asked\n', "bin/sudo": '#!/bin/sh\nexec "$@"\n'})

    def asked_for(self, packages):
        """What apt-get is asked for when tools/packages has this text."""
        self.write({"tools/packages": packages})
        environment = os.environ | {"DPKG_ADMINDIR": "dpkg", "PATH": f"{self.tree / 'bin'}:{os.environ['PATH']}"}
        subprocess.run(["bash", "-c", "set -euo pipefail; root=.; . tools/common; install_packages"], cwd=self.tree,
                       env=environment, check=True, stderr=subprocess.DEVNULL)
        asked = self.tree / "asked"
        return asked.read_text().splitlines() if asked.exists() else []

    def test_nothing_is_missing(self):
        self.assertEqual(self.asked_for("# comment\ntwo # more\none\n"), [])

    def test_some_are_missing(self):
        asked = self.asked_for("one removed # more\nabsent two\n")
        self.assertEqual(asked, ["-q update", "-q install -y --no-install-recommends absent removed"])


if __name__ == "__main__":
    unittest.main()
