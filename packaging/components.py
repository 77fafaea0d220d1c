"""The third-party code in the programs and installers: components.toml, completed from the build."""

import dataclasses
import glob
import hashlib
import json
import os
import pathlib
import re
import struct
import subprocess
import tomllib
import urllib.parse

import linked
from release import Failure, qt_prefix, root, run


@dataclasses.dataclass
class Component:
    """name, version (may be empty), license (SPDX), homepage, texts (notices and licences), purl,
    programs (names of the programs that it is in), credit (a line that the licence asks for, may be empty),
    part_of (the name of the component that holds it, or None), sha256 (of the file that is bundled or of the description
    of Debian's source package, empty when there is neither)."""

    name: str
    version: str
    license: str
    homepage: str
    texts: list
    purl: str
    programs: list
    credit: str = ""
    part_of: str = None
    sha256: str = ""


def table():
    return tomllib.loads((root / "packaging" / "components.toml").read_text(encoding="utf-8"))


def components():
    """All components in this build; a Failure names linked files that no row covers."""
    rows, maps = table(), linked.link_maps()
    _refuse_forbidden_sections(rows["forbidden_sections"], maps)
    programs = _programs_of_rows(rows["component"], maps)
    found = []
    for number, row in enumerate(rows["component"]):
        if "bundled" in row and not os.environ.get(row["bundled"]):
            continue
        inside = row.get("in") or programs[number]
        if not inside:
            raise Failure(f"components.toml: nothing of {row['name']} is linked any more; remove it")
        version, purl = _version_and_purl(row)
        texts = [row["notice"]] if "notice" in row else []
        found.append(Component(row["name"], version, row["license"], row["homepage"],
                               texts + [_text(place) for place in row["texts"]], purl, inside, sha256=_sha256(row)))
        if row["name"] == "Qt":
            found += _inside_qt(rows, row, maps)
    return found


def _refuse_forbidden_sections(forbidden, maps):
    for program, link_map in maps.items():
        for section in link_map.sections:
            for beginning, why in forbidden.items():
                if section.startswith(beginning):
                    raise Failure(f"{program} has the section {section}: {why}")


def _programs_of_rows(rows, maps):
    """The programs into which each row's files are linked; each third-party file must belong to a row."""
    paths = sorted({path for link_map in maps.values() for path in link_map.files})
    owners = _owners(paths)
    found, nobody = [[] for _ in rows], []
    for program, link_map in maps.items():
        for path in sorted(link_map.files):
            number = next((number for number, row in enumerate(rows)
                           if owners[path] == ("Qt's prefix" if "source" in row else row.get("package"))
                           and linked.like(os.path.basename(path), row.get("linked", []))), None)
            if number is None:
                nobody.append(f"{path} (of {owners[path] or 'no package'}) in {program}")
            elif program not in found[number]:
                found[number].append(program)
    if nobody:
        raise Failure("components.toml does not say what this is, which is linked:\n  " + "\n  ".join(nobody))
    return found


def _owners(paths):
    """Maps each path to the Debian package that owns it, to Qt's prefix, or to None."""
    prefix = os.path.realpath(qt_prefix()) + os.sep
    # The exit code says that some belong to no package, which is no failure here.
    answer = subprocess.run(["dpkg-query", "-S", *paths], capture_output=True, text=True)
    packages = {line.split(": ", 1)[1]: line.split(":")[0] for line in answer.stdout.splitlines() if ": " in line}
    return {path: "Qt's prefix" if path.startswith(prefix) else packages.get(path) for path in paths}


def _version_and_purl(row):
    if "bundled" in row:
        version = _file_version(os.environ[row["bundled"]])
        return version, f"pkg:generic/{row['name']}@{version}"
    if "source" in row:
        version, kind, name = _source_version(row["source"]), "source", row["source"]
    else:
        name = row["package"]
        version, kind = run("dpkg-query", "-W", "-f", "${Version} ${Architecture}", name).split()
    return version, f"pkg:deb/debian/{name.replace('+', '%2B')}@{urllib.parse.quote(version, safe='.~-')}?arch={kind}"


def _sha256(row):
    path = os.environ[row["bundled"]] if "bundled" in row else _description(row["source"]) if "source" in row else None
    return hashlib.sha256(pathlib.Path(path).read_bytes()).hexdigest() if path else ""


def _description(source):
    """The .dsc file of a source package that tools/qt-windows compiled."""
    descriptions = sorted((qt_prefix() / "sources").glob(f"{source}_*.dsc"))
    if len(descriptions) != 1:
        raise Failure(f"{len(descriptions)} source packages of {source} are in sources/ of QT_WINDOWS_PREFIX, not one")
    return descriptions[0]


def _source_version(source):
    return re.search(r"^Version: (\S+)$", _description(source).read_text(encoding="utf-8"), re.M)[1]


def _file_version(path):
    """The version in the fixed part of a Windows program's version resource."""
    data = pathlib.Path(path).read_bytes()
    start = data.find(struct.pack("<I", 0xFEEF04BD))
    if start < 0:
        raise Failure(f"{path} has no version resource")
    high, low = struct.unpack_from("<II", data, start + 8)
    return f"{high >> 16}.{high & 0xFFFF}.{low >> 16}.{low & 0xFFFF}"


def _text(place):
    """The text at a location in the form of components.toml."""
    place = {"path": place} if isinstance(place, str) else place
    pattern = place["path"].replace("{tree}", str(root))
    paths = [pattern] if os.path.exists(pattern) else sorted(glob.glob(pattern))
    if not paths:
        raise Failure(f"the licence text {pattern} does not exist")
    text = pathlib.Path(paths[0]).read_text(encoding="utf-8").replace("\r", "")
    if "paragraphs" in place:
        return _paragraphs(paths[0], text, place["paragraphs"])
    if "from" in place:
        start = re.search("^" + re.escape(place["from"]), text, re.M)
        end = start and re.search("^" + re.escape(place["to"]), text[start.start():], re.M)
        if not end:
            raise Failure(f"{paths[0]} has no part from '{place['from']}' to '{place['to']}'")
        text = text[start.start():start.start() + end.start()]
    return text.strip("\n")


def _paragraphs(path, text, beginnings):
    found = [paragraph for paragraph in re.split(r"\n\s*\n", text)
             if paragraph.lstrip().startswith(tuple(beginnings))]
    for beginning in beginnings:
        if not any(paragraph.lstrip().startswith(beginning) for paragraph in found):
            raise Failure(f"{path} has no paragraph that begins '{beginning}'")
    return "\n\n".join(paragraph.strip("\n") for paragraph in found)


def _inside_qt(rows, qt, maps):
    """The entries of Qt's attribution files that are in this build."""
    def programs_with(objects):
        return [program for program, link_map in maps.items() if link_map.members(qt["linked"], objects)]

    left_out = {identifier: why for why, identifiers in rows["qt_left_out"].items() for identifier in identifiers}
    entries = _attributions()
    if unknown := sorted(entries.keys() - rows["qt"].keys() - left_out.keys()):
        raise Failure(f"Qt holds code of others that components.toml does not know: {', '.join(unknown)}")
    for identifier, objects in rows["qt_guards"].items():
        if programs := programs_with(objects):
            raise Failure(f"{identifier} is in {' and '.join(programs)}, although '{left_out[identifier]}'")
    found = []
    for identifier, objects in sorted(rows["qt"].items()):
        programs = programs_with(objects)
        if not programs:
            raise Failure(f"components.toml: nothing of {identifier} is linked any more; say why")
        if identifier not in entries:
            raise Failure(f"{identifier} is linked, but tools/qt-windows kept no entry of Qt's on it")
        found.append(_component_inside_qt(rows, identifier, *entries[identifier], programs))
    return found


def _component_inside_qt(rows, identifier, folder, entry, programs):
    place = rows["qt_texts"].get(identifier) or str(folder / "LICENSE")
    version = entry.get("Version", "")
    notice = " ".join(entry.get("Copyright", "").split())
    return Component(entry["Name"], version, rows["qt_licenses"].get(identifier) or entry["LicenseId"],
                     entry.get("Homepage", ""), [text for text in (notice, _text(place)) if text],
                     f"pkg:generic/{identifier}" + (f"@{urllib.parse.quote(version, safe='.~-')}" if version else ""),
                     programs, rows["qt_credits"].get(identifier, ""), "Qt")


def _attributions():
    """Maps the Id to (folder, entry) of all of Qt's attribution files that tools/qt-windows kept."""
    top = qt_prefix() / "attributions"
    entries = {path.parent.name: (path.parent, json.loads(path.read_text(encoding="utf-8")))
               for path in top.glob("*/attribution.json")}
    if not entries:
        raise Failure(f"{top} contains no attribution.json; tools/qt-windows/build keeps them there")
    return entries
