"""THIRD-PARTY.txt tells of every library whose code is in a binary that is shipped."""

import os
import pathlib
import re
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
BUILD = pathlib.Path(os.environ["MIROVEL_BUILD"])
HEADER_ONLY = {"spdlog": "spdlog", "fmt": "fmt", "CLI": "CLI11"}  # the name in CMake, and in the notices


def shipped_folders():
    """The folders that are compiled as what is shipped is."""
    text = (ROOT / "CMakeLists.txt").read_text("utf-8")
    between = text.partition("set(MIROVEL_SHIPPED ON)")[2].partition("unset(MIROVEL_SHIPPED)")[0]
    return re.findall(r"add_subdirectory\((\w+)\)", between)


def sections():
    text = (BUILD / "packaging" / "THIRD-PARTY.txt").read_bytes().decode("utf-8").replace("\r\n", "\n")
    parts = re.split(r"^=+\n(.+) \((in .+)\)\n=+\n", text, flags=re.MULTILINE)[1:]
    return dict(zip(parts[::3], zip(parts[1::3], parts[2::3])))


class Notices(unittest.TestCase):
    def test_every_library_has_its_own(self):
        folders = shipped_folders()
        self.assertIn("diagnostics", folders)
        included = {name for folder in folders for path in (ROOT / folder).rglob("CMakeLists.txt")
                    for found in re.findall(r"mirovel_system_headers\(\w+ (?:PRIVATE|PUBLIC) ([\w ]+)\)",
                                            path.read_text("utf-8"))
                    for name in found.split()}
        self.assertEqual(set(HEADER_ONLY), included)
        self.assertEqual([*HEADER_ONLY.values(), "mingw-w64 runtime", "winpthreads", "GCC run-time libraries"],
                         list(sections()))

    def test_each_has_a_holder_and_the_words_of_a_licence(self):
        for name, (_, text) in sections().items():
            with self.subTest(name):
                self.assertRegex(text, "Copyright \\([Cc]\\) ")
                self.assertGreater(len(text), 1000)
                self.assertNotRegex(text, r"(?m)^ ?\.$")  # a mark of the packages' form
        self.assertIn("Gabi Melman", sections()["spdlog"][1])
        self.assertIn("Zverovich", sections()["fmt"][1])
        self.assertIn("University of Cincinnati", sections()["CLI11"][1])
        self.assertIn("Lockless", sections()["winpthreads"][1])
        self.assertIn("Hewlett-Packard", sections()["GCC run-time libraries"][1])

    def test_it_says_in_which_binary(self):
        """A name that only one library has in its code is looked for in the binaries."""
        places = {"mirovelcom.dll": BUILD / "server" / "mirovelcom.dll",
                  "mirovel-replay.exe": BUILD / "replay" / "program" / "mirovel-replay.exe",
                  "mirovel-settings.exe": BUILD / "settings" / "mirovel-settings.exe"}
        for library, sign in (("spdlog", b"spdlog"), ("CLI11", b"CLI")):
            holders = [name for name, path in places.items() if re.search(rb"[^A-Za-z]" + sign + rb"[^A-Za-z]|" +
                                                                          str(len(sign)).encode() + sign, path.read_bytes())]
            self.assertEqual(f"in {holders[0]}" if len(holders) == 1 else holders, sections()[library][0])


if __name__ == "__main__":
    unittest.main()
