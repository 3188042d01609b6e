#include "sysSupport/FileNames.h"

#include <algorithm>
#include <array>

namespace fileNames {

namespace {

template <class Char>
using View = std::basic_string_view<Char>;

template <class Char>
bool isSeparator(Char c)
{
    return c == Char{'\\'} || c == Char{'/'};
}

template <class Char>
bool isLetter(Char c)
{
    return (c >= Char{'a'} && c <= Char{'z'}) || (c >= Char{'A'} && c <= Char{'Z'});
}

/// Whether `text` is the ASCII text `expected`.
template <class Char>
bool isText(View<Char> text, std::string_view expected)
{
    return std::ranges::equal(text, expected, [](Char c, char wanted) { return c == Char(wanted); });
}

bool isNoLeadByte(wchar_t /*unit*/)
{
    return false;
}

template <class Char>
Parts findParts(View<Char> name, bool (*isLead)(Char))
{
    Parts parts;
    parts.extension = name.size();
    for (std::size_t i = 0; i < name.size(); ++i) {
        const Char c = name[i];
        parts.endsInSeparator = isSeparator(c);
        if (parts.endsInSeparator || c == Char{':'}) {
            parts.bareName = i + 1;
            parts.extension = name.size();
        } else if (c == Char{'.'}) {
            parts.extension = i;
        } else if (isLead(c)) {
            ++i;
        }
    }
    return parts;
}

template <class Char>
std::basic_string<Char> join(View<Char> folder, View<Char> name, bool (*isLead)(Char))
{
    if (folder.empty())
        return std::basic_string<Char>(name);
    while (!name.empty() && isSeparator(name.front()))
        name.remove_prefix(1);
    while (findParts(folder, isLead).endsInSeparator)
        folder.remove_suffix(1);
    std::basic_string<Char> path(folder);
    path += Char{'\\'};
    path += name;
    return path;
}

template <class Char>
bool saysAddress(View<Char> name)
{
    constexpr std::string_view web = "www.";
    const auto scheme =
        static_cast<std::size_t>(std::ranges::find_if_not(name, isLetter<Char>) - name.begin());
    if (scheme >= 2 && scheme < name.size() && name[scheme] == Char{':'})
        return true;
    std::basic_string<Char> start(name.substr(0, web.size()));
    std::ranges::replace(start, Char{'W'}, Char{'w'});
    return isText<Char>(start, web);
}

template <class Char>
bool saysPicture(View<Char> extension)
{
    constexpr std::array<std::string_view, 5> pictures = {".bmp", ".jpg", ".jpeg", ".gif", ".emf"};
    return std::ranges::any_of(pictures,
                               [&](std::string_view picture) { return isText(extension, picture); });
}

template <class Char>
std::basic_string<Char> inPictureFolder(View<Char> installDir, View<Char> name, bool (*isLead)(Char))
{
    constexpr std::string_view folder = "pix";
    const Parts parts = findParts(name, isLead);
    if (parts.bareName > 0 || !saysPicture(name.substr(parts.extension)))
        return {};
    const std::basic_string<Char> pictures =
        join(installDir, View<Char>(std::basic_string<Char>(folder.begin(), folder.end())), isLead);
    return join(View<Char>(pictures), name, isLead);
}

} // namespace

Parts partsOf(std::wstring_view name)
{
    return findParts(name, isNoLeadByte);
}

Parts partsOf(std::string_view name, IsLeadByte isLeadByte)
{
    return findParts(name, isLeadByte);
}

std::wstring joined(std::wstring_view folder, std::wstring_view name)
{
    return join(folder, name, isNoLeadByte);
}

std::string joined(std::string_view folder, std::string_view name, IsLeadByte isLeadByte)
{
    return join(folder, name, isLeadByte);
}

bool isAddress(std::wstring_view name)
{
    return saysAddress(name);
}

bool isAddress(std::string_view name)
{
    return saysAddress(name);
}

bool isPictureExtension(std::wstring_view extension)
{
    return saysPicture(extension);
}

bool isPictureExtension(std::string_view extension)
{
    return saysPicture(extension);
}

std::wstring installedPicture(std::wstring_view installDir, std::wstring_view name)
{
    return inPictureFolder(installDir, name, isNoLeadByte);
}

std::string installedPicture(std::string_view installDir, std::string_view name, IsLeadByte isLeadByte)
{
    return inPictureFolder(installDir, name, isLeadByte);
}

} // namespace fileNames
