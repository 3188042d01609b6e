#include "CComModule.h"

#include "ComPointers.h"
#include "ExceptionTranslation.h"
#include "win32/WindowsError.h"

#include <comdef.h>

#include <algorithm>
#include <utility>

CComModule& comModule() noexcept
{
    // Ready before any code of the module runs: DllMain is the first to use it.
    static constinit CComModule module;
    return module;
}

void CComModule::init(std::span<ObjectMapEntry> objectMap, HINSTANCE instance,
                      const GUID* typeLibraryId) noexcept
{
    objectMap_ = objectMap;
    instance_ = instance;
    typeLibraryId_ = typeLibraryId;
    for (const ObjectMapEntry& entry : objectMap_)
        entry.objectMain(true);
}

void CComModule::term() noexcept
{
    for (ObjectMapEntry& entry : objectMap_) {
        entry.objectMain(false);
        if (IClassFactory* const classObject = std::exchange(entry.classObject, nullptr))
            classObject->Release();
    }
    objectMap_ = {};
}

std::wstring CComModule::path() const
{
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(instance_, path.data(), static_cast<DWORD>(path.size()));
        if (length == 0)
            throwLastError();
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(2 * path.size());
    }
}

HRESULT CComModule::getClassObject(REFCLSID classId, REFIID iid, void** out) noexcept
try {
    if (out == nullptr)
        return E_POINTER;
    *out = nullptr;
    const auto entry = std::ranges::find_if(
        objectMap_, [&](const ObjectMapEntry& each) { return IsEqualCLSID(*each.classId, classId); });
    if (entry == objectMap_.end())
        return CLASS_E_CLASSNOTAVAILABLE;
    return classObject(*entry).QueryInterface(iid, out);
} catch (...) {
    return currentExceptionToHresult();
}

IClassFactory& CComModule::classObject(ObjectMapEntry& entry)
{
    const std::lock_guard guard(classObjects_);
    if (entry.classObject == nullptr)
        entry.classObject = entry.createClassObject(entry.createInstance);
    return *entry.classObject;
}

void CComModule::registerServer() const
{
    for (const ObjectMapEntry& entry : objectMap_)
        entry.updateRegistry(true);
    registerTypeLibrary();
}

void CComModule::unregisterServer() const noexcept
{
    for (const ObjectMapEntry& entry : objectMap_) {
        try {
            entry.updateRegistry(false);
        } catch (...) { // NOLINT(bugprone-empty-catch): the other classes are still to be removed.
        }
    }
}

void CComModule::registerTypeLibrary() const
{
    std::wstring file = path();
    ITypeLibPtr library;
    _com_util::CheckError(LoadTypeLibEx(file.c_str(), REGKIND_NONE, &library));
    _com_util::CheckError(RegisterTypeLib(library, file.data(), nullptr));
}
