"""What the linker puts into the programs, from link maps."""

import fnmatch
import os
import pathlib
import re
import shlex
import shutil
import tempfile

from release import Failure, build, run

MEMBER = re.compile(r"(\S.*?\.a)\(([^)]+)\)")
END_OF_MEMBERS = ("Allocating common symbols", "Discarded input sections", "Memory Configuration")


class Map:
    """The files of others that one program is linked from.

    files: full path of each object, and of each archive of which anything is taken, to the members taken
    sections: names of the program's sections
    """

    def __init__(self, text):
        self.files, self.sections = {}, []
        in_members = False
        for line in text.splitlines():
            if line.startswith("Archive member included"):
                in_members = True
            elif line.startswith(END_OF_MEMBERS):
                in_members = False
            elif in_members and (member := MEMBER.match(line)):
                self._add(member[1], member[2])
            elif line.startswith("LOAD ") and line.endswith((".o", ".obj")):
                self._add(line.removeprefix("LOAD "), None)
            elif line.startswith("."):
                self.sections.append(line.split()[0])

    def _add(self, path, member):
        # Files of the build itself have paths relative to its directory.
        if os.path.isabs(path) and not os.path.realpath(path).startswith(f"{os.path.realpath(build)}{os.sep}"):
            members = self.files.setdefault(os.path.realpath(path), set())
            if member:
                members.add(member)

    def members(self, archives, patterns):
        """Whether a member that matches a pattern is taken from an archive that matches a pattern."""
        return any(fnmatch.fnmatch(member, pattern) for path, members in self.files.items()
                   if like(os.path.basename(path), archives) for member in members for pattern in patterns)


def like(name, patterns):
    return any(fnmatch.fnmatch(name, pattern) for pattern in patterns)


def link_maps():
    """The Map of each program of the release build, by the program's name.

    The linker writes it when it links the program once more, aside; it is kept in the build's directory.
    """
    programs = sorted((build / "bin").glob("*.exe"))
    if not programs:
        raise Failure(f"there are no programs in {build / 'bin'}; build the preset release first")
    return {program.name: _link_map(program) for program in programs}


def _link_map(program):
    path = build / "link-maps" / f"{program.name}.map"
    if not path.exists() or path.stat().st_mtime < program.stat().st_mtime:
        path.parent.mkdir(exist_ok=True)
        with tempfile.TemporaryDirectory() as scratch:
            new = pathlib.Path(scratch) / path.name
            run(*_link_command(program.name, pathlib.Path(scratch) / program.name), f"-Wl,-Map={new}", cwd=build)
            shutil.move(new, path)
    link_map = Map(path.read_text(errors="replace"))
    if not link_map.files or not link_map.sections:
        raise Failure(f"the linker's map {path} is not understood")
    return link_map


def _link_command(name, output):
    commands = run("ninja", "-C", str(build), "-t", "commands", f"bin/{name}").splitlines()
    words = shlex.split(commands[-1])
    # ": && LINK && WHAT COMES AFTER"
    words = words[2:words.index("&&", 2)]
    if any(word.startswith("@") for word in words):
        raise Failure(f"the command that links {name} is in a response file, which is not understood")
    words[words.index("-o") + 1] = str(output)
    return [word for word in words if not word.startswith("-Wl,--out-implib")]
