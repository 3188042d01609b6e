#include "ScratchFolder.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <sstream>

#include <windows.h>

ScratchFolder::ScratchFolder()
{
    static int made = 0;
    path_ = (std::filesystem::temp_directory_path() / "mirovel-test-").string() +
            std::to_string(GetCurrentProcessId()) + "-" + std::to_string(++made);
    std::ranges::transform(path_, path_.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    std::filesystem::remove_all(path_);
    std::filesystem::create_directories(path_);
}

ScratchFolder::~ScratchFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::string ScratchFolder::write(const std::string& name, const std::string& content) const
{
    const std::string path = file(name);
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::ofstream(path, std::ios::binary) << content;
    return path;
}

std::string contentOf(const std::string& path)
{
    const std::ifstream file(path, std::ios::binary);
    if (!file)
        return "(no file)";
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}
