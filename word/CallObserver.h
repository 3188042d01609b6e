#pragma once

#include "ArgumentText.h"
#include "CallName.h"

#include <chrono>
#include <comdef.h>
#include <string>

namespace Word {
/// A call that came to nothing. Lives during the report only.
class FailedCall
{
public:
    FailedCall(const CallName& name, const _com_error& error, const ArgumentsOf& arguments) noexcept
        : name_(name), error_(error), arguments_(arguments)
    {
    }

    [[nodiscard]] const CallName& name() const noexcept { return name_; }
    /// The code, and Word's own text and source where Word gave them.
    [[nodiscard]] const _com_error& error() const noexcept { return error_; }
    /// The arguments in the order of the call, long ones shortened: made when it is asked for.
    [[nodiscard]] std::wstring arguments() const { return arguments_.text(); }

private:
    const CallName& name_;
    const _com_error& error_;
    const ArgumentsOf& arguments_;
};

/// Hears of what becomes of Word calls on a thread while a CallScope names it. Called on that thread, before
/// the caller hears of it; nothing thrown reaches the caller.
class CallObserver
{
public:
    virtual ~CallObserver() = default;

    /// A busy Word has rejected a call with `code`, which is now repeated for the first time.
    virtual void retrying(const CallName& /*name*/, HRESULT /*code*/) {}
    /// That call is over. `attempts` counts the first one as well, `elapsed` from its rejection on; `outcome`
    /// is what the last one returned.
    virtual void retried(const CallName& /*name*/, int /*attempts*/, std::chrono::milliseconds /*elapsed*/,
                         HRESULT /*outcome*/)
    {
    }
    /// A call has failed for good.
    virtual void failed(const FailedCall& /*call*/) {}
};
} // namespace Word
