// A Word that the kit begins itself and ends itself. One that runs already is never touched.

var ownWord = null;

/// Fails when what was begun is not fresh: it would be somebody's.
function startWord() {
    var word = new ActiveXObject("Word.Application");
    if (word.Documents.Count !== 0 || word.Visible) {
        throw new Error(1, "Word gave the kit a Word that is in use. Close Word and begin again.");
    }
    ownWord = word;
    try {
        word.DisplayAlerts = 0;
    } catch (older) {
    }
    try {
        word.AutomationSecurity = 3; // documents' own programs do not run
    } catch (unknown) {
    }
    return word;
}

function closeDocuments(word) {
    while (word.Documents.Count > 0) {
        word.Documents.Item(1).Close(0);
    }
}

function quitWord() {
    var word = ownWord;
    ownWord = null;
    if (!word) {
        return;
    }
    try {
        closeDocuments(word);
    } catch (failure) {
    }
    try {
        word.Quit(0);
    } catch (failure) {
    }
}

/// The kit's Word; another one when that has ended.
function livingWord() {
    if (ownWord) {
        try {
            ownWord.Documents.Count;
            return ownWord;
        } catch (gone) {
            ownWord = null;
        }
    }
    return startWord();
}
