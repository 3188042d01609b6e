"""Word missing, failing or dying, and files that cannot be written: an error text, never silence or a crash."""

from support import clients, documents
from support.endtoend import STANDIN, EndToEndTest, windows


def answers(outcome, step):
    return [line.partition(" -> ")[2] for line in outcome.output if line.startswith(step + " -> ")]


class WordMissing(EndToEndTest):
    UNREGISTER = f'CreateObject("WScript.Shell").Run """{windows(STANDIN)}"" /unregserver", 0, True\r\n'

    def test_a_script_is_told_to_install_word(self):
        outcome = self.run_vbscript(self.UNREGISTER + clients.vbscript([("start",), ("insertText", "x")]))
        self.assertEqual(["start -> Cannot open Word\\nPlease install Word.\\n", "insertText -> ok"], outcome.output)

    def test_a_jscript_too(self):
        outcome = self.run_jscript(
            'new ActiveXObject("WScript.Shell").Run("\\"{}\\" /unregserver", 0, true);\r\n'.format(
                clients.in_transcript(windows(STANDIN))) + clients.jscript([("start",)]))
        self.assertEqual(["start -> Cannot open Word\\nPlease install Word.\\n"], outcome.output)


class WordDying(EndToEndTest):
    """The process ends in the middle of a call."""

    def setUp(self):
        self.document = self.new_document()
        self.calls = [("new",), ("trace", 10), ("start",), ("create", windows(self.document)), ("insertText", "first"),
                      ("insertText", "second"), ("insertText", "third"), ("close",), ("stop",), ("release",)]

    def call_number(self, text):
        """The number of the Word call that has the text in it, in a session without faults."""
        outcome = self.drive(self.calls)
        self.assertAllOk(outcome)
        return next(i for i, line in enumerate(outcome.transcript, 1) if text in line)

    def test_the_call_in_progress_and_the_later_ones(self):
        number = self.call_number('.InsertAfter("second")')
        outcome = self.drive(self.calls, env={"WORDSTANDIN_EXIT": number})
        first, second, third = answers(outcome, "insertText")
        self.assertEqual("ok", first)
        self.assertTrue(second.startswith("QdxException insertText\\nCOMERROR 0x800706be\\n"), second)
        self.assertEqual("QdxException insertText\\nCOMERROR 0x800706ba\\nWord is unavailable.", third)
        self.assertEqual(["ok"], answers(outcome, "release"))
        self.assertEqual(number, len(outcome.transcript))

    def test_a_script_gets_the_same_text(self):
        number = self.call_number('.InsertAfter("second")')
        calls = [c for c in self.calls if c[0] not in ("new", "release")]
        outcome = self.run_vbscript(clients.vbscript(calls), env={"WORDSTANDIN_EXIT": number})
        first, second, third = answers(outcome, "insertText")
        self.assertEqual("ok", first)
        self.assertTrue(second.startswith("insertText\\nCOMERROR 0x800706be\\n"), second)
        self.assertEqual("insertText\\nCOMERROR 0x800706ba\\nWord is unavailable.", third)

    def test_while_starting(self):
        outcome = self.drive(self.calls, env={"WORDSTANDIN_EXIT": 1})
        self.assertRegex(answers(outcome, "start")[0], r"^QdxException Cannot open Word\\nCOMERROR 0x800706b[ae]\\n")
        self.assertEqual(["ok"], answers(outcome, "release"))

    def test_the_next_session_works(self):
        number = self.call_number('.InsertAfter("second")')
        self.drive(self.calls, env={"WORDSTANDIN_EXIT": number})
        self.assertAllOk(self.drive(self.calls))
        self.assertEqual("firstsecondthird", documents.text_of(self.document))

    def test_a_new_start_in_the_same_process(self):
        number = self.call_number('.InsertAfter("second")')
        # The client notices, lets the object go and makes another.
        again = [("new",), ("start",)]
        outcome = self.drive(self.calls[:6] + [("release",)] + again, env={"WORDSTANDIN_EXIT": number})
        self.assertEqual(["ok", "ok"], answers(outcome, "start"))


class WordBusy(EndToEndTest):
    """Word rejects calls before it runs them."""

    REJECTED = "QdxException insertText\\nCOMERROR 0x80010001\\n"

    def setUp(self):
        self.document = self.new_document()
        self.calls = [("new",), ("start",), ("create", windows(self.document)), ("insertText", "one"), ("startHeader",),
                      ("insertText", "above"), ("endHeader",), ("insertText", "two"), ("close",), ("stop",)]

    @staticmethod
    def accepted(outcome):
        return [line for line in outcome.transcript if " !! 0x8001" not in line]

    def test_a_word_that_is_busy_for_two_answers_is_asked_again(self):
        undisturbed = self.drive(self.calls)
        document = self.document.read_bytes()
        first = next(i for i, line in enumerate(undisturbed.transcript, 1) if '.InsertAfter("one")' in line)
        header = next(i for i, line in enumerate(undisturbed.transcript, 1) if '.InsertAfter("above")' in line) - 1
        for faults in ("1*2:0x80010001", f"{first}*2:0x80010001", f"{header}*2:0x8001010A"):
            with self.subTest(faults):
                self.new_document()
                outcome = self.drive(self.calls, env={"WORDSTANDIN_FAIL": faults})
                self.assertAllOk(outcome)
                self.assertEqual(2, len(outcome.transcript) - len(self.accepted(outcome)))
                self.assertEqual(undisturbed.transcript, self.accepted(outcome))
                self.assertEqual(document, self.document.read_bytes())

    def test_a_script_does_not_notice(self):
        calls = [call for call in self.calls if call[0] != "new"]
        outcome = self.run_vbscript(clients.vbscript(calls), env={"WORDSTANDIN_FAIL": "2*2:0x80010001,20*2:0x8001010A"})
        self.assertAllOk(outcome)
        self.assertEqual("onetwo", documents.text_of(self.document))
        self.assertEqual(4, len(outcome.transcript) - len(self.accepted(outcome)))

    def test_not_when_the_setting_gives_no_time(self):
        undisturbed = self.drive(self.calls)
        first = next(i for i, line in enumerate(undisturbed.transcript, 1) if '.InsertAfter("one")' in line)
        outcome = self.drive(self.calls, settings={"Word/BusyTimeout": 0},
                             env={"WORDSTANDIN_FAIL": f"{first}*1:0x80010001"})
        self.assertTrue(answers(outcome, "insertText")[0].startswith(self.REJECTED), outcome.output)
        self.assertEqual(["ok", "ok"], answers(outcome, "insertText")[1:])


class WordFailing(EndToEndTest):
    def setUp(self):
        self.document = self.new_document()
        self.calls = [("new",), ("start",), ("create", windows(self.document)), ("insertText", "text"), ("close",),
                      ("stop",)]

    def test_a_failed_final_save_says_so(self):
        outcome = self.drive(self.calls)
        saves = [i for i, line in enumerate(outcome.transcript, 1) if ".SaveAs(" in line]
        self.assertEqual(2, len(saves))
        outcome = self.drive(self.calls, env={"WORDSTANDIN_FAIL": f"{saves[1]}:0x800a141f"})
        self.assertRegex(answers(outcome, "close")[0], r"^QdxException Saving document\\nCOMERROR 0x800a141f\\n")

    def test_a_failure_at_the_end_is_told_after_one_that_the_client_caught(self):
        # The client and the DLL have a C++ runtime each: the DLL's does not learn that its exception was caught.
        calls = self.calls[:3] + [("insertTOC",), ("insertText", "text"), ("insertEndl",)] + self.calls[-2:]
        transcript = self.drive(calls).transcript
        text, table = (next(i for i, line in enumerate(transcript, 1) if call in line)
                       for call in ('.InsertAfter("text")', "document.TablesOfContents.Add("))
        for failing_text in (False, True):
            with self.subTest(failing_text=failing_text):
                outcome = self.drive(calls, env={"WORDSTANDIN_FAIL": ",".join(
                    f"{n}:0x800a16c1" for n in ([text] if failing_text else []) + [table])})
                self.assertRegex(answers(outcome, "insertText")[0],
                                 r"^QdxException insertText\\n" if failing_text else "^ok$")
                self.assertIn("document.TablesOfContents.Add(", outcome.transcript[table - 1])
                self.assertRegex(answers(outcome, "close")[0], r"^QdxException Saving document\\nCOMERROR 0x800a16c1\\n")


class UnwritableFiles(EndToEndTest):
    NOWHERE = "Z:\\no\\such\\folder\\"

    def test_document(self):
        document = self.new_document()
        outcome = self.drive([("new",), ("start",), ("create", self.NOWHERE + "x.doc"), ("insertText", "dropped"),
                              ("create", windows(document)), ("insertText", "kept"), ("close",), ("stop",)])
        first, second = answers(outcome, "create")
        self.assertRegex(first, r"^QdxException Saving document\\nCOMERROR 0x[0-9a-f]+\\n.")
        self.assertEqual("ok", second)
        self.assertEqual("kept", documents.text_of(document))

    def test_log(self):
        name = self.NOWHERE + "x.log"
        document = self.new_document()
        diagnostics = self.new_document("diagnostics.log")
        outcome = self.drive([("new",), ("overrideRegistry", "Log", "LogName", name, 1), ("trace", 10), ("start",),
                              ("create", windows(document)), ("insertText", "kept"), ("close",), ("stop",)],
                             env={"MIROVEL_DIAGNOSTICS": windows(diagnostics)})
        # Without a log the document is written all the same.
        self.assertAllOk(outcome)
        self.assertEqual("kept", documents.text_of(document))
        [written] = diagnostics.parent.glob("diagnostics.*.log")
        self.assertIn(f"\tCannot open trace log {name} ", written.read_text())
