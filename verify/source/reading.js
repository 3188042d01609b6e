// Reads what a document holds, through Word's objects alone, into a form in which it can be compared:
//   text        a letter for each place; what is not text as private letters (see below)
//   paragraphs  [style, alignment] of each end of a paragraph, those of rows left out
//   fonts       for each letter {name, size, flags}, or null where there is none to compare
//   links       [first place, places, address or [story, place] or null]
//   details     keyword of a field, level and text of an entry, "embedded" or "linked" of an object; in order
//   tags        places where bookmarks begin

var contentsLetter = "\uE000", fieldLetter = "\uE001", pictureLetter = "\uE002", pageBreakLetter = "\uE003",
    sectionLetter = "\uE004", objectLetter = "\uE005", entryLetter = "\uE006", cellLetter = "\uE007", rowLetter = "\uE008";
var hyperlinkField = 88, contentsField = 13, entryField = 9, embedField = 58, linkField = 56, pictureField = 67;
var mixed = 9999999;

function isLetterOfText(letter) {
    var code = letter.charCodeAt(0);
    return letter != "\r" && (code < 0xE000 || code > 0xE008);
}

function Places(whole) {
    this.range = whole.Duplicate;
}

Places.prototype.at = function (start, end) {
    this.range.SetRange(start, end);
    return this.range;
};

/// Where fields begin and end: all of a range, those inside others included.
function fieldsOf(whole) {
    var fields = whole.Fields, found = [], count = fields.Count;
    for (var i = 1; i <= count; i++) {
        found.push(placeOfField(fields.Item(i)));
    }
    found.sort(function (a, b) { return a.begin - b.begin; });
    return found;
}

function placeOfField(field) {
    var code = field.Code, place = {type: field.Type, code: code.Text, begin: code.Start - 1, codeEnd: code.End};
    place.past = place.codeEnd + 1;
    place.resultStart = place.resultEnd = place.past;
    try {
        var result = field.Result;
        if (result && result.Start > place.codeEnd) {
            place.resultStart = result.Start;
            place.resultEnd = result.End;
            place.past = result.End + 1;
        }
    } catch (none) {
    }
    return place;
}

/// The words of a field's code; what stands in quotes is one, with its backslashes taken away.
function wordsOf(code) {
    var words = [], word = "", quoted = false, begun = false;
    for (var i = 0; i < code.length; i++) {
        var letter = code.charAt(i);
        if (letter == "\\" && quoted && i + 1 < code.length) {
            i++;
            word += code.charAt(i);
        } else if (letter == "\"") {
            quoted = !quoted;
            begun = true;
        } else if ((letter == " " || letter == "\u0001") && !quoted) {
            if (begun) {
                words.push(word);
            }
            word = "";
            begun = false;
        } else {
            word += letter;
            begun = true;
        }
    }
    if (begun) {
        words.push(word);
    }
    return words;
}

/// {address, sub} of a HYPERLINK field's code.
function targetOf(code) {
    var words = wordsOf(code), target = {address: "", sub: ""};
    for (var i = 1; i < words.length; i++) {
        if (words[i] == "\\l") {
            i++;
            target.sub = words[i] || "";
        } else if (words[i] == "\\o" || words[i] == "\\t") {
            i++;
        } else if (words[i].charAt(0) != "\\" || words[i].charAt(1) == "\\") {
            target.address = words[i];
        }
    }
    return target;
}

function levelAndText(code) {
    var words = wordsOf(code), level = "1";
    for (var i = 2; i + 1 < words.length; i++) {
        if (words[i] == "\\l") {
            level = words[i + 1];
        }
    }
    return level + " " + (words[1] || "");
}

/// The ends of cells and rows in the order of the text: a letter for each.
function marksOfTables(whole) {
    var marks = [], tables = whole.Tables, count = tables.Count;
    for (var t = 1; t <= count; t++) {
        var rows = tables.Item(t).Rows, rowCount = rows.Count;
        for (var r = 1; r <= rowCount; r++) {
            var cells = rows.Item(r).Cells.Count;
            for (var c = 0; c < cells; c++) {
                marks.push(cellLetter);
            }
            marks.push(rowLetter);
        }
    }
    return marks;
}

function StoryReader(whole, sectionEnds, styleNames) {
    this.whole = whole;
    this.places = new Places(whole);
    this.sectionEnds = sectionEnds;
    this.styleNames = styleNames;
    this.fields = fieldsOf(whole);
    this.marks = marksOfTables(whole);
    this.nextMark = 0;
    this.letters = [];
    this.paragraphs = [];
    this.fonts = [];
    this.links = [];
    this.details = [];
    this.placeAt = {};  // of a position, the place in the text
    this.stretches = []; // of text in one paragraph: [start, end, place]
    this.readTo(0, whole.StoryLength, 0);
    this.placeAt[whole.StoryLength] = this.letters.length;
    this.stretch = null;
}

StoryReader.prototype.push = function (letter, position) {
    this.placeAt[position] = this.letters.length;
    this.letters.push(letter);
    this.fonts.push(null);
};

/// From a position to another; returns the number of the first field behind.
StoryReader.prototype.readTo = function (start, end, field) {
    var position = start;
    while (position < end) {
        while (field < this.fields.length && this.fields[field].begin < position) {
            field++;
        }
        var next = field < this.fields.length ? this.fields[field] : null;
        var textEnd = next && next.begin < end ? next.begin : end;
        this.readText(position, textEnd);
        this.endStretch();
        position = textEnd;
        if (position < end) {
            this.readField(next, field);
            position = next.past;
        }
    }
};

StoryReader.prototype.readField = function (field, number) {
    if (field.type == hyperlinkField) {
        var link = [this.letters.length, 0, targetOf(field.code)];
        this.links.push(link);
        this.placeAt[field.begin] = this.letters.length;
        this.readTo(field.resultStart, field.resultEnd, number + 1);
        this.placeAt[field.resultEnd] = this.letters.length;
        link[1] = this.letters.length - link[0];
    } else if (field.type == contentsField) {
        this.push(contentsLetter, field.begin);
    } else if (field.type == entryField) {
        this.push(entryLetter, field.begin);
        this.details.push(levelAndText(field.code));
    } else if (field.type == embedField || field.type == linkField) {
        this.push(objectLetter, field.begin);
        this.details.push(field.type == embedField ? "embedded" : "linked");
    } else if (field.type == pictureField) {
        this.push(pictureLetter, field.begin);
    } else {
        this.push(fieldLetter, field.begin);
        this.details.push((wordsOf(field.code)[0] || "").toUpperCase());
    }
};

/// A cell's end is two letters at one position; where letters and positions do not come out even, the halves are read.
StoryReader.prototype.readText = function (start, end) {
    if (start >= end) {
        return;
    }
    var text = this.places.at(start, end).Text || "";
    if (end - start == 1) {
        this.readLetter(text, start);
    } else if (text.length == end - start && text.indexOf("\u0007") < 0 && text.indexOf("/") < 0 && text.indexOf("\u0001") < 0) {
        for (var i = 0; i < text.length; i++) {
            this.readLetter(text.charAt(i), start + i);
        }
    } else {
        var middle = Math.floor((start + end) / 2);
        this.readText(start, middle);
        this.readText(middle, end);
    }
};

StoryReader.prototype.readLetter = function (text, position) {
    var letter = text.charAt(0);
    if (text.indexOf("\u0007") >= 0) {
        this.readEnd(this.marks[this.nextMark] || cellLetter, position);
        this.nextMark++;
    } else if (letter == "\r") {
        this.readEnd("\r", position);
    } else if (letter == "\f" && contains(this.sectionEnds, position + 1)) {
        this.readEnd(sectionLetter, position);
    } else if (letter == "\f") {
        this.endStretch();
        this.push(pageBreakLetter, position);
    } else if ((letter == "\u0001" || letter == "/") && this.places.at(position, position + 1).InlineShapes.Count > 0) {
        this.readShape(position);
    } else {
        this.stretch = this.stretch || [position, position, this.letters.length];
        this.push(letter || "\u0000", position);
        this.stretch[1] = position + 1;
    }
};

StoryReader.prototype.readShape = function (position) {
    var type = this.places.range.InlineShapes.Item(1).Type;
    this.endStretch();
    if (type == 1 || type == 2) {
        this.push(objectLetter, position);
        this.details.push(type == 1 ? "embedded" : "linked");
    } else {
        this.push(pictureLetter, position);
    }
};

StoryReader.prototype.readEnd = function (letter, position) {
    this.endStretch();
    this.push(letter, position);
    if (letter == rowLetter) {
        return;
    }
    var format = this.places.at(position, position + 1).ParagraphFormat;
    this.paragraphs.push([this.styleNames.english(format.Style.NameLocal), format.Alignment]);
};

StoryReader.prototype.endStretch = function () {
    if (this.stretch) {
        this.stretches.push(this.stretch);
        this.stretch = null;
    }
};

/// The fonts as they are now, for each place of the text.
StoryReader.prototype.readFonts = function () {
    var fonts = [];
    for (var i = 0; i < this.letters.length; i++) {
        fonts.push(null);
    }
    for (var s = 0; s < this.stretches.length; s++) {
        this.readFontsOf(this.stretches[s][0], this.stretches[s][1], this.stretches[s][2], fonts);
    }
    return fonts;
};

/// Where a property differs within the text, the halves are read.
StoryReader.prototype.readFontsOf = function (start, end, place, fonts) {
    var font = this.places.at(start, end).Font;
    var found = {name: font.Name, size: font.Size, flags: 0}, isOne = found.name !== "" && found.size != mixed;
    var flags = [font.Bold, font.Italic, font.Underline, font.StrikeThrough];
    for (var f = 0; f < flags.length; f++) {
        isOne = isOne && flags[f] != mixed;
        found.flags += flags[f] ? 1 << f : 0;
    }
    if (isOne || end - start == 1) {
        for (var i = 0; i < end - start; i++) {
            fonts[place + i] = found;
        }
        return;
    }
    var middle = Math.floor((start + end) / 2);
    this.readFontsOf(start, middle, place, fonts);
    this.readFontsOf(middle, end, place + middle - start, fonts);
};

/// Styles by their English names, whatever the language of Word, which is one for all documents.
function StyleNames(document) {
    this.names = knownNames || {};
    if (knownNames) {
        return;
    }
    knownNames = this.names;
    for (var name in styleNumbers) {
        try {
            this.names["=" + document.Styles.Item(styleNumbers[name]).NameLocal] = name;
        } catch (missing) {
        }
    }
}

StyleNames.prototype.english = function (local) {
    return this.names["=" + local] || local;
};

var knownNames = null;

var styleNumbers = {
    "Normal": -1, "Heading 1": -2, "Heading 2": -3, "Heading 3": -4, "Heading 9": -10, "Header": -32, "Footer": -33,
    "Title": -63, "Plain Text": -91
};

function sectionEndsOf(document) {
    var ends = [], sections = document.Sections, count = sections.Count;
    for (var i = 1; i < count; i++) {
        ends.push(sections.Item(i).Range.End);
    }
    return ends;
}

/// The ranges of all stories: the body, then of each section header and footer; null where a section shows what the one
/// before it does.
function rangesOf(document) {
    var ranges = [document.Content], sections = document.Sections, count = sections.Count;
    for (var i = 1; i <= count; i++) {
        var section = sections.Item(i), parts = [section.Headers.Item(1), section.Footers.Item(1)];
        for (var p = 0; p < 2; p++) {
            ranges.push(i > 1 && parts[p].LinkToPrevious ? null : parts[p].Range);
        }
    }
    return ranges;
}

function pagesOf(document) {
    var pages = [], sections = document.Sections, count = sections.Count;
    for (var i = 1; i <= count; i++) {
        var setup = sections.Item(i).PageSetup;
        pages.push([setup.Orientation, Math.round(setup.LeftMargin)]);
    }
    return pages;
}

/// Bookmarks of the stories, each {story, start, end, name}; positions as places of the text, -1 inside a field.
function bookmarksOf(ranges, readers) {
    var found = [];
    for (var s = 0; s < ranges.length; s++) {
        var bookmarks = ranges[s] ? ranges[s].Bookmarks : null, count = bookmarks ? bookmarks.Count : 0, places = readers[s];
        for (var i = 1; i <= count; i++) {
            var bookmark = bookmarks.Item(i), start = places.placeAt[bookmark.Start];
            found.push({
                story: s, name: bookmark.Name, start: start === undefined ? -1 : start, position: bookmark.Start,
                endPosition: bookmark.End
            });
        }
    }
    return found;
}

function placeOfBookmark(bookmarks, name) {
    for (var i = 0; i < bookmarks.length; i++) {
        if (same(bookmarks[i].name.toLowerCase(), name.toLowerCase())) {
            return [bookmarks[i].story, bookmarks[i].start];
        }
    }
    return null;
}

/// A link's target as the model says it: an address, or a place.
function resolved(target, bookmarks) {
    if (!target.address) {
        return placeOfBookmark(bookmarks, target.sub);
    }
    return target.address + (target.sub ? "#" + target.sub : "");
}

/// Everything that is compared. `restyled` are the fonts when every style has another one; the document is changed by that.
function readDocument(document, changesStyles) {
    var names = new StyleNames(document), ends = sectionEndsOf(document), ranges = rangesOf(document);
    var readers = [], stories = [];
    for (var r = 0; r < ranges.length; r++) {
        readers.push(ranges[r] ? new StoryReader(ranges[r], r === 0 ? ends : [], names) : null);
    }
    var bookmarks = bookmarksOf(ranges, readers);
    for (var s = 0; s < readers.length; s++) {
        stories.push(readers[s] ? storyOf(readers[s], s, bookmarks) : null);
    }
    var content = {pages: pagesOf(document), stories: stories};
    if (changesStyles) {
        changeStyles(document, stories);
    }
    for (var i = 0; i < readers.length && changesStyles; i++) {
        if (readers[i]) {
            stories[i].restyled = readers[i].readFonts();
        }
    }
    return content;
}

function storyOf(reader, number, bookmarks) {
    var links = [], tags = [];
    for (var l = 0; l < reader.links.length; l++) {
        if (reader.links[l][1] > 0) {
            links.push([reader.links[l][0], reader.links[l][1], resolved(reader.links[l][2], bookmarks)]);
        }
    }
    for (var b = 0; b < bookmarks.length; b++) {
        if (bookmarks[b].story == number) {
            tags.push(bookmarks[b].start);
        }
    }
    tags.sort(function (a, b) { return a - b; });
    if (hasOverlap(bookmarks, number)) {
        tags.push("one of them ends behind the next one's beginning");
    }
    return {
        text: reader.letters.join(""), paragraphs: reader.paragraphs, fonts: reader.readFonts(), links: links,
        details: reader.details, tags: tags, restyled: null
    };
}

function hasOverlap(bookmarks, story) {
    for (var a = 0; a < bookmarks.length; a++) {
        for (var b = 0; b < bookmarks.length; b++) {
            if (bookmarks[a].story == story && bookmarks[b].story == story && bookmarks[b].position > bookmarks[a].position &&
                bookmarks[a].endPosition > bookmarks[b].position) {
                return true;
            }
        }
    }
    return false;
}

var otherFont = "Palatino Linotype", otherSize = 31;

function isUsed(style, stories) {
    for (var s = 0; s < stories.length; s++) {
        for (var p = 0; stories[s] && p < stories[s].paragraphs.length; p++) {
            if (stories[s].paragraphs[p][0] == style) {
                return true;
            }
        }
    }
    return false;
}

/// Gives the document's styles another font, each property of it. Text that has the property itself stays.
function changeStyles(document, stories) {
    for (var i = 0; i < kitStyles.length; i++) {
        if (!isUsed(kitStyles[i][0], stories)) {
            continue;
        }
        var flags = kitStyles[i][1][2], font = document.Styles.Item(styleNumbers[kitStyles[i][0]]).Font;
        font.Name = otherFont;
        font.Size = otherSize;
        font.Bold = !(flags & 1);
        font.Italic = !(flags & 2);
        font.Underline = 1;
        font.StrikeThrough = true;
    }
}
