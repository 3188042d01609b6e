#include "TestFolder.h"

#include <filesystem>
#include <fstream>
#include <sstream>
#include <windows.h>

TestFolder::TestFolder()
{
    static int made = 0;
    const std::filesystem::path path =
        std::filesystem::temp_directory_path() /
        ("mirovel-test-" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(++made));
    std::filesystem::remove_all(path);
    std::filesystem::create_directories(path);
    path_ = path.string().c_str();
}

TestFolder::~TestFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(path_.data(), ignored);
}

QdxString TestFolder::file(const char* name) const
{
    return QdxString(path_).append("\\").append(name);
}

QdxString TestFolder::write(const char* name, const std::string& content) const
{
    const QdxString path = file(name);
    std::ofstream(path.data(), std::ios::binary) << content;
    return path;
}

std::string contentOf(const QdxString& path)
{
    const std::ifstream file(path.data(), std::ios::binary);
    if (!file)
        return "(no file)";
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}
