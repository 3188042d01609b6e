// Plays the sessions of sessions.js through the DLL, and reads each document back.

var methodNumbers = {
    insertField: [0], setFontSize: [0], setFontAttribute: [0, 1], setTextAlign: [0], setTableRowHeight: [0], insertFile: [1],
    setOrientation: [0]
};

/// Calls from lines of a method's name and its arguments, with tabs between.
function callsOf(steps) {
    var calls = [], lines = steps.split("\n");
    for (var i = 0; i < lines.length; i++) {
        if (lines[i]) {
            calls.push(callOf(lines[i].split("\t")));
        }
    }
    return calls;
}

function callOf(words) {
    var call = [words[0]], numbers = methodNumbers[words[0]] || [];
    for (var i = 1; i < words.length; i++) {
        var argument = unescaped(words[i]);
        call.push(contains(numbers, i - 1) ? Number(argument) : argument);
    }
    if (call[0] == "setFontAttribute") {
        call[2] = call[2] !== 0;
    }
    return call;
}

function makeCall(object, call) {
    switch (call.length) {
    case 1:
        object[call[0]]();
        break;
    case 2:
        object[call[0]](call[1]);
        break;
    default:
        object[call[0]](call[1], call[2]);
    }
}

/// Names of the kit's files become paths; none is part of another's.
function withPaths(call, folder) {
    var result = [call[0]];
    for (var i = 1; i < call.length; i++) {
        var value = call[i];
        for (var f = 0; f < kitFiles.length && typeof value == "string"; f++) {
            value = value.split(kitFiles[f]).join(joined(folder, kitFiles[f]));
        }
        result.push(value);
    }
    return result;
}

function isAboutFiles(name) {
    return name == "insertFile" || name == "insertImage" || name == "insertXref" || name == "insertText";
}

/// Makes the calls; returns what failed.
function play(object, calls, file, folder) {
    var failures = [];
    function attempt(call) {
        try {
            makeCall(object, call);
        } catch (failure) {
            failures.push(call[0] + ": " + failureText(failure));
        }
    }
    attempt(["create", file]);
    for (var i = 0; i < calls.length && failures.length < 20; i++) {
        attempt(isAboutFiles(calls[i][0]) ? withPaths(calls[i], folder) : calls[i]);
    }
    attempt(["close"]);
    return failures;
}

/// The template that sessions begin with: Word's own, with the fonts that the model has for its styles.
function writeTemplate(word, file) {
    var document = word.Documents.Add();
    try {
        for (var i = 0; i < kitStyles.length; i++) {
            var style = document.Styles.Item(styleNumbers[kitStyles[i][0]]), font = kitStyles[i][1];
            style.Font.Name = font[0];
            style.Font.Size = font[1];
            style.Font.Bold = !!(font[2] & 1);
            style.Font.Italic = !!(font[2] & 2);
            style.ParagraphFormat.Alignment = kitStyles[i][2];
        }
        document.SaveAs(file, 1);
    } finally {
        document.Close(0);
    }
}

/// `changesStyles`: whether direct formatting is told from that of styles.
function readFile(file, changesStyles) {
    var document = livingWord().Documents.Open(file, false, true, false);
    try {
        return readDocument(document, changesStyles);
    } finally {
        document.Close(0);
    }
}

function textOfStories(content) {
    var text = "";
    for (var s = 0; s < content.stories.length; s++) {
        text += content.stories[s] ? content.stories[s].text : "";
    }
    return text;
}

/// Found for us, when something is wrong: fonts as runs.
function briefly(content) {
    var stories = [];
    for (var s = 0; s < content.stories.length; s++) {
        var story = content.stories[s];
        stories.push(story ? {
            text: story.text, paragraphs: story.paragraphs, links: story.links, details: story.details, tags: story.tags,
            fonts: runsOfFonts(story.fonts)
        } : null);
    }
    return {pages: content.pages, stories: stories};
}

function runsOfFonts(fonts) {
    var runs = [];
    for (var i = 0; i < fonts.length; i++) {
        var text = fontText(fonts[i]);
        if (runs.length && same(runs[runs.length - 1][1], text)) {
            runs[runs.length - 1][0]++;
        } else {
            runs.push([1, text]);
        }
    }
    return runs;
}

/// One session in one mode: what failed, what differs.
function playSession(object, mode, session) {
    var file = joined(folders.documents, session.name + " " + mode.name + ".doc");
    var result = {name: session.name, mode: mode.name, failures: [], differences: [], found: null, outcome: "green"};
    var began = now();
    result.failures = play(object, callsOf(session.steps), file, folders.files);
    result.seconds = (now() - began) / 1000;
    try {
        compareAll(result, session, readFile(file, mode.compose !== 0));
    } catch (failure) {
        result.failures.push("reading the document: " + failureText(failure));
    }
    if (result.failures.length || result.differences.length) {
        result.outcome = "red";
    }
    return result;
}

function compareAll(result, session, found) {
    var comparison = new Comparison();
    comparison.documents(session, found);
    result.differences = comparison.differences.slice(0, 20);
    if (result.differences.length) {
        result.found = briefly(found);
    }
}

/// The counting writer's documents are what the calls say where the calls are arranged as its clients are advised to.
function sessionsOf(mode) {
    return mode.compose === 0 ? kitArranged : kitSessions;
}

/// Sessions in a mode. One object writes them all, as a host would; after a failure another one begins.
function playSessions(mode, first, count, results, mayGoOn) {
    var object = null, sessions = sessionsOf(mode);
    try {
        for (var i = first; i < Math.min(first + count, sessions.length) && mayGoOn(); i++) {
            object = object || startObject(mode, folders.template);
            var result = playSession(object, mode, sessions[i]);
            results.push(result);
            say("  " + mode.name + ", " + result.name + ": " + result.outcome);
            if (result.failures.length) {
                stopObject(object);
                object = null;
            }
        }
    } finally {
        if (object) {
            stopObject(object);
        }
    }
}
