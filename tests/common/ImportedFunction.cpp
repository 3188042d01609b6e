#include "ImportedFunction.h"

#include <stdexcept>
#include <string>

namespace {

template <class Type>
Type& at(HMODULE module, ULONGLONG address)
{
    return *reinterpret_cast<Type*>(reinterpret_cast<BYTE*>(module) + address);
}

void** placeOf(HMODULE module, std::string_view name)
{
    const auto& headers =
        at<IMAGE_NT_HEADERS>(module, static_cast<DWORD>(at<IMAGE_DOS_HEADER>(module, 0).e_lfanew));
    const auto* library = &at<IMAGE_IMPORT_DESCRIPTOR>(
        module, headers.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress);
    for (; library->Name != 0; ++library) {
        const auto* names = &at<IMAGE_THUNK_DATA>(module, library->OriginalFirstThunk);
        auto* places = &at<void*>(module, library->FirstThunk);
        for (; names->u1.AddressOfData != 0; ++names, ++places) {
            const bool isNumber = IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal);
            if (!isNumber && name == at<IMAGE_IMPORT_BY_NAME>(module, names->u1.AddressOfData).Name)
                return places;
        }
    }
    throw std::runtime_error(std::string(name) + " is not imported");
}

} // namespace

ImportedFunction::ImportedFunction(HMODULE module, std::string_view name, void* replacement)
    : place_(placeOf(module, name)), former_(*place_)
{
    set(replacement);
}

ImportedFunction::~ImportedFunction()
{
    set(former_);
}

void ImportedFunction::set(void* function) const
{
    DWORD protection = 0;
    VirtualProtect(place_, sizeof(*place_), PAGE_READWRITE, &protection);
    *place_ = function;
    VirtualProtect(place_, sizeof(*place_), protection, &protection);
}
