#pragma once

#include <windows.h>

#include <map>
#include <string>

/// Everything below a key of the registry, itself included: paths from the key on ("" is the key, "A\\B" a
/// subkey) to values by name. Names are as the registry has them. A value that is no REG_SZ shows its type in
/// front.
using RegistryContents = std::map<std::wstring, std::map<std::wstring, std::wstring>>;

/// Empty if there is no such key.
RegistryContents readRegistry(HKEY parent, const std::wstring& path);
