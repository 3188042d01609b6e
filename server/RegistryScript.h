#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

/// A registration script: what a class has in the registry, as a tree. Portable; `Registrar.h` applies it.
///
///     HKCR
///     {
///         Some.Class = s 'Some Class'
///         NoRemove CLSID
///         {
///             ForceRemove {00000000-0000-0000-0000-000000000000} = s 'Some Class'
///             {
///                 InprocServer32 = s '%MODULE%'
///                 {
///                     val ThreadingModel = s 'Apartment'
///                 }
///             }
///         }
///     }
///
/// Words are separated by white space; a brace or an equals sign is one only if it stands alone, so that
/// class identifiers need no quotes. Between single quotes white space counts, and two single quotes stand
/// for one; a quoted word is never a keyword. Keywords are understood in any case. `%NAME%` stands for a
/// variable's value, which is taken as it is, `%%` for a percent sign.

/// What happens to a key beyond being created by registration, and removed, when it holds nothing else, by
/// unregistration.
enum class KeyFlag
{
    none,
    noRemove,    ///< Never removed.
    forceRemove, ///< Removed with all it holds before it is created, and at unregistration.
    deleteKey,   ///< Removed at registration, not created.
};

/// A named string value.
struct ScriptValue
{
    std::u16string name;
    std::u16string data;

    bool operator==(const ScriptValue&) const = default;
};

struct ScriptKey
{
    KeyFlag flag = KeyFlag::none;
    std::u16string name;
    std::optional<std::u16string> defaultValue;
    std::vector<ScriptValue> values;
    std::vector<ScriptKey> subkeys;

    bool operator==(const ScriptKey&) const = default;
};

enum class RootKey
{
    classesRoot,
    currentUser,
    localMachine,
    users,
    performanceData,
    dynData,
    currentConfig,
};

struct ScriptRoot
{
    RootKey root = RootKey::classesRoot;
    std::vector<ScriptKey> keys;

    bool operator==(const ScriptRoot&) const = default;
};

using RegistryScript = std::vector<ScriptRoot>;

/// The values that replace `%NAME%`, by name without the percent signs.
using ScriptVariables = std::map<std::u16string, std::u16string, std::less<>>;

/// A script that is not understood. what() is "line 3, column 5: " and the reason; both count from 1, columns
/// in UTF-16 units, a tab as one.
class RegistryScriptError : public std::runtime_error
{
public:
    RegistryScriptError(std::size_t line, std::size_t column, const std::string& reason);

    [[nodiscard]] std::size_t line() const noexcept { return line_; }
    [[nodiscard]] std::size_t column() const noexcept { return column_; }

private:
    std::size_t line_;
    std::size_t column_;
};

/// Reads a script. Throws `RegistryScriptError`.
[[nodiscard]] RegistryScript parseRegistryScript(std::u16string_view text, const ScriptVariables& variables);
