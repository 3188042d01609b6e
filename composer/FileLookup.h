#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace compose {

/// With its dot, as it is written; empty: none.
std::wstring_view extensionOf(std::wstring_view fileName);
std::wstring_view withoutFolder(std::wstring_view fileName);

/// By the extension, whose case counts: .bmp, .jpg, .jpeg, .gif, .emf.
bool isPicture(std::wstring_view fileName);

/// The file that a client means: as named, or, for a picture named without a folder, in the folder "pix" of
/// the installation.
std::optional<std::wstring> findFile(const std::wstring& name, const std::wstring& installDir);

} // namespace compose
