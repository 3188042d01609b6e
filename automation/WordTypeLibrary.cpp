#include "WordTypeLibrary.h"

namespace {

constexpr GUID libraryId = {0x00020905, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

// Of the first Word that has all the members called. Where a later one is registered, that is loaded.
constexpr WORD majorVersion = 8;
constexpr WORD minorVersion = 1;

} // namespace

ITypeLibPtr loadWordTypeLibrary() noexcept
{
    ITypeLibPtr library;
    LoadRegTypeLib(libraryId, majorVersion, minorVersion, LOCALE_NEUTRAL, &library);
    return library;
}
