"""Clients that a test writes as a list of calls, in three languages.

A call is a tuple: the method's name and its arguments (text, numbers, or Expression). Every call answers with one line of
output, whatever the language:

    insertText -> ok
    insertText -> insertText\\nCOMERROR 0x800706be\\n...
"""


class Expression(str):
    """An argument given in the client's own language, e.g. Expression('String(100, "x")')."""


def vbscript(calls):
    lines = ["On Error Resume Next", 'Set mirovel = CreateObject("Mirovel.Mirovel")']
    for name, *arguments in calls:
        words = ", ".join(_vbscript_word(a) for a in arguments)
        lines += [
            f"mirovel.{name} {words}".rstrip(),
            "If Err.Number = 0 Then",
            f'    WScript.Echo "{name} -> ok"',
            "Else",
            f'    WScript.Echo "{name} -> " & Replace(Err.Description, vbLf, "\\n")',
            "    Err.Clear",
            "End If",
        ]
    return "\r\n".join(lines) + "\r\n"


def _vbscript_word(argument):
    if isinstance(argument, Expression) or not isinstance(argument, str):
        return str(argument)
    # Wine's VBScript reads a script in the ANSI code page, and has no ChrW.
    argument.encode("cp1252")
    if not argument.isprintable():
        raise ValueError(f"Wine's VBScript cannot write {argument!r}")
    return '"' + argument.replace('"', '""') + '"'


def jscript(calls):
    lines = ['var mirovel = new ActiveXObject("Mirovel.Mirovel");']
    for name, *arguments in calls:
        words = ", ".join(_jscript_word(a) for a in arguments)
        lines += [
            "try {",
            f"    mirovel.{name}({words});",
            f'    WScript.Echo("{name} -> ok");',
            "} catch (e) {",
            f'    WScript.Echo("{name} -> " + e.description.split("\\n").join("\\\\n"));',
            "}",
        ]
    return "\r\n".join(lines) + "\r\n"


def _jscript_word(argument):
    if isinstance(argument, Expression) or not isinstance(argument, str):
        return str(argument)
    return '"' + "".join(_escaped(unit) for unit in _utf16(argument)) + '"'


def driver_steps(calls):
    """The C++ driver's file (clients/driver.cpp)."""
    return "".join("\t".join([name, *(_driver_word(a) for a in arguments)]) + "\n" for name, *arguments in calls)


NULL_TEXT = Expression("\\0")


def _driver_word(argument):
    if isinstance(argument, Expression) or not isinstance(argument, str):
        return str(argument)
    return "".join(_escaped(unit) for unit in _utf16(argument))


def in_transcript(text):
    """A text as transcripts have it between quotation marks; JScript takes it, too."""
    return "".join(chr(unit) if unit not in (0x22, 0x5C) and 0x20 <= unit < 0x7F else
                   "\\" + chr(unit) if unit in (0x22, 0x5C) else f"\\u{unit:04x}" for unit in _utf16(text))


def _utf16(text):
    data = text.encode("utf-16-le", "surrogatepass")
    return [int.from_bytes(data[i:i + 2], "little") for i in range(0, len(data), 2)]


def _escaped(unit):
    if unit in (0x22, 0x5C) or not 0x20 <= unit < 0x7F:
        return f"\\u{unit:04x}"
    return chr(unit)
