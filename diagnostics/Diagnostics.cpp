#include "Diagnostics.h"

#include "EventLine.h"
#include "LogFile.h"
#include "LogFileName.h"
#include "win32/FullPath.h"
#include "win32/TemporaryFolder.h"

#include "TextConversion.h"

#include <atomic>
#include <exception>
#include <mutex>
#include <set>
#include <utility>
#include <windows.h>

namespace diagnostics {

namespace {

unsigned nextObject() noexcept
{
    static std::atomic<unsigned> last{0};
    return ++last;
}

std::wstring environmentName()
{
    constexpr wchar_t variable[] = L"MIROVEL_DIAGNOSTICS";
    std::wstring value(GetEnvironmentVariableW(variable, nullptr, 0), L'\0');
    value.resize(GetEnvironmentVariableW(variable, value.data(), static_cast<DWORD>(value.size())));
    return value;
}

// A full path: the process's directory may be another one when the file is opened again.
std::wstring pathOf(std::wstring_view name)
{
    return fullPath(logFileName(name, temporaryFolder(), GetCurrentProcessId()));
}

bool isFirstReport(std::wstring_view name)
{
    static std::mutex mutex;
    static std::set<std::wstring, std::less<>> reported;
    const std::lock_guard lock(mutex);
    return reported.emplace(name).second;
}

} // namespace

Diagnostics::Diagnostics() noexcept : object_(nextObject()) {}

Diagnostics::~Diagnostics() = default;

void Diagnostics::open(std::wstring_view name) noexcept
try {
    const std::wstring environment = environmentName();
    const std::wstring_view wanted = environment.empty() ? name : std::wstring_view(environment);
    if (wanted == name_)
        return;
    name_ = wanted;
    path_.clear();
    file_.reset();
    if (!wanted.empty())
        openFile(wanted);
} catch (...) {
    path_.clear();
    file_.reset();
}

void Diagnostics::openFile(std::wstring_view name)
{
    std::wstring path = pathOf(name);
    std::string failure;
    try {
        file_ = LogFile::open(path);
    } catch (const std::exception& exception) {
        failure = "The diagnostics file cannot be written: " + toUtf8(path) + " (" + exception.what() + ")";
    }
    if (failure.empty()) {
        path_ = std::move(path);
        return;
    }
    const bool isFirst = isFirstReport(name);
    if (isFirst)
        OutputDebugStringA(("mirovelcom: " + failure).c_str());
    path = pathOf(bareName(name));
    file_ = LogFile::open(path);
    path_ = std::move(path);
    if (isFirst)
        write(
            {.severity = Severity::warning,
             .what = std::move(failure),
             .remedy = "Name a file that this user may write in Log/Diagnostics or in MIROVEL_DIAGNOSTICS."});
}

void Diagnostics::setDocument(std::wstring_view fileName) noexcept
try {
    document_ = toUtf8(fileName);
} catch (...) {
    document_.clear();
}

const char* Diagnostics::setMethod(const char* method) noexcept
{
    return std::exchange(method_, method);
}

void Diagnostics::write(const Event& event) noexcept
try {
    if (file_)
        file_->write(event.severity, eventLine({object_, document_, method_ ? method_ : ""}, event));
} catch (...) {
    // A full disk, or no memory: the event is dropped.
}

} // namespace diagnostics
