"""Finds the small changes that can be made to a source file, on clang's syntax tree of it."""
import dataclasses
import re

from clang import cindex
from clang.cindex import CursorKind, TypeKind

OPPOSITES = {
    "<": ["<=", ">="], "<=": ["<", ">"], ">": [">=", "<="], ">=": [">", "<"], "==": ["!="], "!=": ["=="],
    "&&": ["||"], "||": ["&&"], "+": ["-"], "-": ["+"], "*": ["/"], "/": ["*"], "&": ["|"], "|": ["&"],
    "+=": ["-="], "-=": ["+="],
}
NEGATIONS = {"negation removed", "== became !=", "!= became ==", "< became >=", ">= became <", "> became <=",
             "<= became >"}
ARITHMETIC = {"+", "-", "*", "/", "+=", "-="}
BLOCKS = (CursorKind.COMPOUND_STMT, CursorKind.IF_STMT, CursorKind.FOR_STMT, CursorKind.CXX_FOR_RANGE_STMT,
          CursorKind.WHILE_STMT)
REMOVABLE = (CursorKind.CALL_EXPR, CursorKind.BREAK_STMT, CursorKind.CONTINUE_STMT, CursorKind.BINARY_OPERATOR,
             CursorKind.COMPOUND_ASSIGNMENT_OPERATOR, CursorKind.UNARY_OPERATOR, CursorKind.CXX_DELETE_EXPR)
# What is part of a constant expression is decided when the program is compiled.
CONSTANT = (CursorKind.CASE_STMT, CursorKind.ENUM_CONSTANT_DECL, CursorKind.STATIC_ASSERT, CursorKind.TEMPLATE_REF)
STRING = re.compile(r'\b(?:QStringLiteral|QLatin1String|QByteArrayLiteral|tr)\((?:u?"(?:[^"\\]|\\.)*")\)'
                    r'|\bQLatin1Char\(\'(?:[^\'\\]|\\.)\'\)|(?<![\w)"])[Lu]?"(?:[^"\\\n]|\\.)+"(?!\s*")')
COMMENT_OR_DIRECTIVE = re.compile(r"//[^\n]*|/\*.*?\*/|^\s*#[^\n]*", re.DOTALL | re.MULTILINE)


@dataclasses.dataclass(frozen=True)
class Change:
    """Bytes begin to end of a file become another text; they are removed if they are a statement.

    `constant` is where `constexpr` stands in the declaration that the change is part of, or -1: as the change is chosen
    when the program runs, the declaration has to be `const` only.
    """
    begin: int
    end: int
    text: bytes
    what: str
    statement: bool = False
    constant: int = -1


def find(path, arguments):
    """All changes of a file that compiles with these arguments, in the order of the file."""
    return _Finder(path, arguments).found()


def described(change, source):
    """A change as a line for people: what is done to which text."""
    return f"{change.what}: " + b" ".join(source[change.begin:change.end].split()).decode(errors="replace")[:110]


class _Finder:
    def __init__(self, path, arguments):
        self.path = str(path)
        self.source = path.read_bytes()
        self.changes = set()
        self.constants = []  # begin, end and place of constexpr of declarations
        self.excluded = []   # what cannot be changed while the program runs
        unit = cindex.Index.create().parse(self.path, args=arguments)
        errors = [str(found) for found in unit.diagnostics if found.severity >= cindex.Diagnostic.Error]
        if errors:
            raise RuntimeError(f"clang cannot read {self.path}: {errors[0]}")
        self._visit(unit.cursor)
        self._strings()

    def found(self):
        kept = []
        turned = {(change.begin, change.end) for change in self.changes if change.what in NEGATIONS}
        for change in self.changes:
            # The same thing twice.
            if change.what == "condition negated" and (change.begin, change.end) in turned:
                continue
            if any(begin <= change.begin and change.end <= end for begin, end in self.excluded):
                continue
            for begin, end, constant in self.constants:
                if begin <= change.begin and change.end <= end:
                    change = dataclasses.replace(change, constant=constant)
            kept.append(change)
        return sorted(kept, key=lambda change: (change.begin, -change.end, change.what, change.text))

    def _add(self, begin, end, text, what, statement=False):
        self.changes.add(Change(begin, end, text, what, statement))

    def _visit(self, cursor):
        for child in cursor.get_children():
            start = child.extent.start
            if start.file is None or start.file.name != self.path:
                continue
            if child.kind in CONSTANT:
                # Of a case, only the label is constant.
                parts = list(child.get_children())
                if child.kind == CursorKind.CASE_STMT and len(parts) == 2:
                    self.excluded.append(_range(parts[0]))
                    self._change(parts[1], child)
                    self._visit(parts[1])
                else:
                    self.excluded.append(_range(child))
                continue
            if child.kind == CursorKind.VAR_DECL:
                self._declaration(child)
            self._change(child, cursor)
            self._visit(child)

    def _declaration(self, cursor):
        begin, end = _range(cursor)
        text = self.source[begin:end]
        keyword = re.match(rb"(?:\[\[\w+\]\]\s*)?(?:(?:static|inline)\s+)*(constexpr)\b", text)
        if keyword:
            self.constants.append((begin, end, begin + keyword.start(1)))
        if re.search(rb'\[\]\s*=\s*[Lu]?R?"', text):
            self.excluded.append((begin, end))

    def _change(self, cursor, parent):
        begin, end = _range(cursor)
        text = self.source[begin:end]
        if not text:
            return
        kind = cursor.kind
        children = list(cursor.get_children())
        if kind in (CursorKind.BINARY_OPERATOR, CursorKind.COMPOUND_ASSIGNMENT_OPERATOR) and len(children) == 2 or \
                kind == CursorKind.CALL_EXPR and len(children) == 3:
            self._operator(children[0], children[-1], begin, end)
        if kind == CursorKind.UNARY_OPERATOR and text.startswith(b"!"):
            self._add(begin, end, b"(" + text[1:] + b")", "negation removed")
        if kind in (CursorKind.IF_STMT, CursorKind.WHILE_STMT):
            for child in children[:-1]:
                first, last = _range(child)
                if self.source[last:last + 20].lstrip().startswith(b")") and child.type.kind != TypeKind.INVALID:
                    self._negate(child)
        if kind == CursorKind.CONDITIONAL_OPERATOR and len(children) == 3:
            self._negate(children[0])
        if kind == CursorKind.RETURN_STMT and children and children[0].type.get_canonical().kind == TypeKind.BOOL and \
                text not in (b"return true", b"return false"):
            self._negate(children[0])
        if kind == CursorKind.INTEGER_LITERAL and re.fullmatch(rb"(\d+|0[xX][\da-fA-F]+)[uUlL]*", text):
            self._add(begin, end, b"(" + text + b" + 1)", "number one more")
        if kind == CursorKind.CXX_BOOL_LITERAL_EXPR and text in (b"true", b"false"):
            self._add(begin, end, b"false" if text == b"true" else b"true", "truth turned")
        if self._is_statement(cursor, parent):
            self._add(begin, self.source.index(b";", end) + 1, b"", "statement removed", statement=True)
        if kind == CursorKind.CALL_EXPR:
            self._swap(cursor, begin, end)

    def _negate(self, cursor):
        first, last = _range(cursor)
        if self.source[first:last].strip():
            self._add(first, last, b"!(" + self.source[first:last] + b")", "condition negated")

    def _is_statement(self, cursor, parent):
        begin, end = _range(cursor)
        if parent.kind not in BLOCKS or not self.source[end:end + 20].lstrip().startswith(b";"):
            return False
        inner = cursor
        while inner.kind == CursorKind.UNEXPOSED_EXPR:
            below = list(inner.get_children())
            if len(below) != 1:
                return False
            inner = below[0]
        leaves = inner.kind == CursorKind.RETURN_STMT and self.source[begin:end] == b"return"
        if not leaves and inner.kind not in REMOVABLE:
            return False
        # Not the condition of what it is in, nor a part of a loop's head.
        return parent.kind == CursorKind.COMPOUND_STMT or \
            self.source[:begin].rstrip().endswith((b")", b"else")) and cursor != list(parent.get_children())[0]

    def _operator(self, left, right, begin, end):
        between = self.source[left.extent.end.offset:right.extent.start.offset]
        match = re.fullmatch(rb"\s*(\S{1,2})\s*", between)
        if left.extent.start.offset != begin or right.extent.end.offset != end or not match:
            return
        written = match.group(1).decode()
        # What adds strings does not subtract them.
        types = (left.type.get_canonical().kind, right.type.get_canonical().kind)
        if written in ARITHMETIC and TypeKind.RECORD in types:
            return
        for other in OPPOSITES.get(written, []):
            text = self.source[begin:left.extent.end.offset] + between.replace(match.group(1), other.encode()) + \
                self.source[right.extent.start.offset:end]
            self._add(begin, end, text, f"{written} became {other}")

    def _swap(self, cursor, begin, end):
        arguments = list(cursor.get_arguments())
        for one, other in zip(arguments, arguments[1:]):
            if one.type.get_canonical().spelling != other.type.get_canonical().spelling:
                continue
            (a, b), (c, d) = _range(one), _range(other)
            if not begin <= a < b <= c < d <= end or self.source[a:b] == self.source[c:d] or \
                    self.source[b:c].strip() != b",":
                continue
            text = self.source[begin:a] + self.source[c:d] + self.source[b:c] + self.source[a:b] + self.source[d:end]
            self._add(begin, end, text, "arguments swapped")

    def _strings(self):
        # Strings are found in the text: clang's tree has the macros around them expanded.
        text = COMMENT_OR_DIRECTIVE.sub(lambda match: re.sub(r"[^\n]", " ", match.group()),
                                        self.source.decode("latin-1"))
        for match in STRING.finditer(text):
            whole = match.group()
            if whole.endswith("')"):
                changed = re.sub(r"'.*'", "'~'", whole)
            else:
                last = whole.rindex('"')
                changed = whole[:last] + "~" + whole[last:]
            self._add(match.start(), match.end(), changed.encode("latin-1"), "string changed")


def _range(cursor):
    return cursor.extent.start.offset, cursor.extent.end.offset
