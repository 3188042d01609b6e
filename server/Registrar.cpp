#include "Registrar.h"

#include <windows.h>

#include <comdef.h>

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace {

constexpr std::array systemKeys{L"AppID",    L"CLSID",     L"Component Categories",
                                L"FileType", L"Interface", L"Hardware",
                                L"Mime",     L"SAM",       L"SECURITY",
                                L"SYSTEM",   L"Software",  L"TypeLib"};

std::wstring wide(const std::u16string& text)
{
    return {text.begin(), text.end()};
}

void check(LSTATUS status)
{
    if (status != ERROR_SUCCESS)
        throw _com_error(HRESULT_FROM_WIN32(static_cast<DWORD>(status)));
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

/// An open key; closed with the object.
class OpenKey
{
public:
    static OpenKey create(HKEY parent, const std::wstring& name)
    {
        HKEY key = nullptr;
        check(RegCreateKeyExW(parent, name.c_str(), 0, nullptr, 0, KEY_READ | KEY_WRITE, nullptr, &key,
                              nullptr));
        return OpenKey(key);
    }

    /// Tests false when there is none.
    static OpenKey open(HKEY parent, const std::wstring& name)
    {
        HKEY key = nullptr;
        RegOpenKeyExW(parent, name.c_str(), 0, KEY_READ | KEY_WRITE, &key);
        return OpenKey(key);
    }

    OpenKey(OpenKey&& other) noexcept : key_(std::exchange(other.key_, nullptr)) {}
    OpenKey& operator=(OpenKey&&) = delete;

    ~OpenKey()
    {
        if (key_ != nullptr)
            RegCloseKey(key_);
    }

    explicit operator bool() const noexcept { return key_ != nullptr; }
    HKEY get() const noexcept { return key_; }

    /// A null name means the default value.
    void setText(const wchar_t* name, const std::wstring& text) const
    {
        const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
        check(RegSetValueExW(key_, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()), size));
    }

    bool isEmpty() const
    {
        DWORD subkeys = 0;
        DWORD values = 0;
        check(RegQueryInfoKeyW(key_, nullptr, nullptr, nullptr, &subkeys, nullptr, nullptr, &values, nullptr,
                               nullptr, nullptr, nullptr));
        return subkeys == 0 && values == 0;
    }

private:
    explicit OpenKey(HKEY key) noexcept : key_(key) {}

    HKEY key_;
};

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

Place within(const OpenKey& opened, const ScriptKey& key, const Place& place)
{
    return {opened.get(), place.isAmongSystemKeys && isKept(key, place)};
}

void deleteTree(const ScriptKey& key, const Place& place)
{
    const LSTATUS status = RegDeleteTreeW(place.parent, wide(key.name).c_str());
    if (status != ERROR_FILE_NOT_FOUND)
        check(status);
}

void registerKey(const ScriptKey& key, const Place& place)
{
    const bool isRemoved = key.flag == KeyFlag::forceRemove || key.flag == KeyFlag::deleteKey;
    if (isRemoved && !isSystemKey(key, place))
        deleteTree(key, place);
    if (key.flag == KeyFlag::deleteKey)
        return;
    const OpenKey opened = OpenKey::create(place.parent, wide(key.name));
    if (key.defaultValue)
        opened.setText(nullptr, wide(*key.defaultValue));
    for (const ScriptValue& value : key.values)
        opened.setText(wide(value.name).c_str(), wide(value.data));
    for (const ScriptKey& subkey : key.subkeys)
        registerKey(subkey, within(opened, key, place));
}

void unregisterKey(const ScriptKey& key, const Place& place);

/// Takes what the script wrote out of a key that is not removed as a whole.
void empty(const ScriptKey& key, const Place& place, const OpenKey& opened)
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
    const OpenKey opened = OpenKey::open(place.parent, wide(key.name));
    if (!opened)
        return;
    empty(key, place, opened);
    if (!isKept(key, place) && opened.isEmpty())
        check(RegDeleteKeyW(place.parent, wide(key.name).c_str()));
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
