#pragma once

#include <string>

/// A new, empty folder below the temporary directory, removed with all that is in it. Its path is in lower
/// case, as the names of generated documents are.
class ScratchFolder
{
public:
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    [[nodiscard]] const std::string& path() const { return path_; }
    [[nodiscard]] std::string file(const std::string& name) const { return path_ + "\\" + name; }
    /// The path of a new file with that content; folders in the name are made.
    std::string write(const std::string& name, const std::string& content) const;

private:
    std::string path_;
};

/// The whole file; "(no file)" when it cannot be opened.
std::string contentOf(const std::string& path);
