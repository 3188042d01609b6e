"""What the styles of an OpenDocument file, in one piece of XML, come to."""

NAMESPACES = {name: f"urn:oasis:names:tc:opendocument:xmlns:{path}:1.0" for name, path in {
    "fo": "xsl-fo-compatible", "office": "office", "style": "style", "svg": "svg-compatible", "table": "table",
    "text": "text", "draw": "drawing"}.items()} | {"xlink": "http://www.w3.org/1999/xlink"}

# Names that LibreOffice gives to styles of Word's.
STYLES = {"Standard": "Normal"}


def qualified(name):
    prefix, local = name.split(":")
    return f"{{{NAMESPACES[prefix]}}}{local}"


def points(length):
    for unit, factor in (("pt", 1), ("in", 72), ("cm", 72 / 2.54), ("mm", 72 / 25.4)):
        if length.endswith(unit):
            return float(length.removesuffix(unit)) * factor
    raise ValueError(length)


class Styles:
    """What an OpenDocument file's styles come to."""

    PROPERTIES = {"fo:font-weight": "bold", "fo:font-style": "italic", "fo:font-size": "size", "style:font-name": "name",
                  "style:text-underline-style": "underlined", "style:text-line-through-style": "struck",
                  "fo:text-align": "alignment", "fo:break-before": "break"}
    ALIGNMENTS = {"start": 0, "left": 0, "center": 1, "end": 2, "right": 2, "justify": 3}

    def __init__(self, document):
        self._faces = {face.get(qualified("style:name")): face.get(qualified("svg:font-family")).strip("'")
                       for face in document.iter(qualified("style:font-face"))}
        self._styles = {(style.get(qualified("style:family")), style.get(qualified("style:name"))): style
                        for style in document.iter(qualified("style:style"))}
        self._automatic = {style for group in document.iter(qualified("office:automatic-styles")) for style in group}
        self._default = next(style for style in document.iter(qualified("style:default-style"))
                             if style.get(qualified("style:family")) == "paragraph")

    def named(self, name):
        """The style that a paragraph's style stands for: itself, or what automatic formatting is based on."""
        style = self._styles["paragraph", name]
        return style.get(qualified("style:parent-style-name")) if style in self._automatic else name

    def display_name(self, name):
        style = self._styles["paragraph", name]
        shown = style.get(qualified("style:display-name"), name)
        return STYLES.get(shown, shown)

    def paragraph(self, name):
        """The properties of a paragraph style, inherited ones included."""
        style = self._styles.get(("paragraph", name))
        if style is None:
            return {"bold": False, "italic": False, "underlined": False, "struck": False, "alignment": 0, "break": None,
                    **self._own(self._default)}
        return {**self.paragraph(style.get(qualified("style:parent-style-name"))), **self._own(style)}

    def paragraph_looks(self):
        """The properties of each paragraph style by the name that people see."""
        return {self.display_name(name): self.paragraph(name) for family, name in self._styles if family == "paragraph"}

    def direct(self, name):
        """What a paragraph has beside its style."""
        style = self._styles["paragraph", name]
        return self._own(style) if style in self._automatic else {}

    def text(self, name):
        return self._own(self._styles["text", name])

    def own(self, family, name):
        return self._styles[family, name]

    def _own(self, style):
        found = {}
        for properties in style:
            for name, meaning in self.PROPERTIES.items():
                value = properties.get(qualified(name))
                if value is not None:
                    found[meaning] = self._value(meaning, value)
        return found

    def _value(self, meaning, value):
        if meaning == "name":
            return self._faces[value]
        if meaning == "size":
            return points(value)
        if meaning == "alignment":
            return self.ALIGNMENTS[value]
        return value if meaning == "break" else value not in ("none", "normal")
