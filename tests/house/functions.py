"""Finds the functions of a C++ source and their lengths, without a compiler.

It reads braces and the text before them, which is enough for code that clang-format has laid out.
"""
import re
from dataclasses import dataclass

LONGEST = 60

# What may stand in front of a function without a semicolon or brace in between.
PREFIX = re.compile(r"\s*(?:(?:public|protected|private|signals|Q_SIGNALS)(?:\s+(?:Q_SLOTS|slots))?\s*:(?!:)"
                    r"|Q_[A-Z_]+\b(?:\((?:[^()]|\([^()]*\))*\))?)")
TOKEN = re.compile(r'''//[^\n]*|/\*.*?\*/|(?:u8|[uUL])?R"([^(\s]*)\(.*?\)\1"|"(?:\\.|[^"\\\n])*"'''
                   r'''|(?<![0-9A-Fa-f])'(?:\\.|[^'\\\n])+'|^[ \t]*\#(?:\\\n|[^\n])*''', re.DOTALL | re.MULTILINE)


@dataclass(frozen=True)
class Function:
    name: str
    line: int
    length: int
    has_reason: bool


def without_literals(text):
    """The text with comments, literals and preprocessor lines blanked, every other character in its place."""
    return TOKEN.sub(lambda m: re.sub(r"[^\n]", " ", m.group(0)), text)


def matching_brace(code, start):
    """The index of the brace that closes the one at `start`."""
    depth = 0
    for at in range(start, len(code)):
        depth += {"{": 1, "}": -1}.get(code[at], 0)
        if depth == 0:
            return at
    raise ValueError("a brace that is not closed")


def is_scope(head):
    """Whether a brace after `head` opens a namespace or a class."""
    head = re.sub(r"\b(?:alignas|__attribute__)\s*\([^()]*\)|\[\[[^\]]*\]\]", " ", head)
    head = re.sub(r"\btemplate\s*<[^{};]*?>\s*(?=class|struct|union)", " ", head)
    if re.search(r"\bnamespace\b|\bextern\s*$", head):
        return True
    return bool(re.match(r"\s*(?:typedef\s+|static\s+|inline\s+|constexpr\s+)*(?:class|struct|union)\b[^()=]*"
                         r"(?::(?!:).*)?$", head, re.DOTALL))


def has_reason_above(lines, index):
    """Whether the comment that ends right above lines[index] says "Long because"."""
    while index > 0 and lines[index - 1].lstrip().startswith(("//", "*", "/*")):
        index -= 1
        if "Long because" in lines[index]:
            return True
    return False


def functions(text):
    """Every function with a body, in the order of the text; those inside a function belong to it."""
    code = without_literals(text)
    lines = text.splitlines()
    found = []
    head = at = 0
    while at < len(code):
        if code[at] in ";}":
            head = at + 1
        elif code[at] == "{":
            before = code[head:at]
            while prefix := PREFIX.match(before):
                before = before[prefix.end():]
            if is_scope(before):
                head = at + 1
            else:
                end = matching_brace(code, at)
                following = code[end + 1:end + 200].lstrip()[:1]
                opens_body = "(" in before and not re.search(r"=\s*$", before)
                if following in (",", "{") or not opens_body:
                    at = end  # the braces of an initialiser: what precedes them goes on
                else:
                    begin = at - len(before.lstrip())
                    first, last = code.count("\n", 0, begin), code.count("\n", 0, end)
                    name = re.search(r"([\w:~]+|operator[^\w\s(]+)\s*\(", re.sub(r"<[^<>]*>", "", before))
                    found.append(Function(name.group(1) if name else "?", first + 1, last - first + 1,
                                          has_reason_above(lines, first)))
                    at = end
                    head = end + 1
        at += 1
    return found


def too_long(text):
    """The functions of a source that are too long and give no reason."""
    return [f for f in functions(text) if f.length > LONGEST and not f.has_reason]
