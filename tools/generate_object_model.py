#!/usr/bin/env python3
"""Turns the table of Word's object model into C++ and IDL.

    generate_object_model.py TABLE OUTPUT

What is written follows from OUTPUT's name: Word.h, WordCalls.cpp, Word.idl, WordTable.h, StandinBases.h or
StandinBases.cpp.
"""

import io
import os
import sys

from object_model import TableError, read_interfaces
from standin_bases import write_bases_header, write_bases_source
from word_header import write_calls, write_header
from word_idl import write_idl
from word_table import write_table

WRITERS = {
    "Word.h": write_header,
    "WordCalls.cpp": write_calls,
    "Word.idl": write_idl,
    "WordTable.h": write_table,
    "StandinBases.h": write_bases_header,
    "StandinBases.cpp": write_bases_source,
}


def main(arguments):
    if len(arguments) != 2 or os.path.basename(arguments[1]) not in WRITERS:
        sys.stderr.write(__doc__)
        return 2
    table, output = arguments
    text = io.StringIO()
    try:
        WRITERS[os.path.basename(output)](read_interfaces(table), text)
    except TableError as error:
        sys.stderr.write(f"{table}: {error}\n")
        return 1
    os.makedirs(os.path.dirname(os.path.abspath(output)), exist_ok=True)
    with open(output, "w", encoding="ascii", newline="\n") as file:
        file.write(text.getvalue())
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
