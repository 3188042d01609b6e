// Tables, and text that becomes one.

about("Tables");

function tableIn(d, rows, columns) {
    return d.Tables.Add(d.Range(0, 0), rows, columns);
}

fact("lengthOfTable", "How many positions does an empty table of 2 rows and 3 columns take?", 8, function (d) {
    var range = tableIn(d, 2, 3).Range;
    return range.End - range.Start;
});

fact("tableAtStart", "A table is made where a paragraph begins: what is in front of it, what behind?", "0, abcd|", function (d) {
    write(d, "abcd");
    var range = tableIn(d, 1, 1).Range;
    return range.Start + ", " + letters(d.Range(range.End, d.Content.End));
});

fact("tableInText", "A table is made within a paragraph: what is in front of it, what behind?", "ab|, cd|", function (d) {
    write(d, "abcd");
    var range = d.Tables.Add(d.Range(2, 2), 1, 1).Range;
    return letters(d.Range(0, range.Start)) + ", " + letters(d.Range(range.End, d.Content.End));
});

fact("rangeAtTable", "Where is the collapsed range that a table was made at?", "0 to 0", function (d) {
    write(d, "abcd");
    var range = d.Range(0, 0);
    d.Tables.Add(range, 1, 1);
    return ends(range);
});

fact("touchingTables", "A table is made directly behind another one: how many are there?", "1 or 2", function (d) {
    write(d, "abcd");
    tableIn(d, 1, 1);
    var end = d.Tables.Item(1).Range.End;
    d.Tables.Add(d.Range(end, end), 1, 1);
    return d.Tables.Count == 1 || d.Tables.Count == 2 ? "1 or 2" : String(d.Tables.Count);
});

fact("cellsStyle", "A table is made in a heading: have its cells the heading's style?", true, function (d) {
    write(d, "abcd");
    d.Range(0, 1).Style = -2;
    return tableIn(d, 1, 1).Cell(1, 1).Range.Style.NameLocal == d.Styles.Item(-2).NameLocal;
});

choice("cellRangeKeepsMark", "Text is inserted with a cell's range: does the range end with the cell's mark?", true,
    {"true": "yes", "false": "in front of the mark"}, function (d) {
        var range = tableIn(d, 1, 1).Cell(1, 1).Range;
        range.InsertAfter("abc");
        return range.End == 4 ? true : range.End == 3 ? false : ends(range);
    });

choice("bookmarkInFrontOfTable", "An empty bookmark is set directly in front of a table: where does it lie?", "stays",
    {stays: "there", firstCell: "around the first cell's text", behind: "behind the table"}, function (d) {
        write(d, "abcd");
        tableIn(d, 1, 1).Cell(1, 1).Range.InsertAfter("x");
        d.Bookmarks.Add("mark", d.Range(0, 0));
        var mark = d.Bookmarks.Item("mark");
        return mark.Start >= d.Tables.Item(1).Range.End ? "behind" : mark.End > 0 ? "firstCell" : "stays";
    });

fact("missingCell", "What fails for a cell that there is not (5941)?", 5941, function (d) {
    var table = tableIn(d, 1, 1);
    return errorOf(function () { table.Cell(5, 5); });
});

fact("addedRow", "A row is added: how many cells has it, and is it empty?", "2, |#", function (d) {
    var table = tableIn(d, 1, 2);
    table.Cell(1, 1).Range.InsertAfter("abc");
    table.Rows.Add();
    return table.Rows.Item(2).Cells.Count + ", " + letters(table.Cell(2, 1).Range);
});

fact("addedCell", "A cell is added to a row: how many has it, and is the table still even?", "2, false", function (d) {
    var table = tableIn(d, 2, 1);
    table.Rows.Item(1).Cells.Add();
    return table.Rows.Item(1).Cells.Count + ", " + table.Uniform;
});

fact("heightOfRow", "Which height has a row whose height is its text's?", 9999999, function (d) {
    return tableIn(d, 1, 1).Rows.Item(1).Height;
});

fact("setHeight", "A row's height is set to 30 points exactly: what is it, and its rule?", "30, 2", function (d) {
    var row = tableIn(d, 1, 1).Rows.Item(1);
    row.SetHeight(30, 2);
    return row.Height + ", " + row.HeightRule;
});

fact("deletedTable", "The text of a table is deleted: is the table still there?", 1, function (d) {
    var table = tableIn(d, 1, 1);
    table.Cell(1, 1).Range.InsertAfter("abc");
    table.Range.Delete();
    return d.Tables.Count;
});

fact("tablesOfRange", "Does a range tell of its own tables only?", "0 of 1", function (d) {
    write(d, "abcd\refgh");
    tableIn(d, 1, 1);
    return d.Range(d.Content.End - 2, d.Content.End - 1).Tables.Count + " of " + d.Tables.Count;
});

about("Text that becomes a table");

function converted(d, text) {
    write(d, text);
    var range = d.Range(0, d.Content.End - 1);
    range.ConvertToTable(1, 2, 2);
    return range;
}

fact("convertedCells", "Two lines with tabs become a table: what is in its cells?", "a, b, c, d", function (d) {
    converted(d, "a\tb\rc\td\r");
    var table = d.Tables.Item(1), found = [];
    for (var r = 1; r <= 2; r++) {
        for (var c = 1; c <= 2; c++) {
            found.push(letters(table.Cell(r, c).Range).replace("|#", ""));
        }
    }
    return found.join(", ");
});

fact("shortRow", "A line has fewer cells than the others: is the row filled up?", 2, function (d) {
    converted(d, "a\tb\rc\r");
    return d.Tables.Item(1).Rows.Item(2).Cells.Count;
});

choice("convertToTableRangeCoversTable", "Text became a table: where is its range?", true,
    {"true": "it covers the table", "false": "collapsed in front of the table"}, function (d) {
        var range = converted(d, "a\tb\rc\td\r"), table = d.Tables.Item(1).Range;
        return range.Start != table.Start ? ends(range) : range.End == table.End ? true : range.End == range.Start ? false : ends(range);
    });

choice("convertToTableDrawsNoLines", "Text became a table: has it lines?", true, {"true": "no", "false": "yes"}, function (d) {
    converted(d, "a\tb\rc\td\r");
    d.SaveAs(scratchFile("lines.rtf"), 6);
    d.Close(0);
    return !/\\clbrdr[tlbr](\\brdrs|\r?\n\\brdrs)/.test(beginningOf(scratchFile("lines.rtf"), 2000000));
});

fact("styleInTable", "A heading became a row: has its cell the heading's style?", true, function (d) {
    write(d, "a\tb\rc\td\r");
    d.Range(0, 1).Style = -2;
    d.Range(0, d.Content.End - 1).ConvertToTable(1, 2, 2);
    return d.Tables.Item(1).Cell(1, 1).Range.Style.NameLocal == d.Styles.Item(-2).NameLocal;
});
