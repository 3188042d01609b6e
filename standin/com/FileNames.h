#pragma once

#include <string>
#include <string_view>

namespace standin {
/// Where a document is saved: the folder without trailing backslash, and the name within it.
struct FileName
{
    std::u16string folder;
    std::u16string name;

    std::wstring full() const;
};

/// The absolute file that a name given by a client means; a name without an extension gets `extension` (with
/// its dot). Raises WordError 5152 for a name that no file can have.
FileName resolveFileName(std::u16string_view given, std::u16string_view extension);

/// The bytes of a file. Raises WordError 5174 when there is none and 5155 when it cannot be read.
std::string readFile(const std::wstring& file);

/// Replaces a file by `bytes` in one step: a reader sees the old content or the new, never a part. Raises
/// WordError 5273 when the folder does not exist and 5155 or 5156 when the file cannot be written.
void replaceFile(const std::wstring& file, std::string_view bytes);
} // namespace standin
