// Rich text that Word reads into a document.

about("Rich text that is read in");

var fragmentStart = "{\\rtf1\\ansi\\ansicpg1252\\uc1\\deff0{\\fonttbl{\\f0 Arial;}{\\f1 Courier New;}}" +
    "{\\stylesheet{\\s0 Normal;}{\\s1 heading 1;}{\\s2\\b heading 2;}}";

/// Reads text in at a place; returns the range.
function insertRich(d, place, text) {
    var file = scratchFile("fragment.rtf"), range = d.Range(place, place);
    writeAscii(file, fragmentStart + text + "}");
    range.InsertFile(file, "", false, false);
    return range;
}

choice("insertFileTakesRtf", "Is rich text read in at all?", true, {"true": "yes", "false": "refused"}, function (d) {
    return errorOf(function () { insertRich(d, 0, "\\pard\\plain x\\par"); }) === 0;
});

choice("insertFileLastParagraph", "What becomes of the last paragraph's end?", "mark",
    {mark: "a paragraph mark", dropped: "nothing", surplus: "an empty paragraph behind it"}, function (d) {
        write(d, "abcd");
        insertRich(d, 2, "\\pard\\plain x\\par\\pard\\plain y\\par");
        var text = letters(d.Content);
        return text == "abx|y|cd|" ? "mark" : text == "abx|ycd|" ? "dropped" : text == "abx|y||cd|" ? "surplus" : text;
    });

choice("insertFileLeavesDefaultFont", "Text has the file's default font, and its style another one: does the font come along?", true,
    {"true": "no", "false": "yes, as direct formatting"}, function (d) {
        write(d, "abcd");
        d.Styles.Item(-1).Font.Name = "Courier New";
        insertRich(d, 0, "\\pard\\plain x\\par");
        return d.Range(0, 1).Font.Name == "Courier New";
    });

choice("insertFileKeepsDifferencesOnly", "Text says bold, as its style in the file does; the document's style is not bold.", true,
    {"true": "the text is not bold", "false": "the text is bold"}, function (d) {
        write(d, "abcd");
        d.Styles.Item(-3).Font.Bold = false;
        insertRich(d, 0, "\\pard\\plain\\s2\\b x\\par");
        return !d.Range(0, 1).Font.Bold;
    });

choice("insertFileRange", "Where is the range afterwards?", "coversText",
    {coversText: "it covers the text", inFront: "collapsed in front of the text", behind: "collapsed behind the text"}, function (d) {
        write(d, "abcd");
        var range = insertRich(d, 2, "\\pard\\plain xyz\\par");
        return range.Start == 2 && range.End >= 5 ? "coversText" : range.Start == 2 && range.End == 2 ? "inFront" :
            range.Start >= 5 && range.Start == range.End ? "behind" : ends(range);
    });

choice("insertFileMovesBookmarks", "The file has a bookmark whose name exists in the document.", true,
    {"true": "it moves to the text", "false": "it stays where it was"}, function (d) {
        write(d, "abcd");
        d.Bookmarks.Add("mark", d.Range(3, 4));
        insertRich(d, 0, "\\pard\\plain x{\\*\\bkmkstart mark}y{\\*\\bkmkend mark}\\par");
        return d.Bookmarks.Item("mark").Start < 3;
    });

choice("insertFileOverlappedBookmarks", "Which bookmarks at the place are lost?", "kept",
    {kept: "none", lostInside: "those around the place", lostTouching: "those that begin or end there, too"}, function (d) {
        write(d, "abcdefgh");
        d.Bookmarks.Add("around", d.Range(1, 6));
        d.Bookmarks.Add("touching", d.Range(4, 6));
        insertRich(d, 4, "\\pard\\plain x\\par");
        return d.Bookmarks.Exists("around") ? "kept" : d.Bookmarks.Exists("touching") ? "lostInside" : "lostTouching";
    });

fact("fragmentsStyle", "A style that the document has: whose definition holds?", "the document's", function (d) {
    write(d, "abcd");
    d.Styles.Item(-2).Font.Size = 37;
    insertRich(d, 0, "\\pard\\plain\\s1 x\\par");
    return d.Range(0, 1).Font.Size == 37 ? "the document's" : "the file's";
});

fact("fragmentsDirectFont", "Does text keep a font that it says itself?", "Courier New 21", function (d) {
    write(d, "abcd");
    insertRich(d, 0, "\\pard\\plain\\f1\\fs42 x\\par");
    return d.Range(0, 1).Font.Name + " " + d.Range(0, 1).Font.Size;
});

fact("fragmentsAlignment", "Does a paragraph keep its alignment (1 is centred)?", 1, function (d) {
    write(d, "abcd");
    insertRich(d, 0, "\\pard\\plain\\qc x\\par\\pard\\plain y\\par");
    return d.Range(0, 1).ParagraphFormat.Alignment;
});

fact("fragmentsText", "Do letters outside of the code page, tabs, line breaks and braces arrive?", "\u03A9\t\u000B{}", function (d) {
    write(d, "abcd");
    insertRich(d, 0, "\\pard\\plain\\u937?\\tab\\line\\{\\}\\par");
    return d.Range(0, 5).Text;
});

fact("fragmentsPageBreak", "Does a page break arrive as one character?", "x^y|", function (d) {
    write(d, "abcd");
    insertRich(d, 0, "\\pard\\plain x\\page y\\par");
    return letters(d.Range(0, 4));
});

fact("fragmentsField", "Does a field arrive?", "PAGE", function (d) {
    write(d, "abcd");
    insertRich(d, 0, "\\pard\\plain {\\field{\\*\\fldinst{ PAGE }}{\\fldrslt{1}}}\\par");
    return d.Fields.Item(1).Code.Text.replace(/ /g, "");
});

fact("fragmentsEntry", "Does an entry of the contents arrive as a field?", "9", function (d) {
    write(d, "abcd");
    insertRich(d, 0, "\\pard\\plain {\\v\\field{\\*\\fldinst{ TC \"t\" \\\\l 2 }}}x\\par");
    return d.Fields.Count ? String(d.Fields.Item(1).Type) : "none";
});

fact("fragmentsLink", "Does a link arrive, with its address?", "http://a.example/ x", function (d) {
    write(d, "abcd");
    insertRich(d, 0, "\\pard\\plain {\\field{\\*\\fldinst{ HYPERLINK \"http://a.example/\" }}{\\fldrslt{x}}}\\par");
    return d.Hyperlinks.Item(1).Address + " " + letters(d.Fields.Item(1).Result);
});

fact("fragmentsBookmark", "Does a bookmark arrive at its place?", "1 to 2", function (d) {
    write(d, "abcd");
    insertRich(d, 0, "\\pard\\plain x{\\*\\bkmkstart mark}y{\\*\\bkmkend mark}z\\par");
    return ends(d.Bookmarks.Item("mark").Range);
});

fact("fragmentsTable", "Does a table arrive?", "1, a", function (d) {
    write(d, "abcd");
    insertRich(d, 0, "\\trowd\\trgaph108\\cellx2000\\cellx4000\\pard\\plain\\intbl a\\cell b\\cell\\row\\pard\\plain y\\par");
    return d.Tables.Count + ", " + letters(d.Tables.Item(1).Cell(1, 1).Range).charAt(0);
});

fact("missingFragment", "What fails for a file that there is not (5174)?", 5174, function (d) {
    return errorOf(function () { d.Content.InsertFile(scratchFile("missing.rtf"), "", false, false); });
});

fact("plainFile", "Does a file of plain text arrive in paragraphs?", true, function (d) {
    d.Content.InsertFile(kitFile("lines.txt"), "", false, false);
    return letters(d.Content).indexOf("First of file|Second of file||Fourth of file") === 0;
});
