"""Parses every source of what is shipped in clang's MSVC mode: what the language is to Visual Studio.

usage: msvc_mode.py COMPILE_COMMANDS

The headers are those of mingw-w64 and of its libstdc++, since no others are here: the macros make them take this clang for the
GCC that they know. So what the Windows SDK declares otherwise is not seen; tests/lint/mingw-names.tsv is for that.
"""

import concurrent.futures
import json
import os
import pathlib
import subprocess
import sys

from second_opinion import ROOT, options_of, system_includes

SHIPPED = {"automation", "composer", "diagnostics", "document", "proppage", "replay", "rtf", "server", "settings", "support",
           "word", "writer"}
LOCK_FREE = ("BOOL", "CHAR", "CHAR8_T", "CHAR16_T", "CHAR32_T", "WCHAR_T", "SHORT", "INT", "LONG", "LLONG", "POINTER")
MODE = ["clang++", "--target=x86_64-pc-windows-msvc", "-fms-extensions", "-fms-compatibility",
        "-fms-compatibility-version=19.30", "-std=gnu++20", "-fsyntax-only", "-w"]
AS_GCC = ["-D__GNUC__=12", "-D__GNUC_MINOR__=2", "-D__MINGW32__", "-D__MINGW64__", "-U_MSC_VER", "-D__declspec=__declspec",
          # The MSVC mode has no such type; libstdc++ would specialise for it.
          "-U__SIZEOF_INT128__",
          "-D__GCC_ATOMIC_TEST_AND_SET_TRUEVAL=1", *(f"-D__GCC_ATOMIC_{name}_LOCK_FREE=2" for name in LOCK_FREE)]


def is_parsed(path):
    """Files called *Mingw* have a counterpart for the other compiler."""
    return path.is_relative_to(ROOT) and path.relative_to(ROOT).parts[0] in SHIPPED and "Mingw" not in path.name


def command(entry):
    places = [option for option in options_of(entry) if not option.startswith(("-W", "-std=", "-f"))]
    return [*MODE, *AS_GCC, *places, *system_includes(), entry["file"]]


def main():
    entries = {entry["file"]: entry for entry in json.loads(pathlib.Path(sys.argv[1]).read_text())
               if entry["file"].endswith(".cpp") and is_parsed(pathlib.Path(entry["file"]))}
    if not entries:
        print("nothing to parse")
        return 1
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        results = pool.map(lambda entry: subprocess.run(command(entry), cwd=entry["directory"], capture_output=True, text=True),
                           entries.values())
        refused = [result.stderr.strip() for result in results if result.returncode != 0]
    print("\n".join(refused), end="\n" if refused else "")
    return 1 if refused else 0


if __name__ == "__main__":
    sys.exit(main())
