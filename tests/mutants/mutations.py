"""Which single faults a line of C++ can have.

Lines are taken as .clang-format leaves them: a binary operator has blanks around it, a template's bracket has none, and
a statement that is nothing but a call stands on a line of its own or not at all.
"""
import re
from typing import Iterator, NamedTuple


class Mutation(NamedTuple):
    path: str  # from the tree's root
    line: int  # counted from 1
    before: str
    after: str


OPERATORS = {
    " == ": " != ", " != ": " == ", " < ": " <= ", " <= ": " < ", " > ": " >= ", " >= ": " > ",
    " && ": " || ", " || ": " && ", " + ": " - ", " - ": " + ", " * ": " / ", " / ": " * ", " % ": " / ",
    " += ": " -= ", " -= ": " += ", " & ": " | ", " | ": " & ", "++": "--", "--": "++",
    "std::min(": "std::max(", "std::max(": "std::min(",
}
WORDS = {"true": "false", "false": "true", "break;": ";", "continue;": ";", "return;": ";"}
NUMBER = re.compile(r"(?<![\w.'])(?:0[xX][0-9A-Fa-f']+|\d[\d']*(?:\.\d+)?(?:[eE][-+]?\d+)?)(?=[uUlLfF]*\b)(?![.\w']*\()")
CONDITION = re.compile(r"\b(?:if|while) \(")
CALL = re.compile(r"^\s*(?:\(void\))?[A-Za-z_][\w:]*(?:(?:\.|->)\w+|\[[^\]]*\]|\(\))*\(.*\);$")
# Neither what the compiler alone reads nor what the tests are not meant to see.
NO_STATEMENT = re.compile(r"^\s*(?:.*\.reserve\(|#|//|\*|/\*|using |namespace |template|static_assert|friend |class |struct |\[\[nodiscard\]\])")


def mutations_of(path: str, number: int, line: str) -> list[Mutation]:
    if NO_STATEMENT.match(line):
        return []
    open_for_change = without_texts(line)
    found = {after for after in changes(line, open_for_change) if after != line}
    return [Mutation(path, number, line, after) for after in sorted(found)]


def without_texts(line: str) -> str:
    """The line with its texts, characters and comment made unreadable, every column in its place."""
    def blank(match: re.Match) -> str:
        return "\x01" * len(match.group())
    line = re.sub(r'"(?:\\.|[^"\\])*"|(?<!\w)\'(?:\\.|[^\'\\])*\'', blank, line)
    return re.sub(r"//.*", blank, line)


def changes(line: str, code: str) -> Iterator[str]:
    for before, after in OPERATORS.items():
        for at in places(code, before):
            yield put(line, at, len(before), after)
    for word, after in WORDS.items():
        for match in re.finditer(r"(?<![\w:])" + re.escape(word) + r"(?!\w)", code):
            yield put(line, match.start(), len(word), after)
    for match in NUMBER.finditer(code):
        yield put(line, match.start(), len(match.group()), another_number(match.group())).replace("-0;", "0;")
    for match in CONDITION.finditer(code):
        yield from negated(line, code, match.end() - 1)
    if CALL.match(code.rstrip("\x01 ")):
        yield line[: len(line) - len(line.lstrip())] + ";"


def places(code: str, what: str) -> Iterator[int]:
    at = code.find(what)
    while at >= 0:
        yield at
        at = code.find(what, at + 1)


def put(line: str, at: int, length: int, text: str) -> str:
    return line[:at] + text + line[at + length:]


def another_number(text: str) -> str:
    """One more; a factor of two for what is no integer; without its lowest bit for what is written as bits.

    1 becomes 0, so that "return -1" becomes no failure."""
    plain = text.replace("'", "")
    if plain == "1":
        return "0"
    if plain.lower().startswith("0x"):
        value = int(plain, 16)
        return hex(value & (value - 1) if value & (value - 1) else value + 1)
    if re.fullmatch(r"0[0-7]+", plain):
        value = int(plain, 8)
        return "0%o" % (value & (value - 1) if value & (value - 1) else value + 1)
    if plain.isdigit():
        return str(int(plain) + 1)
    return repr(float(plain) * 2) if float(plain) != 0 else "1.0"


def negated(line: str, code: str, opening: int) -> Iterator[str]:
    """The condition between this bracket and its partner, unless that stands on another line or it declares a name."""
    depth = 0
    for at in range(opening, len(code)):
        depth += {"(": 1, ")": -1}.get(code[at], 0)
        if depth == 0:
            condition = line[opening + 1: at]
            if not re.search(r"\bauto\b|;", condition):
                yield line[: opening + 1] + "!(" + condition + ")" + line[at:]
            return
