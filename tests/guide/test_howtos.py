"""The scripts of docs/howto run as they stand there, and the pictures of their pages are theirs."""

import re
import struct
import subprocess

import pages
from support import documents
from support.endtoend import ROOT, EndToEndTest

HOWTOS = sorted((pages.DOCS / "howto").glob("*.md"))
IMAGES = pages.DOCS / "images"
# Texts that do not stand in the script as they stand in the document.
WRITTEN = {
    "letter": ["12 Long Street", "Yours sincerely,", "our page"],
    "quotation": ["445.50", "190.00", "171.00", "806.50"],
    "report": ["Table 1. Rain in autumn", "How we measure"],
    "several": ["January", "37 mm"],
    "long-documents": ["Station 60", "station 59"],
    "before": ["The gauge is read every morning.", "Tuesday"],
}


def size(picture):
    return struct.unpack(">II", picture[16:24])


class HowTos(EndToEndTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        subprocess.run([ROOT / "scripts" / "pictures", "--how-tos", cls.folder], check=True, timeout=500)

    def text(self, name):
        return " ".join(documents.page_texts(self.folder / f"{name}.doc"))

    def test_every_page_has_a_script_and_a_picture(self):
        for page in HOWTOS:
            text = page.read_text("utf-8")
            with self.subTest(page.name):
                self.assertTrue(page.name == "languages.md" or
                                re.search(rf"^' cscript //nologo {page.stem}\.vbs ", text, re.MULTILINE))
                self.assertTrue(page.name == "languages.md" or f"(../images/howto-{page.stem}-1.png)" in text)

    def test_the_documents_say_what_the_scripts_say(self):
        for name, pieces in WRITTEN.items():
            text = self.text(name)
            for piece in pieces:
                with self.subTest(name):
                    self.assertIn(piece, text)

    def test_before_and_after_moving_are_the_same(self):
        self.assertEqual(documents.text_of(self.folder / "before.doc").rstrip(),
                         documents.text_of(self.folder / "moving.doc").rstrip())

    def test_headers_are_where_the_page_says(self):
        cover, preface, months, more = documents.page_texts(self.folder / "headers.doc")
        self.assertNotIn("Observatory", cover)
        self.assertNotIn("Page", cover)
        for number, page, title in ((2, preface, "Preface"), (3, months, "The months"), (4, more, "The months")):
            self.assertTrue(page.startswith(f"Lindholm Observatory {title} "), page)
            self.assertTrue(page.endswith(f"Page {number}"), page)

    def test_links_lead_where_the_scripts_say(self):
        self.assertEqual(["the table", "our terms", "our page"],
                         [text for text, _ in documents.links(self.folder / "quotation.doc")])

    def test_the_pictures_are_those_of_the_scripts(self):
        """A picture ends a little below the page's last word, so its height tells of its text."""
        shown = sorted(path for path in IMAGES.glob("howto-*.png"))
        self.assertEqual(sorted(path.name for path in self.folder.glob("howto-*.png")), [path.name for path in shown])
        for path in shown:
            made, shipped = (self.folder / path.name).read_bytes(), path.read_bytes()
            with self.subTest(path.name):
                self.assertEqual(size(made), size(shipped), "made anew by scripts/pictures")
                self.assertLess(abs(len(made) - len(shipped)), len(shipped) // 8, "made anew by scripts/pictures")
