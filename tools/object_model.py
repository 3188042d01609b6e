"""Word's object model as a table describes it: one row per vtable slot of each dual interface."""

import csv
import re
from dataclasses import dataclass, field

FIRST_SLOT = 7  # behind IUnknown's three slots and IDispatch's four

LIBRARY_ID = "00020905-0000-0000-C000-000000000046"
APPLICATION_CLASS_ID = "000209FF-0000-0000-C000-000000000046"
DOCUMENT_CLASS_ID = "00020906-0000-0000-C000-000000000046"


class TableError(Exception):
    """The table contradicts itself; the text says where."""


@dataclass(frozen=True)
class Argument:
    name: str
    type: str
    optional: bool


@dataclass(frozen=True)
class Member:
    slot: int
    dispid: int
    kind: str  # propget, propput or method
    name: str
    arguments: tuple
    result: str  # empty when the member returns nothing

    @property
    def raw_name(self):
        """The name of the vtable slot."""
        return {"propget": "get_", "propput": "put_", "method": "raw_"}[self.kind] + self.name


@dataclass
class Interface:
    name: str
    iid: str
    members: list = field(default_factory=list)


def parse_argument(text):
    name, separator, kind = text.partition(":")
    if not separator or not re.fullmatch(r"\w+", name):
        raise TableError(f"not an argument: {text!r}")
    return Argument(name, kind.rstrip("?"), kind.endswith("?"))


def parse_member(row):
    arguments = tuple(parse_argument(text) for text in row["arguments"].split(", ") if text)
    return Member(int(row["slot"]), int(row["dispid"]), row["kind"], row["name"], arguments, row["result"])


def read_interfaces(path):
    """The interfaces in the table's order, each with its members in vtable order and no slot left out."""
    interfaces = {}
    with open(path, encoding="ascii", newline="") as table:
        for row in csv.DictReader(table, delimiter="\t", quoting=csv.QUOTE_NONE):
            interface = interfaces.setdefault(row["interface"], Interface(row["interface"], row["iid"]))
            member = parse_member(row)
            expected = FIRST_SLOT + len(interface.members)
            if member.slot != expected or row["iid"] != interface.iid:
                raise TableError(f"{interface.name}.{member.name}: slot {member.slot}, expected {expected}")
            interface.members.append(member)
    return list(interfaces.values())
