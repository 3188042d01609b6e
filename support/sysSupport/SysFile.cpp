#include "sysSupport/SysFile.h"

#include "TextConversion.h"

#include <cstring>
#include <windows.h>

namespace {

constexpr char drive = ':';

bool isSeparator(char c) noexcept
{
    return c == '\\' || c == '/';
}

bool isLetter(char c) noexcept
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

/// Where the parts of a name begin. Walks whole characters: in some code pages the second byte of a character
/// may look like a backslash.
struct NameParts
{
    /// Length of the directory part with its separator.
    std::size_t bareName = 0;
    /// The dot of the extension, or the name's end.
    std::size_t extension = 0;
    /// The last byte is a separator (and no half of a character).
    bool endsInSeparator = false;

    explicit NameParts(const QdxString& name)
    {
        const char* const text = name.data();
        const std::size_t length = std::strlen(text);
        extension = length;
        for (std::size_t i = 0; i < length; ++i) {
            const char c = text[i];
            endsInSeparator = isSeparator(c);
            if (endsInSeparator || c == drive) {
                bareName = i + 1;
                extension = length;
            } else if (c == '.') {
                extension = i;
            } else if (IsDBCSLeadByte(static_cast<BYTE>(c))) {
                ++i;
            }
        }
    }
};

QdxString withoutSeparatorAtEnd(QdxString dir)
{
    while (!dir.isEmpty() && NameParts(dir).endsInSeparator)
        dir.remove(std::strlen(dir.data()) - 1);
    return dir;
}

/// "c:\" and "\" name a directory only with their separator.
bool isRoot(const QdxString& dirWithoutSeparator)
{
    return dirWithoutSeparator.isEmpty() ||
           (dirWithoutSeparator.length() == 2 && dirWithoutSeparator.data()[1] == drive);
}

} // namespace

bool SysFile::exists(const QdxString& name)
{
    const DWORD attributes = GetFileAttributesW(toWide(name));
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

bool SysFile::deleteFile(const QdxString& name)
{
    return DeleteFileW(toWide(name)) != FALSE;
}

QdxString SysFile::getDir(const QdxString& name)
{
    QdxString dir(name.data(), NameParts(name).bareName);
    if (!NameParts(dir).endsInSeparator)
        return dir;
    QdxString trimmed = withoutSeparatorAtEnd(dir);
    return isRoot(trimmed) ? dir : trimmed;
}

QdxString SysFile::stripDir(const QdxString& name)
{
    return name.data() + NameParts(name).bareName;
}

QdxString SysFile::getExtension(const QdxString& name)
{
    return name.data() + NameParts(name).extension;
}

QdxString SysFile::appendToDir(const QdxString& dir, const QdxString& name)
{
    if (dir.isEmpty())
        return name;
    const char* bare = name.data();
    while (isSeparator(*bare))
        ++bare;
    QdxString path = withoutSeparatorAtEnd(dir);
    path.append("\\", 1).append(bare);
    return path;
}

bool SysFile::isHyperLink(const QdxString& name)
{
    const char* const text = name.data();
    std::size_t letters = 0;
    while (isLetter(text[letters]))
        ++letters;
    if (letters >= 2 && text[letters] == ':')
        return true;
    return _strnicmp(text, "www.", 4) == 0;
}
