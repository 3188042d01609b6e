#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// What the names of files say by themselves, by one set of rules for names in UTF-16 and for names in the
/// ANSI code page. Both '\' and '/' separate folders.
namespace fileNames {

/// Where the parts of a name begin.
struct Parts
{
    /// Length of the folder part with its separator or colon.
    std::size_t bareName = 0;
    /// The last dot of the bare name, or the name's end.
    std::size_t extension = 0;
    bool endsInSeparator = false;
};

/// Whether a byte is the first half of a character in the code page: the other half may look like a
/// backslash.
using IsLeadByte = bool (*)(char);

[[nodiscard]] Parts partsOf(std::wstring_view name);
[[nodiscard]] Parts partsOf(std::string_view name, IsLeadByte isLeadByte);

/// With one separator between them; an empty folder gives the name alone.
[[nodiscard]] std::wstring joined(std::wstring_view folder, std::wstring_view name);
[[nodiscard]] std::string joined(std::string_view folder, std::string_view name, IsLeadByte isLeadByte);

/// An address with a scheme of two or more letters (one letter is a drive), or a name that begins with
/// "www.", in any case.
[[nodiscard]] bool isAddress(std::wstring_view name);
[[nodiscard]] bool isAddress(std::string_view name);

/// The extensions of pictures, dot included. Their case counts.
[[nodiscard]] bool isPictureExtension(std::wstring_view extension);
[[nodiscard]] bool isPictureExtension(std::string_view extension);

/// Where an installation in that folder has a picture of that name; empty for a name with a folder, and for
/// one that is no picture's.
[[nodiscard]] std::wstring installedPicture(std::wstring_view installDir, std::wstring_view name);
[[nodiscard]] std::string installedPicture(std::string_view installDir, std::string_view name,
                                           IsLeadByte isLeadByte);

} // namespace fileNames
