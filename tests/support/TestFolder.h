#pragma once

#include "QdxString.h"

#include <string>

/// A new, empty folder below the temporary directory, removed with the files in it.
class TestFolder
{
public:
    TestFolder();
    ~TestFolder();
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;

    [[nodiscard]] const QdxString& path() const { return path_; }
    [[nodiscard]] QdxString file(const char* name) const;
    /// The path of a new file with that content.
    [[nodiscard]] QdxString write(const char* name, const std::string& content) const;

private:
    QdxString path_;
};

/// The whole file; "(no file)" when it cannot be opened.
std::string contentOf(const QdxString& path);
