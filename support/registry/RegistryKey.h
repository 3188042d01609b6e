#pragma once

#include "QdxString.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <windows.h>

namespace detail {

/// The key below a hive in which a group's values lie; an empty group means the root itself.
[[nodiscard]] std::wstring settingsPath(const QdxString& group);

/// An open key of the 64-bit view; closed with the object.
class RegistryKey
{
public:
    /// For reading; tests false when there is no such key or it may not be read.
    [[nodiscard]] static RegistryKey open(HKEY hive, const std::wstring& path) noexcept;
    /// For writing; made when absent. Raises `_com_error`.
    [[nodiscard]] static RegistryKey create(HKEY hive, const std::wstring& path);

    RegistryKey(RegistryKey&& other) noexcept : key_(std::exchange(other.key_, nullptr)) {}
    RegistryKey& operator=(RegistryKey&&) = delete;
    ~RegistryKey();

    explicit operator bool() const noexcept { return key_ != nullptr; }

    /// Whether the value is there, of whatever type.
    [[nodiscard]] bool has(const wchar_t* name) const noexcept;
    /// Nothing unless the value is there and is a REG_DWORD.
    [[nodiscard]] std::optional<DWORD> number(const wchar_t* name) const noexcept;
    /// Nothing unless the value is there and is a REG_SZ or a REG_EXPAND_SZ, which is expanded.
    [[nodiscard]] std::optional<std::wstring> text(const wchar_t* name) const;

    /// Of all values, whatever their types.
    [[nodiscard]] std::vector<std::wstring> names() const;

    /// Raise `_com_error`.
    void setNumber(const wchar_t* name, DWORD number) const;
    void setText(const wchar_t* name, const wchar_t* text) const;

private:
    explicit RegistryKey(HKEY key) noexcept : key_(key) {}

    HKEY key_;
};

} // namespace detail
