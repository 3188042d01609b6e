#pragma once

#include "Silence.h"

#include <string>
#include <string_view>

/// What there is to say of a case in which a call did nothing.
struct SilenceText
{
    Silence why;
    std::wstring_view what;   ///< "no document is open"
    std::wstring_view remedy; ///< "call create first"
    bool isRaised; ///< With "Word"/"Strict" the client is told; otherwise the diagnostics alone are.
};

[[nodiscard]] const SilenceText& textOf(Silence why) noexcept;

/// "method: what is wrong: what to do"
[[nodiscard]] std::wstring strictText(std::wstring_view method, Silence why, std::wstring_view concerned);
/// "what is wrong", with the name concerned.
[[nodiscard]] std::wstring whatIsWrong(Silence why, std::wstring_view concerned);
