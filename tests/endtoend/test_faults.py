"""The session with everything there is, with Word in a process of its own that dies or is busy at one call after the other.

One client plays all sessions of a test, each with an object and a Word of its own, so that each session also shows that the
one before left nothing behind.
"""

import json
import os
import pathlib
import re
import subprocess
import sys
import unittest

from support.endtoend import ROOT, EndToEndTest, windows

SESSIONS = pathlib.Path(os.environ["MIROVEL_SESSIONS"])
COUNTING, TYPED, FRAGMENTS = 0, 1, 2
# Every call takes minutes.
EVERY_CALL = bool(os.environ.get("MIROVEL_EVERY_CALL"))
SESSIONS_OF_A_CLIENT = 40
BUSY = ["0x80010001", "0x8001010A"]
GONE = re.compile("0x800706b[ae]|0x80010108")


def step_word(path):
    return path.replace("\\", "\\\\")


class Played:
    """What one session of several in a client left behind."""

    def __init__(self, answers, document, diagnostics):
        self.answers = answers
        self.document = document
        self.diagnostics = diagnostics

    @property
    def failures(self):
        return [answer for answer in self.answers if not answer.endswith(" -> ok")]


class Faults(EndToEndTest):
    def setUp(self):
        self.files = self.folder / "files"
        self.files.mkdir(exist_ok=True)
        command = [ROOT / "scripts" / "in-wine", SESSIONS, "full", windows(self.files)]
        result = subprocess.run(command, check=True, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, timeout=120)
        names, session = [json.loads(line) for line in result.stdout.decode("ascii").splitlines()]
        self.steps = session["steps"]
        for name in names:
            self.steps = self.steps.replace(name, step_word(windows(self.files / name)))

    def play(self, writer, faults):
        """Plays the session once for each of the faults, as many in one client as time allows."""
        transcript, sessions = [], []
        for first in range(0, len(faults), SESSIONS_OF_A_CLIENT):
            some = faults[first:first + SESSIONS_OF_A_CLIENT]
            try:
                outcome, played = self.play_in_one_client(writer, some)
            except subprocess.TimeoutExpired:
                # About once in a thousand deaths of a server, Wine's COM does not come back from looking for the next one.
                if not self.last_event().endswith("\tObject made\t-\t-\t-\t-"):
                    raise
                print(f"{self.id()}: hung in start; the client's {len(some)} sessions are played again", file=sys.stderr)
                self.let_prefixes_rest()
                outcome, played = self.play_in_one_client(writer, some)
            transcript, sessions = outcome.transcript, sessions + played
        return transcript, sessions

    def last_event(self):
        [log] = self.folder.glob("faults.*.log")
        return log.read_text("utf-8").splitlines()[-1]

    def play_in_one_client(self, writer, faults):
        """Plays the session once for each of the faults: a dictionary of environment variables."""
        lines = []
        for number, environment in enumerate(faults):
            for name in ("WORDSTANDIN_EXIT", "WORDSTANDIN_FAIL"):
                lines.append(f"environment\t{name}\t{environment.get(name, '')}")
            document = self.new_document(f"document{number}.doc")
            lines += ["new", f"overrideRegistry\tWord\tCompose\t{writer}\t2", "start",
                      f"create\t{step_word(windows(document))}", *self.steps.splitlines(),
                      # A client may close again when that failed.
                      "close", "close", "stop", "release", "awaitNoWord"]
        for log in self.folder.glob("faults.*.log"):
            log.unlink()
        log = windows(self.folder / "faults.log")
        outcome = self.run_steps("\n".join(lines) + "\n", env={"MIROVEL_DIAGNOSTICS": log})
        answers = "\n".join(outcome.output).split("new -> ok\n")[1:]
        self.assertEqual(len(faults), len(answers), "the client played all sessions")
        for each in answers:
            self.assertIn("awaitNoWord -> ok", each.splitlines())
        return outcome, [self.played(number, each.splitlines()) for number, each in enumerate(answers)]

    def played(self, number, answers):
        document = self.folder / f"document{number}.doc"
        [log] = self.folder.glob("faults.*.log")
        lines = [line for line in log.read_text("utf-8").splitlines() if line.split("\t")[4] == f"#{number + 1}"]
        return Played(answers, document.read_bytes() if document.is_file() else None, lines)

    def undisturbed(self, writer):
        """A session without faults, and how many calls Word gets in it."""
        # The counting writer remembers the fonts of styles: the first session of a client makes more calls than the others.
        transcript, sessions = self.play(writer, [{}, {}])
        for played in sessions:
            # The second close has nothing to close.
            self.assertEqual([], played.failures)
        second = transcript.index("application.Quit(missing, missing, missing)") + 1
        return sessions[1], sum(not line.startswith("#") for line in transcript[second:])

    def check(self, writer, first):
        undisturbed, calls = self.undisturbed(writer)
        self.assertGreater(calls, 100)
        ends = range(first, calls + 1, 1 if EVERY_CALL else calls // 3)
        rejected = range(first + 1, calls + 1, 1 if EVERY_CALL else calls // 2)
        # Those that are rejected come last: their documents show that all is as it was before Word died.
        faults = [{"WORDSTANDIN_EXIT": call} for call in ends]
        faults += [{"WORDSTANDIN_FAIL": f"{call}*2:{BUSY[call % 2]}"} for call in rejected]
        _, sessions = self.play(writer, faults)
        for call, played in zip(ends, sessions):
            with self.subTest(ends_at=call):
                self.check_a_word_that_ends(played, undisturbed)
        for call, played in zip(rejected, sessions[len(ends):]):
            with self.subTest(busy_at=call):
                self.assertEqual([], played.failures)
                self.assertTrue(undisturbed.document == played.document, "the document is another")
                self.assertIn("\tWord is busy; repeating ", "\n".join(played.diagnostics))

    def check_a_word_that_ends(self, played, undisturbed):
        self.assertIn("release -> ok", played.answers)
        named = [line for line in played.diagnostics if "\tWord call failed: " in line and GONE.search(line)]
        self.assertNotEqual([], named, "the diagnostics name the failure")
        self.assertRegex("\n".join(played.failures), GONE, "the client is told")
        # Whoever was told nothing until he had closed has his document.
        told = next(i for i, answer in enumerate(played.answers) if not answer.endswith(" -> ok"))
        if "close -> ok" in played.answers[:told]:
            self.assertTrue(undisturbed.document == played.document, "the document is another")

    def test_the_counting_writer(self):
        self.check(COUNTING, 3)

    def test_the_composing_writer_with_typed_calls(self):
        self.check(TYPED, 5)

    def test_the_composing_writer_with_fragments(self):
        self.check(FRAGMENTS, 7)


if __name__ == "__main__":
    unittest.main()
