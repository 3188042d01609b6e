"""What a word processor makes of a document."""

import hashlib
import re
import subprocess
import xml.etree.ElementTree

from support.endtoend import ROOT

DRAW = "urn:oasis:names:tc:opendocument:xmlns:drawing:1.0"
OFFICE = "urn:oasis:names:tc:opendocument:xmlns:office:1.0"
TEXT = "urn:oasis:names:tc:opendocument:xmlns:text:1.0"
XLINK = "http://www.w3.org/1999/xlink"


def text_of(document):
    """The document's text as LibreOffice reads it: one line per paragraph."""
    return _converted(document, "txt").read_text("utf-8-sig").removesuffix("\n")


def page_count(document):
    report = subprocess.run(["pdfinfo", pdf_of(document)], capture_output=True, text=True, check=True).stdout
    return int(re.search(r"^Pages:\s+(\d+)$", report, re.MULTILINE)[1])


def page_texts(document):
    """The words on each page, without regard to how lines are broken."""
    return [" ".join(page.split()) for page in pages_of(pdf_of(document))]


def pdf_of(document):
    """The document as LibreOffice prints it."""
    return _converted(document, "pdf")


def pages_of(pdf, *options):
    """The text of each page; options as for pdftotext."""
    text = subprocess.run(["pdftotext", *options, pdf, "-"], capture_output=True, text=True, check=True).stdout
    return text.split("\f")[:-1]


def places_of_words(pdf):
    """(page number, x, y, word) of each word, in points."""
    words, page = [], 0
    for line in subprocess.run(["pdftotext", "-bbox", pdf, "-"], capture_output=True, text=True, check=True).stdout.splitlines():
        page += "<page " in line
        if word := re.search(r'<word xMin="(.*?)" yMin="(.*?)" .*>(.*)</word>', line):
            words.append((page, round(float(word[1])), round(float(word[2])), word[3]))
    return words


def page_sizes(pdf):
    """(width, height) of each page, points."""
    report = subprocess.run(["pdfinfo", "-l", "-1", pdf], capture_output=True, text=True, check=True).stdout
    return [(float(m[1]), float(m[2])) for m in re.finditer(r"^Page +\d+ size: +([\d.]+) x ([\d.]+)", report, re.MULTILINE)]


def pictures(pdf):
    """(page number, width, height) of each bitmap, in points and in order."""
    report = subprocess.run(["pdfimages", "-list", pdf], capture_output=True, text=True, check=True).stdout
    found = []
    for line in report.splitlines()[2:]:
        words = line.split()
        if words[2] == "image":
            page, pixels, densities = int(words[0]), words[3:5], words[12:14]
            found.append((page, *[round(int(p) / int(d) * 72) for p, d in zip(pixels, densities)]))
    return found


def linked_pictures(document):
    """The addresses to which pictures lead, in order; LibreOffice does not tell of them in a PDF."""
    return [link.get(f"{{{XLINK}}}href") for link in open_document(document).iter(f"{{{TEXT}}}a")
            if link.find(f"{{{DRAW}}}frame") is not None]


def links(document):
    """(text, address) of each link in the body, in order, but for those in a table of contents. "#" and a bookmark's name are
    an address in the document."""
    body = open_document(document).find(f"{{{OFFICE}}}body")
    listed = {link for index in body.iter(f"{{{TEXT}}}table-of-content") for link in index.iter(f"{{{TEXT}}}a")}
    return [(_text_and_marks(link)[0], link.get(f"{{{XLINK}}}href")) for link in body.iter(f"{{{TEXT}}}a")
            if link not in listed]


def marked_texts(document):
    """For each bookmark's name the text of its paragraph from its beginning on."""
    found = {}
    for element in open_document(document).iter():
        if element.tag in (f"{{{TEXT}}}p", f"{{{TEXT}}}h"):
            text, marks = _text_and_marks(element)
            found.update((name, text[place:]) for name, place in marks)
    return found


def _text_and_marks(element, before=""):
    text, marks = before + (element.text or ""), []
    for child in element:
        tag = child.tag.removeprefix(f"{{{TEXT}}}")
        if tag in ("bookmark", "bookmark-start"):
            marks.append((child.get(f"{{{TEXT}}}name"), len(text)))
        elif tag == "tab":
            text += "\t"
        elif tag == "s":
            text += " " * int(child.get(f"{{{TEXT}}}c", "1"))
        elif tag in ("span", "a"):
            text, inner = _text_and_marks(child, text)
            marks += inner
        text += child.tail or ""
    return text, marks


def open_document(document):
    """The document's content as an element tree in OpenDocument format."""
    return xml.etree.ElementTree.parse(_converted(document, "fodt"))


_made = {}  # for each result the document's name and what it held


def _converted(document, extension):
    """Made once of the same content."""
    result = document.parent / "converted" / f"{document.stem}.{extension}"
    source = document, hashlib.sha256(document.read_bytes()).digest()
    if _made.get(result) != source or not result.is_file():
        convert(extension, [document], result.parent)
        _made[result] = source
    return result


def convert(extension, documents, folder):
    subprocess.run([ROOT / "scripts" / "office-convert", "--stay", extension, *documents, folder], check=True, timeout=240)
