#include "CallCost.h"
#include "DocumentCalls.h"
#include "WordCalls.h"

#include <windows.h>

#include <comdef.h>

#include <cstdio>
#include <exception>

namespace {

constexpr wchar_t withoutBstrCache[] = L"OANOCACHE";

class Apartment
{
public:
    Apartment() { _com_util::CheckError(CoInitialize(nullptr)); }
    ~Apartment() { CoUninitialize(); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

/// Runs this program once more as the process that counts: Windows decides at a process's beginning whether
/// it keeps freed BSTRs.
int countInAProcessOfItsOwn()
{
    std::fflush(stdout);
    SetEnvironmentVariableW(withoutBstrCache, L"1");
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    STARTUPINFOW startup = {};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION process = {};
    if (!CreateProcessW(path, nullptr, nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup, &process))
        return 1;
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD status = 1;
    GetExitCodeProcess(process.hProcess, &status);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return static_cast<int>(status);
}

int measure()
{
    // The file system is asked whether a link's target is a file: in a folder with little in it.
    SetCurrentDirectoryW(L"C:\\");
    const Apartment apartment;
    if (GetEnvironmentVariableW(withoutBstrCache, nullptr, 0) != 0) {
        printAllocations();
        return 0;
    }
    printWordCalls();
    printDocumentCalls();
    printTimes();
    return countInAProcessOfItsOwn();
}

} // namespace

int main()
try {
    return measure();
} catch (const std::exception& e) {
    std::fprintf(stderr, "%s\n", e.what());
    return 1;
} catch (const _com_error& e) {
    std::fprintf(stderr, "COM error 0x%lx\n", static_cast<unsigned long>(e.Error()));
    return 1;
}
