"""What an administrator finds out about a client that he cannot change, with Word in a process of its own."""

import pathlib
import unittest

from support import documents
from support.endtoend import ROOT, EndToEndTest, windows

FIELDS = ["time", "process", "thread", "severity", "object", "document", "method", "what", "code", "description",
          "source", "remedy"]


class Diagnostics(EndToEndTest):
    def lines(self, name="diagnostics"):
        [path] = self.folder.glob(f"{name}.*.log")
        lines = [line.split("\t") for line in path.read_text("utf-8").splitlines()]
        self.assertEqual([], [line for line in lines if len(line) != len(FIELDS)])
        return [dict(zip(FIELDS, line)) for line in lines]

    def session(self, document):
        return [("new",), ("start",), ("create", windows(document)), ("setStyle", "No Such"), ("insertText", "kept"),
                ("close",), ("stop",), ("release",)]

    def test_a_setting_switches_them_on(self):
        document = self.new_document()
        outcome = self.drive(self.session(document),
                             settings={"Log/Diagnostics": windows(self.folder / "diagnostics.log")})
        self.assertAllOk(outcome)
        self.assertEqual("kept", documents.text_of(document))
        lines = self.lines()
        self.assertEqual(["Object made", "Word started, version 9.0, build 9.0.0"], [line["what"] for line in lines[:2]])
        self.assertEqual("Object released", lines[-1]["what"])
        self.assertEqual({"#1"}, {line["object"] for line in lines})
        self.assertEqual(1, len({(line["process"], line["thread"]) for line in lines}))
        [style] = [line for line in lines if line["what"].startswith("Nothing done")]
        self.assertEqual(("warning", "setStyle", 'Nothing done: the document does not have the style "No Such"'),
                         (style["severity"], style["method"], style["what"]))
        self.assertTrue(style["document"].lower().endswith("result.doc"), style["document"])
        for line in lines:
            self.assertRegex(line["time"], r"^\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\.\d{3} [+-]\d\d:\d\d$")

    def test_the_environment_switches_them_on_for_a_word_that_is_busy_and_then_dies(self):
        document = self.new_document()
        calls = self.session(document)
        first = self.drive(calls)
        # Word is asked for its version and its build besides.
        busy, dying = [next(i for i, line in enumerate(first.transcript, 3) if call in line)
                       for call in ('.Item("No Such")', '.InsertAfter("kept")')]
        self.drive(calls, status=None, env={"MIROVEL_DIAGNOSTICS": windows(self.folder / "death.log"),
                                            "WORDSTANDIN_FAIL": f"{busy}*2:0x80010001", "WORDSTANDIN_EXIT": dying})
        lines = self.lines("death")
        repeated = [(line["severity"], line["method"], line["what"], line["code"]) for line in lines
                    if "busy" in line["what"] or "went through" in line["what"]]
        self.assertEqual([("warning", "setStyle", "Word is busy; repeating Styles.Item", "0x80010001")], repeated[:1])
        self.assertEqual(2, len(repeated), "and how that ended")
        failed = [line for line in lines if line["what"].startswith("Word call failed: Range.InsertAfter(")]
        self.assertEqual(1, len(failed))
        self.assertEqual("insertText", failed[0]["method"])
        self.assertIn(failed[0]["code"], ("0x800706be", "0x800706ba", "0x80010108"))
        self.assertIn("release the object and start again.", failed[0]["remedy"])
        told = [line for line in lines if line["what"].startswith("The client is told: insertText COMERROR")]
        self.assertEqual("error", told[0]["severity"])

    def test_run_client_shows_their_end_when_a_client_fails(self):
        script = ('Set m = CreateObject("Mirovel.Mirovel")\r\nm.insertText "lost"\r\nm.start\r\n'
                  'm.create "Z:\\no\\such\\folder\\x.doc"\r\n')
        outcome = self.run_vbscript(script, status=1, diagnostics=True)
        self.assertIn("run-client: the end of the diagnostics:", outcome.errors)
        self.assertIn("\tNothing done: no document is open\t", outcome.errors)
        self.assertIn("\tThe client is told: Saving document COMERROR 0x800a1499 ", outcome.errors)
        outcome = self.run_vbscript(script, status=1)
        self.assertNotIn("the end of the diagnostics", outcome.errors)

    def test_the_samples_line_switches_them_on(self):
        for sample, comment in (("vbscript/first.vbs", "' "), ("jscript/first.js", "// ")):
            with self.subTest(sample):
                source = (ROOT / "samples" / sample).read_text("ascii")
                name = self.new_document(pathlib.Path(sample).suffix[1:] + ".log")
                line = source.replace(f"{comment}mirovel.override", "mirovel.override")
                line = line.replace("C:\\\\Documents\\\\diagnostics.log", windows(name).replace("\\", "\\\\"))
                line = line.replace("C:\\Documents\\diagnostics.log", windows(name))
                run = self.run_vbscript if sample.endswith("vbs") else self.run_jscript
                run(line, "Z:\\no\\such\\folder\\x.doc", status=1)
                [written] = self.folder.glob(f"{name.stem}.*.log")
                self.assertIn("\tThe client is told: Saving document COMERROR 0x800a1499 ", written.read_text("utf-8"))

    def test_strict_tells_a_script(self):
        script = ('Set m = CreateObject("Mirovel.Mirovel")\r\nOn Error Resume Next\r\nm.insertText "lost"\r\n'
                  'WScript.Echo Err.Source & "|" & Err.Description\r\n')
        outcome = self.run_vbscript(script, settings={"Word/Strict": "1"})
        self.assertEqual(["Mirovel.Mirovel|insertText: no document is open: call create first"], outcome.output)
        self.assertEqual(["|"], self.run_vbscript(script).output)


if __name__ == "__main__":
    unittest.main()
