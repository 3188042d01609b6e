"""Every entry of docs/troubleshooting.md that can be caused here is, and shows the text that it quotes."""

import re

import pages
from support import documents
from support.endtoend import BUILD, ROOT, EndToEndTest, windows

PAGE = pages.DOCS / "troubleshooting.md"
SHOW = 'If Err.Number <> 0 Then WScript.Echo "0x" & LCase(Hex(Err.Number)) & " " & Err.Source & ": " & Err.Description'


class Entries(EndToEndTest):
    def script(self, *lines, **options):
        """What a script shows that tells its first error and goes no further. `m` is there, `fileName` is the document's name."""
        self.document = self.new_document("document.doc")
        source = ["Dim m, fileName", "Sub Work", *lines, "End Sub", "fileName = WScript.Arguments(0)", "On Error Resume Next", "Work", SHOW]
        return self.run_vbscript("\r\n".join(source) + "\r\n", windows(self.document), **{"composing": True, **options})

    NEW = 'Set m = CreateObject("Mirovel.Mirovel")'

    def session(self, *lines, **options):
        """The same where a document is open."""
        return self.script(self.NEW, "m.start", "m.create fileName", *lines, **options)

    def strictly(self, *lines, **options):
        return self.session(*lines, settings={"Word/Strict": "1"}, **options)

    def failing(self, call, code, *lines, **options):
        """A session in which Word's call that holds the text fails."""
        whole = self.session(*lines)
        number = next(i for i, line in enumerate(whole.transcript, 1) if call in line)
        return self.session(*lines, env={"WORDSTANDIN_FAIL": f"{number}{code}"}, **options)

    def without_word(self):
        """A prefix of its own whose Word is not registered any more."""
        forget = 'CreateObject("WScript.Shell").Run "reg.exe delete HKCR\\{} /f", 0, True'
        return self.script(forget.format("Word.Application"), forget.format("CLSID\\{000209FF-0000-0000-C000-000000000046}"),
                           self.NEW, "m.start", prefix=self.folder / "without-word")

    def dying(self):
        lines = ['m.setStyle "Heading 1"', 'm.insertText "x"', "m.startHeader", "m.insertEndl", "m.close"]
        whole = self.session(*lines)
        return self.session(*lines, env={"WORDSTANDIN_EXIT": str(len(whole.transcript) // 2)})

    def dead(self):
        whole = self.session("On Error Resume Next", "m.startHeader", "Err.Clear", "m.close", SHOW)
        return self.session("On Error Resume Next", "m.startHeader", "Err.Clear", "m.close", SHOW,
                            env={"WORDSTANDIN_EXIT": str(len(whole.transcript) // 2)})

    def not_registered(self, client, *arguments):
        prefix = self.folder / "without-registration"
        return self.run_client(client, *arguments, prefix=prefix, registration=False, status=None)

    def no_class(self):
        path = self.folder / "no-class.vbs"
        path.write_bytes(("On Error Resume Next\r\n" + self.NEW + "\r\n" + SHOW + "\r\n").encode())
        return self.not_registered(path)

    def by_name(self):
        return self.not_registered(BUILD / "samples" / "sample_first.exe", windows(self.folder / "by-name.doc"))

    def answered_no(self):
        return self.drive([("new",), ("start",), ("answer", "no"), ("create", windows(self.new_document()))],
                          settings={"Word/WordTemplateName": "Z:\\no\\such.dot"}, display=True, composing=True)

    def half_registered(self):
        prefix = self.folder / "half-registered"
        self.script('CreateObject("WScript.Shell").Run "reg.exe delete HKCR\\CLSID\\{5C2E7A10-3B41-4D8E-9F62-A1B3C4D5E6F7} /f", 0, True',
                    prefix=prefix)
        return self.run_client(BUILD / "samples" / "sample_first.exe", windows(self.folder / "half.doc"), prefix=prefix,
                               registration=False, status=1)

    def left_running(self):
        outcome = self.drive([("new",), ("start",), ("create", windows(self.new_document())), ("close",), ("showWord",), ("release",),
                              ("isWordRunning",)], composing=True)
        if outcome.output[-1] == "isWordRunning -> yes":
            outcome.output.append("Word is still running")
        return outcome

    def foreign_log(self):
        log = self.folder / "notes.log"
        log.write_text("my own notes\n")
        outcome = self.session("m.trace 10", "m.insertEndl", log=log)
        outcome.output += log.read_text("ascii").splitlines()
        return outcome

    def counted_links(self):
        lines = ['m.insertTag "here"', 'm.insertText "Text "', 'm.insertXref "one", "here"',
                 'm.insertText " and some more text "', 'm.insertXref "two", "here"', "m.close", "m.stop"]
        self.session(*lines, composing=False)
        self.assertNotEqual(["one", "two"], [text for text, _ in documents.links(self.document)])
        outcome = self.session(*lines)
        outcome.output.append("composed: " + ", ".join(text for text, _ in documents.links(self.document)))
        return outcome

    def causes(self):
        """What brings about each entry, by its title."""
        inserted = ('m.insertText "x"', "m.close")
        table = ("m.startTable", "m.addRow")
        return {
            "ActiveX component can't create object": self.no_class,
            "0x800401f3": self.by_name,
            "0x80040154": self.half_registered,
            "Please install Word.": self.without_word,
            "Cannot open Word, with a code": lambda: self.script(self.NEW, "m.start", env={"WORDSTANDIN_FAIL": "1:0x80080005"}),
            "Call failed.": lambda: self.script(self.NEW, "m.create fileName"),
            "Saving document": lambda: self.script(self.NEW, "m.start", 'm.create "Z:\\no\\such\\a.doc"'),
            "Saving document, where the name has other characters":
                lambda: self.script(self.NEW, "m.start", 'm.create Replace(fileName, "document", "what?")'),
            "Adding document": lambda: self.failing(".Documents.Add(", ":0x800a1436"),
            "Document generation aborted by the user.": self.answered_no,
            "RPC call failed.": self.dying,
            "Word is unavailable.": self.dead,
            "0x8001010a and 0x80010001": lambda: self.failing(".InsertAfter(", "*1000:0x8001010a", *inserted,
                                                             settings={"Word/BusyTimeout": "0"}),
            "Object doesn't support this property or method": lambda: self.session("m.insertTxt 1"),
            "Wrong number of arguments": lambda: self.session("m.setFontSize"),
            "Type mismatch, Overflow": lambda: self.session('m.setFontSize "twelve"'),
            "0x80004003": lambda: self.script(self.NEW, "m.setOrientation 1"),
            "A table with too many columns, a height, a size":
                lambda: self.session(*table, "m.addCell", "m.setTableRowHeight 2000", "m.endTable", "m.close"),
            "A picture or a file that Word cannot read":
                lambda: self.session(f'm.insertImage "{windows(ROOT / "README.md")}", ""'),
            "No document is open": lambda: self.script(self.NEW, 'm.insertText "x"', settings={"Word/Strict": "1"}),
            "The document does not have the style": lambda: self.strictly('m.setStyle "No Such"'),
            "The document does not have the table style":
                lambda: self.script(self.NEW, "m.start", "m.create fileName", "m.startTable",
                                    settings={"Word/Strict": "1", "Word/TableStyle": "No Such"}),
            "The file is not there": lambda: self.strictly('m.insertImage "C:\\no.bmp", ""'),
            "Links lead to a tag that never came": lambda: self.strictly('m.insertXref "x", "nowhere"', "m.close"),
            "The table is not ready for this call": lambda: self.strictly("m.addRow"),
            "This cannot stand in a table": lambda: self.strictly("m.startTable", "m.insertPageBreak"),
            "The setting's value cannot be of its kind":
                lambda: self.script(self.NEW, "m.start", "m.create fileName",
                                    settings={"Word/Strict": "1", "Word/TOCLevel": "many"}),
            "Word is left running": self.left_running,
            "The trace log is empty, or is not there": self.foreign_log,
            "Links, fonts or the contents are in the wrong place": self.counted_links,
        }

    def test_entries(self):
        causes = self.causes()
        elsewhere = []
        for section in pages.sections(PAGE):
            quoted = section.blocks("text")
            if section.level != 3 or not quoted or "Caused in the tests of the DLL" in section.text:
                elsewhere += [section.title] if section.level == 3 else []
                continue
            with self.subTest(section.title):
                shown = "\n".join(causes.pop(section.title)().output)
                for line in quoted[0].splitlines():
                    self.assertIn(line, shown)
        self.assertEqual({}, causes)
        # What quotes no text says why, or needs none.
        self.assertEqual(["0x80070005 when the object is made", "A second Word appears, although one runs",
                          "A script hangs in create", "The diagnostics are not there",
                          "A style, a picture or a link is missing", "An old version answers",
                          "Text in other scripts becomes question marks"], elsewhere)

    def test_the_codes_are_those_of_the_diagnostics(self):
        source = (ROOT / "diagnostics" / "CodeMeaning.cpp").read_text("ascii")
        known = re.findall(r'CodeMeaning\{\s*(0x[0-9A-F]{8}),\s*"(.*?)",\s*"(.*?)"\}', source, re.DOTALL)
        self.assertGreater(len(known), 30)
        self.assertEqual(known, re.findall(r"^\| (0x[0-9A-F]{8}) \| (.*) \| (.*) \|$", PAGE.read_text("utf-8"), re.MULTILINE))
