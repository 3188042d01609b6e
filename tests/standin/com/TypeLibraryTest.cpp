#include "TestSupport.h"

#include <Server.h>
#include <WordTable.h>
#include <map>
#include <string>

namespace {
using standin::ITypeInfoPtr;

/// The vtable side of a dual interface.
ITypeInfoPtr vtableInfo(const ITypeInfoPtr& dispatch)
{
    HREFTYPE reference = 0;
    ITypeInfoPtr info;
    if (FAILED(dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference)) ||
        FAILED(dispatch->GetRefTypeInfo(reference, &info)))
        return dispatch;
    return info;
}

struct Described
{
    FUNCDESC function;
    std::vector<std::wstring> names;
    int optionalCount = 0;
};

std::map<int, Described> functionsBySlot(const ITypeInfoPtr& info)
{
    std::map<int, Described> result;
    TYPEATTR* attributes = nullptr;
    EXPECT_THAT(info->GetTypeAttr(&attributes), isHresult(S_OK));
    for (UINT index = 0; index < attributes->cFuncs; ++index) {
        FUNCDESC* function = nullptr;
        EXPECT_THAT(info->GetFuncDesc(index, &function), isHresult(S_OK));
        Described described{*function, {}, 0};
        BSTR names[64] = {};
        UINT count = 0;
        info->GetNames(function->memid, names, 64, &count);
        for (UINT name = 0; name < count; ++name) {
            described.names.emplace_back(names[name]);
            SysFreeString(names[name]);
        }
        for (int argument = 0; argument < function->cParams; ++argument)
            described.optionalCount +=
                (function->lprgelemdescParam[argument].paramdesc.wParamFlags & PARAMFLAG_FOPT) != 0;
        result[function->oVft / static_cast<int>(sizeof(void*))] = described;
        info->ReleaseFuncDesc(function);
    }
    info->ReleaseTypeAttr(attributes);
    return result;
}

TEST(TypeLibrary, EveryMemberHasItsSlotIdNameAndArguments)
{
    const standin_test::Apartment apartment;
    const auto server = standin::Server::make({});
    std::string current;
    std::map<int, Described> functions;
    for (const auto& member : word_table::members) {
        if (current != member.interfaceName) {
            current = member.interfaceName;
            functions = functionsBySlot(vtableInfo(server->typeInfo(member.compiledIid)));
        }
        const std::wstring wideName = member.name;
        const std::string where = current + "." + std::string(wideName.begin(), wideName.end());
        ASSERT_TRUE(functions.contains(member.slot)) << where;
        const Described& described = functions[member.slot];
        EXPECT_EQ(described.function.memid, member.dispid) << where;
        EXPECT_EQ(described.function.invkind, member.kind) << where;
        ASSERT_FALSE(described.names.empty()) << where;
        EXPECT_EQ(described.names.front(), wideName) << where;
        EXPECT_EQ(described.function.cParams,
                  static_cast<SHORT>(member.arguments.size() + (member.hasResult ? 1 : 0)))
            << where;
        int optionalCount = 0;
        for (const auto& argument : member.arguments)
            optionalCount += argument.isOptional;
        EXPECT_EQ(described.optionalCount, optionalCount) << where;
        std::size_t position = 1;
        for (const auto& argument : member.arguments) {
            if (member.kind == INVOKE_FUNC) {
                ASSERT_LT(position, described.names.size()) << where;
                EXPECT_EQ(described.names[position], argument.name) << where;
            }
            ++position;
        }
    }
}

TEST(TypeLibrary, HasWordsIdentity)
{
    const standin_test::Apartment apartment;
    const auto server = standin::Server::make({});
    standin::ITypeLibPtr library;
    UINT index = 0;
    ASSERT_THAT(server->typeInfo(__uuidof(Word::Range))->GetContainingTypeLib(&library, &index),
                isHresult(S_OK));
    TLIBATTR* attributes = nullptr;
    ASSERT_THAT(library->GetLibAttr(&attributes), isHresult(S_OK));
    constexpr GUID wordLibrary = {0x00020905, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
    EXPECT_EQ(attributes->guid, wordLibrary);
    EXPECT_EQ(attributes->wMajorVerNum, 8);
    EXPECT_EQ(attributes->wMinorVerNum, 1);
    library->ReleaseTLibAttr(attributes);
}
} // namespace
