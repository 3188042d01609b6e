#pragma once

#include "CComClassFactory.h"
#include "CriticalSection.h"

#include <unknwn.h>
#include <windows.h>

#include <atomic>
#include <mutex>
#include <span>
#include <string>

/// What the module does with one of its classes: everything about the class that clients, the registration
/// tool and the loader can ask for. `objectMapEntry` fills it from the class.
struct ObjectMapEntry
{
    const CLSID* classId = nullptr;
    /// Writes (true) or removes (false) the class's registry entries. Throws.
    void (*updateRegistry)(bool registering) = nullptr;
    /// Makes the class object around the creator of instances, owned by the caller. Throws.
    IClassFactory* (*createClassObject)(InstanceCreator* creator) = nullptr;
    InstanceCreator* createInstance = nullptr;
    /// The start and stop hook.
    void (*objectMain)(bool starting) noexcept = nullptr;
    /// The class object, once it has been asked for; owned by the module.
    IClassFactory* classObject = nullptr;
};

/// The entry of a class that derives from `CComCoClass`.
template <class Class>
constexpr ObjectMapEntry objectMapEntry(void (*updateRegistry)(bool registering)) noexcept
{
    return {&Class::objectClassId(), updateRegistry,     &CComClassFactory::create,
            &Class::createInstance,  &Class::objectMain, nullptr};
}

/// The state of the module as a COM server: its object map, its class objects, its lock count.
class CComModule
{
public:
    constexpr CComModule() = default;
    CComModule(const CComModule&) = delete;
    CComModule& operator=(const CComModule&) = delete;

    /// Starts the module: runs every class's start hook. The map is borrowed until `term`. Safe under the
    /// loader lock.
    void init(std::span<ObjectMapEntry> objectMap, HINSTANCE instance, const GUID* typeLibraryId) noexcept;

    /// Ends the module: runs every class's stop hook and releases the cached class objects.
    void term() noexcept;

    HINSTANCE instance() const noexcept { return instance_; }
    /// Null in a module without a type library.
    const GUID* typeLibraryId() const noexcept { return typeLibraryId_; }
    std::span<const ObjectMapEntry> objectMap() const noexcept { return objectMap_; }

    /// The full path of the module's file. Throws `_com_error`.
    std::wstring path() const;

    // The lock count: objects alive plus explicit server locks. Any thread.
    void lock() noexcept { ++lockCount_; }
    void unlock() noexcept { --lockCount_; }
    LONG lockCount() const noexcept { return lockCount_; }

    /// DllGetClassObject: E_POINTER without `out`, which is otherwise cleared; CLASS_E_CLASSNOTAVAILABLE for
    /// a class that is not in the map; else what the class object's QueryInterface returns. Any thread.
    HRESULT getClassObject(REFCLSID classId, REFIID iid, void** out) noexcept;

    /// Registers every class in the order of the map, then the type library that is the module's resource
    /// TYPELIB 1. Throws at the first failure.
    void registerServer() const;

    /// Unregisters every class, whatever happens to the others. The type library stays registered.
    void unregisterServer() const noexcept;

private:
    IClassFactory& classObject(ObjectMapEntry& entry);
    void registerTypeLibrary() const;

    std::span<ObjectMapEntry> objectMap_;
    HINSTANCE instance_ = nullptr;
    const GUID* typeLibraryId_ = nullptr;
    std::atomic<LONG> lockCount_ = 0;
    CriticalSection classObjects_;
};

/// The module that this code is linked into.
CComModule& comModule() noexcept;
