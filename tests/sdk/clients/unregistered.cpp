// What an activation context makes of the classes where nothing is registered: unregistered [file|module
// PATH]
//   file PATH    the manifest is that file
//   module PATH  the manifest is in that library
// Without arguments the context is the one that the program's own manifest asks for, if it has one. Each line
// of output is an answer of COM:
//   Mirovel.Mirovel -> ok                       a ProgID becomes a class, and the class an object
//   getDocType by Invoke -> Word                the object's type library is found
//   getDocType from another apartment -> Word   the interface travels by the type library's description
#include <windows.h>

#include <IDocument.h>
#include <comdef.h>
#include <ocidl.h>

#include <cstdio>
#include <cwchar>
#include <stdexcept>
#include <string>

_COM_SMARTPTR_TYPEDEF(IDocument, __uuidof(IDocument));
_COM_SMARTPTR_TYPEDEF(IUnknown, __uuidof(IUnknown));
_COM_SMARTPTR_TYPEDEF(IStream, __uuidof(IStream));
_COM_SMARTPTR_TYPEDEF(ITypeLib, __uuidof(ITypeLib));

namespace {

const wchar_t* const progIds[] = {L"Mirovel.Mirovel", L"Mirovel.Mirovel.2.1.0",
                                  L"MirovelComPage.MirovelComPage", L"MirovelComPage.MirovelComPage.2.1.0"};

std::string answer(HRESULT hr)
{
    char text[16];
    std::snprintf(text, sizeof text, "0x%lx", static_cast<unsigned long>(static_cast<DWORD>(hr)));
    return SUCCEEDED(hr) ? "ok" : text;
}

void say(const wchar_t* what, const std::string& result)
{
    std::printf("%ls -> %s\n", what, result.c_str());
    std::fflush(stdout);
}

HRESULT create(const wchar_t* progId)
{
    CLSID classId{};
    const HRESULT hr = CLSIDFromProgID(progId, &classId);
    if (FAILED(hr))
        return hr;
    IUnknownPtr object;
    return object.CreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER);
}

std::string documentTypeByInvoke(IDispatch& object)
try {
    wchar_t memberName[] = L"getDocType";
    LPOLESTR member = memberName;
    DISPID id = 0;
    _com_util::CheckError(object.GetIDsOfNames(IID_NULL, &member, 1, LOCALE_USER_DEFAULT, &id));
    DISPPARAMS none{};
    _variant_t result;
    _com_util::CheckError(
        object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none, &result, nullptr, nullptr));
    return static_cast<const char*>(_bstr_t(result));
} catch (const _com_error& e) {
    return answer(e.Error());
}

std::string documentType(IDocument& object)
{
    BSTR type = nullptr;
    const HRESULT hr = object.getDocType(&type);
    return FAILED(hr) ? answer(hr) : static_cast<const char*>(_bstr_t(type, false));
}

// In an apartment of its own, which needs a proxy.
std::string documentTypeElsewhere(IStream* stream)
{
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    std::string text;
    {
        IDocumentPtr object;
        const HRESULT hr =
            CoGetInterfaceAndReleaseStream(stream, IID_IDocument, reinterpret_cast<void**>(&object));
        text = FAILED(hr) ? answer(hr) : documentType(*object);
    }
    CoUninitialize();
    return text;
}

// The apartment's messages are pumped meanwhile: the call arrives as one.
void waitFor(HANDLE thread)
{
    while (MsgWaitForMultipleObjects(1, &thread, FALSE, INFINITE, QS_ALLINPUT) != WAIT_OBJECT_0) {
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageW(&message);
    }
}

std::string documentTypeFromAnotherApartment(IDocument& object, HANDLE context)
{
    IStream* stream = nullptr;
    const HRESULT hr = CoMarshalInterThreadInterfaceInStream(IID_IDocument, &object, &stream);
    if (FAILED(hr))
        return answer(hr);
    std::string text;
    // A thread begins with the process's context; the one of this thread is handed on.
    struct Task
    {
        IStream* stream;
        HANDLE context;
        std::string& text;
    } task{stream, context, text};
    const HANDLE thread = CreateThread(
        nullptr, 0,
        [](void* argument) -> DWORD {
            const Task& given = *static_cast<Task*>(argument);
            ULONG_PTR cookie = 0;
            const bool active = given.context != nullptr && ActivateActCtx(given.context, &cookie);
            given.text = documentTypeElsewhere(given.stream);
            if (active)
                DeactivateActCtx(0, cookie);
            return 0;
        },
        &task, 0, nullptr);
    waitFor(thread);
    CloseHandle(thread);
    return text;
}

// The other apartment last: when an interface travels, Wine registers the type library that the context led
// it to.
void tryEverything(HANDLE context)
{
    for (const wchar_t* each : progIds)
        say(each, answer(create(each)));
    ITypeLibPtr library;
    say(L"type library", answer(LoadRegTypeLib(LIBID_MIROVELCOMLib, 2, 0, LOCALE_NEUTRAL, &library)));
    IDocumentPtr object;
    if (FAILED(object.CreateInstance(CLSID_Mirovel, nullptr, CLSCTX_INPROC_SERVER)))
        return;
    say(L"getDocType", documentType(*object));
    say(L"getDocType by Invoke", documentTypeByInvoke(*object));
    say(L"getDocType from another apartment", documentTypeFromAnotherApartment(*object, context));
}

void tryWith(const wchar_t* kind, const wchar_t* path)
{
    ACTCTXW request{};
    request.cbSize = sizeof request;
    request.lpSource = path;
    if (std::wcscmp(kind, L"module") == 0) {
        request.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID;
        request.lpResourceName = MAKEINTRESOURCEW(1);
    }
    const HANDLE context = CreateActCtxW(&request);
    ULONG_PTR cookie = 0;
    if (context == INVALID_HANDLE_VALUE || !ActivateActCtx(context, &cookie))
        throw std::runtime_error("no activation context: error " + std::to_string(GetLastError()));
    tryEverything(context);
    DeactivateActCtx(0, cookie);
    ReleaseActCtx(context);
}

} // namespace

int wmain(int argc, wchar_t** argv)
{
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    int status = 0;
    try {
        if (argc == 3)
            tryWith(argv[1], argv[2]);
        else
            tryEverything(nullptr);
    } catch (const std::exception& e) {
        std::printf("%s\n", e.what());
        status = 1;
    }
    CoUninitialize();
    return status;
}
