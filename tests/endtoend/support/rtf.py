"""What a document's file holds, before a word processor makes something of it.

Enough for the rich text that the Word stand-in writes: text, fonts, links, bookmarks, entries of the table of contents.
"""

import dataclasses
import re

TOKEN = re.compile(r"\\([a-z]+)(-?\d+)? ?|\\'([0-9a-f]{2})|\\([^a-z'])|([{}])|([^\\{}\r\n]+)|[\r\n]+", re.IGNORECASE)
CHARACTERS = {"par": "\n", "sect": "\n", "row": "\n", "cell": "\t", "tab": "\t", "line": "\v", "page": "\f"}
SKIPPED = {"colortbl", "stylesheet", "info", "pict", "object", "generator"}
TARGET = re.compile(r'^ *HYPERLINK +(\\\\?l +)?"(.*?)" *$')
ENTRY = re.compile(r'^ *TC "(.*)" \\\\?f ?C \\\\?l "(\d)" *$')


@dataclasses.dataclass(frozen=True)
class Font:
    name: str
    size: float  # points
    attributes: str  # letters of b(old), i(talic), u(nderline), s(trike)


@dataclasses.dataclass
class Story:
    """The body, a header or a footer. A paragraph and a row end in a line feed, a cell in a tab."""

    text: str = ""
    fonts: list = dataclasses.field(default_factory=list)  # one for each character
    links: list = dataclasses.field(default_factory=list)  # (start, end, target), in the order in which they begin
    bookmarks: dict = dataclasses.field(default_factory=dict)  # name: [start, end]
    entries: list = dataclasses.field(default_factory=list)  # (place, text, level)

    def font_of(self, text):
        """The one font of this text, which stands here once."""
        start = self.text.index(text)
        fonts = set(self.fonts[start:start + len(text)])
        assert len(fonts) == 1 and text not in self.text[start + 1:], (text, fonts)
        return fonts.pop()


@dataclasses.dataclass
class Group:
    """What holds up to a closing brace."""

    story: Story
    use: str = "text"  # or "instruction", "font table", "bkmkstart", "bkmkend", "nothing"
    field: list = None  # of the innermost field: its instruction's pieces
    font: int = 0
    half_points: int = 24
    attributes: frozenset = frozenset()
    listed: int = 0  # the font of which the font table speaks


class Rtf:
    def __init__(self, path):
        self.body = Story()
        self.headers, self.footers = [], []  # one for each section that has one
        self._fonts = {}
        self._group, self._outer = Group(self.body, use="nothing"), []
        self._skip = 0  # characters that stand in for one given by its number
        for token in TOKEN.finditer(path.read_text("ascii")):
            word, number, byte, symbol, brace, text = token.groups()
            if brace:
                self._brace(brace)
            elif word:
                self._word(word, number)
            elif symbol == "*":
                self._group.use = "unless known"
            elif byte or symbol or text:
                self._write(bytes.fromhex(byte).decode("cp1252") if byte else symbol or text)

    @property
    def stories(self):
        return [self.body, *self.headers, *self.footers]

    def text_at(self, bookmark):
        """What stands behind the place where the bookmark begins."""
        story = next(s for s in self.stories if bookmark in s.bookmarks)
        return story.text[story.bookmarks[bookmark][0]:]

    def _brace(self, brace):
        if brace == "{":
            self._outer.append(self._group)
            self._group = dataclasses.replace(self._group)
        else:
            closed, self._group = self._group, self._outer.pop()
            if closed.field is not None and closed.field is not self._group.field:
                self._end_field(closed)

    def _word(self, word, number):
        group = self._group
        if word == "rtf":
            group.use = "text"
        elif word == "fonttbl":
            group.use = "font table"
        elif word in ("bkmkstart", "bkmkend"):
            group.use = word
        elif word == "fldinst":
            group.use = "instruction"
        elif word in SKIPPED or group.use == "unless known":
            group.use = "nothing"
        elif group.use == "nothing":
            pass
        elif word in ("header", "footer"):
            group.story = Story()
            (self.headers if word == "header" else self.footers).append(group.story)
        elif word == "field":
            group.field = {"instruction": "", "start": len(group.story.text)}
        elif word == "u":
            self._write(chr(int(number) % 0x10000))
            self._skip = 1
        elif word in CHARACTERS:
            self._write(CHARACTERS[word])
        else:
            self._format(word, number)

    def _format(self, word, number):
        group = self._group
        if word == "plain":
            group.font, group.half_points, group.attributes = 0, 24, frozenset()
        elif word == "f":
            group.font = group.listed = int(number)
        elif word == "fs":
            group.half_points = int(number)
        elif word in ("b", "i", "ul", "strike"):
            group.attributes = group.attributes - {word[0]} if number == "0" else group.attributes | {word[0]}

    def _write(self, text):
        group = self._group
        if self._skip:
            text, self._skip = text[self._skip:], 0
        if group.use == "text":
            group.story.text += text
            font = Font(self._fonts[group.font], group.half_points / 2, "".join(sorted(group.attributes)))
            group.story.fonts += [font] * len(text)
        elif group.use == "instruction":
            group.field["instruction"] += text
        elif group.use == "font table":
            self._fonts[group.listed] = self._fonts.get(group.listed, "") + text.rstrip(";")
        elif group.use == "bkmkstart":
            group.story.bookmarks[text] = [len(group.story.text)] * 2
        elif group.use == "bkmkend":
            group.story.bookmarks[text][1] = len(group.story.text)

    def _end_field(self, group):
        story, start, instruction = group.story, group.field["start"], group.field["instruction"]
        link, entry = TARGET.match(instruction), ENTRY.match(instruction)
        if link:
            story.links.append((start, len(story.text), ("#" if link[1] else "") + link[2]))
            story.links.sort()
        elif entry:
            story.entries.append((start, entry[1], int(entry[2])))
