#include "ClientObject.h"

#include "win32/WindowsError.h"

#include <bit>

_COM_SMARTPTR_TYPEDEF(IClassFactory, __uuidof(IClassFactory));

namespace replay {

ObjectPtr RegisteredClass::make()
{
    ObjectPtr object;
    _com_util::CheckError(object.CreateInstance(CLSID_Mirovel, nullptr, CLSCTX_INPROC_SERVER));
    return object;
}

LibraryClass::LibraryClass(const std::wstring& path)
    : library_(LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH))
{
    if (library_ == nullptr)
        throwLastError();
    getClassObject_ = std::bit_cast<ClassObjectGetter>(GetProcAddress(library_, "DllGetClassObject"));
    if (getClassObject_ == nullptr) {
        FreeLibrary(library_);
        _com_issue_error(CO_E_ERRORINDLL);
    }
}

LibraryClass::~LibraryClass()
{
    FreeLibrary(library_);
}

ObjectPtr LibraryClass::make()
{
    IClassFactoryPtr factory;
    _com_util::CheckError(
        getClassObject_(CLSID_Mirovel, __uuidof(IClassFactory), reinterpret_cast<void**>(&factory)));
    ObjectPtr object;
    _com_util::CheckError(
        factory->CreateInstance(nullptr, __uuidof(IDocument), reinterpret_cast<void**>(&object)));
    return object;
}

} // namespace replay
