#pragma once

#include "RegEntry.h"

#include <optional>
#include <string>
#include <vector>

#include <windows.h>

/// What all registry access shares: where our settings live.
///
/// A setting is the value <name> of the key <root>\<group>, in the 64-bit view. The installer writes it for
/// all users under HKEY_LOCAL_MACHINE; a user's own value under HKEY_CURRENT_USER goes before it. REG_DWORD
/// reads as an integer, REG_SZ and REG_EXPAND_SZ (expanded) as text; a value of another type counts as
/// absent.
class RegisterBase
{
public:
    static constexpr wchar_t root[] = L"Software\\Lumarkscribe\\Mirovelcom";

protected:
    /// Only the value for all users, or the user's own and then the one for all users.
    enum class Scope
    {
        allUsers,
        userThenAllUsers
    };
    /// Nothing when the value is absent or cannot be read.
    static std::optional<RegEntry> find(const QdxString& group, const QdxString& name, Scope scope);

    /// A value in one place: `entry` is nothing when it is absent, cannot be read or is of a foreign type.
    struct Stored
    {
        std::optional<RegEntry> entry;
        std::wstring text = {}; ///< Of a text, with all its characters.
        bool isOfForeignType = false;
    };
    static Stored stored(HKEY hive, const QdxString& group, const QdxString& name);
    /// The names of all values of a group in one place.
    static std::vector<std::wstring> storedNames(HKEY hive, const QdxString& group);
};
