"""Text of every kind arrives in the document as it was sent."""

from support import clients, documents
from support.clients import NULL_TEXT, Expression
from support.endtoend import EndToEndTest, windows


class Texts(EndToEndTest):
    def written(self, *calls):
        """What the document says after the calls, and the outcome."""
        document = self.new_document()
        outcome = self.drive([("new",), ("trace", 10), ("start",), ("create", windows(document)), *calls,
                              ("close",), ("stop",), ("release",)])
        self.assertAllOk(outcome)
        self.assertTrue(document.is_file())
        return documents.text_of(document), outcome

    def test_characters_inside_and_outside_the_code_page(self):
        text = "tab\there \"quotes\" \\back{slash} äöü€ Ωλ 漢字 😀 ."
        written, outcome = self.written(("insertText", text))
        self.assertEqual(text, written)
        echoed = text.encode("cp1252", "replace")
        # The emoji is two units of UTF-16, so two question marks.
        self.assertIn(b'mirovel->insertText("' + echoed.replace(b" ? .", b" ?? .") + b'");\r\n', outcome.log)

    def test_empty_and_null_texts_write_nothing(self):
        written, _ = self.written(("insertText", ""), ("insertText", NULL_TEXT), ("insertText", "end"))
        self.assertEqual("end", written)

    def test_a_text_ends_at_its_first_nul(self):
        written, _ = self.written(("insertText", "before\0after"), ("insertText", "."))
        self.assertEqual("before.", written)

    def test_unpaired_surrogates_lose_nothing_around_them(self):
        written, outcome = self.written(("insertText", "a\ud83dz"), ("insertText", "b\udc00y"))
        self.assertRegex(written, "^a.?zb.?y$")
        self.assertIn('"a\\ud83dz"', "\n".join(outcome.transcript))

    def test_paragraphs_and_pages(self):
        document = self.new_document()
        outcome = self.drive([("new",), ("start",), ("create", windows(document)),
                              ("insertText", "one"), ("insertEndl",), ("insertEndl",), ("insertText", "three"),
                              ("insertPageBreak",), ("insertText", "page two"), ("insertPageBreak",),
                              ("insertText", "page three"), ("close",), ("stop",)])
        self.assertAllOk(outcome)
        self.assertEqual(["one three", "page two", "page three"], documents.page_texts(document))
        self.assertTrue(documents.text_of(document).startswith("one\n\nthree\n"))

    def test_header_and_footer(self):
        document = self.new_document()
        outcome = self.drive([("new",), ("start",), ("create", windows(document)),
                              ("startHeader",), ("insertText", "at the top"), ("endHeader",),
                              ("startFooter",), ("insertText", "at the bottom"), ("endFooter",),
                              ("insertText", "between"), ("close",), ("stop",)])
        self.assertAllOk(outcome)
        self.assertEqual(["at the top between at the bottom"], documents.page_texts(document))


class LongTexts(EndToEndTest):
    MEGABYTE = 1 << 20

    def test_a_megabyte_in_one_call_from_a_script(self):
        document = self.new_document()
        source = clients.vbscript([("start",), ("create", windows(document)),
                                   ("insertText", Expression(f'String({self.MEGABYTE}, "x")')),
                                   ("insertText", "."), ("close",), ("stop",)])
        outcome = self.run_vbscript(source)
        self.assertAllOk(outcome)
        self.assertEqual(self.MEGABYTE + 1, len(documents.text_of(document)))

    def test_a_megabyte_by_virtual_table(self):
        document = self.new_document()
        text = "0123456789abcde " * (self.MEGABYTE // 16)
        outcome = self.drive([("new",), ("trace", 10), ("start",), ("create", windows(document)),
                              ("insertText", text), ("close",), ("stop",)])
        self.assertAllOk(outcome)
        self.assertEqual(text.rstrip(), documents.text_of(document).rstrip())
        self.assertIn(text.encode("ascii"), outcome.log)


class Names(EndToEndTest):
    def test_the_extension_is_added_and_the_name_lower_cased(self):
        document = self.folder / "report.doc"
        outcome = self.drive([("new",), ("trace", 10), ("start",), ("create", windows(self.folder / "Report")),
                              ("insertText", "x"), ("close",), ("stop",)])
        self.assertAllOk(outcome)
        self.assertIn(f'mirovel->create("{windows(document).lower().removesuffix(".doc")}");', outcome.log_lines)
        self.assertEqual("x", documents.text_of(document))

    def test_an_existing_file_is_replaced(self):
        document = self.new_document("old.doc")
        document.write_text("something else", "ascii")
        outcome = self.drive([("new",), ("start",), ("create", windows(document)), ("insertText", "new"), ("close",),
                              ("stop",)])
        self.assertAllOk(outcome)
        self.assertEqual("new", documents.text_of(document))
        self.assertNoPartialFiles(document)

    def test_two_documents_in_one_session(self):
        first, second = self.new_document("first.doc"), self.new_document("second.doc")
        outcome = self.drive([("new",), ("start",),
                              ("create", windows(first)), ("insertText", "one"), ("close",),
                              ("create", windows(second)), ("insertText", "two"), ("close",), ("stop",)])
        self.assertAllOk(outcome)
        self.assertEqual(["one", "two"], [documents.text_of(first), documents.text_of(second)])
