"""The template of a new document, and the questions that a missing or refused one raises, in real message boxes."""

from support import documents
from support.clients import in_transcript
from support.endtoend import EndToEndTest, windows

ABORTED = "QdxException Document generation aborted by the user."


class Templates(EndToEndTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.install = cls.folder / "install"
        (cls.install / "Templates").mkdir(parents=True)

    def setUp(self):
        self.document = self.new_document()

    def make_template(self, path):
        """A template with a text in it, which a new document must not keep."""
        made = self.new_document("template.doc")
        self.assertAllOk(self.drive([("new",), ("start",), ("create", windows(made)), ("insertText", "template text"),
                                     ("close",), ("stop",)]))
        made.rename(path)
        return path

    def session(self, template, answer=None, **settings):
        asked = [("answer", answer)] if answer else []
        answered = [("answered",)] if answer else []
        return self.drive([("new",), ("start",), *asked, ("create", windows(self.document)), *answered,
                           ("insertText", "text"), ("close",), ("stop",)],
                          settings={"Word/WordTemplateName": template, **settings}, display=bool(answer))

    def added(self, outcome):
        return [line.partition(" -> ")[0] for line in outcome.transcript if line.startswith("application.Documents.Add(")]

    def add_call(self, path):
        return 'application.Documents.Add("{}", missing, missing, missing)'.format(in_transcript(windows(path)))

    PLAIN_ADD = "application.Documents.Add(missing, missing, missing, missing)"

    def answers(self, outcome, step):
        return [line.partition(" -> ")[2] for line in outcome.output if line.startswith(step + " -> ")]

    def test_an_empty_name_means_words_own_template(self):
        outcome = self.session("")
        self.assertAllOk(outcome)
        self.assertEqual([self.PLAIN_ADD], self.added(outcome))

    def test_a_template_with_a_path(self):
        template = self.make_template(self.folder / "letter.dot")
        outcome = self.session(windows(template))
        self.assertAllOk(outcome)
        self.assertEqual([self.add_call(template)], self.added(outcome))
        self.assertEqual("text", documents.text_of(self.document))

    def test_a_bare_name_lies_in_the_install_directory(self):
        template = self.make_template(self.install / "Templates" / "my.dot")
        outcome = self.session("my.dot", **{"Settings/InstallDir": windows(self.install)})
        self.assertAllOk(outcome)
        self.assertEqual([self.add_call(template)], self.added(outcome))
        self.assertEqual("text", documents.text_of(self.document))

    def question(self, path):
        return (f"Word template file {windows(path)} does not exist.\\nCheck template file settings "
                '("File->Template properties" and "View->Default Document properties").\\nContinue?')

    def test_a_missing_template_and_yes(self):
        missing = self.folder / "missing.dot"
        outcome = self.session(windows(missing), "yes")
        self.assertEqual([self.question(missing)], self.answers(outcome, "answered"))
        self.assertEqual(["ok"], self.answers(outcome, "create"))
        self.assertEqual([self.PLAIN_ADD], self.added(outcome))
        self.assertEqual("text", documents.text_of(self.document))

    def test_a_missing_template_and_no(self):
        missing = self.folder / "missing.dot"
        outcome = self.session(windows(missing), "no")
        self.assertEqual([self.question(missing)], self.answers(outcome, "answered"))
        self.assertEqual([ABORTED], self.answers(outcome, "create"))
        self.assertEqual([], self.added(outcome))
        self.assertFalse(self.document.exists())

    def refused(self, answer):
        template = self.folder / "refused.dot"
        template.write_bytes(b"\x00\x01 this is no document that Word could read \xff")
        outcome = self.session(windows(template), answer)
        self.assertEqual(["Problem reported by MS-Word :\\nError occurred in setting word template file "
                          f"{windows(template)}.\\nContinue?"], self.answers(outcome, "answered"))
        self.assertEqual(self.add_call(template), self.added(outcome)[0].partition(" !! ")[0])
        return outcome

    def test_a_template_that_word_refuses_and_yes(self):
        outcome = self.refused("yes")
        self.assertEqual(["ok"], self.answers(outcome, "create"))
        self.assertEqual(self.PLAIN_ADD, self.added(outcome)[-1])
        self.assertEqual("text", documents.text_of(self.document))

    def test_a_template_that_word_refuses_and_no(self):
        outcome = self.refused("no")
        self.assertEqual([ABORTED], self.answers(outcome, "create"))
        self.assertEqual(1, len(self.added(outcome)))
