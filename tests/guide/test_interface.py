"""The examples of docs/interface.md run as they stand there, in one process for each writer, and none of them fails unnoticed."""

import re
import shutil
import subprocess

import pages
from support import documents
from support.endtoend import PATIENCE, ROOT, EndToEndTest

PAGE = pages.DOCS / "interface.md"
METHODS = re.findall(r"\bHRESULT (\w+)\(", (ROOT / "server" / "mirovelcom.idl").read_text("ascii"))
WITHOUT_EFFECT = {"insertDiagram", "setOption", "insertMark", "startFile", "insertLocate", "pushDirectory", "popDirectory"}
# What the examples' folder holds, and what it is made of.
FILES = {"logo.bmp": "sign.bmp", "terms.rtf": "method.rtf"}


def entries():
    """The section of each method, by its name."""
    return {match[1]: section for section in pages.sections(PAGE)
            if (match := re.fullmatch(r"\d+\. (\w+)\(.*\)", section.title))}


def example(section):
    """The lines of a method's one example."""
    blocks = section.blocks("vbscript")
    assert len(blocks) == 1, section.title
    return blocks[0].splitlines()


def sessions():
    """The whole sessions of the pages that one reads first."""
    found = {}
    for page, title in ((PAGE, "A session"), (pages.DOCS / "index.md", "Mirovelcom")):
        section = next(section for section in pages.sections(page) if section.title == title)
        found[page.stem], = (block.splitlines() for block in section.blocks("vbscript"))
    return found


def client(examples):
    """A script that runs each in a document of its own and tells what fails."""
    lines = ["Dim m, strict"]
    for name, body in examples.items():
        lines += [f"Sub Example_{name}", *body, "End Sub"]
    lines += ["Sub Check(name)",
              "    If Err.Number <> 0 Then WScript.Echo name & \": \" & Err.Description",
              "    Err.Clear",
              "End Sub",
              "On Error Resume Next"]
    # Those with an object of their own end the Word that is there.
    whole = [name for name in examples if "CreateObject" in examples[name][0]]
    for name in [*whole, *(name for name in examples if name not in whole)]:
        if name in whole:
            lines += [f"Example_{name}", f'Check "{name}"', "Set m = Nothing"]
            continue
        lines += ['If Not IsObject(m) Then Set m = CreateObject("Mirovel.Mirovel")',
                  'If m Is Nothing Then Set m = CreateObject("Mirovel.Mirovel")',
                  "m.start", f'm.create "C:\\out\\example-{name}.doc"', f'Check "{name}, before"',
                  f"Example_{name}", f'Check "{name}"', "m.close", f'Check "{name}, close"']
    lines += ["m.stop", 'Check "stop"', 'WScript.Echo "done"']
    return "\r\n".join(lines) + "\r\n"


def said(lines):
    """The texts that an example inserts by themselves, as far as they stand in quotation marks."""
    texts = re.findall(r'insert(?:Text|Xref) "((?:[^"]|"")*)"', "\n".join(lines))
    return [text for text in texts if "<" not in text]


class Entries(EndToEndTest):
    def test_every_method_has_an_entry_in_order(self):
        self.assertEqual(METHODS, list(entries()))

    def test_every_entry_has_a_short_example_of_its_method(self):
        for name, section in entries().items():
            with self.subTest(name):
                lines = example(section)
                self.assertIn(len(lines), range(2, 8))
                self.assertRegex("\n".join(lines), rf"\bm\.{name}\b")

    def test_every_entry_says_what_it_does_with_both_writers_how_it_fails_and_what_it_cannot_do(self):
        for name, section in entries().items():
            labels = re.findall(r"^- \*\*(\w+)\*\*", section.text, re.MULTILINE)
            wanted = ["Does", "Fails", "Guard"] if name in WITHOUT_EFFECT else ["Does", "Counting", "Fails", "Cannot", "Guard"]
            with self.subTest(name):
                self.assertEqual(wanted, [label for label in labels if label != "Arguments"])


class Examples(EndToEndTest):
    def run_examples(self, **options):
        # The prefix has to be there for the folder to be made in it.
        self.run_vbscript("", **options)
        folder = self.folder / "prefix" / "drive_c" / "out"
        shutil.rmtree(folder, ignore_errors=True)
        folder.mkdir()
        for name, source in FILES.items():
            shutil.copy(ROOT / "samples" / "report-files" / source, folder / name)
        examples = {name: example(section) for name, section in entries().items()} | sessions()
        outcome = self.run_vbscript(client(examples), settings={"Word/Strict": "1"}, **options)
        self.assertEqual(["done"], outcome.output)
        return examples, folder

    def check_texts(self, examples, folder):
        """What the examples say stands in their documents."""
        converted = folder / "converted"
        found = sorted(folder.glob("*.doc"))
        subprocess.run([ROOT / "scripts" / "office-convert", "--stay", "txt", *found, converted], check=True, timeout=PATIENCE)
        texts = {path.stem: path.read_text("utf-8-sig") for path in converted.iterdir()}
        checked = 0
        for name, lines in examples.items():
            text = texts.get(f"example-{name}".lower(), "") + "".join(
                texts[match] for match in re.findall(r'create "C:\\out\\(\w+)\.doc"', "\n".join(lines)))
            for piece in said(lines):
                if name in ("startHeader", "endHeader", "startFooter", "endFooter", "insertField"):
                    continue  # plain text has no headers and footers
                with self.subTest(name):
                    self.assertIn(piece, text)
                    checked += 1
        self.assertGreater(checked, 30)

    def test_composed(self):
        self.check_texts(*self.run_examples(composing=True))

    def test_counted(self):
        self.run_examples()
