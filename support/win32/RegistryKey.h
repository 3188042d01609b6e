#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

/// An open key of the registry; closed with the object. The name of a key's default value is null.
class RegistryKey
{
public:
    /// Tests false when there is no such key or it may not be opened.
    [[nodiscard]] static RegistryKey open(HKEY parent, const std::wstring& path, REGSAM access) noexcept;
    /// Made when absent. Raises `_com_error`.
    [[nodiscard]] static RegistryKey create(HKEY parent, const std::wstring& path, REGSAM access);

    RegistryKey(RegistryKey&& other) noexcept : key_(std::exchange(other.key_, nullptr)) {}
    RegistryKey& operator=(RegistryKey&&) = delete;
    ~RegistryKey();

    explicit operator bool() const noexcept { return key_ != nullptr; }
    /// For what lies below it.
    [[nodiscard]] HKEY get() const noexcept { return key_; }

    /// Whether the value is there, of whatever type.
    [[nodiscard]] bool has(const wchar_t* name) const noexcept;
    /// Nothing unless the value is there and is a REG_DWORD.
    [[nodiscard]] std::optional<DWORD> number(const wchar_t* name) const noexcept;
    /// Nothing unless the value is there and is a REG_SZ or a REG_EXPAND_SZ, which is expanded.
    [[nodiscard]] std::optional<std::wstring> text(const wchar_t* name) const;
    [[nodiscard]] std::vector<std::wstring> subkeys() const;
    /// Neither keys nor values. Raises `_com_error`.
    [[nodiscard]] bool isEmpty() const;

    /// Of all values, whatever their types.
    [[nodiscard]] std::vector<std::wstring> names() const;

    /// Raise `_com_error`.
    void setNumber(const wchar_t* name, DWORD number) const;
    void setText(const wchar_t* name, const wchar_t* text) const;
    /// Of a value; also when there is none.
    void remove(const wchar_t* name) const;

private:
    explicit RegistryKey(HKEY key) noexcept : key_(key) {}

    HKEY key_;
};
