"""The installer's source for wixl, and what has to be said to the finished package because wixl cannot say it."""

import pathlib
import re
import uuid
import xml.etree.ElementTree as xml

import machine_settings
import registry_rows

PRODUCT = "Mirovelcom"
MAKER = "Lumarkscribe"
SETTINGS_KEY = "Software\\Lumarkscribe\\Mirovelcom\\Settings"
LANGUAGE = 1033
# Installers of all versions know each other by it: it never changes.
UPGRADE_CODE = "C8A7A2E1-5B0C-4F0B-9B57-2D5E3F1A6C04"
# Of everything that is numbered by what it is.
IDENTITIES = uuid.UUID("0d3c6f0e-6a4b-4df6-8f0d-6f5b0f2f9a11")

MODULE = "bin/mirovelcom.dll"
PROGRAM = "bin/mirovel-settings.exe"
MANUAL = "docs/index.html"
KIT = "verify/verify.wsf"
EXECUTABLES = (".dll", ".exe")


def identity(what):
    """The same for the same thing, in every version and on every machine."""
    return str(uuid.uuid5(IDENTITIES, what)).upper()


def identifier(path):
    return re.sub(r"[^A-Za-z0-9_.]", "_", path.replace("/", "."))


def short_names(names):
    """What stands in a package for these names, which lie in one folder: "SHORT~1.TXT|shorter.txt" where a file system
    without long names needs another one."""
    shown = {}
    taken = set()
    for name in sorted(names):
        short, number = name, 0
        while not re.fullmatch(r"[A-Za-z0-9_~-]{1,8}(\.[A-Za-z0-9_-]{1,3})?", short) or short.upper() in taken:
            number += 1
            path = pathlib.PurePath(name.upper())
            short = re.sub("[^A-Z0-9_]", "", path.stem)[:6] + f"~{number}" + path.suffix[:4]
        taken.add(short.upper())
        shown[name] = name if short == name else f"{short}|{name}"
    return shown


class InstallerSource:
    """An installer of the files (paths below the installation folder, with "/") under a version."""

    def __init__(self, files, version, scripts):
        """`scripts`: the texts of the registration scripts."""
        self.files = sorted(files)
        self.version = version
        self.queries = []  # in SQL, for the finished package
        self.components = []
        self.directories = {}
        self.customized = {"INSTALLDIR"}  # what the command line may say
        self.module = None  # the DLL's component
        self.wix = xml.Element("Wix", xmlns="http://schemas.microsoft.com/wix/2006/wi")
        self.product = xml.SubElement(
            self.wix, "Product", Name=PRODUCT, Version=self.version, Manufacturer=MAKER, Language=str(LANGUAGE),
            UpgradeCode=UPGRADE_CODE)
        xml.SubElement(self.product, "Package", InstallerVersion="500", Compressed="yes", InstallScope="perMachine",
                       Manufacturer=MAKER, Description=f"{PRODUCT} {self.version}",
                       Comments="Writes Word documents for other programs")
        xml.SubElement(self.product, "Media", Id="1", Cabinet="files.cab", EmbedCab="yes")
        self.add_conditions()
        self.add_upgrade()
        self.add_properties()
        self.add_settings()
        self.add_tree(scripts)
        feature = xml.SubElement(self.product, "Feature", Id="Complete", Title=PRODUCT, Level="1")
        for component in self.components:
            xml.SubElement(feature, "ComponentRef", Id=component)
        xml.indent(self.wix)

    def text(self, product_code):
        self.product.set("Id", product_code)
        return xml.tostring(self.wix, encoding="unicode") + "\n"

    def add_conditions(self):
        condition = xml.SubElement(self.product, "Condition", Message="Mirovelcom needs 64-bit Windows 7 or later.")
        condition.text = "Installed OR (VersionNT64 >= 601)"
        condition = xml.SubElement(self.product, "Condition", Message="A later version of Mirovelcom is installed already.")
        condition.text = "Installed OR NOT LATERVERSION"

    def add_upgrade(self):
        """Another build of the same version is replaced, too."""
        upgrade = xml.SubElement(self.product, "Upgrade", Id=UPGRADE_CODE)
        # wixl drops IncludeMaximum. 256 and 512 include the lowest and the highest version.
        self.queries += [
            "DELETE FROM `Upgrade` WHERE `ActionProperty` = 'EARLIERVERSION'",
            "INSERT INTO `Upgrade` (`UpgradeCode`, `VersionMin`, `VersionMax`, `Attributes`, `ActionProperty`) VALUES "
            f"('{{{UPGRADE_CODE}}}', '0.0.0', '{self.version}', {256 + 512}, 'EARLIERVERSION')"]
        xml.SubElement(upgrade, "UpgradeVersion", Minimum="0.0.0", Maximum=self.version,
                       Property="EARLIERVERSION")
        xml.SubElement(upgrade, "UpgradeVersion", Minimum=self.version, IncludeMinimum="no", OnlyDetect="yes",
                       Property="LATERVERSION")
        sequence = xml.SubElement(self.product, "InstallExecuteSequence")
        xml.SubElement(sequence, "RemoveExistingProducts", After="InstallValidate")

    def add_properties(self):
        xml.SubElement(self.product, "Property", Id="ARPNOMODIFY", Value="1")
        # An upgrade goes where the version before is, unless it is told otherwise. The search would override what the
        # command line says, so it has a property of its own.
        previous = xml.SubElement(self.product, "Property", Id="PREVIOUSINSTALLDIR")
        xml.SubElement(previous, "RegistrySearch", Id="PreviousInstallDir", Root="HKLM", Key=SETTINGS_KEY,
                       Name="InstallDir", Type="raw", Win64="yes")
        self.decide("KeepInstallDir", "INSTALLDIR", "[PREVIOUSINSTALLDIR]", "PREVIOUSINSTALLDIR AND NOT INSTALLDIR", 60)

    def decide(self, action, name, value, condition, sequence):
        """Gives a property a value before anything is installed."""
        self.queries.append("INSERT INTO `CustomAction` (`Action`, `Type`, `Source`, `Target`) VALUES "
                            f"('{action}', 51, '{name}', '{value}')")
        for table in ("InstallExecuteSequence", "InstallUISequence"):
            self.queries.append(f"INSERT INTO `{table}` (`Action`, `Condition`, `Sequence`) VALUES "
                                f"('{action}', '{condition}', {sequence})")

    def add_settings(self):
        """The search's own property keeps what is stored apart from what the command line says."""
        sequence = 61  # behind the search and KeepInstallDir, before the conditions are tested
        for setting in machine_settings.SETTINGS:
            found = f"PREVIOUS{setting.property}"
            search = xml.SubElement(self.product, "Property", Id=found)
            xml.SubElement(search, "RegistrySearch", Id=f"Previous{setting.name}", Root="HKLM", Key=setting.key,
                           Name=setting.name, Type="raw", Win64="yes")
            for action, value, condition in setting.decisions(found):
                self.decide(action, setting.property, value, condition, sequence)
                sequence += 1
            if setting.accepted:
                condition = xml.SubElement(self.product, "Condition", Message=setting.refusal)
                condition.text = f"Installed OR NOT {setting.property} OR {setting.accepted}"
            self.customized.add(setting.property)
        secure = ";".join(sorted(self.customized | {"EARLIERVERSION", "LATERVERSION"}))
        self.queries += ["DELETE FROM `Property` WHERE `Property` = 'SecureCustomProperties'",
                         f"INSERT INTO `Property` (`Property`, `Value`) VALUES ('SecureCustomProperties', '{secure}')"]

    def add_tree(self, scripts):
        root = xml.SubElement(self.product, "Directory", Id="TARGETDIR", Name="SourceDir")
        xml.SubElement(root, "Directory", Id="ProgramMenuFolder")
        programs = xml.SubElement(root, "Directory", Id="ProgramFiles64Folder")
        self.directories[""] = xml.SubElement(programs, "Directory", Id="INSTALLDIR", Name=f"MIROVE~1|{PRODUCT}")
        children = {}
        for path in self.files:
            while path:
                folder, _, name = path.rpartition("/")
                children.setdefault(folder, set()).add(name)
                path = folder
        names = {folder: short_names(found) for folder, found in children.items()}
        for path in self.files:
            folder, _, name = path.rpartition("/")
            self.add_file(self.directory(folder, names), path, names[folder][name])
        self.add_classes(scripts)
        self.add_library(self.directory("bin", names))
        self.add_place()
        self.add_setting_values()

    def directory(self, path, names):
        if path not in self.directories:
            folder, _, name = path.rpartition("/")
            self.directories[path] = xml.SubElement(self.directory(folder, names), "Directory", Id=identifier(path),
                                                    Name=names[folder][name])
        return self.directories[path]

    def component(self, parent, name, win64=True):
        self.components.append(identifier(name))
        return xml.SubElement(parent, "Component", Id=identifier(name), Guid=identity("component " + name),
                              Win64="yes" if win64 else "no")

    def add_file(self, directory, path, name):
        component = self.component(directory, path)
        xml.SubElement(component, "File", Id=identifier(path), Name=name, Source=path, KeyPath="yes")
        if path.endswith(EXECUTABLES):
            self.queries.append(f"UPDATE `File` SET `Version` = '{self.version}.0', `Language` = '{LANGUAGE}' "
                                f"WHERE `File` = '{identifier(path)}'")
        if path == MODULE:
            self.module = component
        if path == PROGRAM:
            xml.SubElement(component, "Shortcut", Id="SettingsShortcut", Directory="ProgramMenuFolder",
                           Name="MIROVE~1|Mirovelcom Settings", WorkingDirectory="bin",
                           Target=f"[#{identifier(path)}]", Description="Template and table of contents of documents")
        if path == MANUAL:
            xml.SubElement(component, "Shortcut", Id="ManualShortcut", Directory="ProgramMenuFolder",
                           Name="MIROVE~2|Mirovelcom Documentation", WorkingDirectory="docs",
                           Target=f"[#{identifier(path)}]", Description="How to write documents, all methods, and what went wrong")
        if path == KIT:
            xml.SubElement(component, "Shortcut", Id="KitShortcut", Directory="ProgramMenuFolder",
                           Name="MIROVE~3|Mirovelcom and this Word", WorkingDirectory="verify",
                           Target=f"[#{identifier(path)}]", Description="Finds out how this machine's Word behaves")

    def add_classes(self, scripts):
        for script in scripts:
            self.add_rows(self.module, registry_rows.class_rows(script, f"[#{identifier(MODULE)}]"))

    def add_place(self):
        """Where the product is, and the end of that folder, which no file of the product lies in."""
        component = self.component(self.directories[""], "place")
        self.add_rows(component, [registry_rows.Row("HKLM", SETTINGS_KEY, "InstallDir", "[INSTALLDIR]")], key_path=True)
        xml.SubElement(component, "RemoveFolder", Id="RemoveInstallDir", On="uninstall")

    def add_library(self, directory):
        """What DllUnregisterServer leaves, for the sake of other versions; an installation takes it along."""
        rows = registry_rows.library_rows(f"[#{identifier(MODULE)}]", "[INSTALLDIR]bin")
        for name, win64, own in (("library", True, rows + registry_rows.interface_rows()),
                                 ("library32", False, registry_rows.interface_rows())):
            component = self.component(directory, name, win64)
            self.add_rows(component, own, key_path=True)

    def add_setting_values(self):
        for setting in machine_settings.SETTINGS:
            component = self.component(self.directories[""], f"setting {setting.name}")
            # wixl has no conditions of components.
            self.queries.append(f"UPDATE `Component` SET `Condition` = '{setting.property}' "
                                f"WHERE `Component` = '{component.get('Id')}'")
            self.add_rows(component, [registry_rows.Row("HKLM", setting.key, setting.name, f"[{setting.property}]")],
                          key_path=True)

    def add_rows(self, component, rows, key_path=False):
        for row in rows:
            if row.name == "*":
                self.add_key(component.get("Id"), row)
                continue
            value = xml.SubElement(component, "RegistryValue", Root=row.root, Key=row.key, Type="string", Value=row.value)
            if row.name:
                value.set("Name", row.name)
            if key_path:
                value.set("KeyPath", "yes")
                key_path = False

    def add_key(self, component, row):
        root = {"HKCR": 0, "HKLM": 2}[row.root]
        name = "key" + identity("key " + row.key).replace("-", "")
        self.queries.append("INSERT INTO `Registry` (`Registry`, `Root`, `Key`, `Name`, `Component_`) VALUES "
                            f"('{name}', {root}, '{row.key}', '*', '{component}')")
