"""The pages of the documentation as tests read them: headings with what stands below each, and fenced blocks."""

import dataclasses
import re

from support.endtoend import ROOT

DOCS = ROOT / "docs"


@dataclasses.dataclass
class Section:
    level: int
    title: str
    text: str = ""  # up to the next heading, of whatever level

    def blocks(self, language):
        """The fenced blocks of that language, without the fences."""
        return re.findall(rf"^```{language}\n(.*?)^```$", self.text, re.MULTILINE | re.DOTALL)


def sections(page):
    """The sections of a page, in order; what stands in front of the first heading is left out."""
    found, fenced = [], False
    for line in page.read_text("utf-8").splitlines(keepends=True):
        fenced ^= line.startswith("```")
        heading = None if fenced else re.match(r"(#+) (.*)\n", line)
        if heading:
            found.append(Section(len(heading[1]), heading[2]))
        elif found:
            found[-1].text += line
    return found
