#include "Hresult.h"

#include <Faults.h>

#include <gtest/gtest.h>
#include <stdexcept>

namespace {
using standin::Faults;

TEST(Faults, ACallFailsOnce)
{
    Faults faults;
    faults.read("3:0x800706BA");
    EXPECT_EQ(faults.resultOf(2), std::nullopt);
    EXPECT_THAT(faults.resultOf(3), isHresult(static_cast<HRESULT>(0x800706BA)));
    EXPECT_EQ(faults.resultOf(4), std::nullopt);
}

TEST(Faults, PlusMeansFromThatCallOn)
{
    Faults faults;
    faults.read("2:0x80010001,5+:0x800A1735");
    EXPECT_EQ(faults.resultOf(1), std::nullopt);
    EXPECT_THAT(faults.resultOf(2), isHresult(static_cast<HRESULT>(0x80010001)));
    EXPECT_EQ(faults.resultOf(4), std::nullopt);
    EXPECT_THAT(faults.resultOf(5), isHresult(static_cast<HRESULT>(0x800A1735)));
    EXPECT_THAT(faults.resultOf(5000), isHresult(static_cast<HRESULT>(0x800A1735)));
}

TEST(Faults, StarMeansRejectionsBeforeTheCallRuns)
{
    Faults faults;
    faults.read("2*2:0x80010001,5:0x800A1735");
    EXPECT_EQ(faults.takeRejection(1), std::nullopt);
    EXPECT_THAT(faults.takeRejection(2), isHresult(static_cast<HRESULT>(0x80010001)));
    EXPECT_THAT(faults.takeRejection(2), isHresult(static_cast<HRESULT>(0x80010001)));
    EXPECT_EQ(faults.takeRejection(2), std::nullopt);
    EXPECT_EQ(faults.resultOf(2), std::nullopt);
    EXPECT_THAT(faults.resultOf(5), isHresult(static_cast<HRESULT>(0x800A1735)));
}

TEST(Faults, ClearForgetsAll)
{
    Faults faults;
    faults.read("1+:0x80004005,2*3:0x80010001");
    faults.exitAtCall(7);
    EXPECT_TRUE(faults.exitsAt(7));
    faults.clear();
    EXPECT_EQ(faults.resultOf(1), std::nullopt);
    EXPECT_EQ(faults.takeRejection(2), std::nullopt);
    EXPECT_FALSE(faults.exitsAt(7));
}

TEST(Faults, NonsenseIsRefused)
{
    for (const char* text :
         {"", "5", ":0x80004005", "x:0x80004005", "5:0x", "5:0xZ", "5:80004005", "5:0x80004005,",
          "+:0x80004005", "5*:0x80004005", "*2:0x80004005", "5*2+:0x80004005", "5:0x180004005"}) {
        Faults faults;
        EXPECT_THROW(faults.read(text), std::invalid_argument) << text;
    }
}
} // namespace
