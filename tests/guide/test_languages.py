"""The samples in languages that cannot be run here say so, and say the same as the one in VBScript, which is run."""

import ast
import re
import subprocess

from support.endtoend import ROOT, EndToEndTest

SAMPLES = ROOT / "samples"
ORIGINAL = SAMPLES / "vbscript" / "first.vbs"
OTHERS = [SAMPLES / name for name in ("powershell/first.ps1", "csharp/First.cs", "vba/First.bas", "python/first.py")]


def calls(path):
    return set(re.findall(r"\bmirovel\.(\w+)", path.read_text("ascii"))) - {"Mirovel"}


def texts(path):
    return re.findall(r"""insertText\(? ?["'](.*?)["']|WriteHeading mirovel, "(.*?)"|Write-Heading \$mirovel '(.*?)'"""
                      r"""|[wW]rite_?[hH]eading\(mirovel, "(.*?)"\)""", path.read_text("ascii"))


class Languages(EndToEndTest):
    def test_all_make_the_same_calls(self):
        for path in OTHERS:
            with self.subTest(path.name):
                own = {"overrideRegistry"} if path.suffix == ".bas" else set()  # it asks for a Word of its own, too
                self.assertEqual(calls(ORIGINAL), calls(path) | own)

    def test_all_write_the_same_texts(self):
        expected = ["".join(found) for found in texts(ORIGINAL)]
        self.assertEqual(5, len(expected))
        for path in OTHERS:
            with self.subTest(path.name):
                self.assertEqual(expected, ["".join(found) for found in texts(path)])

    def test_the_first_line_says_what_was_not_tried(self):
        for path in OTHERS:
            with self.subTest(path.name):
                self.assertIn("ot run where this was written", path.read_text("ascii").splitlines()[0])

    def test_csharp_compiles(self):
        subprocess.run(["mcs", "-warnaserror", "-platform:x64", "-r:Microsoft.CSharp", f"-out:{self.folder / 'First.exe'}", OTHERS[1]],
                       check=True, timeout=120)

    def test_python_parses(self):
        ast.parse(OTHERS[3].read_text("ascii"))
