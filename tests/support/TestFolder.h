#pragma once

#include "QdxString.h"

#include "ScratchFolder.h"

#include <string>

/// A scratch folder whose names are strings of ours.
class TestFolder
{
public:
    [[nodiscard]] QdxString path() const { return folder_.path().c_str(); }
    [[nodiscard]] QdxString file(const char* name) const { return folder_.file(name).c_str(); }
    /// The path of a new file with that content.
    [[nodiscard]] QdxString write(const char* name, const std::string& content) const
    {
        return folder_.write(name, content).c_str();
    }

private:
    ScratchFolder folder_;
};

inline std::string contentOf(const QdxString& path)
{
    return contentOf(std::string(path.data()));
}
