"""The report, the links that turn the page, and the sample of links: alike in three languages, and as it should be when another
program opens it."""

import dataclasses
import re
import subprocess

from support import documents
from support.clients import in_transcript
from support.endtoend import BUILD, ROOT, EndToEndTest, windows
from support.pdf import Pdf
from support.rtf import Font, Rtf

SAMPLES = ROOT / "samples"
FILES = SAMPLES / "report-files"
HOME_PAGE = "http://www.lindholm.example/"


def clients(name):
    return [SAMPLES / "vbscript" / f"{name}.vbs", SAMPLES / "jscript" / f"{name}.js",
            BUILD / "samples" / f"sample_{name}.exe"]


def sources(name):
    return [SAMPLES / folder / f"{name}.{extension}"
            for folder, extension in (("vbscript", "vbs"), ("jscript", "js"), ("cpp", "cpp"))]


class SampleTest(EndToEndTest):
    def run_sample(self, client, name):
        document = self.new_document(f"{name}.doc")
        outcome = self.run_client(client, windows(document), windows(FILES))
        self.assertEqual("", outcome.errors)
        self.assertNoPartialFiles(document)
        return document, outcome

    def check_alike(self, name):
        """One outcome of the clients in three languages, after a look that there is one."""
        outcomes = [self.run_sample(client, name)[1] for client in clients(name)]
        for other in outcomes[1:]:
            self.assertLines(outcomes[0].transcript, other.transcript)
            self.assertEqual(outcomes[0].log, other.log)
            self.assertEqual(outcomes[0].output, other.output)
        return outcomes[0]


class Clients(SampleTest):
    def test_every_method_is_called_in_every_language(self):
        idl = (ROOT / "server" / "mirovelcom.idl").read_text("ascii")
        methods = re.findall(r"^ *HRESULT (\w+)\(", idl, re.MULTILINE)
        self.assertEqual(42, len(methods))
        for report, links in zip(sources("report"), sources("links")):
            text = report.read_text("ascii") + links.read_text("ascii")
            self.assertEqual([], [m for m in methods if not re.search(rf"(mirovel\.|mirovel_->|IDocument::){m}\b", text)])

    def test_the_report_is_the_same_in_every_language(self):
        outcome = self.check_alike("report")
        self.assertEqual(["Document type: Word", "Settings page: {5C2E7A11-3B41-4D8E-9F62-A1B3C4D5E6F7}"], outcome.output)
        self.assertEqual([], [line for line in outcome.transcript if " !! " in line])

    def test_the_links_are_the_same_in_every_language(self):
        outcome = self.check_alike("links")
        self.assertEqual([], [line for line in outcome.transcript if " !! " in line])
        added = [re.search(r'\.Hyperlinks\.Add\([^"]*, "(.*?)", "(.*?)"', line) for line in outcome.transcript]
        method, missing = (in_transcript(windows(FILES / name)) for name in ("method.rtf", "missing.txt"))
        # b2 and b4 never come. Their links are drawn when the first picture has the text written, and taken away at the end.
        text = [("", f"b{n}") for n in (1, 2, 3, 4, 5)] + [
            (HOME_PAGE, ""), (HOME_PAGE, ""), (method, ""), (method, ""), (missing, ""), (HOME_PAGE + "log", "")]
        self.assertEqual(sorted([*text, ("", "b1"), (HOME_PAGE, ""), ("", "b3"), (HOME_PAGE, "")]),
                         sorted((m[1], m[2]) for m in added if m))
        self.assertEqual(["ERR File not found: " + windows(FILES / "missing.txt")],
                         [line for line in outcome.log_lines if line.startswith("ERR")])

    def test_each_link_covers_its_text(self):
        document, _ = self.run_sample(clients("links")[0], "links")
        self.assertEqual(["The end", "the start", "The observatory", HOME_PAGE, "A file", "method.rtf", "missing.txt",
                          "the log", "item 7", "", "", "Start", "Observatory"],
                         [text for text, _ in documents.links(document)])

    def test_the_links_lie_on_a_page_turned_sideways(self):
        document, _ = self.run_sample(clients("links")[0], "links")
        self.assertEqual([(792, 612)], documents.page_sizes(documents.pdf_of(document)))

    def test_an_unusable_place_is_told_in_every_language(self):
        for client in clients("report") + clients("links"):
            outcome = self.run_client(client, "Z:\\no\\such\\folder\\a.doc", windows(FILES), status=1)
            self.assertRegex("\n".join(outcome.output), r"The \w+ could not be written: Saving document\nCOMERROR 0x")


class Files(EndToEndTest):
    def test_the_inserted_files_are_those_that_the_script_makes(self):
        made = self.folder / "made"
        subprocess.run([FILES / "make-files", made], check=True)
        for path in made.iterdir():
            self.assertEqual(path.read_bytes(), (FILES / path.name).read_bytes(), path.name)


DELTA_T, SIGMA, MINUS = "\u0394T", "\u03c3", "\u2212"
SEASON = {month: season for season, months in (("Winter", "January February December"), ("Spring", "March April May"),
                                               ("Summer", "June July August"), ("Autumn", "September October November"))
          for month in months.split()}
# With the minus sign that people read; the sheet has the one that programs read.
SHEET = [line.replace("-", MINUS).split("\t") for line in (FILES / "yearly.xls").read_text("ascii").splitlines()]

# Beginnings of what stands where links lead.
COVER, CONTENTS = "\n" * 7 + "The Weather of 2025\n", "The year in brief\n"
SEASON_HEADINGS = {"Winter": f"Winter ({DELTA_T} +0.4): snow", "Spring": f"Spring ({DELTA_T} +0.2): 26",
           "Summer": f"Summer ({DELTA_T} +1.2): 31.4", "Autumn": f"Autumn ({DELTA_T} +0.6): a flood"}
YEAR, METHOD, FIGURES = "The year at a glance\n", "How we measure\nFrom a", "Appendix: the months in figures\n"
DELTA, SOURCES = f"{DELTA_T}\tmean", ("[1]\tLindholm", "[2]\tM. Lund")
MONTH_ROWS = {month: f"{month}\t{season}\t" for month, season in SEASON.items()}

# What each link shows, and where it leads.
HEADING_LINKS = [(DELTA_T, DELTA)]
BODY_LINKS = [
    ("", CONTENTS), ("highest reading", MONTH_ROWS["July"]), ("summer", SEASON_HEADINGS["Summer"]),
    ("lowest reading", MONTH_ROWS["January"]), ("winter", SEASON_HEADINGS["Winter"]),
    ("rose above its banks", SEASON_HEADINGS["Autumn"]), ("How we measure", METHOD), ("the signs", "Signs and sources\n"),
    ("head of each page", "Lindholm Observatory\tThe"),
    (DELTA_T + " +0.6", DELTA), ("appendix", FIGURES), *SEASON_HEADINGS.items(),
    *HEADING_LINKS, (MINUS + "0.8 \u00b0C", f"Winter\t\t{MINUS}0.8"), ("12.9 degrees of frost", MONTH_ROWS["January"]),
    *HEADING_LINKS, ("winter", SEASON_HEADINGS["Winter"]), ("summer", SEASON_HEADINGS["Summer"]),
    *HEADING_LINKS, ("highest reading", MONTH_ROWS["July"]), ("the log", "The log\n"), ("[1]", SOURCES[0]),
    *HEADING_LINKS, ("69 millimetres", MONTH_ROWS["October"]), ("[1]", SOURCES[0]), ("[2]", SOURCES[1]),
    ("July", MONTH_ROWS["July"]), ("January", MONTH_ROWS["January"]), ("Table 1", "Table 1. Mean"), ("appendix", FIGURES),
    (SIGMA, f"{SIGMA}\tstandard"), ("table of the months", FIGURES), ("Summer", SEASON_HEADINGS["Summer"]),
    ("The year at a glance", YEAR), ("How we measure", METHOD),
    ("Summer", SEASON_HEADINGS["Summer"]), ("Autumn", SEASON_HEADINGS["Autumn"]), ("Autumn", SEASON_HEADINGS["Autumn"]),
    *[(SEASON[month], SEASON_HEADINGS[SEASON[month]]) for month, *_ in SHEET[1:]],
    ("the cover", COVER),
    ("", HOME_PAGE)]
HEADER_LINKS = [("Start", COVER), ("Contents", CONTENTS), ("End", "\n")]
APPENDIX_HEADER_LINKS = [("Month by month", "Month by month\nTemperature"), ("Contents", CONTENTS)]
FOOTER_LINKS = [("Sources", "Sources\n"), ("www.lindholm.example", HOME_PAGE)]


class Report(SampleTest):
    """The file, and what LibreOffice shows of it. Composed with typed calls, as the sample has it."""

    pen = 1
    made = {}

    def setUp(self):
        for pen in (1, self.pen):
            if pen not in Report.made:
                document, _ = self.run_sample(self.client(pen), "report")
                pdf = documents.pdf_of(document)
                Report.made[pen] = document, Rtf(document), pdf, documents.places_of_words(pdf)
        self.document, self.file, self.pdf, self.words = Report.made[self.pen]

    def client(self, pen):
        """The sample, but for the pen."""
        sample = clients("report")[0].read_text("ascii")
        chosen = sample.replace('"Compose", "1"', f'"Compose", "{pen}"')
        self.assertEqual(pen == 1, chosen == sample)
        return self._write(f"client{pen}.vbs", chosen, "ascii")

    def pages(self, *options):
        return documents.pages_of(self.pdf, *options)

    def test_pages_stand_upright(self):
        sizes = [(round(width), round(height)) for width, height in documents.page_sizes(self.pdf)]
        self.assertEqual([(595, 842)] * 6, sizes)

    def test_text_stands_in_order(self):
        pages = [" ".join(page.split()) for page in self.pages("-raw")]
        expected = [
            (1, ["The Weather of 2025", "Yearly report of the Lindholm Observatory", "Printed on "]),
            (2, ["The year in brief", "The highest reading was 31.4 \u00b0C, in a hot summer.", "The lowest reading was",
                 "The brook", "How we measure has", "leads back to this list.", "Contents", "The year at a glance"]),
            (3, ["The year at a glance", "2025 was a mild year", "0.6 degrees above that of the thirty years before "
                 f"({DELTA_T} +0.6).", "the appendix has the figures.", "The seasons", "Winter stands for",
                 "Table 1. Mean temperature", "Mean temperature", "Winter", "139 mm", "Autumn", "195 mm",
                 "The mean of a season", f"Winter ({DELTA_T} +0.4): snow on 31 days", f"A mean of {MINUS}0.8 \u00b0C hides",
                 f"Spring ({DELTA_T} +0.2): 26 days", f"Summer ({DELTA_T} +1.2): 31.4 \u00b0C on the 12th of July",
                 "Only three summers were warmer [1].", f"Autumn ({DELTA_T} +0.6): a flood in October",
                 "since the gauge was built [1][2]."]),
            (4, ["Month by month", "Temperature and rain", "July was both", "the figures of each month.",
                 "Figure 1. Rain and mean", "The figures to work with", "drawn in another way."]),
            (5, ["How we measure", "From a reading to a mean", "has been the same since 1931:", "1. Reading.",
                 "2. Checking.", "3. Averaging.", "4. Keeping.", "the observer who made it.",
                 f"more than three {SIGMA} is marked", "The log", "Observers keep the log by hand.", "15:20 31.1 0.0",
                 "15:30 13.2 0.0 31.2 digits swapped", "15:40 31.4 0.0 highest of the year, see Summer",
                 "Signs and sources", "Table 2. Signs", DELTA_T, SIGMA, "Both are in degrees Celsius.", "Sources",
                 "[1] Lindholm Observatory", "[2] M. Lund"]),
            (6, ["Appendix: the months in figures", "Temperatures are in", "Table 3. The months of 2025", "Month",
                 "January", "December", "Year", "The year's row holds", "The observatory", "the readings of today:",
                 "This report is the file report.doc, made at ", "A. Berg, for the observers"]),
        ]
        self.assertEqual(len(expected), len(pages))
        for number, texts in expected:
            at = 0
            for text in texts:
                found = pages[number - 1].find(text, at)
                self.assertGreaterEqual(found, 0, f"{text!r} behind {pages[number - 1][:at]!r} in {pages[number - 1]!r}")
                at = found + len(text)

    def test_nothing_is_left_behind_tables(self):
        for note in ("The mean of a season", "The year's row holds", "Both are in degrees"):
            self.assertIn(f"\t\n{note}", self.file.body.text)

    def test_date_and_time_are_there(self):
        first, *_, last = [" ".join(page.split()) for page in self.pages()]
        self.assertRegex(first, r"Printed on \d\d?/\d\d?/\d+$")
        self.assertRegex(last, r"This report is the file report\.doc, made at \d\d?:\d\d(:\d\d)?( [AP]M)?\.")

    OUTLINE = [
        (1, "The year at a glance", 3), (2, "The seasons", 3), (3, f"Winter ({DELTA_T} +0.4): snow on 31 days", 3),
        (3, f"Spring ({DELTA_T} +0.2): 26 days without rain", 3),
        (3, f"Summer ({DELTA_T} +1.2): 31.4 \u00b0C on the 12th of July", 3),
        (3, f"Autumn ({DELTA_T} +0.6): a flood in October", 3), (1, "Month by month", 4), (2, "Temperature and rain", 4),
        (2, "The figures to work with", 4), (1, "How we measure", 5), (2, "From a reading to a mean", 5), (2, "The log", 5),
        (1, "Signs and sources", 5), (2, "Sources", 5), (1, "Appendix: the months in figures", 6), (1, "The observatory", 6)]

    def test_headings_have_three_levels(self):
        self.assertEqual(self.OUTLINE, Pdf(self.pdf).outline())

    def test_the_table_of_contents_lists_headings_and_entries(self):
        page = self.pages("-layout")[1]
        entries = [(m[1], int(m[2])) for m in re.finditer(r"^ *(\S.*?) ?\.{3,} ?(\d+)$", page, re.MULTILINE)]
        # At the third level it is not the headings that are listed but what was made an entry of.
        expected = [(text.partition(":")[0] if level == 3 else text, number) for level, text, number in self.OUTLINE]
        self.assertEqual(expected, entries)

    def test_entries_hold_the_texts_of_links(self):
        texts = [text.partition(":")[0] for level, text, _ in self.OUTLINE if level == 3]
        self.assertEqual([(text, 3) for text in texts], [(text, level) for _, text, level in self.file.body.entries])
        for place, text, _ in self.file.body.entries:
            self.assertTrue(self.file.body.text[:place].endswith("\n" + text))

    def cells(self, caption):
        """The rows of the table behind the caption: lists of (text, fonts)."""
        body, rows = self.file.body, []
        end = body.text.index("\n", body.text.index(caption)) + 1
        while True:
            start, end = end, body.text.index("\n", end) + 1
            if not body.text.startswith("\t\n", end - 2):
                return rows, set(body.fonts[start:end - 1])
            row = []
            for text in body.text[start:end - 2].split("\t"):
                row.append((text, set(body.fonts[start:start + len(text)])))
                start += len(text) + 1
            rows.append(row)

    def test_tables_hold_their_cells_in_their_fonts(self):
        plain, strong, sign = Font("Arial", 9, ""), Font("Arial", 9, "b"), Font("Arial", 9, "i")
        for caption, link_column, table, other in (
                ("Table 1. ", 0, [
                    ["Season", "", "Mean temperature", "Rain"], ["Winter", "", MINUS + "0.8 \u00b0C", "139 mm"],
                    ["Spring", "", "7.1 \u00b0C", "125 mm"], ["Summer", "", "17.0 \u00b0C", "196 mm"],
                    ["Autumn", "", "7.9 \u00b0C", "195 mm"]], {0: strong}),
                ("Table 3. ", 1, [[month, "Season" if month == "Month" else SEASON[month], *values] for month, *values in SHEET] +
                 [["Year", "", "7.8", "31.4", MINUS + "12.9", "655"]], {0: strong, 13: strong}),
                ("Table 2. ", 2, [
                    ["Sign", "Meaning", "First used in"],
                    [DELTA_T, "mean above that of 1995 to 2024", "The year at a glance"],
                    [SIGMA, "standard deviation", "How we measure"]], {0: strong, (1, 0): sign, (2, 0): sign})):
            rows, note_fonts = self.cells(caption)
            self.assertEqual(table, [[text for text, _ in row] for row in rows])
            for r, row in enumerate(rows):
                for c, (text, fonts) in enumerate(row):
                    font = other.get((r, c), other.get(r, plain))
                    if r > 0 and c == link_column:  # as links look
                        font = dataclasses.replace(font, attributes=font.attributes + "u")
                    self.assertEqual({font} if text else set(), fonts, text)
            self.assertEqual({Font("Arial", 8, "i")}, note_fonts)

    def test_tables_are_shown(self):
        for number, rows in ((3, [["Season", "Mean temperature", "Rain"], ["Winter", MINUS + "0.8 \u00b0C", "139 mm"]]),
                             (6, [["January", "Winter", *SHEET[1][1:]], ["Year", "7.8", "31.4", MINUS + "12.9", "655"]]),
                             (5, [["Sign", "Meaning", "First used in"], [SIGMA, "standard deviation", "How we measure"]])):
            shown = [re.split(r" {2,}", line.strip()) for line in self.pages("-layout")[number - 1].splitlines()]
            for row in rows:
                self.assertIn(row, shown)

    def test_fonts_in_the_text(self):
        body = self.file.body
        for text, font in (("The Weather of 2025", Font("Arial", 32, "b")),
                           ("0.6 degrees above", Font("Times New Roman", 11, "i")),
                           (" that of the thirty years before (", Font("Times New Roman", 11, "")),
                           ("15:20   31.1   0.0", Font("Courier New", 9, "")), ("13.2", Font("Courier New", 9, "s")),
                           ("31.2", Font("Courier New", 9, "u")), ("  digits swapped, A. Berg", Font("Courier New", 9, "")),
                           ("highest of the year, see ", Font("Courier New", 9, "b")),
                           ("A. Berg, for the observers", Font("Times New Roman", 11, ""))):
            self.assertEqual(font, body.font_of(text))

    def test_header_and_footer_stand_on_every_page_but_the_first(self):
        first, *others = [[line.strip() for line in page.splitlines() if line.strip()] for page in self.pages("-layout")]
        self.assertNotIn("Lindholm Observatory  ", " ".join(first))
        self.assertNotIn("Page", " ".join(first))
        for number, lines in enumerate(others, 2):
            titles = ["Lindholm Observatory", "The Weather of 2025", "Start \u00b7 Contents \u00b7 End"]
            if number >= 6:
                titles[1:] = ["Appendix", "Month by month \u00b7 Contents"]
            self.assertEqual(titles, re.split(r" {2,}", lines[0]))
            self.assertRegex(lines[-1], rf"^\d\d?/\d\d?/\d+ +Page {number} +Sources \u00b7 www\.lindholm\.example$")

    def test_a_picture_is_a_link(self):
        self.assertEqual(["#" + self.bookmark("Contents"), HOME_PAGE], documents.linked_pictures(self.document))

    def test_pictures_have_their_sizes(self):
        icon = [picture for picture in documents.pictures(self.pdf) if picture[0] == 4]
        self.assertEqual(1, len(icon), "the icon of the sheet")
        self.assertEqual([(1, 120, 120)] + [(3, 20, 20)] * 4 + icon + [(6, 48, 48)], documents.pictures(self.pdf))

    def test_the_sheet_is_in_the_document(self):
        self.assertIn((FILES / "yearly.xls").read_bytes().hex(), re.sub(r"\s", "", self.document.read_text("ascii")).lower())

    def assertLeads(self, expected, story):
        """The links of the story, but for those in the table of contents, show and lead to what is expected."""
        links = [(story.text[start:end], target) for start, end, target in story.links if not target.startswith("#_Toc")]
        self.assertEqual([label for label, _ in expected], [label for label, _ in links])
        for (label, beginning), (_, target) in zip(expected, links):
            marked = self.file.text_at(target[1:]) if target.startswith("#") else target
            self.assertTrue(marked.startswith(beginning), f"{label!r} leads to {marked[:40]!r}")

    def test_links_lead_where_they_should(self):
        self.assertLeads(BODY_LINKS, self.file.body)
        unused, header, appendix = self.file.headers
        self.assertLeads([], unused)
        self.assertLeads(HEADER_LINKS, header)
        self.assertLeads(APPENDIX_HEADER_LINKS, appendix)
        self.assertLeads([], self.file.footers[0])
        self.assertLeads(FOOTER_LINKS, self.file.footers[1])

    def bookmark(self, label):
        """The name that the target of this link bears in Word."""
        return next(target[1:] for story in self.file.stories for start, end, target in story.links
                    if story.text[start:end] == label)

    def test_tags_stand_everywhere(self):
        body = self.file.body
        self.assertEqual(0, body.bookmarks[self.bookmark("Start")][0])
        self.assertEqual(0, body.bookmarks[self.bookmark("the cover")][0])
        self.assertNotEqual(self.bookmark("Start"), self.bookmark("the cover"))
        self.assertEqual(body.bookmarks[self.bookmark("rose above its banks")][0], body.bookmarks[self.bookmark("Autumn")][0])
        self.assertEqual(0, self.file.headers[1].bookmarks[self.bookmark("head of each page")][0])
        self.assertTrue(body.text.endswith("for the observers\n"))
        self.assertEqual([len(body.text) - 1] * 2, body.bookmarks[self.bookmark("End")])

    def test_links_are_shown(self):
        targets = [(body.text[start:end], target) for body in [self.file.body] for start, end, target in body.links]
        self.assertEqual([link for link in targets if not link[1].startswith("#_Toc")], documents.links(self.document))

    def test_links_are_followed(self):
        places = documents.marked_texts(self.document)
        for story in self.file.stories:
            for name in story.bookmarks:
                self.assertEqual(re.match(r"[^\t\n]*", self.file.text_at(name))[0],
                                 re.match(r"[^\t\n]*", places[name])[0], name)

    def test_links_lead_to_pages(self):
        pages = [set(links) for links in Pdf(self.pdf).links()]
        start, contents, sources = 1, 2, 5
        margins = {start, contents, 6, sources, HOME_PAGE}
        self.assertEqual([set(), margins | {3, 4}, margins | {3}, margins | {3}, margins | {3}], pages[:5])
        self.assertEqual({4, contents, sources, HOME_PAGE, 3, start}, pages[5])


class ReportByFragments(Report):
    pen = 2

    def test_it_looks_as_with_typed_calls(self):
        """Every word stands in its place, but for those of the line with the time."""
        def without_time(words):
            line = next((page, y) for page, _, y, word in words if word == "report.doc,")
            return [word for word in words if (word[0], word[2]) != line]
        typed, found = without_time(Report.made[1][-1]), without_time(self.words)
        self.assertGreater(len(typed), 1000)
        self.assertEqual(typed, found)
