#include "Watchdog.h"

#include <gmock/gmock.h>

#ifdef _WIN32
#include <windows.h>
#endif

namespace {

#ifdef _WIN32
/// What the tests' texts were written for: messages in English, and the 8-bit texts of Western Europe.
class Surroundings : public testing::Environment
{
    void SetUp() override
    {
        constexpr UINT westernEurope = 1252;
        ASSERT_EQ(GetACP(), westernEurope) << "The tests need this code page for 8-bit texts.";
        ASSERT_TRUE(SetThreadLocale(MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT)));
    }
};

void prepare()
{
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
    testing::AddGlobalTestEnvironment(new Surroundings); // GoogleTest's from now on
}
#else
void prepare() {}
#endif

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleMock(&argc, argv);
    prepare();
    testing::UnitTest::GetInstance()->listeners().Append(new Watchdog); // GoogleTest's from now on
    return RUN_ALL_TESTS();
}
