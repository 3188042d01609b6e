"""Finds lists in comments that a formatter has torn: an item's second line that stands under its sign instead of under its
text, and an item that begins in the middle of a line. What stands further out goes on with the comment behind the list.

usage: comment_lists.py FILE...
"""

import re
import sys

COMMENT = re.compile(r"^\s*(///?<?|//!)(\s*)(.*)$")
ITEM = re.compile(r"([-*]|\d+[.)])\s+\S")
INNER_ITEM = re.compile(r"[.,;:] ([-*]|\d+[.)]) [A-Za-z`'\"]")


def findings(lines):
    sign_column = text_column = None  # of the item in hand
    for number, line in enumerate(lines, 1):
        comment = COMMENT.match(line)
        if not comment or not comment[3]:
            text_column = None
            continue
        column, text = len(comment[2]), comment[3]
        item = ITEM.match(text)
        if item:
            sign_column, text_column = column, column + len(item[0]) - 1
        elif text_column is not None and column < text_column:
            if column >= sign_column:
                yield number, "goes on with an item, but is not indented like its text"
            text_column = None
        if text_column is not None and INNER_ITEM.search(text, 1):
            yield number, "begins an item in the middle of a line"


def main():
    found = False
    for name in sys.argv[1:]:
        with open(name, encoding="utf-8") as file:
            for number, what in findings(file):
                found = True
                print(f"{name}:{number}: {what}")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
