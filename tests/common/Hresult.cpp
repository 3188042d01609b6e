#include "Hresult.h"

#include "CodeMeaning.h"

#include <olectl.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>

namespace {

struct NamedCode
{
    HRESULT code;
    const char* name;
};

#define NAMED(code)                                                                                          \
    NamedCode                                                                                                \
    {                                                                                                        \
        code, #code                                                                                          \
    }
constexpr std::array names = {
    NAMED(S_OK),
    NAMED(S_FALSE),
    NAMED(E_ABORT),
    NAMED(E_ACCESSDENIED),
    NAMED(E_FAIL),
    NAMED(E_HANDLE),
    NAMED(E_INVALIDARG),
    NAMED(E_NOINTERFACE),
    NAMED(E_NOTIMPL),
    NAMED(E_OUTOFMEMORY),
    NAMED(E_POINTER),
    NAMED(E_UNEXPECTED),
    NAMED(CLASS_E_CLASSNOTAVAILABLE),
    NAMED(CLASS_E_NOAGGREGATION),
    NAMED(CO_E_CLASSSTRING),
    NAMED(CO_E_NOTINITIALIZED),
    NAMED(CO_E_OBJNOTCONNECTED),
    NAMED(CO_E_SERVER_EXEC_FAILURE),
    NAMED(DISP_E_ARRAYISLOCKED),
    NAMED(DISP_E_BADCALLEE),
    NAMED(DISP_E_BADINDEX),
    NAMED(DISP_E_BADPARAMCOUNT),
    NAMED(DISP_E_BADVARTYPE),
    NAMED(DISP_E_EXCEPTION),
    NAMED(DISP_E_MEMBERNOTFOUND),
    NAMED(DISP_E_NONAMEDARGS),
    NAMED(DISP_E_OVERFLOW),
    NAMED(DISP_E_PARAMNOTFOUND),
    NAMED(DISP_E_PARAMNOTOPTIONAL),
    NAMED(DISP_E_TYPEMISMATCH),
    NAMED(DISP_E_UNKNOWNINTERFACE),
    NAMED(DISP_E_UNKNOWNLCID),
    NAMED(DISP_E_UNKNOWNNAME),
    NAMED(MK_E_UNAVAILABLE),
    NAMED(REGDB_E_CLASSNOTREG),
    NAMED(REGDB_E_IIDNOTREG),
    NAMED(RPC_E_CALL_CANCELED),
    NAMED(RPC_E_CALL_REJECTED),
    NAMED(RPC_E_CANTCALLOUT_ININPUTSYNCCALL),
    NAMED(RPC_E_CHANGED_MODE),
    NAMED(RPC_E_DISCONNECTED),
    NAMED(RPC_E_INVALID_HEADER),
    NAMED(RPC_E_SERVERCALL_REJECTED),
    NAMED(RPC_E_SERVERCALL_RETRYLATER),
    NAMED(RPC_E_SERVERFAULT),
    NAMED(RPC_E_SERVER_DIED),
    NAMED(RPC_E_SERVER_DIED_DNE),
    NAMED(RPC_E_TIMEOUT),
    NAMED(RPC_E_WRONG_THREAD),
    NAMED(SELFREG_E_CLASS),
    NAMED(SELFREG_E_TYPELIB),
    NAMED(STG_E_FILENOTFOUND),
    NAMED(TYPE_E_CANTLOADLIBRARY),
    NAMED(TYPE_E_ELEMENTNOTFOUND),
    NAMED(TYPE_E_LIBNOTREGISTERED),
    NAMED(TYPE_E_REGISTRYACCESS),
};
#undef NAMED

std::string nameOf(HRESULT code)
{
    const auto* const found = std::ranges::find(names, code, &NamedCode::code);
    if (found != names.end())
        return found->name;
    const int number = HRESULT_CODE(code);
    if (HRESULT_SEVERITY(code) == SEVERITY_SUCCESS)
        return "a success";
    if (HRESULT_FACILITY(code) == FACILITY_CONTROL)
        return "Word's error " + std::to_string(number);
    if (HRESULT_FACILITY(code) == FACILITY_WIN32)
        return "Windows' error " + std::to_string(number);
    return "a failure";
}

} // namespace

std::string hexadecimal(HRESULT code)
{
    std::array<char, 16> digits{};
    std::snprintf(digits.data(), digits.size(), "0x%08lx", static_cast<unsigned long>(code));
    return digits.data();
}

std::string shownHresult(HRESULT code)
{
    std::array<char, 16> digits{};
    std::snprintf(digits.data(), digits.size(), " (0x%08lX)", static_cast<unsigned long>(code));
    const diagnostics::CodeMeaning* const known = diagnostics::meaningOf(static_cast<std::uint32_t>(code));
    return nameOf(code) + digits.data() + (known ? ": " + std::string(known->meaning) : "");
}

bool HresultMatcher::MatchAndExplain(HRESULT code, std::ostream* explanation) const
{
    if (explanation)
        *explanation << "which is " << shownHresult(code);
    return code == expected_;
}

bool HresultMatcher::MatchAndExplain(const std::optional<HRESULT>& code, std::ostream* explanation) const
{
    return code && MatchAndExplain(*code, explanation);
}

void HresultMatcher::DescribeTo(std::ostream* out) const
{
    *out << "is " << shownHresult(expected_);
}

void HresultMatcher::DescribeNegationTo(std::ostream* out) const
{
    *out << "is not " << shownHresult(expected_);
}

bool FailureMatcher::MatchAndExplain(HRESULT code, std::ostream* explanation) const
{
    if (explanation)
        *explanation << "which is " << shownHresult(code);
    return FAILED(code);
}

void FailureMatcher::DescribeTo(std::ostream* out) const
{
    *out << "is the code of a failure";
}

void FailureMatcher::DescribeNegationTo(std::ostream* out) const
{
    *out << "is not the code of a failure";
}
