#pragma once

#include <comdef.h>
#include <gmock/gmock.h>

#include <optional>
#include <ostream>
#include <string>

/// A code as people read it: "E_POINTER (0x80004003)", "Word's error 5941 (0x800A1735)".
std::string shownHresult(HRESULT code);

/// As logs and transcripts show a code: "0x80004003".
std::string hexadecimal(HRESULT code);

/// Word's own error of that number.
constexpr HRESULT wordError(long number)
{
    return static_cast<HRESULT>(0x800A0000U + static_cast<unsigned long>(number));
}

/// The code of the `_com_error` that `act` raises; S_OK when it raises none.
template <class Act>
HRESULT comErrorOf(Act&& act)
{
    try {
        act();
        return S_OK;
    } catch (const _com_error& error) {
        return error.Error();
    }
}

class HresultMatcher
{
public:
    using is_gtest_matcher = void; // GoogleTest's name for it

    explicit HresultMatcher(HRESULT expected) : expected_(expected) {}

    bool MatchAndExplain(HRESULT code, std::ostream* explanation) const;
    /// No result at all is none of the codes.
    bool MatchAndExplain(const std::optional<HRESULT>& code, std::ostream* explanation) const;
    void DescribeTo(std::ostream* out) const;
    void DescribeNegationTo(std::ostream* out) const;

private:
    HRESULT expected_;
};

/// A result of COM's, with both codes shown when it is another one.
inline HresultMatcher isHresult(HRESULT expected)
{
    return HresultMatcher(expected);
}

class FailureMatcher
{
public:
    using is_gtest_matcher = void; // GoogleTest's name for it

    bool MatchAndExplain(HRESULT code, std::ostream* explanation) const;
    void DescribeTo(std::ostream* out) const;
    void DescribeNegationTo(std::ostream* out) const;
};

/// Any code of a failure.
inline FailureMatcher isFailure()
{
    return {};
}
