"""make_archive.py TIME FOLDER RESULT.zip

Packs a folder, its name included. Every entry has the date TIME (seconds since 1970), the entries are sorted, and only
the executable bit of a file's mode is kept: the same files give the same bytes.
"""

import datetime
import pathlib
import sys
import zipfile


def entry(path, root, time):
    info = zipfile.ZipInfo(str(path.relative_to(root.parent)),
                           datetime.datetime.fromtimestamp(time, datetime.timezone.utc).timetuple()[:6])
    info.compress_type = zipfile.ZIP_DEFLATED
    info.create_system = 3  # Unix, whose modes follow
    info.external_attr = (0o100644 if path.suffix != ".exe" else 0o100755) << 16
    return info


def main():
    time, folder, result = sys.argv[1:]
    folder = pathlib.Path(folder)
    with zipfile.ZipFile(result, "w", compresslevel=9) as archive:
        for path in sorted(each for each in folder.rglob("*") if each.is_file()):
            archive.writestr(entry(path, folder, int(time)), path.read_bytes())


if __name__ == "__main__":
    main()
