#pragma once

#include "ArgumentText.h"
#include "BusyWord.h"
#include "CallName.h"

#include <comdef.h>
#include <type_traits>

#ifdef _MSC_VER
#define WORD_NOT_INLINED __declspec(noinline)
#else
#define WORD_NOT_INLINED __attribute__((noinline, cold))
#endif

/// What every throwing form is made of.
namespace Word {
/// What becomes of a call that came back with a failure: repeated while Word is busy, told to the thread's
/// observer, and raised.
struct FailedAttempt
{
    HRESULT result;
    IUnknown* object;
    const IID& interfaceId;
    const CallName& name;
    RepeatableCall again;
    ArgumentsOf arguments;
};

/// Returns when a repetition succeeded; otherwise raises _com_error for the call, with the object's error
/// information when it has some for the interface. A late-bound failure keeps its own HRESULT.
void settle(const FailedAttempt& attempt);

template <typename Argument>
using PassedOn = std::conditional_t<std::is_scalar_v<Argument>, Argument, const Argument&>;

// Out of line, and by value where that is possible: the good path stores nothing for the bad one.
template <typename Invoke, typename... Arguments>
WORD_NOT_INLINED void settleCall(HRESULT result, IUnknown* object, const IID& interfaceId,
                                 const CallName& name, Invoke invoke, Arguments... arguments)
{
    const auto addArguments = [&]([[maybe_unused]] ArgumentText& text) { (text.add(arguments), ...); };
    settle({result, object, interfaceId, name, RepeatableCall(invoke), ArgumentsOf(addArguments)});
}

/// Makes a call: `invoke` returns its HRESULT, and can be called again. `arguments` are what it is made with.
template <typename Invoke, typename... Arguments>
void call(IUnknown* object, const IID& interfaceId, const CallName& name, const Invoke& invoke,
          const Arguments&... arguments)
{
    const HRESULT result = invoke();
    if (FAILED(result)) [[unlikely]]
        settleCall<Invoke, PassedOn<Arguments>...>(result, object, interfaceId, name, invoke, arguments...);
}

// Word takes VARIANT* and BSTR for arguments it only reads, so constness ends here.
inline VARIANT* passed(const _variant_t& argument)
{
    return const_cast<_variant_t*>(&argument);
}

inline BSTR passed(const _bstr_t& argument)
{
    return static_cast<wchar_t*>(argument);
}

inline VARIANT_BOOL passed(bool argument)
{
    return argument ? VARIANT_TRUE : VARIANT_FALSE;
}

template <typename Scalar>
requires std::is_scalar_v<Scalar> Scalar passed(Scalar argument)
{
    return argument;
}

/// A slot of any interface of Word's as one of the interface that they all extend, so that the calls of one
/// shape, which most are, have one instance of what makes them.
template <typename... Parameters>
using Slot = HRESULT (STDMETHODCALLTYPE IDispatch::*)(Parameters...);

template <typename Interface, typename... Parameters>
constexpr Slot<Parameters...> slotOf(HRESULT (STDMETHODCALLTYPE Interface::*slot)(Parameters...))
{
    return static_cast<Slot<Parameters...>>(slot);
}

/// Calls what has no argument and no result, one argument, or a result alone.
inline void callSlot(IDispatch* object, const IID& interfaceId, const CallName& name, Slot<> slot)
{
    call(object, interfaceId, name, [=] { return (object->*slot)(); });
}

template <typename Parameter, typename Argument>
void callSlot(IDispatch* object, const IID& interfaceId, const CallName& name, Slot<Parameter> slot,
              const Argument& argument)
{
    call(
        object, interfaceId, name, [&] { return (object->*slot)(passed(argument)); }, argument);
}

template <typename Result>
Result resultOf(IDispatch* object, const IID& interfaceId, const CallName& name, Slot<Result*> slot)
{
    Result result{};
    call(object, interfaceId, name, [&] { return (object->*slot)(&result); });
    return result;
}
} // namespace Word

#undef WORD_NOT_INLINED
