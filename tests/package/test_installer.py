"""The installer on machines without the product, with an earlier version of it, and with a later one."""

import os
import re
import shutil
import subprocess
import zipfile

from packages import windows as machines
from support import documents
from support.endtoend import BUILD, ROOT, STANDIN, EndToEndTest

VERSION = os.environ["MIROVEL_VERSION"]
PLACE = "C:\\Program Files\\Mirovelcom\\"
# The system's own records of what is installed, and of what stays installed.
RECORDS = ("Classes\\Installer", "CurrentVersion\\Installer", "CurrentVersion\\Uninstall")
OWN = "Software\\Lumarkscribe\\Mirovelcom"
SETTINGS = OWN + "\\Settings"
WORD = OWN + "\\Word"
CLIENT = """
Set mirovel = CreateObject("Mirovel.Mirovel.2.1.0")
mirovel.start
mirovel.create WScript.Arguments(0)
mirovel.setStyle "Heading 1"
mirovel.insertText "Installed"
mirovel.insertEndl
mirovel.insertImage "logo.gif", ""
mirovel.close
mirovel.stop
WScript.Echo "done"
"""


def make(folder, files, version, result):
    subprocess.run(["python3", "-B", ROOT / "packaging" / "installer" / "make_installer.py", version, "946684800",
                    files, *scripts(), result], check=True, timeout=120, cwd=folder)
    return result


def scripts():
    return [ROOT / "server" / "Mirovel.rgs", ROOT / "server" / "MirovelComPage.rgs"]


def block_below(heading):
    """The lines of the first fenced block below a heading of the manual."""
    text = (ROOT / "docs" / "installation.md").read_text("utf-8")
    return re.search(rf"^#+ {heading}\n.*?^```\n(.*?)^```", text, re.MULTILINE | re.DOTALL)[1].splitlines()


def listed_files():
    """What the manual lists, and of its site what the first page stands for."""
    site = BUILD / "packaging" / "documentation" / "html"
    pages = [f"docs/{path.relative_to(site).as_posix()}" for path in site.rglob("*") if path.is_file()]
    return sorted([*block_below("Files"), *(page for page in pages if page != "docs/index.html")])


def as_shown(keys):
    """As the manual shows keys and values."""
    lines = []
    for key, values in sorted(keys.items()):
        lines.append(key.removeprefix("Software\\Classes\\") if "\\Classes\\" in key else "HKLM\\" + key)
        for name, value in sorted(values.items()):
            lines.append(f"    {name or '(default)'} = {value.replace(PLACE, '<folder>' + chr(92))}")
    return lines


class Installer(EndToEndTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        packages = cls.folder / "packages"
        subprocess.run([ROOT / "scripts" / "package", BUILD, packages], check=True, timeout=120,
                       stdout=subprocess.DEVNULL)
        cls.package = packages / f"mirovelcom-{VERSION}-x64.msi"
        cls.contents = packages / "contents"
        subprocess.run(["msiextract", "-C", cls.contents, cls.package], check=True, timeout=120,
                       stdout=subprocess.DEVNULL)

    def machine(self, name):
        machine = machines.Machine(self.folder, name)
        self.addCleanup(machine.stop)
        return machine

    def earlier(self, version):
        """A package of an earlier version, with a file that is not there any more."""
        files = self.folder / version
        shutil.copytree(self.contents / "Mirovelcom", files)
        (files / "templates" / "Former.dot").write_text("{\\rtf1}")
        return make(self.folder, files, version, self.folder / f"{version}.msi")

    def test_the_libraries_notices_are_in_both_packages(self):
        notices = (BUILD / "packaging" / "THIRD-PARTY.txt").read_bytes()
        self.assertEqual(notices, (self.contents / "Mirovelcom" / "THIRD-PARTY.txt").read_bytes())
        name = f"mirovelcom-{VERSION}-x64"
        with zipfile.ZipFile(self.package.with_suffix(".zip")) as archive:
            self.assertEqual(notices, archive.read(f"{name}/THIRD-PARTY.txt"))

    def test_what_registration_writes_is_what_the_dll_writes(self):
        installed, registered = self.machine("installed"), self.machine("registered")
        before = installed.registry()
        installed.install(self.package)
        by_installer = machines.added(before, installed.registry())

        before = registered.registry()
        shutil.copytree(self.contents / "Mirovelcom", registered.path(PLACE))
        registered.check("regsvr32.exe", "/s", PLACE + "bin\\mirovelcom.dll")
        by_dll = machines.added(before, registered.registry())

        self.assertGreater(len(by_dll), 20)
        self.assertEqual(by_dll, machines.without(by_installer, *RECORDS, "Lumarkscribe"))
        self.assertEqual({SETTINGS: {"InstallDir": PLACE}, WORD: {"Compose": "1", "OwnInstance": "1"}},
                         {key: values for key, values in by_installer.items() if "Lumarkscribe" in key and values})

    def test_installed_used_and_removed(self):
        machine = self.machine("used")
        machine.check(STANDIN, "/regserver")
        # Wine's script host registers itself when it is first used.
        (self.folder / "nothing.vbs").write_bytes(b"")
        machine.check("cscript.exe", "//nologo", machines.wine_name(self.folder / "nothing.vbs"))
        before = machine.registry()
        machine.install(self.package)
        self.check_installed(machine, before)
        self.check_use(machine)
        machine.remove(self.package)
        self.check_removed(machine, before)

    def check_installed(self, machine, before):
        files = machine.files(PLACE)
        self.assertEqual(listed_files(), files, "docs/installation.md lists what is installed")
        for name in files:
            self.assertEqual((self.contents / "Mirovelcom" / name).read_bytes(),
                             (machine.path(PLACE) / name).read_bytes(), name)
        self.assertEqual((BUILD / "server" / "mirovelcom.dll").read_bytes(),
                         (machine.path(PLACE) / "bin" / "mirovelcom.dll").read_bytes())
        self.assertEqual(["Mirovelcom Documentation.lnk", "Mirovelcom Settings.lnk", "Mirovelcom and this Word.lnk"], machine.start_menu())
        added = machines.without(machines.added(before, machine.registry()), *RECORDS)
        keys = machines.without(added, "Wow6432Node")
        self.assertEqual(block_below("Registry"), as_shown({key: values for key, values in keys.items() if values or
                                                            key.endswith("Programmable")}),
                         "docs/installation.md lists what is written")

    def check_use(self, machine):
        """A client that finds the server, its template and a picture where the installer has put them."""
        machine.stop()
        document = self.new_document("installed.doc")
        client, transcript = self.folder / "client.vbs", self.folder / "installed.txt"
        client.write_text(CLIENT.replace("\n", "\r\n"), "ascii")
        said = machine.check("cscript.exe", "//nologo", machines.wine_name(client), machines.wine_name(document),
                             env=os.environ | {"WORDSTANDIN_TRANSCRIPT": machines.wine_name(transcript)})
        self.assertEqual(["done"], said)
        calls = transcript.read_text("utf-8")
        place = PLACE.replace("\\", "\\\\")
        self.assertIn(f'application.Documents.Add("{place}templates\\\\Vantpl01.dot", missing, missing, missing) -> ', calls)
        self.assertIn(f'AddPicture("{place}pix\\\\logo.gif", ', calls)
        self.assertNotIn(" !! ", calls)
        self.assertEqual("Installed", documents.text_of(document).strip())

    def check_removed(self, machine, before):
        """Nothing stays, the type library's registration included."""
        after = machine.registry()
        self.assertEqual([], machines.missing(before, after))
        self.assertEqual({}, machines.without(machines.added(before, after), *RECORDS))
        self.assertFalse(machine.path(PLACE).exists())
        self.assertEqual([], machine.start_menu())
        self.assertEqual([], self.products(after))

    def stored(self, machine):
        """What is set for all users."""
        return {f"{key.removeprefix(OWN)[1:]}/{name}": value for key, values in machine.registry().items()
                if key.startswith(OWN) and key != SETTINGS for name, value in values.items()}

    def products(self, registry):
        """What the list of programs shows."""
        return [(values["DisplayName"], values["DisplayVersion"]) for key, values in registry.items()
                if key.startswith("Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\{") and
                values.get("Publisher") == "Lumarkscribe"]

    def test_an_upgrade_takes_the_place_of_the_version_before(self):
        machine = self.machine("upgraded")
        place = "C:\\Elsewhere\\Mirovelcom\\"
        machine.install(self.earlier("2.0.9"), f"INSTALLDIR={place}", "COMPOSE=2", "TEMPLATE=House.dot", "BUSYTIMEOUT=60")
        self.assertIn("templates/Former.dot", machine.files(place))
        self.assertEqual({"Word/Compose": "2", "Word/OwnInstance": "1", "Word/WordTemplateName": "House.dot",
                          "Word/BusyTimeout": "60"}, self.stored(machine))
        machine.check("reg.exe", "add", f"HKLM\\{WORD}", "/v", "OwnInstance", "/t", "REG_DWORD", "/d", "0", "/f")
        own = machine.path(place) / "templates" / "Own.dot"
        own.write_text("{\\rtf1}")

        machine.install(self.package, "BUSYTIMEOUT=5", "STRICT=1", "DIAGNOSTICS=C:\\Logs\\mirovel.log")
        after = machine.registry()
        self.assertEqual([("Mirovelcom", VERSION)], self.products(after))
        self.assertEqual({"InstallDir": place}, after[SETTINGS])
        self.assertEqual({"Word/Compose": "2", "Word/OwnInstance": "0", "Word/WordTemplateName": "House.dot",
                          "Word/BusyTimeout": "5", "Word/Strict": "1", "Log/Diagnostics": "C:\\Logs\\mirovel.log"},
                         self.stored(machine), "what was stored, unless the command line says otherwise")
        server = "Software\\Classes\\CLSID\\{5C2E7A10-3B41-4D8E-9F62-A1B3C4D5E6F7}\\InprocServer32"
        self.assertEqual(place + "bin\\mirovelcom.dll", after[server][""])
        self.assertEqual(sorted([*listed_files(), "templates/Own.dot"]), machine.files(place))
        self.assertEqual(["Mirovelcom Documentation.lnk", "Mirovelcom Settings.lnk", "Mirovelcom and this Word.lnk"], machine.start_menu())
        self.assertFalse(machine.path(PLACE).exists())

        status, _ = machine.run("msiexec.exe", "/i", machines.wine_name(self.folder / "2.0.9.msi"), "/qn")
        self.assertNotEqual(0, status, "a step back")
        self.assertEqual([("Mirovelcom", VERSION)], self.products(machine.registry()))

        machine.remove(self.package)
        self.assertEqual(["templates/Own.dot"], machine.files(place), "what is the administrator's stays")

    def test_another_build_of_the_same_version_takes_the_place_of_the_first(self):
        machine = self.machine("rebuilt")
        machine.install(self.earlier(VERSION), "OWNINSTANCE=0")
        machine.check("reg.exe", "delete", f"HKLM\\{WORD}", "/v", "Compose", "/f")
        machine.install(self.package)
        self.assertEqual([("Mirovelcom", VERSION)], self.products(machine.registry()))
        self.assertEqual(listed_files(), machine.files(PLACE))
        self.assertEqual({"Word/OwnInstance": "0"}, self.stored(machine), "whose documents were counted, has them counted")

    def test_values_that_settings_do_not_have_are_refused(self):
        machine = self.machine("refusing")
        for wrong in ("COMPOSE=3", "COMPOSE=yes", "OWNINSTANCE=2", "STRICT=on", "BUSYTIMEOUT=soon", "BUSYTIMEOUT=-1"):
            status, _ = machine.run("msiexec.exe", "/i", machines.wine_name(self.package), "/qn", wrong)
            self.assertNotEqual(0, status, wrong)
        registry = machine.registry()
        self.assertEqual([], self.products(registry))
        self.assertEqual({}, {key: values for key, values in registry.items() if "Lumarkscribe" in key and values})


class Package(EndToEndTest):
    """What the package itself says."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        subprocess.run([ROOT / "scripts" / "package", BUILD, cls.folder], check=True, timeout=120,
                       stdout=subprocess.DEVNULL, env=os.environ | {"SOURCE_DATE_EPOCH": "1700000000"})
        cls.package = cls.folder / f"mirovelcom-{VERSION}-x64.msi"

    def info(self, *arguments):
        return subprocess.run(["msiinfo", arguments[0], self.package, *arguments[1:]], capture_output=True, text=True,
                              check=True).stdout.splitlines()

    def table(self, name):
        lines = self.info("export", name)
        columns = lines[0].split("\t")
        return [dict(zip(columns, line.split("\t"))) for line in lines[3:]]

    def test_it_is_for_64_bit_machines(self):
        self.assertIn("Template: x64;1033", self.info("suminfo"))
        self.assertEqual(["library32"], [row["Component"] for row in self.table("Component")
                                         if not int(row["Attributes"]) & 256])
        self.assertIn("1", [row["Value"] for row in self.table("Property") if row["Property"] == "ALLUSERS"])

    def test_it_runs_no_code(self):
        self.assertNotIn("SelfReg", self.info("tables"))
        actions = self.table("CustomAction")
        self.assertIn("KeepInstallDir", [row["Action"] for row in actions])
        self.assertEqual({"51"}, {row["Type"] for row in actions}, "they set a property")

    def test_every_property_of_the_manual_can_be_said_by_an_installing_user(self):
        """Without rights of his own, Windows passes only these on to the service that installs."""
        manual = (ROOT / "docs" / "installation.md").read_text("utf-8")
        named = re.findall(r"^\| `([A-Z]+)` \|", manual, re.MULTILINE)
        secure = next(row["Value"] for row in self.table("Property") if row["Property"] == "SecureCustomProperties")
        self.assertEqual(sorted([*named, "EARLIERVERSION", "LATERVERSION"]), sorted(secure.split(";")))

    def test_programs_have_versions(self):
        versions = {row["FileName"].rpartition("|")[2]: row["Version"] for row in self.table("File")}
        for name, version in versions.items():
            self.assertEqual(f"{VERSION}.0" if name.endswith((".dll", ".exe")) else "", version, name)

    def test_short_names_are_short_and_differ(self):
        found = {}
        for row in self.table("File"):
            short, bar, name = row["FileName"].partition("|")
            self.assertRegex(short, r"^[A-Za-z0-9_~-]{1,8}(\.[A-Za-z0-9_~-]{1,3})?$", name)
            folder = row["Component_"].removesuffix(name.replace("-", "_"))
            self.assertNotIn(short.upper(), found.setdefault(folder, []), name)
            found[folder].append(short.upper())

    def test_the_archive_is_for_hosts_and_developers(self):
        name = f"mirovelcom-{VERSION}-x64"
        with zipfile.ZipFile(self.folder / f"{name}.zip") as archive:
            names = archive.namelist()
            self.assertEqual(sorted(names), names)
            for expected in ("bin/mirovelcom.dll", "bin/mirovelcom.manifest", "bin/mirovelcom.tlb", "bin/mirovel-replay.exe",
                             "include/mirovelcom/IDocument.h", "lib/cmake/mirovelcom/mirovelcomConfig.cmake",
                             "templates/Vantpl01.dot", "samples/sdk/letter.cpp", "docs/sdk.html", "THIRD-PARTY.txt",
                             "verify/verify.wsf", "verify/source/sessions.js", "verify/files/one line.txt", "verify/report-files/report.dot"):
                self.assertIn(f"{name}/{expected}", names)
            self.assertEqual([], [each for each in names if "settings.exe" in each or "wordstandin" in each])
            self.assertEqual((BUILD / "server" / "mirovelcom.dll").read_bytes(), archive.read(f"{name}/bin/mirovelcom.dll"))
            self.assertEqual({(2023, 11, 14, 22, 13, 20)}, {each.date_time for each in archive.infolist()})
