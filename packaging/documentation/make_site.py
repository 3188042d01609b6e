"""make_site.py VERSION DOCS CHANGELOG FOLDER: makes the site of the documentation's pages in FOLDER/html.

The pages are Markdown that stands by itself. The site's menu is that of the first page: its headings, and the links below each.
A link that leads nowhere, or a page to which none leads, ends it.
"""

import json
import os
import pathlib
import re
import shutil
import subprocess
import sys


def menu(page):
    """The list of pages for Sphinx, from the first page's sections."""
    lines = []
    for heading, text in re.findall(r"^## ([^\n]*)\n(.*?)(?=^## |\Z)", page, re.MULTILINE | re.DOTALL):
        links = re.findall(r"^- \[.*?\]\((.*?)\.md\)", text, re.MULTILINE)
        lines += ["", "```{toctree}", ":hidden:", f":caption: {heading}", "", *links, "```"]
    return "\n".join(lines) + "\n"


def stage(docs, changelog, source):
    shutil.rmtree(source, ignore_errors=True)
    shutil.copytree(docs, source)
    shutil.copy(changelog, source / "CHANGELOG.md")
    index = source / "index.md"
    index.write_text(index.read_text("utf-8") + menu(index.read_text("utf-8")), "utf-8")


def in_order(index):
    """The search's index, which Sphinx writes in the order in which it happened to read the pages."""
    begin, end = "Search.setIndex(", ")"
    content = json.loads(index.read_text("utf-8").removeprefix(begin).removesuffix(end))
    for places in content["alltitles"].values():
        places.sort()
    index.write_text(begin + json.dumps(content, sort_keys=True) + end, "utf-8")


def main():
    version, docs, changelog, folder = sys.argv[1:]
    here, folder = pathlib.Path(__file__).resolve().parent, pathlib.Path(folder)
    source, html = folder / "source", folder / "html"
    stage(pathlib.Path(docs), pathlib.Path(changelog), source)
    for old in (html, folder / "doctrees"):
        shutil.rmtree(old, ignore_errors=True)
    # The same pages give the same bytes.
    environment = os.environ | {"MIROVEL_VERSION": version, "PYTHONHASHSEED": "0", "LC_ALL": "C.UTF-8"}
    subprocess.run([sys.executable, "-B", "-m", "sphinx", "-q", "-W", "--keep-going", "-b", "html", "-d", folder / "doctrees",
                    "-c", here, source, html], check=True, env=environment)
    in_order(html / "searchindex.js")
    for name in (".buildinfo", "objects.inv"):
        (html / name).unlink()
    # Megabytes of typefaces: the reader's own do. The menu's signs stay, in the one format that every browser reads.
    for font in (html / "_static").rglob("fonts/*"):
        if font.name != "fontawesome-webfont.woff2":
            font.unlink()


main()
