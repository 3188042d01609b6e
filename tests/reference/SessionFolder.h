#pragma once

#include "ScratchFolder.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace reference {

/// The files of sessions on the disk, written once for all players of the process.
class SessionFolder
{
public:
    /// Made by the first call. From then on the process's directory is one in which no session finds a file.
    static const SessionFolder& shared();

    /// Of the files of sessions, by their names; also of those that there are not.
    [[nodiscard]] const std::map<std::u16string_view, std::u16string>& paths() const { return paths_; }
    /// The template that has the styles of looks.
    [[nodiscard]] const std::string& lookTemplateFile() const { return lookTemplateFile_; }
    /// What sessions' documents are called. They are not written.
    [[nodiscard]] std::string document() const { return folder_.file("session.doc"); }
    /// What is in the file of that path; nothing when it is none of these.
    [[nodiscard]] std::optional<std::string> contentOf(const std::wstring& path) const;

private:
    SessionFolder();

    ScratchFolder folder_;
    std::map<std::u16string_view, std::u16string> paths_;
    std::map<std::wstring, std::string> contents_; ///< by paths
    std::string lookTemplateFile_;
};

} // namespace reference
