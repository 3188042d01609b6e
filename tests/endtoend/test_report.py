"""The report that uses every method, and the sample of links: alike in three languages, and as it should be when another
program opens it."""

import re
import subprocess

from support import documents
from support.endtoend import BUILD, ROOT, EndToEndTest, windows
from support.pdf import Pdf

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
            self.assertEqual(outcomes[0].transcript, other.transcript)
            self.assertEqual(outcomes[0].log, other.log)
            self.assertEqual(outcomes[0].output, other.output)
        return outcomes[0]


class Clients(SampleTest):
    def test_every_method_is_called_in_every_language(self):
        idl = (ROOT / "server" / "mirovelcom.idl").read_text("ascii")
        methods = re.findall(r"^ *\[id\(\d+\)\] HRESULT (\w+)\(", idl, re.MULTILINE)
        self.assertEqual(42, len(methods))
        for source in sources("report"):
            text = source.read_text("ascii")
            self.assertEqual([], [m for m in methods if not re.search(rf"(mirovel\.|mirovel_->|IDocument::){m}\b", text)])

    def test_the_report_is_the_same_in_every_language(self):
        outcome = self.check_alike("report")
        self.assertEqual(["Document type: Word", "Settings page: {5C2E7A11-3B41-4D8E-9F62-A1B3C4D5E6F7}"], outcome.output)
        self.assertEqual([], [line for line in outcome.transcript if " !! " in line])

    def test_the_links_are_the_same_in_every_language(self):
        outcome = self.check_alike("links")
        self.assertEqual([], [line for line in outcome.transcript if " !! " in line])
        added = [re.search(r'Hyperlinks@\d+\.Add\(Range@\d+, "(.*?)", "(.*?)"', line) for line in outcome.transcript]
        method, missing = (windows(FILES / name).replace("\\", "\\\\") for name in ("method.rtf", "missing.txt"))
        self.assertEqual([
            ("", "b1"), ("", "b3"), (HOME_PAGE, ""), (HOME_PAGE, ""), (method, ""), (method, ""),
            ("", missing.replace("\\", "\\\\")), (HOME_PAGE + "log", ""), ("", "b5"), ("", "b1"), (HOME_PAGE, ""),
            ("", "b3"), (HOME_PAGE, "")], [(m[1], m[2]) for m in added if m])
        self.assertEqual(["ERR File not found: " + windows(FILES / "missing.txt")] * 2,
                         [line for line in outcome.log_lines if line.startswith("ERR")])

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


class Report(SampleTest):
    """As LibreOffice shows it."""

    made = None

    def setUp(self):
        if Report.made is None:
            document, _ = self.run_sample(clients("report")[0], "report")
            Report.made = document, documents.pdf_of(document)
        self.document, self.pdf = Report.made

    def pages(self, *options):
        return documents.pages_of(self.pdf, *options)

    def test_pages_stand_upright(self):
        self.assertEqual([(612, 792)] * 6, documents.page_sizes(self.pdf))

    def test_text_stands_in_order(self):
        pages = [" ".join(page.split()) for page in self.pages("-raw")]
        expected = [
            (1, ["The Weather of 2025", "Yearly report of the Lindholm Observatory", "Printed on ", " at ",
                 " from the file report.doc"]),
            (2, ["Table of Contents"]),
            (3, ["The year at a glance", "2025 was a mild year", "0.6 degrees above that of the thirty years",
                 "without a gap on 363 days.", "The seasons", "Winter stands for", "Table 1. Mean temperature",
                 "Mean temperature", "Winter", "139 mm", "Autumn", "195 mm", "The mean of a season",
                 "Summer: 31.4 \u00b0C on the 12th of July", "Only three summers", "Autumn: a wet October",
                 "since the gauge was built."]),
            (4, ["Month by month", "Temperature and rain", "July was both", "the appendix has the figures.",
                 "Figure 1. Rain and mean", "The figures to work with", "drawn in another way."]),
            (5, ["How we measure", "From a reading to a mean", "has been the same since 1931:", "1. Reading.",
                 "2. Checking.", "3. Averaging.", "4. Keeping.", "the observer who made it.", "The log",
                 "Observers keep the log by hand.", "15:20 31.1 0.0", "15:30 13.2 0.0 31.2 digits swapped",
                 "15:40 31.4 0.0 highest of the year", "The observatory", "the readings of today:",
                 "A. Berg, for the observers"]),
            (6, ["Appendix: the months in figures", "Temperatures are in", "Table 2. The months of 2025", "Month",
                 "January", "December", "Year", "The year's row holds"]),
        ]
        self.assertEqual(len(expected), len(pages))
        for number, texts in expected:
            at = 0
            for text in texts:
                found = pages[number - 1].find(text, at)
                self.assertGreaterEqual(found, 0, f"{text!r} behind {pages[number - 1][:at]!r} in {pages[number - 1]!r}")
                at = found + len(text)

    def test_date_and_time_are_there(self):
        self.assertRegex(" ".join(self.pages()[0].split()),
                         r"Printed on \d\d?/\d\d?/\d+ at \d\d?:\d\d(:\d\d)?( [AP]M)? from the file report\.doc")

    OUTLINE = [
        (1, "The year at a glance", 3), (2, "The seasons", 3), (3, "Summer: 31.4 \u00b0C on the 12th of July", 3),
        (3, "Autumn: a wet October", 3), (1, "Month by month", 4), (2, "Temperature and rain", 4),
        (2, "The figures to work with", 4), (1, "How we measure", 5), (2, "From a reading to a mean", 5),
        (2, "The log", 5), (2, "The observatory", 5), (1, "Appendix: the months in figures", 6)]

    def test_headings_have_three_levels(self):
        self.assertEqual(self.OUTLINE, Pdf(self.pdf).outline())

    def test_the_table_of_contents_lists_headings_and_entries(self):
        page = self.pages("-layout")[1]
        entries = [(m[1], int(m[2])) for m in re.finditer(r"^ *(\S.*?) ?\.{3,} ?(\d+)$", page, re.MULTILINE)]
        # At the third level it is not the headings that are listed but what was made an entry of.
        expected = [(text.partition(":")[0] if level == 3 else text, number) for level, text, number in self.OUTLINE]
        self.assertEqual(expected, entries)

    def test_tables_hold_their_cells(self):
        rows = [re.split(r" {2,}", line.strip()) for line in self.pages("-layout")[2].splitlines()]
        for row in (["Season", "Mean temperature", "Rain"], ["Winter", "-0.8 \u00b0C", "139 mm"],
                    ["Spring", "7.1 \u00b0C", "125 mm"], ["Summer", "17.0 \u00b0C", "196 mm"],
                    ["Autumn", "7.9 \u00b0C", "195 mm"]):
            self.assertIn(row, rows)
        rows = [line.split() for line in self.pages("-layout")[5].splitlines()]
        sheet = [line.split("\t") for line in (FILES / "yearly.xls").read_text("ascii").splitlines()]
        for row in sheet + [["Year", "7.8", "31.4", "-12.9", "655"]]:
            self.assertIn(row, rows)

    def test_header_and_footer_stand_on_every_page_but_the_first(self):
        first, *others = [[line.strip() for line in page.splitlines() if line.strip()] for page in self.pages("-layout")]
        self.assertNotIn("Lindholm Observatory  ", " ".join(first))
        self.assertNotIn("Page", " ".join(first))
        for number, lines in enumerate(others, 2):
            titles = ["Lindholm Observatory", "The Weather of 2025", "Contents"]
            if number == 6:
                titles[1:] = ["Appendix", "Month by month"]
            self.assertEqual(titles, re.split(r" {2,}", lines[0]))
            self.assertRegex(lines[-1], rf"^\d\d?/\d\d?/\d+ +Page {number} +www\.lindholm\.example$")

    def test_links_lead_where_they_should(self):
        links = Pdf(self.pdf).links()
        self.assertEqual([], links[0])
        self.assertEqual(sorted([page for _, _, page in self.OUTLINE] + [2, HOME_PAGE], key=str), sorted(links[1], key=str))
        for number in (3, 4, 5):
            self.assertEqual([2, HOME_PAGE], sorted(links[number - 1], key=str))
        self.assertEqual([4, HOME_PAGE], sorted(links[5], key=str))

    def test_a_picture_is_a_link(self):
        self.assertEqual([HOME_PAGE], documents.linked_pictures(self.document))

    def test_pictures_have_their_sizes(self):
        icon = [picture for picture in documents.pictures(self.pdf) if picture[0] == 4]
        self.assertEqual(1, len(icon), "the icon of the sheet")
        self.assertEqual([(1, 120, 120)] + [(3, 20, 20)] * 4 + icon + [(5, 48, 48)], documents.pictures(self.pdf))

    def test_the_sheet_is_in_the_document(self):
        self.assertIn((FILES / "yearly.xls").read_bytes().hex(), re.sub(r"\s", "", self.document.read_text("ascii")).lower())
