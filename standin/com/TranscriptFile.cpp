#include "TranscriptFile.h"

#include <memory>
#include <stdexcept>
#include <windows.h>

namespace standin {
namespace {
struct HandleCloser
{
    void operator()(void* handle) const { CloseHandle(handle); }
};
} // namespace

Server::TranscriptSink transcriptFileFromEnvironment()
{
    std::wstring name(32768, L'\0');
    name.resize(
        GetEnvironmentVariableW(L"WORDSTANDIN_TRANSCRIPT", name.data(), static_cast<DWORD>(name.size())));
    if (name.empty())
        return nullptr;
    // Each write reaches the system at once, so a killed server leaves all its lines; append, since every
    // Word that a client starts writes to the same file.
    const HANDLE file =
        CreateFileW(name.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                    nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        throw std::runtime_error("cannot write the transcript");
    const std::shared_ptr<void> shared(file, HandleCloser());
    return [shared](const std::string& line, const CalledMember&) {
        const std::string text = line + "\n";
        DWORD written = 0;
        WriteFile(shared.get(), text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    };
}
} // namespace standin
