#include "tracedll/Trace.h"

#include "TextConversion.h"
#include "general/QdxException.h"
#include "sysSupport/SysFile.h"
#include "tracedll/LogBeginning.h"
#include "win32/FullPath.h"
#include "win32/TemporaryFolder.h"

#include <array>
#include <charconv>
#include <comdef.h>
#include <cwctype>
#include <mutex>
#include <set>
#include <string>
#include <windows.h>

namespace {

QdxString inTemporaryFolder(const QdxString& name)
{
    return SysFile::appendToDir(toNarrow(temporaryFolder().c_str()), name);
}

QdxString logPath(const QdxString& name)
{
    if (name.isEmpty())
        return inTemporaryFolder("mirovelcom.log");
    return SysFile::getDir(name).isEmpty() ? inTemporaryFolder(name) : name;
}

/// The logs that this process has opened, so that purging spares them.
class OwnLogs
{
public:
    void add(const QdxString& path)
    {
        const std::lock_guard lock(mutex_);
        keys_.insert(key(path));
    }
    bool contains(const QdxString& path)
    {
        const std::lock_guard lock(mutex_);
        return keys_.contains(key(path));
    }

private:
    /// One key for all ways to write one path.
    static std::wstring key(const QdxString& path)
    {
        std::wstring absolute = fullPath(static_cast<const wchar_t*>(toWide(path)));
        for (wchar_t& c : absolute)
            c = static_cast<wchar_t>(std::towlower(c));
        return absolute;
    }

    std::mutex mutex_;
    std::set<std::wstring> keys_;
};

OwnLogs& ownLogs()
{
    static OwnLogs logs;
    return logs;
}

QdxException cannotOpen(const QdxString& path, const QdxString& reason)
{
    QdxString text("Cannot open trace log ");
    text.append(path).append("\n").append(reason);
    return QdxException(text);
}

QdxString systemMessage(DWORD error)
{
    return toNarrow(_com_error(HRESULT_FROM_WIN32(error)).ErrorMessage());
}

/// Whether an open file may be taken for a log of ours. A device holds nothing.
bool holdsLog(HANDLE file)
{
    std::array<char, logBeginningSize> bytes{};
    DWORD count = 0;
    if (GetFileType(file) != FILE_TYPE_DISK)
        return true;
    return ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr) &&
           isLogBeginning({bytes.data(), count});
}

bool holdsLog(const QdxString& path)
{
    const HANDLE file =
        CreateFileW(toWide(path), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                    nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return false;
    const bool isLog = holdsLog(file);
    CloseHandle(file);
    return isLog;
}

} // namespace

/// An open log file and the line being written to it.
class Trace::Log
{
public:
    explicit Log(const QdxString& path)
        // Not shared for deletion: nobody's purge may remove a log in use.
        : file_(CreateFileW(toWide(path), FILE_APPEND_DATA | GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                            nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr))
    {
        if (file_ == INVALID_HANDLE_VALUE)
            throw cannotOpen(path, systemMessage(GetLastError()));
        if (!ownLogs().contains(path) && !holdsLog(file_))
            throw cannotOpen(path, "The file holds something else.");
    }
    ~Log() { flush(); }
    Log(const Log&) = delete;
    Log& operator=(const Log&) = delete;

    void write(const char* text)
    {
        for (; *text; ++text) {
            if (*text == '\n' && (line_.empty() || line_.back() != '\r'))
                line_ += '\r';
            line_ += *text;
        }
    }
    void endLine()
    {
        line_ += "\r\n";
        flush();
    }

private:
    /// A full disk must not stop the document: what cannot be written is dropped.
    void flush() noexcept
    {
        DWORD written = 0;
        if (!line_.empty())
            WriteFile(file_, line_.data(), static_cast<DWORD>(line_.size()), &written, nullptr);
        line_.clear();
    }

    /// Closed, too, when the log proves to be none, or memory runs out meanwhile.
    class File
    {
    public:
        explicit File(HANDLE file) : file_(file) {}
        ~File()
        {
            if (file_ != INVALID_HANDLE_VALUE)
                CloseHandle(file_);
        }
        File(const File&) = delete;
        File& operator=(const File&) = delete;
        operator HANDLE() const { return file_; }

    private:
        HANDLE file_;
    };

    const File file_;
    std::string line_;
};

void Trace::open(const QdxString& name)
{
    const QdxString path = logPath(name);
    auto log = std::make_shared<Log>(path);
    ownLogs().add(path);
    log_ = std::move(log);
    updateLimit();
}

void Trace::close() noexcept
{
    log_.reset();
    updateLimit();
}

void Trace::setLevel(int level) noexcept
{
    level_ = level;
    updateLimit();
}

void Trace::purgeBefore(const QdxString& name) noexcept
try {
    const QdxString path = logPath(name);
    if (!ownLogs().contains(path) && holdsLog(path))
        SysFile::deleteFile(path);
} catch (...) {
    // Out of memory, or a path that Windows cannot make sense of: the log stays.
}

Trace& Trace::operator<<(const QdxString& text)
{
    return *this << text.data();
}

Trace& Trace::operator<<(const char* text)
{
    if (log_ && text)
        log_->write(text);
    return *this;
}

Trace& Trace::operator<<(short number)
{
    return *this << static_cast<long>(number);
}

Trace& Trace::operator<<(long number)
{
    char digits[32] = {};
    std::to_chars(digits, digits + sizeof digits - 1, number);
    return *this << static_cast<const char*>(digits);
}

Trace& Trace::operator<<(Manipulator)
{
    if (log_)
        log_->endLine();
    return *this;
}

void Trace::updateLimit() noexcept
{
    limit_ = log_ ? level_ : closed_;
}
