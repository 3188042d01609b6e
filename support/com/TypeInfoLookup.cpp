#include "TypeInfoLookup.h"

#include "CComModule.h"
#include "win32/RegistryKey.h"

#include <algorithm>
#include <compare>
#include <cwchar>
#include <string>
#include <vector>

namespace {

struct Version
{
    WORD major;
    WORD minor;

    auto operator<=>(const Version&) const = default;
};

RegistryKey openLibraryKey(const GUID& libraryId)
{
    wchar_t name[64] = L"TypeLib\\";
    const std::size_t prefix = std::wcslen(name);
    StringFromGUID2(libraryId, name + prefix, static_cast<int>(std::size(name) - prefix));
    return RegistryKey::open(HKEY_CLASSES_ROOT, name, KEY_READ);
}

/// The versions a library is registered under, the highest first. Their keys are named "2.0", in hexadecimal.
std::vector<Version> registeredVersions(const GUID& libraryId)
{
    std::vector<Version> versions;
    const RegistryKey key = openLibraryKey(libraryId);
    for (const std::wstring& name : key ? key.subkeys() : std::vector<std::wstring>()) {
        wchar_t* rest = nullptr;
        const unsigned long major = std::wcstoul(name.c_str(), &rest, 16);
        if (rest == name.c_str() || *rest != L'.')
            continue;
        const unsigned long minor = std::wcstoul(rest + 1, nullptr, 16);
        versions.push_back({static_cast<WORD>(major), static_cast<WORD>(minor)});
    }
    std::ranges::sort(versions, std::greater<>());
    return versions;
}

/// Null if the registered library or the interface in it is not to be had.
ITypeInfoPtr fromRegistered(const GUID& libraryId, const IID& iid, Version version)
{
    ITypeLibPtr library;
    ITypeInfoPtr typeInfo;
    if (SUCCEEDED(LoadRegTypeLib(libraryId, version.major, version.minor, LOCALE_NEUTRAL, &library)))
        library->GetTypeInfoOfGuid(iid, &typeInfo);
    return typeInfo;
}

ITypeInfoPtr fromModule(const IID& iid)
{
    ITypeLibPtr library;
    ITypeInfoPtr typeInfo;
    _com_util::CheckError(LoadTypeLibEx(comModule().path().c_str(), REGKIND_NONE, &library));
    _com_util::CheckError(library->GetTypeInfoOfGuid(iid, &typeInfo));
    return typeInfo;
}

} // namespace

ITypeInfoPtr findTypeInfo(const GUID& libraryId, const IID& iid, WORD majorVersion, WORD minorVersion)
{
    if (ITypeInfoPtr asked = fromRegistered(libraryId, iid, {majorVersion, minorVersion}))
        return asked;
    for (const Version version : registeredVersions(libraryId))
        if (ITypeInfoPtr registered = fromRegistered(libraryId, iid, version))
            return registered;
    return fromModule(iid);
}
