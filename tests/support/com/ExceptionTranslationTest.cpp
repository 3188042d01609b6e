#include "ExceptionTranslation.h"

#include "Hresult.h"

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
    EXPECT_THAT(translated(_com_error(static_cast<HRESULT>(0x800706BA))),
                isHresult(static_cast<HRESULT>(0x800706BA)));
    EXPECT_THAT(translated(std::bad_alloc()), isHresult(E_OUTOFMEMORY));
    EXPECT_THAT(translated(std::runtime_error("")), isHresult(E_FAIL));
    EXPECT_THAT(translated(L"text"), isHresult(E_UNEXPECTED));
}

TEST(ExceptionTranslation, nothingThrownPassesForSuccess)
{
    EXPECT_THAT(translated(_com_error(S_OK)), isHresult(E_UNEXPECTED));
    EXPECT_THAT(translated(_com_error(S_FALSE)), isHresult(E_UNEXPECTED));
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
