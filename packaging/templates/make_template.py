"""make_template.py SOURCE.toml RESULT.dot

Writes a Word template from a description of its page and styles. The template is rich text under Word's own extension
for templates: Word looks at what a file holds, not at how it is called. It has styles and no text; every document that
is based on it begins empty. The same source gives the same bytes.
"""

import pathlib
import sys
import tomllib

ALIGNMENTS = {"left": "ql", "centred": "qc", "right": "qr", "justified": "qj"}
TAB_ALIGNMENTS = {"left": "", "centre": "\\tqc", "right": "\\tqr"}
LEADERS = {"none": "", "dots": "\\tldot"}
RULES = {"above": "brdrt", "below": "brdrb"}
# Where the numbers of each kind of style begin; in the order of the source.
FIRST_NUMBERS = {"paragraph": 0, "character": 200, "table": 300}
VERTICAL_ALIGNMENTS = {"top": "tsvertalt", "centred": "tsvertalc", "bottom": "tsvertalb"}
CELL_PADDING = 5.4  # between a cell's edge and its text, left and right: Word's own, so that columns stay as wide as they are
PER_LEVEL = {"sizes": "size", "befores": "before", "afters": "after", "indents": "indent"}


class SourceError(Exception):
    """The description is not understood."""


def twips(points):
    return round(points * 20)


def one_style_per_level(style):
    """A style with levels stands for "name 1", "name 2" and so on."""
    if "levels" not in style:
        return [style]
    levels = []
    for level in range(style["levels"]):
        own = {key: value for key, value in style.items() if key not in PER_LEVEL and key != "levels"}
        own |= {single: style[plural][level] for plural, single in PER_LEVEL.items() if plural in style}
        levels.append(own | {"name": f"{style['name']} {level + 1}", "level": level})
    return levels


class Template:
    TABLE_KEYS = {"name", "kind", "edge", "line", "padding", "vertical", "heading"}
    KEYS = {"name", "kind", "base", "next", "font", "size", "color", "bold", "italic", "underline", "align", "before",
            "after", "indent", "keep_with_next", "rule", "tabs", "level"}

    def __init__(self, source):
        self.page = source["page"]
        self.title = source["title"]
        self.fonts = source["fonts"]
        self.colors = source["colors"]
        self.styles = [each for style in source["style"] for each in one_style_per_level(style)]
        self.numbers = {}
        for style in self.styles:
            kind = style.get("kind", "paragraph")
            if unknown := style.keys() - (self.TABLE_KEYS if kind == "table" else self.KEYS):
                raise SourceError(f"{style['name']}: unknown: {', '.join(sorted(unknown))}")
            if not isinstance(style.get("size", 0), int):
                raise SourceError(f"{style['name']}: a font size in whole points is wanted, not {style['size']}")
            alike = [each for each in self.styles[:self.styles.index(style)] if each.get("kind", "paragraph") == kind]
            self.numbers[style["name"]] = FIRST_NUMBERS[kind] + len(alike)

    def rich_text(self):
        page = self.page
        lines = [
            r"{\rtf1\ansi\ansicpg1252\uc1\deff0\deflang1033",
            "{\\fonttbl" + "".join(self.font(number) for number in range(len(self.fonts))) + "}",
            "{\\colortbl;" + "".join(map(color_entry, self.colors.values())) + "}",
            "{\\stylesheet",
            *map(self.style, self.styles),
            "}",
            "{\\info{\\title " + self.title + "}}",
            f"\\paperw{twips(page['width'])}\\paperh{twips(page['height'])}"
            f"\\margl{twips(page['left'])}\\margr{twips(page['right'])}"
            f"\\margt{twips(page['top'])}\\margb{twips(page['bottom'])}",
            # \doctemp: this is a template and not a document.
            f"\\doctemp\\widowctrl\\sectd\\headery{twips(page['header'])}\\footery{twips(page['footer'])}",
            "\\pard\\plain" + self.look(self.resolved(self.styles[0])) + "\\par",
            "}",
        ]
        return "\r\n".join(lines) + "\r\n"

    def font(self, number):
        font = list(self.fonts.values())[number]
        return f"{{\\f{number}\\f{font['family']}\\fcharset0\\fprq2 {font['name']};}}"

    def style(self, style):
        number = self.numbers[style["name"]]
        if style.get("kind") == "table":
            return self.table_style(style)
        if style.get("kind") == "character":
            return f"{{\\*\\cs{number}\\additive{self.character_look(style)} {style['name']};}}"
        words = f"\\s{number}" if number else ""
        words += self.look(self.resolved(style))
        if "base" in style:
            words += f"\\sbasedon{self.numbers[style['base']]}"
        words += f"\\snext{self.numbers[style.get('next', style['name'])]}"
        return f"{{{words} {style['name']};}}"

    def table_style(self, style):
        """Two entries: for all rows, and for the first one."""
        start = f"{{\\*\\ts{self.numbers[style['name']]}\\tsrowd"
        end = f"\\snext{self.numbers[style['name']]} {style['name']};}}"
        heading = style["heading"]
        table = "".join(self.line(f"trbrdr{side}", style["edge"]) for side in "tb") + self.line("trbrdrh", style["line"])
        side, above = twips(CELL_PADDING), twips(style["padding"])
        table += (f"\\trftsWidthB3\\trpaddl{side}\\trpaddr{side}\\trpaddt{above}\\trpaddb{above}"
                  f"\\trpaddfl3\\trpaddft3\\trpaddfb3\\trpaddfr3\\tblind0\\tblindtype3\\{VERTICAL_ALIGNMENTS[style['vertical']]}")
        first_row = f"\\tscfirstrow{self.line('tsbrdrb', heading['line'])}\\tscellcbpat{self.color(heading['shading'])}"
        return f"{start}{table}{end}\r\n{start}{first_row}{self.character_look(heading)}{end}"

    def line(self, side, line):
        return f"\\{side}\\brdrs\\brdrw{twips(line['width'])}\\brdrcf{self.color(line['color'])}"

    def color(self, name):
        return list(self.colors).index(name) + 1

    def resolved(self, style):
        """With what the style has from its base: an entry of the sheet says everything."""
        if "base" not in style:
            return style
        base = next(each for each in self.styles if each["name"] == style["base"])
        return self.resolved(base) | style

    def look(self, style):
        words = "\\" + ALIGNMENTS[style.get("align", "left")]
        for key, word in (("indent", "li"), ("before", "sb"), ("after", "sa")):
            if style.get(key):
                words += f"\\{word}{twips(style[key])}"
        if style.get("keep_with_next"):
            words += "\\keepn"
        if style["name"].startswith("heading"):
            words += f"\\outlinelevel{style['level']}"
        if "rule" in style:
            words += f"\\{RULES[style['rule']]}\\brdrs\\brdrw5\\brsp60"
        for tab in style.get("tabs", []):
            words += TAB_ALIGNMENTS[tab["align"]] + LEADERS[tab.get("leader", "none")] + f"\\tx{self.place(tab['at'])}"
        return words + self.character_look(style)

    def character_look(self, style):
        words = ""
        if "font" in style:
            words += f"\\f{list(self.fonts).index(style['font'])}"
        if "size" in style:
            words += f"\\fs{style['size'] * 2}"
        for key, word in (("bold", "b"), ("italic", "i"), ("underline", "ul")):
            if style.get(key):
                words += f"\\{word}"
        if "color" in style:
            words += f"\\cf{self.color(style['color'])}"
        return words

    def place(self, at):
        """A tab's distance from the left margin, in twips."""
        width = twips(self.page["width"]) - twips(self.page["left"]) - twips(self.page["right"])
        return {"right margin": width, "centre": width // 2}[at]


def color_entry(color):
    red, green, blue = bytes.fromhex(color)
    return f"\\red{red}\\green{green}\\blue{blue};"


def main():
    source, result = map(pathlib.Path, sys.argv[1:])
    result.write_bytes(Template(tomllib.loads(source.read_text("utf-8"))).rich_text().encode("ascii"))


if __name__ == "__main__":
    main()
