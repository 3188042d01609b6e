#include "Hresult.h"

#include <gmock/gmock.h>
#include <gtest/gtest-spi.h>

namespace {

TEST(HresultTest, ShowsNameAndNumber)
{
    EXPECT_EQ(shownHresult(S_OK), "S_OK (0x00000000)");
    EXPECT_EQ(shownHresult(DISP_E_EXCEPTION), "DISP_E_EXCEPTION (0x80020009)");
    EXPECT_EQ(shownHresult(RPC_E_SERVERFAULT),
              "RPC_E_SERVERFAULT (0x80010105): Word's process ran into an error "
              "of its own during the call.");
    EXPECT_EQ(shownHresult(wordError(5941)),
              "Word's error 5941 (0x800A1735): What was asked for is not in the "
              "document, such as a style or a section.");
    EXPECT_EQ(shownHresult(wordError(0x1234)), "Word's error 4660 (0x800A1234)");
    EXPECT_EQ(shownHresult(HRESULT_FROM_WIN32(ERROR_MOD_NOT_FOUND)), "Windows' error 126 (0x8007007E)");
    EXPECT_EQ(shownHresult(static_cast<HRESULT>(0x80049999)), "a failure (0x80049999)");
    EXPECT_EQ(hexadecimal(E_POINTER), "0x80004003");
    EXPECT_EQ(shownHresult(7), "a success (0x00000007)");
}

TEST(HresultTest, ADifferenceShowsBoth)
{
    EXPECT_NONFATAL_FAILURE(EXPECT_THAT(E_FAIL, isHresult(S_OK)), "Expected: is S_OK (0x00000000)");
    EXPECT_NONFATAL_FAILURE(EXPECT_THAT(E_FAIL, isHresult(S_OK)), "which is E_FAIL (0x80004005)");
    EXPECT_NONFATAL_FAILURE(EXPECT_THAT(E_FAIL, testing::Not(isHresult(E_FAIL))),
                            "is not E_FAIL (0x80004005)");
}

TEST(HresultTest, NoResultIsNoCode)
{
    EXPECT_THAT(std::optional<HRESULT>(E_FAIL), isHresult(E_FAIL));
    EXPECT_THAT(std::optional<HRESULT>(), testing::Not(isHresult(S_OK)));
}

TEST(HresultTest, AFailureIsAnyOne)
{
    EXPECT_THAT(E_FAIL, isFailure());
    EXPECT_THAT(S_FALSE, testing::Not(isFailure()));
    EXPECT_NONFATAL_FAILURE(EXPECT_THAT(S_FALSE, isFailure()), "which is S_FALSE (0x00000001)");
}

TEST(HresultTest, TellsWhatACallRaised)
{
    EXPECT_THAT(comErrorOf([] { _com_issue_error(E_NOTIMPL); }), isHresult(E_NOTIMPL));
    EXPECT_THAT(comErrorOf([] {}), isHresult(S_OK));
}

} // namespace
