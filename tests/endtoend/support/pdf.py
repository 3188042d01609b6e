"""Reads of a PDF what the tools at hand do not tell: where its links lead, and its outline.

Enough for what LibreOffice writes: objects that stand in the open, in plain syntax.
"""

import re


class Pdf:
    def __init__(self, path):
        data = path.read_bytes()
        self._objects = {int(m[1]): m[2].decode("latin-1") for m in
                         re.finditer(rb"^(\d+) 0 obj\b(.*?)^endobj", data, re.DOTALL | re.MULTILINE)}
        catalog = next(body for body in self._objects.values() if re.search(r"/Type\s*/Catalog", body))
        self._pages = self._kids(self._reference(catalog, "Pages"))
        self._outline = self._reference(catalog, "Outlines")

    def links(self):
        """For each page a list of what its links lead to: an address, or a page's number."""
        return [[self._target(number) for number in self._references(self._objects[page], "Annots")
                 if "/Link" in self._objects[number]] for page in self._pages]

    def outline(self):
        """(depth, text, page number) of each entry, in order."""
        return list(self._outline_below(self._outline, 1)) if self._outline else []

    def _outline_below(self, parent, depth):
        entry = self._reference(self._objects[parent], "First")
        while entry:
            body = self._objects[entry]
            yield depth, self._title(body), self._page(body)
            yield from self._outline_below(entry, depth + 1)
            entry = self._reference(body, "Next")

    @staticmethod
    def _title(body):
        return bytes.fromhex(re.search(r"/Title\s*<([0-9A-Fa-f]*)>", body)[1]).decode("utf-16")

    def _target(self, number):
        body = self._objects[number]
        address = re.search(r"/URI\s*\(((?:\\.|[^\\)])*)\)", body)
        return re.sub(r"\\(.)", r"\1", address[1]) if address else self._page(body)

    def _page(self, body):
        destination = re.search(r"/Dest\s*\[\s*(\d+) 0 R|/D\s*\[\s*(\d+) 0 R", body)
        return self._pages.index(int(destination[1] or destination[2])) + 1

    def _kids(self, number):
        body = self._objects[number]
        if not re.search(r"/Type\s*/Pages", body):
            return [number]
        return [page for kid in self._references(body, "Kids") for page in self._kids(kid)]

    @staticmethod
    def _reference(body, name):
        found = re.search(rf"/{name}\s+(\d+) 0 R", body)
        return int(found[1]) if found else None

    @staticmethod
    def _references(body, name):
        found = re.search(rf"/{name}\s*\[([^\]]*)\]", body)
        return [int(n) for n in re.findall(r"(\d+) 0 R", found[1])] if found else []
