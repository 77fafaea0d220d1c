"""The copy of the tree that mutants are built in."""
import json
import os
import shlex
import subprocess
import sys

FOLDERS = ("app", "base", "card", "companions", "devenv", "discovery", "launch", "license", "recent", "update")


class CopyOfTree:
    """A copy of the tree with a build in it; files that are the same are not touched, so as not to build them again."""

    def __init__(self, root, tree, tier, header):
        self.root, self.tree, self.tier = root, tree, tier
        self.header = header
        self.build = tree.parent / tier
        # The compiler's cache, where there is one, knows what other copies have compiled.
        self.environment = {**os.environ, "CCACHE_BASEDIR": str(tree)}

    def update(self):
        """Makes the copy what the tree is, and configures its build."""
        listed = subprocess.check_output(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard",
                                          "--deduplicate"], cwd=self.root, text=True).split("\0")
        names = {name for name in listed if name and (self.root / name).is_file()}
        for directory, _, files in os.walk(self.tree):
            for file in files:
                path = os.path.join(directory, file)
                if os.path.relpath(path, self.tree) not in names:
                    os.remove(path)
        for name in names:
            content = (self.root / name).read_bytes()
            if os.path.basename(name) == "CMakeLists.txt" and name.split("/")[0] in (*FOLDERS, "CMakeLists.txt"):
                content += self._settings(names)
            target = self.tree / name
            if not target.exists() or target.read_bytes() != content:
                target.parent.mkdir(parents=True, exist_ok=True)
                target.write_bytes(content)
                target.chmod((self.root / name).stat().st_mode)
        done = self._run(["cmake", "--preset", self.tier, "-B", self.build, "-Wno-dev",
                          "-DCORVANTA_WARNINGS_AS_ERRORS=OFF", "-DCORVANTA_SANITIZE=OFF",
                          "-DCMAKE_CXX_FLAGS=-O0 -g0", "-DCMAKE_CXX_FLAGS_DEBUG=", "-DCMAKE_CXX_FLAGS_RELEASE="])
        if done.returncode:
            sys.exit("tools/mutants: the copy cannot be configured:\n" + done.stdout)

    def make(self, *arguments):
        """Builds; returns the exit code and the messages."""
        done = self._run(["cmake", "--build", self.build, "-j", str(os.cpu_count()), *arguments])
        return done.returncode, done.stdout

    def generated(self):
        """The targets that make what the product's files include: the headers of its forms."""
        floors = (self.build / "floors").read_text().splitlines()
        return [f"corvanta_{floor.split(':')[0]}_autogen" for floor in floors if floor]

    def sources(self, paths):
        """The product's files below these paths that this tier is for, each with the arguments for clang."""
        cross = None
        resources = subprocess.check_output(["clang", "-print-resource-dir"], text=True).strip()
        result = {}
        for entry in json.loads((self.build / "compile_commands.json").read_text()):
            name = os.path.relpath(entry["file"], self.tree)
            below = any(name == path or name.startswith(path.rstrip("/") + "/") for path in paths)
            if name.split("/")[0] not in FOLDERS or not below:
                continue
            words = shlex.split(entry["command"])
            if os.path.basename(words[0]) == "ccache":
                words = words[1:]
            kept = []
            for index, word in enumerate(words):
                if word == "-isystem":
                    kept += [word, words[index + 1]]
                elif word.startswith("-I"):
                    kept.append("-I" + os.path.normpath(os.path.join(entry["directory"], word[2:])))
                elif word.startswith(("-D", "-std")):
                    kept.append(word)
            if self.tier == "windows":
                cross = cross or _headers_of(words[0])
                kept += ["--target=x86_64-w64-mingw32", "-resource-dir", resources, *cross]
            result[name] = ["-xc++", *kept]
        return result

    def _settings(self, names):
        """What a CMakeLists.txt of the copy says besides: the product knows of mutants, the compiler does not warn."""
        sources = sorted(name for name in names if name.endswith(".cpp") and name.split("/")[0] in FOLDERS)
        listed = "\n  ".join(f'"${{PROJECT_SOURCE_DIR}}/{name}"' for name in sources)
        return (f'\nset_source_files_properties(\n  {listed}\n'
                f'  PROPERTIES COMPILE_OPTIONS "-w;-include;{self.header}")\n').encode()

    def _run(self, command):
        return subprocess.run([str(part) for part in command], cwd=self.tree, env=self.environment,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False)


def _headers_of(compiler):
    """Where a cross-compiler finds the C++ headers, which clang does not know; it has C's, and builtins of its own."""
    search = subprocess.run([compiler, "-xc++", "-E", "-v", os.devnull], stderr=subprocess.PIPE,
                            stdout=subprocess.DEVNULL, text=True, check=True).stderr
    listed = search.split("#include <...>")[1].split("End of search list")[0].split("\n")[1:]
    return [part for path in listed if "c++" in path for part in ("-isystem", path.strip())]
