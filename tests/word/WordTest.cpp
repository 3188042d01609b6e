#include "Hresult.h"

#include <Word.h>

#include <CallObserver.h>
#include <CallPolicy.h>
#include <WordTable.h>
#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <type_traits>
#include <utility>

namespace {
constexpr int tableRows = 1746;
constexpr std::size_t vtableSize = 512;
constexpr HRESULT firstResult = static_cast<HRESULT>(0x80040200);

/// A slot that does nothing but answer an HRESULT of its own; slot 0 is asked for error information and has
/// none.
template <int slot>
HRESULT STDMETHODCALLTYPE answerSlot()
{
    return slot == 0 ? E_NOINTERFACE : firstResult + slot;
}

using Slot = HRESULT(STDMETHODCALLTYPE*)();

template <int... slots>
constexpr std::array<Slot, sizeof...(slots)> makeVtable(std::integer_sequence<int, slots...>)
{
    return {&answerSlot<slots>...};
}

const std::array<Slot, vtableSize> vtable = makeVtable(std::make_integer_sequence<int, vtableSize>());

/// Has no methods, only a vtable: whatever interface it is taken for, the slot called shows in the HRESULT.
struct ObjectOfSlots
{
    const Slot* slots = vtable.data();
};

std::string described(const word_table::Member& member)
{
    const std::wstring name = member.name;
    return std::string(member.interfaceName) + "." + std::string(name.begin(), name.end());
}

TEST(Word, TableIsComplete)
{
    EXPECT_EQ(std::size(word_table::members), tableRows);
    std::set<std::string> interfaces;
    for (const auto& member : word_table::members)
        interfaces.insert(member.interfaceName);
    EXPECT_EQ(interfaces.size(), 32u);
}

/// What was heard of the last call.
class LastCall : public Word::CallObserver
{
public:
    void failed(const Word::FailedCall& call) override
    {
        name = std::string(call.name().interfaceName) + "." + call.name().member;
        kind = call.name().kind;
        arguments = call.arguments();
    }

    std::string name;
    Word::CallKind kind = Word::CallKind::method;
    std::wstring arguments;
};

Word::CallKind kindOf(const word_table::Member& member)
{
    if (member.kind == INVOKE_FUNC)
        return Word::CallKind::method;
    return member.kind == INVOKE_PROPERTYGET ? Word::CallKind::propertyGet : Word::CallKind::propertyPut;
}

TEST(Word, EveryThrowingFormSaysWhatItIs)
{
    ObjectOfSlots object;
    LastCall heard;
    const Word::CallPolicy policy{{}, &heard};
    const Word::CallScope scope(policy);
    for (const auto& member : word_table::members) {
        EXPECT_THROW(member.callThrowingForm(&object), _com_error);
        EXPECT_EQ(heard.name, described(member));
        EXPECT_EQ(heard.kind, kindOf(member)) << described(member);
        const auto separators = std::count(heard.arguments.begin(), heard.arguments.end(), L',');
        EXPECT_EQ(static_cast<std::size_t>(separators) + (heard.arguments.empty() ? 0 : 1),
                  member.arguments.size())
            << described(member);
    }
}

TEST(Word, EveryThrowingFormCallsItsSlotAndRaisesItsResult)
{
    ObjectOfSlots object;
    for (const auto& member : word_table::members) {
        try {
            member.callThrowingForm(&object);
            ADD_FAILURE() << described(member) << " did not raise";
        } catch (const _com_error& error) {
            EXPECT_THAT(error.Error(), isHresult(firstResult + member.slot)) << described(member);
            EXPECT_EQ(error.ErrorInfo(), nullptr) << described(member);
        }
    }
}

TEST(Word, InterfacesHaveTheTablesIdentities)
{
    for (const auto& member : word_table::members) {
        IID expected{};
        ASSERT_THAT(IIDFromString(member.iid, &expected), isHresult(S_OK));
        EXPECT_TRUE(IsEqualIID(expected, member.compiledIid)) << member.interfaceName;
    }
}

TEST(Word, PointersQueryForTheirInterface)
{
    EXPECT_EQ(Word::RangePtr::GetIID(), __uuidof(Word::Range));
    EXPECT_EQ(Word::_ApplicationPtr::GetIID(), __uuidof(Word::_Application));
    static_assert(std::is_same_v<decltype(std::declval<Word::_Document>().GetContent()), Word::RangePtr>);
    static_assert(std::is_same_v<decltype(std::declval<Word::Range>().GetEnd()), long>);
    static_assert(std::is_same_v<decltype(std::declval<Word::_Font>().GetSize()), float>);
    static_assert(std::is_same_v<decltype(std::declval<Word::_Application>().GetName()), _bstr_t>);
    static_assert(std::is_same_v<decltype(std::declval<Word::Range>().GetStyle()), _variant_t>);
    static_assert(std::is_same_v<decltype(std::declval<Word::Range>().GetWords()), Word::IDispatchPtr>);
}

// Kept out of sight of g++, which would otherwise warn that the pointer is null; clang++ does not know the
// attribute.
#ifndef __clang__
[[gnu::noipa]]
#endif
HRESULT
resultOfGetEnd(const Word::RangePtr& range)
{
    try {
        range->GetEnd();
        return S_OK;
    } catch (const _com_error& error) {
        return error.Error();
    }
}

TEST(Word, ANullPointerRaisesEPointer)
{
    EXPECT_THAT(resultOfGetEnd(Word::RangePtr()), isHresult(E_POINTER));
}
} // namespace
