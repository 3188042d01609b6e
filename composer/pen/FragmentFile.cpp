#include "FragmentFile.h"

#include <algorithm>
#include <array>
#include <comdef.h>
#include <objbase.h>

namespace compose {

namespace {

constexpr DWORD largestPiece = 1U << 20U;

std::wstring newPath(std::wstring_view extension)
{
    std::array<wchar_t, MAX_PATH + 1> folder{};
    if (GetTempPathW(static_cast<DWORD>(folder.size()), folder.data()) == 0)
        _com_issue_error(HRESULT_FROM_WIN32(GetLastError()));
    GUID name{};
    if (const HRESULT result = CoCreateGuid(&name); FAILED(result))
        _com_issue_error(result);
    std::array<wchar_t, 64> text{};
    StringFromGUID2(name, text.data(), static_cast<int>(text.size()));
    return (std::wstring(folder.data()) + L"mirovel-" + text.data()).append(extension);
}

bool write(HANDLE file, const std::string& text)
{
    for (std::size_t done = 0; done < text.size();) {
        const auto piece = static_cast<DWORD>(std::min<std::size_t>(text.size() - done, largestPiece));
        DWORD written = 0;
        if (!WriteFile(file, text.data() + done, piece, &written, nullptr) || written == 0)
            return false;
        done += written;
    }
    return true;
}

/// `found` has room to read into: nothing here needs memory.
bool holds(HANDLE file, const std::string& text, std::string& found)
{
    std::size_t done = 0;
    for (DWORD read = 0; ReadFile(file, found.data(), static_cast<DWORD>(found.size()), &read, nullptr);
         done += read) {
        if (read == 0)
            return done == text.size();
        if (text.compare(done, read, found, 0, read) != 0)
            return false;
    }
    return false;
}

} // namespace

FragmentFile::FragmentFile(const std::string& text, std::wstring_view extension) : path_(newPath(extension))
{
    // Before there is a file that a failure would leave behind.
    std::string found(std::min<std::size_t>(text.size() + 1, largestPiece), '\0');
    const HANDLE made = CreateFileW(path_.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_TEMPORARY | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED, nullptr);
    if (made == INVALID_HANDLE_VALUE)
        _com_issue_error(HRESULT_FROM_WIN32(GetLastError()));
    DWORD error = write(made, text) ? ERROR_SUCCESS : GetLastError();
    CloseHandle(made);
    if (error == ERROR_SUCCESS) {
        file_ = CreateFileW(path_.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
        if (file_ == INVALID_HANDLE_VALUE)
            error = GetLastError();
        else if (!holds(file_, text, found))
            error = ERROR_FILE_INVALID;
    }
    if (error == ERROR_SUCCESS)
        return;
    if (file_ != INVALID_HANDLE_VALUE)
        CloseHandle(file_);
    DeleteFileW(path_.c_str());
    _com_issue_error(HRESULT_FROM_WIN32(error));
}

FragmentFile::~FragmentFile()
{
    CloseHandle(file_);
    DeleteFileW(path_.c_str());
}

} // namespace compose
