// Texts for people and for programs. The scripts keep to the language's third edition, which every Windows understands.

function fromHex(text, position, digits) {
    return String.fromCharCode(parseInt(text.substr(position, digits), 16));
}

/// A text in which what is not ASCII, and backslashes, were written as \uXXXX, \n, \r, \t or two backslashes.
function unescaped(text) {
    var result = "", simple = {n: "\n", r: "\r", t: "\t"};
    for (var i = 0; i < text.length; i++) {
        if (text.charAt(i) != "\\") {
            result += text.charAt(i);
            continue;
        }
        i++;
        if (text.charAt(i) == "u") {
            result += fromHex(text, i + 1, 4);
            i += 4;
        } else {
            var letter = text.charAt(i);
            result += simple[letter] || letter;
        }
    }
    return result;
}

function padded(text, length, filling) {
    text = String(text);
    while (text.length < length) {
        text = filling + text;
    }
    return text;
}

function jsonText(text) {
    var result = "\"";
    for (var i = 0; i < text.length; i++) {
        var code = text.charCodeAt(i), letter = text.charAt(i);
        if (letter == "\"" || letter == "\\") {
            result += "\\" + letter;
        } else if (code >= 32 && code < 127) {
            result += letter;
        } else {
            result += "\\u" + padded(code.toString(16), 4, "0");
        }
    }
    return result + "\"";
}

function isList(value) {
    return value instanceof Array;
}

/// The value as JSON, in ASCII. What is undefined becomes null.
function json(value, indent) {
    var parts = [], deeper = indent + "  ";
    if (value === null || value === undefined) {
        return "null";
    }
    if (typeof value == "number") {
        return isFinite(value) ? String(value) : "null";
    }
    if (typeof value == "boolean") {
        return String(value);
    }
    if (typeof value != "object") {
        return jsonText(String(value));
    }
    if (isList(value)) {
        for (var i = 0; i < value.length; i++) {
            parts.push(json(value[i], deeper));
        }
        return "[" + parts.join(", ") + "]";
    }
    for (var name in value) {
        parts.push(deeper + jsonText(name) + ": " + json(value[name], deeper));
    }
    return parts.length ? "{\r\n" + parts.join(",\r\n") + "\r\n" + indent + "}" : "{}";
}

function html(text) {
    var result = "";
    text = String(text);
    for (var i = 0; i < text.length; i++) {
        var code = text.charCodeAt(i), letter = text.charAt(i);
        if (letter == "<" || letter == ">" || letter == "&" || letter == "\"") {
            result += "&#" + code + ";";
        } else if (code < 32 || (code >= 0xE000 && code < 0xF900)) {
            result += "&#183;";
        } else if (code < 127) {
            result += letter;
        } else if (code >= 0xD800 && code < 0xDC00 && i + 1 < text.length) {
            i++;
            result += "&#" + ((code - 0xD800) * 1024 + text.charCodeAt(i) - 0xDC00 + 0x10000) + ";";
        } else {
            result += "&#" + code + ";";
        }
    }
    return result;
}

function hexadecimal(number) {
    return "0x" + padded((number < 0 ? number + 4294967296 : number).toString(16), 8, "0");
}

/// What an exception says, in one line.
function failureText(failure) {
    var text = String(failure.description || failure.message || (failure.number === undefined ? failure : "failed")).replace(/[\r\n]+/g, " ");
    return failure.number === undefined ? text : text + " (" + hexadecimal(failure.number) + ")";
}

/// Whether two texts are equal. Wine's script host goes wrong where both were put together of parts.
function same(a, b) {
    a = String(a);
    b = String(b);
    return a.length === b.length && a.indexOf(b) === 0;
}

function contains(list, value) {
    for (var i = 0; i < list.length; i++) {
        if (list[i] === value) {
            return true;
        }
    }
    return false;
}

function seconds(milliseconds) {
    return (milliseconds / 1000).toFixed(2);
}
