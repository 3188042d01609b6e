"""make_notices.py RESULT.txt

The notices of other people's libraries that are compiled or linked into what is shipped, as their Debian packages tell them.
Which binaries hold what, LIBRARIES says; a test compares it with what their targets include.
"""

import fnmatch
import pathlib
import re
import sys
import textwrap

DOCUMENTATION = pathlib.Path("/usr/share/doc")
COMPILER = pathlib.Path("/usr/lib/gcc/x86_64-w64-mingw32")
RULE = "=" * 78
WIDTH = 78

INTRODUCTION = """THIRD-PARTY NOTICES

The binaries of Mirovelcom hold code of the libraries below. Each library's
notice follows, as its authors want it told."""

# Name, binaries, Debian package, and the files of it that get into a binary, as its copyright file names them.
LIBRARIES = [
    ("spdlog", "mirovelcom.dll", "libspdlog-dev", ["*"]),
    ("fmt", "mirovelcom.dll", "libfmt-dev", ["*"]),
    ("CLI11", "mirovel-replay.exe", "libcli11-dev", ["*"]),
    ("mingw-w64 runtime", "all", "mingw-w64-x86-64-dev", ["*", "mingw-w64-crt/*", "!mingw-w64-crt/profile/*"]),
    ("winpthreads", "all", "mingw-w64-x86-64-dev",
     ["mingw-w64-libraries/winpthreads/*", "!mingw-w64-libraries/winpthreads/tests_pthread/*"]),
]

GCC = """libgcc and libstdc++, the run-time libraries of GCC, are Copyright (C) Free Software Foundation,
Inc. They are licensed under the GNU General Public License, version 3 or later, with the GCC Runtime Library
Exception, version 3.1, which lets a program that was compiled by GCC be passed on under terms of its owner's choice. The
exception follows, and behind it the notice of the parts of libstdc++ that come from the Standard Template Library."""


def wanted(files, patterns):
    """Whether a paragraph tells of files that get into a binary. Its first pattern stands for all of them."""
    first = files.split()[0]
    if first == "*":
        return "*" in patterns
    for pattern in patterns:
        if pattern.startswith("!") and fnmatch.fnmatch(first, pattern[1:]):
            return False
    return any(pattern != "*" and fnmatch.fnmatch(first, pattern) for pattern in patterns)


def fields_of(paragraph):
    """A paragraph of a copyright file as a dictionary; lines that go on keep their line ends."""
    fields = {}
    for name, value in re.findall(r"^([A-Za-z-]+):[ \t]*(.*(?:\n[ \t].*)*)", paragraph, re.MULTILINE):
        fields[name] = value.strip("\n")
    return fields


def license_text(value):
    """The text below a licence's name, without the marks of the form."""
    lines = [re.sub(r"^ \.$", "", line)[1:] if line != " ." else "" for line in value.split("\n")[1:]]
    return "\n".join(line.rstrip() for line in lines).strip("\n")


def notices_of(package, patterns):
    content = (DOCUMENTATION / package / "copyright").read_text("utf-8")
    paragraphs = [fields_of(text) for text in re.split(r"\n[ \t]*\n", content)]
    texts = {fields["License"].split("\n")[0].strip(): license_text(fields["License"])
             for fields in paragraphs if "\n" in fields.get("License", "")}
    holders, names = [], []
    for fields in paragraphs:
        if "Files" not in fields or not wanted(fields["Files"], patterns):
            continue
        holders += [line.strip() for line in fields["Copyright"].split("\n")
                    if line.strip() not in ("public-domain", *holders)]
        name = fields["License"].split("\n")[0].strip()
        names += [each for each in ([name] if name in texts else name.split(" and ")) if each not in names]
    if not holders:
        raise SystemExit(f"make_notices: {package} tells nothing of {patterns}")
    blocks = ["\n".join(f"Copyright (c) {re.sub(r'^[(]c[)] ', '', holder, flags=re.IGNORECASE)}" for holder in holders)]
    for name in names:
        if name == "public-domain":
            blocks.append("Parts are in the public domain.")
        elif name in texts:
            blocks.append(f"License: {name}\n\n{texts[name]}")
        else:
            raise SystemExit(f"make_notices: {package} has no text of the licence {name}")
    return "\n\n".join(blocks)


def notices_of_gcc():
    content = (DOCUMENTATION / "gcc-mingw-w64-base" / "copyright").read_text("utf-8")
    exception = re.search(r"^GCC RUNTIME LIBRARY EXCEPTION\n.*?(?=^libquadmath/)", content, re.MULTILINE | re.DOTALL)[0]
    [header] = sorted(COMPILER.glob("*-posix/include/c++/bits/stl_algobase.h"))[-1:]
    library = re.search(r"/\*\n \*\n( \* Copyright \(c\) 1994\n.*?)\n \*/", header.read_text("utf-8"), re.DOTALL)[1]
    return "\n\n".join([textwrap.fill(" ".join(GCC.split()), WIDTH), exception.strip(),
                        re.sub(r"^ \* ?", "", library, flags=re.MULTILINE).strip()])


def section(name, binaries, text):
    place = "in all binaries" if binaries == "all" else f"in {binaries}"
    return f"{RULE}\n{name} ({place})\n{RULE}\n\n{text}"


def main():
    [result] = sys.argv[1:]
    sections = [INTRODUCTION]
    sections += [section(name, binaries, notices_of(package, patterns)) for name, binaries, package, patterns in LIBRARIES]
    sections.append(section("GCC run-time libraries", "all", notices_of_gcc()))
    text = "\n\n".join(sections) + "\n"
    pathlib.Path(result).write_bytes(text.replace("\n", "\r\n").encode("utf-8"))


if __name__ == "__main__":
    main()
