"""Writes StandinBases.h and StandinBases.cpp: for each interface a class that receives the calls of every vtable slot,
passes them on to a method of its own and writes them into the transcript."""

from cpp_types import CppTypes, parameter_name
from word_header import raw_parameters

HEADER_START = """\
// Generated from word-9.0.tsv by tools/generate_object_model.py.
#pragma once

#include "StandinObject.h"

/// For each of Word's interfaces the class that its implementation derives from. The vtable's slots are final: each
/// counts the call, lets it fail on demand, passes it on and writes the transcript. What an implementation does not
/// override answers E_NOTIMPL. Overriding methods throw.
namespace standin
{
"""

# Members that every interface has and that mean the same everywhere.
COMMON_ANSWERS = {"Application": "return application();", "Creator": "return wordCreatorCode;"}


def base_name(interface):
    return interface.name.lstrip("_") + "Base"


def shown_name(interface):
    return interface.name.lstrip("_")


def method_name(member):
    # Word hides a member behind an underscore; _Add beside Add becomes HiddenAdd.
    plain = "Hidden" + member.name[1:] if member.name.startswith("_") else member.name
    return {"propget": "get", "propput": "put", "method": "do"}[member.kind] + plain


def own_parameter(types, kind):
    return {"VARIANT*": "const VARIANT&", "BSTR": "std::u16string_view", "VARIANT_BOOL": "bool"}.get(
        kind, types.raw(kind))


def own_result(types, kind):
    if not kind:
        return "void"
    if types.is_interface(kind):
        return types.pointer_name(kind)
    return {"BSTR": "std::u16string", "VARIANT": "_variant_t", "VARIANT_BOOL": "bool"}.get(kind, types.raw(kind))


def base_declaration(types, interface):
    yield f"class {base_name(interface)} : public DispatchObject<Word::{interface.name}>"
    yield "{"
    yield "public:"
    yield f"    using ShownInterface = Word::{interface.name};"
    yield ""
    yield f"    explicit {base_name(interface)}(std::shared_ptr<Server> server)"
    yield f'        : DispatchObject(std::move(server), "{shown_name(interface)}")'
    yield "    {"
    yield "    }"
    yield ""
    for member in interface.members:
        yield (f"    HRESULT STDMETHODCALLTYPE {member.raw_name}({raw_parameters(types, member)}) noexcept final;")
    yield ""
    yield "protected:"
    for member in interface.members:
        parameters = ", ".join(own_parameter(types, argument.type) for argument in member.arguments)
        answer = COMMON_ANSWERS.get(member.name, "notImplemented();")
        yield (f"    virtual {own_result(types, member.result)} {method_name(member)}({parameters}) {{ {answer} }}")
    yield "};"
    yield ""


def write_bases_header(interfaces, out):
    types = CppTypes(interfaces)
    out.write(HEADER_START)
    out.write("inline constexpr long wordCreatorCode = 0x4D535744; // 'MSWD'\n\n")
    for interface in interfaces:
        out.write("\n".join(base_declaration(types, interface)) + "\n")
    out.write("} // namespace standin\n")


def shown_argument(types, argument):
    name = parameter_name(argument.name)
    if argument.type == "VARIANT*":
        return f"&given({name})"
    if argument.type == "VARIANT_BOOL":
        return f"{name} != VARIANT_FALSE"
    return f"static_cast<IUnknown*>({name})" if types.is_interface(argument.type) else name


def passed_argument(argument):
    name = parameter_name(argument.name)
    if argument.type in ("VARIANT*", "BSTR"):
        return f"given({name})"
    return f"{name} != VARIANT_FALSE" if argument.type == "VARIANT_BOOL" else name


def receiving_body(types, member):
    kind = {"propget": "propertyGet", "propput": "propertyPut", "method": "method"}[member.kind]
    if member.result:
        yield "    prepare(result);"
    shown = [f"TranscriptValue({shown_argument(types, argument)})" for argument in member.arguments]
    arguments = "{}"
    if shown:
        yield f"    const TranscriptValue arguments[] = {{{', '.join(shown)}}};"
        arguments = "arguments"
    yield f'    const ReceivedCall call{{"{member.name}", CallKind::{kind}, {arguments}}};'
    own_call = f"{method_name(member)}({', '.join(passed_argument(argument) for argument in member.arguments)})"
    if not member.result:
        yield f"    return receive(call, [&](TranscriptValue&) {{ {own_call}; }});"
        return
    deliver = "deliverObject" if types.is_interface(member.result) else "deliver"
    yield f"    return receive(call, [&](TranscriptValue& answer) {{ answer = {deliver}(result, {own_call}); }});"


def write_bases_source(interfaces, out):
    types = CppTypes(interfaces)
    out.write("// Generated from word-9.0.tsv by tools/generate_object_model.py.\n")
    out.write('#include "StandinBases.h"\n\n#include "CallGlue.h"\n\nnamespace standin\n{\n')
    for interface in interfaces:
        for member in interface.members:
            parameters = raw_parameters(types, member)
            out.write(f"HRESULT STDMETHODCALLTYPE {base_name(interface)}::{member.raw_name}({parameters}) noexcept\n{{\n")
            out.write("\n".join(receiving_body(types, member)) + "\n}\n\n")
    out.write("} // namespace standin\n")
