#include "DiagnosticsLog.h"

#include "LogFileName.h"
#include "win32/TemporaryFolder.h"
#include "win32/WindowsError.h"

#include <system_error>

namespace {

std::filesystem::path folderOf(const std::wstring& name)
{
    const std::filesystem::path file = diagnostics::logFileName(name, temporaryFolder(), 0);
    std::error_code error;
    const std::filesystem::path full = std::filesystem::absolute(file, error);
    return (error ? file : full).parent_path();
}

std::filesystem::path systemFolder()
{
    std::wstring folder(MAX_PATH + 1, L'\0');
    folder.resize(GetSystemDirectoryW(folder.data(), static_cast<UINT>(folder.size())));
    return folder;
}

} // namespace

std::wstring placeOfLogs(const std::wstring& name)
{
    const std::filesystem::path bare = diagnostics::bareName(name);
    return (folderOf(name) / bare.stem()).wstring() + L".<process>" + bare.extension().wstring();
}

std::optional<std::filesystem::path> newestLog(const std::wstring& name)
{
    std::optional<std::filesystem::path> newest;
    std::filesystem::file_time_type time;
    std::error_code error;
    for (std::filesystem::directory_iterator each(folderOf(name), error), end; !error && each != end;
         each.increment(error)) {
        if (!diagnostics::isLogFileName(each->path().filename().wstring(), name))
            continue;
        std::error_code unknown;
        const auto written = each->last_write_time(unknown);
        if (unknown || (newest && written < time))
            continue;
        newest = each->path();
        time = written;
    }
    return newest;
}

void openInEditor(const std::filesystem::path& file)
{
    const std::wstring editor = (systemFolder() / L"notepad.exe").wstring();
    std::wstring command = L"\"" + editor + L"\" \"" + file.wstring() + L"\"";
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(editor.c_str(), command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &startup, &process))
        throwLastError();
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
}
