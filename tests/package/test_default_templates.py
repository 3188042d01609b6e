"""The templates that are shipped: every style that clients name is there, in Word's stand-in and in a word processor."""

import re

from support import documents
from support.endtoend import BUILD, EndToEndTest, windows

FO = "{urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0}"
STYLE = "{urn:oasis:names:tc:opendocument:xmlns:style:1.0}"
TABLE = "{urn:oasis:names:tc:opendocument:xmlns:table:1.0}"
TEXT = "{urn:oasis:names:tc:opendocument:xmlns:text:1.0}"
STYLES = ["Normal", "TOC Heading", "Title", "Subtitle", "Body Text", "Caption", "Header", "Footer",
          *(f"Heading {level}" for level in range(1, 10)), *(f"TOC {level}" for level in range(1, 10))]


class DefaultTemplates(EndToEndTest):
    def template(self, name):
        return BUILD / "packaging" / "templates" / name

    def opened(self, name):
        """The template as LibreOffice reads it, without leaving anything beside it."""
        copy = self.folder / name
        copy.write_bytes(self.template(name).read_bytes())
        return documents.open_document(copy)

    def styles(self, tree):
        return {each.get(f"{STYLE}display-name") or each.get(f"{STYLE}name"): each for each in tree.iter(f"{STYLE}style")}

    def assertHasHierarchy(self, tree):
        styles = self.styles(tree)
        for level in range(1, 10):
            self.assertEqual(str(level), styles[f"Heading {level}"].get(f"{STYLE}default-outline-level"))
            self.assertEqual("always", styles[f"Heading {level}"].find(f"{STYLE}paragraph-properties")
                             .get(f"{FO}keep-with-next"))
            tab = next(styles[f"Contents {level}"].iter(f"{STYLE}tab-stop"))
            self.assertEqual(("right", "dotted"), (tab.get(f"{STYLE}type"), tab.get(f"{STYLE}leader-style")))
        sizes = [float(styles[f"Heading {level}"].find(f"{STYLE}text-properties").get(f"{FO}font-size").removesuffix("pt"))
                 for level in range(1, 4)]
        self.assertEqual(sorted(sizes, reverse=True), sizes)
        self.assertEqual(len(set(sizes)), len(sizes), "a reader tells the upper levels apart by their size")

    def assertHasA4Page(self, tree):
        page = next(each for each in tree.iter(f"{STYLE}page-layout-properties") if each.get(f"{FO}page-width"))
        self.assertEqual(("8.2681in", "11.6929in"), (page.get(f"{FO}page-width"), page.get(f"{FO}page-height")))

    def test_a_word_processor_reads_them(self):
        for name in ("Vantpl01.dot", "KXR1.dot"):
            with self.subTest(name):
                tree = self.opened(name)
                self.assertHasHierarchy(tree)
                self.assertHasA4Page(tree)
                for expected in ("Header", "Footer", "Title", "Subtitle", "Text body"):
                    self.assertIn(expected, self.styles(tree))
                self.assertEqual("", documents.text_of(self.folder / name))

    def test_they_are_templates_to_word(self):
        for name in ("Vantpl01.dot", "KXR1.dot"):
            content = self.template(name).read_bytes()
            self.assertTrue(content.startswith(b"{\\rtf1"))
            self.assertIn(b"\\doctemp", content)

    def write(self, name):
        """A document with a paragraph in each style, based on the template."""
        document = self.new_document(name.lower().replace(".dot", ".doc"))
        calls = [("new",), ("start",), ("create", windows(document))]
        for style in STYLES:
            calls += [("setStyle", style), ("insertText", style), ("insertEndl",)]
        outcome = self.drive([*calls, ("close",), ("stop",)],
                             settings={"Word/WordTemplateName": windows(self.template(name))})
        self.assertAllOk(outcome)
        return document, outcome.transcript

    def font_sizes(self, document):
        """By paragraph text, from the style that the paragraph has."""
        tree = documents.open_document(document)
        by_name = {each.get(f"{STYLE}name"): each for each in tree.iter(f"{STYLE}style")}
        return {"".join(p.itertext()): self.inherited(by_name, p.get(f"{TEXT}style-name"))
                for p in (*tree.iter(f"{TEXT}p"), *tree.iter(f"{TEXT}h"))}

    def inherited(self, styles, name):
        while name in styles:
            properties = styles[name].find(f"{STYLE}text-properties")
            size = properties.get(f"{FO}font-size") if properties is not None else None
            if size:
                return float(size.removesuffix("pt"))
            name = styles[name].get(f"{STYLE}parent-style-name")
        return None

    def check_document(self, name, sizes):
        document, transcript = self.write(name)
        added = [line for line in transcript if line.startswith("application.Documents.Add(")]
        self.assertEqual(1, len(added))
        self.assertRegex(added[0], re.escape(name) + r'", missing, missing, missing\) -> document$')
        self.assertEqual([], [line for line in transcript if " !! " in line], "every style is known")
        found = self.font_sizes(document)
        self.assertEqual(sizes, {style: found[style] for style in sizes})

    def check_tables(self, name):
        """Tables in the table style, and a heading of the contents in the style for it."""
        document = self.new_document(f"tables-{name}".lower().replace(".dot", ".doc"))
        rows = [call for text in ("Heading", "Item", "Total")
                for call in (("addRow",), ("addCell",), ("insertText", text), ("addCell",), ("insertText", "1"))]
        outcome = self.drive(
            [("new",), ("start",), ("create", windows(document)), ("insertTOC",), ("startTable",), *rows, ("endTable",),
             ("close",), ("stop",)],
            settings={"Word/WordTemplateName": windows(self.template(name)), "Word/Compose": "1", "Word/Strict": "1",
                      "Word/TableStyle": "Ruled Table", "Word/TOCTitle": "Inhalt"})
        self.assertAllOk(outcome)
        self.assertEqual([], [line for line in outcome.transcript if " !! " in line])
        tree = documents.open_document(document)
        styles = {each.get(f"{STYLE}name"): each for each in tree.iter(f"{STYLE}style")}
        cells = [styles[cell.get(f"{TABLE}style-name")].find(f"{STYLE}table-cell-properties")
                 for cell in tree.iter(f"{TABLE}table-cell")]
        self.assertEqual(["middle"] * 6, [cell.get(f"{STYLE}vertical-align") for cell in cells])
        for first, second in ((0, 1), (2, 3), (4, 5)):  # a rule below each row, and no frame
            self.assertRegex(cells[first].get(f"{FO}border-bottom"), "solid")
            self.assertEqual("none", cells[first].get(f"{FO}border-left"))
            self.assertEqual("none", cells[second].get(f"{FO}border-right"))
        self.assertRegex(cells[0].get(f"{FO}background-color"), "^#")
        self.assertIn(cells[2].get(f"{FO}background-color"), (None, "transparent"))
        heading = next(p for p in tree.iter(f"{TEXT}p") if "".join(p.itertext()) == "Inhalt")
        used = styles[heading.get(f"{TEXT}style-name")]
        names = {used.get(f"{STYLE}{key}") for key in ("name", "display-name", "parent-style-name")}
        self.assertTrue(names & {"TOC Heading", "TOC_20_Heading", "Contents Heading", "Contents_20_Heading"}, names)

    def test_tables_and_contents_with_either_template(self):
        for name in ("Vantpl01.dot", "KXR1.dot"):
            with self.subTest(name):
                self.check_tables(name)

    def test_documents_with_the_default_template(self):
        self.check_document("Vantpl01.dot", {"Normal": 10, "Heading 1": 18, "Heading 3": 12, "Title": 26, "TOC 1": 11})

    def test_documents_with_the_template_that_the_settings_page_proposes(self):
        self.check_document("KXR1.dot", {"Normal": 11, "Heading 1": 16, "Heading 3": 12, "Title": 24, "TOC 1": 11})
