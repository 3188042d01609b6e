#include "LogFile.h"

#include <spdlog/pattern_formatter.h>
#include <spdlog/sinks/rotating_file_sink.h>

#include <cwctype>
#include <map>
#include <mutex>

namespace diagnostics {

namespace {

constexpr char linePattern[] = "%Y-%m-%d %H:%M:%S.%e %z\t%P\t%t\t%l\t%v";

spdlog::level::level_enum levelOf(Severity severity)
{
    switch (severity) {
    case Severity::error:
        return spdlog::level::err;
    case Severity::warning:
        return spdlog::level::warn;
    case Severity::info:
        break;
    }
    return spdlog::level::info;
}

// The library's registry of loggers and its threads play no part.
class RotatingLogFile : public LogFile
{
public:
    RotatingLogFile(const std::wstring& path, std::size_t largest) : sink_(path, largest, filesPutAside)
    {
        sink_.set_formatter(std::make_unique<spdlog::pattern_formatter>(linePattern));
    }

    void write(Severity severity, std::string_view text) override
    {
        sink_.log({spdlog::string_view_t(), levelOf(severity), {text.data(), text.size()}});
        sink_.flush();
    }

private:
    spdlog::sinks::rotating_file_sink_mt sink_;
};

/// The open files of this process: only one handle of a file may be open when it is put aside.
struct OpenFiles
{
    std::mutex mutex;
    std::map<std::wstring, std::weak_ptr<LogFile>> files; ///< by lower-case path
};

OpenFiles& openFiles()
{
    static OpenFiles open;
    return open;
}

} // namespace

std::shared_ptr<LogFile> LogFile::open(const std::wstring& path, std::size_t largest)
{
    std::wstring key = path;
    for (wchar_t& c : key)
        c = static_cast<wchar_t>(std::towlower(c));
    OpenFiles& open = openFiles();
    const std::lock_guard lock(open.mutex);
    std::weak_ptr<LogFile>& known = open.files[key];
    std::shared_ptr<LogFile> file = known.lock();
    if (!file) {
        file = std::make_shared<RotatingLogFile>(path, largest);
        known = file;
    }
    return file;
}

} // namespace diagnostics
