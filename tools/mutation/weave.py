"""Compiles many changes into one program, each behind a number that the environment chooses."""
import re


class Mutants:
    """Numbered changes of the files of a tree, which are rewritten in place."""

    def __init__(self, tree, chosen):
        self.tree = tree
        self.chosen = dict(chosen)  # number -> (file name, Change)
        self.refused = 0
        self.originals = {name: (tree / name).read_bytes() for name, _ in self.chosen.values()}

    def write(self):
        """Writes all changes into their files. Changes that overlap one another are dropped, all but one."""
        for name, source in self.originals.items():
            here = sorted(((number, change) for number, (owner, change) in self.chosen.items() if owner == name),
                          key=lambda item: (item[1].begin, -item[1].end, item[0]))
            content = self._woven(source, 0, len(source), here, {change.constant for _, change in here} - {-1})
            if (self.tree / name).read_bytes() != content:
                (self.tree / name).write_bytes(content)

    def restore(self):
        for name, source in self.originals.items():
            if (self.tree / name).read_bytes() != source:
                (self.tree / name).write_bytes(source)

    def refuse(self, messages):
        """Drops the changes that the compiler's messages are about; returns how many."""
        dropped = set()
        for name in self.originals:
            mine = {number for number, (owner, _) in self.chosen.items() if owner == name}
            lines = (self.tree / name).read_bytes().split(b"\n")
            complaint = re.escape(name) + r":(\d+):\d+: (?:(?:fatal )?error:|  +required from)"
            here = set()
            for line in {int(line) for line in re.findall(complaint, messages)}:
                # A message may be about the end of what begins further up.
                for at in range(line, max(0, line - 15), -1):
                    near = {int(number) for number in re.findall(rb"mutant\((\d+)\)", lines[at - 1])} & mine
                    if near:
                        here |= near
                        break
            if not here and re.search(rf"^FAILED: .*{re.escape(name)}\.", messages, re.MULTILINE):
                here = mine
            dropped |= here
        self._drop(dropped)
        return len(dropped)

    def _drop(self, numbers):
        for number in numbers:
            del self.chosen[number]
        self.refused += len(numbers)

    def _woven(self, source, begin, end, changes, constants):
        """The text from begin to end, in which each of the changes can be chosen."""
        result = b""
        at = begin
        while changes:
            (number, change), rest = changes[0], changes[1:]
            inner = [item for item in rest if item[1].end <= change.end]
            overlapping = [item for item in rest if item[1].begin < change.end < item[1].end]
            self._drop([lost for lost, _ in overlapping])
            same = [item for item in inner if (item[1].begin, item[1].end) == (change.begin, change.end)]
            result += _relaxed(source, at, change.begin, constants)
            deeper = [item for item in inner if item not in same]
            text = self._woven(source, change.begin, change.end, deeper, constants)
            for variant, other in [(number, change), *same]:
                if other.statement:
                    # Braces around: an else below belongs to the condition above.
                    text = b"{ if (!mutant(%d)) { %s } }" % (variant, text)
                elif other.what in ("condition negated", "negation removed"):
                    # What is not a bool would become the type of both, and mean something else.
                    flat = other.text.replace(b"\n", b" ")
                    text = b"(mutant(%d) ? bool(%s) : bool(%s))" % (variant, flat, text)
                else:
                    # Lines keep their numbers, so that the compiler's messages lead back to the change.
                    text = b"(mutant(%d) ? (%s) : (%s))" % (variant, other.text.replace(b"\n", b" "), text)
            result += text
            at = change.end
            changes = rest[len(inner) + len(overlapping):]
        return result + _relaxed(source, at, end, constants)


def _relaxed(source, begin, end, constants):
    """The text from begin to end, with const for each constexpr at one of these places."""
    result = b""
    for place in sorted(place for place in constants if begin <= place < end):
        result += source[begin:place] + b"const    "
        begin = place + len(b"constexpr")
    return result + source[begin:end]
