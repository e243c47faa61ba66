"""Every single change that can be made to a source file: what stands there, and what instead."""

import re
from dataclasses import dataclass

COMPARISONS = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "=="}
OPERATORS = {"+": "-", "-": "+", "*": "/", "/": "*", "%": "*", "&&": "||", "||": "&&",
             "+=": "-=", "-=": "+="}
BINARY = {**COMPARISONS, **OPERATORS}

# Binary operators have a blank on either side here, which tells them from templates and pointers.
BINARY_PATTERN = re.compile(
    r"(?<= )(" + "|".join(map(re.escape, sorted(BINARY, key=len, reverse=True))) + r")(?=\s)")
NUMBER = re.compile(r"(?<![\w.'])(0[xX][0-9a-fA-F']+|\d[\d']*(?:\.\d+)?)(?![\w.]*[xX])")
BOOL = re.compile(r"\b(true|false)\b")
NEGATION = re.compile(r"(?<![\w)\]])!(?=[\w(])")

MASKED = re.compile(
    r'//[^\n]*|/\*.*?\*/|R"(\w*)\(.*?\)\1"|"(?:\\.|[^"\\\n])*"|(?<![\w])\'(?:\\.|[^\'\\\n])\'',
    re.S)
DIRECTIVE = re.compile(r"^[ \t]*#[^\n]*", re.M)

# A statement that does something: a call, an assignment, a step. Declarations have two names in a
# row before their bracket or "=", and are left alone.
STATEMENT = re.compile(
    r"^(?:if \(.*\) )?(?:return\b.*|break|continue|(?:\+\+|--)?[\w:.\->\[\]()*&]+"
    r"(?:\(.*\)|\s(?:=|\+=|-=)\s.*)?);$", re.S)
DEAD = re.compile(r"= (?:delete|default);$")

LEAVES = re.compile(r"(?:return|break|continue|throw)\b")  # nothing behind it runs
ASSIGNMENT = re.compile(r"([\w.]+) = ([^=\[\];]*);$", re.S)
CALL = re.compile(r"([\w.:]*(?:<[^<>()]*>)?)\(")
# Of these only the result counts. A bracket without a name groups.
READS = re.compile(r"|static_cast<.*>|std::string|std::move|rounded|littleEndian|"
                   r"(?:runtime::)?fileTitleOf|skinPicture|"
                   r"[\w.]+\.(?:data|c_str|value|empty|size)")
HANDLER = re.compile(r"([\w.]+) = \[[^\]=]*\]")  # connects an event, which runs nothing yet
# What a control shows is painted when the handler is done. Texts are blanks here.
SHOWING = re.compile(r"([\w.()]+)\.(?:Visible|Caption)\((?:true|false| *)\);$")
# Controls get their places and faces one by one; which lies above which is told elsewhere.
LAYOUT = re.compile(r"(\w+)\.(?:place|set[A-Z]\w+)\(.*\);$", re.S)


@dataclass(frozen=True)
class Change:
    path: str
    line: int
    start: int  # of the text that is replaced, in characters of the file
    end: int
    new: str
    kind: str
    before: str  # the lines concerned, as they are and as they become, without their indentation
    after: str

    def applied(self, text):
        return text[:self.start] + self.new + text[self.end:]

    def __str__(self):
        return f"{self.path}:{self.line}: {self.kind}: {self.before}  ->  {self.after or '(nothing)'}"


def masked(text):
    """The text with blanks for what no change may touch: comments, strings, directives."""
    blank = lambda match: re.sub(r"[^\n]", " ", match[0])
    return DIRECTIVE.sub(blank, MASKED.sub(blank, text))


def one_more(number):
    digits = number.replace("'", "")
    if digits[:2] in ("0x", "0X"):
        return f"{int(digits, 16) + 1:#x}"
    if "." in digits:
        whole, _, places = digits.partition(".")
        return f"{int(whole) + 1}.{places}"
    return str(int(digits) + 1)


def squeezed(text):
    return " ".join(text.split())


def statements(code):
    """Start and end of each statement on lines of its own, with its indentation."""
    found = []
    start = None
    for match in re.finditer(r"[^\n]*\n", code):
        line = match[0].rstrip()
        if start is None:
            if not line.strip():
                continue
            start = match.start()
        if line.endswith(("{", "}", ":", ",") if start == match.start() else ("{", "}")):
            start = None
        elif line.endswith(";"):
            whole = code[start:match.end()]
            text = whole.strip()
            indent = len(whole) - len(whole.lstrip(" "))
            balanced = text.count("(") == text.count(")") and text.count("{") == text.count("}")
            if indent and balanced and STATEMENT.match(text) and not DEAD.search(text):
                found.append((start, match.end(), indent))
            start = None
    return found


def independent(first, second):
    """Whether two statements touch nothing of each other, so that their order is no matter."""
    for pattern in (HANDLER, SHOWING, LAYOUT):
        one, other = pattern.match(first), pattern.match(second)
        if one and other:
            return one[1] != other[1]
    return assigns(first, second) and assigns(second, first)


def assigns(first, second):
    """Whether the first sets something that the second doesn't name, and does nothing else."""
    one = ASSIGNMENT.match(first)
    if one is None or not all(READS.fullmatch(call) for call in CALL.findall(one[2])):
        return False
    emptied = re.findall(r"std::move\(([^()]*)\)", one[2])
    touched = {name.split(".")[-1] for name in (one[1], *emptied)}
    return touched.isdisjoint(re.findall(r"\w+", second))


class File:
    def __init__(self, path, text):
        self.path = path
        self.text = text
        self.code = masked(text)

    def change(self, start, end, new, kind):
        first = self.text.rfind("\n", 0, start) + 1
        last = self.text.find("\n", end - 1 if self.text[end - 1] == "\n" else end)
        before = self.text[first:last]
        after = self.text[first:start] + new + self.text[end:max(end, last)]
        return Change(self.path, self.text.count("\n", 0, start) + 1, start, end, new, kind,
                      squeezed(before), squeezed(after))

    def tokens(self):
        for match in BINARY_PATTERN.finditer(self.code):
            kind = "comparison" if match[0] in COMPARISONS else "operator"
            yield self.change(*match.span(), BINARY[match[0]], kind)
        for match in NUMBER.finditer(self.code):
            yield self.change(*match.span(), one_more(match[0]), "number")
        for match in BOOL.finditer(self.code):
            yield self.change(*match.span(), "false" if match[0] == "true" else "true", "bool")
        for match in NEGATION.finditer(self.code):
            yield self.change(*match.span(), "", "bool")

    def steps(self):
        all_of_them = statements(self.code)
        for start, end, _ in all_of_them:
            if not self.code[start:end].lstrip().startswith("return "):
                yield self.change(start, end, "", "dropped")
        for (start, middle, indent), (again, end, other) in zip(all_of_them, all_of_them[1:]):
            first, second = self.code[start:middle].strip(), self.code[middle:end].strip()
            if middle != again or indent != other or LEAVES.match(first) or LEAVES.match(second):
                continue
            if not independent(first, second):
                new = self.text[middle:end] + self.text[start:middle]
                yield self.change(start, end, new, "swapped")


def of(path, text):
    """All changes of a file, in the order of its text."""
    file = File(path, text)
    return sorted([*file.tokens(), *file.steps()], key=lambda one: (one.start, one.end, one.kind))
