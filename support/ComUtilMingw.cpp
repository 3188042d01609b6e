// mingw's comutil.h declares these two and no library of mingw's holds them; they make _bstr_t(const char*)
// and _variant_t(const char*) link. Microsoft's compiler brings them along.
#include "TextConversion.h"

#include <comutil.h>
#include <cstring>

namespace _com_util {

BSTR WINAPI ConvertStringToBSTR(const char* text)
{
    return text ? toWide(QdxString(text)).Detach() : nullptr;
}

/// The caller frees it with delete[].
char* WINAPI ConvertBSTRToString(BSTR text)
{
    if (!text)
        return nullptr;
    const QdxString narrow = toNarrow(text);
    char* const copy = new char[narrow.length() + 1];
    std::memcpy(copy, narrow.data(), narrow.length() + 1);
    return copy;
}

} // namespace _com_util
