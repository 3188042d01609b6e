"""Each quick check of scripts/lint passes over a sound tree and finds what is wrong in another one."""

import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
# Nothing of the caller's git takes part.
ENVIRONMENT = {name: value for name, value in os.environ.items() if not name.startswith("GIT_")} | {
    "GIT_CONFIG_GLOBAL": os.devnull, "GIT_CONFIG_SYSTEM": os.devnull}
SOUND_COMMENT = """#pragma once

/// What it does:
///  - the first thing, which takes
///    two lines;
///  - the second: `a - b`.
/// And so on.
///
/// 1. One.
/// 2. Two - and no more.
int f();
"""


class QuickChecks(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.tree = pathlib.Path(folder.name)
        shutil.copytree(ROOT / "scripts", self.tree / "scripts")
        for name in (".clang-format", ".ci/run", ".gitattributes"):
            (self.tree / name).parent.mkdir(exist_ok=True)
            shutil.copy(ROOT / name, self.tree / name)
        self.write("CMakeLists.txt", "project(sound VERSION 1.2.3 LANGUAGES CXX)\n")
        self.write("CHANGELOG.md", "# Changelog\n\n## [1.2.3] - unreleased\n\n## [1.2.2] - 2001-01-01\n")
        self.write("Sound.h", SOUND_COMMENT)
        self.git("init", "--quiet")
        self.git("add", "--all")

    def git(self, *words):
        subprocess.run(["git", "-c", "user.name=x", "-c", "user.email=x@x", *words], cwd=self.tree, env=ENVIRONMENT, check=True,
                       stdin=subprocess.DEVNULL, capture_output=True, timeout=60)

    def write(self, name, text):
        path = self.tree / name
        path.parent.mkdir(exist_ok=True)
        path.write_bytes(text.encode())

    def lint(self):
        result = subprocess.run([self.tree / "scripts" / "lint", "--quick"], cwd=self.tree, env=ENVIRONMENT, check=False,
                                stdin=subprocess.DEVNULL, capture_output=True, text=True, timeout=60)
        failed = [line.removeprefix("FAILED").strip() for line in result.stdout.splitlines() if line.startswith("FAILED")]
        self.assertEqual(result.returncode != 0, bool(failed), result.stdout + result.stderr)
        return failed, result.stdout

    def assertFound(self, check, detail):
        failed, output = self.lint()
        self.assertEqual([check], failed, output)
        self.assertIn(detail, output)

    def test_a_sound_tree_passes(self):
        self.assertEqual([], self.lint()[0])

    def test_names_that_differ_in_case(self):
        self.write("Names.txt", "a\n")
        self.write("names.txt", "b\n")
        self.assertFound("no two names that differ only in case", "Names.txt and names.txt")

    def test_folders_that_differ_in_case(self):
        self.write("Folder/a.txt", "a\n")
        self.write("folder/b.txt", "b\n")
        self.assertFound("no two names that differ only in case", "Folder and folder")

    def test_placeholders(self):
        for text in ("EXAMPLE_PLACE" + "HOLDER", "see TO" + "DO: more", "// FIX" + "ME"):
            with self.subTest(text):
                self.write("page.md", f"# Page\n\n{text}\n")
                self.assertFound("no text that only holds a place", "page.md:3")

    def test_a_word_that_contains_one_is_none(self):
        self.write("page.md", "a todolist, METHODOLOGY, a placeholder in a sentence\n")
        self.assertEqual([], self.lint()[0])

    def test_a_torn_item(self):
        self.write("Torn.h", SOUND_COMMENT.replace("///    two lines", "///  two lines"))
        self.assertFound("lists in comments are whole", "Torn.h:5")

    def test_two_items_in_a_line(self):
        self.write("Torn.h", SOUND_COMMENT.replace("two lines;\n///  - the second", "two lines; - the second"))
        self.assertFound("lists in comments are whole", "Torn.h:5")

    def test_formatting(self):
        self.write("Bad.cpp", "int  f();\n")
        self.assertFound("formatting", "Bad.cpp")

    def test_braces_around_single_statements(self):
        self.write("standin/Bad.cpp", "int sign(int number)\n{\n    if (number < 0) {\n        return -1;\n    }\n    return 1;\n}\n")
        self.assertFound("formatting", "standin/Bad.cpp")
        subprocess.run([self.tree / "scripts" / "format"], cwd=self.tree, env=ENVIRONMENT, check=True, capture_output=True, timeout=60)
        self.assertEqual([], self.lint()[0])
        self.assertIn("    if (number < 0)\n        return -1;\n    return 1;", (self.tree / "standin/Bad.cpp").read_text())

    def test_white_space_and_tabs(self):
        self.write("bad.txt", "a \n")
        self.assertFound("no white space at line ends", "bad.txt:1")
        self.write("bad.txt", "a\tb\n")
        self.assertFound("no tabs in sources", "bad.txt:1")

    def test_the_last_line(self):
        self.write("bad.txt", "a")
        self.assertFound("every file ends in a newline", "bad.txt")

    def test_includes_and_header_guards(self):
        self.write("bad.h", '#include "../sound.h"\n#pragma once\n')
        self.assertFound("no include climbs out of its folder", "bad.h:1")
        self.write("bad.h", "int f();\n")
        self.assertFound("every header begins with #pragma once", "bad.h")

    def test_scripts_parse(self):
        self.write("scripts/bad", "#!/usr/bin/env bash\nif\n")
        self.assertFound("shell scripts parse", "scripts/bad")
        (self.tree / "scripts" / "bad").unlink()
        self.write("bad.py", "def\n")
        self.assertFound("Python files parse", "bad.py")

    def test_results_compared_as_numbers(self):
        for statement in ("EXPECT_EQ(m.close(), S_OK);", "ASSERT_NE(E_FAIL, m.close());", "EXPECT_EQ(m.create(\n    L\"a,b\"), S_OK) << 1;",
                          "EXPECT_TRUE(FAILED(m.close()));", "EXPECT_FALSE(!SUCCEEDED(m.close()));",
                          "EXPECT_HRESULT_SUCCEEDED(m.close());", "EXPECT_EQ(m.close(), isWine ? CO_E_CLASSSTRING : S_OK);",
                          "EXPECT_EQ(m.close(), static_cast<HRESULT>(0x800A1735));", "EXPECT_EQ(comErrorOf([&] { f(1, 2); }), code);",
                          "EXPECT_EQ(error.Error(), refused);"):
            with self.subTest(statement):
                self.write("tests/bad.cpp", f"// Two\n\n{statement}\n")
                self.assertIn("tests/bad.cpp:3: compares results as numbers", self.lint()[1])

    def test_conditions_on_wine(self):
        for name, text in (("tests/bad.cpp", 'x = GetProcAddress(m, "wine_get_version");\n'), ("tests/bad.h", "bool isWine();\n")):
            with self.subTest(name):
                self.write(name, text)
                self.assertIn(f"{name}:1", self.lint()[1])
                (self.tree / name).unlink()

    def test_results_compared_by_the_matcher(self):
        self.write("tests/good.cpp", "int i = EXPECT_THAT(m.close(), isHresult(S_OK)) + EXPECT_EQ(textOf(E_FAIL), R\"(a\")\") + EXPECT_TRUE(found);\n")
        self.assertNotIn("tests/good.cpp:1: compares", self.lint()[1])

    CHANGELOG = "changelog, version and tags agree"

    def test_the_changelog_knows_the_version(self):
        self.write("CMakeLists.txt", "project(sound VERSION 1.3.0 LANGUAGES CXX)\n")
        self.assertFound(self.CHANGELOG, 'the first entry is "## [1.2.3] - unreleased", the version 1.3.0')

    def test_the_changelog_knows_the_tags(self):
        self.git("commit", "--quiet", "--message", "x")
        self.git("tag", "v1.2.2")
        self.assertEqual([], self.lint()[0])
        self.git("tag", "v1.2.3")
        self.assertFound(self.CHANGELOG, "1.2.3 is unreleased, and there is the tag v1.2.3")
        self.git("tag", "v1.0.0")
        self.write("CHANGELOG.md", "# Changelog\n\n## [1.2.3] - 2001-02-03\n\n## [1.2.2] - 2001-01-01\n")
        self.assertFound(self.CHANGELOG, "no entry for the tag v1.0.0")
        self.git("tag", "--delete", "v1.0.0")
        self.assertEqual([], self.lint()[0])
        self.git("tag", "--delete", "v1.2.3")
        self.assertFound(self.CHANGELOG, "1.2.3 is released, and there is no tag v1.2.3")


if __name__ == "__main__":
    unittest.main()
