// What a document holds beside what the model says of the calls that wrote it (sessions.js).

/// The model's runs of fonts, a font for each place: {name, size, flags, isFromFile}, or null.
function expectedFonts(runs) {
    var fonts = [];
    for (var r = 0; r < runs.length; r++) {
        var font = runs[r][1] < 0 ? null : kitFonts[runs[r][1]];
        for (var i = 0; i < runs[r][0]; i++) {
            fonts.push(font ? {name: font[0], size: font[1], flags: font[2], isFromFile: !!runs[r][2]} : null);
        }
    }
    return fonts;
}

function fontText(font) {
    return font ? font.name + " " + font.size + (font.flags & 1 ? " bold" : "") + (font.flags & 2 ? " italic" : "") +
        (font.flags & 4 ? " underlined" : "") + (font.flags & 8 ? " struck" : "") : "none";
}

function styleFont(name) {
    for (var i = 0; i < kitStyles.length; i++) {
        if (kitStyles[i][0] == name) {
            return {name: kitStyles[i][1][0], size: kitStyles[i][1][1], flags: kitStyles[i][1][2]};
        }
    }
    return null;
}

function Comparison() {
    this.differences = [];
}

Comparison.prototype.note = function (kind, story, place, expected, found) {
    this.differences.push({kind: kind, story: story, place: place, expected: String(expected), found: String(found)});
};

Comparison.prototype.documents = function (expected, found) {
    if (expected.stories.length != found.stories.length) {
        this.note("text", 0, 0, expected.pages.length + " sections", found.pages.length + " sections");
        return;
    }
    for (var s = 0; s < expected.stories.length; s++) {
        if (expected.stories[s] && found.stories[s]) {
            this.stories(s, expected.stories[s], found.stories[s]);
        } else if (expected.stories[s] || found.stories[s]) {
            this.note("text", s, 0, expected.stories[s] ? "its own" : "that of the section before",
                found.stories[s] ? "its own" : "that of the section before");
        }
    }
    for (var p = 0; p < expected.pages.length; p++) {
        if (!same(expected.pages[p].join(), found.pages[p].join())) {
            this.note("page", 0, p, expected.pages[p].join(), found.pages[p].join());
        }
    }
};

/// Places mean the same only where the texts are the same; otherwise the first difference of the texts is all.
Comparison.prototype.stories = function (story, expected, found) {
    if (!same(expected.text, found.text)) {
        this.texts(story, expected.text, found.text);
        return;
    }
    this.lists("paragraph", story, expected.paragraphs, found.paragraphs, expected.text == "\r");
    this.lists("field, entry or object", story, expected.details, found.details, false);
    this.lists("bookmark", story, expected.tags, found.tags, false);
    this.links(story, expected.links, found.links);
    this.fonts(story, expected, found);
};

Comparison.prototype.texts = function (story, expected, found) {
    var i = 0;
    while (i < expected.length && i < found.length && expected.charAt(i) == found.charAt(i)) {
        i++;
    }
    this.note("text", story, i, expected.substr(i, 40), found.substr(i, 40));
};

Comparison.prototype.lists = function (kind, story, expected, found, isOpen) {
    for (var i = 0; i < Math.max(expected.length, found.length); i++) {
        var a = String(expected[i]), b = String(found[i]);
        if (!same(a, b) && !isOpen && !(isList(expected[i]) && expected[i][0] === "" && i < found.length)) {
            this.note(kind, story, i, a, b);
        }
    }
};

function lastName(path) {
    return path.substr(Math.max(path.lastIndexOf("\\"), path.lastIndexOf("/")) + 1);
}

/// Word may write an address in another way: a file's from the document's folder on, a host's with a slash behind.
function isSameTarget(expected, found) {
    if (typeof expected != "string" || typeof found != "string") {
        return same(expected, found);
    }
    if (contains(kitFiles, expected)) {
        return same(unescape(lastName(found)), expected);
    }
    return same(expected.replace(/\/$/, ""), found.replace(/\/$/, ""));
}

Comparison.prototype.links = function (story, expected, found) {
    for (var i = 0; i < Math.max(expected.length, found.length); i++) {
        var a = expected[i], b = found[i];
        if (!a || !b || a[0] != b[0] || a[1] != b[1] || !isSameTarget(a[2], b[2])) {
            this.note("link", story, a ? a[0] : b[0], a ? a.slice(1).join(" to ") : "none", b ? b.slice(1).join(" to ") : "none");
        }
    }
};

function isLinked(links, place) {
    for (var i = 0; i < links.length; i++) {
        if (place >= links[i][0] && place < links[i][0] + links[i][1]) {
            return true;
        }
    }
    return false;
}

/// Of other scripts Word may name a font of its own.
function hasFontOfOtherScript(letter) {
    return letter.charCodeAt(0) > 0x250;
}

Comparison.prototype.fonts = function (story, expected, found) {
    var fonts = expected.isRead ? expected.fonts : expectedFonts(expected.fonts), paragraph = 0, last = "", lastKept = "";
    for (var i = 0; i < fonts.length; i++) {
        var letter = expected.text.charAt(i);
        if (!isLetterOfText(letter)) {
            paragraph += letter == "\r" || letter == sectionLetter || letter == cellLetter ? 1 : 0;
            continue;
        }
        if (!fonts[i] || !found.fonts[i]) {
            continue;
        }
        var seen = seenFont(fonts[i], found.fonts[i], letter, isLinked(expected.links, i));
        var wrong = same(fontText(seen), fontText(fonts[i])) ? "" : fontText(fonts[i]) + fontText(seen);
        if (wrong && !same(wrong, last)) {
            this.note("font", story, i, fontText(fonts[i]), fontText(seen));
        }
        last = wrong;
        var kept = fonts[i].isFromFile || !found.restyled ? "" :
            keptProperties(fonts[i], found.restyled[i], found.paragraphs[paragraph], letter, isLinked(expected.links, i));
        if (kept && !same(kept, lastKept)) {
            this.note("direct formatting that the style gives", story, i, "none", kept);
        }
        lastKept = kept;
    }
};

/// The font that was found; what may be otherwise is taken from what is expected. Links have a look of their own.
function seenFont(expected, found, letter, isInLink) {
    return {
        name: hasFontOfOtherScript(letter) ? expected.name : found.name,
        size: found.size,
        flags: isInLink ? (found.flags & ~4) | (expected.flags & 4) : found.flags
    };
}

/// Properties that are the style's and stay although every style has others now.
function keptProperties(expected, restyled, paragraph, letter, isInLink) {
    var style = paragraph ? styleFont(paragraph[0]) : null, kept = [], flags = ["bold", "italic", "underlined", "struck"];
    if (!style || !restyled) {
        return "";
    }
    if (same(expected.name, style.name) && same(restyled.name, style.name) && !hasFontOfOtherScript(letter)) {
        kept.push("name");
    }
    if (expected.size == style.size && restyled.size == style.size) {
        kept.push("size");
    }
    for (var f = 0; f < flags.length; f++) {
        var flag = 1 << f;
        if ((expected.flags & flag) == (style.flags & flag) && (restyled.flags & flag) == (style.flags & flag) &&
            !(flag == 4 && isInLink)) {
            kept.push(flags[f]);
        }
    }
    return kept.join(", ");
}

/// The letters that a document has less often than it should.
function lostLetters(expected, found) {
    var counts = {}, lost = "";
    for (var i = 0; i < found.length; i++) {
        var letter = "=" + found.charAt(i);
        counts[letter] = (counts[letter] || 0) + 1;
    }
    for (var j = 0; j < expected.length; j++) {
        var wanted = "=" + expected.charAt(j);
        if (expected.charCodeAt(j) > 32 && expected.charCodeAt(j) < 127) {
            counts[wanted] = (counts[wanted] || 0) - 1;
            lost += counts[wanted] < 0 ? expected.charAt(j) : "";
        }
    }
    return lost;
}
