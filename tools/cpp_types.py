"""How the table's types are spelled in C++, in the vtable and in the throwing forms."""

import re

KEYWORDS = {"template", "operator", "default", "switch", "new", "delete", "class", "export", "register", "this",
            "short", "long", "float", "small", "near", "far", "interface"}


class CppTypes:
    """Spellings for a given set of described interfaces; every other interface travels as IDispatch."""

    def __init__(self, interfaces):
        self._described = {interface.name for interface in interfaces}

    def is_enumeration(self, kind):
        return re.fullmatch(r"(Wd|Mso)\w+", kind) is not None

    def is_interface(self, kind):
        return kind.endswith("*") and kind not in ("VARIANT*",) and not kind.endswith("**")

    def interface_name(self, kind):
        name = kind.rstrip("*")
        if name in self._described:
            return f"::Word::{name}"
        return "::IUnknown" if name == "IUnknown" else "::IDispatch"

    def pointer_name(self, kind):
        return "::Word::" + self.interface_name(kind).split("::")[-1] + "Ptr"

    def raw(self, kind):
        """The type in the vtable, for a parameter and below a pointer for the result."""
        if self.is_interface(kind):
            return self.interface_name(kind) + "*"
        return "long" if self.is_enumeration(kind) else kind

    def parameter(self, kind):
        """The parameter's type in the throwing form."""
        if kind == "VARIANT*":
            return "const _variant_t&"
        if kind == "BSTR":
            return "const _bstr_t&"
        return "bool" if kind == "VARIANT_BOOL" else self.raw(kind)

    def returned(self, kind):
        """The result's type in the throwing form."""
        if not kind:
            return "void"
        if self.is_interface(kind):
            return self.pointer_name(kind)
        return {"BSTR": "_bstr_t", "VARIANT": "_variant_t"}.get(kind, self.raw(kind))


def parameter_name(name):
    """The table's argument name in this house's style, clear of keywords and Windows' lower-case macros."""
    name = name.lstrip("_")
    lowered = name[0].lower() + name[1:]
    if name.isupper():
        lowered = name.lower()
    return lowered + "Argument" if lowered in KEYWORDS or lowered == "result" else lowered


def throwing_name(member):
    return {"propget": "Get", "propput": "Put", "method": ""}[member.kind] + member.name


def first_optional(arguments):
    """The index from which on all arguments are optional."""
    index = len(arguments)
    while index > 0 and arguments[index - 1].optional:
        index -= 1
    return index


def guid_initialiser(text):
    """The GUID as the eleven comma-separated numbers that __CRT_UUID_DECL takes."""
    first, second, third, fourth, fifth = text.split("-")
    tail = fourth + fifth
    octets = [f"0x{tail[i:i + 2]}" for i in range(0, 16, 2)]
    return ", ".join([f"0x{first}", f"0x{second}", f"0x{third}"] + octets)
