"""Writes the type library's source: the dual interfaces and the two classes, with Word's identities."""

from cpp_types import CppTypes
from object_model import APPLICATION_CLASS_ID, DOCUMENT_CLASS_ID, LIBRARY_ID

IDL_START = f"""\
// Generated from word-9.0.tsv by tools/generate_object_model.py.
import "oaidl.idl";

[uuid({LIBRARY_ID}), version(8.1), helpstring("Microsoft Word 9.0 Object Library")]
library Word
{{
    importlib("stdole2.tlb");

"""

IDL_END = f"""\
    [uuid({APPLICATION_CLASS_ID})]
    coclass Application
    {{
        [default] interface _Application;
    }};

    [uuid({DOCUMENT_CLASS_ID})]
    coclass Document
    {{
        [default] interface _Document;
    }};
}};
"""


def idl_type(types, kind):
    if kind == "SAFEARRAY**":
        return "SAFEARRAY(BSTR)*"
    return types.raw(kind).replace("::Word::", "").replace("::", "")


def member_declaration(types, member):
    attributes = [f"id(0x{member.dispid & 0xFFFFFFFF:x})"]
    if member.kind != "method":
        attributes.append(member.kind)
    parameters = []
    for argument in member.arguments:
        direction = "in, optional" if argument.optional else "in"
        parameters.append(f"[{direction}] {idl_type(types, argument.type)} {argument.name}")
    if member.result:
        # Not "result": a type library keeps one spelling of a name, and Word has a member Result.
        parameters.append(f"[out, retval] {idl_type(types, member.result)}* prop")
    return f"        [{', '.join(attributes)}] HRESULT {member.name}({', '.join(parameters)});\n"


def write_idl(interfaces, out):
    types = CppTypes(interfaces)
    out.write(IDL_START)
    for interface in interfaces:
        out.write(f"    interface {interface.name};\n")
    for interface in interfaces:
        out.write(f"\n    [uuid({interface.iid}), dual, oleautomation, object]\n")
        out.write(f"    interface {interface.name} : IDispatch\n    {{\n")
        for member in interface.members:
            out.write(member_declaration(types, member))
        out.write("    };\n")
    out.write("\n" + IDL_END)
