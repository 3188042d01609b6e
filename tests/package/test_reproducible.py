"""A second build of the same sources, later and in another place, gives the same bytes."""

import os
import pathlib
import re
import shutil
import subprocess
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
BUILD = pathlib.Path(os.environ["MIROVEL_BUILD"])
CMAKE = os.environ["MIROVEL_CMAKE"]
VERSION = os.environ["MIROVEL_VERSION"]
# Its length and its depth differ from those of any usual checkout.
ELSEWHERE = BUILD / "package" / "another place, with a longer name" / "than that of the first build" / "mirovelcom"
PATIENCE = 1500  # seconds; a guard against hanging, not a measure
TIME = "1700000000"
PRODUCTS = ["server/mirovelcom.dll", "server/generated/mirovelcom.tlb", "server/generated/IDocument.h",
            "settings/mirovel-settings.exe", "replay/program/mirovel-replay.exe", "packaging/templates/Vantpl01.dot",
            "packaging/templates/KXR1.dot", "packaging/THIRD-PARTY.txt"]


def run(*command, **options):
    # A compiler cache would answer with what the first build has made.
    environment = {name: value for name, value in os.environ.items() if not name.endswith("_COMPILER_LAUNCHER")}
    result = subprocess.run(command, env=environment | {"SOURCE_DATE_EPOCH": TIME}, stdin=subprocess.DEVNULL,
                            capture_output=True, text=True, timeout=PATIENCE, check=False, **options)
    if result.returncode != 0:
        raise AssertionError(f"{command}: status {result.returncode}\n{result.stdout[-4000:]}\n{result.stderr[-4000:]}")


def build_type():
    return re.search(r"^CMAKE_BUILD_TYPE:STRING=(.*)$", (BUILD / "CMakeCache.txt").read_text("utf-8"), re.MULTILINE)[1]


class SecondBuild(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        shutil.rmtree(BUILD / "package", ignore_errors=True)
        cls.addClassCleanup(shutil.rmtree, BUILD / "package", True)
        cls.tree = ELSEWHERE / "results of it"
        shutil.copytree(ROOT, ELSEWHERE, ignore=lambda folder, names: [
            name for name in names if folder == str(ROOT) and name in ("build", "out", ".git")])
        run(CMAKE, "-S", ELSEWHERE, "-B", cls.tree, "-G", "Ninja", f"-DCMAKE_BUILD_TYPE={build_type()}", "-DMIROVEL_TESTS=OFF",
            f"-DCMAKE_TOOLCHAIN_FILE={ELSEWHERE / 'cmake' / 'mingw-w64.cmake'}")
        run(CMAKE, "--build", cls.tree, "--target", "mirovelcom", "mirovel-settings", "mirovel-replay", "templates",
            "notices", "documentation")

    def test_what_is_built(self):
        for name in PRODUCTS:
            with self.subTest(name):
                self.assertSame(BUILD / name, self.tree / name)

    def test_what_is_packed(self):
        run(ROOT / "scripts" / "package", BUILD, BUILD / "package" / "first")
        run(ELSEWHERE / "scripts" / "package", self.tree, BUILD / "package" / "second")
        for extension in ("msi", "zip"):
            name = f"mirovelcom-{VERSION}-x64.{extension}"
            with self.subTest(name):
                self.assertSame(BUILD / "package" / "first" / name, BUILD / "package" / "second" / name)

    def assertSame(self, first, second):
        one, other = first.read_bytes(), second.read_bytes()
        self.assertEqual(len(one), len(other), "sizes")
        self.assertEqual([], [i for i, (a, b) in enumerate(zip(one, other)) if a != b][:20], "places where they differ")

    def test_no_name_of_the_first_place_is_in_it(self):
        for name in PRODUCTS:
            with self.subTest(name):
                content = (BUILD / name).read_bytes()
                for encoding in ("utf-8", "utf-16-le"):
                    self.assertNotIn(str(ROOT).encode(encoding), content)
