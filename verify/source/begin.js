// The last of the sources: begins. A double click has no window to write to; the kit then opens one of its own.

function isWithoutWindow() {
    return /wscript\.exe$/i.test(WScript.FullName);
}

function openWindow() {
    shell.Run("cmd.exe /d /c title mirovelcom and Word & cscript.exe //nologo \"" + WScript.ScriptFullName + "\" /ask & pause", 1, false);
}

function givenWords() {
    var words = [];
    for (var i = 0; i < WScript.Arguments.length; i++) {
        words.push(String(WScript.Arguments(i)));
    }
    return words;
}

if (isWithoutWindow()) {
    openWindow();
} else {
    WScript.Quit(verify(givenWords()));
}
