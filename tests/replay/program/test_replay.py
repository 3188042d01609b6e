"""mirovel-replay.exe: the report's log played again, what the program is told, and how it ends."""

import os
import pathlib
import pty
import re
import select
import subprocess
import time

from support.endtoend import BUILD, PATIENCE, ROOT, EndToEndTest, windows

REPLAY = pathlib.Path(os.environ["MIROVEL_REPLAY"])
VERSION = os.environ["MIROVEL_VERSION"]
SAMPLES = ROOT / "samples"
FILES = SAMPLES / "report-files"
LIBRARY = BUILD / "server" / "mirovelcom.dll"

START, END = ["mirovel->start();"], ["mirovel->close();", "mirovel->stop();"]


def without_time(document):
    """What a document holds, but for the day and the minute that its fields show."""
    content, found = re.subn(rb"\b\d{1,2}/\d{1,2}/\d{4}|\b\d{1,2}:\d\d [AP]M\b", b"now", document.read_bytes())
    assert found, document
    return content


class ReplayTest(EndToEndTest):
    def write_log(self, *lines, name="given.log"):
        return self._write(name, "".join(line + "\r\n" for line in lines), "cp1252")

    def document_lines(self, *lines, name="result.doc"):
        """A log of one document with those lines in it."""
        return START + [f'mirovel->create("{windows(self.folder / name).lower()}");', "// Page 1", *lines, *END]

    def replay(self, *arguments, **options):
        return self.run_client(REPLAY, *[windows(each) if isinstance(each, pathlib.Path) else each for each in arguments],
                               **options)


class Report(ReplayTest):
    """The sample that uses nearly every method, without the calls that leave no line and with characters of the code page."""

    REPLACED = {"    mirovel.showLast\n": "",
                '    deltaT = Left(letters, 1) & "T"': '    deltaT = "dT"',
                "    sigma = Mid(letters, 2, 1)": '    sigma = "s"',
                "    minus = Mid(letters, 3, 1)": '    minus = "-"',
                "    mirovel.setTableRowHeight rowHeight\n": "    mirovel.setTableRowHeight 17\n"}

    TRACED_FROM_THE_BEGINNING = [("    mirovel.trace 10\n", ""),
                                 ('Set mirovel = CreateObject("Mirovel.Mirovel")\n',
                                  'Set mirovel = CreateObject("Mirovel.Mirovel")\n    mirovel.trace 10\n')]

    def run_report(self, *changes):
        source = (SAMPLES / "vbscript" / "report.vbs").read_text("ascii")
        for old, new in [*self.REPLACED.items(), *changes]:
            self.assertEqual(1, source.count(old), old)
            source = source.replace(old, new)
        return self.run_vbscript(source, windows(self.new_document("report.doc")), windows(FILES))

    def check_law(self, recorded, *options):
        given = self.folder / "given.log"
        given.write_bytes(recorded.log)
        (self.folder / "again").mkdir(exist_ok=True)
        log = self.folder / "replayed.log"
        replayed = self.replay("--output", self.folder / "again", "--log", log, "--row-height", "17", *options, given)
        again = windows(self.folder / "again" / "report.doc").lower()
        first = windows(self.folder / "report.doc").lower()
        self.assertGreater(len(recorded.transcript), 300)
        self.assertEqual(recorded.log.decode("cp1252"), log.read_bytes().decode("cp1252").replace(again, first))
        self.assertEqual(recorded.transcript, [
            line.replace(again.replace("\\", "\\\\"), first.replace("\\", "\\\\")) for line in replayed.transcript])
        self.assertEqual(*(without_time(folder / "report.doc") for folder in (self.folder, self.folder / "again")))
        self.assertRegex(replayed.output[-1], r"given\.log: 70\d calls in \d+\.\d s, 0 failed$")
        return replayed

    def test_it_is_called_as_it_was(self):
        self.check_law(self.run_report(*self.TRACED_FROM_THE_BEGINNING))

    def test_settings_from_outside(self):
        """The sample sets them before it traces, so that its log has no line for them."""
        self.check_law(self.run_report(), "--set", "Word/Compose=1", "--toc-level", "2",
                       "--set", "Word/TableStyle=Report Table", "--set", "Word/TOCTitle=Contents",
                       "--template", FILES / "report.dot")

    def test_another_template_and_other_contents(self):
        recorded = self.run_report(*self.TRACED_FROM_THE_BEGINNING)
        given = self.folder / "given.log"
        given.write_bytes(recorded.log)
        template = BUILD / "packaging" / "templates" / "KXR1.dot"
        replayed = self.replay("--output", self.new_document("other.doc"), "--template", template, "--toc-level", "1", given)
        self.assertIn(f'Add("{windows(template)}"'.replace("\\", "\\\\"), "\n".join(replayed.transcript))
        levels = [re.search(r"\.TablesOfContents\.Add\(.*?, true, 1s, (\d+)s,", line) for line in replayed.transcript]
        self.assertEqual(["1"], [found[1] for found in levels if found])


class Options(ReplayTest):
    def test_help_and_version(self):
        self.assertIn("--continue-on-error", "\n".join(self.replay("--help").output))
        self.assertEqual([f"mirovel-replay {VERSION}"], self.replay("--version").output)

    def test_bad_usage(self):
        for arguments in ([], ["--nonsense", "a.log"], ["--set", "Compose=1", "a.log"]):
            outcome = self.replay(*arguments, status=2)
            self.assertEqual([], outcome.output)
            self.assertIn("--help", outcome.errors)

    def test_a_log_that_is_not_there(self):
        self.assertIn("cannot be read", self.replay(self.folder / "none.log", status=3).errors)

    def test_zero_bytes(self):
        log = self._write("zero.log", "m\0i\0", "cp1252")
        self.assertIn("zero bytes", self.replay("--check", log, status=3).errors)

    def test_checking_makes_no_call(self):
        document = self.new_document()
        log = self.write_log(*self.document_lines('mirovel->insertText("a?");', "mirovel->setTableRowHeight();"))
        outcome = self.replay("--check", log)
        self.assertEqual([f"{windows(log)}: 6 calls"], outcome.output[:1])
        self.assertIn("       1  insertText", outcome.output)
        self.assertRegex(outcome.output[-2], "^  line 4: a question mark")
        self.assertRegex(outcome.output[-1], "^  line 5: the height")
        self.assertEqual([], outcome.transcript)
        self.assertFalse(document.exists())

    def test_lines_that_are_not_understood(self):
        log = self.write_log(*self.document_lines("mirovel->insertEndl();", "rubbish", "mirovel->insertEndl();"))
        self.replay("--check", log, status=3)
        outcome = self.replay(log, status=3)
        self.assertEqual([], outcome.transcript)
        self.assertIn("line 5: not understood", outcome.errors)
        outcome = self.replay("--continue-on-error", log, status=3)
        self.assertIn("6 calls in", outcome.output[-1])

    def test_a_part_of_a_log(self):
        log = self.write_log(*self.document_lines(*[f'mirovel->insertText("text {i}");' for i in range(4, 10)]))
        outcome = self.replay("--from", "6", "--to", "7", log)
        self.assertEqual(["text 6", "text 7"], [text for line in outcome.transcript
                                                for text in re.findall(r'InsertAfter\("(.*)"\)', line)])
        self.assertTrue(any(".Quit(" in line for line in outcome.transcript))

    def test_a_log_that_was_begun_late(self):
        log = self.write_log('mirovel->insertText("late");')
        self.assertIn("--output", self.replay(log, status=2).errors)
        document = self.new_document("late.doc")
        self.replay("--output", document, log)
        self.assertIn(b"late", document.read_bytes())

    def test_more_than_one_log(self):
        logs = [self.write_log(*self.document_lines('mirovel->insertText("here");', name=f"{each}.doc"), name=f"{each}.log")
                for each in ("one", "two")]
        self.replay(*logs, "--quiet")
        for each in ("one", "two"):
            self.assertTrue((self.folder / f"{each}.doc").exists())
            (self.folder / f"{each}.doc").unlink()
        self.assertIn("folder", self.replay("--output", self.folder / "a.doc", *logs, status=2).errors)
        place = self.folder / "all"
        place.mkdir()
        self.assertEqual([], self.replay("--output", place, *logs, "--quiet").output)
        self.assertEqual(["one.doc", "two.doc"], sorted(path.name for path in place.iterdir()))

    def test_a_log_is_not_written_over(self):
        log = self.write_log(*self.document_lines())
        content = log.read_bytes()
        self.assertIn("--log", self.replay("--log", log, log, status=2).errors)
        self.assertEqual(content, log.read_bytes())

    def test_only_a_log_is_traced_into(self):
        log = self.write_log(*self.document_lines())
        for name, content in (("notes.txt", "Not a log.\r\n"), ("some.doc", "{\\rtf1}")):
            taken = self._write(name, content, "ascii")
            outcome = self.replay("--log", taken, log, status=2)
            self.assertIn(f"{windows(taken)}: --log names a file that holds something else than a log.", outcome.errors)
            self.assertEqual([], outcome.transcript)
            self.assertEqual(content, taken.read_bytes().decode("ascii"))
        self.assertIn("cannot be written", self.replay("--log", self.folder / "none" / "a.log", log, status=2).errors)
        self.assertIn("cannot be written", self.replay("--log", self.folder, log, status=2).errors)
        for earlier in ("", "mirovel->start();\r\n"):
            traced = self._write("traced.log", earlier, "ascii")
            self.replay("--log", traced, log)
            self.assertEqual("mirovel->stop();", traced.read_text("ascii").splitlines()[-1])
        self.replay("--check", "--log", self.folder / "unused.log", log)
        self.assertFalse((self.folder / "unused.log").exists())

    def test_names_beyond_the_code_page(self):
        log = self.write_log(*self.document_lines())
        self.assertIn("code page", self.replay("--output", self.folder / "\u03b1.doc", log, status=2).errors)

    def test_names_of_the_code_page(self):
        log = self.write_log(*self.document_lines(), name="m\u00e4rz.log")
        document = self.new_document("m\u00e4rz.doc")
        self.assertIn("m\u00e4rz.log: 4 calls", self.replay("--output", document, log).output[-1])
        self.assertTrue(document.exists())

    def test_showing(self):
        log = self.write_log(*self.document_lines())
        transcript = self.replay("--show", log).transcript
        self.assertTrue(any(line.endswith(".Visible = true") for line in transcript), transcript)
        self.let_prefixes_rest()  # That Word stays.


class Page(ReplayTest):
    """The examples of docs/replay.md, as they stand there."""

    page = (ROOT / "docs" / "replay.md").read_text("utf-8")

    def blocks(self, beginning):
        return [text for text in re.findall(r"^```\n(.*?)^```$", self.page, re.MULTILINE | re.DOTALL) if text.startswith(beginning)]

    def test_the_log(self):
        [text] = self.blocks("mirovel->start();")
        log = self._write("letter.log", text, "ascii")
        document = self.new_document("again.doc")
        self.assertIn("10 calls in", self.replay("--output", document, log).output[-1])
        self.assertIn(b"It has a link.", document.read_bytes())

    def test_the_commands(self):
        [text] = self.blocks("make\n")
        self.assertEqual(1, text.count("make\n"))
        text = text.replace("make\n", "", 1).replace("build/mingw-release/", f"{BUILD}/").replace(
            "/tmp/", f"{self.folder}/").replace("\\tmp\\", str(self.folder).replace("/", "\\") + "\\")
        result = subprocess.run(["bash", "-eu", "-c", text], cwd=ROOT, capture_output=True, text=True, timeout=PATIENCE,
                                stdin=subprocess.DEVNULL, check=False)
        self.assertEqual(0, result.returncode, result.stderr)
        told = re.search(r"ends with a line like `.*?\\(letter\.log: 7 calls in )[\d.]+( s, 0 failed)`", self.page)
        self.assertRegex(result.stdout, f"{re.escape(told[1])}[\\d.]+{re.escape(told[2])}\\n$")
        self.assertIn(b"Hello", (self.folder / "again.doc").read_bytes())

    def test_every_option_is_told(self):
        helped = re.findall(r"--[a-z-]+", "\n".join(self.replay("--help").output))
        rows = [line.split("|")[1] for line in self.page.splitlines() if line.startswith("| `--")]
        self.assertEqual(sorted(set(helped)), sorted(re.findall(r"--[a-z-]+", " ".join(rows))))


class Failures(ReplayTest):
    def test_a_call_fails(self):
        log = self.write_log(*self.document_lines('mirovel->insertFile("' + windows(FILES / "method.rtf") + '",0);',
                                                  'mirovel->insertText("behind");'))
        calls = self.replay(log).transcript
        number = next(i for i, line in enumerate(calls, 1) if ".InsertFile(" in line)
        fault = {"WORDSTANDIN_FAIL": f"{number}:0x800a1436"}
        outcome = self.replay(log, env=fault, status=1)
        self.assertRegex(outcome.errors, r"given\.log, line 4: insertFile: .*0x800a1436")
        self.assertIn("3 calls in", outcome.output[-1])
        self.assertFalse(any("behind" in line for line in outcome.transcript))
        self.assertTrue(any(".Quit(" in line for line in outcome.transcript))
        outcome = self.replay("--continue-on-error", log, env=fault, status=1)
        self.assertIn("6 calls in", outcome.output[-1])
        self.assertIn("1 failed", outcome.output[-1])
        self.assertTrue(any("behind" in line for line in outcome.transcript))


    def test_a_framed_call_fails(self):
        """By an exception, which passes from the DLL to the program."""
        log = self.write_log(*self.document_lines('mirovel->insertText("text");'))
        number = next(i for i, line in enumerate(self.replay(log).transcript, 1) if ".InsertAfter(" in line)
        outcome = self.replay(log, env={"WORDSTANDIN_FAIL": f"{number}:0x800a1436"}, status=1)
        self.assertRegex(outcome.errors, r"given\.log, line 4: insertText: insertText: COMERROR 0x800a1436: ")


class Unregistered(ReplayTest):
    def test_a_dll_that_is_not_registered(self):
        document = self.new_document()
        log = self.write_log(*self.document_lines('mirovel->insertText("text");'))
        options = {"registration": False, "prefix": self.folder / "unregistered"}
        outcome = self.replay(log, status=4, **options)
        self.assertIn("--dll", outcome.errors)
        self.assertFalse(document.exists())
        self.replay("--dll", LIBRARY, log, **options)
        self.assertIn(b"text", document.read_bytes())
        outcome = self.replay("--dll", self.folder / "none.dll", log, status=4, **options)
        self.assertIn("none.dll", outcome.errors)


class Terminal(ReplayTest):
    """Before a terminal: a bar, and Ctrl-C."""

    CALLS = 1000
    MORE_CALLS = 10000  # enough for a user to come in between

    def setUp(self):
        self.log = self.long_log(self.CALLS)
        self.replay("--check", self.log)  # registers

    def long_log(self, calls):
        lines = ['mirovel->insertText("a text of some length, so that it takes its time");', "mirovel->insertEndl();"]
        return self.write_log(*self.document_lines(*lines * (calls // 2)), name=f"{calls}.log")

    def play(self, *arguments, type_at=None):
        """What is shown, and the status; Ctrl-C is typed when the pattern is to be seen."""
        command = [ROOT / "scripts" / "in-wine", REPLAY,
                   *[windows(each) if isinstance(each, pathlib.Path) else each for each in arguments]]
        transcript = self.folder / "terminal.txt"
        transcript.unlink(missing_ok=True)
        environment = os.environ | {"WINEPREFIX": str(self.folder / "prefix"), "WORDSTANDIN_TRANSCRIPT": windows(transcript)}
        master, slave = pty.openpty()
        process = subprocess.Popen(command, stdin=slave, stdout=slave, stderr=slave, env=environment, start_new_session=True)
        os.close(slave)
        shown, end = "", time.monotonic() + PATIENCE
        while time.monotonic() < end:
            if select.select([master], [], [], 0.1)[0]:
                try:
                    data = os.read(master, 65536)
                except OSError:
                    break
                shown = (shown + re.sub(r"\x1b\[[?0-9;]*[A-Za-z]", "", data.decode("utf-8", "replace")))[-20000:]
                if type_at and re.search(type_at, shown):
                    os.write(master, b"\x03")
                    type_at = None
            elif process.poll() is not None:
                break
        status = process.wait(PATIENCE)
        os.close(master)
        return shown, status, transcript.read_text("utf-8").splitlines()

    def test_a_bar_shows_the_progress(self):
        shown, status, _ = self.play(self.log)
        self.assertEqual(0, status, shown)
        self.assertRegex(shown, r"\[=+ *\] *\d+% *\d+/1004 *calls *\d+/s *\d+ *s *left")

    def test_elsewhere_there_is_none(self):
        outcome = self.replay(self.log)
        self.assertNotIn("\r", outcome.errors.replace("\r\n", "\n"))
        self.assertNotIn("[=", outcome.errors)

    def test_ctrl_c_closes_the_document(self):
        document = self.new_document()
        shown, status, transcript = self.play(self.long_log(self.MORE_CALLS), type_at=r"[1-9]\d\d+/10004")
        self.assertEqual(130, status, shown)
        self.assertRegex(shown, "interrupted, *document *closed")
        inserted = sum(".InsertAfter(" in line for line in transcript)
        self.assertLess(inserted, self.MORE_CALLS)
        self.assertGreater(inserted, 0)
        self.assertRegex(transcript[-1], r"application\.Quit\(")
        self.assertTrue(any(re.match(r"document\.Close\(", line) for line in transcript))
        self.assertTrue(document.exists())
