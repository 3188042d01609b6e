// Behind the kit's sources: documents that are as their models, and then one after the other with one difference.
function asFound(session) {
    var found = {pages: [], stories: []};
    for (var p = 0; p < session.pages.length; p++) {
        found.pages.push(session.pages[p].slice(0));
    }
    for (var s = 0; s < session.stories.length; s++) {
        found.stories.push(session.stories[s] ? storyAsFound(session.stories[s]) : null);
    }
    return found;
}

function storyAsFound(story) {
    var fonts = expectedFonts(story.fonts), copy = {text: story.text, paragraphs: [], fonts: fonts, links: [], details: [], tags: []};
    for (var p = 0; p < story.paragraphs.length; p++) {
        copy.paragraphs.push(story.paragraphs[p].slice(0));
    }
    for (var l = 0; l < story.links.length; l++) {
        copy.links.push(story.links[l].slice(0));
    }
    copy.details = story.details.slice(0);
    copy.tags = story.tags.slice(0);
    copy.restyled = [];
    for (var f = 0; f < fonts.length; f++) {
        copy.restyled.push(fonts[f] ? {name: otherFont, size: otherSize, flags: ~fonts[f].flags} : null);
    }
    return copy;
}

function kindsOf(session, found) {
    var comparison = new Comparison(), kinds = [];
    comparison.documents(session, found);
    for (var i = 0; i < comparison.differences.length; i++) {
        kinds.push(comparison.differences[i].kind);
    }
    return kinds.join(" | ");
}

var wrong = "";
for (var i = 0; i < kitSessions.length; i++) {
    wrong += kindsOf(kitSessions[i], asFound(kitSessions[i]));
    wrong += kindsOf(kitArranged[i], asFound(kitArranged[i]));
}
WScript.Echo(wrong || "every model is as itself");

/// The first session whose body has what is changed, with the change.
function tryChange(has, change) {
    for (var i = 0; i < kitSessions.length; i++) {
        if (has(kitSessions[i].stories[0], kitSessions[i])) {
            var found = asFound(kitSessions[i]);
            change(found.stories[0], found);
            WScript.Echo(kindsOf(kitSessions[i], found));
            return;
        }
    }
    WScript.Echo("no session has it");
}

function always() {
    return true;
}

function placeOfFont(story) {
    for (var i = 0; i < story.fonts.length; i++) {
        if (story.fonts[i]) {
            return i;
        }
    }
}

function hasPlainText(story) {
    return story.paragraphs[0][0] == "Normal" && story.text.charAt(0) >= "a" && story.text.charAt(0) <= "z" &&
        fontText(expectedFonts(story.fonts)[0]) == fontText(styleFont("Normal"));
}

tryChange(always, function (story) { story.text = story.text.replace(/\r/, ""); });
tryChange(hasPlainText, function (story) { story.paragraphs[0][0] = "Title"; });
tryChange(hasPlainText, function (story) { story.paragraphs[0][1] = 3 - story.paragraphs[0][1]; });
tryChange(function (story) { return story.links.length === 1; }, function (story) { story.links[0][2] = "http://another.example/"; });
tryChange(function (story) { return story.links.length === 1; }, function (story) { story.links[0][1]++; });
tryChange(function (story) { return story.tags.length === 1; }, function (story) { story.tags[0]++; });
tryChange(hasPlainText, function (story) {
    story.fonts[placeOfFont(story)] = {name: "Times New Roman", size: 13, flags: 0};
});
tryChange(hasPlainText, function (story) { story.restyled[0].size = 12; });
tryChange(always, function (story, found) { found.pages[0][0] = 1 - found.pages[0][0]; });
tryChange(function (story) { return story.details.length === 1; }, function (story) { story.details[0] = "another"; });
tryChange(function (story, session) { return session.stories[1]; }, function (story, found) { found.stories[1] = null; });
