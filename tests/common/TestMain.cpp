#include <gmock/gmock.h>

#ifdef _WIN32
#include <crtdbg.h>
#include <windows.h>
#endif

int main(int argc, char** argv)
{
#ifdef _WIN32
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
#endif
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
