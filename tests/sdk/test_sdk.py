"""The worked example, built against an installation and nothing else, and run."""

import os
import pathlib
import re
import shutil
import subprocess

from support import documents
from support.endtoend import BUILD, PATIENCE, ROOT, EndToEndTest, windows
from support.installation import install

COMPILER = "x86_64-w64-mingw32-g++-posix"
TOOLCHAIN = ROOT / "cmake" / "mingw-w64.cmake"
VERSION = os.environ["MIROVEL_VERSION"]
STRICT = ["-Wall", "-Wextra", "-Wpedantic", "-Wshadow", "-Wconversion", "-Werror"]
LETTER = ["Dear Ann,", "this letter was written by a program that knows no Word."]


def run(*command, **options):
    return subprocess.run(command, stdin=subprocess.DEVNULL, capture_output=True, text=True, timeout=PATIENCE, check=False,
                          **options)


class Sdk(EndToEndTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        first = cls.folder / "first"
        install(first, "runtime", "sdk")
        # Nothing in it may depend on where it was made.
        cls.installation = cls.folder / "an installation"
        first.rename(cls.installation)
        cls.include = cls.installation / "include" / "mirovelcom"
        cls.project = cls.folder / "letter"
        shutil.copytree(cls.installation / "samples" / "sdk", cls.project)
        cls.built = cls.folder / "build"
        cls.configured = cls.configure(cls.project, cls.built)
        cls.making = run(os.environ["MIROVEL_CMAKE"], "--build", cls.built)

    @classmethod
    def configure(cls, source, build, *options):
        return run(os.environ["MIROVEL_CMAKE"], "-S", source, "-B", build, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Release",
                   f"-DCMAKE_TOOLCHAIN_FILE={TOOLCHAIN}", f"-DCMAKE_PREFIX_PATH={cls.installation}",
                   f"-DCMAKE_CXX_FLAGS={' '.join(STRICT)} -Wno-unknown-pragmas", *options)

    def setUp(self):
        self.assertEqual(0, self.configured.returncode, self.configured.stderr)
        self.assertEqual(0, self.making.returncode, self.making.stdout + self.making.stderr)

    def find(self, request, languages="C CXX", *options):
        """What find_package answers in a project of that text."""
        source = self.folder / "find"
        shutil.rmtree(source, ignore_errors=True)
        source.mkdir()
        (source / "CMakeLists.txt").write_text(
            f"cmake_minimum_required(VERSION 3.16)\nproject(find LANGUAGES {languages})\nfind_package({request})\n"
            'message(STATUS "found ${mirovelcom_FOUND} ${mirovelcom_VERSION} ${mirovelcom_RUNTIME_FILES}")\n')
        return self.configure(source, source / "build", *options)

    # The package

    def test_it_says_where_the_runtime_lies(self):
        result = self.find("mirovelcom 2.0 REQUIRED")
        files = ";".join(str(self.installation / "bin" / name)
                         for name in ("mirovelcom.dll", "mirovelcom.manifest", "mirovelcom.tlb"))
        self.assertIn(f"found 1 {VERSION} {files}", result.stdout, result.stderr)
        for name in files.split(";"):
            self.assertTrue(pathlib.Path(name).is_file(), name)

    def test_another_major_version_is_not_found(self):
        for version in ("1.0", "3.0"):
            result = self.find(f"mirovelcom {version} REQUIRED")
            self.assertNotEqual(0, result.returncode)
            self.assertIn(f"version: {VERSION}", result.stderr)

    def test_a_project_for_another_system_is_told_why(self):
        source = self.folder / "native"
        source.mkdir(exist_ok=True)
        (source / "CMakeLists.txt").write_text("cmake_minimum_required(VERSION 3.16)\nproject(native LANGUAGES NONE)\n"
                                               "find_package(mirovelcom REQUIRED)\n")
        result = run(os.environ["MIROVEL_CMAKE"], "-S", source, "-B", source / "build", "-G", "Ninja",
                     f"-DCMAKE_PREFIX_PATH={self.installation}")
        self.assertNotEqual(0, result.returncode)
        self.assertIn("mirovelcom is for 64-bit Windows", result.stderr)

    def test_no_file_names_the_machine_that_made_it(self):
        for path in self.installation.rglob("*"):
            if path.is_file() and path.suffix != ".dll":
                self.assertNotIn(str(ROOT).encode(), path.read_bytes(), path)

    # The headers

    def test_every_header_compiles_alone(self):
        headers = sorted(self.include.rglob("*.h"))
        self.assertEqual(["IDocument.h", "general/QdxException.h", "general/QdxLogBase.h"],
                         [str(h.relative_to(self.include)) for h in headers])
        for header in headers:
            # What widl writes is for system headers; a client gets it as one.
            strict = [] if header.name == "IDocument.h" else STRICT
            result = run(COMPILER, "-std=c++20", "-fsyntax-only", *strict, f"-I{self.include}", "-include", header,
                         "-x", "c++", os.devnull)
            self.assertEqual(0, result.returncode, result.stderr)

    def test_the_example_sees_nothing_but_the_installation(self):
        listed = re.findall(r"^    (.*)$", run("ninja", "-C", self.built, "-t", "deps").stdout, re.MULTILINE)
        used = {pathlib.Path(os.path.normpath(self.built / name)) for name in listed}
        self.assertLessEqual({self.include / "IDocument.h", self.include / "general" / "QdxException.h"}, used)
        self.assertEqual(set(), {path for path in used if path.is_relative_to(ROOT)
                                 and not path.is_relative_to(self.installation)
                                 and not path.is_relative_to(self.project)})

    # The page

    def built_from_the_page(self, number):
        """The program that the page's project makes of its first or second client, by the page's commands."""
        page = (ROOT / "docs" / "sdk.md").read_text()
        project, = re.findall(r"^```cmake\n(.*?)^```", page, re.MULTILINE | re.DOTALL)
        client = [text for text in re.findall(r"^```cpp\n(.*?)^```", page, re.MULTILINE | re.DOTALL) if "wmain" in text][number]
        source = self.folder / f"page{number}"
        source.mkdir()
        (source / "CMakeLists.txt").write_text(project)
        (source / "hello.cpp").write_text(client)
        commands = re.search(r"^```\n(cmake -S .*?)^```", page, re.MULTILINE | re.DOTALL)[1].splitlines()
        for command in commands:
            words = [word.replace("FOLDER", str(self.installation)) for word in command.split()]
            result = run(os.environ["MIROVEL_CMAKE"], *words[1:], cwd=source,
                         env={**os.environ, "CXXFLAGS": f"{' '.join(STRICT)} -Wno-unknown-pragmas"})
            self.assertEqual(0, result.returncode, result.stdout + result.stderr)
        return source / "build" / "hello.exe"

    def test_the_page_shows_a_client_of_ten_lines(self):
        document = self.new_document()
        outcome = self.run_client(self.built_from_the_page(0), windows(document), composing=True)
        self.assertEqual([], outcome.output)
        self.assertEqual("Hello", documents.text_of(document).strip())

    def test_the_page_shows_a_client_that_tells_failures(self):
        client = self.built_from_the_page(1)
        document = self.new_document()
        outcome = self.run_client(client, windows(document))
        self.assertEqual([], outcome.output)
        self.assertEqual("Hello", documents.text_of(document).strip())
        failing = next(i for i, line in enumerate(outcome.transcript, 1) if ".InsertAfter(" in line)
        outcome = self.run_client(client, windows(self.new_document()), status=1,
                                  env={"WORDSTANDIN_FAIL": f"{failing}:0x800a1066"})
        self.assertEqual(["Saving document", "COMERROR 0x800a1066"], outcome.output[:2])

    # The example

    def test_with_the_registered_dll(self):
        # What is registered is what was built; it is the same file.
        self.assertEqual((BUILD / "server" / "mirovelcom.dll").read_bytes(),
                         (self.installation / "bin" / "mirovelcom.dll").read_bytes())
        document = self.new_document()
        outcome = self.run_client(self.built / "letter.exe", windows(document), "Ann")
        self.assertEqual([], outcome.output)
        self.assertEqual(LETTER, documents.text_of(document).splitlines())

    def test_without_registration(self):
        document = self.new_document()
        manifest = self.installation / "bin" / "mirovelcom.manifest"
        outcome = self.run_client(self.built / "letter_unregistered.exe", windows(document), "Ann", windows(manifest),
                                  registration=False, prefix=self.folder / "unregistered")
        self.assertEqual([], outcome.output)
        self.assertEqual(LETTER, documents.text_of(document).splitlines())

    def test_it_catches_what_the_dll_throws(self):
        document = self.new_document()
        transcript = self.run_client(self.built / "letter.exe", windows(document), "Ann").transcript
        failing = next(i for i, line in enumerate(transcript, 1) if ".InsertAfter(" in line)
        outcome = self.run_client(self.built / "letter.exe", windows(document), "Ann", status=1,
                                  env={"WORDSTANDIN_FAIL": f"{failing}:0x800a1066"})
        self.assertEqual(["QdxException: insertText", "COMERROR 0x800a1066"], outcome.output[:2])

    def test_its_own_exceptions_are_its_own(self):
        outcome = self.run_client(self.built / "letter.exe", windows(self.new_document()), "", status=1)
        self.assertEqual(["a letter to nobody"], outcome.output)
