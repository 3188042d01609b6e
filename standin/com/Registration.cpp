#include "Registration.h"

#include "ApplicationFactory.h"
#include "OwnFile.h"
#include "TypeLibraryNumber.h"

#include <cwchar>
#include <stdexcept>
#include <string>

namespace standin {
namespace {
const std::wstring classKey = std::wstring(L"CLSID\\") + applicationClassText;
const std::wstring serverKey = classKey + L"\\LocalServer32";
const std::wstring progIdKey = applicationProgId;
constexpr wchar_t versionedProgId[] = L"Word.Application.9";
constexpr wchar_t displayedName[] = L"Microsoft Word Application (stand-in)";
constexpr GUID wordLibraryId = {0x00020905, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

void checkSucceeded(LSTATUS status)
{
    if (status != ERROR_SUCCESS)
        throw _com_error(HRESULT_FROM_WIN32(static_cast<unsigned long>(status)));
}

void writeDefault(const std::wstring& path, const std::wstring& value)
{
    checkSucceeded(RegSetKeyValueW(HKEY_CLASSES_ROOT, path.c_str(), nullptr, REG_SZ, value.c_str(),
                                   static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t))));
}

std::wstring readDefault(const std::wstring& path)
{
    DWORD size = 0;
    if (RegGetValueW(HKEY_CLASSES_ROOT, path.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, nullptr, &size) !=
        ERROR_SUCCESS)
        return {};
    std::wstring value(size / sizeof(wchar_t), L'\0');
    checkSucceeded(
        RegGetValueW(HKEY_CLASSES_ROOT, path.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, value.data(), &size));
    value.resize(std::wcslen(value.c_str()));
    return value;
}

std::wstring commandLine()
{
    return L'"' + ownFile() + L'"';
}

/// A real Word, or another copy of the stand-in, is never replaced.
void refuseIfForeign()
{
    const std::wstring server = readDefault(serverKey);
    const std::wstring owner = readDefault(progIdKey + L"\\CLSID");
    const bool otherServer = !server.empty() && _wcsicmp(server.c_str(), commandLine().c_str()) != 0;
    const bool otherClass = !owner.empty() && _wcsicmp(owner.c_str(), applicationClassText) != 0;
    if (otherServer || otherClass || (server.empty() && !owner.empty()))
        throw std::runtime_error("another Word.Application is registered on this machine");
}

std::wstring ownTypeLibrary()
{
    return ownFile() + L'\\' + std::to_wstring(STANDIN_TYPELIB_RESOURCE);
}

// By the whole name: what LoadTypeLibEx registers by itself lacks the resource's number under Wine.
void registerTypeLibrary()
{
    std::wstring file = ownTypeLibrary();
    ITypeLibPtr library;
    HRESULT result = LoadTypeLibEx(file.c_str(), REGKIND_NONE, &library);
    if (SUCCEEDED(result))
        result = RegisterTypeLib(library, file.data(), nullptr);
    if (FAILED(result))
        throw _com_error(result);
}

void deleteTree(const std::wstring& path)
{
    const LSTATUS status = RegDeleteTreeW(HKEY_CLASSES_ROOT, path.c_str());
    if (status != ERROR_FILE_NOT_FOUND)
        checkSucceeded(status);
}
} // namespace

void registerServer()
{
    refuseIfForeign();
    registerTypeLibrary();
    writeDefault(classKey, displayedName);
    writeDefault(serverKey, commandLine());
    writeDefault(classKey + L"\\ProgID", versionedProgId);
    writeDefault(classKey + L"\\VersionIndependentProgID", applicationProgId);
    for (const std::wstring& progId : {progIdKey, std::wstring(versionedProgId)}) {
        writeDefault(progId, displayedName);
        writeDefault(progId + L"\\CLSID", applicationClassText);
    }
    writeDefault(progIdKey + L"\\CurVer", versionedProgId);
}

void unregisterServer()
{
    refuseIfForeign();
    if (readDefault(serverKey).empty())
        return;
    deleteTree(progIdKey);
    deleteTree(versionedProgId);
    deleteTree(classKey);
    UnRegisterTypeLib(wordLibraryId, 8, 1, 0, SYS_WIN64);
}

ITypeLibPtr registeredTypeLibrary()
{
    ITypeLibPtr library;
    LoadRegTypeLib(wordLibraryId, 8, 1, 0, &library);
    return library;
}
} // namespace standin
