"""The site that is shipped, and the links of the pages that it is made of and of those beside them."""

import html.parser
import json
import re
import unittest
import urllib.parse

import pages
from support.endtoend import BUILD, ROOT

SITE = BUILD / "packaging" / "documentation" / "html"
PAGES = sorted(pages.DOCS.rglob("*.md"))
MARKDOWN = [*PAGES, *sorted(ROOT.glob("*.md"))]


class Page(html.parser.HTMLParser):
    """What a page links to and what can be linked to in it."""

    def __init__(self, path):
        super().__init__()
        self.links, self.places = [], set()
        self.feed(path.read_text("utf-8"))

    def handle_starttag(self, tag, attrs):
        for name, value in attrs:
            if name in ("href", "src"):
                self.links.append(value)
            elif name == "id":
                self.places.add(value)


def anchor(title):
    """Of a heading, as those who show Markdown make it."""
    text = re.sub(r"\[(.*?)\]\(.*?\)", r"\1", title).lower()
    return re.sub(r"[^\w\- ]", "", text.replace("`", "")).replace(" ", "-")


class Site(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.pages = {path: Page(path) for path in SITE.rglob("*.html")}

    def test_every_page_is_there(self):
        self.assertEqual([], [path for path in PAGES if not (SITE / path.relative_to(pages.DOCS)).with_suffix(".html").is_file()])

    def test_every_link_leads_somewhere(self):
        checked = 0
        for path, page in self.pages.items():
            for link in page.links:
                url = urllib.parse.urlparse(link)
                if url.scheme:
                    self.assertIn(url.scheme, ("http", "https"), link)
                    continue
                target = (path.parent / urllib.parse.unquote(url.path)).resolve() if url.path else path
                with self.subTest(f"{path.name}: {link}"):
                    self.assertTrue(target.is_file())
                    # The theme's own "#" leads to the top.
                    if url.fragment:
                        self.assertIn(urllib.parse.unquote(url.fragment), self.pages[target].places)
                checked += 1
        self.assertGreater(checked, 1000)

    def test_it_needs_no_web(self):
        for path, page in self.pages.items():
            loaded = re.findall(r'<(?:script|img|link)[^>]*(?:src|href)="(.*?)"', path.read_text("utf-8"))
            self.assertEqual([], [link for link in loaded if "//" in link], path)

    def test_the_search_needs_no_server(self):
        """A page that is opened from a folder may load scripts and read no files: the index is a script."""
        search = (SITE / "search.html").read_text("utf-8")
        self.assertTrue('Search.loadIndex("searchindex.js")' in search)
        index = (SITE / "searchindex.js").read_text("utf-8")
        index = json.loads(index.removeprefix("Search.setIndex(").removesuffix(")"))
        self.assertLessEqual(len(PAGES), len(index["docnames"]))
        found = {index["docnames"][number] for number in index["terms"]["insertxref"]}
        self.assertIn("howto/quotation", found)
        self.assertEqual("interface", index["docnames"][index["titleterms"]["insertxref"]])


class Markdown(unittest.TestCase):
    def test_every_link_leads_somewhere(self):
        checked = 0
        for path in MARKDOWN:
            text = re.sub(r"^```.*?^```$", "", path.read_text("utf-8"), flags=re.MULTILINE | re.DOTALL)
            text = re.sub(r"`[^`\n]*`", "", text)
            for link in re.findall(r"\]\(([^)\s]+)\)", text):
                url = urllib.parse.urlparse(link)
                if url.scheme:
                    continue
                target = (path.parent / url.path).resolve() if url.path else path
                # The site has the changelog beside the pages.
                if target == pages.DOCS / "CHANGELOG.md":
                    target = ROOT / "CHANGELOG.md"
                with self.subTest(f"{path.name}: {link}"):
                    self.assertTrue(target.exists())
                    if url.fragment:
                        self.assertIn(url.fragment, [anchor(section.title) for section in pages.sections(target)])
                checked += 1
        self.assertGreater(checked, 100)

    def test_the_first_page_leads_to_every_other(self):
        listed = re.findall(r"^- \[.*?\]\((.*?)\)", (pages.DOCS / "index.md").read_text("utf-8"), re.MULTILINE)
        self.assertEqual(sorted([*(str(path.relative_to(pages.DOCS)) for path in PAGES if path.name != "index.md"), "CHANGELOG.md"]),
                         sorted(listed))
