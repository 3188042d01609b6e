// Documents and their files, sections, headers.

about("Documents and files");

function scratchFile(name) {
    return joined(folders.scratch, name);
}

fact("newDocumentIsSaved", "Is a new document without changes, and without a folder?", "true, ", function (d) {
    return d.Saved + ", " + d.Path;
});

fact("newestFirst", "Which document is the first of Word's documents?", "the newest", function (d, word) {
    var newest = word.Documents.Add();
    return word.Documents.Item(1).FullName == newest.FullName ? "the newest" : "another";
});

fact("missingNumber", "What fails for a document's number that there is not (5941)?", 5941, function (d, word) {
    return errorOf(function () { word.Documents.Item(99); });
});

fact("missingName", "What fails for a document's name that there is not (4160)?", 4160, function (d, word) {
    return errorOf(function () { word.Documents.Item("No such document"); });
});

fact("missingTemplate", "What fails for a template that there is not (5174)?", 5174, function (d, word) {
    return errorOf(function () { word.Documents.Add(scratchFile("no such template.dot")); });
});

fact("missingFile", "What fails for a file to open that there is not (5174)?", 5174, function (d, word) {
    return errorOf(function () { word.Documents.Open(scratchFile("no such file.doc")); });
});

fact("missingFolder", "What fails when a document is saved to a folder that there is not (5273)?", 5273, function (d) {
    return errorOf(function () { d.SaveAs(joined(scratchFile("no such folder"), "a.doc"), 0); });
});

fact("savedAs", "After SaveAs: is the document without changes, and under its new name?", "true, named.doc", function (d) {
    write(d, "abc");
    d.SaveAs(scratchFile("named.doc"), 0);
    return d.Saved + ", " + d.Name;
});

fact("extension", "A document is saved without an extension: what is it called?", "plain.doc", function (d) {
    d.SaveAs(scratchFile("plain"), 0);
    return d.Name;
});

fact("overwritten", "Is a file that exists overwritten without a question?", 0, function (d) {
    writeAscii(scratchFile("old.doc"), "old");
    return errorOf(function () { d.SaveAs(scratchFile("old.doc"), 0); });
});

fact("openElsewhere", "What fails when a document is saved over one that is open (5356)?", 5356, function (d, word) {
    d.SaveAs(scratchFile("open.doc"), 0);
    var other = word.Documents.Add();
    return errorOf(function () { other.SaveAs(scratchFile("open.doc"), 0); });
});

choice("docWithoutFormat", "A document is saved under a name with .doc, without a format.", "document97",
    {document97: "in the format of that name", machineDefault: "in this machine's usual format", refused: "refused"}, function (d) {
        write(d, "abc");
        if (errorOf(function () { d.SaveAs(scratchFile("unsaid.doc")); }) !== 0) {
            return "refused";
        }
        return d.SaveFormat === 0 ? "document97" : "machineDefault";
    });

fact("docWithFormat", "The same with the format of that name, 0: is it anything but the new format?", true, function (d) {
    write(d, "abc");
    d.SaveAs(scratchFile("said.doc"), 0);
    d.Close(0);
    return beginningOf(scratchFile("said.doc"), 2) != "PK";
});

fact("margins", "Which margins has a new document (left, right, top, bottom)?", "90, 90, 72, 72", function (d) {
    var setup = d.PageSetup;
    return [setup.LeftMargin, setup.RightMargin, setup.TopMargin, setup.BottomMargin].join(", ");
});

about("Headers and footers");

function header(d, section) {
    return d.Sections.Item(section || 1).Headers.Item(1);
}

fact("emptyHeader", "How long is an empty header?", 1, function (d) { return header(d).Range.StoryLength; });

fact("firstPageHeader", "Is there a header for the first page in a new document?", false, function (d) {
    return d.Sections.Item(1).Headers.Item(2).Exists;
});

fact("headersStory", "Are positions in a header counted from its own beginning?", "0 to 4", function (d) {
    write(d, "the body");
    var range = header(d).Range;
    range.InsertAfter("abc");
    return ends(header(d).Range);
});

fact("firstHeaderIsUnlinked", "Does the first section's header say that it shows another one's?", false, function (d) {
    return header(d).LinkToPrevious;
});

fact("unlinkedHeader", "A header that showed the one before is unlinked: what does it hold?", "abc|", function (d) {
    header(d).Range.InsertAfter("abc");
    d.Range(0, 0).InsertBreak(2);
    header(d, 2).LinkToPrevious = false;
    return letters(header(d, 2).Range);
});

choice("headerTakesPageBreak", "A page break is inserted into a header.", true, {"true": "made", "false": "refused"}, function (d) {
    var range = header(d).Range;
    range.InsertAfter("abc");
    range.SetRange(1, 1);
    return errorOf(function () { range.InsertBreak(7); }) === 0;
});

choice("headerTakesContents", "A table of contents is made in a header.", true, {"true": "made", "false": "refused"}, function (d) {
    var range = header(d).Range;
    range.InsertAfter("abc");
    range.SetRange(1, 1);
    return errorOf(function () { d.TablesOfContents.Add(range, true, 1, 3); }) === 0;
});
