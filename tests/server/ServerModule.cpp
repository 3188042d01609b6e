#include "ServerModule.h"

#include <stdexcept>

namespace {

std::wstring fileOf(HMODULE module)
{
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size())));
    return path;
}

} // namespace

std::wstring ServerModule::builtFile()
{
    const std::wstring self = fileOf(nullptr);
    // MIROVEL_SERVER is the way from the test program's folder to the DLL.
    return self.substr(0, self.rfind(L'\\') + 1) + MIROVEL_SERVER;
}

template <class Function>
Function* ServerModule::entryPoint(const char* name) const
{
    // Through void*: the compiler cannot know the function's true type.
    void* const address = reinterpret_cast<void*>(GetProcAddress(module_, name));
    if (address == nullptr)
        throw std::runtime_error(std::string("no entry point ") + name);
    return reinterpret_cast<Function*>(address);
}

ServerModule::ServerModule() : ServerModule(builtFile()) {}

ServerModule::ServerModule(const std::wstring& file) : module_(LoadLibraryW(file.c_str()))
{
    if (module_ == nullptr)
        throw std::runtime_error("cannot load the server: error " + std::to_string(GetLastError()));
    getClassObject_ = entryPoint<HRESULT WINAPI(REFCLSID, REFIID, void**)>("DllGetClassObject");
    canUnloadNow_ = entryPoint<HRESULT WINAPI()>("DllCanUnloadNow");
    registerServer_ = entryPoint<HRESULT WINAPI()>("DllRegisterServer");
    unregisterServer_ = entryPoint<HRESULT WINAPI()>("DllUnregisterServer");
}

ServerModule::~ServerModule()
{
    FreeLibrary(module_);
}

std::wstring ServerModule::path() const
{
    return fileOf(module_);
}
