// Questions to Word that a script can ask: each in a scratch document of its own, and none depends on another.
//
//   about     the page's heading
//   name      the answer's name; of a switch that a stand-in for Word has: the switch's
//   isSwitch  whether it is one; the answers together are then a profile of this Word
//   question  for people
//   expected  the answer that mirovelcom is tested with
//   words     of answers that are no text: what they mean
//   run       asks, with the document; returns the answer

var questions = [];
var heading = "";

function about(text) {
    heading = text;
}

function fact(name, question, expected, run, words) {
    questions.push({about: heading, name: name, isSwitch: false, question: question, expected: expected, words: words || {}, run: run});
}

function choice(name, question, expected, words, run) {
    questions.push({about: heading, name: name, isSwitch: true, question: question, expected: expected, words: words, run: run});
}

/// Word's number for what failed: 0 when nothing did.
function errorOf(action) {
    try {
        action();
    } catch (failure) {
        return failure.number & 0xFFFF;
    }
    return 0;
}

function ends(range) {
    return range.Start + " to " + range.End;
}

function write(document, text) {
    document.Content.InsertAfter(text);
    return document;
}

function letters(range) {
    return String(range.Text || "").replace(/\r/g, "|").replace(/\f/g, "^").replace(/\u0007/g, "#").replace(/\u0001/g, "*");
}

function inWords(question, answer) {
    var words = question.words[String(answer)];
    return words === undefined ? String(answer) : words;
}

/// Asks one question. The outcome is green for what is expected, amber for another answer, red for none.
function askOne(question, word) {
    var result = {
        about: question.about, name: question.name, isSwitch: question.isSwitch, question: question.question,
        expected: question.expected, answer: null, outcome: "red", failure: "", isKnown: true
    };
    var document = null;
    try {
        document = word.Documents.Add();
        result.answer = question.run(document, word);
        result.outcome = typeof result.answer == typeof question.expected && same(result.answer, question.expected) ? "green" : "amber";
        result.isKnown = !question.isSwitch || question.words[String(result.answer)] !== undefined;
    } catch (failure) {
        result.failure = failureText(failure);
    }
    result.answerInWords = result.failure || inWords(question, result.answer);
    result.expectedInWords = inWords(question, question.expected);
    try {
        closeDocuments(word);
    } catch (gone) {
    }
    return result;
}

/// `names`: of those to ask; null for all.
function askAll(names, results, mayGoOn, said) {
    for (var i = 0; i < questions.length && mayGoOn(); i++) {
        if (names && !contains(names, questions[i].name)) {
            continue;
        }
        var result = askOne(questions[i], livingWord());
        results.push(result);
        said(result);
    }
}
