"""Random sessions that are composed, with each pen: LibreOffice reads the text that the reference model predicts."""

import json
import os
import pathlib
import re
import subprocess

from support.endtoend import ROOT, EndToEndTest, windows

SESSIONS = pathlib.Path(os.environ["MIROVEL_SESSIONS"])
FIRST = 100_001
EVERY_SESSION = bool(os.environ.get("MIROVEL_EVERY_SESSION"))
SESSIONS_COUNT, PER_CLIENT = 200 if EVERY_SESSION else 100, 50
# The others have a Word in the client's process, where a call takes a hundredth of the time.
WITH_WORD_IN_A_PROCESS = SESSIONS_COUNT if EVERY_SESSION else 20
TYPED, FRAGMENTS = 1, 2


class Sessions(EndToEndTest):
    def test_composed_with_typed_calls_their_documents_say_what_the_calls_say(self):
        self.check_documents(TYPED)

    def test_composed_with_fragments_their_documents_say_what_the_calls_say(self):
        self.check_documents(FRAGMENTS)

    def check_documents(self, pen):
        files = self.folder / f"files{pen}"
        files.mkdir()
        names, *sessions = self.sessions(files)
        documents = [self.new_document(f"session{FIRST + number}pen{pen}.doc") for number in range(len(sessions))]
        played = list(zip(sessions, documents))
        paths = {name: step_word(windows(files / name)) for name in names}
        for first in range(0, WITH_WORD_IN_A_PROCESS, PER_CLIENT):
            self.play(pen, paths, played[first:min(first + PER_CLIENT, WITH_WORD_IN_A_PROCESS)])
        for first in range(WITH_WORD_IN_A_PROCESS, len(played), PER_CLIENT):
            self.play(pen, paths, played[first:first + PER_CLIENT], ["wordInside"])
        wrong = [f"{document.stem}\n{session['steps']}expected {session['text']!r}\nfound    {text!r}"
                 for (session, document), text in zip(played, self.texts_of(documents))
                 if not re.fullmatch(pattern_of(session["text"]), text, re.DOTALL)]
        self.assertEqual(0, len(wrong), "\n".join(wrong[:3]))

    def play(self, pen, paths, sessions, steps_before=()):
        """One client writes the documents one after the other."""
        lines = [*steps_before, "new", f"overrideRegistry\tWord\tCompose\t{pen}\t2", "start"]
        for session, document in sessions:
            steps = session["steps"]
            for name, path in paths.items():
                steps = steps.replace(name, path)
            lines += [f"create\t{step_word(windows(document))}", *steps.splitlines(), "close"]
        lines += ["stop", "release"]
        self.assertAllOk(self.run_steps("\n".join(lines) + "\n", transcript=False))

    def sessions(self, files):
        """The names of the files that sessions insert, which are written, and the sessions."""
        command = [ROOT / "scripts" / "in-wine", SESSIONS, str(FIRST), str(SESSIONS_COUNT), windows(files)]
        result = subprocess.run(command, check=True, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, timeout=120)
        return [json.loads(line) for line in result.stdout.decode("ascii").splitlines()]

    def texts_of(self, documents):
        folder = self.folder / "converted"
        subprocess.run([ROOT / "scripts" / "office-convert", "--stay", "txt", *documents, folder], check=True, timeout=240)
        texts = [(folder / f"{document.stem}.txt").read_text("utf-8-sig") for document in documents]
        # LibreOffice puts a narrow space in front of each of several spaces.
        return [text.replace("\u2006 ", " ") for text in texts]


def step_word(path):
    return path.replace("\\", "\\\\")


# What the reference model's text has where there is no text, and what LibreOffice may show there.
MARKS = {
    "\ue000": ".*?",  # the table of contents
    "\ue001": "[^\n]*?",  # a field
    "\ue002": "",  # a picture
    "\ue003": "\n?",  # a page break: ends the paragraph, unless it begins it
    "\ue004": "",  # a section break: the paragraph's end follows
    "\ue005": "\n?",  # a section break that is all of its paragraph, with the end
}


def pattern_of(text):
    """What LibreOffice may make of the model's text."""
    text = re.sub("(^|\n)\ue004\n", "\\1\ue005", text)
    return "".join(MARKS.get(character, re.escape(character)) for character in text)
