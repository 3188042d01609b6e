"""What registration writes to the registry, as rows of an installer: from the scripts that the DLL itself applies.

The classes' rows are read from the registration scripts, so an installer and DllRegisterServer cannot drift apart. The
type library's rows are those that the system's RegisterTypeLib writes, which no script has; a test compares both.
"""

import dataclasses
import re

ROOTS = {"HKCR": "HKCR", "HKEY_CLASSES_ROOT": "HKCR", "HKLM": "HKLM", "HKEY_LOCAL_MACHINE": "HKLM"}
FLAGS = {"NOREMOVE", "FORCEREMOVE", "DELETE"}
LIBRARY = "{5C2E7A12-3B41-4D8E-9F62-A1B3C4D5E6F7}"
INTERFACE = "{5C2E7A13-3B41-4D8E-9F62-A1B3C4D5E6F7}"
AUTOMATION_MARSHALER = "{00020424-0000-0000-C000-000000000046}"


class ScriptError(Exception):
    """A registration script that is not understood, or that asks for what an installer cannot do."""


@dataclasses.dataclass(frozen=True)
class Row:
    """A value, or with the name "*" a key: created at installation, removed with all it holds at removal."""

    root: str
    key: str
    name: str  # empty: the key's default value
    value: str  # may hold the installer's own variables, as [#file] and [DIRECTORY]


class Words:
    """A script cut into words: (text, quoted)."""

    def __init__(self, text):
        self.words = [(m[1].replace("''", "'"), True) if m[1] is not None else (m[2], False)
                      for m in re.finditer(r"'((?:[^']|'')*)'|(\S+)", text)]
        self.at = 0

    def peek(self):
        return self.words[self.at] if self.at < len(self.words) else ("", False)

    def take(self, *expected):
        text, quoted = self.peek()
        if expected and (quoted or text.upper() not in expected):
            raise ScriptError(f"{text!r} where {' or '.join(expected)} is wanted")
        self.at += 1
        return text

    def takes(self, *wanted):
        """Whether one of these words was next; then it is taken."""
        text, quoted = self.peek()
        found = not quoted and text.upper() in wanted
        self.at += found
        return found


def class_rows(script, module):
    """The rows of a registration script, "%MODULE%" replaced."""
    words = Words(script.replace("%MODULE%", module))
    rows = []
    while words.peek()[0]:
        root = ROOTS[words.take(*ROOTS)]
        words.take("{")
        while not words.takes("}"):
            read_key(words, root, "", rows)
    return rows


def read_key(words, root, parent, rows):
    force_remove = words.peek() == ("ForceRemove", False)
    words.takes("NOREMOVE", "FORCEREMOVE")
    key = parent + words.take()
    first = len(rows)
    if words.takes("="):
        rows.append(Row(root, key, "", text_value(words)))
    if words.takes("{"):
        while not words.takes("}"):
            if words.takes("VAL"):
                name = words.take()
                words.take("=")
                rows.append(Row(root, key, name, text_value(words)))
            else:
                read_key(words, root, key + "\\", rows)
    if force_remove:
        rows.insert(first, Row(root, key, "*", None))


def text_value(words):
    words.take("S")
    return words.take()


def library_rows(module, folder):
    """The type library's rows but for the interface, which each bitness of Windows has for itself."""
    key = f"TypeLib\\{LIBRARY}\\2.0"
    return [Row("HKCR", key, "", "Document Word 2.0 Type Library"),
            Row("HKCR", f"{key}\\0\\win64", "", module),
            Row("HKCR", f"{key}\\FLAGS", "", "8"),
            Row("HKCR", f"{key}\\HELPDIR", "", folder)]


def interface_rows():
    key = f"Interface\\{INTERFACE}"
    return [Row("HKCR", key, "", "IDocument"),
            Row("HKCR", f"{key}\\ProxyStubClsid", "", AUTOMATION_MARSHALER),
            Row("HKCR", f"{key}\\ProxyStubClsid32", "", AUTOMATION_MARSHALER),
            Row("HKCR", f"{key}\\TypeLib", "", LIBRARY),
            Row("HKCR", f"{key}\\TypeLib", "Version", "2.0")]
