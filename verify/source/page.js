// The result as a page for people: no script in it, nothing from elsewhere.

var outcomeWords = {green: "as expected", amber: "otherwise", red: "failed"};

var pageStyle = "body{font:15px/1.45 Segoe UI,Arial,sans-serif;margin:2em auto;max-width:64em;padding:0 1em;color:#1c2733}" +
    "h1{font-size:1.7em;margin-bottom:.2em}h2{margin-top:1.8em;border-bottom:2px solid #cfd8e3;padding-bottom:.2em}" +
    "table{border-collapse:collapse;width:100%;margin:.6em 0}td,th{text-align:left;vertical-align:top;padding:.35em .6em;" +
    "border-bottom:1px solid #dfe5ec}th{background:#eef2f7}.green,.amber,.red{font-weight:bold;white-space:nowrap}" +
    ".green{color:#14692f}.amber{color:#8a5a00}.red{color:#b01818}tr.isamber{background:#fff6e0}tr.isred{background:#fdeaea}" +
    ".sum{display:table;width:100%;border-spacing:.6em 0;margin:1em -.6em}.sum div{display:table-cell;padding:.7em 1em;" +
    "border-radius:.4em;background:#eef2f7;width:33%}.sum b{font-size:1.5em}.sum .green{background:#e3f4e8}" +
    ".sum .amber{background:#fff0cc}.sum .red{background:#fbdcdc}.sum div.green,.sum div.amber,.sum div.red{white-space:normal}" +
    "td.about{background:#f7f9fb;font-weight:bold}.note{color:#51606f}";

function cell(text) {
    return "<td>" + html(text) + "</td>";
}

function row(outcome, texts) {
    var cells = "<td class=\"" + outcome + "\">" + outcomeWords[outcome] + "</td>";
    for (var i = 0; i < texts.length; i++) {
        cells += cell(texts[i]);
    }
    return "<tr class=\"is" + outcome + "\">" + cells + "</tr>\r\n";
}

function headings(texts) {
    var cells = "";
    for (var i = 0; i < texts.length; i++) {
        cells += "<th>" + html(texts[i]) + "</th>";
    }
    return "<tr>" + cells + "</tr>\r\n";
}

function count(list, outcome) {
    var number = 0;
    for (var i = 0; i < list.length; i++) {
        number += list[i].outcome == outcome ? 1 : 0;
    }
    return number;
}

function worst(result) {
    var all = result.questions.concat(result.documents);
    return count(all, "red") || result.failure ? "red" : count(all, "amber") ? "amber" : "green";
}

var advice = {
    green: "Everything is as mirovelcom expects. Nothing is to be done. Please send the file result.json to those who gave you " +
        "the kit all the same: it says that this Word is as the others.",
    amber: "Every document came out right. This Word answers some questions otherwise than the Word that mirovelcom is tested " +
        "with; the rows are marked. Please send result.json to those who gave you the kit: they can then test with a Word " +
        "that answers like yours.",
    red: "Something failed; the rows are marked. A document that differs is a mistake of mirovelcom with this Word, not one of " +
        "yours: please send result.json to those who gave you the kit. If Word itself could not be started or answered nothing, " +
        "start Word once by hand, answer what it asks, end it, and run the kit again."
};

function sum(result) {
    var all = result.questions.concat(result.documents), text = "<div class=\"sum\">";
    var outcomes = ["green", "amber", "red"];
    for (var i = 0; i < outcomes.length; i++) {
        text += "<div class=\"" + outcomes[i] + "\"><b>" + count(all, outcomes[i]) + "</b><br>" + outcomeWords[outcomes[i]] + "</div>";
    }
    return text + "</div>\r\n";
}

function factRows(title, facts) {
    var text = "";
    for (var name in facts) {
        text += "<tr>" + cell(title + ": " + name) + cell(facts[name]) + "</tr>\r\n";
    }
    return text;
}

function machineTable(result) {
    return "<h2>This machine</h2>\r\n<table>" + factRows("Windows", result.windows) + factRows("Word", result.word) +
        factRows("mirovelcom", result.server) + "</table>\r\n";
}

function documentRow(document) {
    var found = document.failures.join("; ");
    for (var i = 0; i < Math.min(document.differences.length, 3); i++) {
        var one = document.differences[i];
        found += (found ? "; " : "") + one.kind + ": expected " + one.expected + ", found " + one.found;
    }
    return row(document.outcome, [document.name, document.mode, found]);
}

function documentTable(result) {
    var rows = "", text = "<h2>Documents</h2>\r\n";
    for (var i = 0; i < result.documents.length; i++) {
        if (result.documents[i].outcome != "green") {
            rows += documentRow(result.documents[i]);
        }
    }
    text += "<p>" + result.documents.length + " documents were written through mirovelcom and read back: " +
        count(result.documents, "green") + " are as they should be.</p>\r\n";
    return rows ? text + "<table>" + headings(["", "Document", "Mode", "What is wrong"]) + rows + "</table>\r\n" : text;
}

function costTable(result) {
    var rows = "";
    for (var i = 0; i < result.costs.length; i++) {
        var cost = result.costs[i];
        rows += "<tr>" + cell(cost.name == "script" ? "a script that drives Word itself" : "mirovelcom, " + cost.name) +
            cell(cost.failure || cost.seconds.toFixed(2)) + cell(cost.wordCalls === null ? "not counted" : cost.wordCalls) + "</tr>\r\n";
    }
    return rows ? "<h2>Costs of a report</h2>\r\n<table>" + headings(["Written by", "Seconds", "Calls of Word"]) + rows +
        "</table>\r\n" : "";
}

function questionTable(title, result, outcomes) {
    var text = "";
    for (var o = 0; o < outcomes.length; o++) {
        text += questionRows(result.questions, outcomes[o]);
    }
    return text ? "<h2>" + title + "</h2>\r\n" + text : "";
}

function questionRows(questions, outcome) {
    var rows = "", last = "";
    for (var i = 0; i < questions.length; i++) {
        if (questions[i].outcome != outcome) {
            continue;
        }
        if (questions[i].about != last) {
            rows += "<tr><td class=\"about\" colspan=\"4\">" + html(questions[i].about) + "</td></tr>\r\n";
        }
        last = questions[i].about;
        rows += row(outcome, [questions[i].question, questions[i].answerInWords, questions[i].expectedInWords]);
    }
    return rows ? "<table>" + headings(["", "Question", "This Word", "Expected"]) + rows + "</table>\r\n" : "";
}

function page(result) {
    var outcome = worst(result);
    return "<!DOCTYPE html>\r\n<html lang=\"en\"><head><meta charset=\"us-ascii\"><title>mirovelcom and this Word</title><style>" +
        pageStyle + "</style></head><body>\r\n<h1>mirovelcom and this Word</h1>\r\n<p class=\"note\">" + html(result.kit.began) +
        (result.kit.stopped ? ", stopped before the end" : "") + "</p>\r\n" + sum(result) +
        (result.failure ? "<p class=\"red\" style=\"white-space:normal\">" + html(result.failure) + "</p>\r\n" : "") +
        "<p><b>What to do.</b> " + html(advice[outcome]) + "</p>\r\n" +
        questionTable("Questions to Word, answered otherwise or not at all", result, ["red", "amber"]) + documentTable(result) + costTable(result) +
        machineTable(result) + questionTable("Questions to Word, answered as expected", result, ["green"]) + "<p class=\"note\">Nothing was sent anywhere. The folder of this page holds all " +
        "that the kit wrote; it may be deleted.</p>\r\n</body></html>\r\n";
}
