// Writes links of every kind, from a script host. On Windows, with mirovelcom installed:
//   cscript links.js C:\Documents\links.doc ...\samples\report-files
// Where mirovelcom is built, with the Word stand-in under Wine:
//   scripts/run-client samples/jscript/links.js --log /tmp/links.log -- 'Z:\tmp\links.doc' \
//       'Z:\...\samples\report-files'
//
// It is composed (the setting Word/Compose): each link covers just its text, and may lead to a tag that is placed later.
var embeddedFile = 0, linkedFile = 2, linkToFile = 4;
var landscape = 1;
var homePage = "http://www.lindholm.example/";

var mirovel, files;

function endLine(text) {
    mirovel.insertText(text);
    mirovel.insertEndl();
}

// A tag may be used before it is placed, and is drawn if it is placed before the document is closed.
function writeReferences() {
    mirovel.insertXref("The end", "end");
    endLine(" of this page,");
    mirovel.insertXref("a place that nobody made", "nowhere");
    endLine(",");
    mirovel.insertTag("Start");
    mirovel.insertXref("the start", "Start");
    endLine(",");
    mirovel.insertXref("another tag", "start");
    endLine(" whose name differs in case.");
    mirovel.insertXref("No link", "");
    endLine(" where there is no target.");
}

function writeAddresses() {
    mirovel.insertXref("The observatory", homePage);
    endLine(".");
    mirovel.insertFile(homePage, embeddedFile);
    endLine(".");
    mirovel.insertXref("A file", files + "\\method.rtf");
    endLine(".");
    mirovel.insertFile(files + "\\method.rtf", linkedFile);
    endLine(".");
    mirovel.insertFile(files + "\\missing.txt", linkToFile);
    endLine(".");
    mirovel.insertFile(files + "\\missing.txt", linkedFile);
    endLine("Nothing was inserted in front of this.");
}

function writeMarkup() {
    endLine("See <a href=\"" + homePage + "log\">the log</a> and <a href=\"#GUID 7\">item 7</a>.");
    mirovel.insertTag("GUID 7");
    endLine("This is item 7.");
}

function writePictures() {
    mirovel.insertImage(files + "\\winter.bmp", "end");
    endLine(" leads to the end.");
    mirovel.insertImage(files + "\\summer.bmp", homePage);
    endLine(" leads to the observatory.");
    mirovel.insertFile(files + "\\yearly.xls", linkedFile);
    endLine(" stays outside.");
}

function writeLinksInCells() {
    mirovel.startTable();
    mirovel.addRow();
    mirovel.addCell();
    mirovel.insertXref("Start", "Start");
    mirovel.addCell();
    mirovel.insertXref("Observatory", homePage);
    mirovel.endTable();
    mirovel.insertEndl();
}

function writeLinks(fileName) {
    mirovel = new ActiveXObject("Mirovel.Mirovel");
    // The installer sets this for the machine; the DLL alone does not.
    mirovel.overrideRegistry("Word", "Compose", "1", 2);
    mirovel.start();
    mirovel.create(fileName);
    // To find out why a document fails, have it written down:
    // mirovel.overrideRegistry("Log", "Diagnostics", "C:\\Documents\\diagnostics.log", 1);
    mirovel.trace(10);
    mirovel.setOrientation(landscape);
    writeReferences();
    writeAddresses();
    writeMarkup();
    writePictures();
    writeLinksInCells();
    mirovel.insertTag("end");
    endLine("The end.");
    mirovel.close();
    mirovel.stop();
}

if (WScript.Arguments.Count() !== 2) {
    WScript.Echo("usage: links.js DOCUMENT FOLDER-OF-FILES");
    WScript.Quit(2);
}
files = WScript.Arguments.Item(1);

try {
    writeLinks(WScript.Arguments.Item(0));
} catch (e) {
    WScript.Echo("The links could not be written: " + e.description);
    WScript.Quit(1);
}
