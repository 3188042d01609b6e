"""make_installer.py VERSION TIME FOLDER SCRIPT... RESULT.msi

Makes a Windows Installer package of the files in FOLDER, which are installed as they lie there, and of what the
registration SCRIPTs (.rgs) say. TIME (seconds since 1970) is the date of everything in it. The same arguments give the
same bytes: what is usually random is computed from the contents.

wixl writes the package; what it cannot say is added to the finished package by msibuild: keys without values, components
that stay, versions of files, a custom action. Its dates and its random package code are replaced.
"""

import datetime
import hashlib
import os
import pathlib
import struct
import subprocess
import sys
import tempfile

from installer_source import InstallerSource, identity

SUMMARY_FORMAT = bytes.fromhex("e0859ff2f94f6810ab9108002b27b3d9")
REVISION, CREATED, SAVED = 9, 12, 13
TEXT, FILE_TIME = 30, 64


class PackageError(Exception):
    """A package that does not have what is expected in it."""


def run(command, **options):
    """wixl prints warnings about attributes that it does not know and goes on; here they are errors."""
    result = subprocess.run(command, capture_output=True, text=True, check=False, **options)
    if result.returncode != 0 or result.stderr:
        raise PackageError(f"{command[0]}: {result.stderr or result.returncode}")


def digest(folder, files, *others):
    """Of everything that goes into a package."""
    whole = hashlib.sha256()
    for part in (*others, *(part for path in files for part in (path, (folder / path).read_bytes()))):
        part = part.encode("utf-8") if isinstance(part, str) else part
        whole.update(len(part).to_bytes(8, "little") + part)
    return whole.hexdigest()


def stamp(package, code, time):
    """Gives the summary of a package its code and its dates. Its size stays the same."""
    content = bytearray(package.read_bytes())
    start = content.find(SUMMARY_FORMAT)
    if start < 0 or content.find(SUMMARY_FORMAT, start + 1) >= 0:
        raise PackageError("no summary, or two of them")
    # Behind the format stands where its section lies, counted from the stream's start, 48 bytes before that.
    section = start - 28 + struct.unpack_from("<I", content, start + 16)[0]
    count = struct.unpack_from("<I", content, section + 4)[0]
    offsets = dict(struct.unpack_from("<II", content, section + 8 + 8 * i) for i in range(count))
    revision = f"{{{code}}}".encode("ascii")
    if struct.unpack_from("<II", content, section + offsets[REVISION]) != (TEXT, len(revision) + 1):
        raise PackageError("the summary's package code is not where it is expected")
    at = section + offsets[REVISION] + 8
    content[at:at + len(revision)] = revision
    file_time = (time + 11644473600) * 10000000
    for each in (CREATED, SAVED):
        if struct.unpack_from("<I", content, section + offsets[each]) != (FILE_TIME,):
            raise PackageError("the summary's dates are not where they are expected")
        struct.pack_into("<Q", content, section + offsets[each] + 4, file_time)
    package.write_bytes(content)


def check_stamp(package, code, time):
    summary = subprocess.run(["msiinfo", "suminfo", package], capture_output=True, text=True, check=True,
                             env=os.environ | {"TZ": "UTC", "LC_ALL": "C"}).stdout
    date = datetime.datetime.fromtimestamp(time, datetime.timezone.utc).strftime("%a %b %e %H:%M:%S %Y")
    for line in (f"Revision number (UUID): {{{code}}}", f"Created: {date}", f"Last saved: {date}"):
        if line not in summary.splitlines():
            raise PackageError(f"not in the summary: {line}\n{summary}")


def main():
    version, time, folder, *scripts, result = sys.argv[1:]
    time, folder, result = int(time), pathlib.Path(folder), pathlib.Path(result).resolve()
    files = sorted(str(path.relative_to(folder)) for path in folder.rglob("*") if path.is_file())
    source = InstallerSource(files, version, [pathlib.Path(script).read_text("utf-8") for script in scripts])
    contents = digest(folder, files, source.text(""), *source.queries, str(time))
    text = source.text(identity("product " + contents))
    for path in files:
        os.utime(folder / path, (time, time))
    code = identity("package " + contents)
    with tempfile.TemporaryDirectory(dir=result.parent) as scratch:
        package = pathlib.Path(scratch) / result.name
        wxs = package.with_suffix(".wxs")
        wxs.write_text(text, "utf-8")
        # The cabinet holds local times.
        environment = os.environ | {"TZ": "UTC", "LC_ALL": "C.UTF-8"}
        run(["wixl", "--arch", "x64", "--output", package, wxs], cwd=folder, env=environment)
        run(["msibuild", package, "-q", *source.queries], env=environment)
        stamp(package, code, time)
        check_stamp(package, code, time)
        package.replace(result)


if __name__ == "__main__":
    main()
