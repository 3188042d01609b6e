"""Finds tests that compare COM's results as numbers, where a failure would print -2147467259: isHresult says both codes by name.

usage: hresult_comparisons.py FILE...
"""

import re
import sys

ASSERTION = re.compile(r"\b(?:EXPECT|ASSERT)_(EQ|NE|TRUE|FALSE|HRESULT_SUCCEEDED|HRESULT_FAILED)\(")
NAME = r"(?:S_OK|S_FALSE|(?:[A-Z]+_)?E_[A-Z_]+)"
CODE = re.compile(rf"(?:.*\? *)?(?:{NAME}|static_cast<HRESULT>\(.*\)|HRESULT_FROM_WIN32\(.*\)|wordError\(.*\))(?: *:.*)?", re.DOTALL)
RESULT = re.compile(r"comErrorOf\(.*\)|.*\.Error\(\)|.*\.scode", re.DOTALL)
TESTED = re.compile(r"!? *(?:SUCCEEDED|FAILED)\(")
RAW_TEXT = re.compile(r'R"([^(]*)\(')


def arguments(text, position):
    """The arguments of the call whose parenthesis ends in front of `position`, and where it is closed."""
    depth, begin, found = 0, position, []
    while True:
        sign = text[position]
        raw = RAW_TEXT.match(text, position)
        if raw and not re.match(r"\w", text[position - 1]):
            position = text.index(f'){raw[1]}"', position) + len(raw[1]) + 1
        elif sign == '"' or (sign == "'" and not text[position - 1].isalnum()):
            position += 1
            while text[position] != sign:
                position += 2 if text[position] == "\\" else 1
        elif sign in "([{":
            depth += 1
        elif sign in ")]}" and depth:
            depth -= 1
        elif sign == ")" or (sign == "," and not depth):
            found.append(text[begin:position].strip())
            begin = position + 1
            if sign == ")":
                return found, position
        position += 1


def compares(kind, given):
    """Whether an assertion with these arguments compares results."""
    if kind in ("EQ", "NE"):
        return any(CODE.fullmatch(each) or RESULT.fullmatch(each) for each in given)
    return kind not in ("TRUE", "FALSE") or any(TESTED.match(each) for each in given)


def findings(text):
    for assertion in ASSERTION.finditer(text):
        if compares(assertion[1], arguments(text, assertion.end())[0]):
            yield text.count("\n", 0, assertion.start()) + 1


def main():
    found = False
    for name in sys.argv[1:]:
        with open(name, encoding="utf-8") as file:
            for number in findings(file.read()):
                found = True
                print(f"{name}:{number}: compares results as numbers: EXPECT_THAT(..., isHresult(...))")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
