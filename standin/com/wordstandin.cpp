#include "ApplicationFactory.h"
#include "FileNames.h"
#include "HeldInterfaces.h"
#include "InsertedFiles.h"
#include "Profile.h"
#include "Registration.h"
#include "Server.h"
#include "SwitchTable.h"
#include "TranscriptFile.h"
#include "WordError.h"

#include <cstdio>
#include <cwchar>
#include <stdexcept>
#include <string>
#include <utility>
#include <windows.h>

/// The Word stand-in as an automation server in a process of its own.
///
///     wordstandin /regserver     enters it as Word.Application; refused where there is another one
///     wordstandin /unregserver   takes that back
///     wordstandin -Embedding     how COM starts it: serves one creation, ends at Quit
///     wordstandin /run           a running, visible Word that clients can attach to; ends at Quit
namespace standin {
namespace {
constexpr DWORD farewellMilliseconds = 300;

/// COM for the main thread's apartment.
class ComApartment
{
public:
    ComApartment()
    {
        const HRESULT entered = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        if (FAILED(entered))
            throw _com_error(entered);
    }
    ~ComApartment() { CoUninitialize(); }
    ComApartment(const ComApartment&) = delete;
    ComApartment& operator=(const ComApartment&) = delete;
};

std::wstring environmentValue(const wchar_t* name)
{
    const DWORD size = GetEnvironmentVariableW(name, nullptr, 0);
    std::wstring value(size, L'\0');
    value.resize(GetEnvironmentVariableW(name, value.data(), size));
    return value;
}

std::string environmentText(const wchar_t* name)
{
    const std::wstring value = environmentValue(name);
    return {value.begin(), value.end()};
}

void readEnvironment(Server& server)
{
    if (const std::string faults = environmentText(L"WORDSTANDIN_FAIL"); !faults.empty())
        server.faults.read(faults);
    if (const std::string ordinal = environmentText(L"WORDSTANDIN_EXIT"); !ordinal.empty())
        server.faults.exitAtCall(std::stol(ordinal));
    server.transcript = transcriptFileFromEnvironment();
    server.insertedFiles = insertedFilesFromEnvironment();
}

std::string profileText(const std::wstring& file)
try {
    return readFile(file);
} catch (const model::WordError&) {
    throw std::runtime_error("the profile cannot be read");
}

model::Switches switchesFromEnvironment()
{
    model::Switches switches;
    if (const std::wstring profile = environmentValue(L"WORDSTANDIN_PROFILE"); !profile.empty())
        model::readProfile(switches, profileText(profile));
    model::readSwitches(switches, environmentText(L"WORDSTANDIN_SWITCHES"));
    return switches;
}

/// Entered in the running object table unless another Word is there already.
class ActiveObject
{
public:
    explicit ActiveObject(IUnknown* application)
    {
        // An entry whose process is gone is found, but answers with no object.
        Word::IUnknownPtr other;
        if (FAILED(GetActiveObject(applicationClassId, nullptr, &other)) || !other)
            RegisterActiveObject(application, applicationClassId, ACTIVEOBJECT_STRONG, &registration_);
    }
    ~ActiveObject() { revoke(); }
    void revoke()
    {
        if (const DWORD registration = std::exchange(registration_, 0))
            RevokeActiveObject(registration, nullptr);
    }
    ActiveObject(const ActiveObject&) = delete;
    ActiveObject& operator=(const ActiveObject&) = delete;

private:
    DWORD registration_ = 0;
};

class ClassObject
{
public:
    explicit ClassObject(const std::shared_ptr<Server>& server)
        : factory_(new ApplicationFactory(server), false)
    {
        const HRESULT registered = CoRegisterClassObject(applicationClassId, factory_, CLSCTX_LOCAL_SERVER,
                                                         REGCLS_SINGLEUSE, &registration_);
        if (FAILED(registered))
            throw _com_error(registered);
    }
    ~ClassObject() { CoRevokeClassObject(registration_); }
    ClassObject(const ClassObject&) = delete;
    ClassObject& operator=(const ClassObject&) = delete;

private:
    IClassFactoryPtr factory_;
    DWORD registration_ = 0;
};

void pumpUntilQuit()
{
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0)
        DispatchMessageW(&message);
}

/// The answer to Quit is still on its way, and clients let go of their objects after it.
void pumpFarewell()
{
    const ULONGLONG end = GetTickCount64() + farewellMilliseconds;
    for (ULONGLONG now = GetTickCount64(); now < end; now = GetTickCount64()) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(end - now), QS_ALLINPUT);
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageW(&message);
    }
}

void serve(bool asRunningWord)
{
    const ComApartment apartment;
    const ITypeLibPtr library = registeredTypeLibrary();
    const HeldInterfaces held;
    const auto server = Server::make(switchesFromEnvironment());
    readEnvironment(*server);
    server->documentsInRunningObjectTable = true;
    server->start(asRunningWord);
    {
        ActiveObject active(server->application());
        std::unique_ptr<ClassObject> classObject;
        if (!asRunningWord)
            classObject = std::make_unique<ClassObject>(server);
        // Before Quit answers: who looks for Word then does not find this one.
        server->whenEnded = [&active] {
            active.revoke();
            PostQuitMessage(0);
        };
        pumpUntilQuit();
        server->whenEnded = nullptr;
    }
    pumpFarewell();
}

int run(const std::wstring& option)
{
    if (_wcsicmp(option.c_str(), L"/regserver") == 0 || _wcsicmp(option.c_str(), L"-regserver") == 0)
        registerServer();
    else if (_wcsicmp(option.c_str(), L"/unregserver") == 0 || _wcsicmp(option.c_str(), L"-unregserver") == 0)
        unregisterServer();
    else if (_wcsicmp(option.c_str(), L"/embedding") == 0 || _wcsicmp(option.c_str(), L"-embedding") == 0)
        serve(false);
    else if (_wcsicmp(option.c_str(), L"/run") == 0)
        serve(true);
    else {
        std::fputs("usage: wordstandin /regserver | /unregserver | /run\n", stderr);
        return 2;
    }
    return 0;
}
} // namespace
} // namespace standin

int wmain(int argc, wchar_t** argv)
try {
    return standin::run(argc > 1 ? argv[1] : L"");
} catch (const std::exception& error) {
    std::fprintf(stderr, "wordstandin: %s\n", error.what());
    return 1;
} catch (const _com_error& error) {
    std::fprintf(stderr, "wordstandin: failed with 0x%08lx\n", static_cast<unsigned long>(error.Error()));
    return 1;
}
