#include "ShellOpen.h"

#include "TextConversion.h"

#include <windows.h>

#include <shellapi.h>

#include <utility>

namespace {

thread_local ShellOpenOverride* currentOverride = nullptr;

} // namespace

void shellOpen(const QdxString& fileName)
{
    if (currentOverride) {
        currentOverride->opener_(fileName);
        return;
    }
    const _bstr_t file = toWide(fileName);
    SHELLEXECUTEINFOW request = {};
    request.cbSize = sizeof(request);
    request.fMask = SEE_MASK_FLAG_DDEWAIT;
    request.lpFile = file;
    request.nShow = SW_SHOWNORMAL;
    ShellExecuteExW(&request);
}

ShellOpenOverride::ShellOpenOverride(Opener opener)
    : opener_(std::move(opener)), outer_(std::exchange(currentOverride, this))
{
}

ShellOpenOverride::~ShellOpenOverride()
{
    currentOverride = outer_;
}
