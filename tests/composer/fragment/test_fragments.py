"""Fragments of random content as a word processor reads them by itself: no reading of ours stands in between."""

import base64
import difflib
import hashlib
import itertools
import json
import os
import pathlib
import shutil
import subprocess
import unittest
import xml.etree.ElementTree

from opendocument import NAMESPACES, Styles, points, qualified

ROOT = pathlib.Path(__file__).resolve().parents[3]
FRAGMENTS = 200
BITMAP_HEADER = 14  # bytes of a file that no document holds
TEXT_WIDTH = 432  # points, as the program that prints the fragments has it

# What LibreOffice 7.4 makes of RTF otherwise than it is meant, each in the form in which it is expected here.
# - Text in front of a bookmark gets lost in the first cell of a table that begins a document. So a paragraph begins it.
LEADING_PARAGRAPH = r"\pard\plain\s0\par"
# - A page break ends a paragraph, and with no text around it makes an empty one more or less. When no plain text follows it in
#   its paragraph, it goes to a later one or gets lost; the latter happens in the first paragraph with text behind a table, too
#   (without_breaks). A picture is no text to it; so pictures count where there is no page break.
# - Bookmarks get lost when no text follows them in their paragraph, and a field or a link stands in front of them there or a
#   link begins with the paragraph's end, and so do those at the end of a document (unsure_tags). Those at one place have any
#   order (in_any_order).
# - Spaces in a row get others between them.
STUFFING = "\u2006"
# - A level in quotes is read as none, and an entry without text has a space.
LEVEL_OF_ENTRIES = 1
EMPTY_ENTRY = " "
# - A field without a result has no formatting of its own.
FIELD_FONT = None
# - Pictures have a least width and height, in points.
LEAST_LENGTH = 1.16
FIELDS = {1: "date", 2: "time", 3: "file-name", 4: "page-number"}


def address_as_read(address):
    """Escapes in a field's code are not undone."""
    return address.replace("\\", "\\\\")


def picture_token(size, link, data):
    return ("picture", [round(length, 1) for length in size], link, hashlib.sha256(data).hexdigest())


FONT = ("name", "size", "bold", "italic", "underlined", "struck")


def font_of(properties):
    return tuple(properties.get(each) for each in FONT)


class Reading:
    """A converted fragment in the form of `expected`."""

    def __init__(self, path):
        document = xml.etree.ElementTree.parse(path)
        self.styles = Styles(document)
        body = document.find(f".//{qualified('office:body')}/{qualified('office:text')}")
        self.blocks = [block for element in body for block in self._block(element)]

    def _block(self, element):
        if element.tag in (qualified("text:p"), qualified("text:h")):
            yield self._paragraph(element)
        elif element.tag == qualified("table:table"):
            yield self._table(element)
        elif element.tag not in (qualified("text:sequence-decls"), qualified("text:soft-page-break"),
                                 qualified("office:forms")):
            raise AssertionError(f"unexpected {element.tag}")

    def _paragraph(self, element):
        name = element.get(qualified("text:style-name"))
        properties = self.styles.paragraph(name)
        tokens = []
        self._tokens(element, properties, None, tokens)
        return {"style": self.styles.display_name(self.styles.named(name)), "alignment": properties["alignment"],
                "break": properties["break"] == "page", "tokens": tokens}

    def _tokens(self, element, properties, link, tokens):
        def text(characters):
            tokens.extend((character, font_of(properties), link)
                          for character in (characters or "").replace(STUFFING, ""))

        text(element.text)
        for child in element:
            tag = child.tag.removeprefix(f"{{{NAMESPACES['text']}}}")
            if tag == "span":
                own = self.styles.text(child.get(qualified("text:style-name")))
                self._tokens(child, {**properties, **own}, link, tokens)
            elif tag == "a":
                self._tokens(child, properties, child.get(qualified("xlink:href")), tokens)
            elif tag == "s":
                text(" " * int(child.get(qualified("text:c"), "1")))
            elif tag in ("tab", "line-break"):
                text("\t" if tag == "tab" else "\v")
            elif tag in ("bookmark", "bookmark-start"):
                tokens.append(("tag", child.get(qualified("text:name"))))
            elif tag in FIELDS.values():
                tokens.append(("field", tag, FIELD_FONT, link))
            elif tag == "toc-mark":
                tokens.append(("entry", child.get(qualified("text:string-value")),
                               int(child.get(qualified("text:outline-level")))))
            elif child.tag == qualified("draw:frame"):
                tokens.append(self._picture(child, link))
            elif tag not in ("bookmark-end", "soft-page-break"):
                raise AssertionError(f"unexpected {child.tag}")
            text(child.tail)

    @staticmethod
    def _picture(frame, link):
        size = [points(frame.get(qualified(f"svg:{side}"))) for side in ("width", "height")]
        data = base64.b64decode(frame.find(qualified("draw:image")).findtext(qualified("office:binary-data")))
        return picture_token(size, link, data[BITMAP_HEADER:] if data.startswith(b"BM") else data)

    def _table(self, element):
        def widths():
            for column in element.iter(qualified("table:table-column")):
                style = self.styles.own("table-column", column.get(qualified("table:style-name")))
                width = points(style[0].get(qualified("style:column-width")))
                yield from [width] * int(column.get(qualified("table:number-columns-repeated"), "1"))

        rows, heights = [], []
        for row in element.iter(qualified("table:table-row")):
            properties = self.styles.own("table-row", row.get(qualified("table:style-name")))[0]
            heights.append(points(properties.get(qualified("style:row-height"), "0pt")))
            rows.append([[block for child in cell for block in self._block(child)]
                         for cell in row.iter(qualified("table:table-cell"))])
        return {"widths": list(widths()), "heights": heights, "rows": rows}


def expected_paragraphs(paragraph, styles):
    """As the word processor splits it; looks of its styles are taken from `styles`, by their shown names."""
    style = styles[paragraph["style"]]
    pieces = [[]]
    for item in paragraph["items"]:
        if "pageBreak" in item:
            pieces.append([])
        else:
            pieces[-1].extend(expected_tokens(item, style))
    return [{"style": paragraph["style"], "alignment": paragraph.get("alignment", style["alignment"]), "break": number > 0,
             "linkGoesOn": paragraph.get("linkGoesOn", False), "isFirst": number == 0, "tokens": tokens}
            for number, tokens in enumerate(pieces)]


def expected_tokens(item, style):
    link = address_as_read(item["link"]) if "link" in item else None
    font = font_of({**style, **item["font"]})
    if "text" in item:
        return [(character, font, link) for character in item["text"]]
    if "picture" in item:
        width, height, data = item["picture"]
        return [picture_token([max(LEAST_LENGTH, width), max(LEAST_LENGTH, height)], link, bytes.fromhex(data))]
    if "field" in item:
        return [("field", FIELDS[item["field"]], FIELD_FONT, link)]
    if "entry" in item:
        return [("entry", one_line(item["entry"]) or EMPTY_ENTRY, LEVEL_OF_ENTRIES)]
    return [("tag", item["tag"])]


def one_line(text):
    return text.replace("\r\n", "\r").replace("\n", "\r").replace("\r", " ")


def expected(blocks, styles):
    for block in blocks:
        if "paragraph" in block:
            yield from expected_paragraphs(block["paragraph"], styles)
        else:
            columns = len(block["rows"][0])
            yield {"widths": [TEXT_WIDTH / columns] * columns, "heights": block["heights"],
                   "rows": [[[each for paragraph in cell for each in expected_paragraphs(paragraph, styles)]
                             for cell in row] for row in block["rows"]]}


def unsure_tags(blocks):
    """The names of bookmarks that may get lost."""
    unsure, behind_text, link_goes_on = set(), set(), False
    for paragraph in paragraphs_of(blocks):
        follows_field, at_end = link_goes_on, set()
        link_goes_on = paragraph["linkGoesOn"]
        for token in paragraph["tokens"]:
            if token[0] == "tag":
                at_end.add(token[1])
                behind_text.add(token[1])
                continue
            if token[0] in ("field", "entry") and follows_field:
                unsure |= at_end
            follows_field = follows_field or not is_plain(token)
            at_end, behind_text = set(), set()
        if follows_field or link_goes_on:
            unsure |= at_end
    return unsure | behind_text


def paragraphs_of(blocks):
    for block in blocks:
        if "rows" in block:
            yield from (paragraph for row in block["rows"] for cell in row for paragraph in cell)
        else:
            yield block


def in_any_order(tokens):
    """Bookmarks at one place have no order."""
    for is_tag, group in itertools.groupby(tokens, lambda token: token[0] == "tag"):
        yield from sorted(group) if is_tag else group


def without_breaks(blocks):
    """What has neither text nor field is left out, and its bookmarks go on. A page break counts if plain text follows."""
    result, kept, is_far_from_table, shows = [], [], True, False
    for block in blocks:
        if "rows" in block:
            result += [{"tokens": kept}, block]
            kept, is_far_from_table, shows = [], False, False
            continue
        is_far_from_table = is_far_from_table or shows and block.get("isFirst", True)
        own = [token for token in block["tokens"] if token[0] != "picture"]
        tokens = kept + own
        if all(token[0] in ("tag", "entry") for token in tokens):
            kept = tokens
            continue
        begins_plainly = bool(own) and is_plain(block["tokens"][0])
        result.append({**block, "tokens": tokens, "break": block["break"] and begins_plainly and is_far_from_table})
        kept, shows = [], True
    return result + [{"tokens": kept}]


def is_plain(token):
    return token[0] not in ("tag", "entry", "field") and not token[2]


def kept_breaks(wanted, read):
    """Of what was read, without the breaks that came to stand elsewhere."""
    return [{**block, "break": block["break"] and meant["break"]} if "break" in block and "break" in meant else block
            for meant, block in itertools.zip_longest(wanted, read[:len(wanted)], fillvalue={})] + read[len(wanted):]


def lines(blocks, left_out):
    """One for each character and mark. LibreOffice counts in hundredths of a millimetre, so lengths are rounded."""
    for block in blocks:
        if "rows" not in block:
            tokens = (token for token in block["tokens"] if token[0] != "tag" or token[1] not in left_out)
            yield from map(repr, in_any_order(tokens))
            yield "paragraph " + repr([block.get(name) for name in ("style", "alignment", "break")])
            continue
        yield f"table, columns {[round(width) for width in block['widths']]}"
        for row, height in zip(block["rows"], block["heights"], strict=True):
            for cell in row:
                yield from lines(cell, left_out)
                yield "cell"
            yield f"row, height {round(height)}"


class AnyStyle(dict):
    """For what is expected beside looks."""

    def __missing__(self, name):
        return {"alignment": 0}


class FragmentsTest(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        cls.folder = pathlib.Path(os.environ["MIROVEL_BUILD"]) / "fragments-in-office"
        shutil.rmtree(cls.folder, ignore_errors=True)
        cls.folder.mkdir()
        printed = subprocess.run([os.environ["MIROVEL_FRAGMENTS"], "0", str(FRAGMENTS)], check=True, capture_output=True)
        cls.fragments = [json.loads(line) for line in printed.stdout.splitlines()]
        paths = []
        for number, fragment in enumerate(cls.fragments):
            paths.append(cls.folder / f"{number:03}.rtf")
            header, sheet, text = fragment["rtf"].split("\n", 2)
            paths[-1].write_text("\n".join([header, sheet, LEADING_PARAGRAPH, text]), "ascii")
        subprocess.run([ROOT / "scripts" / "office-convert", "fodt", *paths, cls.folder], check=True, timeout=500)

    def test_hold_pictures_of_all_kinds_in_paragraphs_and_cells_linked_and_not(self):
        seen = set()
        for fragment in self.fragments:
            blocks = list(expected(fragment["blocks"], AnyStyle()))
            has_breaks = any(paragraph["break"] for paragraph in paragraphs_of(blocks))
            for block in blocks:
                if has_breaks and "rows" not in block:
                    continue
                seen.update((token[3], "rows" in block, bool(token[2])) for paragraph in paragraphs_of([block])
                            for token in paragraph["tokens"] if token[0] == "picture")
        kinds = {kind for kind, _, _ in seen}
        self.assertEqual(len(kinds), 4)
        self.assertEqual(seen, set(itertools.product(kinds, (False, True), (False, True))))

    def test_are_read_as_they_are_meant(self):
        agreed = 0
        for number, fragment in enumerate(self.fragments):
            with self.subTest(number=number, file=str(self.folder / f"{number:03}.rtf")):
                self._compare(number, fragment)
                agreed += 1
        self.assertEqual(agreed, FRAGMENTS)

    def _compare(self, number, fragment):
        reading = Reading(self.folder / f"{number:03}.fodt")
        looks = reading.styles.paragraph_looks()
        blocks = list(expected(fragment["blocks"], looks))
        read = reading.blocks[1:]  # behind the leading paragraph
        unsure = unsure_tags(blocks)
        if any(block.get("break") for block in blocks):
            blocks, read = without_breaks(blocks), without_breaks(read)
            read = kept_breaks(blocks, read)
        wanted = list(lines(blocks, unsure))
        found = list(lines(read, unsure))
        if wanted != found:
            self.fail("\n".join(difflib.unified_diff(wanted, found, "meant", "read", n=2, lineterm="")))


if __name__ == "__main__":
    unittest.main()
