// The way of the kit from the first line that it says to the last.

var kitVersion = "1";
var folders = {};

var explanation = [
    "This kit finds out how this machine's Word behaves, and whether mirovelcom writes right documents with it.",
    "",
    "It will  start a Word of its own, which is not seen, and end it again;",
    "         ask it questions, in documents that are thrown away;",
    "         write documents of its own through mirovelcom, and read them back;",
    "         write all of that into one new folder.",
    "It leaves alone  a Word that runs, and every document that is open or yours;",
    "                 the settings of Windows, of Word and of mirovelcom; the net.",
    "",
    "It takes some minutes. To stop it, delete the file RUNNING in its folder; it then ends its Word and says what it knows."
];

/// /name:value and /name, as they were given.
function readOptions(words) {
    var options = {to: "", sessions: 1000, first: 1, chapters: 150, questions: true, report: true, beside: false, ask: false, help: false, kit: "", only: ""};
    for (var i = 0; i < words.length; i++) {
        var parts = /^[\/-]([A-Za-z?]+)(?::(.*))?$/.exec(words[i]);
        var name = parts ? parts[1].toLowerCase() : "";
        if (!parts || (options[name] === undefined && name != "?")) {
            throw new Error(1, "There is no option " + words[i] + "; /help tells of those that there are.");
        }
        if (name == "?" || name == "help") {
            options.help = true;
        } else if (typeof options[name] == "boolean") {
            options[name] = parts[2] === undefined || parts[2] === "" ? true : parts[2] != "0";
        } else {
            options[name] = typeof options[name] == "number" ? Number(parts[2]) : parts[2];
        }
    }
    return options;
}

var usage = [
    "cscript verify.wsf [/to:FOLDER] [/sessions:N] [/first:N] [/chapters:N] [/questions:0] [/report:0]",
    "                   [/only:NAMES] [/beside]",
    "",
    "  /to:FOLDER     where the folder with the results is made; the desktop unless given",
    "  /sessions:N    how many of the recorded sessions are played in each mode; all unless given",
    "  /first:N       the first one of them",
    "  /chapters:N    the length of the report whose costs are measured; 0: none are; 150 unless given",
    "  /questions:0   asks Word no questions",
    "  /only:NAMES    asks the questions with these names alone, with commas between",
    "  /report:0      leaves the sample report out",
    "  /beside        uses the DLL beside the kit even where one is registered"
];

function sayAll(lines) {
    for (var i = 0; i < lines.length; i++) {
        say(lines[i]);
    }
}

function timeText(date) {
    return date.getFullYear() + "-" + padded(date.getMonth() + 1, 2, "0") + "-" + padded(date.getDate(), 2, "0") + " " +
        padded(date.getHours(), 2, "0") + "." + padded(date.getMinutes(), 2, "0") + "." + padded(date.getSeconds(), 2, "0");
}

/// The one folder that the kit writes to; it is new.
function makeFolders(parent, kitFolder, time) {
    var base = joined(parent, "mirovelcom and Word " + time), folder = base;
    for (var number = 2; fileSystem.FolderExists(folder); number++) {
        folder = base + " " + number;
    }
    fileSystem.CreateFolder(folder);
    folders.result = folder;
    folders.documents = joined(folder, "documents");
    folders.scratch = joined(folder, "scratch");
    fileSystem.CreateFolder(folders.documents);
    fileSystem.CreateFolder(folders.scratch);
    folders.template = joined(folders.scratch, "kit.dot");
    folders.running = joined(folder, "RUNNING");
    folders.files = joined(kitFolder, "files");
    folders.reportFiles = joined(kitFolder, "report-files");
    if (!fileSystem.FolderExists(folders.reportFiles)) {
        folders.reportFiles = fileSystem.GetAbsolutePathName(joined(kitFolder, "..\\samples\\report-files"));
    }
    writeAscii(folders.running, "Delete this file to stop the kit.\r\n");
}

function mayGoOn() {
    return fileSystem.FileExists(folders.running);
}

/// The answers by the names of the stand-in's switches; what it has no word for is left out.
function switchesOf(questions) {
    var switches = {};
    for (var i = 0; i < questions.length; i++) {
        if (questions[i].isSwitch && !questions[i].failure && questions[i].isKnown) {
            switches[questions[i].name] = questions[i].answer;
        }
    }
    return switches;
}

/// Folders may have a user's name in them.
function withoutFolders(text) {
    var known = [[folders.result, "<result>"], [folders.kit, "<kit>"]];
    for (var i = 0; i < known.length; i++) {
        text = text.split(known[i][0]).join(known[i][1]);
        text = text.split(known[i][0].replace(/\\/g, "\\\\")).join(known[i][1]);
    }
    return text;
}

function writeResult(result) {
    result.switches = switchesOf(result.questions);
    writeAscii(joined(folders.result, "result.json"), withoutFolders(json(result, "")) + "\r\n");
    writeAscii(joined(folders.result, "result.html"), withoutFolders(page(result)));
}

function askQuestions(result, options) {
    var names = options.only ? options.only.split(",") : null;
    say("Questions (" + (names || questions).length + "):");
    askAll(names, result.questions, mayGoOn, function (one) {
        say("  " + one.outcome + "  " + one.question + "  " + one.answerInWords +
            (one.outcome == "green" ? "" : "  (expected: " + one.expectedInWords + ")"));
    });
}

function playDocuments(result, options) {
    writeTemplate(livingWord(), folders.template);
    say("Documents (" + Math.min(options.sessions, kitSessions.length - options.first + 1) + " in each of three modes):");
    for (var m = 0; m < modes.length && options.sessions > 0; m++) {
        playSessions(modes[m], options.first - 1, options.sessions, result.documents, mayGoOn);
    }
    if (options.report) {
        playReport(result.documents, mayGoOn);
    }
}

function runKit(result, options) {
    result.windows = windowsFacts();
    result.word = wordFacts(livingWord());
    say("Word " + result.word.version + ", build " + result.word.build);
    if (options.questions) {
        askQuestions(result, options);
    }
    if (!options.sessions && !options.report && !options.chapters) {
        return;
    }
    findServer(folders.kit, options.beside);
    result.server = server;
    say("mirovelcom, " + server.how + ": " + server.place);
    if (mayGoOn() && (options.sessions || options.report)) {
        playDocuments(result, options);
    }
    if (mayGoOn() && options.chapters) {
        say("Costs:");
        measure(result.costs, options.chapters, mayGoOn);
    }
}

function conclude(result) {
    result.kit.stopped = !mayGoOn();
    result.kit.ended = timeText(new Date());
    writeResult(result);
    try {
        fileSystem.DeleteFile(folders.running);
    } catch (deleted) {
    }
    var all = result.questions.concat(result.documents);
    say("");
    say(count(all, "green") + " as expected, " + count(all, "amber") + " otherwise, " + count(all, "red") + " failed.");
    say("For you:  " + joined(folders.result, "result.html"));
    say("For us:   " + joined(folders.result, "result.json"));
    say("Nothing was sent anywhere.");
    return worst(result) == "red" ? 1 : 0;
}

/// The script's status: 0 when nothing failed.
function verify(words) {
    var options = readOptions(words);
    if (options.help) {
        sayAll(usage);
        return 0;
    }
    sayAll(explanation);
    if (options.ask) {
        say("");
        say("Press Enter to begin, or close this window.");
        WScript.StdIn.ReadLine();
    }
    folders.kit = options.kit || fileSystem.GetParentFolderName(WScript.ScriptFullName);
    var result = {
        kit: {version: kitVersion, began: timeText(new Date()), ended: "", stopped: false}, failure: "", windows: {}, word: {},
        server: server, switches: {}, questions: [], documents: [], costs: []
    };
    makeFolders(options.to || shell.SpecialFolders("Desktop"), folders.kit, result.kit.began);
    say("The folder: " + folders.result);
    say("");
    try {
        runKit(result, options);
    } catch (failure) {
        result.failure = failureText(failure);
        say("Failed: " + result.failure);
    } finally {
        quitWord();
    }
    return conclude(result);
}
