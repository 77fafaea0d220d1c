"""Commits good and bad files to a repository that has the hook."""
import os
import subprocess
import unittest

from made_up_tree import MadeUpTreeTest

GOOD = {"good.cpp": "int good = 1;\n", "script": '#!/usr/bin/env bash\necho "$1"\n'}
BAD = {"bad.h": "int  bad ;\n", "script": "#!/usr/bin/env bash\nunused=1\n"}


class PreCommitTest(MadeUpTreeTest):
    def setUp(self):
        super().setUp()
        self.copy(".clang-format", "tools/common", "tools/hooks/pre-commit")
        # When this test runs in a git hook, git has set variables of its own.
        self.environment = {name: value for name, value in os.environ.items() if not name.startswith("GIT_")}
        self.environment |= {"GIT_CONFIG_NOSYSTEM": "1", "GIT_CONFIG_GLOBAL": os.devnull}
        self.git("init", "-q")
        self.git("config", "user.name", "Someone")
        self.git("config", "user.email", "someone@corvanta.invalid")
        self.git("config", "core.hooksPath", "tools/hooks")
        self.git("add", ".")

    def git(self, *arguments):
        return subprocess.run(["git", *arguments], cwd=self.tree, env=self.environment, text=True, check=False,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT)

    def commit(self, *arguments):
        return self.git("commit", "-q", "-m", "A change", *arguments)

    def assert_commits(self, *arguments):
        result = self.commit(*arguments)
        self.assertEqual((result.returncode, result.stdout), (0, ""))

    def assert_refused(self, *findings):
        result = self.commit()
        self.assertEqual(result.returncode, 1)
        for finding in (*findings, "pre-commit: findings above"):
            self.assertIn(finding, result.stdout)

    def test_good_files(self):
        self.write(GOOD)
        self.git("add", ".")
        self.assert_commits()

    def test_bad_files(self):
        for name, finding in [("bad.h", "bad.h:1:4: error:"), ("script", "In script line 2:\nunused=1")]:
            with self.subTest(name):
                self.write({name: BAD[name]})
                self.git("add", name)
                self.assert_refused(finding)
                self.git("rm", "-q", "--cached", name)

    def test_only_what_is_staged_counts(self):
        self.write(GOOD)
        self.git("add", ".")
        self.write(BAD)
        self.assert_commits()
        self.git("add", ".")
        self.write(GOOD)
        self.assert_refused("bad.h:1:4: error:", "In script line 2:")

    def test_other_files_do_not_count(self):
        self.write(BAD)
        self.git("add", ".")
        self.assert_commits("--no-verify")
        self.write({"notes.md": "A  note\n"})
        self.git("add", ".")
        self.assert_commits()
        self.git("rm", "-q", "bad.h")
        self.assert_commits()


if __name__ == "__main__":
    unittest.main()
