#pragma once

#include "QdxString.h"

#include "win32/RegistryKey.h"

#include <string>

namespace detail {

/// The key below a hive in which a group's values lie; an empty group means the root itself.
[[nodiscard]] std::wstring settingsPath(const QdxString& group);

/// A group's key, in the 64-bit view, for reading; tests false when there is none.
[[nodiscard]] RegistryKey openSettings(HKEY hive, const std::wstring& path) noexcept;
/// The same for writing; made when absent. Raises `_com_error`.
[[nodiscard]] RegistryKey createSettings(HKEY hive, const std::wstring& path);

} // namespace detail
