#include "ExceptionTranslation.h"

#include <comdef.h>
#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

namespace {

template <class Exception>
HRESULT translated(const Exception& exception)
{
    try {
        throw exception;
    } catch (...) {
        return currentExceptionToHresult();
    }
}

TEST(ExceptionTranslation, hasACodeForEveryException)
{
    EXPECT_EQ(translated(_com_error(static_cast<HRESULT>(0x800706BA))), static_cast<HRESULT>(0x800706BA));
    EXPECT_EQ(translated(std::bad_alloc()), E_OUTOFMEMORY);
    EXPECT_EQ(translated(std::runtime_error("")), E_FAIL);
    EXPECT_EQ(translated(L"text"), E_UNEXPECTED);
}

TEST(ExceptionTranslation, nothingThrownPassesForSuccess)
{
    EXPECT_EQ(translated(_com_error(S_OK)), E_UNEXPECTED);
    EXPECT_EQ(translated(_com_error(S_FALSE)), E_UNEXPECTED);
}

TEST(ExceptionTranslation, completesOnlyWhatIsMissing)
{
    EXCEPINFO info{};
    info.scode = E_FAIL;
    info.bstrDescription = SysAllocString(L"given");
    completeExcepInfo(info, L"Some.Source");
    EXPECT_STREQ(info.bstrDescription, L"given");
    EXPECT_STREQ(info.bstrSource, L"Some.Source");
    SysFreeString(info.bstrDescription);
    SysFreeString(info.bstrSource);
}

} // namespace
