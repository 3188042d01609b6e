// A host that watches what the DLL does to it: host DOCUMENT DLL [MANIFEST]
//
// It makes the document object, writes a document, provokes a failure, measures the settings page, lets go of
// everything and has COM unload the DLL. After each stage it prints
//   stage <name>
//   changed <setting>: <before> -> <after>       for each setting that is not as it was before the DLL came
// and besides
//   known <path>              a library in the process before the DLL came
//   loaded <path>             one that is there when everything has been used, and was not before
//   page <address> <protection>      a page of the DLL that can be written and executed
//   unloaded <yes or no>
//   survived                  a foreign exception after that found no handler of the DLL
// With MANIFEST the classes are found by it instead of the registry.
#include "ProcessState.h"

#include "general/QdxException.h"

#include <windows.h>

#include <IDocument.h>
#include <comdef.h>
#include <ocidl.h>
#include <psapi.h>

#include <cstdio>
#include <cwchar>
#include <set>
#include <string>
#include <vector>

_COM_SMARTPTR_TYPEDEF(IDocument, __uuidof(IDocument));
_COM_SMARTPTR_TYPEDEF(IPropertyPage, __uuidof(IPropertyPage));

namespace {

constexpr DWORD foreignException = 0xe0001234;

// Windows maps these for every process from the system folder, wherever a host lies. Wine knows no such
// libraries; that they are in the process before the DLL comes has the same effect.
constexpr const wchar_t* sharedByEveryProcess[] = {
    L"advapi32", L"clbcatq", L"combase", L"comdlg32", L"gdi32",  L"gdiplus", L"imm32",
    L"kernel32", L"msvcrt",  L"ole32",   L"oleaut32", L"psapi",  L"rpcrt4",  L"sechost",
    L"setupapi", L"shcore",  L"shell32", L"shlwapi",  L"user32", L"ws2_32",
};

void say(const char* kind, const std::string& text)
{
    std::printf("%s %s\n", kind, text.c_str());
    std::fflush(stdout);
}

std::string utf8(const std::wstring& text)
{
    const int length = static_cast<int>(text.size());
    std::string result(text.size() * 3, '\0');
    result.resize(static_cast<std::size_t>(WideCharToMultiByte(
        CP_UTF8, 0, text.data(), length, result.data(), static_cast<int>(result.size()), nullptr, nullptr)));
    return result;
}

std::set<std::wstring> modules()
{
    std::vector<HMODULE> handles(1024);
    DWORD size = 0;
    EnumProcessModules(GetCurrentProcess(), handles.data(),
                       static_cast<DWORD>(handles.size() * sizeof(HMODULE)), &size);
    handles.resize(size / sizeof(HMODULE));
    std::set<std::wstring> paths;
    for (const HMODULE each : handles) {
        wchar_t path[1024] = L"";
        GetModuleFileNameW(each, path, 1024);
        paths.insert(path);
    }
    return paths;
}

void sayModules(const char* kind, const std::set<std::wstring>& paths, const std::set<std::wstring>& without)
{
    for (const std::wstring& each : paths)
        if (!without.contains(each))
            say(kind, utf8(each));
}

void sayLoosePages(const void* module)
{
    constexpr DWORD loose = PAGE_EXECUTE_READWRITE | PAGE_EXECUTE_WRITECOPY;
    const char* address = static_cast<const char*>(module);
    MEMORY_BASIC_INFORMATION region{};
    while (VirtualQuery(address, &region, sizeof region) != 0 && region.AllocationBase == module) {
        if (region.State == MEM_COMMIT && (region.Protect & loose) != 0) {
            char text[64];
            std::snprintf(text, sizeof text, "%p 0x%lx", region.BaseAddress, region.Protect);
            say("page", text);
        }
        address = static_cast<const char*>(region.BaseAddress) + region.RegionSize;
    }
}

class Watch
{
public:
    Watch() : before_(readProcessState()) {}

    void stage(const char* name) const
    {
        say("stage", name);
        for (const auto& [setting, now] : readProcessState())
            if (const std::string& was = before_.at(setting); was != now)
                say("changed", setting + ": " + was + " -> " + now);
    }

private:
    ProcessState before_;
};

class Activation
{
public:
    explicit Activation(const wchar_t* manifest)
    {
        ACTCTXW request{};
        request.cbSize = sizeof request;
        request.lpSource = manifest;
        context_ = CreateActCtxW(&request);
        if (context_ == INVALID_HANDLE_VALUE || !ActivateActCtx(context_, &cookie_))
            throw _com_error(HRESULT_FROM_WIN32(GetLastError()));
    }
    ~Activation() { DeactivateActCtx(0, cookie_); }
    Activation(const Activation&) = delete;
    Activation& operator=(const Activation&) = delete;

private:
    HANDLE context_ = nullptr;
    ULONG_PTR cookie_ = 0;
};

void writeDocument(IDocument& mirovel, const wchar_t* document)
{
    mirovel.trace(10);
    mirovel.start();
    _com_util::CheckError(mirovel.create(_bstr_t(document)));
    mirovel.startHeader();
    mirovel.insertField(4);
    mirovel.endHeader();
    mirovel.insertTOC();
    mirovel.setStyle(_bstr_t(L"Heading 1"));
    mirovel.insertText(_bstr_t(L"Watched"));
    mirovel.insertEndl();
    mirovel.setStyle(_bstr_t(L"Normal"));
    mirovel.insertTag(_bstr_t(L"here"));
    mirovel.insertText(_bstr_t(L"See <a href=\"#here\">here</a>."));
    mirovel.insertEndl();
    mirovel.startTable();
    mirovel.addRow();
    mirovel.setTableRowHeight(20);
    mirovel.addCell();
    mirovel.setFontSize(9);
    mirovel.insertText(_bstr_t(L"cell"));
    mirovel.endTable();
    mirovel.close();
}

void failInWord(IDocument& mirovel)
{
    try {
        mirovel.insertText(nullptr);
        // The folder does not exist.
        mirovel.create(_bstr_t(L"c:\\none\\none\\none.doc"));
        say("failure", "did not come");
    } catch (const QdxException& e) {
        say("failure", "QdxException");
    } catch (const _com_error& e) {
        say("failure", "_com_error");
    }
    mirovel.stop();
}

void measurePage()
{
    IPropertyPagePtr page;
    _com_util::CheckError(page.CreateInstance(CLSID_MirovelComPage, nullptr, CLSCTX_INPROC_SERVER));
    PROPPAGEINFO info{};
    info.cb = sizeof info;
    _com_util::CheckError(page->GetPageInfo(&info));
    CoTaskMemFree(info.pszTitle);
    CoTaskMemFree(info.pszDocString);
    CoTaskMemFree(info.pszHelpFile);
}

LONG CALLBACK takeForeign(EXCEPTION_POINTERS* fault)
{
    return fault->ExceptionRecord->ExceptionCode == foreignException ? EXCEPTION_CONTINUE_EXECUTION
                                                                     : EXCEPTION_CONTINUE_SEARCH;
}

// The handler that was added last is asked last: one that the DLL had left behind would be called before it.
void raiseForeignException()
{
    void* const handler = AddVectoredExceptionHandler(0, &takeForeign);
    RaiseException(foreignException, 0, 0, nullptr);
    RemoveVectoredExceptionHandler(handler);
    say("survived", "");
}

void useEverything(const Watch& watch, const wchar_t* document, const wchar_t* dll,
                   const std::set<std::wstring>& known)
{
    IDocumentPtr mirovel;
    _com_util::CheckError(mirovel.CreateInstance(CLSID_Mirovel, nullptr, CLSCTX_INPROC_SERVER));
    watch.stage("created");
    writeDocument(*mirovel, document);
    watch.stage("written");
    failInWord(*mirovel);
    watch.stage("failed");
    measurePage();
    watch.stage("page measured");
    sayModules("loaded", modules(), known);
    sayLoosePages(GetModuleHandleW(dll));
    mirovel = nullptr;
    watch.stage("released");
}

void run(const wchar_t* document, const wchar_t* dll)
{
    const std::set<std::wstring> known = modules();
    sayModules("known", known, {});
    const Watch watch;
    useEverything(watch, document, dll, known);
    CoFreeUnusedLibrariesEx(0, 0);
    say("unloaded", GetModuleHandleW(dll) == nullptr ? "yes" : "no");
    watch.stage("unloaded");
    raiseForeignException();
}

// What was planted lies in the current directory, too.
void goHome()
{
    std::wstring path(1024, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    SetCurrentDirectoryW(path.substr(0, path.rfind(L'\\')).c_str());
}

} // namespace

int wmain(int argc, wchar_t** argv)
{
    if (argc < 3)
        return 2;
    goHome();
    for (const wchar_t* each : sharedByEveryProcess)
        LoadLibraryExW((std::wstring(each) + L".dll").c_str(), nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    int status = 0;
    try {
        makeProcessStateUnusual();
        if (argc > 3) {
            const Activation activation(argv[3]);
            run(argv[1], argv[2]);
        } else {
            run(argv[1], argv[2]);
        }
    } catch (const _com_error& e) {
        std::printf("host: error 0x%lx\n", static_cast<unsigned long>(static_cast<DWORD>(e.Error())));
        status = 1;
    } catch (const std::exception& e) {
        std::printf("host: %s\n", e.what());
        status = 1;
    }
    CoUninitialize();
    // More calls of CoInitialize than of CoUninitialize would keep the apartment.
    APTTYPE type{};
    APTTYPEQUALIFIER qualifier{};
    say("apartment", CoGetApartmentType(&type, &qualifier) == CO_E_NOTINITIALIZED ? "gone" : "left");
    return status;
}
