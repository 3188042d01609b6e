// Writes a report with everything that a document can hold, from a script host. On Windows, with mirovelcom installed:
//   cscript report.js C:\Documents\report.doc ...\samples\report-files
// Where mirovelcom is built, with the Word stand-in under Wine:
//   scripts/run-client samples/jscript/report.js --log /tmp/report.log -- 'Z:\tmp\report.doc' \
//       'Z:\...\samples\report-files'
//
// It is composed (the setting Word/Compose): links, tags and the table of contents stand where they were asked for, and
// formatting reaches exactly as far as it was set.
var alignLeft = 1, alignCentred = 2, alignRight = 3, alignJustified = 4;
var bold = 1, italic = 2, underline = 4, strike = 8;
var fieldDate = 1, fieldTime = 2, fieldFileName = 3, fieldPage = 4;
var embedded = 0;
var textSetting = 1, numberSetting = 2;
var homePage = "http://www.lindholm.example/";
var bullet = "\u2022", dot = " \u00b7 ", degrees = " \u00b0C", deltaT = "\u0394T", sigma = "\u03c3", minus = "\u2212";

var mirovel, files;

function startDocument(fileName) {
    mirovel = new ActiveXObject("Mirovel.Mirovel");
    WScript.Echo("Document type: " + mirovel.getDocType());
    WScript.Echo("Settings page: " + mirovel.getPropPages());
    mirovel.overrideRegistry("Word", "WordTemplateName", files + "\\report.dot", textSetting);
    mirovel.overrideRegistry("Word", "TableStyle", "Report Table", textSetting);
    mirovel.overrideRegistry("Word", "TOCTitle", "Contents", textSetting);
    mirovel.overrideRegistry("Word", "TOCLevel", "2", numberSetting);
    mirovel.overrideRegistry("Word", "Compose", "1", numberSetting);
    // To find out why a document fails, have it written down:
    // mirovel.overrideRegistry("Log", "Diagnostics", "C:\\Documents\\diagnostics.log", 1);
    mirovel.trace(10);
    mirovel.start();
    mirovel.create(fileName);
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

function writePoint(sign, text) {
    writeLine("Point", sign + "\t" + text);
}

function link(label, target) {
    return "<a href=\"" + target + "\">" + label + "</a>";
}

function writeTitle(tag, title) {
    mirovel.insertTag(tag);
    mirovel.insertText(title);
    mirovel.insertEndl();
}

function startChapter(tag, title) {
    mirovel.setStyle("Heading 1");
    mirovel.insertPageBreak();
    writeTitle(tag, title);
}

function writeEmphasized(attribute, text) {
    mirovel.setFontAttribute(attribute, true);
    mirovel.insertText(text);
    mirovel.setFontAttribute(attribute, false);
}

function startCell(alignment) {
    mirovel.addCell();
    mirovel.setTextAlign(alignment);
}

function writeCell(text) {
    startCell(alignLeft);
    mirovel.insertText(text);
}

function writeNumberCell(text) {
    startCell(alignRight);
    mirovel.insertText(text.replace("-", minus));
}

function setTableFont(isBold) {
    mirovel.setFontName("Arial");
    mirovel.setFontSize(9);
    mirovel.setFontAttribute(bold, isBold);
}

function startTable(caption, rowHeight) {
    writeLine("Caption", caption);
    mirovel.startTable();
    mirovel.addRow();
    mirovel.setTableRowHeight(rowHeight);
    setTableFont(true);
}

function endTable(note) {
    mirovel.endTable();
    mirovel.setTextAlign(alignJustified);
    writeLine("Table Note", note);
}

function writeTitlePage() {
    mirovel.insertTag("start");
    mirovel.insertTag("cover");
    mirovel.setTextAlign(alignCentred);
    for (var i = 0; i < 6; i++) {
        mirovel.insertEndl();
    }
    mirovel.insertImage(files + "\\logo.gif", "contents");
    mirovel.insertEndl();
    writeLine("Title", "The Weather of 2025");
    writeLine("Subtitle", "Yearly report of the Lindholm Observatory");
    mirovel.setStyle("Normal");
    for (var i = 0; i < 12; i++) {
        mirovel.insertEndl();
    }
    mirovel.insertText("Printed on ");
    mirovel.insertField(fieldDate);
    mirovel.insertEndl();
    mirovel.setTextAlign(alignJustified);
    mirovel.insertPageBreak();
}

function writeHeaderAndFooter() {
    mirovel.startHeader();
    mirovel.insertTag("head");
    mirovel.insertText("Lindholm Observatory\t");
    writeEmphasized(italic, "The Weather of 2025");
    mirovel.insertText("\t");
    mirovel.insertXref("Start", "start");
    mirovel.insertText(dot);
    mirovel.insertXref("Contents", "contents");
    mirovel.insertText(dot);
    mirovel.insertXref("End", "end");
    mirovel.endHeader();

    mirovel.startFooter();
    mirovel.insertField(fieldDate);
    mirovel.insertText("\tPage ");
    mirovel.insertField(fieldPage);
    mirovel.insertText("\t" + link("Sources", "sources") + dot + link("www.lindholm.example", homePage));
    mirovel.endFooter();
}

function writeContentsPage() {
    mirovel.insertTag("contents");
    writeLine("TOC Heading", "The year in brief");
    writePoint(bullet, "The " + link("highest reading", "July") + " was 31.4" + degrees + ", in a hot " +
        link("summer", "Summer") + ".");
    writePoint(bullet, "The " + link("lowest reading", "January") + " was " + minus + "12.9" + degrees + ", in a mild " +
        link("winter", "Winter") + ".");
    writePoint(bullet, "The brook behind the station " + link("rose above its banks", "flood") + " in October.");
    writePoint(bullet, link("How we measure", "method") + " has not changed since 1931; " +
        link("the signs", "signs") + " we use are explained.");
    writePoint(bullet, "The " + link("head of each page", "head") + " leads back to this list.");
    mirovel.insertTOC();
}

// The table of contents lists the first part of the heading only.
function writeSeasonHeading(name, deviation, more) {
    mirovel.setStyle("Heading 3");
    mirovel.insertTag(name);
    mirovel.startTOCEntry();
    mirovel.insertText(name + " (");
    mirovel.insertXref(deltaT, "delta");
    mirovel.insertText(" +" + deviation + ")");
    mirovel.endTOCEntry();
    mirovel.insertText(more);
    mirovel.insertEndl();
}

function writeSeason(name, picture, mean, rain) {
    mirovel.addRow();
    startCell(alignLeft);
    mirovel.insertTag("Table 1, " + name);
    mirovel.insertXref(name, name);
    startCell(alignCentred);
    mirovel.insertImage(files + "\\" + picture, "");
    writeNumberCell(mean + degrees);
    writeNumberCell(rain + " mm");
}

function writeYear() {
    startChapter("year", "The year at a glance");
    mirovel.setStyle("Body Text");
    mirovel.insertText("2025 was a mild year with a wet second half. The mean temperature was 7.8" + degrees + ", ");
    writeEmphasized(italic, "0.6 degrees above");
    mirovel.insertText(" that of the thirty years before (" + link(deltaT + " +0.6", "delta") + "). 655 " +
        "millimetres of rain and melted snow fell, and six tenths of it fell in the six months from July to " +
        "December. The station was read without a gap on 363 days; the " + link("appendix", "figures") +
        " has the figures.");
    mirovel.insertEndl();

    writeLine("Heading 2", "The seasons");
    writeParagraph("Winter stands for January, February and December of the same year. Spring stayed dry until " +
        "the last week of May; summer and autumn brought nearly the same rain, though summer's came in a few " +
        "heavy storms.");
    mirovel.insertTag("seasons");
    startTable("Table 1. Mean temperature and rain of the seasons", 26);
    writeCell("Season");
    writeCell("");
    writeNumberCell("Mean temperature");
    writeNumberCell("Rain");
    setTableFont(false);
    writeSeason("Winter", "winter.bmp", "-0.8", "139");
    writeSeason("Spring", "spring.bmp", "7.1", "125");
    writeSeason("Summer", "summer.bmp", "17.0", "196");
    writeSeason("Autumn", "autumn.bmp", "7.9", "195");
    endTable("The mean of a season is that of its three months. Each season's name leads to what happened in it.");

    writeSeasonHeading("Winter", "0.4", ": snow on 31 days");
    writeParagraph("A mean of " + link(minus + "0.8" + degrees, "Table 1, Winter") + " hides one cold week: the " +
        "night to the 9th of January brought " + link("12.9 degrees of frost", "January") + ".");
    writeSeasonHeading("Spring", "0.2", ": 26 days without rain");
    writeParagraph("April began dry, as " + link("winter", "Winter") + " had ended. The drought broke with the " +
        "storms that led over to " + link("summer", "Summer") + ".");
    writeSeasonHeading("Summer", "1.2", ": 31.4" + degrees + " on the 12th of July");
    writeParagraph("The " + link("highest reading", "July") + " of the year was taken at 15:40 on the second day " +
        "of a week without wind; " + link("the log", "log") + " has it. Only three summers were warmer " +
        link("[1]", "source 1") + ".");
    mirovel.insertTag("flood");
    writeSeasonHeading("Autumn", "0.6", ": a flood in October");
    writeParagraph(link("69 millimetres", "October") + " fell in October, most of them in the night to the " +
        "21st, when the brook behind the station rose above its banks for the first time since the gauge was " +
        "built " + link("[1]", "source 1") + link("[2]", "source 2") + ".");
}

function writeMonths() {
    startChapter("months", "Month by month");
    writeLine("Heading 2", "Temperature and rain");
    writeParagraph(link("July", "July") + " was both the warmest month and one of the wettest. The coldest night " +
        "came in " + link("January", "January") + ". The line shows the mean of each month, the bars the rain of " +
        "each month. " + link("Table 1", "seasons") + " has the seasons, the " + link("appendix", "figures") +
        " the figures of each month.");
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
    startChapter("method", "How we measure");
    writeLine("Heading 2", "From a reading to a mean");
    writeParagraph("The thermometers hang two metres above the grass in a white louvred box; the rain gauge " +
        "stands ten metres to the south of it. What happens to a reading before it reaches a table has been " +
        "the same since 1931:");
    mirovel.insertFile(files + "\\method.rtf", embedded);
    writeParagraph("A month whose readings scatter by more than three " + link(sigma, "sigma") + " is marked in " +
        "the " + link("table of the months", "figures") + ". In 2025 there was none.");

    mirovel.insertTag("log");
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
    writeEmphasized(bold, "highest of the year, see " + link("Summer", "Summer"));
    mirovel.insertEndl();
    mirovel.setTextAlign(alignJustified);
}

function writeMonth(name, season, mean, highest, lowest, rain) {
    mirovel.addRow();
    startCell(alignLeft);
    mirovel.insertTag(name);
    mirovel.insertText(name);
    startCell(alignLeft);
    mirovel.insertXref(season, season);
    writeNumberCell(mean);
    writeNumberCell(highest);
    writeNumberCell(lowest);
    writeNumberCell(rain);
}

function writeFigures() {
    mirovel.insertPageBreak();
    mirovel.startHeader();
    mirovel.insertText("Lindholm Observatory\t");
    writeEmphasized(italic, "Appendix");
    mirovel.insertText("\t" + link("Month by month", "months") + dot + link("Contents", "contents"));
    mirovel.endHeader();

    mirovel.insertTag("figures");
    writeLine("Heading 1", "Appendix: the months in figures");
    writeParagraph("Temperatures are in degrees Celsius, rain is in millimetres.");
    startTable("Table 3. The months of 2025", 20);
    writeCell("Month");
    writeCell("Season");
    writeNumberCell("Mean");
    writeNumberCell("Highest");
    writeNumberCell("Lowest");
    writeNumberCell("Rain");
    setTableFont(false);
    writeMonth("January", "Winter", "-1.8", "6.4", "-12.9", "48");
    writeMonth("February", "Winter", "-0.9", "8.1", "-11.2", "36");
    writeMonth("March", "Spring", "2.7", "14.6", "-6.8", "41");
    writeMonth("April", "Spring", "6.9", "20.3", "-2.1", "39");
    writeMonth("May", "Spring", "11.8", "25.7", "1.4", "45");
    writeMonth("June", "Summer", "15.6", "28.9", "5.8", "58");
    writeMonth("July", "Summer", "18.3", "31.4", "8.9", "67");
    writeMonth("August", "Summer", "17.1", "30.2", "7.7", "71");
    writeMonth("September", "Autumn", "12.9", "24.8", "2.6", "62");
    writeMonth("October", "Autumn", "7.8", "17.9", "-1.9", "69");
    writeMonth("November", "Autumn", "3.1", "11.5", "-5.3", "64");
    writeMonth("December", "Winter", "0.2", "8.8", "-9.6", "55");
    mirovel.addRow();
    setTableFont(true);
    writeCell("Year");
    writeCell("");
    writeNumberCell("7.8");
    writeNumberCell("31.4");
    writeNumberCell("-12.9");
    writeNumberCell("655");
    endTable("The year's row holds the mean of the means, the extremes, and the sum of the rain.");
}

function writeSign(tag, sign, meaning, label, target) {
    mirovel.addRow();
    startCell(alignLeft);
    mirovel.insertTag(tag);
    writeEmphasized(italic, sign);
    writeCell(meaning);
    startCell(alignLeft);
    mirovel.insertXref(label, target);
}

function writeSigns() {
    mirovel.setStyle("Heading 1");
    writeTitle("signs", "Signs and sources");
    startTable("Table 2. Signs", 20);
    writeCell("Sign");
    writeCell("Meaning");
    writeCell("First used in");
    setTableFont(false);
    writeSign("delta", deltaT, "mean above that of 1995 to 2024", "The year at a glance", "year");
    writeSign("sigma", sigma, "standard deviation", "How we measure", "method");
    endTable("Both are in degrees Celsius.");

    mirovel.insertTag("sources");
    writeLine("Heading 2", "Sources");
    mirovel.insertTag("source 1");
    writePoint("[1]", "Lindholm Observatory: Daily readings since 1931. Used for " + link("Summer", "Summer") +
        " and " + link("Autumn", "Autumn") + ".");
    mirovel.insertTag("source 2");
    writePoint("[2]", "M. Lund: The brook and its floods. Used for " + link("Autumn", "Autumn") + ".");
}

function writeContact() {
    writeLine("Heading 1", "The observatory");
    writeParagraph("The observatory is open to visitors on the first Sunday of each month. Its sign, which is " +
        "also on " + link("the cover", "cover") + ", leads to the readings of today:");
    mirovel.setTextAlign(alignCentred);
    mirovel.insertImage(files + "\\sign.bmp", homePage);
    mirovel.insertEndl();
    mirovel.setStyle("Body Text");
    mirovel.setTextAlign(alignJustified);
    mirovel.insertText("This report is the file ");
    mirovel.insertField(fieldFileName);
    mirovel.insertText(", made at ");
    mirovel.insertField(fieldTime);
    mirovel.insertText(".");
    mirovel.insertEndl();
    mirovel.setTextAlign(alignRight);
    mirovel.insertText("A. Berg, for the observers");
    mirovel.insertTag("end");
}

function writeReport(fileName) {
    startDocument(fileName);
    makeOldCalls();
    writeTitlePage();
    writeHeaderAndFooter();
    writeContentsPage();
    writeYear();
    writeMonths();
    writeMethod();
    writeSigns();
    writeFigures();
    writeContact();
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
