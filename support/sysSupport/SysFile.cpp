#include "sysSupport/SysFile.h"

#include "TextConversion.h"
#include "sysSupport/FileNames.h"

#include <string>
#include <string_view>
#include <windows.h>

namespace {

using fileNames::Parts;

bool isLeadByte(char c)
{
    return IsDBCSLeadByte(static_cast<BYTE>(c)) != FALSE;
}

Parts partsOf(const QdxString& name)
{
    return fileNames::partsOf(name.data(), isLeadByte);
}

QdxString withoutSeparatorAtEnd(QdxString dir)
{
    while (partsOf(dir).endsInSeparator)
        dir.remove(dir.length() - 1);
    return dir;
}

/// "c:\" and "\" name a directory only with their separator.
bool isRoot(const QdxString& dirWithoutSeparator)
{
    return dirWithoutSeparator.isEmpty() ||
           (dirWithoutSeparator.length() == 2 && dirWithoutSeparator.data()[1] == ':');
}

} // namespace

bool SysFile::exists(const QdxString& name)
{
    return exists(static_cast<const wchar_t*>(toWide(name)));
}

bool SysFile::exists(const wchar_t* name)
{
    const DWORD attributes = GetFileAttributesW(name);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

bool SysFile::deleteFile(const QdxString& name)
{
    return DeleteFileW(toWide(name)) != FALSE;
}

QdxString SysFile::getDir(const QdxString& name)
{
    QdxString dir(name.data(), partsOf(name).bareName);
    if (!partsOf(dir).endsInSeparator)
        return dir;
    QdxString trimmed = withoutSeparatorAtEnd(dir);
    return isRoot(trimmed) ? dir : trimmed;
}

QdxString SysFile::stripDir(const QdxString& name)
{
    return name.data() + partsOf(name).bareName;
}

QdxString SysFile::getExtension(const QdxString& name)
{
    return name.data() + partsOf(name).extension;
}

QdxString SysFile::appendToDir(const QdxString& dir, const QdxString& name)
{
    return fileNames::joined(dir.data(), name.data(), isLeadByte).c_str();
}

QdxString SysFile::installedPicture(const QdxString& installDir, const QdxString& name)
{
    return fileNames::installedPicture(installDir.data(), name.data(), isLeadByte).c_str();
}

bool SysFile::isHyperLink(const QdxString& name)
{
    return fileNames::isAddress(name.data());
}
