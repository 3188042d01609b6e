"""Compiles every source of the Windows build, and every header alone, with clang++ for the same target.

usage: second_opinion.py COMPILE_COMMANDS

Prints what clang++ reports. A header is compiled with the options of the source of its name, or of a source in its folder,
or, when there is none, of a source whose include folders contain it, at best one that includes it itself.
"""

import concurrent.futures
import os
import pathlib
import re
import shlex
import subprocess
import sys

import compile_commands

ROOT = pathlib.Path(__file__).resolve().parents[2]
COMPILER = "x86_64-w64-mingw32-g++-posix"
# Options of g++ that clang++ does not know, or that matter only when code is generated.
DROPPED = {"-fnon-call-exceptions", "-fasynchronous-unwind-tables", "-Wno-restrict"}
KEPT = ("-I", "-D", "-W", "-std=", "-f")


def system_includes():
    """clang++ does not find the library of the -posix compiler by itself; ask that compiler where it is."""
    report = subprocess.run([COMPILER, "-v", "-E", "-x", "c++", os.devnull, "-o", os.devnull],
                            capture_output=True, text=True, check=True).stderr
    folders = report.split("search starts here:")[2].split("End of search list")[0].split()
    # The compiler's own headers (include, include-fixed) are replaced by clang's.
    folders = [os.path.normpath(f) for f in folders if "/include/c++" in f or f.endswith("mingw32/include")]
    options = ["-nostdinc++", "-nostdlibinc"]
    for folder in folders:
        options += ["-isystem", folder]
    return options


def options_of(entry):
    words = shlex.split(entry["command"])[1:]
    options = []
    i = 0
    while i < len(words):
        word = words[i]
        if word in ("-isystem", "-I"):
            options += [word, words[i + 1]]
            i += 1
        elif word.startswith(KEPT) and word not in DROPPED:
            options.append(word)
        i += 1
    return options


def include_folders(options):
    joined = [pathlib.Path(o[2:]) for o in options if o.startswith("-I") and len(o) > 2]
    return joined


def options_for_header(header, entries):
    in_folder = [e for e in entries if pathlib.Path(e["file"]).parent == header.parent]
    if in_folder:
        own = [e for e in in_folder if pathlib.Path(e["file"]).stem == header.stem]
        # Without a source of its own, by the one that sees the most.
        return options_of(own[0]) if own else max((options_of(e) for e in in_folder), key=len)
    reaching = [e for e in entries if any(f in header.parents for f in include_folders(options_of(e)))]
    if not reaching:
        return None
    including = [e for e in reaching if f'"{header.name}"' in pathlib.Path(e["file"]).read_text()]
    # The owner of the nearest include folder sees the fewest other folders.
    return min((options_of(e) for e in including or reaching), key=len)


def ours(path):
    return ROOT in path.parents and not re.match(r"(build|out)/", str(path.relative_to(ROOT)))


def main():
    entries = [e for e in compile_commands.alone(sys.argv[1])
               if ours(pathlib.Path(e["file"])) and e["file"].endswith(".cpp")]
    base = ["clang++", "--target=x86_64-w64-mingw32", "-fsyntax-only", "-Wno-unused-command-line-argument",
            *system_includes()]
    jobs = [(e["file"], [*base, *options_of(e), e["file"]]) for e in entries]
    unreachable = []
    listed = subprocess.run(["git", "ls-files", "--cached", "--others", "--exclude-standard", "*.h"],
                            cwd=ROOT, capture_output=True, text=True, check=True).stdout.split()
    for name in listed:
        options = options_for_header(ROOT / name, entries)
        if options is None:
            unreachable.append(name)
        else:
            jobs.append((name, [*base, *options, "-Wno-pragma-once-outside-header", "-x", "c++", str(ROOT / name)]))

    failures = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for name, result in zip((n for n, _ in jobs),
                                pool.map(lambda job: subprocess.run(job[1], capture_output=True, text=True), jobs)):
            if result.returncode != 0 or result.stderr:
                failures += 1
                print(result.stderr.strip() or f"{name}: clang++ failed")
    for name in unreachable:
        print(f"{name}: no source of the build can include this header")
    return 1 if failures or unreachable else 0


if __name__ == "__main__":
    sys.exit(main())
