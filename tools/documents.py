"""Shared by the scripts that read the documents: files, links and headings."""

import os
import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parent.parent


def documents():
    """All Markdown files of the tree, sorted."""
    found = []
    for directory, directories, files in os.walk(ROOT):
        directories[:] = [name for name in directories if name not in (".git", "build")]
        found += [pathlib.Path(directory, name) for name in files if name.endswith(".md")]
    return sorted(found)


def prose(text):
    """A document's text without code, with unchanged line numbers."""
    lines = []
    fence = None
    for line in text.split("\n"):
        mark = re.match(r" {0,3}(```+|~~~+)", line)
        if mark and (fence is None or mark[1].startswith(fence)):
            fence = mark[1] if fence is None else None
            lines.append("")
        else:
            lines.append("" if fence or line.startswith("    ") else line)
    # A code span may continue on the next line.
    span = r"(`+)(?!`)(.+?)(?<!`)\1(?!`)"
    return re.sub(span, lambda code: re.sub(r"[^\n]", " ", code[0]), "\n".join(lines), flags=re.S)


def links(text):
    """The targets of all links and pictures in a document, each with the number of its line."""
    found = []
    text = prose(text)
    for match in re.finditer(r"\]\(\s*<?([^)\s>]+)>?[^)]*\)|^ {0,3}\[[^\]]+\]:\s*<?(\S+?)>?\s*$", text, flags=re.M):
        found.append((match[1] or match[2], text.count("\n", 0, match.start()) + 1))
    return found


def slug(heading):
    """The anchor of a heading, as code hosting sites make it."""
    text = re.sub(r"\[([^\]]*)\]\([^)]*\)", r"\1", heading).replace("`", "").strip().lower()
    return re.sub(r"[^\w\- ]", "", text).replace(" ", "-")


def anchors(text):
    """The anchors of a document's headings, in order."""
    # Code is part of a heading's name.
    lines = zip(prose(text).split("\n"), text.split("\n"))
    found = []
    for without_code, line in lines:
        match = re.match(r"#{1,6} +(.*?)(?: +#+)?\s*$", line) if without_code.startswith("#") else None
        if match:
            name = slug(match[1])
            earlier = found.count(name)
            found.append(f"{name}-{earlier}" if earlier else name)
    return found


def literals(source):
    """The string literals in C++ code, adjacent ones joined, without those in directives and comments."""
    code = re.sub(r"^[ \t]*#.*$", "", source, flags=re.M)
    # The first match wins: a comment inside a literal is text, and a literal inside a comment does not count.
    pattern = r'R"\((?P<raw>.*?)\)"|"(?P<text>(?:[^"\\\n]|\\.)*)"|\'(?P<character>[^\'\\\n]|\\.)\'|//[^\n]*|/\*.*?\*/'
    meant = {"n": "\n", "r": "\r", "t": "\t"}
    found = []
    end = None
    for match in re.finditer(pattern, code, flags=re.S):
        if match.lastgroup is None:
            continue
        text = match[match.lastgroup]
        if match.lastgroup != "raw":
            text = re.sub(r"\\(.)", lambda escape: meant.get(escape[1], escape[1]), text)
        if end is not None and code[end : match.start()].strip() in ("", "L"):
            found[-1] += text
        else:
            found.append(text)
        end = match.end()
    return found
