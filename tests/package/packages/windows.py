"""A Wine prefix as the machine of an administrator: installing, removing, and what the registry says."""

import pathlib
import re
import subprocess

from support.endtoend import ROOT

HERE = ROOT / "tests" / "package"
PATIENCE = 240  # seconds; a guard against hanging, not a measure


class Machine:
    """A prefix of its own below a test's folder."""

    def __init__(self, folder, name):
        self.folder = folder / name
        self.prefix = self.folder / "prefix"
        self.folder.mkdir()

    def run(self, *command, env=None):
        """The status and the output of a program of Wine's own, or of one given by its path."""
        # Into a file: the services that Wine starts hold a pipe open for seconds after the program has ended.
        with open(self.folder / "output.txt", "w+b") as output:
            status = subprocess.run([HERE / "wine-command", self.prefix, *command], stdin=subprocess.DEVNULL, env=env,
                                    stdout=output, stderr=subprocess.STDOUT, timeout=PATIENCE, check=False).returncode
            output.seek(0)
            return status, output.read().decode("utf-8", "replace")

    def check(self, *command, env=None):
        """The lines that the program has written; it must end well."""
        status, output = self.run(*command, env=env)
        if status != 0:
            raise AssertionError(f"{command}: status {status}\n{output}")
        return output.splitlines()

    def stop(self):
        subprocess.run([ROOT / "tests" / "common" / "wine-prefixes", "stop", self.folder], check=True, timeout=PATIENCE)

    def install(self, package, *properties):
        self.check("msiexec.exe", "/i", wine_name(package), "/qn", *properties)

    def remove(self, package):
        self.check("msiexec.exe", "/x", wine_name(package), "/qn")

    def path(self, windows_path):
        """Where a file of drive C is; the names' case is taken as it comes."""
        place = self.prefix / "drive_c"
        for part in windows_path.removeprefix("C:\\").strip("\\").split("\\"):
            place = next((each for each in place.iterdir() if each.name.lower() == part.lower()), place / part)
        return place

    def files(self, windows_path):
        """The files below a folder, by their paths from there on."""
        folder = self.path(windows_path)
        return sorted(str(path.relative_to(folder)) for path in folder.rglob("*") if path.is_file())

    def start_menu(self):
        """The entries in the users' start menus and in everyone's."""
        return sorted(path.name for path in (self.prefix / "drive_c").rglob("*.lnk") if "Start Menu" in path.parts)

    def registry(self):
        """{key: {name: value}} of what the machine knows; values as a registration file shows them. "" is the default."""
        export = self.folder / "export.reg"
        self.check("regedit.exe", "/E", wine_name(export), "HKEY_LOCAL_MACHINE\\Software")
        return parse_registry(export.read_text("utf-16"))


def wine_name(path):
    return "Z:" + str(path).replace("/", "\\")


def parse_registry(text):
    keys, key = {}, None
    for line in text.replace("\r\n", "\n").replace("\\\n  ", "").split("\n"):
        if line.startswith("["):
            key = keys.setdefault(line[1:-1].removeprefix("HKEY_LOCAL_MACHINE\\"), {})
        elif found := re.match(r'(?:@|"((?:[^"\\]|\\.)*)")=(.*)', line):
            value = found[2]
            if value.startswith('"'):
                value = re.sub(r"\\(.)", r"\1", value[1:-1])
            key[re.sub(r"\\(.)", r"\1", found[1] or "")] = value
    return keys


def added(before, after):
    """The keys and values that are in `after` only, or are others there."""
    return {key: {name: value for name, value in values.items() if before.get(key, {}).get(name) != value}
            for key, values in after.items()
            if key not in before or any(before[key].get(name) != value for name, value in values.items())}


def missing(before, after):
    return [key for key in before if key not in after]


def without(keys, *parts):
    """What has none of these in the names of keys."""
    return {key: values for key, values in keys.items() if not any(part.lower() in key.lower() for part in parts)}
