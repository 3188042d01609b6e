#include "TemplateFileDialog.h"

#include <array>
#include <cwchar>

#include <cderr.h>
#include <commdlg.h>

std::optional<std::wstring> chooseTemplateFile(HWND owner, const wchar_t* initialName)
{
    std::array<wchar_t, 260> name{};
    std::wcsncpy(name.data(), initialName, name.size() - 1);

    OPENFILENAMEW request{};
    request.lStructSize = sizeof request;
    request.hwndOwner = owner;
    request.lpstrFilter = L"Word Template Files (*.dot)\0*.dot\0";
    request.lpstrFile = name.data();
    request.nMaxFile = static_cast<DWORD>(name.size() - 1);
    request.lpstrTitle = L"Select Word Template File";
    // The current directory belongs to the host.
    request.Flags = OFN_HIDEREADONLY | OFN_NOCHANGEDIR;

    BOOL chosen = GetOpenFileNameW(&request);
    if (!chosen && CommDlgExtendedError() == FNERR_INVALIDFILENAME) {
        // A name that no file can have must not keep the dialog from being shown.
        name[0] = L'\0';
        chosen = GetOpenFileNameW(&request);
    }
    if (!chosen)
        return std::nullopt;
    return name.data();
}
