// In front of a sample: its calls as lines of a method's name and arguments, instead of a document.
var methods = ["overrideRegistry", "trace", "start", "create", "close", "showLast", "stop", "getDocType", "getPropPages", "setOption",
    "pushDirectory", "startFile", "insertDiagram", "insertMark", "insertLocate", "popDirectory", "insertText", "insertEndl",
    "insertPageBreak", "insertField", "startHeader", "endHeader", "startFooter", "endFooter", "setStyle", "setFontName",
    "setFontSize", "setFontAttribute", "setTextAlign", "insertTOC", "startTOCEntry", "endTOCEntry", "startTable", "endTable",
    "addRow", "addCell", "setTableRowHeight", "insertTag", "insertXref", "insertImage", "insertFile", "setOrientation"];

function printable(value) {
    var text = value === true ? "1" : value === false ? "0" : String(value), result = "";
    for (var i = 0; i < text.length; i++) {
        var code = text.charCodeAt(i);
        result += code == 92 ? "\\\\" : code == 9 ? "\\t" : code >= 32 && code < 127 ? text.charAt(i) :
            "\\u" + ("000" + code.toString(16)).slice(-4);
    }
    return result;
}

function recorded(name) {
    return function () {
        var words = [name];
        for (var i = 0; i < arguments.length; i++) {
            words.push(printable(arguments[i]));
        }
        WScript.Echo(words.join("\t"));
        return "";
    };
}

function ActiveXObject() {
    for (var i = 0; i < methods.length; i++) {
        this[methods[i]] = recorded(methods[i]);
    }
}
