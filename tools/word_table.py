"""Writes WordTable.h: the table as C++ data, for tests that hold the compiled interfaces and the type library against
it. Each member comes with a function that calls its throwing form."""

from cpp_types import CppTypes, throwing_name

START = """\
// Generated from word-9.0.tsv by tools/generate_object_model.py.
#pragma once

#include <Word.h>
#include <initializer_list>
#include <oaidl.h>

namespace word_table
{
struct Argument
{
    const wchar_t* name;
    bool isOptional;
};

struct Member
{
    const char* interfaceName;
    const wchar_t* iid; ///< as the table has it
    IID compiledIid;
    int slot;
    long dispid;
    INVOKEKIND kind;
    const wchar_t* name;
    std::initializer_list<Argument> arguments;
    bool hasResult;
    void (*callThrowingForm)(void* object);
};

inline const Member members[] = {
"""

KINDS = {"propget": "INVOKE_PROPERTYGET", "propput": "INVOKE_PROPERTYPUT", "method": "INVOKE_FUNC"}


def sample_argument(types, kind):
    if kind == "VARIANT*":
        return "Word::missing"
    if kind == "BSTR":
        return "_bstr_t()"
    if kind.endswith("*"):
        return "nullptr"
    return "false" if kind == "VARIANT_BOOL" else f"{types.raw(kind)}{{}}"


def write_table(interfaces, out):
    types = CppTypes(interfaces)
    out.write(START)
    for interface in interfaces:
        for member in interface.members:
            samples = ", ".join(sample_argument(types, argument.type) for argument in member.arguments)
            arguments = ", ".join(f'{{L"{argument.name}", {str(argument.optional).lower()}}}'
                                  for argument in member.arguments)
            out.write(
                f'    {{"{interface.name}", L"{{{interface.iid}}}", __uuidof(Word::{interface.name}), {member.slot}, '
                f'{member.dispid}, {KINDS[member.kind]}, L"{member.name}", {{{arguments}}}, '
                f'{str(bool(member.result)).lower()},\n'
                f'     [](void* object) {{ static_cast<Word::{interface.name}*>(object)->'
                f'{throwing_name(member)}({samples}); }}}},\n')
    out.write("};\n} // namespace word_table\n")
