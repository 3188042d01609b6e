"""The same document from clients in three languages, with the registered DLL and Word in a process of its own."""

from support import clients, documents
from support.endtoend import BUILD, ROOT, EndToEndTest, windows

HERE = ROOT / "tests" / "endtoend"
TEXT = "A first document\nWord wrote this page. The client said what, one call after the other: a heading, some text, " \
       "the end of a paragraph.\n\nThe second page\nIt begins where the client asked for a page break.\n"


def sample_log(document):
    """What the samples' calls echo."""
    return "".join(line + "\r\n" for line in [
        'mirovel->overrideRegistry("Word","Compose","1",2);',
        "mirovel->start();",
        f'mirovel->create("{windows(document).lower()}");',
        "// Page 1",
        'mirovel->setStyle("Heading 1");',
        'mirovel->insertText("A first document");',
        "mirovel->insertEndl();",
        'mirovel->setStyle("Normal");',
        'mirovel->insertText("Word wrote this page. The client said what, one call after the other: ");',
        'mirovel->insertText("a heading, some text, the end of a paragraph.");',
        "mirovel->insertEndl();",
        "mirovel->insertPageBreak();",
        "",
        "// Page 2",
        'mirovel->setStyle("Heading 1");',
        'mirovel->insertText("The second page");',
        "mirovel->insertEndl();",
        'mirovel->setStyle("Normal");',
        'mirovel->insertText("It begins where the client asked for a page break.");',
        "mirovel->insertEndl();",
        "mirovel->close();",
        "mirovel->stop();",
    ]).encode("cp1252")


class Samples(EndToEndTest):
    def check(self, client):
        document = self.new_document("sample.doc")
        outcome = self.run_client(client, windows(document))
        self.assertEqual(([], ""), (outcome.output, outcome.errors))
        self.assertEqual(sample_log(document), outcome.log)
        expected = (HERE / "expected" / "sample-transcript.txt").read_text("utf-8").splitlines()
        target = clients.in_transcript(windows(document).lower())
        self.assertLines([line.replace("{document}", target) for line in expected], outcome.transcript)
        self.assertEqual(TEXT, documents.text_of(document))
        self.assertEqual(2, documents.page_count(document))
        first, second = documents.page_texts(document)
        self.assertTrue(first.startswith("A first document Word wrote this page."), first)
        self.assertEqual("The second page It begins where the client asked for a page break.", second)
        self.assertNoPartialFiles(document)

    def test_vbscript(self):
        self.check(ROOT / "samples" / "vbscript" / "first.vbs")

    def test_jscript(self):
        self.check(ROOT / "samples" / "jscript" / "first.js")

    def test_cpp(self):
        self.check(BUILD / "samples" / "sample_first.exe")

    def test_a_failure_is_shown_in_every_language(self):
        nowhere = "Z:\\no\\such\\folder\\first.doc"
        shown = [self.run_client(client, nowhere, status=1).output for client in (
            ROOT / "samples" / "vbscript" / "first.vbs",
            ROOT / "samples" / "jscript" / "first.js",
            BUILD / "samples" / "sample_first.exe")]
        self.assertEqual("The document could not be written: Saving document", shown[0][0])
        self.assertTrue(shown[0][1].startswith("COMERROR 0x"), shown[0])
        self.assertEqual(shown[0], shown[1])
        self.assertEqual(shown[0], shown[2])


class Results(EndToEndTest):
    """Methods that answer with a text."""

    def test_scripts_take_the_result(self):
        outcome = self.run_vbscript('WScript.Echo CreateObject("Mirovel.Mirovel").getDocType()\r\n')
        self.assertEqual(["Word"], outcome.output)
        outcome = self.run_jscript('WScript.Echo(new ActiveXObject("Mirovel.Mirovel").getPropPages());\r\n')
        self.assertEqual(["{5C2E7A11-3B41-4D8E-9F62-A1B3C4D5E6F7}"], outcome.output)

    def test_virtual_table(self):
        outcome = self.drive([("new",), ("getDocType",), ("getPropPages",)])
        self.assertEqual(["new -> ok", "getDocType -> Word",
                          "getPropPages -> {5C2E7A11-3B41-4D8E-9F62-A1B3C4D5E6F7}"], outcome.output)

    def test_versioned_name(self):
        outcome = self.run_vbscript('WScript.Echo CreateObject("Mirovel.Mirovel.2.1.0").getDocType()\r\n')
        self.assertEqual(["Word"], outcome.output)


class Guards(EndToEndTest):
    """What a script sees of calls made out of order."""

    CALLS = [("insertText", "too early"), ("close",), ("stop",), ("setOption", "a", "b"), ("trace", 10)]

    def test_calls_out_of_order_do_nothing(self):
        for outcome in (self.run_vbscript(clients.vbscript(self.CALLS)), self.run_jscript(clients.jscript(self.CALLS))):
            self.assertAllOk(outcome)
            self.assertEqual([], outcome.transcript)
            self.assertEqual(b"", outcome.log)
