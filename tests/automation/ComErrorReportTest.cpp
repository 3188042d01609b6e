#include "ComErrorReport.h"

#include "AllocationFaults.h"
#include "DocSession.h"
#include "FrontEndTest.h"

namespace {

std::string textFor(unsigned code)
{
    return comErrorText("activity", _com_error(static_cast<HRESULT>(code))).data();
}

TEST(ComErrorReportTest, NamesActivityCodeAndTheSystemsMessage)
{
    EXPECT_EQ(textFor(0x80004003), "activity\nCOMERROR 0x80004003\n" + systemMessage(E_POINTER));
    EXPECT_EQ(textFor(0x80070005), "activity\nCOMERROR 0x80070005\n" + systemMessage(E_ACCESSDENIED));
}

TEST(ComErrorReportTest, SaysThatWordIsGone)
{
    EXPECT_EQ(textFor(0x800706BA), "activity\nCOMERROR 0x800706ba\nWord is unavailable.");
}

TEST(ComErrorReportTest, NumbersDispatchErrors)
{
    EXPECT_EQ(textFor(0x80040201), "activity\nCOMERROR 0x80040201\nIDispatch error #1");
    EXPECT_EQ(textFor(0x8004FFFF), "activity\nCOMERROR 0x8004ffff\nIDispatch error #65023");
}

TEST(ComErrorReportTest, ShowsOtherCodesInHexadecimal)
{
    EXPECT_EQ(textFor(0x800A1735), "activity\nCOMERROR 0x800a1735\nUnknown error 0x800A1735");
}

TEST(ComErrorReportTest, WritesTheCodeWithoutLeadingZeros)
{
    EXPECT_EQ(textFor(0x1), "activity\nCOMERROR 0x1\n" + systemMessage(S_FALSE));
}

TEST(ComErrorReportTest, OnlyTracesWhileErrorsAreQuiet)
{
    const ScratchFolder folder;
    const std::string name = folder.file("quiet.log");
    DocSession session;
    session.quietErrors = true;
    session.trace.open(name.c_str());
    EXPECT_NO_THROW(reportComError(session, "level 0", _com_error(E_POINTER)));
    session.trace.setLevel(1);
    EXPECT_NO_THROW(reportComError(session, "level 1", _com_error(E_POINTER)));
    session.trace.close();
    EXPECT_EQ(contentOf(name), "level 1\r\nCOMERROR 0x80004003\r\n" + systemMessage(E_POINTER) + "\r\n");
}

TEST(ComErrorReportTest, BuildsNoReportThatTheTraceDoesNotWant)
{
    const ScratchFolder folder;
    DocSession session;
    session.quietErrors = true;
    session.trace.open(folder.file("quiet.log").c_str());
    const _com_error error(E_POINTER);
    const AllocationFaults faults(0);
    reportComError(session, "activity", error);
    EXPECT_EQ(faults.refused(), 0);
}

TEST(ComErrorReportTest, DoesWithoutAQuietReportWhenThereIsNoMemory)
{
    const ScratchFolder folder;
    int granted = 0;
    for (bool refusedAny = true; refusedAny && granted < 100; ++granted) {
        DocSession session;
        session.quietErrors = true;
        session.trace.open(folder.file("quiet.log").c_str());
        session.trace.setLevel(1);
        const _com_error error(E_POINTER);
        const AllocationFaults faults(granted);
        EXPECT_NO_THROW(reportComError(session, "activity", error)) << granted;
        refusedAny = faults.refused() != 0;
    }
    EXPECT_GT(granted, 1) << "nothing was refused";
}

} // namespace
