// What the kit asks of Windows. Nothing here changes anything outside the kit's folder.

var fileSystem = new ActiveXObject("Scripting.FileSystemObject");
var shell = new ActiveXObject("WScript.Shell");

function say(text) {
    WScript.Echo(text);
}

function now() {
    return new Date().getTime();
}

function joined(folder, name) {
    return folder.replace(/\\+$/, "") + "\\" + name;
}

function writeAscii(file, text) {
    var stream = fileSystem.CreateTextFile(file, true, false);
    stream.Write(text);
    stream.Close();
}

/// A file's first characters, with which formats are told apart.
function beginningOf(file, length) {
    var stream = fileSystem.OpenTextFile(file, 1);
    try {
        return stream.AtEndOfStream ? "" : stream.Read(length);
    } finally {
        stream.Close();
    }
}

function registered(value) {
    try {
        return String(shell.RegRead(value));
    } catch (missing) {
        return "";
    }
}

function answerOf(question) {
    try {
        var answer = question();
        return answer === undefined || answer === null ? "" : String(answer);
    } catch (failure) {
        return "not told: " + failureText(failure);
    }
}

var windowsKey = "HKLM\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\";
var officeKey = "HKLM\\SOFTWARE\\Microsoft\\Office\\";

function windowsFacts() {
    return {
        name: registered(windowsKey + "ProductName"),
        version: registered(windowsKey + "DisplayVersion") || registered(windowsKey + "ReleaseId") ||
            registered(windowsKey + "CurrentVersion"),
        build: (registered(windowsKey + "CurrentBuild") || registered(windowsKey + "CurrentBuildNumber")) + "." +
            (registered(windowsKey + "UBR") || "0"),
        processor: shell.Environment("Process").Item("PROCESSOR_ARCHITECTURE"),
        codePage: registered("HKLM\\SYSTEM\\CurrentControlSet\\Control\\Nls\\CodePage\\ACP"),
        locale: registered("HKCU\\Control Panel\\International\\LocaleName"),
        language: registered("HKLM\\SYSTEM\\CurrentControlSet\\Control\\Nls\\Language\\Default"),
        script: ScriptEngine() + " " + ScriptEngineMajorVersion() + "." + ScriptEngineMinorVersion()
    };
}

/// Where a class's program lies, as registered.
function placeOfClass(program, server) {
    var id = registered("HKCR\\" + program + "\\CLSID\\");
    return id ? registered("HKCR\\CLSID\\" + id + "\\" + server + "\\") : "";
}

function wordBitness(place, version) {
    var platform = registered(officeKey + "ClickToRun\\Configuration\\Platform") ||
        registered(officeKey + version + "\\Outlook\\Bitness");
    if (/64/.test(platform)) {
        return "64";
    }
    if (/86|32/.test(platform) || /\(x86\)/i.test(place)) {
        return "32";
    }
    return "not told";
}

function wordFacts(word) {
    var place = placeOfClass("Word.Application", "LocalServer32");
    var version = answerOf(function () { return word.Version; });
    return {
        name: answerOf(function () { return word.Name; }),
        version: version,
        build: answerOf(function () { return word.Build; }),
        bitness: wordBitness(place, version),
        language: answerOf(function () { return word.Language; }),
        place: place
    };
}
