"""Mutations that differ only for large or extreme values, for scripts/mutate.

  loops     end after 4000 iterations
  growth    lists hold at most 4000 elements
  lengths   sizes, counts and lengths are at most 4000
  bits      an integer that is read, passed or compared loses its top bit
  reals     a floating-point number is at most a million
  texts     a function returns at once for an empty text

The type of a name is that of its last declaration before its use, or of the field of that name in the headers. A
mutation is (start, end, replacement) in the source; `code` is the source with comments and literals blanked.
"""

import re

BOUND = 4000
LARGEST_REAL = "1e6"
LENGTH = re.compile(r"\w*(size|count|length|characters|written)\w*", re.IGNORECASE)
INTEGER = re.compile(r"(?:std::)?u?int(8|16|32|64)_t")
LENGTH_TYPE = re.compile(r"std::size_t|DWORD|UINT|int|(?:std::)?uint32_t")
REAL = re.compile(r"double|float")


def closing(code, opening):
    """The place of the parenthesis that closes the one at `opening`."""
    depth = 0
    for place in range(opening, len(code)):
        depth += {"(": 1, ")": -1}.get(code[place], 0)
        if depth == 0:
            return place
    raise ValueError("unbalanced parentheses")


# --- Names and their types ---

DECLARATION = re.compile(r"(?<![\w:])(?!return\b|else\b|delete\b|throw\b|new\b)"
                         r"([A-Za-z_][\w:]*(?:<[^;(){}]*>)?(?: const)?[&*]*) (\w+)(?= *(?:[,;={)\[]|:(?!:)))")
FIELD = re.compile(r"^ +(?:mutable )?([\w:]+) (\w+)(?: = [^;(]+)?;", re.MULTILINE)
NAME = re.compile(r"(?<![\w.>:])(\*?)((?:\w+(?:\.|->))*)(?!k[A-Z])([a-z]\w+)\b(?!\w|\(|\.|->|::)")
RESULT = re.compile(r"^(?:inline |static )*([\w:]+) (?:\w+::)*(\w+)\(", re.MULTILINE)


class Names:
    def __init__(self, code, headers):
        self.code = code
        self.declarations = list(DECLARATION.finditer(code))
        self.fields = {}
        for header in headers:
            for match in FIELD.finditer(header):
                self.fields.setdefault(match[2], match[1])

    def type_of(self, name, path, place):
        """The type of `path.name`, or of the last declaration of `name` before `place`."""
        if not path:
            types = [match[1] for match in self.declarations if match[2] == name and match.end() < place]
            if types:
                return types[-1]
        return self.fields.get(name, "")

    def reads(self):
        """(start, end, name, type) of each read of a variable or of a pointer's target. Excludes constants, and names of
        one letter: loop counters, which loops() mutates."""
        places = {match.start(2) for match in self.declarations}
        for match in NAME.finditer(self.code):
            star, path, name = match.groups()
            written = re.match(r"\s*([-+*/&|^]?=(?!=)|\)?\+\+|--|\{)", self.code[match.end():])
            addressed = re.search(r"(?<!&)&$|\+\+$|--$|sizeof\($|\W\[$", self.code[:match.start()])
            if match.start(3) in places or written or addressed:
                continue
            declared = self.type_of(name, path, match.start())
            points = declared.endswith("*")
            if points == bool(star):
                yield match.start(), match.end(), name, declared.removesuffix("*")

    def calls(self):
        """The same for each call of a function that this file declares."""
        for declared, name in set(RESULT.findall(self.code)):
            for match in re.finditer(rf"(?<![\w.:>])(?<![\w>] ){name}\(|(?<=return ){name}\(", self.code):
                yield match.start(), closing(self.code, match.end() - 1) + 1, name, declared


# --- The mutations; @ stands for the replaced source ---


def loops(code):
    for match in re.finditer(r"\b(?:for|while) \(", code):
        end = closing(code, match.end() - 1) + 1
        if code[end:end + 2] == " {":
            yield match.start(), end + 2, f"int rounds_ = {BOUND}; @ if (rounds_-- == 0) break;"


def growth(code):
    for match in re.finditer(r"\b(\w+)\.(?:push|emplace)_back\(", code):
        yield *match.span(), f"if ({match[1]}.size() < {BOUND}) @"


def lengths(code, names):
    """Excludes comparisons with 0, where a bound makes no difference."""
    found = [(start, end) for start, end, name, declared in names.reads()
             if LENGTH.fullmatch(name) and LENGTH_TYPE.fullmatch(declared)]
    found += [match.span() for match in re.finditer(r"(?<![\w.>])[\w.]+\.size\(\)|\bLengthOf\([\w.]+\)", code)]
    for start, end in found:
        if not re.match(r" [<>=!]=? 0\b", code[end:]):
            yield start, end, f"(@ < {BOUND} ? @ : {BOUND})"


def bits(names):
    """A test that kills the loss of the top bit also kills the loss of the upper half."""
    for start, end, name, declared in [*names.reads(), *names.calls()]:
        integer = INTEGER.fullmatch(declared)
        if integer and not LENGTH.fullmatch(name):
            mask = (1 << int(integer[1]) - 1) - 1
            yield start, end, f"(@ & {mask:#x})"


def reals(names):
    for start, end, _, declared in names.reads():
        if REAL.fullmatch(declared):
            yield start, end, f"(@ < {LARGEST_REAL} ? @ : {LARGEST_REAL})"


FUNCTION = re.compile(r"^(?P<head>[^\n(){};#]*?)(?P<name>[\w:]+)\((?P<parameters>[^(){};]*)\)[^(){};]*\{", re.MULTILINE)
TEXT = re.compile(r"(?:const (?P<characters>WCHAR|BrindleChar)\*|HSTRING) (?P<name>\w+)")


def texts(code):
    for function in FUNCTION.finditer(code):
        head = function["head"].strip()
        leave = "return;" if head in ("", "explicit") or head.endswith("void") else "return {};"
        for text in TEXT.finditer(function["parameters"]):
            empty = f"*{text['name']} == 0" if text["characters"] else f"{text['name']} == nullptr"
            yield *function.span(), f"@ if ({empty}) {leave}"


def extremes(source, code, headers):
    """All mutations. `headers` is the code of the headers that declare the fields; the first field of a name counts."""
    names = Names(code, headers)
    for found in (loops(code), growth(code), lengths(code, names), bits(names), reals(names), texts(code)):
        for start, end, replacement in found:
            yield start, end, replacement.replace("@", source[start:end])
