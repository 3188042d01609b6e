#pragma once

#include <string>
#include <string_view>

#include <windows.h>

namespace compose {

/// A text, or a picture's bytes, in a file of its own in the user's temporary folder, under a name that
/// nobody can foresee. While it lives nobody else can change or delete the file; then it is gone.
///
/// Errors: `_com_error` with what Windows answers, when it cannot be made or does not hold the text.
class FragmentFile
{
public:
    explicit FragmentFile(const std::string& text, std::wstring_view extension = L".rtf");
    ~FragmentFile();
    FragmentFile(const FragmentFile&) = delete;
    FragmentFile& operator=(const FragmentFile&) = delete;

    [[nodiscard]] const std::wstring& path() const { return path_; }

private:
    std::wstring path_;
    HANDLE file_ = INVALID_HANDLE_VALUE; ///< for reading, which nobody else may do more than
};

} // namespace compose
