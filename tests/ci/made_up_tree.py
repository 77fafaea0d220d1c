"""A tree of a test's own, in which scripts of this tree run."""
import pathlib
import shutil
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]


class MadeUpTreeTest(unittest.TestCase):
    """Gives each test a directory `tree`, with a space in its path."""

    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.tree = pathlib.Path(directory.name, "a tree")
        self.tree.mkdir()

    def write(self, files):
        """Writes executable files: their texts by their paths in the tree."""
        for name, text in files.items():
            file = self.tree / name
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_text(text)
            file.chmod(0o755)

    def copy(self, *names):
        """Copies files of this tree to the same places."""
        for name in names:
            (self.tree / name).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(ROOT / name, self.tree / name)
