// Writes a report with everything that a document can hold, from a script host:
//   scripts/run-client samples/jscript/report.js --log /tmp/report.log -- 'Z:\tmp\report.doc' \
//       'Z:\...\samples\report-files'
var alignLeft = 1, alignCentred = 2, alignRight = 3, alignJustified = 4;
var bold = 1, italic = 2, underline = 4, strike = 8;
var fieldDate = 1, fieldTime = 2, fieldFileName = 3, fieldPage = 4;
var embedded = 0, portrait = 0;
var textSetting = 1, numberSetting = 2;
var homePage = "http://www.lindholm.example/";

var mirovel, files, degrees = " \u00b0C";

function startDocument(fileName) {
    mirovel = new ActiveXObject("Mirovel.Mirovel");
    WScript.Echo("Document type: " + mirovel.getDocType());
    WScript.Echo("Settings page: " + mirovel.getPropPages());
    mirovel.overrideRegistry("Word", "WordTemplateName", files + "\\report.dot", textSetting);
    mirovel.overrideRegistry("Word", "TOCLevel", "2", numberSetting);
    mirovel.trace(10);
    mirovel.start();
    mirovel.create(fileName);
    mirovel.setOrientation(portrait);
}

// They do nothing; clients that still make them go on working.
function makeOldCalls() {
    mirovel.setOption("quality", "best");
    mirovel.pushDirectory(files);
    mirovel.startFile("report");
    mirovel.insertDiagram(0, 100, 100);
    mirovel.insertMark(0, true);
    mirovel.insertLocate();
    mirovel.popDirectory();
}

function writeLine(style, text) {
    mirovel.setStyle(style);
    mirovel.insertText(text);
    mirovel.insertEndl();
}

function writeParagraph(text) {
    writeLine("Body Text", text);
}

// The table of contents lists the first part of the heading only.
function writeHeadingWithEntry(text, more) {
    mirovel.setStyle("Heading 3");
    mirovel.startTOCEntry();
    mirovel.insertText(text);
    mirovel.endTOCEntry();
    mirovel.insertText(more);
    mirovel.insertEndl();
}

function writeEmphasized(attribute, text) {
    mirovel.setFontAttribute(attribute, true);
    mirovel.insertText(text);
    mirovel.setFontAttribute(attribute, false);
}

function writeCell(text) {
    mirovel.addCell();
    mirovel.setTextAlign(alignLeft);
    mirovel.insertText(text);
}

// An alignment reaches to the next one, and a table's last no further than its cell. So every cell begins its own.
function writeNumberCell(text) {
    mirovel.addCell();
    mirovel.setTextAlign(alignLeft);
    mirovel.setTextAlign(alignRight);
    mirovel.insertText(text);
}

// A font reaches to the cell where the next one is set, and in each row no further than that cell's column. So a font
// for whole rows is set in a first column and ended in a last one.
function setTableFont(isBold) {
    mirovel.setFontName("Arial");
    mirovel.setFontSize(9);
    mirovel.setFontAttribute(bold, isBold);
}

// What is in force when a table begins must be Normal: the text behind the table would otherwise go astray.
function startTable(caption, rowHeight) {
    writeLine("Caption", caption);
    mirovel.setStyle("Normal");
    mirovel.startTable();
    mirovel.addRow();
    mirovel.setTableRowHeight(rowHeight);
    mirovel.addCell();
    setTableFont(true);
}

// A table leaves a space at the start of the paragraph behind it.
function endTable(note) {
    mirovel.endTable();
    mirovel.insertEndl();
    writeLine("Table Note", note);
}

function writeTitlePage() {
    mirovel.setTextAlign(alignCentred);
    for (var i = 0; i < 6; i++) {
        mirovel.insertEndl();
    }
    mirovel.insertImage(files + "\\logo.gif", "");
    mirovel.insertEndl();
    writeLine("Title", "The Weather of 2025");
    writeLine("Subtitle", "Yearly report of the Lindholm Observatory");
    mirovel.setStyle("Normal");
    for (var i = 0; i < 12; i++) {
        mirovel.insertEndl();
    }
    mirovel.insertText("Printed on ");
    mirovel.insertField(fieldDate);
    mirovel.insertText(" at ");
    mirovel.insertField(fieldTime);
    mirovel.insertText(" from the file ");
    mirovel.insertField(fieldFileName);
    mirovel.insertEndl();
    mirovel.setTextAlign(alignJustified);
    mirovel.insertPageBreak();
}

// The footer comes before the tag: it turns the page break into a new section, and what stands at the break would get
// in front of it. The header comes behind the tag, because it leads there.
//
// A tag reaches to the next one. Not all readers find one that has a table of contents in it, so another one ends it
// before that.
function writeContentsPage() {
    mirovel.startFooter();
    mirovel.insertField(fieldDate);
    mirovel.insertText("\tPage ");
    mirovel.insertField(fieldPage);
    mirovel.insertText("\t<a href=\"" + homePage + "\">www.lindholm.example</a>");
    mirovel.endFooter();

    mirovel.insertTag("contents");
    mirovel.insertEndl();
    mirovel.insertTag("list");
    mirovel.insertTOC();

    mirovel.startHeader();
    mirovel.insertText("Lindholm Observatory\t");
    writeEmphasized(italic, "The Weather of 2025");
    mirovel.insertText("\t");
    mirovel.insertXref("Contents", "contents");
    mirovel.endHeader();
    mirovel.insertPageBreak();
}

function writeSeason(name, picture, mean, rain) {
    mirovel.addRow();
    writeCell(name);
    mirovel.addCell();
    mirovel.setTextAlign(alignCentred);
    mirovel.insertImage(files + "\\" + picture, "");
    writeNumberCell(mean + degrees);
    writeNumberCell(rain + " mm");
}

function writeYear() {
    writeLine("Heading 1", "The year at a glance");
    mirovel.setStyle("Body Text");
    mirovel.insertText("2025 was a mild year with a wet second half. The mean temperature was 7.8" + degrees + ", ");
    writeEmphasized(italic, "0.6 degrees above");
    mirovel.insertText(" that of the thirty years before. 655 millimetres of rain and melted snow fell, and " +
        "six tenths of it fell in the six months from July to December. The station was read without a gap on " +
        "363 days.");
    mirovel.insertEndl();

    writeLine("Heading 2", "The seasons");
    writeParagraph("Winter stands for January, February and December of the same year. Spring stayed dry until " +
        "the last week of May; summer and autumn brought nearly the same rain, though summer's came in a few " +
        "heavy storms.");
    startTable("Table 1. Mean temperature and rain of the seasons", 26);
    mirovel.insertText("Season");
    writeCell("");
    writeNumberCell("Mean temperature");
    writeNumberCell("Rain");
    setTableFont(false);
    writeSeason("Winter", "winter.bmp", "-0.8", "139");
    writeSeason("Spring", "spring.bmp", "7.1", "125");
    writeSeason("Summer", "summer.bmp", "17.0", "196");
    writeSeason("Autumn", "autumn.bmp", "7.9", "195");
    setTableFont(false);
    endTable("The mean of a season is that of its three months.");

    writeHeadingWithEntry("Summer", ": 31.4" + degrees + " on the 12th of July");
    writeParagraph("The highest reading of the year was taken at 15:40 on the second day of a week without " +
        "wind. Only three summers of the station's records were warmer.");
    writeHeadingWithEntry("Autumn", ": a wet October");
    writeParagraph("69 millimetres fell in October, most of them in the night to the 21st, when the brook " +
        "behind the station rose above its banks for the first time since the gauge was built.");
}

function writeMonths() {
    mirovel.insertPageBreak();
    mirovel.insertTag("months");
    writeLine("Heading 1", "Month by month");
    writeLine("Heading 2", "Temperature and rain");
    writeParagraph("July was both the warmest month and one of the wettest. The coldest night, that to the 9th " +
        "of January, brought 12.9 degrees of frost. The line shows the mean of each month, the bars the rain " +
        "of each month; the appendix has the figures.");
    mirovel.setTextAlign(alignCentred);
    mirovel.insertImage(files + "\\chart.emf", "");
    mirovel.insertEndl();
    writeLine("Figure Note", "Figure 1. Rain and mean temperature of each month");
    mirovel.setTextAlign(alignJustified);

    writeLine("Heading 2", "The figures to work with");
    writeParagraph("The sheet below belongs to this document. A double click opens it with the figures of all " +
        "months, to be sorted, summed up or drawn in another way.");
    mirovel.setTextAlign(alignCentred);
    mirovel.insertFile(files + "\\yearly.xls", embedded);
    mirovel.insertEndl();
    mirovel.setTextAlign(alignJustified);
}

function writeMethod() {
    mirovel.insertPageBreak();
    writeLine("Heading 1", "How we measure");
    writeLine("Heading 2", "From a reading to a mean");
    writeParagraph("The thermometers hang two metres above the grass in a white louvred box; the rain gauge " +
        "stands ten metres to the south of it. What happens to a reading before it reaches a table has been " +
        "the same since 1931:");
    mirovel.insertFile(files + "\\method.rtf", embedded);

    writeLine("Heading 2", "The log");
    writeParagraph("Observers keep the log by hand. Its columns are the time, the temperature and the rain " +
        "since midnight. A line through a reading says that it was corrected, and the correction is underlined:");
    mirovel.setStyle("Normal");
    mirovel.setTextAlign(alignLeft);
    mirovel.setFontName("Courier New");
    mirovel.setFontSize(9);
    mirovel.insertText("15:20   31.1   0.0");
    mirovel.insertEndl();
    mirovel.insertText("15:30   ");
    writeEmphasized(strike, "13.2");
    mirovel.insertText("   0.0   ");
    writeEmphasized(underline, "31.2");
    mirovel.insertText("  digits swapped, A. Berg");
    mirovel.insertEndl();
    mirovel.insertText("15:40   31.4   0.0   ");
    writeEmphasized(bold, "highest of the year");
    mirovel.insertEndl();
}

function writeContact() {
    writeLine("Heading 2", "The observatory");
    mirovel.setTextAlign(alignJustified);
    writeParagraph("The observatory is open to visitors on the first Sunday of each month. Its sign leads to " +
        "the readings of today:");
    mirovel.setTextAlign(alignCentred);
    mirovel.insertImage(files + "\\sign.bmp", homePage);
    mirovel.insertEndl();
    mirovel.setStyle("Body Text");
    mirovel.setTextAlign(alignRight);
    mirovel.insertText("A. Berg, for the observers");
    mirovel.insertEndl();
    mirovel.setTextAlign(alignJustified);
}

function writeMonth(name, mean, highest, lowest, rain) {
    mirovel.addRow();
    writeCell(name);
    writeNumberCell(mean);
    writeNumberCell(highest);
    writeNumberCell(lowest);
    writeNumberCell(rain);
}

function writeAppendix() {
    mirovel.insertPageBreak();
    mirovel.startHeader();
    mirovel.insertText("Lindholm Observatory\t");
    writeEmphasized(italic, "Appendix");
    mirovel.insertText("\t");
    mirovel.insertXref("Month by month", "months");
    mirovel.endHeader();

    writeLine("Heading 1", "Appendix: the months in figures");
    writeParagraph("Temperatures are in degrees Celsius, rain is in millimetres.");
    startTable("Table 2. The months of 2025", 20);
    mirovel.insertText("Month");
    writeNumberCell("Mean");
    writeNumberCell("Highest");
    writeNumberCell("Lowest");
    writeNumberCell("Rain");
    setTableFont(false);
    writeMonth("January", "-1.8", "6.4", "-12.9", "48");
    writeMonth("February", "-0.9", "8.1", "-11.2", "36");
    writeMonth("March", "2.7", "14.6", "-6.8", "41");
    writeMonth("April", "6.9", "20.3", "-2.1", "39");
    writeMonth("May", "11.8", "25.7", "1.4", "45");
    writeMonth("June", "15.6", "28.9", "5.8", "58");
    writeMonth("July", "18.3", "31.4", "8.9", "67");
    writeMonth("August", "17.1", "30.2", "7.7", "71");
    writeMonth("September", "12.9", "24.8", "2.6", "62");
    writeMonth("October", "7.8", "17.9", "-1.9", "69");
    writeMonth("November", "3.1", "11.5", "-5.3", "64");
    writeMonth("December", "0.2", "8.8", "-9.6", "55");
    setTableFont(false);
    mirovel.addRow();
    mirovel.addCell();
    mirovel.setTextAlign(alignLeft);
    setTableFont(true);
    mirovel.insertText("Year");
    writeNumberCell("7.8");
    writeNumberCell("31.4");
    writeNumberCell("-12.9");
    writeNumberCell("655");
    setTableFont(false);
    endTable("The year's row holds the mean of the means, the extremes, and the sum of the rain.");
}

function writeReport(fileName) {
    startDocument(fileName);
    makeOldCalls();
    writeTitlePage();
    writeContentsPage();
    writeYear();
    writeMonths();
    writeMethod();
    writeContact();
    writeAppendix();
    mirovel.close();
    mirovel.showLast();
    mirovel.stop();
}

if (WScript.Arguments.Count() !== 2) {
    WScript.Echo("usage: report.js DOCUMENT FOLDER-OF-FILES");
    WScript.Quit(2);
}
files = WScript.Arguments.Item(1);

try {
    writeReport(WScript.Arguments.Item(0));
} catch (e) {
    WScript.Echo("The report could not be written: " + e.description);
    WScript.Quit(1);
}
