#include "SessionFolder.h"

#include "SessionFiles.h"
#include "SessionLook.h"

#include <filesystem>

#include <windows.h>

namespace reference {

namespace {

/// Wine finds a name at once that is spelled as the folder is, and lists folder after folder for another.
std::string spelledAsStored(const std::string& folder)
{
    std::string spelled(MAX_PATH, '\0');
    spelled.resize(GetLongPathNameA(folder.c_str(), spelled.data(), MAX_PATH));
    return spelled;
}

} // namespace

SessionFolder::SessionFolder()
{
    const std::string folder = spelledAsStored(folder_.path()) + "\\";
    const auto write = [&](const std::string& name, const std::string& bytes) {
        folder_.write(name, bytes);
        const std::string path = folder + name;
        contents_[std::wstring(path.begin(), path.end())] = bytes;
    };
    lookTemplateFile_ = folder + "look.dot";
    write("look.dot", lookTemplate);
    for (const SessionFile& file : sessionFiles()) {
        const std::string name(file.name.begin(), file.name.end());
        if (file.exists())
            write(name, file.bytes);
        const std::string path = folder + name;
        paths_[file.name] = std::u16string(path.begin(), path.end());
    }
    // Each word that a link leads to is looked for as a file there: no names, and no folders on the way.
    std::filesystem::current_path(std::filesystem::temp_directory_path().root_path());
}

const SessionFolder& SessionFolder::shared()
{
    static const SessionFolder folder;
    return folder;
}

std::optional<std::string> SessionFolder::contentOf(const std::wstring& path) const
{
    const auto found = contents_.find(path);
    return found == contents_.end() ? std::optional<std::string>() : found->second;
}

} // namespace reference
