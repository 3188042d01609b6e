"""What a build compiles, each file alone: in compile_commands.json files that are compiled together have one entry.

usage: compile_commands.py COMPILE_COMMANDS   prints such a file for the tools that read one
"""

import json
import pathlib
import re
import sys


def alone(path):
    """The entries of a compile_commands.json, and for a file that includes sources the entries of these."""
    entries = []
    for entry in json.loads(pathlib.Path(path).read_text()):
        together = entry["file"]
        if not re.search(r"/Unity/unity_\d+_cxx\.cxx$", together):
            entries.append(entry)
            continue
        for source in re.findall(r'^#include "(.*)"$', pathlib.Path(together).read_text(), re.MULTILINE):
            entries.append({**entry, "file": source, "command": entry["command"].replace(together, source)})
    return entries


if __name__ == "__main__":
    json.dump(alone(sys.argv[1]), sys.stdout, indent=1)
