"""Makes mutants of C++ sources: small mistakes, one at a time, that the tests ought to notice.

Works on tokens, in code laid out by clang-format: there a comparison has a space on both sides, and a template's angle
bracket has not. What a change does to the meaning is the compiler's to say; one that does not compile is no mutant.
"""

import re
from dataclasses import dataclass

TOKEN = re.compile(
    r"(?P<space>\s+)"
    r"|(?P<comment>//[^\n]*|/\*.*?\*/)"
    r"|(?P<directive>\#(?:[^\n\\]|\\.)*(?:\\\n(?:[^\n\\]|\\.)*)*)"
    r'|(?P<text>(?:u8|[uUL])?"(?:[^"\\\n]|\\.)*")'
    r"|(?P<char>(?:u8|[uUL])?'(?:[^'\\\n]|\\.)+')"
    r"|(?P<number>\.?\d(?:[eE][+-]|['\w.])*)"
    r"|(?P<word>[A-Za-z_]\w*)"
    r"|(?P<sign>->\*?|::|<=>|<<=|>>=|\.\.\.|\+\+|--|&&|\|\||<<|[-+*/%&|^<>=!]=|.)",
    re.DOTALL)

# Their texts and numbers are for developers, or are worked out while compiling.
NOT_LOOKED_INTO = {"static_assert", "OD_VERIFY", "OD_ASSERT", "odReportAssert"}
NO_STATEMENT = {"return", "using", "typedef", "case", "default", "namespace", "struct", "class", "enum", "template",
                "public", "private", "protected", "friend", "throw", "goto"}


@dataclass(frozen=True)
class Token:
    kind: str
    text: str
    start: int
    spaced: bool  # white space on both sides

    @property
    def end(self):
        return self.start + len(self.text)


@dataclass(frozen=True)
class Mutant:
    """One change of one file. The edits are (start, end, new text), in order and apart from each other."""

    file: str
    line: int
    code: str  # the line it is on, trimmed; behind the line before it where the file has several that read the same
    change: str  # in words; with file and code it names the mutant
    edits: tuple

    @property
    def name(self):
        return (self.file, self.code, self.change)

    def apply(self, source):
        for start, end, new in reversed(self.edits):
            source = source[:start] + new + source[end:]
        return source


def tokens_of(source):
    """The tokens that count: no white space, comments, and preprocessor lines."""
    found = []
    for match in TOKEN.finditer(source):
        if match.lastgroup in ("space", "comment", "directive"):
            continue
        before = source[match.start() - 1:match.start()]
        after = source[match.end():match.end() + 1]
        found.append(Token(match.lastgroup, match.group(), match.start(), before.isspace() and after.isspace()))
    return found


class Maker:
    """Collects the mutants of one file."""

    def __init__(self, file, source):
        self._file = file
        self._source = source
        self._tokens = _without_uninteresting(tokens_of(source))
        self._partner = _partners(self._tokens)
        self._made = []  # (first edit's start, change, edits)
        self._seen = set()

    def all(self):
        self._tokens_changed()
        self._names_changed()
        self._texts_changed()
        self._conditions_forced()
        self._statements_dropped()
        self._rows_changed()
        return self._finished()

    def _add(self, change, *edits):
        """Takes one up, unless the same text was made before."""
        edits = tuple(sorted(edits))
        if edits not in self._seen:
            self._seen.add(edits)
            self._made.append((edits[0][0], change, edits))

    def _replace(self, token, new):
        self._add(f"`{token.text}` becomes `{new}`", (token.start, token.end, new))

    def _finished(self):
        """With their lines. Where one line has the same change twice, the later ones are numbered."""
        lines = [line.strip() for line in self._source.split("\n")]
        mutants, counts = [], {}
        for start, change, edits in sorted(self._made):
            number = self._source.count("\n", 0, start) + 1
            code = lines[number - 1]
            if lines.count(code) > 1:
                code = f"{next((line for line in reversed(lines[:number - 1]) if line), '')} | {code}"
            key = (number, change)
            counts[key] = counts.get(key, 0) + 1
            if counts[key] > 1:
                change += f" (no. {counts[key]})"
            mutants.append(Mutant(self._file, number, code, change, edits))
        return _numbered_over_lines(mutants)

    # ---- single tokens

    SIGNS = {"==": ("!=",), "!=": ("==",), "<=": ("<", ">"), ">=": (">", "<"), "&&": ("||",), "||": ("&&",),
             "+=": ("-=",), "-=": ("+=",), "|=": ("&=", "="), "&=": ("|=", "="), "++": ("--",), "--": ("++",),
             "<<": (">>",), ">>": ("<<",), "*=": ("/=",), "/=": ("*=",)}
    SPACED_SIGNS = {"<": ("<=", ">"), ">": (">=", "<"), "+": ("-",), "-": ("+",), "*": ("/",), "/": ("*",),
                    "%": ("*",), "&": ("|",), "|": ("&",), "^": ("|",)}
    WORDS = {"true": ("false",), "false": ("true",), "min": ("max",), "max": ("min",), "break": (), "nullopt": ()}

    def _tokens_changed(self):
        for i, token in enumerate(self._tokens):
            before = self._tokens[i - 1] if i else None
            after = self._tokens[i + 1] if i + 1 < len(self._tokens) else None
            if token.kind == "number":
                self._number_changed(token)
            elif token.kind == "char":
                self._replace(token, f"({token.text} + 1)")
                self._replace(token, f"({token.text} - 1)")
            elif token.kind == "word":
                for new in self.WORDS.get(token.text, ()):
                    self._replace(token, new)
            elif before and before.text == "operator" or token.text == "&&" and not token.spaced:
                pass  # a name, a reference
            elif token.text == "?" and token.spaced:
                self._add("the choice is always the second", (token.start, token.start, "&& false "))
                self._add("the choice is always the first", (token.start, token.start, "|| true "))
            elif token.text in "!~" and after and after.text != "=":
                self._add(f"`{token.text}{after.text}` becomes `{after.text}`", (token.start, token.end, ""))
            elif token.text == "-" and not token.spaced and after and after.kind == "number":
                self._add(f"`-{after.text}` becomes `{after.text}`", (token.start, token.end, ""))
            else:
                for new in self.SIGNS.get(token.text, self.SPACED_SIGNS.get(token.text, ()) if token.spaced else ()):
                    self._replace(token, new)

    def _number_changed(self, token):
        self._replace(token, f"({token.text} + 1)")
        if token.text.rstrip("uUlLzZ.0fFxX"):
            self._replace(token, f"({token.text} - 1)")

    # ---- names of one kind

    KINDS = [re.compile(rf"(?:{kind})\w+") for kind in
             ("DM_", "DC_", "DMCOLLATE_", "DMCOLOR_", "PRINTER_ENUM_", "PRINTER_INFO_", "kRt", "e[A-Z][a-z]", "IDS_",
              "LOGPIXELS", "PHYSICAL")]
    OTHER_AXIS = {"x": "y", "y": "x", "X": "Y", "Y": "X"}

    def _names_changed(self):
        """A flag or enumerator becomes the next of its kind in the file, and x becomes y where there is such a name."""
        words = [token for token in self._tokens if token.kind == "word"]
        present = {token.text for token in words}
        for kind in self.KINDS:
            names = sorted({name for name in present if kind.fullmatch(name)})
            for token in words:
                if token.text in names and len(names) > 1:
                    self._replace(token, names[(names.index(token.text) + 1) % len(names)])
        for token in words:
            other = token.text[:-1] + self.OTHER_AXIS.get(token.text[-1], token.text[-1])
            if other != token.text and other in present:
                self._replace(token, other)

    # ---- texts

    def _texts_changed(self):
        """A text is another one, and exchanged with its neighbour's."""
        texts = [token for token in self._tokens if token.kind == "text"]
        for i, token in enumerate(texts):
            self._replace(token, token.text[:-1] + "~\"")
            following = next((other for other in texts[i + 1:] if other.text != token.text), None)
            if following:
                self._add(f"`{token.text}` and the following `{following.text}` are exchanged",
                          (token.start, token.end, following.text), (following.start, following.end, token.text))

    # ---- conditions and statements

    def _conditions_forced(self):
        for i, token in enumerate(self._tokens):
            if token.text not in ("if", "while") or i + 1 >= len(self._tokens):
                continue
            opening = i + 1 + (self._tokens[i + 1].text == "constexpr")
            if self._tokens[opening].text != "(" or opening not in self._partner:
                continue
            closing = self._partner[opening]
            first = opening + 1
            for j in range(first, closing):
                if self._tokens[j].text == ";":
                    first = j + 1
            if any(inner.text == "=" for inner in self._tokens[first:closing]):
                continue  # it declares a name
            start, end = self._tokens[first].start, self._tokens[closing - 1].end
            for forced in ("true", "false") if token.text == "if" else ("false",):
                self._add(f"the condition is always {forced}", (start, end, forced))

    def _statements_dropped(self):
        for first, last in self._statements():
            word = self._tokens[first].text
            start, end = self._tokens[first].start, self._tokens[last].end
            if word == "return":
                if last - first > 2:
                    self._add("`return` of nothing", (start, end, "return {};"))
            elif word in ("break", "continue") or word not in NO_STATEMENT and not self._needed_later(first, last):
                self._add("the statement is dropped", (start, end, ";"))

    def _statements(self):
        """(first token, last token) of each simple statement in a function; the last one is its semicolon."""
        contexts = [[0, False, 0]]  # first token of the statement, inside a function, open parentheses
        for i, token in enumerate(self._tokens):
            here = contexts[-1]
            if token.text in "([":
                here[2] += 1
            elif token.text in ")]":
                here[2] -= 1
            elif token.text == "{":
                contexts.append([i + 1, self._begins_body(i), 0])
            elif token.text == "}" and len(contexts) > 1:
                contexts.pop()
                following = self._tokens[i + 1].text if i + 1 < len(self._tokens) else ""
                if following not in (",", ")", ";", ".", "}", "|"):
                    contexts[-1][0] = i + 1
            elif token.text == ":" and here[1] and self._tokens[here[0]].text in ("case", "default"):
                here[0] = i + 1
            elif token.text == ";" and here[2] == 0:
                first = self._behind_control(here[0])
                if here[1] and first < i:
                    yield first, i
                here[0] = i + 1

    def _behind_control(self, first):
        """The first token behind `if (...)` and the like."""
        while True:
            word = self._tokens[first].text
            if word in ("else", "do"):
                first += 1
            elif word in ("if", "for", "while", "switch") and first + 1 in self._partner:
                first = self._partner[first + 1] + 1
            else:
                return first

    def _begins_body(self, brace):
        if brace == 0:
            return False
        if self._tokens[brace - 1].text in (")", "]", "else", "try", "do", "const", "noexcept", "override", "mutable"):
            return True
        for token in reversed(self._tokens[:brace]):
            if token.text == "->":
                return True
            if token.kind == "sign" and token.text not in ("<", ">", "::", "*", "&"):
                return False
        return False

    def _needed_later(self, first, last):
        """Whether it declares a name that stands again behind it, so that nothing would compile without."""
        for i in range(first + 1, last + 1):
            if self._tokens[i].text in ("=", "(", ";", "{", "["):
                before, name = self._tokens[i - 2], self._tokens[i - 1]
                declares = (i - 2 >= first and name.kind == "word"
                            and (before.kind == "word" or before.text in (">", "*", "&")))
                return declares and any(token.text == name.text for token in self._tokens[last:])
        return False

    # ---- rows of tables

    def _rows_changed(self):
        for opening, closing in self._partner.items():
            if self._is_table(opening):
                rows = self._elements(opening, closing)
                for i, (start, end) in enumerate(rows):
                    if i + 1 < len(rows):
                        following = rows[i + 1]
                        self._add("the row is dropped", (start, following[0], ""))
                        self._add("the row and the following one are exchanged",
                                  (start, end, self._source[slice(*following)]), (*following, self._source[start:end]))
                    elif i:
                        self._add("the row is dropped", (rows[i - 1][1], end, ""))

    def _is_table(self, opening):
        tokens = self._tokens
        if tokens[opening].text == "(":  # table<Node>(rows)
            return opening > 3 and tokens[opening - 1].text == ">" and tokens[opening - 4].text == "table"
        return (tokens[opening].text == "{" and opening > 2 and tokens[opening - 1].text == "="
                and tokens[opening - 2].text == "]" and tokens[opening + 1].text == "{")

    def _elements(self, opening, closing):
        """(start, end) in the source of what stands between commas."""
        found, i, first = [], opening + 1, opening + 1
        while i <= closing:
            if i in self._partner:
                i = self._partner[i]
            elif self._tokens[i].text == "," or i == closing:
                if first < i:
                    found.append((self._tokens[first].start, self._tokens[i - 1].end))
                first = i + 1
            i += 1
        return found


def mutants_of(file, source):
    """The mutants of one file, in the order of its lines."""
    return Maker(file, source).all()


def _numbered_over_lines(mutants):
    """Lines that read the same are told apart by a number, so that a name names one mutant."""
    counts, told = {}, []
    for mutant in mutants:
        counts[mutant.name] = counts.get(mutant.name, 0) + 1
        if counts[mutant.name] > 1:
            change = f"{mutant.change} (place no. {counts[mutant.name]})"
            mutant = Mutant(mutant.file, mutant.line, mutant.code, change, mutant.edits)
        told.append(mutant)
    return told


def _without_uninteresting(tokens):
    """Leaves out what is between the parentheses of NOT_LOOKED_INTO behind the first argument, all of static_assert."""
    kept, i = [], 0
    partner = _partners(tokens)
    while i < len(tokens):
        kept.append(tokens[i])
        if tokens[i].text in NOT_LOOKED_INTO and i + 1 in partner:
            closing = partner[i + 1]
            kept.append(tokens[i + 1])
            if tokens[i].text != "static_assert":
                kept += [token for token in tokens[i + 2:closing] if token.kind != "text"]
            i = closing
        else:
            i += 1
    return kept


def _partners(tokens):
    """The index of the closing bracket by that of the opening one."""
    found, open_ones = {}, []
    for i, token in enumerate(tokens):
        if token.text in "([{" and token.kind == "sign":
            open_ones.append(i)
        elif token.text in ")]}" and token.kind == "sign" and open_ones:
            found[open_ones.pop()] = i
    return found
