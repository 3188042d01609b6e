#include "FileLookup.h"

#include "sysSupport/FileNames.h"
#include "sysSupport/SysFile.h"

namespace compose {

std::wstring_view extensionOf(std::wstring_view fileName)
{
    return fileName.substr(fileNames::partsOf(fileName).extension);
}

std::wstring_view withoutFolder(std::wstring_view fileName)
{
    return fileName.substr(fileNames::partsOf(fileName).bareName);
}

bool isPicture(std::wstring_view fileName)
{
    return fileNames::isPictureExtension(extensionOf(fileName));
}

std::optional<std::wstring> findFile(const std::wstring& name, const std::wstring& installDir)
{
    if (name.empty())
        return {};
    if (SysFile::exists(name.c_str()))
        return name;
    if (std::wstring installed = fileNames::installedPicture(installDir, name);
        !installed.empty() && SysFile::exists(installed.c_str()))
        return installed;
    return {};
}

} // namespace compose
