#include "TypeInfoLookup.h"

#include "CComModule.h"

#include <algorithm>
#include <compare>
#include <cwchar>
#include <memory>
#include <vector>

namespace {

struct Version
{
    WORD major;
    WORD minor;

    auto operator<=>(const Version&) const = default;
};

struct KeyCloser
{
    using pointer = HKEY;
    void operator()(HKEY key) const noexcept { RegCloseKey(key); }
};
using Key = std::unique_ptr<HKEY, KeyCloser>;

Key openLibraryKey(const GUID& libraryId)
{
    wchar_t name[64] = L"TypeLib\\";
    const std::size_t prefix = std::wcslen(name);
    StringFromGUID2(libraryId, name + prefix, static_cast<int>(std::size(name) - prefix));
    HKEY key = nullptr;
    RegOpenKeyExW(HKEY_CLASSES_ROOT, name, 0, KEY_READ, &key);
    return Key(key);
}

/// The versions a library is registered under, the highest first. Their keys are named "2.0", in hexadecimal.
std::vector<Version> registeredVersions(const GUID& libraryId)
{
    std::vector<Version> versions;
    const Key key = openLibraryKey(libraryId);
    wchar_t name[256];
    for (DWORD index = 0; key; ++index) {
        DWORD length = static_cast<DWORD>(std::size(name));
        if (RegEnumKeyExW(key.get(), index, name, &length, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS)
            break;
        wchar_t* rest = nullptr;
        const unsigned long major = std::wcstoul(name, &rest, 16);
        if (rest == name || *rest != L'.')
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
