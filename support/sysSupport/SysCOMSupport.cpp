#include "sysSupport/SysCOMSupport.h"

#include "TextConversion.h"
#include "win32/FullPath.h"

#include <string>
#include <windows.h>

namespace {

/// Length of a class id written without its braces.
constexpr std::size_t bareClsidLength = 36;

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
    return SUCCEEDED(
               CreateFileMoniker(fullPath(static_cast<const wchar_t*>(toWide(path))).c_str(), &moniker)) &&
           SUCCEEDED(GetRunningObjectTable(0, &table)) && table->IsRunning(moniker) == S_OK;
}
