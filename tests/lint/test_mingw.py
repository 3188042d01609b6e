"""What is shipped, the stand-in and the samples need nothing that mingw-w64 alone has. Tests may."""

import pathlib
import re
import subprocess
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
NAMES = [line.split("\t") for line in (pathlib.Path(__file__).parent / "mingw-names.tsv").read_text("ascii").splitlines()
         if not line.startswith("#")]


def sources():
    files = subprocess.run(["git", "-C", ROOT, "ls-files", "-z", "--", "*.h", "*.cpp", "*.c", "*.rc", "*.in"], check=True,
                           capture_output=True, text=True).stdout.split("\0")[:-1]
    return [ROOT / file for file in files if not file.startswith("tests/") and "Mingw" not in pathlib.Path(file).name]


def for_visual_studio(text):
    """Without comments, texts, and what a condition keeps from Visual Studio's compiler."""
    text = re.sub(r"//[^\n]*|/\*.*?\*/", "", text, flags=re.DOTALL)
    text = re.sub(r'"(\\.|[^"\\\n])*"', '""', text)
    text = re.sub(r"^#ifdef _MSC_VER\n(.*?)(?:^#else\n.*?)?^#endif", r"\1", text, flags=re.DOTALL | re.MULTILINE)
    return re.sub(r"^#ifndef _MSC_VER\n.*?^#endif", "", text, flags=re.DOTALL | re.MULTILINE)


def findings(text):
    return [f"{match[0]}: {reason}" for name, reason in NAMES for match in re.finditer(name, for_visual_studio(text))]


class Mingw(unittest.TestCase):
    def test_a_name_of_mingws_is_found(self):
        self.assertEqual(["__attribute__: of GCC and clang"], findings("__attribute__((cold)) void f();\n"))
        self.assertEqual([], findings("#ifdef _MSC_VER\nint a;\n#else\n__attribute__((cold)) int a;\n#endif\n// __attribute__\n"))
        self.assertEqual(1, len(findings("#ifdef _MSC_VER\n__asm__(1);\n#else\nint a;\n#endif\n")))

    def test_no_source_uses_one(self):
        found = {str(path.relative_to(ROOT)): names for path in sources() if (names := findings(path.read_text("utf-8")))}
        self.assertEqual({}, found)
        self.assertGreater(len(sources()), 300)
