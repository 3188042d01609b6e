#pragma once

#include <windows.h>

#include <optional>
#include <string>

/// Lets the user choose a template file in the system's open-file dialog, which begins with `initialName` (as
/// far as the dialog can hold it). Nothing when the user cancels. Dispatches messages while it is open.
[[nodiscard]] std::optional<std::wstring> chooseTemplateFile(HWND owner, const wchar_t* initialName);
