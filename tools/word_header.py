"""Writes Word.h and WordCalls.cpp: the interfaces for C++ with their throwing forms."""

from cpp_types import CppTypes, first_optional, guid_initialiser, parameter_name, throwing_name

HEADER_START = """\
// Generated from word-9.0.tsv by tools/generate_object_model.py.
#pragma once

#include <comdef.h>

#include "WordArguments.h"

#ifdef _MSC_VER
#define WORD_INTERFACE(name, id) struct __declspec(uuid(id)) __declspec(novtable) name
#else
#define WORD_INTERFACE(name, id) struct name
#endif

/// Word 9.0's dual interfaces. Slots are named get_X, put_X and raw_X; each has a throwing form GetX, PutX or X that
/// raises _com_error with the HRESULT and the interface's error information. Later versions of Word only append.
namespace Word
{
"""


def raw_parameters(types, member):
    parameters = [f"{types.raw(a.type)} {parameter_name(a.name)}" for a in member.arguments]
    if member.result:
        parameters.append(f"{types.raw(member.result)}* result")
    return ", ".join(parameters)


def throwing_parameters(types, member, with_defaults):
    optional_from = first_optional(member.arguments)
    parameters = []
    for index, argument in enumerate(member.arguments):
        default = " = missing" if with_defaults and index >= optional_from else ""
        parameters.append(f"{types.parameter(argument.type)} {parameter_name(argument.name)}{default}")
    return ", ".join(parameters)


def interface_declaration(types, interface):
    yield f'WORD_INTERFACE({interface.name}, "{interface.iid}") : public IDispatch'
    yield "{"
    for member in interface.members:
        parameters = raw_parameters(types, member)
        yield f"    virtual HRESULT STDMETHODCALLTYPE {member.raw_name}({parameters}) = 0;"
    yield ""
    for member in interface.members:
        parameters = throwing_parameters(types, member, with_defaults=True)
        yield f"    {types.returned(member.result)} {throwing_name(member)}({parameters});"
    yield "};"
    yield ""


def write_header(interfaces, out):
    types = CppTypes(interfaces)
    out.write(HEADER_START)
    for interface in interfaces:
        out.write(f"struct {interface.name};\n")
    out.write("} // namespace Word\n\n#ifdef __CRT_UUID_DECL\n")
    for interface in interfaces:
        out.write(f"__CRT_UUID_DECL(Word::{interface.name}, {guid_initialiser(interface.iid)})\n")
    out.write("#endif\n\nnamespace Word\n{\n")
    for name in ["IUnknown", "IDispatch"] + [interface.name for interface in interfaces]:
        out.write(f"_COM_SMARTPTR_TYPEDEF({name}, __uuidof({name}));\n")
    out.write("\n")
    for interface in interfaces:
        out.write("\n".join(interface_declaration(types, interface)) + "\n")
    out.write("} // namespace Word\n\n#undef WORD_INTERFACE\n")


CALL_KINDS = {"propget": "propertyGet", "propput": "propertyPut", "method": "method"}


def calling_body(types, interface, member):
    arguments = [parameter_name(a.name) for a in member.arguments]
    kind = member.result
    callee = f"this, __uuidof({interface.name}), thisCall"
    yield (f'    static constexpr CallName thisCall{{"{interface.name}", "{member.name}", '
           f"CallKind::{CALL_KINDS[member.kind]}}};")
    slot = f"slotOf(&{interface.name}::{member.raw_name})"
    if not kind and len(arguments) <= 1:
        yield f"    callSlot({', '.join([callee, slot] + arguments)});"
        return
    if not arguments:
        yield f"    {types.raw(kind)} result = resultOf({callee}, {slot});"
    else:
        if kind:
            yield f"    {types.raw(kind)} result{{}};"
        passed = [f"passed({argument})" for argument in arguments] + (["&result"] if kind else [])
        invoke = f"[&] {{ return this->{member.raw_name}({', '.join(passed)}); }}"
        yield f"    call({', '.join([callee, invoke] + arguments)});"
    if not kind:
        return
    if types.is_interface(kind):
        yield f"    return {types.pointer_name(kind)}(result, false);"
    else:
        yield {"BSTR": "    return _bstr_t(result, false);",
               "VARIANT": "    return _variant_t(result, false);"}.get(kind, "    return result;")


def write_calls(interfaces, out):
    types = CppTypes(interfaces)
    out.write("// Generated from word-9.0.tsv by tools/generate_object_model.py.\n")
    out.write('#include "Word.h"\n\n#include "WordCall.h"\n\nnamespace Word\n{\n')
    for interface in interfaces:
        for member in interface.members:
            parameters = throwing_parameters(types, member, with_defaults=False)
            out.write(f"{types.returned(member.result)} {interface.name}::{throwing_name(member)}({parameters})\n{{\n")
            out.write("\n".join(calling_body(types, interface, member)) + "\n}\n\n")
    out.write("} // namespace Word\n")
