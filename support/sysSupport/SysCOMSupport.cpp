#include "sysSupport/SysCOMSupport.h"

#include "TextConversion.h"

#include <string>
#include <windows.h>

namespace {

/// Length of a class id written without its braces.
constexpr std::size_t bareClsidLength = 36;

std::wstring absolutePath(const QdxString& path)
{
    const _bstr_t wide = toWide(path);
    std::wstring absolute(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            GetFullPathNameW(wide, static_cast<DWORD>(absolute.size()), absolute.data(), nullptr);
        if (length < absolute.size()) {
            absolute.resize(length);
            return absolute;
        }
        absolute.resize(length);
    }
}

} // namespace

IUnknownPtr SysCOMSupport::getRunningIUnknown(const QdxString& clsid)
{
    IUnknownPtr running;
    return SUCCEEDED(findRunning(clsid, running)) ? running : IUnknownPtr();
}

HRESULT SysCOMSupport::findRunning(const QdxString& clsid, IUnknownPtr& running)
{
    QdxString text = clsid;
    if (text.length() == bareClsidLength && text.first('{') == QdxString::npos)
        text = QdxString("{").append(text).append("}");

    CLSID id;
    const HRESULT named = CLSIDFromString(toWide(text), &id);
    return FAILED(named) ? named : GetActiveObject(id, nullptr, &running);
}

bool SysCOMSupport::isFileRunning(const QdxString& path)
{
    if (path.isEmpty())
        return false;
    // A file's moniker compares its path without case.
    IMonikerPtr moniker;
    IRunningObjectTablePtr table;
    return SUCCEEDED(CreateFileMoniker(absolutePath(path).c_str(), &moniker)) &&
           SUCCEEDED(GetRunningObjectTable(0, &table)) && table->IsRunning(moniker) == S_OK;
}
