"""The fragments of which the sample report is made, as a word processor reads each by itself: no reading of ours stands in
between. What they should hold is said by the same report written call by call."""

import re
import subprocess
import xml.etree.ElementTree

from opendocument import NAMESPACES, Styles, qualified
from support.endtoend import ROOT, EndToEndTest, windows

SAMPLE = ROOT / "samples" / "vbscript" / "report.vbs"
FILES = ROOT / "samples" / "report-files"
FRAGMENT = re.compile(r"(\d+)-mirovel-\{[0-9A-F-]+\}\.rtf")
BREAK = r"\f0\page"  # in front of a fragment's text
END = "'\u00a7'"  # the mark that each fragment ends with


class Lines:
    """What a document's body says: a line for each character, mark, paragraph end and piece of a table."""

    TABLE = ("table", "table-row", "table-cell")

    def __init__(self, path, looks=None):
        document = xml.etree.ElementTree.parse(path)
        self.styles = Styles(document)
        # A fragment names styles and says nothing about them.
        self._looks = looks or self.styles.paragraph_looks()
        self.all = list(self._content(document.find(f".//{qualified('office:body')}/{qualified('office:text')}")))
        self.parts = [list(self._content(part)) for name in ("header", "footer")
                      for part in document.iterfind(f".//{qualified('style:' + name)}")]

    def looks(self):
        return self._looks

    def _content(self, element):
        for child in element:
            tag = child.tag.rpartition("}")[2]
            if tag in ("p", "h"):
                yield from self._paragraph(child)
            elif tag in self.TABLE or tag == "section":
                yield from self._content(child)
                if tag in self.TABLE:
                    yield tag
            elif tag == "table-of-content":
                yield tag
            elif tag not in ("sequence-decls", "table-column"):
                raise AssertionError(f"unexpected {child.tag}")

    def _paragraph(self, element):
        name = element.get(qualified("text:style-name"))
        shown = self.styles.display_name(self.styles.named(name))
        alignment = self.styles.direct(name).get("alignment", self._looks[shown]["alignment"])
        yield from self._tokens(element, {}, None)
        yield f"paragraph {shown}, alignment {alignment}"

    def _tokens(self, element, direct, link):
        yield from self._text(element.text, direct, link)
        for child in element:
            tag = child.tag.removeprefix(f"{{{NAMESPACES['text']}}}")
            if tag == "span":
                yield from self._tokens(child, {**direct, **self.styles.text(child.get(qualified("text:style-name")))}, link)
            elif tag == "a":
                yield from self._tokens(child, direct, child.get(qualified("xlink:href")))
            elif tag == "s":
                yield from self._text(" " * int(child.get(qualified("text:c"), "1")), direct, link)
            elif tag in ("tab", "line-break"):
                yield from self._text("\t" if tag == "tab" else "\v", direct, link)
            elif tag in ("bookmark", "bookmark-start"):
                # The table of contents has bookmarks of its own.
                if not (mark := child.get(qualified("text:name"))).startswith("_Toc"):
                    yield f"bookmark {mark}"
            elif tag not in ("bookmark-end", "soft-page-break"):
                yield child.tag.rpartition("}")[2]
            yield from self._text(child.tail, direct, link)

    @staticmethod
    def _text(text, direct, link):
        # How links look is the reading program's style.
        shown = {name: value for name, value in direct.items() if not (link and name == "underlined")}
        for character in text or "":
            yield " ".join([repr(character), *map(str, sorted(shown.items())), *([f"to {link}"] if link else [])])


class Fragments(EndToEndTest):
    def test_the_reports_fragments_say_what_its_calls_say(self):
        sample = SAMPLE.read_text("ascii")
        by_fragments = sample.replace('"Compose", "1"', '"Compose", "2"')
        self.assertNotEqual(sample, by_fragments)
        typed, inserted, converted = self.folder / "report.doc", self.folder / "inserted", self.folder / "converted"
        inserted.mkdir()
        self.run_client(SAMPLE, windows(typed), windows(FILES))
        self.run_vbscript(by_fragments, windows(self.folder / "by-fragments.doc"), windows(FILES),
                          env={"WORDSTANDIN_INSERTED": windows(inserted)})
        numbered = {int(match[1]): path for path in inserted.iterdir() if (match := FRAGMENT.fullmatch(path.name))}
        fragments = [numbered[number] for number in sorted(numbered)]
        subprocess.run([ROOT / "scripts" / "office-convert", "--stay", "fodt", typed, *fragments, converted], check=True, timeout=240)

        document = Lines(converted / "report.fodt")
        place = read = parts = 0
        for fragment in fragments:
            lines = Lines(converted / f"{fragment.stem}.fodt", document.looks()).all
            self.assertEqual((lines[-2], lines[-1].split()[0]), (END, "paragraph"))
            del lines[-2:]
            # It may become the end of a section, or the table of contents.
            if all(line.startswith("paragraph") for line in lines[-2:]):
                del lines[-1]
            # LibreOffice makes a paragraph of its own of a page break in front of all text.
            if BREAK in fragment.read_text("ascii"):
                self.assertTrue(lines.pop(0).startswith("paragraph"))
            if any(part[:len(lines)] == lines for part in document.parts):
                parts += 1
                continue
            place = self.assertFollows(document.all, place, lines, fragment)
            read += len(lines)
        self.assertGreater(read / len(document.all), 0.6, "most of the report is in fragments")
        self.assertEqual(3, parts, "two headers and a footer are")

    def assertFollows(self, document, place, lines, fragment):
        """Where the lines end that stand in the document behind that place."""
        for start in range(place, len(document) - len(lines) + 1):
            if document[start:start + len(lines)] == lines:
                return start + len(lines)
        # For people: as far as they agree where they agree longest.
        agreed, start = max((next((i for i, line in enumerate(lines) if document[start + i:start + i + 1] != [line]), 0), start)
                            for start in range(place, len(document)))
        return self.fail(f"{fragment}: behind {document[start:start + agreed][-20:]} there is "
                         f"{lines[agreed:agreed + 1]} in place of {document[start + agreed:start + agreed + 1]}")
