// Text, positions and formatting.

about("Text and positions");

fact("newDocument", "How long is the text of a new document?", 1, function (d) { return d.Content.StoryLength; });

fact("unitsOfText", "How many positions do a tab, a line break and a letter outside of 16 bits take?", 4, function (d) {
    write(d, "\t\u000B\uD83D\uDE00");
    return d.Content.StoryLength - 1;
});

fact("lineEnds", "What becomes of CR LF, and of LF alone?", "a|b|c|", function (d) {
    write(d, "a\r\nb\nc");
    return letters(d.Content);
});

fact("cellMarkText", "How does the text of an empty cell read, and how many positions is it?", "|# at 1", function (d) {
    var range = d.Tables.Add(d.Range(0, 0), 1, 1).Cell(1, 1).Range;
    return letters(range) + " at " + (range.End - range.Start);
});

fact("rangeAtEnd", "Is a range behind the final mark refused (4608)?", 4608, function (d) {
    write(d, "abc");
    return errorOf(function () { d.Range(d.Content.End, d.Content.End); });
});

fact("rangeBeyond", "Is a range beyond the text refused (4608)?", 4608, function (d) {
    return errorOf(function () { d.Range(0, 1000); });
});

fact("startAboveEnd", "A range's start is put behind its end: where is the range?", "3 to 3", function (d) {
    write(d, "abcdef");
    var range = d.Range(1, 2);
    range.Start = 3;
    return ends(range);
});

fact("endBelowStart", "A range's end is put in front of its start: where is the range?", "1 to 1", function (d) {
    write(d, "abcdef");
    var range = d.Range(3, 5);
    range.End = 1;
    return ends(range);
});

choice("endBeyondStoryIsRefused", "A range's end is put beyond the text.", true,
    {"true": "refused", "false": "the range ends with the text"}, function (d) {
        write(d, "abc");
        var range = d.Range(0, 1);
        var error = errorOf(function () { range.End = 1000; });
        return error !== 0 ? true : range.End == d.Content.End ? false : "it ends at " + range.End;
    });

choice("collapseToEndStaysBeforeFinalMark", "The whole text is collapsed to its end: where is the range?", true,
    {"true": "in front of the final mark", "false": "behind the final mark"}, function (d) {
        write(d, "abc");
        var range = d.Content;
        range.Collapse(0);
        return range.Start == 3 ? true : range.Start == 4 ? false : "at " + range.Start;
    });

fact("collapseOfParagraph", "A paragraph's range is collapsed to its end: where is it?", "4 to 4", function (d) {
    write(d, "abc\rdef");
    var range = d.Range(0, 4);
    range.Collapse(0);
    return ends(range);
});

fact("duplicate", "Does a duplicate stay when the range is moved?", "0 to 2", function (d) {
    write(d, "abc");
    var range = d.Range(0, 2), other = range.Duplicate;
    range.SetRange(1, 1);
    return ends(other);
});

fact("otherRangesOnInsert", "Text is inserted at a place where other ranges are collapsed, end, begin and lie behind.",
    "2 to 2, 0 to 2, 2 to 5, 4 to 5", function (d) {
        write(d, "abcdef");
        var others = [d.Range(2, 2), d.Range(0, 2), d.Range(2, 4), d.Range(3, 4)], found = [];
        d.Range(2, 2).InsertAfter("x");
        for (var i = 0; i < others.length; i++) {
            found.push(ends(others[i]));
        }
        return found.join(", ");
    });

fact("otherRangesOnDelete", "Text is deleted: where are ranges that lie around it, inside and behind?", "0 to 3, 1 to 1, 2 to 3",
    function (d) {
        write(d, "abcdef");
        var others = [d.Range(0, 5), d.Range(2, 2), d.Range(4, 5)], found = [];
        d.Range(1, 3).Delete();
        for (var i = 0; i < others.length; i++) {
            found.push(ends(others[i]));
        }
        return found.join(", ");
    });

fact("closedDocument", "What fails at a range of a closed document (5825)?", 5825, function (d, word) {
    var range = d.Content;
    word.Documents.Add();
    d.Close(0);
    return errorOf(function () { range.InsertAfter("x"); });
});

fact("insertBehindParagraph", "InsertAfter on a whole paragraph: is the text in the next one?", "abc|xdef|", function (d) {
    write(d, "abc\rdef");
    d.Range(0, 4).InsertAfter("x");
    return letters(d.Content);
});

fact("insertAtEnd", "InsertAfter on the whole text: where is the text, and the range?", "abcx| 0 to 5", function (d) {
    write(d, "abc");
    var range = d.Content;
    range.InsertAfter("x");
    return letters(d.Content) + " " + ends(range);
});

fact("insertParagraphAtEnd", "InsertParagraphAfter on the whole text: what is there?", "abc||", function (d) {
    write(d, "abc");
    d.Content.InsertParagraphAfter();
    return letters(d.Content);
});

fact("formatOfNewText", "Text is inserted behind a bold letter: is it bold?", -1, function (d) {
    write(d, "ab");
    d.Range(0, 1).Font.Bold = true;
    d.Range(0, 1).InsertAfter("x");
    return d.Range(1, 2).Font.Bold;
});

choice("deleteAnswersOne", "What does Delete answer for a range of three letters?", true,
    {"true": "1", "false": "3, the number of letters"}, function (d) {
        write(d, "abcdef");
        var answer = d.Range(1, 4).Delete();
        return answer == 1 ? true : answer == 3 ? false : String(answer);
    });

fact("deleteCollapsed", "Delete on a collapsed range: what is left?", "acd|", function (d) {
    write(d, "abcd");
    d.Range(1, 1).Delete();
    return letters(d.Content);
});

choice("deletedStoryRangeCollapses", "The whole text is deleted: where is the range?", true,
    {"true": "collapsed in front of the final mark", "false": "around the final mark"}, function (d) {
        write(d, "abc");
        var range = d.Content;
        range.Delete();
        return range.Start !== 0 ? ends(range) : range.End === 0 ? true : range.End === 1 ? false : ends(range);
    });

fact("mergedParagraphs", "The mark between a centred and a right-aligned paragraph is deleted: how is the one (2 is right)?", 2,
    function (d) {
        write(d, "abc\rdef");
        d.Range(0, 1).ParagraphFormat.Alignment = 1;
        d.Range(4, 5).ParagraphFormat.Alignment = 2;
        d.Range(3, 4).Delete();
        return d.Range(0, 1).ParagraphFormat.Alignment;
    });

fact("deleteCell", "A cell's range is deleted: what is left of the table?", "|#|#", function (d) {
    var cell = d.Tables.Add(d.Range(0, 0), 1, 1).Cell(1, 1).Range;
    cell.InsertAfter("abc");
    d.Tables.Item(1).Cell(1, 1).Range.Delete();
    return letters(d.Tables.Item(1).Range);
});

about("Breaks");

function rangeAfterBreak(type) {
    return function (d) {
        write(d, "abcd");
        var range = d.Range(2, 2);
        range.InsertBreak(type);
        return range;
    };
}

choice("pageBreakRangeCoversBreak", "A page break is inserted in the middle of a paragraph: where is the range?", true,
    {"true": "it covers the break", "false": "behind the break"}, function (d) {
        var range = rangeAfterBreak(7)(d);
        return range.Start == 2 ? true : range.Start == range.End ? false : ends(range);
    });

choice("pageBreakParagraphMark", "Where does Word put a paragraph mark behind a page break?", "never",
    {never: "never", atStartOfText: "where a paragraph begins that is not empty", always: "always"}, function (d) {
        write(d, "abcd\refgh");
        d.Range(7, 7).InsertBreak(7);
        var inside = d.Content.StoryLength - 10;
        d.Range(0, 0).InsertBreak(7);
        var atStart = d.Content.StoryLength - 10 - inside;
        return inside == 2 ? "always" : atStart == 2 ? "atStartOfText" : inside == 1 && atStart == 1 ? "never" :
            inside + " and " + atStart + " positions";
    });

choice("sectionBreakRangeLiesBehind", "A section break is inserted: where is the range?", true,
    {"true": "behind the break", "false": "it covers the break"}, function (d) {
        var range = rangeAfterBreak(2)(d);
        return range.Start == 3 ? true : range.Start == 2 && range.End == 3 ? false : ends(range);
    });

fact("sectionBreak", "A section break is inserted in a paragraph: what is the text, how many sections are there?", "ab^cd| 2",
    function (d) {
        rangeAfterBreak(2)(d);
        return letters(d.Content) + " " + d.Sections.Count;
    });

fact("newSectionsHeaders", "Does a new section show the headers of the one before?", true, function (d) {
    rangeAfterBreak(2)(d);
    return d.Sections.Item(2).Headers.Item(1).LinkToPrevious;
});

fact("orientationOfSections", "A section is turned: are width and height swapped, and the first section as it was?", "swapped, as it was",
    function (d) {
        rangeAfterBreak(2)(d);
        var first = d.Sections.Item(1).PageSetup, second = d.Sections.Item(2).PageSetup;
        var width = first.PageWidth, height = first.PageHeight;
        second.Orientation = 1;
        return (second.PageWidth == height && second.PageHeight == width ? "swapped" : "not swapped") + ", " +
            (first.PageWidth == width ? "as it was" : "changed");
    });

about("Styles and formatting");

fact("englishNames", "Are built-in styles found by their English names?", "-2 is Heading 1", function (d) {
    return d.Styles.Item("Heading 1").NameLocal == d.Styles.Item(-2).NameLocal ? "-2 is Heading 1" : "no";
});

fact("namesWithoutCase", "Are styles found without regard to case?", 0, function (d) {
    return errorOf(function () { d.Styles.Item("HEADING 1"); });
});

fact("missingStyle", "What fails for a style that there is not (5941)?", 5941, function (d) {
    return errorOf(function () { d.Styles.Item("No such style"); });
});

fact("puttingMissingStyle", "What fails when a style is put that there is not (5834)?", 5834, function (d) {
    return errorOf(function () { d.Content.Style = "No such style"; });
});

function fontOfStyle(number) {
    return function (d) {
        var font = d.Styles.Item(number).Font;
        return font.Name + " " + font.Size + (font.Bold ? " bold" : "") + (font.Italic ? " italic" : "");
    };
}

fact("fontOfNormal", "Which font has the style Normal of the user's template?", "Times New Roman 12", fontOfStyle(-1));
fact("fontOfHeading1", "Which font has Heading 1?", "Arial 16 bold", fontOfStyle(-2));
fact("fontOfHeading2", "Which font has Heading 2?", "Arial 14 bold italic", fontOfStyle(-3));
fact("fontOfHeading3", "Which font has Heading 3?", "Arial 13 bold", fontOfStyle(-4));

fact("styleThroughPlace", "A paragraph style is put on a collapsed range: has the whole paragraph got it?", true, function (d) {
    write(d, "abcd");
    d.Range(2, 2).Style = -2;
    return d.Range(0, 1).Style.NameLocal == d.Styles.Item(-2).NameLocal;
});

choice("mixedStyleReadsFirst", "A range holds paragraphs of two styles: what is its style?", true,
    {"true": "the first one", "false": "none"}, function (d) {
        write(d, "abc\rdef");
        d.Range(0, 1).Style = -2;
        var style = d.Range(0, 7).Style;
        return style ? style.NameLocal == d.Styles.Item(-2).NameLocal : false;
    });

choice("linkedStyleFormatsParagraph", "A heading's style is put on a part of a paragraph.", true,
    {"true": "the whole paragraph gets it", "false": "the characters only"}, function (d) {
        write(d, "abcdefgh");
        var size = d.Range(7, 8).Font.Size;
        d.Styles.Item(-2).Font.Size = size + 11;
        d.Range(1, 3).Style = -2;
        return d.Range(7, 8).Font.Size == size + 11;
    });

choice("paragraphStyleKeepsFontOfMost", "A paragraph style is put where more than half of the paragraph is larger than its style.", true,
    {"true": "the size stays", "false": "the size goes"}, function (d) {
        write(d, "abcdefgh\rnext");
        d.Range(0, 6).Font.Size = 33;
        d.Range(0, 9).Style = -1;
        return d.Range(0, 1).Font.Size == 33;
    });

choice("paragraphStyleKeepsDirectFormatting", "A paragraph style is put on a paragraph that was centred by itself.", true,
    {"true": "it stays centred", "false": "it is as the style says"}, function (d) {
        write(d, "abc\rnext");
        d.Range(0, 4).ParagraphFormat.Alignment = 1;
        d.Range(0, 4).Style = -91;
        return d.Range(0, 1).ParagraphFormat.Alignment == 1;
    });

fact("mixedBold", "What is Bold of a range that is bold in part?", 9999999, function (d) {
    write(d, "abcd");
    d.Range(0, 2).Font.Bold = true;
    return d.Range(0, 4).Font.Bold;
});

fact("mixedName", "What is the name of the font of a range with two fonts?", "", function (d) {
    write(d, "abcd");
    d.Range(0, 2).Font.Name = "Courier New";
    return d.Range(0, 4).Font.Name;
});

fact("mixedAlignment", "What is the alignment of a range with two?", 9999999, function (d) {
    write(d, "abc\rdef");
    d.Range(0, 1).ParagraphFormat.Alignment = 1;
    return d.Range(0, 7).ParagraphFormat.Alignment;
});

fact("toggledBold", "Is Bold toggled by 9999998?", -1, function (d) {
    write(d, "abcd");
    d.Range(0, 2).Font.Bold = 9999998;
    return d.Range(0, 2).Font.Bold;
});

fact("resetFont", "Does Font.Reset take direct formatting away?", true, function (d) {
    write(d, "abcd");
    var size = d.Range(0, 1).Font.Size;
    d.Range(0, 2).Font.Size = size + 20;
    d.Range(0, 2).Font.Reset();
    return d.Range(0, 1).Font.Size == size;
});
