"""Parses what is shipped, the stand-in, tests, samples and measurements in clang's MSVC mode: what the language is to
Visual Studio.

usage: msvc_mode.py COMPILE_COMMANDS

The headers are those of mingw-w64 and of its libstdc++, since no others are here: the macros make them take this clang for the
GCC that they know. So what the Windows SDK and Visual Studio's C++ library declare otherwise is not seen;
tests/lint/mingw-names.tsv is for that. GoogleTest's headers take the branches that they have for mingw.

What was parsed is parsed again only when it, a header that it includes or an option has changed: beside COMPILE_COMMANDS, the
folder msvc-mode holds what each source was made of.
"""

import concurrent.futures
import hashlib
import os
import pathlib
import subprocess
import sys
import time

import compile_commands
from second_opinion import ROOT, options_of, system_includes

FOLDERS = {"automation", "bench", "composer", "diagnostics", "document", "proppage", "replay", "rtf", "samples", "server",
           "settings", "standin", "support", "tests", "word", "writer"}
LOCK_FREE = ("BOOL", "CHAR", "CHAR8_T", "CHAR16_T", "CHAR32_T", "WCHAR_T", "SHORT", "INT", "LONG", "LLONG", "POINTER")
MODE = ["clang++", "--target=x86_64-pc-windows-msvc", "-fms-extensions", "-fms-compatibility",
        "-fms-compatibility-version=19.30", "-std=gnu++20", "-fsyntax-only", "-w"]
AS_GCC = ["-D__GNUC__=12", "-D__GNUC_MINOR__=2", "-D__MINGW32__", "-D__MINGW64__", "-U_MSC_VER", "-D__declspec=__declspec",
          # The MSVC mode has no such type; libstdc++ would specialise for it.
          "-U__SIZEOF_INT128__",
          "-D__GCC_ATOMIC_TEST_AND_SET_TRUEVAL=1", *(f"-D__GCC_ATOMIC_{name}_LOCK_FREE=2" for name in LOCK_FREE)]


def is_parsed(path):
    """Files called *Mingw* have a counterpart for the other compiler."""
    return path.is_relative_to(ROOT) and path.relative_to(ROOT).parts[0] in FOLDERS and "Mingw" not in path.name


def command(entry):
    places = [option for option in options_of(entry) if not option.startswith(("-W", "-std=", "-f"))]
    return [*MODE, *AS_GCC, *places, *system_includes(), entry["file"]]


class Record:
    """Of one source: its command, and the files that it was made of."""

    def __init__(self, folder, words):
        self.words = words
        name = hashlib.sha256("\0".join(words).encode()).hexdigest()
        self.files = folder / f"{name}.d"

    def holds(self):
        if not self.files.exists():
            return False
        since = self.files.stat().st_mtime_ns
        # "none: FILE FILE...", with a backslash in front of each end of a line and of each space that is a name's own.
        names = self.files.read_text().split(":", 1)[1].replace("\\\n", " ").replace("\\ ", "\0").split()
        # A package brings older files along, which have been changed here all the same.
        return all(os.path.exists(name := each.replace("\0", " ")) and os.stat(name).st_ctime_ns < since for each in names)


def parse(entry, folder):
    """What is wrong; nothing: ""."""
    record = Record(folder, command(entry))
    if record.holds():
        return ""
    made = record.files.with_suffix(".new")
    begin = time.time_ns()
    result = subprocess.run([*record.words, "-MD", "-MT", "none", "-MF", str(made)], cwd=entry["directory"],
                            capture_output=True, text=True)
    if result.returncode != 0:
        made.unlink(missing_ok=True)
        return result.stderr.strip() or f"{entry['file']}: clang++ failed"
    os.utime(made, ns=(begin, begin))
    made.replace(record.files)
    return ""


def main():
    commands = pathlib.Path(sys.argv[1]).resolve()
    entries = {entry["file"]: entry for entry in compile_commands.alone(commands)
               if entry["file"].endswith(".cpp") and is_parsed(pathlib.Path(entry["file"]))}
    if not entries:
        print("nothing to parse")
        return 1
    folder = commands.parent / "msvc-mode"
    folder.mkdir(exist_ok=True)
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        refused = [wrong for wrong in pool.map(lambda entry: parse(entry, folder), entries.values()) if wrong]
    print("\n".join(refused), end="\n" if refused else "")
    return 1 if refused else 0


if __name__ == "__main__":
    sys.exit(main())
