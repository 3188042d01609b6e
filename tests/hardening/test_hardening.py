"""What an installation promises: how its files are built, what registration writes, and that a host stays as it was."""

import json
import os
import pathlib
import re
import shlex
import shutil
import struct
import subprocess
import unittest
import xml.etree.ElementTree

from support.endtoend import BUILD, PATIENCE, ROOT, EndToEndTest, windows
from support.installation import install

import pe_file

VERSION = os.environ["MIROVEL_VERSION"]
HOST = pathlib.Path(os.environ["MIROVEL_HOST"])
DECOY = pathlib.Path(os.environ["MIROVEL_DECOY"])
SMASH = pathlib.Path(os.environ["MIROVEL_SMASH"])
NM = os.environ["MIROVEL_NM"]

# Windows maps these from the system folder, wherever a host lies (the known DLLs of every version since 7). What is not
# among them is looked for beside the host first. The compiler's libraries are in the files themselves.
ALLOWED_LIBRARIES = {"advapi32", "comdlg32", "gdi32", "kernel32", "msvcrt", "ole32", "oleaut32", "shell32", "user32"}

# Functions that change what belongs to the host, or that load libraries.
FORBIDDEN = re.compile(
    r"SetErrorMode|SetThreadErrorMode|RtlSetThreadErrorMode|_?w?setlocale|_configthreadlocale|SetThreadLocale|"
    r"SetThread(Preferred)?UILanguages?|SetProcessPreferredUILanguages|_setmbcp|_?control(fp|87)(_s)?|_fpreset|fpreset|"
    r"_clearfp|_set_controlfp|fesetenv|fesetround|CoInitializeSecurity|CoInitialize(Ex)?|OleInitialize|"
    r"CoRegisterMessageFilter|SetCurrentDirectory[AW]|_?w?chdir|SetUnhandledExceptionFilter|_set_se_translator|signal|"
    r"AddVectored(Exception|Continue)Handler|SetDllDirectory[AW]|AddDllDirectory|SetDefaultDllDirectories|"
    r"SetEnvironmentVariable[AW]|_?w?putenv(_s)?|SetPriorityClass|SetProcessAffinityMask|SetConsole\w+|_?umask(_s)?|"
    r"_set_\w+|SetProcessDPIAware|SetProcessMitigationPolicy|timeBeginPeriod|SetWindowsHookEx[AW]|"
    r"LoadLibrary(Ex)?[AW]|LoadModule|LdrLoadDll|_?w?system|_?w?popen|WinExec")

# Where our own code may name one, and why.
OWN_EXCEPTIONS = {
    "SystemLibrary.cpp.obj": {"LoadLibraryExW"},  # from the system folder only
    "CSignal2ExceptionMingw.cpp.obj": {"AddVectoredExceptionHandler"},  # taken back when the DLL is unloaded
    "MessageFilter.cpp.obj": {"CoRegisterMessageFilter"},  # the one way to see the host's, which is put back at once
}
# What the compiler's libraries bring along, and why it does no harm. TheHost shows that nothing has changed.
RUNTIME_EXCEPTIONS = {
    "CoRegisterMessageFilter",  # ours
    "AddVectoredExceptionHandler",  # ours and winpthreads' (names of threads), both taken back
    "LoadLibraryExW",  # ours
    "LoadLibraryW",  # msvcrt's rand_s, behind std::random_device, which no code of ours uses
    "SetProcessAffinityMask",  # winpthreads' pthread_setaffinity_np; not called
    "setlocale",  # libstdc++: reading numbers from streams; no code of ours does
    "signal",  # libgcc's abort path
}
DLL_FOLDERS = {"support", "word", "writer", "composer", "rtf", "diagnostics", "automation", "proppage", "server"}
# Everything else that is compiled is shipped.
UNSHIPPED_FOLDERS = {"standin", "tests", "samples", "bench", "build"}


def compilations():
    """(folder at the root, source, command) of our C++ sources."""
    for entry in json.loads((BUILD / "compile_commands.json").read_text()):
        source = pathlib.Path(entry["file"])
        if source.is_relative_to(ROOT) and source.suffix == ".cpp":
            yield source.relative_to(ROOT).parts[0], source, shlex.split(entry["command"])


NAMESPACE = {"a": "urn:schemas-microsoft-com:asm.v1"}


def read_manifest():
    return xml.etree.ElementTree.parse(BUILD / "server" / "mirovelcom.manifest").getroot()


class Files(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = BUILD / "hardening" / "stage"
        install(cls.folder)
        cls.files = {path.name: pe_file.PeFile(path) for path in sorted(cls.folder.rglob("*"))
                     if path.suffix.lower() in (".dll", ".exe")}

    def test_the_dll_is_among_the_files(self):
        self.assertIn("mirovelcom.dll", self.files)

    def test_addresses_are_random_and_data_is_not_executed(self):
        for name, file in self.files.items():
            with self.subTest(name):
                self.assertEqual(0x8664, file.machine)
                # High-entropy addresses, dynamic base, no execution of data.
                self.assertEqual(0x0160, file.dll_characteristics & 0x0160)
                # Addresses can be moved only with relocations: not stripped, and there.
                self.assertEqual(0, file.characteristics & 0x0001)
                self.assertGreater(file.directories[pe_file.RELOCATIONS][1], 0)
                self.assertGreater(file.image_base, 0xFFFFFFFF)

    def test_no_section_is_writable_and_executable(self):
        for name, file in self.files.items():
            with self.subTest(name):
                both = [s.name for s in file.sections if s.flags & pe_file.WRITE and s.flags & pe_file.EXECUTE]
                self.assertEqual([], both)
                self.assertTrue(file.section_of(file.entry).flags & pe_file.EXECUTE)

    def test_only_allowed_libraries_are_imported(self):
        for name, file in self.files.items():
            with self.subTest(name):
                libraries = {name.lower().removesuffix(".dll") for name in file.imports()}
                self.assertEqual(set(), libraries - ALLOWED_LIBRARIES)
                self.assertIn("kernel32", libraries)
                self.assertEqual((0, 0), file.directories[pe_file.BOUND_IMPORTS])
                self.assertEqual((0, 0), file.directories[pe_file.DELAY_IMPORTS])

    def test_the_dll_imports_nothing_that_changes_the_host(self):
        names = {f for functions in self.files["mirovelcom.dll"].imports().values() for f in functions}
        self.assertEqual(RUNTIME_EXCEPTIONS, {name for name in names if FORBIDDEN.fullmatch(name)})

    def test_the_stack_is_protected(self):
        for name, file in self.files.items():
            with self.subTest(name):
                # The DLL has over a thousand functions with a checked stack.
                self.assertGreater(_calls_to_fast_fail(file), 500 if name == "mirovelcom.dll" else 0)

    def test_the_version_is_the_projects(self):
        for name, file in self.files.items():
            with self.subTest(name):
                number, product, strings = file.version()
                self.assertEqual((f"{VERSION}.0", f"{VERSION}.0"), (number, product))
                self.assertEqual((f"{VERSION}.0", f"{VERSION}.0"), (strings["FileVersion"], strings["ProductVersion"]))
                self.assertEqual((name, pathlib.Path(name).stem), (strings["OriginalFilename"], strings["InternalName"]))
                self.assertEqual(("Lumarkscribe", "Mirovelcom", "Copyright Lumarkscribe"),
                                 (strings["CompanyName"], strings["ProductName"], strings["LegalCopyright"]))
                self.assertGreater(len(strings["FileDescription"]), 10)

    def test_the_manifest_in_the_dll_is_the_one_beside_it(self):
        self.assertEqual((self.folder / "bin" / "mirovelcom.manifest").read_bytes(),
                         self.files["mirovelcom.dll"].resources()[pe_file.RT_MANIFEST, 1])


def _calls_to_fast_fail(file):
    """How many functions check their stack: the calls to the code that ends the process (mov ecx, 2; int 0x29)."""
    ends, calls = set(), []
    for address, code in file.code():
        ends |= {address + match.start() for match in re.finditer(rb"\xb9\x02\x00\x00\x00\xcd\x29", code)}
        calls += [address + match.end() + 4 + struct.unpack_from("<i", code, match.end())[0]
                  for match in re.finditer(rb"\xe8", code[:-4])]
    # A prologue of a few bytes may stand in front.
    return sum(1 for target in calls if any(0 <= end - target <= 16 for end in ends))


class Sources(unittest.TestCase):
    """Our own part of what the linker puts together."""

    def test_everything_shipped_is_compiled_with_a_stack_protector(self):
        shipped = [(source.name, command) for folder, source, command in compilations()
                   if folder not in UNSHIPPED_FOLDERS]
        # The guard itself cannot be guarded.
        bare = {name for name, command in shipped if "-fstack-protector-strong" not in command}
        self.assertEqual({"StackGuardMingw.cpp"}, bare)
        self.assertGreater(len(shipped), 40)

    def test_our_code_changes_nothing_of_the_hosts(self):
        objects = [BUILD / command[command.index("-o") + 1] for folder, _, command in compilations()
                   if folder in DLL_FOLDERS]
        listing = subprocess.run([NM, "-A", "-u", *objects], check=True, capture_output=True, text=True,
                                 timeout=PATIENCE).stdout
        found = {}
        for line in listing.splitlines():
            name, symbol = line.split(": ")[0].rsplit(":", 1)[0], line.split()[-1].removeprefix("__imp_")
            if FORBIDDEN.fullmatch(symbol):
                found.setdefault(pathlib.Path(name).name, set()).add(symbol)
        self.assertEqual(OWN_EXCEPTIONS, found)
        self.assertNotIn("random_device", listing)

    def test_the_manifest_says_what_registration_writes(self):
        manifest = read_manifest()
        self.assertEqual(
            {"type": "win32", "name": "mirovelcom", "version": f"{VERSION}.0", "processorArchitecture": "amd64"},
            manifest.find("a:assemblyIdentity", NAMESPACE).attrib)
        classes = []
        for script in ("Mirovel.rgs", "MirovelComPage.rgs"):
            text = (ROOT / "server" / script).read_text()
            (class_id, description), = re.findall(r"ForceRemove (\{[-0-9A-F]+\}) = s '(.*)'", text)
            versioned, plain = re.findall(r"^\t(\S+) = s", text, re.MULTILINE)
            threading, = re.findall(r"val ThreadingModel = s '(.*)'", text)
            classes.append((class_id, description, plain, [versioned], threading))
        self.assertEqual(classes, [
            (c.get("clsid"), c.get("description"), c.get("progid"), [p.text for p in c.findall("a:progid", NAMESPACE)],
             c.get("threadingModel")) for c in manifest.findall("a:file/a:comClass", NAMESPACE)])

    def test_the_manifest_says_what_the_type_library_says(self):
        manifest = read_manifest()
        idl = (ROOT / "server" / "mirovelcom.idl").read_text()
        interface, library, document, page = re.findall(r"uuid\(([-0-9A-F]+)\)", idl)
        self.assertEqual(["{%s}" % document, "{%s}" % page],
                         [c.get("clsid") for c in manifest.findall("a:file/a:comClass", NAMESPACE)])
        described = manifest.find("a:file/a:typelib", NAMESPACE)
        version, = re.findall(r"\bversion\((.*)\)", idl)
        self.assertEqual(("{%s}" % library, version), (described.get("tlbid"), described.get("version")))
        stub = manifest.find("a:comInterfaceExternalProxyStub", NAMESPACE)
        # IDispatch has seven slots.
        slots = 7 + len(re.findall(r"\[id\(\d+\)", idl))
        self.assertEqual(("{%s}" % interface, "{%s}" % library, str(slots)),
                         (stub.get("iid"), stub.get("tlbid"), stub.get("numMethods")))


class SmashedStack(EndToEndTest):
    def test_it_ends_the_process_and_nothing_catches_it(self):
        outcome = self.run_client(SMASH, status=0xC0000409 & 0xFF)
        self.assertEqual(["before"], outcome.output)

    def test_a_whole_stack_does_not(self):
        self.assertEqual(["before", "after"], self.run_client(SMASH, "fill").output)


class Registration(EndToEndTest):
    def test_there_is_no_application_id_and_no_surrogate(self):
        self.run_vbscript('Set mirovel = CreateObject("Mirovel.Mirovel")\r\n')
        self.let_prefixes_rest()
        ours = [block for block in _registry_keys(self.folder / "prefix" / "system.reg")
                if re.search(r"5C2E7A1[0-9]-|^\[[^\]]*mirovel|mirovelcom\.dll", block, re.IGNORECASE)]
        self.assertTrue([block for block in ours if "InprocServer32" in block])
        self.assertEqual([], [block for block in ours
                              if re.search(r"AppID|Surrogate|LocalServer|LocalService|RunAs", block, re.IGNORECASE)])


def _registry_keys(file):
    return re.split(r"\n\n(?=\[)", file.read_text("utf-8", "replace"))


class TheHost(EndToEndTest):
    """The host's own report, see host/host.cpp."""

    UNHARMED = {
        "stage": ["created", "written", "failed", "page measured", "released", "unloaded"],
        "failure": ["QdxException"],
        "changed": [],
        "page": [],
        "unloaded": ["yes"],
        "survived": [""],
        "apartment": ["gone"],
    }

    def watched(self, host, dll, *manifest, **options):
        document = self.new_document()
        return self.run_client(host, windows(document), windows(dll), *manifest, display=True, status=None,
                               **options)

    def said(self, outcome, kind):
        return [line.removeprefix(kind).strip() for line in outcome.output if line.split(" ")[0] == kind]

    def assertUnharmed(self, outcome):
        self.assertEqual(self.UNHARMED, {kind: self.said(outcome, kind) for kind in self.UNHARMED})

    def test_it_stays_as_it_was(self):
        dll = BUILD / "server" / "mirovelcom.dll"
        outcome = self.watched(HOST, dll)
        self.assertUnharmed(outcome)
        self.assertIn(windows(dll).lower(), [path.lower() for path in self.said(outcome, "loaded")])

    # Often planted, and none that Wine's own libraries load from anywhere but the system folder.
    PLANTED = ["actxprxy", "apphelp", "bcrypt", "cryptbase", "cryptsp", "dbghelp", "dwmapi", "iphlpapi", "mpr", "msimg32",
               "netapi32", "ntmarta", "oleacc", "profapi", "propsys", "rsaenh", "secur32", "urlmon", "userenv",
               "windowscodecs", "winmm", "wintrust", "wldap32"]

    def test_nothing_planted_is_loaded(self):
        # Beside the host, beside the DLL and in the current directory at once.
        folder = self.folder / "planted"
        shutil.rmtree(folder, ignore_errors=True)
        folder.mkdir()
        for file in (HOST, BUILD / "server" / "mirovelcom.dll", BUILD / "server" / "mirovelcom.manifest"):
            shutil.copy(file, folder)
        for name in self.PLANTED:
            shutil.copy(DECOY, folder / f"{name}.dll")
        outcome = self.watched(folder / HOST.name, folder / "mirovelcom.dll", windows(folder / "mirovelcom.manifest"),
                               registration=False, prefix=self.folder / "unregistered")
        paths = [path.lower() for path in self.said(outcome, "known") + self.said(outcome, "loaded")]
        outside = [path for path in paths if not path.startswith("c:\\windows\\system32\\")]
        self.assertEqual({windows(folder / name).lower() for name in (HOST.name, "mirovelcom.dll")}, set(outside))
        self.assertUnharmed(outcome)
        # The names are those of real libraries, so that a library of Windows could have been meant.
        system = {path.stem for path in (self.folder / "unregistered" / "drive_c" / "windows" / "system32").iterdir()}
        self.assertGreater(len(system & set(self.PLANTED)), 15)


if __name__ == "__main__":
    unittest.main()
