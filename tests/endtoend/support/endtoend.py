"""What the end-to-end tests stand on: a folder and a Wine prefix per module, and clients run in it."""

import dataclasses
import difflib
import os
import pathlib
import shutil
import subprocess
import unittest

from support import clients

ROOT = pathlib.Path(__file__).resolve().parents[3]
BUILD = pathlib.Path(os.environ["MIROVEL_BUILD"])
DRIVER = pathlib.Path(os.environ["MIROVEL_DRIVER"])
STANDIN = BUILD / "standin" / "com" / "wordstandin.exe"
PATIENCE = 240  # seconds; a guard against hanging, not a measure


def windows(path):
    """The name by which a Windows program reaches a file of this machine."""
    return "Z:" + str(path).replace("/", "\\")


@dataclasses.dataclass
class Outcome:
    """What a client left behind."""

    status: int
    output: list  # lines
    errors: str
    transcript: list  # lines
    log: bytes  # None when there is no log

    @property
    def log_lines(self):
        return self.log.decode("cp1252").split("\r\n")[:-1]


class EndToEndTest(unittest.TestCase):
    """Each module has a folder of its own, fresh for each class, and in it a prefix that its clients share."""

    maxDiff = None
    _begun = set()

    def assertLines(self, expected, actual):
        """Compares two transcripts; a failure shows their difference."""
        if expected != actual:
            self.fail("\n".join(["the transcript differs", *difflib.unified_diff(expected, actual, "expected", "actual", lineterm="")]))

    @classmethod
    def setUpClass(cls):
        cls.folder = BUILD / "endtoend" / cls.__module__
        if cls.folder not in cls._begun:
            cls._begun.add(cls.folder)
            cls.let_prefixes_rest()
            shutil.rmtree(cls.folder, ignore_errors=True)
            unittest.addModuleCleanup(cls.let_prefixes_rest)
        cls.folder.mkdir(parents=True, exist_ok=True)
        earlier = [path for path in cls.folder.iterdir() if path.name != "prefix"]
        if any((path / "system.reg").exists() for path in earlier):
            cls.let_prefixes_rest()
        for path in earlier:
            shutil.rmtree(path) if path.is_dir() else path.unlink()

    @classmethod
    def let_prefixes_rest(cls):
        """Ends what runs in the module's prefixes; their registries are saved then."""
        subprocess.run([ROOT / "tests" / "common" / "wine-prefixes", "stop", cls.folder], check=True, timeout=PATIENCE)

    def run_client(self, client, *arguments, **options):
        """Runs a client of any kind.

        options: settings and env (dictionaries), display, registration (False: the DLL is not registered),
        diagnostics (True: run-client switches them on), composing (True: run-client's own choice of writer; otherwise the
        DLL's, the counting one), transcript (False: none; it takes Word a fifth of its time), prefix (default: the module's),
        status (the one expected, 0 unless given; None for any), patience (seconds).
        """
        transcript = self.folder / "transcript.txt"
        log = options.get("log", self.folder / "trace.log")
        command = [ROOT / "scripts" / "run-client", client,
                   "--prefix", options.get("prefix", self.folder / "prefix"), "--log", log]
        if options.get("transcript", True):
            command += ["--transcript", transcript]
        for name, value in options.get("settings", {}).items():
            command += ["--setting", f"{name}={value}"]
        for name, value in options.get("env", {}).items():
            command += ["--env", f"{name}={value}"]
        if not options.get("diagnostics"):
            command.append("--no-diagnostics")  # which ask Word for a little more
        if not options.get("composing"):
            command.append("--counting")
        if options.get("display"):
            command.append("--display")
        if not options.get("registration", True):
            command.append("--no-registration")
        result = subprocess.run([*command, "--", *arguments], stdin=subprocess.DEVNULL, capture_output=True,
                                timeout=options.get("patience", PATIENCE), check=False)
        outcome = Outcome(
            status=result.returncode,
            output=result.stdout.decode("utf-8", "replace").splitlines(),
            errors=result.stderr.decode("utf-8", "replace"),
            transcript=_lines(transcript) if options.get("transcript", True) else None,
            log=log.read_bytes() if log.is_file() else None)
        expected = options.get("status", 0)
        if expected is not None:
            self.assertEqual(expected, outcome.status, f"{outcome.output}\n{outcome.errors}")
        return outcome

    def run_vbscript(self, source, *arguments, **options):
        return self.run_client(self._write("client.vbs", source, "cp1252"), *arguments, **options)

    def run_jscript(self, source, *arguments, **options):
        return self.run_client(self._write("client.js", source, "cp1252"), *arguments, **options)

    def drive(self, calls, **options):
        """Runs the calls by virtual table, in the C++ driver; \"new\" and \"release\" are among the calls."""
        return self.run_steps(clients.driver_steps(calls), **options)

    def run_steps(self, steps, **options):
        """The same from the driver's own lines."""
        steps = self._write("steps.txt", steps, "utf-8")
        return self.run_client(DRIVER, windows(steps), **options)

    def _write(self, name, text, encoding):
        path = self.folder / name
        path.write_bytes(text.encode(encoding))
        return path

    def new_document(self, name="result.doc"):
        """A document's name that no file bears yet."""
        path = self.folder / name
        path.unlink(missing_ok=True)
        return path

    def assertAllOk(self, outcome):
        self.assertEqual([], [line for line in outcome.output if not line.endswith(" -> ok")])

    def assertNoPartialFiles(self, document):
        """Saving leaves no temporary files beside the document."""
        self.assertEqual([], [p.name for p in document.parent.iterdir()
                              if p.name.startswith(document.stem) and p != document])


def _lines(path):
    return path.read_text("utf-8").splitlines() if path.is_file() else []
