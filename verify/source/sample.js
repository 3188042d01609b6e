// The sample report: its calls (report.js), and what its documents must have in common.

function reportCalls() {
    var calls = callsOf(kitReport);
    for (var i = 0; i < calls.length; i++) {
        for (var a = 1; a < calls[i].length; a++) {
            if (typeof calls[i][a] == "string") {
                calls[i][a] = calls[i][a].replace("FILES\\", folders.reportFiles + "\\");
            }
        }
    }
    return calls;
}

/// What the calls say as text: without the marks of links, whose labels stay.
function textOfCalls(calls) {
    var text = "";
    for (var i = 0; i < calls.length; i++) {
        if (calls[i][0] == "insertText" || calls[i][0] == "insertXref") {
            text += calls[i][1].replace(/<a href="[^"]*">/g, "").replace(/<\/a>/g, "");
        }
    }
    return text;
}

function tagsOfCalls(calls) {
    var tags = 0;
    for (var i = 0; i < calls.length; i++) {
        tags += calls[i][0] == "insertTag" ? 1 : 0;
    }
    return tags;
}

function tagsOf(content) {
    var tags = 0;
    for (var s = 0; s < content.stories.length; s++) {
        tags += content.stories[s] ? content.stories[s].tags.length : 0;
    }
    return tags;
}

/// A document is its own model for another one.
function asModel(content) {
    var model = {pages: content.pages, stories: []};
    for (var s = 0; s < content.stories.length; s++) {
        var story = content.stories[s], copy = null;
        if (story) {
            copy = {
                text: story.text, paragraphs: story.paragraphs, links: story.links, details: story.details, tags: story.tags,
                fonts: story.fonts, isRead: true
            };
        }
        model.stories.push(copy);
    }
    return model;
}

/// The report in the composing modes, which it is written for: no text may be lost, every tag is there, and the documents are the same.
function playReport(results, mayGoOn) {
    var composed = null, calls = reportCalls();
    for (var m = modes.length - 1; m > 0 && mayGoOn(); m--) {
        var result = {name: "report", mode: modes[m].name, failures: [], differences: [], found: null, outcome: "green"};
        try {
            composed = compareReports(modes[m], reportInMode(modes[m], calls, result), composed, calls, result) || composed;
        } catch (failure) {
            result.failures.push(failureText(failure));
        }
        result.outcome = result.failures.length || result.differences.length ? "red" : "green";
        results.push(result);
        say("  " + result.mode + ", report: " + result.outcome);
    }
}

/// Returns what a composing mode wrote.
function compareReports(mode, content, composed, calls, result) {
    if (!content || mode.compose === 0) {
        return null;
    }
    if (tagsOf(content) != tagsOfCalls(calls)) {
        result.differences.push({kind: "bookmark", story: 0, place: 0, expected: tagsOfCalls(calls), found: tagsOf(content)});
    }
    if (composed) {
        var comparison = new Comparison();
        comparison.documents(asModel(composed), content);
        result.differences = result.differences.concat(comparison.differences.slice(0, 20));
    }
    return content;
}

function reportInMode(mode, calls, result) {
    var object = null, file = joined(folders.documents, "report " + mode.name + ".doc"), began = now();
    try {
        object = startObject(mode, joined(folders.reportFiles, "report.dot"));
        result.failures = play(object, calls, file, folders.files);
        result.seconds = (now() - began) / 1000;
        var content = readFile(file, false), lost = lostLetters(textOfCalls(calls), textOfStories(content));
        if (lost) {
            result.differences.push({kind: "text lost", story: 0, place: 0, expected: lost, found: ""});
        }
        return content;
    } catch (failure) {
        result.failures.push(failureText(failure));
        return null;
    } finally {
        if (object) {
            stopObject(object);
        }
    }
}
