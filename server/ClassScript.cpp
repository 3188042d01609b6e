#include "ClassScript.h"

#include "Registrar.h"

#include "CComModule.h"
#include "win32/WindowsError.h"

#include <windows.h>

#include <string>
#include <string_view>

namespace {

/// The scripts are plain ASCII.
std::u16string loadScript(unsigned short resource)
{
    const HMODULE module = comModule().instance();
    const HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(resource), L"REGISTRY");
    const HGLOBAL loaded = found != nullptr ? LoadResource(module, found) : nullptr;
    if (loaded == nullptr)
        throwLastError();
    const std::string_view bytes(static_cast<const char*>(LockResource(loaded)),
                                 SizeofResource(module, found));
    return {bytes.begin(), bytes.end()};
}

} // namespace

void runClassScript(unsigned short resource, bool registering)
{
    const std::wstring path = comModule().path();
    const ScriptVariables variables{{u"MODULE", std::u16string(path.begin(), path.end())}};
    const RegistryScript script = parseRegistryScript(loadScript(resource), variables);
    if (registering)
        registerScript(script);
    else
        unregisterScript(script);
}
