#pragma once

#include "CallName.h"

#include <comdef.h>
#include <type_traits>

namespace Word {
/// Whether the code says that Word was too busy to take the call: it never ran.
constexpr bool isRejected(HRESULT result) noexcept
{
    return result == RPC_E_CALL_REJECTED || result == RPC_E_SERVERCALL_RETRYLATER;
}

/// A call that can be made again. Borrows what makes it.
class RepeatableCall
{
public:
    /// `call` returns a HRESULT and must outlive this.
    template <typename Call>
    explicit RepeatableCall(Call& call) noexcept
        : call_(const_cast<void*>(static_cast<const void*>(&call))),
          make_([](void* erased) -> HRESULT { return (*static_cast<Call*>(erased))(); })
    {
    }

    [[nodiscard]] HRESULT operator()() const { return make_(call_); }

private:
    void* call_;
    HRESULT (*make_)(void*);
};

/// Repeats a call that came back with `rejection`, as the thread's policy says: at once, then after growing
/// pauses, until it is no longer rejected or the policy's time is over. Not on the thread of a host with a
/// message filter of its own, which COM has asked already whether to wait. Returns what the last attempt
/// returned.
[[nodiscard]] HRESULT repeatRejected(HRESULT rejection, const CallName& name, const RepeatableCall& again);

/// The same for what is no member of Word's, such as connecting to it: `call` returns a HRESULT, and so does
/// this.
template <typename Call>
[[nodiscard]] HRESULT callPatiently(const CallName& name, Call&& call)
{
    const HRESULT result = call();
    return isRejected(result) ? repeatRejected(result, name, RepeatableCall(call)) : result;
}
} // namespace Word
