// Fields, links, bookmarks, contents, pictures.

about("Fields");

function fieldIn(d, type, text, preserve) {
    write(d, "abcd");
    return preserve === undefined ? d.Fields.Add(d.Range(2, 2), type, text) : d.Fields.Add(d.Range(2, 2), type, text, preserve);
}

fact("codeOfPage", "What is the code of a PAGE field?", " PAGE ", function (d) { return fieldIn(d, 33, "", false).Code.Text; });
fact("codeOfDate", "What is the code of a DATE field?", " DATE ", function (d) { return fieldIn(d, 31, "", false).Code.Text; });
fact("codeOfTime", "What is the code of a TIME field?", " TIME ", function (d) { return fieldIn(d, 32, "", false).Code.Text; });
fact("codeOfFileName", "What is the code of a FILENAME field?", " FILENAME ", function (d) {
    return fieldIn(d, 29, "", false).Code.Text;
});
fact("codeOfEntry", "What is the code of an entry (TC) of the contents?", " TC \"t\" \\l 2 ", function (d) {
    return fieldIn(d, 9, "\"t\" \\l 2", false).Code.Text;
});

choice("fieldsAddOmitsMergeFormat", "A field is added, and nothing is said of keeping its formatting.", true,
    {"true": "the code says nothing of it either", "false": "the code says MERGEFORMAT"}, function (d) {
        return fieldIn(d, 33, "").Code.Text.indexOf("MERGEFORMAT") < 0;
    });

choice("fieldsAddReplacesNothing", "A field is added at a range that is not collapsed.", true,
    {"true": "it stands in front, the text stays", "false": "it replaces the text"}, function (d) {
        write(d, "abcd");
        d.Fields.Add(d.Range(1, 3), 33, "", false);
        var text = letters(d.Content);
        return text.indexOf("bc") >= 0 ? true : text.charAt(0) == "a" && text.indexOf("d|") > 0 ? false : text;
    });

fact("placesOfField", "Do code and result of a field lie side by side, a mark between?", "3, 1", function (d) {
    var field = fieldIn(d, 33, "", false);
    return field.Code.Start + ", " + (field.Result.Start - field.Code.End);
});

fact("lengthOfEntry", "How many positions does a field without a result take beside its code?", 2, function (d) {
    var field = fieldIn(d, 9, "\"t\"", false), length = field.Code.Text.length;
    return d.Content.StoryLength - 5 - length;
});

fact("rangeAtField", "Where is a collapsed range that a field was added at?", "2 to 2", function (d) {
    write(d, "abcd");
    var range = d.Range(2, 2);
    d.Fields.Add(range, 33, "", false);
    return ends(range);
});

fact("hiddenEntry", "Does an entry of the contents show in the text?", "abcd|", function (d) {
    fieldIn(d, 9, "\"t\"", false);
    return letters(d.Content);
});

choice("textBehindHiddenFieldShows", "Text is inserted directly behind an entry of the contents.", true,
    {"true": "it shows", "false": "it is hidden as the entry is"}, function (d) {
        var field = fieldIn(d, 9, "\"t\"", false), end = field.Code.End + 1, range = d.Range(end, end);
        range.InsertAfter("x");
        return !d.Range(end, end + 1).Font.Hidden;
    });

fact("fieldsOfRange", "Does a range tell of its own fields only?", "0 of 1", function (d) {
    fieldIn(d, 33, "", false);
    return d.Range(0, 1).Fields.Count + " of " + d.Fields.Count;
});

fact("deletedField", "A range from inside a field to behind it is deleted: how many fields are left?", 0, function (d) {
    var field = fieldIn(d, 33, "", false);
    d.Range(field.Code.Start - 1, field.Result.End + 1).Delete();
    return d.Fields.Count;
});

about("Links and bookmarks");

function linkIn(d, address, sub) {
    write(d, "abcd");
    return d.Hyperlinks.Add(d.Range(1, 3), address, sub);
}

fact("codeOfLink", "What is the code of a link to an address?", " HYPERLINK \"http://a.example/\" ", function (d) {
    linkIn(d, "http://a.example/", "");
    return d.Fields.Item(1).Code.Text.replace("\u0001", "");
});

fact("codeOfInnerLink", "What is the code of a link to a bookmark?", " HYPERLINK  \\l \"mark\" ", function (d) {
    linkIn(d, "", "mark");
    return d.Fields.Item(1).Code.Text.replace("\u0001", "");
});

fact("linkedText", "What does a link show whose text was there?", "bc", function (d) {
    linkIn(d, "http://a.example/", "");
    return letters(d.Fields.Item(1).Result);
});

choice("hyperlinkWithoutLinkData", "Has the code of a new link a character of data behind it?", true,
    {"true": "no", "false": "yes, one position"}, function (d) {
        linkIn(d, "http://a.example/", "");
        var code = d.Fields.Item(1).Code;
        return code.End - code.Start == " HYPERLINK \"http://a.example/\" ".length ? true :
            code.End - code.Start == " HYPERLINK \"http://a.example/\" ".length + 1 ? false : code.End - code.Start + " positions";
    });

fact("linksStyle", "Which style has a link's text (-86 is Hyperlink)?", true, function (d) {
    linkIn(d, "http://a.example/", "");
    return d.Fields.Item(1).Result.Style.NameLocal == d.Styles.Item(-86).NameLocal;
});

fact("linkAtPlace", "A link is made at a place, without a text: what shows?", "http://a.example/", function (d) {
    write(d, "abcd");
    d.Hyperlinks.Add(d.Range(2, 2), "http://a.example/");
    return letters(d.Fields.Item(1).Result);
});

fact("textInLink", "Text is inserted behind a link's text, in front of its end: is it part of the link?", "bcx", function (d) {
    linkIn(d, "http://a.example/", "");
    var end = d.Fields.Item(1).Result.End;
    d.Range(end, end).InsertAfter("x");
    return letters(d.Fields.Item(1).Result);
});

fact("linksAddress", "What are address and place of a link to both?", "http://a.example/ and mark", function (d) {
    linkIn(d, "http://a.example/", "mark");
    var link = d.Hyperlinks.Item(1);
    return link.Address + " and " + link.SubAddress;
});

fact("movedBookmark", "A bookmark's name is given again: how many are there, and where?", "1, 2 to 3", function (d) {
    write(d, "abcd");
    d.Bookmarks.Add("mark", d.Range(0, 1));
    d.Bookmarks.Add("mark", d.Range(2, 3));
    return d.Bookmarks.Count + ", " + ends(d.Bookmarks.Item("mark").Range);
});

fact("bookmarksCase", "Are bookmarks found without regard to case?", true, function (d) {
    d.Bookmarks.Add("Mark", d.Range(0, 0));
    return d.Bookmarks.Exists("mARK");
});

fact("badBookmark", "What fails for a bookmark's name with a space (5828)?", 5828, function (d) {
    return errorOf(function () { d.Bookmarks.Add("two words", d.Range(0, 0)); });
});

fact("missingBookmark", "What fails for a bookmark that there is not (5941)?", 5941, function (d) {
    return errorOf(function () { d.Bookmarks.Item("missing"); });
});

fact("hiddenBookmark", "Does a bookmark whose name begins with an underscore count?", 0, function (d) {
    d.Bookmarks.Add("_mark", d.Range(0, 0));
    return d.Bookmarks.Count;
});

fact("bookmarksOrder", "In which order do a document's bookmarks come?", "a, b", function (d) {
    write(d, "abcd");
    d.Bookmarks.Add("b", d.Range(0, 1));
    d.Bookmarks.Add("a", d.Range(2, 3));
    return d.Bookmarks.Item(1).Name + ", " + d.Bookmarks.Item(2).Name;
});

fact("deletedBookmark", "A bookmark's whole text is deleted: is the bookmark gone?", 0, function (d) {
    write(d, "abcd");
    d.Bookmarks.Add("mark", d.Range(1, 3));
    d.Range(1, 3).Delete();
    return d.Bookmarks.Count;
});

fact("grownBookmark", "Text is inserted at a bookmark's beginning, and at its end: where is it?", "1 to 4", function (d) {
    write(d, "abcd");
    d.Bookmarks.Add("mark", d.Range(1, 3));
    d.Range(1, 1).InsertAfter("x");
    d.Range(4, 4).InsertAfter("y");
    return ends(d.Bookmarks.Item("mark").Range);
});

fact("emptyBookmark", "Text is inserted at an empty bookmark: does it stay empty, in front?", "2 to 2", function (d) {
    write(d, "abcd");
    d.Bookmarks.Add("mark", d.Range(2, 2));
    d.Range(2, 2).InsertAfter("x");
    return ends(d.Bookmarks.Item("mark").Range);
});

about("Contents");

fact("contents", "A table of contents is made of two headings: how many entries are there?", 2, function (d) {
    write(d, "\rOne\rtext\rTwo\r");
    d.Range(1, 2).Style = -2;
    d.Range(10, 11).Style = -2;
    d.TablesOfContents.Add(d.Range(0, 0), true, 1, 3);
    return letters(d.TablesOfContents.Item(1).Range).split("|").length - 1;
});

fact("contentsField", "Is a table of contents one TOC field?", 13, function (d) {
    write(d, "\rOne\r");
    d.Range(1, 2).Style = -2;
    d.TablesOfContents.Add(d.Range(0, 0), true, 1, 3);
    return d.Fields.Item(1).Type;
});

choice("contentsTakeAnyLevel", "A table of contents of entries alone is asked for, with the lowest heading level 0.", true,
    {"true": "made", "false": "refused"}, function (d) {
        write(d, "\rOne\r");
        return errorOf(function () { d.TablesOfContents.Add(d.Range(0, 0), false, 1, 0, true); }) === 0;
    });

about("Pictures and objects");

function kitFile(name) {
    return joined(folders.files, name);
}

fact("pictureLength", "How many positions does a picture take?", 1, function (d) {
    write(d, "abcd");
    d.InlineShapes.AddPicture(kitFile("picture.bmp"), false, true, d.Range(2, 2));
    return d.Content.StoryLength - 5;
});

fact("missingPicture", "What fails for a picture that there is not (5152)?", 5152, function (d) {
    return errorOf(function () { d.InlineShapes.AddPicture(kitFile("missing.bmp"), false, true, d.Range(0, 0)); });
});

choice("shapeReplacesNothing", "A picture is added to a range's pictures, and nothing is said of its place.", true,
    {"true": "it stands in front of the range", "false": "it replaces the range's text"}, function (d) {
        write(d, "abcd");
        d.Range(1, 3).InlineShapes.AddPicture(kitFile("picture.bmp"), false, true);
        var length = d.Content.StoryLength;
        return length == 6 ? true : length == 4 ? false : length + " positions";
    });

choice("oleObjectIsField", "A file is embedded as an icon: what is it in the text?", true,
    {"true": "a field around one character", "false": "one character"}, function (d) {
        write(d, "abcd");
        d.InlineShapes.AddOLEObject("Package", kitFile("one line.txt"), false, true, "", 0, "file", d.Range(2, 2));
        return d.Fields.Count > 0;
    });
