// What a report costs: chapters of a heading, three paragraphs and small print, and a table behind them. Written by the
// DLL in each mode, and by a script that drives Word itself, member by member, and formats each paragraph where it stands.

var sentence = "A sentence of the length that documents are made of, more or less. ";
var tableRows = 20, tableColumns = 4;

function costByObject(mode, chapters) {
    var object = startObject(mode, ""), began;
    try {
        object.create(joined(folders.documents, "costs " + mode.name + ".doc"));
        began = now();
        for (var chapter = 1; chapter <= chapters; chapter++) {
            object.setStyle("Heading 1");
            object.insertText("Chapter " + chapter);
            object.insertEndl();
            object.setStyle("Normal");
            for (var paragraph = 0; paragraph < 3; paragraph++) {
                object.insertText(sentence);
                object.insertText(sentence);
                object.insertEndl();
            }
            object.setFontSize(9);
            object.insertText("Small print.");
            object.setFontSize(12);
            object.insertEndl();
        }
        object.startTable();
        for (var row = 1; row <= tableRows; row++) {
            object.addRow();
            for (var column = 1; column <= tableColumns; column++) {
                object.addCell();
                object.insertText("Cell " + row + "." + column);
            }
        }
        object.endTable();
        object.close();
        return {name: mode.name, seconds: (now() - began) / 1000, wordCalls: null};
    } finally {
        stopObject(object);
    }
}

/// Counts its calls of Word as it makes them: each member that is asked for, or called, is one.
function LateBound(document) {
    this.document = document;
    this.range = document.Range();
    this.position = 0;
    this.calls = 1;
}

LateBound.prototype.write = function (text) {
    this.range.InsertAfter(text);
    this.calls++;
    this.position += text.length;
};

LateBound.prototype.endParagraph = function (start, style, size) {
    this.range.InsertParagraphAfter();
    this.position++;
    var part = this.document.Range(start, this.position);
    part.Style = style;
    this.calls += 3;
    if (size) {
        part.Font.Size = size;
        this.calls += 2;
    }
};

LateBound.prototype.chapter = function (number) {
    var start = this.position;
    this.write("Chapter " + number);
    this.endParagraph(start, -2, 0);
    for (var paragraph = 0; paragraph < 3; paragraph++) {
        start = this.position;
        this.write(sentence);
        this.write(sentence);
        this.endParagraph(start, -1, 0);
    }
    start = this.position;
    this.write("Small print.");
    this.endParagraph(start, -1, 9);
};

LateBound.prototype.table = function () {
    this.write(" ");
    var table = this.document.Tables.Add(this.document.Range(this.position - 1, this.position - 1), tableRows, tableColumns);
    this.calls += 3;
    for (var row = 1; row <= tableRows; row++) {
        for (var column = 1; column <= tableColumns; column++) {
            table.Cell(row, column).Range.InsertAfter("Cell " + row + "." + column);
            this.calls += 3;
        }
    }
};

function costByScript(word, chapters) {
    var document = word.Documents.Add();
    try {
        var began = now(), script = new LateBound(document);
        for (var chapter = 1; chapter <= chapters; chapter++) {
            script.chapter(chapter);
        }
        script.table();
        document.SaveAs(joined(folders.documents, "costs script.doc"), 0);
        return {name: "script", seconds: (now() - began) / 1000, wordCalls: script.calls + 1};
    } finally {
        document.Close(0);
    }
}

function measure(results, chapters, mayGoOn) {
    function attempt(name, action) {
        if (!mayGoOn()) {
            return;
        }
        var cost;
        try {
            cost = action();
        } catch (failure) {
            cost = {name: name, seconds: null, wordCalls: null, failure: failureText(failure)};
        }
        results.push(cost);
        say("  " + name + ": " + (cost.failure || cost.seconds + " seconds"));
    }
    attempt("script", function () { return costByScript(livingWord(), chapters); });
    for (var m = 0; m < modes.length; m++) {
        attempt(modes[m].name, function () { return costByObject(modes[m], chapters); });
    }
}
