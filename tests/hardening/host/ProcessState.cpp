#include "ProcessState.h"

#include <windows.h>

#include <comdef.h>

#include <clocale>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cwchar>
#include <functional>
#include <mbctype.h>
#include <stdexcept>
#include <string_view>
#include <sys/stat.h>

#include <io.h>

namespace {

constexpr std::uint32_t roundUpAndFlushToZero = 0xdf80;
constexpr std::uint32_t controlBits = 0xffc0; // the rest are flags of what happened
constexpr std::uint16_t doublePrecisionRoundUp = 0x0a7f;
constexpr int signals[] = {SIGABRT, SIGFPE, SIGILL, SIGINT, SIGSEGV, SIGTERM};

void require(bool done, const char* what)
{
    if (!done)
        throw std::runtime_error(std::string("the host cannot set its ") + what);
}

std::string number(std::uintptr_t value)
{
    char text[32];
    std::snprintf(text, sizeof text, "0x%llx", static_cast<unsigned long long>(value));
    return text;
}

std::string narrow(const wchar_t* text)
{
    return static_cast<const char*>(_bstr_t(text));
}

std::uint16_t x87Control()
{
    std::uint16_t word = 0;
    __asm__ volatile("fnstcw %0" : "=m"(word));
    return word;
}

void hostSignalHandler(int) {}

LONG CALLBACK hostExceptionFilter(EXCEPTION_POINTERS*)
{
    return EXCEPTION_CONTINUE_SEARCH;
}

// The message filter of the host; its lifetime is the process's.
class HostMessageFilter : public IMessageFilter
{
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** out) override
    {
        const bool known = IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IMessageFilter);
        *out = known ? static_cast<IMessageFilter*>(this) : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP_(DWORD) HandleInComingCall(DWORD, HTASK, DWORD, LPINTERFACEINFO) override
    {
        return SERVERCALL_ISHANDLED;
    }
    STDMETHODIMP_(DWORD) RetryRejectedCall(HTASK, DWORD, DWORD) override { return 0; }
    STDMETHODIMP_(DWORD) MessagePending(HTASK, DWORD, DWORD) override { return PENDINGMSG_WAITDEFPROCESS; }

    static HostMessageFilter& instance()
    {
        static HostMessageFilter filter;
        return filter;
    }
};

std::string messageFilter()
{
    IMessageFilter* current = nullptr;
    CoRegisterMessageFilter(nullptr, &current);
    CoRegisterMessageFilter(current, nullptr);
    const std::string text = current == &HostMessageFilter::instance() ? "the host's" : "another";
    if (current != nullptr)
        current->Release();
    return text;
}

std::string exceptionFilter()
{
    const LPTOP_LEVEL_EXCEPTION_FILTER current = SetUnhandledExceptionFilter(&hostExceptionFilter);
    SetUnhandledExceptionFilter(current);
    return current == &hostExceptionFilter ? "the host's" : "another";
}

std::string signalHandlers()
{
    std::string text;
    for (const int each : signals) {
        const auto current = std::signal(each, hostSignalHandler);
        std::signal(each, current);
        text += current == hostSignalHandler ? " the host's" : " another";
    }
    return text;
}

// Not the text itself, which would fill the reports.
std::string environmentOfProcess()
{
    wchar_t* const block = GetEnvironmentStringsW();
    const wchar_t* end = block;
    while (*end != L'\0')
        end += std::wcslen(end) + 1;
    const std::size_t hash = std::hash<std::wstring_view>()({block, static_cast<std::size_t>(end - block)});
    FreeEnvironmentStringsW(block);
    return number(hash);
}

std::string currentDirectory()
{
    wchar_t path[MAX_PATH];
    GetCurrentDirectoryW(MAX_PATH, path);
    return narrow(path);
}

std::string dllDirectory()
{
    wchar_t path[MAX_PATH] = L"";
    GetDllDirectoryW(MAX_PATH, path);
    return narrow(path);
}

std::string affinity()
{
    DWORD_PTR process = 0;
    DWORD_PTR machine = 0;
    GetProcessAffinityMask(GetCurrentProcess(), &process, &machine);
    return number(process);
}

std::string apartment()
{
    APTTYPE type{};
    APTTYPEQUALIFIER qualifier{};
    const HRESULT hr = CoGetApartmentType(&type, &qualifier);
    return number(static_cast<DWORD>(hr)) + " " + number(static_cast<std::uintptr_t>(type)) + " " +
           number(static_cast<std::uintptr_t>(qualifier));
}

std::string activationContext()
{
    HANDLE context = nullptr;
    GetCurrentActCtx(&context);
    ReleaseActCtx(context);
    return number(reinterpret_cast<std::uintptr_t>(context));
}

std::string fileMask()
{
    const int mask = _umask(0);
    _umask(mask);
    return number(static_cast<std::uintptr_t>(mask));
}

} // namespace

void makeProcessStateUnusual()
{
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
    require(SetThreadErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX, nullptr), "thread error mode");
    require(std::setlocale(LC_ALL, "German_Germany.1252") != nullptr, "C locale");
    require(SetThreadLocale(MAKELCID(MAKELANGID(LANG_FRENCH, SUBLANG_FRENCH), SORT_DEFAULT)),
            "thread locale");
    __builtin_ia32_ldmxcsr(roundUpAndFlushToZero);
    const std::uint16_t word = doublePrecisionRoundUp;
    __asm__ volatile("fldcw %0" : : "m"(word));
    require(SUCCEEDED(CoRegisterMessageFilter(&HostMessageFilter::instance(), nullptr)), "message filter");
    SetUnhandledExceptionFilter(&hostExceptionFilter);
    for (const int each : signals)
        std::signal(each, hostSignalHandler);
    require(SetPriorityClass(GetCurrentProcess(), BELOW_NORMAL_PRIORITY_CLASS), "priority");
    require(SetThreadPriority(GetCurrentThread(), THREAD_PRIORITY_ABOVE_NORMAL), "thread priority");
    _umask(_S_IWRITE);
}

ProcessState readProcessState()
{
    return {
        {"activation context", activationContext()},
        {"affinity", affinity()},
        {"ANSI code page of the C library", number(static_cast<std::uintptr_t>(_getmbcp()))},
        {"apartment", apartment()},
        {"C locale", std::setlocale(LC_ALL, nullptr)},
        {"current directory", currentDirectory()},
        {"DLL directory", dllDirectory()},
        {"environment", environmentOfProcess()},
        {"error mode", number(GetErrorMode())},
        {"file mask", fileMask()},
        {"floating point (SSE)", number(__builtin_ia32_stmxcsr() & controlBits)},
        {"floating point (x87)", number(x87Control())},
        {"locale per thread", number(static_cast<std::uintptr_t>(_configthreadlocale(0)))},
        {"message filter", messageFilter()},
        {"priority", number(GetPriorityClass(GetCurrentProcess()))},
        {"signal handlers", signalHandlers()},
        {"thread error mode", number(GetThreadErrorMode())},
        {"thread language", number(GetThreadUILanguage())},
        {"thread locale", number(GetThreadLocale())},
        {"thread priority", number(static_cast<std::uintptr_t>(GetThreadPriority(GetCurrentThread())))},
        {"unhandled exception filter", exceptionFilter()},
    };
}
