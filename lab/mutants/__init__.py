"""Small mistakes in C++ sources, one at a time, that the tests should catch. libclang finds the expressions and
statements; the compiler decides whether a change has an effect."""

from typing import NamedTuple

from clang.cindex import CursorKind as Kind
from clang.cindex import Index

OPERATORS = {"==": "!=", "!=": "==", "<": "<=", "<=": "<", ">": ">=", ">=": ">", "&&": "||", "||": "&&", "+": "-",
             "-": "+", "*": "/", "/": "*", "%": "*", "&": "|", "|": "&", "^": "|", "<<": ">>", ">>": "<<", "+=": "-=",
             "-=": "+=", "*=": "/=", "/=": "*=", "|=": "&=", "&=": "|=", "++": "--", "--": "++"}
LITERALS = {Kind.INTEGER_LITERAL: "({} + 1)", Kind.FLOATING_LITERAL: "({} + 1)", Kind.CHARACTER_LITERAL: "({} + 1)"}
# Worked out by the compiler.
NOT_LOOKED_INTO = (Kind.STATIC_ASSERT,)


class Mutant(NamedTuple):
    file: str
    line: int
    code: str  # the line it is in, trimmed; with file and change it names the mutant
    change: str
    start: int
    end: int
    new: bytes

    def applied(self, source):
        return source[:self.start] + self.new + source[self.end:]


def mutants_of(file, source, flags=()):
    """The mutants of one file, given as bytes, in the order of its lines."""
    unit = Index.create().parse(file, [*flags, "-std=c++20", "-x", "c++"], unsaved_files=[(file, source.decode())])
    broken = [problem.spelling for problem in unit.diagnostics if problem.severity >= 3]
    if broken:
        raise ValueError(f"{file}: {broken[0]}")
    lines = source.split(b"\n")
    found = {}
    for start, end, change, new in _changes(unit.cursor, file, source):
        line = source.count(b"\n", 0, start)
        mutant = Mutant(file, line + 1, lines[line].decode().strip(), change, start, end, new.encode())
        found.setdefault((start, end, new), mutant)  # a template is seen once more for each of its uses
    return sorted(found.values(), key=lambda mutant: (mutant.start, mutant.change))


def _changes(cursor, file, source):
    for child in cursor.get_children():
        place = child.location.file
        if child.kind in NOT_LOOKED_INTO or (place and place.name != file):
            continue
        yield from _changes_of(child, source)
        if child.kind == Kind.COMPOUND_STMT:
            for statement in child.get_children():
                yield from _dropped(statement, source)
        yield from _changes(child, file, source)


def _span(cursor):
    return cursor.extent.start.offset, cursor.extent.end.offset


def _text(cursor, source):
    start, end = _span(cursor)
    return source[start:end].decode()


def _changes_of(cursor, source):
    kind, (start, end), text = cursor.kind, _span(cursor), _text(cursor, source)
    children = list(cursor.get_children())
    if kind in (Kind.BINARY_OPERATOR, Kind.COMPOUND_ASSIGNMENT_OPERATOR) and len(children) == 2:
        sign = source[_span(children[0])[1]:_span(children[1])[0]].decode()
        if sign.strip() in OPERATORS:
            at, old = _span(children[0])[1] + sign.index(sign.strip()), sign.strip()
            yield at, at + len(old), f"`{old}` becomes `{OPERATORS[old]}`", OPERATORS[old]
    elif kind == Kind.UNARY_OPERATOR and text[:2] in OPERATORS:
        yield start, start + 2, f"`{text[:2]}` becomes `{OPERATORS[text[:2]]}`", OPERATORS[text[:2]]
    elif kind == Kind.UNARY_OPERATOR and text[:1] in ("!", "~", "-"):
        yield start, start + 1, f"`{text[0]}` is dropped", ""
    elif kind in LITERALS and text:
        yield start, end, f"`{text}` becomes `{LITERALS[kind].format(text)}`", LITERALS[kind].format(text)
    elif kind == Kind.CXX_BOOL_LITERAL_EXPR:
        other = "false" if text == "true" else "true"
        yield start, end, f"`{text}` becomes `{other}`", other
    elif kind == Kind.STRING_LITERAL and text.endswith('"'):
        yield end - 1, end, f"`{text}` becomes longer", '~"'
    elif kind in (Kind.IF_STMT, Kind.WHILE_STMT, Kind.CONDITIONAL_OPERATOR):
        condition = children[0]
        if not condition.kind.is_declaration() and condition.kind != Kind.DECL_STMT:
            for forced in ("false",) if kind == Kind.WHILE_STMT else ("true", "false"):
                yield *_span(condition), f"the condition is always {forced}", forced
    elif kind == Kind.RETURN_STMT and children and text != "return {}":
        yield start, end, "`return` of nothing", "return {}"


def _dropped(statement, source):
    """An expression, or a jump, is left out; declarations are not, as nothing would compile without them."""
    start, end = _span(statement)
    expression = statement.kind.is_expression() and statement.kind != Kind.LAMBDA_EXPR
    if (expression or statement.kind in (Kind.BREAK_STMT, Kind.CONTINUE_STMT)) and source[end:end + 1] == b";":
        yield start, end, "the statement is dropped", ""
