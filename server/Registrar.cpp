#include "Registrar.h"

#include "win32/RegistryKey.h"
#include "win32/WindowsError.h"

#include <windows.h>

#include <comdef.h>

#include <algorithm>
#include <array>
#include <string>

namespace {

constexpr std::array systemKeys{L"AppID",    L"CLSID",     L"Component Categories",
                                L"FileType", L"Interface", L"Hardware",
                                L"Mime",     L"SAM",       L"SECURITY",
                                L"SYSTEM",   L"Software",  L"TypeLib"};

std::wstring wide(const std::u16string& text)
{
    return {text.begin(), text.end()};
}

HKEY rootHandle(RootKey root)
{
    switch (root) {
    case RootKey::classesRoot:
        return HKEY_CLASSES_ROOT;
    case RootKey::currentUser:
        return HKEY_CURRENT_USER;
    case RootKey::localMachine:
        return HKEY_LOCAL_MACHINE;
    case RootKey::users:
        return HKEY_USERS;
    case RootKey::performanceData:
        return HKEY_PERFORMANCE_DATA;
    case RootKey::dynData:
        return HKEY_DYN_DATA;
    case RootKey::currentConfig:
        return HKEY_CURRENT_CONFIG;
    }
    throw _com_error(E_INVALIDARG);
}

constexpr REGSAM readAndWrite = KEY_READ | KEY_WRITE;

/// Where a key of the script lies.
struct Place
{
    HKEY parent;
    /// Whether nothing but kept keys lie between it and the root.
    bool isAmongSystemKeys;
};

bool isSystemKey(const ScriptKey& key, const Place& place)
{
    const std::wstring name = wide(key.name);
    return place.isAmongSystemKeys && std::ranges::any_of(systemKeys, [&](const wchar_t* each) {
               return _wcsicmp(each, name.c_str()) == 0;
           });
}

bool isKept(const ScriptKey& key, const Place& place)
{
    return key.flag == KeyFlag::noRemove || isSystemKey(key, place);
}

Place within(const RegistryKey& opened, const ScriptKey& key, const Place& place)
{
    return {opened.get(), place.isAmongSystemKeys && isKept(key, place)};
}

void deleteTree(const ScriptKey& key, const Place& place)
{
    const LSTATUS status = RegDeleteTreeW(place.parent, wide(key.name).c_str());
    if (status != ERROR_FILE_NOT_FOUND)
        checkStatus(status);
}

void registerKey(const ScriptKey& key, const Place& place)
{
    const bool isRemoved = key.flag == KeyFlag::forceRemove || key.flag == KeyFlag::deleteKey;
    if (isRemoved && !isSystemKey(key, place))
        deleteTree(key, place);
    if (key.flag == KeyFlag::deleteKey)
        return;
    const RegistryKey opened = RegistryKey::create(place.parent, wide(key.name), readAndWrite);
    if (key.defaultValue)
        opened.setText(nullptr, wide(*key.defaultValue).c_str());
    for (const ScriptValue& value : key.values)
        opened.setText(wide(value.name).c_str(), wide(value.data).c_str());
    for (const ScriptKey& subkey : key.subkeys)
        registerKey(subkey, within(opened, key, place));
}

void unregisterKey(const ScriptKey& key, const Place& place);

/// Takes what the script wrote out of a key that is not removed as a whole.
void empty(const ScriptKey& key, const Place& place, const RegistryKey& opened)
{
    for (const ScriptKey& subkey : key.subkeys)
        unregisterKey(subkey, within(opened, key, place));
    if (key.defaultValue)
        RegDeleteValueW(opened.get(), nullptr);
    for (const ScriptValue& value : key.values)
        RegDeleteValueW(opened.get(), wide(value.name).c_str());
}

void unregisterKeyStrictly(const ScriptKey& key, const Place& place)
{
    if (key.flag == KeyFlag::deleteKey)
        return;
    if (key.flag == KeyFlag::forceRemove && !isSystemKey(key, place))
        return deleteTree(key, place);
    const RegistryKey opened = RegistryKey::open(place.parent, wide(key.name), readAndWrite);
    if (!opened)
        return;
    empty(key, place, opened);
    if (!isKept(key, place) && opened.isEmpty())
        checkStatus(RegDeleteKeyW(place.parent, wide(key.name).c_str()));
}

void unregisterKey(const ScriptKey& key, const Place& place)
try {
    unregisterKeyStrictly(key, place);
} catch (const _com_error&) { // NOLINT(bugprone-empty-catch): the other keys are still to be removed.
}

} // namespace

void registerScript(const RegistryScript& script)
{
    for (const ScriptRoot& root : script)
        for (const ScriptKey& key : root.keys)
            registerKey(key, {rootHandle(root.root), true});
}

void unregisterScript(const RegistryScript& script)
{
    for (const ScriptRoot& root : script)
        for (const ScriptKey& key : root.keys)
            unregisterKey(key, {rootHandle(root.root), true});
}
